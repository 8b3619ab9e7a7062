#include "highlight/HighlightOptionsRun.h"

#include "boundary/Host.h"
#include "dialog/LayerDialogRun.h"
#include "highlight/cDlgHighlight.h"
#include "messages/MessageCatalog.h"
#include "module/HostBinding.h"

namespace ardo {

void runHighlightOptionsLoop(cOptHighlight& options) {
    if (!dialogsCanBeShown("kemb_HighlightOptions")) return;
    cDlgHighlight dialog(host().mainWindow());
    dialog.working().copyValuesFrom(options);
    while (dialog.exec() == kPickDistance) {
        double distance = 0;
        if (host().getDist("\n" + catalogText(MsgKey::TxHlPickFirstPnt) + ": ", distance) == RTNORM)
            dialog.working().distance = distance;
    }
    options.copyValuesFrom(dialog.working());
}

}  // namespace ardo
