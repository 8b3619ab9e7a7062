#include "cadhost/lisp/LispError.h"

#include <cstring>

#include "cadhost/lisp/Printer.h"

namespace cadhost::lisp {

void badArgType(const char* predicate, const Value& got) {
    // The commercial host writes a colon after the numeric predicates only.
    const bool colon = std::strcmp(predicate, "numberp") == 0 || std::strcmp(predicate, "fixnump") == 0;
    throw LispError(std::string("bad argument type: ") + predicate + (colon ? ": " : " ") + prin1String(got));
}

void badArgValue(const std::string& what, const Value& got) {
    throw LispError("bad argument value: " + what + " " + prin1String(got));
}

void tooFewArguments() { throw LispError("too few arguments"); }
void tooManyArguments() { throw LispError("too many arguments"); }

}  // namespace cadhost::lisp
