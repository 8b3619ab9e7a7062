#include "cadhost/app/DocumentLisp.h"

#include <string>

#include "cadhost/app/Application.h"
#include "cadhost/lisp/ArgCheck.h"
#include "cadhost/lisp/LispError.h"

namespace cadhost {

using lisp::Args;
using lisp::Interpreter;
using lisp::Value;

namespace {

// A drawing named by its name or path (a string) or its number in (drawings), from 1.
Document* namedDocument(Application& app, const Value& which) {
    if (which.kind() == lisp::Kind::Int) return app.findDocument(std::to_string(which.asInt()));
    return app.findDocument(lisp::stringArg(which));
}

// Whether the document is still open when a waiting change runs.
bool isOpen(Application& app, const Document* document) {
    for (const auto& open : app.documents())
        if (open.get() == document) return true;
    return false;
}

void activateLater(Application& app, Document* document) {
    app.afterInput([&app, document] {
        if (isOpen(app, document)) app.activate(*document);
    });
}

Value drawingsFn(Interpreter& in, const Args& args) {
    Application& app = applicationOf(in);
    lisp::checkCount(args, 0, 0);
    Value list;
    for (auto it = app.documents().rbegin(); it != app.documents().rend(); ++it)
        list = Value::cons(Value::string((*it)->name()), list);
    return list;
}

Value switchdrawingFn(Interpreter& in, const Args& args) {
    Application& app = applicationOf(in);
    lisp::checkCount(args, 1, 1);
    Document* document = namedDocument(app, args[0]);
    if (!document) return Value();
    activateLater(app, document);
    return Value::string(document->name());
}

Value opendrawingFn(Interpreter& in, const Args& args) {
    Application& app = applicationOf(in);
    lisp::checkCount(args, 1, 1);
    Document& running = app.current();
    auto opened = app.openDocument(lisp::stringArg(args[0]));
    if (!opened) {
        app.printLine("; " + opened.error());
        return Value();
    }
    app.activate(running);
    activateLater(app, *opened);
    return Value::string((*opened)->name());
}

Value closedrawingFn(Interpreter& in, const Args& args) {
    Application& app = applicationOf(in);
    lisp::checkCount(args, 0, 1);
    Document* document = args.empty() ? &documentOf(in) : namedDocument(app, args[0]);
    if (!document) return Value();
    if (app.documents().size() == 1) {
        app.printLine("; \"" + document->name() + "\" is the only open drawing and stays open");
        return Value();
    }
    app.afterInput([&app, document] {
        if (!isOpen(app, document)) return;
        if (auto closed = app.closeDocument(*document); !closed) app.printLine("; " + closed.error());
    });
    return in.t();
}

// (quit) and (exit) end the session at the prompt. The error only unwinds the LISP code
// that called them; it is marked reported so that neither *error* nor the prompt shows it.
Value quitFn(Interpreter& in, const Args& args) {
    Application& app = applicationOf(in);
    if (!args.empty()) throw lisp::LispError("too many arguments");
    app.requestQuit();
    lisp::LispError unwind("quit / exit abort");
    unwind.reported = true;
    throw unwind;
}

const lisp::Builtin functions[] = {
    {"DRAWINGS", drawingsFn, nullptr},         {"SWITCHDRAWING", switchdrawingFn, nullptr},
    {"OPENDRAWING", opendrawingFn, nullptr},   {"CLOSEDRAWING", closedrawingFn, nullptr},
    {"QUIT", quitFn, nullptr},                 {"EXIT", quitFn, nullptr},
};

}  // namespace

void defineDocumentFunctions(Interpreter& in) {
    for (const lisp::Builtin& b : functions) in.intern(b.name)->value = Value::subr(&b);
}

}  // namespace cadhost
