#pragma once
// Module initialisation (c:kemb_lcinit): the module files beside the module, the message
// catalog, the user's settings files, the layer dialog settings and the central layer
// control file.

namespace ardo {

// Runs the initialisation; RTNORM, or RTERROR when a file it needs could not be read (the
// user has been told which).
int initialiseModule();

namespace handlers {
int c_kemb_lcinit();
}

}  // namespace ardo
