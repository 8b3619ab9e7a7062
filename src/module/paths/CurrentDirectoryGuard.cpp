#include "module/paths/CurrentDirectoryGuard.h"

#include "module/paths/Platform.h"

namespace ardo {

CurrentDirectoryGuard::CurrentDirectoryGuard() : saved_(platform::currentDirectory()) {}

CurrentDirectoryGuard::~CurrentDirectoryGuard() {
    if (!saved_.empty()) platform::changeDirectory(saved_);
}

}  // namespace ardo
