#include "settings/ModuleFiles.h"

namespace ardo {

ModuleFiles& moduleFiles() {
    static ModuleFiles files;
    return files;
}

}  // namespace ardo
