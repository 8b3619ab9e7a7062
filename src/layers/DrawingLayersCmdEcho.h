#pragma once
// Switches the host's command echo off while the layer core drives host commands, and
// puts the old value back on every way out.
#include "host/ResBuf.h"

namespace ardo {

class CmdEchoOff {
public:
    CmdEchoOff();
    ~CmdEchoOff();
    CmdEchoOff(const CmdEchoOff&) = delete;
    CmdEchoOff& operator=(const CmdEchoOff&) = delete;

private:
    ResBuf old_;
    bool saved_ = false;
};

}  // namespace ardo
