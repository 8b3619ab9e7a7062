#include "layers/LayerKeyFunctions.h"

#include "module/HostBinding.h"
#include "module/lisp/CallFrame.h"
#include "layers/LayerKeyRules.h"

namespace ardo::handlers {

int kemb_mkLayerKey() {
    CallFrame frame;
    ResBuf cdate;
    // The key never fails: without a clock reading the key is made from zero.
    const double reading = host().getVar("CDATE", cdate) == RTNORM ? cdate.real : 0.0;
    host().retStr(makeLayerKey(reading));
    return RSRSLT;
}

}  // namespace ardo::handlers
