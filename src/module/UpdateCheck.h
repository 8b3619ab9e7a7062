#pragma once
// The update check at start-up. The module itself never goes on the network: it starts the
// suite's updater program, and only when both sides agree:
//   - the installation offers it: ardo.cfg, section [UPDATE], key Updater names the program
//     (relative to the program folder, or a full path); empty or missing, the default, means
//     no update check at all;
//   - the user has agreed: the user's ArdoUpdate.ini, section [UPDATER], CheckOnStartup=1
//     (the default file says 0; any other value counts as no).
// The updater gets the single argument 1 and runs on its own; the module does not wait.
#include <string>

namespace ardo {

enum class UpdateCheck {
    NotOffered,      // no updater in ardo.cfg
    NoConsent,       // the user has not agreed
    UpdaterMissing,  // offered and agreed, but the program is not there
    StartFailed,
    Started,
};

UpdateCheck runUpdateCheck();

}  // namespace ardo
