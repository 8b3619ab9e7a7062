#pragma once
// The application messages the host sends to a module's entry point, and the entry
// point's signature.
#include "boundary/AppMessages.h"

namespace cadhost {

using AppMsg = ardo::AppMsgCode;
using enum ardo::AppMsgCode;

// extern "C" int acrxEntryPoint(int message, void* appId); the appId is the ardo::Host*.
using EntryPoint = int (*)(int message, void* appId);

}  // namespace cadhost
