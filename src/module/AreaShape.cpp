#include "module/AreaShape.h"

#include "module/HostBinding.h"
#include "module/SystemVariableOverride.h"
#include "module/lisp/CallFrame.h"

namespace ardo::handlers {

namespace {

bool isArea(const ResBuf& node) { return node.restype == RTENAME || node.restype == RTPICKS; }
bool isPoint(const ResBuf& node) { return node.restype == RTPOINT || node.restype == RT3DPOINT; }

}  // namespace

int kemb_MakeAreaShape() {
    CallFrame frame;
    if (!frame.check({{ArgKind::String},
                      {ArgKind::Any},
                      {ArgKind::String, Presence::Optional},
                      {ArgKind::Any, Presence::Optional}},
                     ExtraArgs::Reject))
        return RSRSLT;
    const bool withBlock = frame.has(2);
    if (frame.text(0).empty() || !isArea(frame.node(1)) || (withBlock && frame.text(2).empty()) ||
        withBlock != frame.has(3) || (withBlock && !isPoint(frame.node(3)))) {
        frame.reportBadValue();
        return RSRSLT;
    }
    // File dialogs would stop the export for a name it already has.
    SystemVariableOverride noDialogs("FILEDIA", ResBuf::shortInt(0));
    if (host().command({ResBuf::str("_.-MAPEXPORT"), ResBuf::str("_SHP"), ResBuf::str(frame.text(0)), frame.node(1),
                        ResBuf::str("")}) != RTNORM)
        return RSRSLT;
    if (withBlock) {
        ResBuf point = frame.node(3);
        point.restype = RT3DPOINT;
        if (host().command({ResBuf::str("_.INSERT"), ResBuf::str(frame.text(2)), point, ResBuf::str("1"),
                            ResBuf::str("1"), ResBuf::str("0")}) != RTNORM)
            return RSRSLT;
    }
    host().retT();
    return RSRSLT;
}

}  // namespace ardo::handlers
