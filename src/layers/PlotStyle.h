#pragma once
// Making a named plot style known in the drawing before a layer refers to it.
#include <string>

namespace ardo {

// "Normal" (any case) needs nothing. Otherwise, with the document locked, the drawing's
// "ACAD_PLOTSTYLENAME" dictionary is created when missing and a place-holder is added
// under the name, unless one is there already. A document that cannot be locked is
// reported on the command line and left unchanged.
void preparePlotStyle(const std::string& name);

}  // namespace ardo
