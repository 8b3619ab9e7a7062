#include "layers/DrawingLayersMessages.h"

#include "module/HostBinding.h"
#include "base/Printf.h"
#include "messages/MessageFile.h"

namespace ardo {

void printLayerMessage(const char* key) {
    host().print(format("%s\n", MessageFile::instance().text("LCINIT", key)));
}

void printLayerError(const char* key, DbStatus status) {
    host().print(format("%s es %d\n", MessageFile::instance().text("LCINIT", key), static_cast<int>(status)));
}

}  // namespace ardo
