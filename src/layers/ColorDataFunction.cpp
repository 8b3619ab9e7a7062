#include "module/HostBinding.h"
#include "module/lisp/CallFrame.h"
#include "layers/ColorText.h"
#include "layers/LayerFunctions.h"

namespace ardo::handlers {

int kemb_getColorDataFromString() {
    CallFrame frame;
    if (!frame.check({{ArgKind::String}})) return RSRSLT;
    HostColor color;
    if (parseColorText(color, frame.text(0))) host().retList(colorDataList(color));
    return RSRSLT;
}

}  // namespace ardo::handlers
