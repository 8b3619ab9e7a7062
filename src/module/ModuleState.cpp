#include "module/ModuleState.h"

namespace ardo {

ModuleState& moduleState() {
    static ModuleState state;
    return state;
}

}  // namespace ardo
