#pragma once
// The LISP side of the application's documents and session:
//   (drawings)                     the open drawings' names, in the order they were opened
//   (switchdrawing name-or-number) makes that drawing current; its name, or nil
//   (opendrawing "file.dxf")       opens a drawing and makes it current; its name, or nil
//   (closedrawing [name-or-number]) closes that drawing (the current one without argument)
//   (quit) and (exit)              end the session
// Switching and closing take effect when the expression is done: LISP code keeps running
// in the drawing it started in.
namespace cadhost {

namespace lisp {
class Interpreter;
}

void defineDocumentFunctions(lisp::Interpreter& in);

}  // namespace cadhost
