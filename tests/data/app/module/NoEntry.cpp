// A shared library without an entry point, for the host's refusal to load it.
extern "C" int notAnEntryPoint() { return 0; }
