#pragma once
// A file opened by (open): one stream for reading, writing or appending.
#include <fstream>
#include <string>

#include "cadhost/lisp/Value.h"

namespace cadhost::lisp {

struct LispFile : Object {
    std::fstream stream;
    bool forWriting = false;
    bool open = true;
};

}  // namespace cadhost::lisp
