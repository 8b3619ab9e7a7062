#pragma once
// The host the module runs in: set by the entry point when the host loads the module,
// asked by every piece of the module that needs a host service.
#include "boundary/Host.h"

namespace ardo {

Host& host();
void bindHost(Host* h);
bool hasHost();

}  // namespace ardo
