#pragma once
// Functions that the host registers by name and numeric code (the host's acedDefun).
#include <functional>
#include <string>

#include "cadhost/lisp/Value.h"
#include "boundary/ResBuf.h"

namespace cadhost::lisp {

// Called with the function code and the arguments as the host's chain; returns the
// result as one value in chain form: a single node, or a list between RTLB and RTLE.
// Several top-level nodes are read as a list of them; an empty chain is nil.
using ExternalFunction = std::function<ardo::ResBufChain(int code, const ardo::ResBufChain& args)>;

struct External : Object {
    std::string name;  // as registered, for printing
    int code = 0;
    ExternalFunction fn;
};

}  // namespace cadhost::lisp
