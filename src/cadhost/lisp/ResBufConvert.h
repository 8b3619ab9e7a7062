#pragma once
// Conversions between LISP values and the host's result-buffer chains.
//
// Arguments to external functions: strings RTSTR; integers RTSHORT when they fit in
// 16 bits, otherwise RTLONG (as AutoLISP sends them); reals RTREAL; nil RTNIL; T RTT;
// other symbols RTSTR with their name; a list of two or three numbers RTPOINT or
// RT3DPOINT; other lists RTLB ... RTLE, a dotted tail as RTDOTE before its value;
// entity names RTENAME; selection sets RTPICKS with the set's id.
#include "cadhost/lisp/Value.h"
#include "boundary/ResBuf.h"

namespace cadhost::lisp {

class Interpreter;

void appendArgument(ardo::ResBufChain& out, const Value& v);
// One point node when the list is two or three numbers.
bool asPoint(const Value& list, ardo::ResBuf& point);

// A result chain as one value (see ExternalFunction); throws LispError on a broken chain.
Value valueFromChain(Interpreter& interp, const ardo::ResBufChain& chain);
// One node that is not a list bracket: a string, number, point, name, nil or T.
Value valueFromNode(Interpreter& interp, const ardo::ResBuf& node);
// DXF groups as an association list ((0 . "LINE") (8 . "0") (10 1.0 2.0 0.0) ...).
Value groupsToList(const ardo::ResBufChain& groups);
// An association list as DXF groups, each node's restype its group code: strings, integers,
// reals and entity names as they are, points (10 x y [z]) as one 3D point. Throws
// "bad DXF group" for an entry that is none of these.
ardo::ResBufChain listToGroups(const Value& list);
// The value of one DXF group by its code's value type.
Value groupValue(const ardo::ResBuf& group);

}  // namespace cadhost::lisp
