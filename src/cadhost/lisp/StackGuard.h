#pragma once
// Bounds the machine stack that recursive evaluation, printing and comparison may use,
// so runaway recursion ends in a LISP error instead of a crash.
#include <cstddef>

namespace cadhost::lisp {

// Marks the outermost entry into the interpreter on this thread; nested scopes keep
// the first mark.
class StackScope {
public:
    StackScope();
    ~StackScope();
    StackScope(const StackScope&) = delete;
    StackScope& operator=(const StackScope&) = delete;

private:
    bool outermost_;
};

// Throws "LISP stack overflow" when the stack below the outermost mark is used up.
void checkStack();

}  // namespace cadhost::lisp
