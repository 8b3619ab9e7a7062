#include "module/UnavailableFunctions.h"

#include "module/HostBinding.h"
#include "base/Printf.h"
#include "messages/MessageFile.h"
#include "module/DialogHandlers.h"

namespace ardo::handlers {

namespace {

int notAvailable(const char* function, bool isCommand) {
    if (isCommand) host().retVoid();
    else host().retNil();
    host().print(format(MessageFile::instance().text("LCINIT", "NotAvailable"), function));
    return RSRSLT;
}

}  // namespace

int kemb_layerDialog() {
    if (LispHandler h = dialogHandlers().layerDialog) return h();
    return notAvailable("kemb_layerDialog", false);
}
int kemb_ArdoIniDialog() {
    if (LispHandler h = dialogHandlers().ardoIniDialog) return h();
    return notAvailable("kemb_ArdoIniDialog", false);
}
int C_Kemb_EditLayers() {
    if (LispHandler h = dialogHandlers().editLayers) return h();
    return notAvailable("Kemb_EditLayers", true);
}
int kemb_Highlight() {
    if (LispHandler h = dialogHandlers().highlight) return h();
    return notAvailable("kemb_Highlight", false);
}
int C_kemb_HighlightOptions() {
    if (LispHandler h = dialogHandlers().highlightOptions) return h();
    return notAvailable("kemb_HighlightOptions", true);
}

}  // namespace ardo::handlers

namespace ardo {

DialogHandlers& dialogHandlers() {
    static DialogHandlers handlers;
    return handlers;
}

}  // namespace ardo
