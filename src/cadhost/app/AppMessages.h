#pragma once
// The application messages a host sends to a module's entry point, numbered as the
// commercial host numbers them, and the entry point's signature.

namespace cadhost {

enum AppMsg : int {
    kInitAppMsg = 1,
    kUnloadAppMsg = 2,
    kLoadDwgMsg = 3,
    kUnloadDwgMsg = 4,
    kInvkSubrMsg = 5,
    kQuitMsg = 8,
    kPreQuitMsg = 13,
};

// extern "C" int acrxEntryPoint(int message, void* appId); the appId is the ardo::Host*.
using EntryPoint = int (*)(int message, void* appId);

}  // namespace cadhost
