#pragma once
// A LISP error: unwinds to the prompt carrying the message that "; error: " shows.
#include <stdexcept>
#include <string>

namespace cadhost::lisp {

class Value;

class LispError : public std::runtime_error {
public:
    explicit LispError(const std::string& message) : std::runtime_error(message) {}
    // Set once *error* (or the default report) has seen this error, so outer frames
    // unwinding the same error do not report it again.
    bool reported = false;
};

// "bad argument type: numberp: \"a\"": the predicate names the type that was expected.
[[noreturn]] void badArgType(const char* predicate, const Value& got);
// "bad argument value: ..." for an argument of the right type that cannot be used.
[[noreturn]] void badArgValue(const std::string& what, const Value& got);
[[noreturn]] void tooFewArguments();
[[noreturn]] void tooManyArguments();

}  // namespace cadhost::lisp
