#include "cadhost/lisp/StackGuard.h"

#include <cstdint>

#include "cadhost/lisp/LispError.h"

namespace cadhost::lisp {

namespace {
// Well inside the 8 MB main-thread stack, with room for sanitizer-sized frames.
constexpr std::uintptr_t stackBudget = 3 * 1024 * 1024;
thread_local std::uintptr_t stackBase = 0;

std::uintptr_t here() { return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)); }
}  // namespace

StackScope::StackScope() : outermost_(stackBase == 0) {
    if (outermost_) stackBase = here();
}

StackScope::~StackScope() {
    if (outermost_) stackBase = 0;
}

void checkStack() {
    if (stackBase != 0 && stackBase > here() && stackBase - here() > stackBudget)
        throw LispError("LISP stack overflow");
}

}  // namespace cadhost::lisp
