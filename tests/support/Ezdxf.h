#pragma once
// ezdxf, an independent DXF reader and writer, run through python3 as a child process.
// Tests that need it skip with kNoEzdxf where it is not installed.
#include <optional>
#include <string>
#include <vector>

#include "ChildProcess.h"

namespace ardo::test {

inline constexpr const char* kNoEzdxf = "python3 with ezdxf (Debian python3-ezdxf) is not installed";

// A python3 that can import the module, or nothing. Debian's python3-* packages install into
// the system interpreter, which a user's own python3 earlier on PATH may not see.
inline std::optional<std::string> pythonWith(const std::string& module) {
    for (const char* candidate : {"python3", "/usr/bin/python3"})
        if (runProcess({candidate, "-c", "import " + module}).exitCode == 0) return std::string(candidate);
    return std::nullopt;
}

inline std::optional<std::string> pythonWithEzdxf() {
    static const std::optional<std::string> found = pythonWith("ezdxf");
    return found;
}

// Runs the python snippet with the arguments as sys.argv[1:].
inline ProcessResult runPython(const std::string& python, const std::string& script,
                               const std::vector<std::string>& args, int timeoutSeconds = 120) {
    std::vector<std::string> argv{python, "-c", script};
    argv.insert(argv.end(), args.begin(), args.end());
    return runProcess(argv, timeoutSeconds);
}

}  // namespace ardo::test
