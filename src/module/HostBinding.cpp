#include "module/HostBinding.h"

#include <stdexcept>

namespace ardo {

namespace {
Host* currentHost = nullptr;
}

Host& host() {
    if (!currentHost) throw std::logic_error("the module runs without a host");
    return *currentHost;
}

void bindHost(Host* h) { currentHost = h; }
bool hasHost() { return currentHost != nullptr; }

}  // namespace ardo
