#pragma once
// The layer core's command-line messages, texts from section "LCINIT" of the message file.
#include "boundary/HostDrawing.h"

namespace ardo {

// "%s\n" with the text of the key.
void printLayerMessage(const char* key);
// "%s es %d\n" with the text of the key and the host's error status.
void printLayerError(const char* key, DbStatus status);

}  // namespace ardo
