// Kept apart from ScriptedHost.cpp so that only the tests that use the command processor
// link it.
#include "cadhost/commands/CommandProcessor.h"
#include "cadhost/drawing/Drawing.h"
#include "support/ScriptedHost.h"

namespace ardo::test {

void ScriptedHost::useDrawing(cadhost::Drawing& realDrawing, cadhost::CommandProcessor& processor) {
    drawing = &realDrawing;
    realDrawing_ = &realDrawing;
    runCommand_ = [&processor](const ResBufChain& tokens) { return processor.feed(tokens); };
}

}  // namespace ardo::test
