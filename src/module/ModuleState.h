#pragma once
// Module-wide flags kept from start-up to unload.

namespace ardo {

struct ModuleState {
    bool queryInitDone = false;   // set by the first kemb_queryInit after start-up
    bool hostIsNotFull = false;   // PROGRAM does not name the full host
};

ModuleState& moduleState();

}  // namespace ardo
