#pragma once
// The module's answer to the host's application messages.

namespace ardo {

// Binds the host given as the application id, handles the message, and returns kRetOK.
int moduleEntryPoint(int message, void* appId);

}  // namespace ardo
