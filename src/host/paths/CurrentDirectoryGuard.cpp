#include "host/paths/CurrentDirectoryGuard.h"

#include "host/paths/Platform.h"

namespace ardo {

CurrentDirectoryGuard::CurrentDirectoryGuard() : saved_(platform::currentDirectory()) {}

CurrentDirectoryGuard::~CurrentDirectoryGuard() {
    if (!saved_.empty()) platform::changeDirectory(saved_);
}

}  // namespace ardo
