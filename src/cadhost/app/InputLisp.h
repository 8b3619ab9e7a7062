#pragma once
// The LISP input functions: getpoint, getcorner, getdist, getangle, getorient, getint,
// getreal, getstring, getkword, initget, entsel and nentsel. They ask through the user
// interface, so the console answers with typed text and a window with picks as well;
// typed points, distances and angles are read as the command line reads them. nentsel
// picks as entsel does: the entities inside a block reference are not reached.
#include <string>

namespace cadhost {

namespace lisp {
class Interpreter;
}

// What initget set for the next input function: the control bits (1 no Enter, 2 no zero,
// 4 no negative, 64 distances flat, 128 any text) and the keywords ("Yes No _Y N").
struct InputRules {
    int bits = 0;
    std::string keywords;
};

void defineInputFunctions(lisp::Interpreter& in);

// getkword and getdist for the module's boundary calls, under the rules of the last
// initget: RTNORM with the answer, RTNONE for Enter, RTCAN when cancelled.
int askKeyword(lisp::Interpreter& in, const std::string& prompt, std::string& result);
int askDistance(lisp::Interpreter& in, const std::string& prompt, double& result);

}  // namespace cadhost
