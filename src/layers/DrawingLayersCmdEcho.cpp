#include "layers/DrawingLayersCmdEcho.h"

#include "host/Host.h"

namespace ardo {

CmdEchoOff::CmdEchoOff() {
    saved_ = host().getVar("CMDECHO", old_) == RTNORM;
    host().setVar("CMDECHO", ResBuf::shortInt(0));
}

CmdEchoOff::~CmdEchoOff() {
    if (saved_) host().setVar("CMDECHO", old_);
}

}  // namespace ardo
