#pragma once
// Argument checks shared by the built-in functions; each throws the commercial host's
// error for a wrong count or type.
#include <cstdint>
#include <string>

#include "cadhost/lisp/Value.h"

namespace cadhost::lisp {

void checkCount(const Args& args, std::size_t min, std::size_t max);
std::int32_t intArg(const Value& v);        // fixnump
double numberArg(const Value& v);           // numberp
const std::string& stringArg(const Value& v);  // stringp
Symbol* symbolArg(const Value& v);          // symbolp
// A proper list or nil (listp).
const Value& listArg(const Value& v);
std::int64_t enameArg(const Value& v);      // lentityp
SelectionSet& picksetArg(const Value& v);   // lselsetp

}  // namespace cadhost::lisp
