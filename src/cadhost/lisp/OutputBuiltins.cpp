// Printing on the command line and the text files of (open).
#include <string>

#include "cadhost/lisp/ArgCheck.h"
#include "cadhost/lisp/Builtins.h"
#include "cadhost/lisp/Interpreter.h"
#include "cadhost/lisp/LispFile.h"
#include "cadhost/lisp/Printer.h"
#include "base/CaseFold.h"

namespace cadhost::lisp {

namespace {

LispFile& fileArg(const Value& v) {
    if (v.kind() != Kind::File) badArgType("streamp", v);
    return v.asFile();
}

// Writes to the file argument at index when there is one, else on the command line.
void emit(Interpreter& in, const Args& args, std::size_t fileIndex, const std::string& text) {
    if (args.size() <= fileIndex || args[fileIndex].isNil()) {
        in.host().print(text);
        return;
    }
    LispFile& f = fileArg(args[fileIndex]);
    if (!f.open || !f.forWriting) throw LispError("file not open for writing: " + prin1String(args[fileIndex]));
    f.stream << text;
}

Value printWith(Interpreter& in, const Args& args, PrintStyle style, const char* before, const char* after) {
    checkCount(args, 0, 2);
    if (args.empty()) {
        emit(in, args, 1, before);
        return in.voidValue();
    }
    std::string text = before;
    printValue(text, args[0], style);
    text += after;
    emit(in, args, 1, text);
    return args[0];
}

Value princFn(Interpreter& in, const Args& a) { return printWith(in, a, PrintStyle::Princ, "", ""); }
Value prin1Fn(Interpreter& in, const Args& a) { return printWith(in, a, PrintStyle::Prin1, "", ""); }
Value printFn(Interpreter& in, const Args& a) { return printWith(in, a, PrintStyle::Prin1, "\n", " "); }

Value promptFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 1);
    in.host().print(stringArg(args[0]));
    return Value();
}

Value terpriFn(Interpreter& in, const Args& args) {
    checkCount(args, 0, 0);
    in.host().print("\n");
    return Value();
}

Value writeLineFn(Interpreter& in, const Args& args) {
    checkCount(args, 1, 2);
    emit(in, args, 1, stringArg(args[0]) + "\n");
    return args[0];
}

Value openFn(Interpreter&, const Args& args) {
    checkCount(args, 2, 2);
    const std::string& name = stringArg(args[0]);
    const std::string mode = ardo::lowerCase(stringArg(args[1]));
    auto file = std::make_shared<LispFile>();
    if (mode == "r") {
        file->stream.open(name, std::ios::in | std::ios::binary);
    } else if (mode == "w" || mode == "a") {
        file->forWriting = true;
        file->stream.open(name, std::ios::out | std::ios::binary | (mode == "a" ? std::ios::app : std::ios::trunc));
    } else {
        badArgValue("open mode \"r\", \"w\" or \"a\"", args[1]);
    }
    if (!file->stream.is_open()) return Value();
    return Value::file(std::move(file));
}

Value closeFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 1);
    LispFile& f = fileArg(args[0]);
    if (f.open) f.stream.close();
    f.open = false;
    return Value();
}

Value readLineFn(Interpreter&, const Args& args) {
    checkCount(args, 1, 1);
    LispFile& f = fileArg(args[0]);
    if (!f.open || f.forWriting) throw LispError("file not open for reading: " + prin1String(args[0]));
    std::string line;
    if (!std::getline(f.stream, line)) return Value();
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return Value::string(std::move(line));
}

const Builtin table[] = {
    {"PRINC", princFn, nullptr},          {"PRIN1", prin1Fn, nullptr},  {"PRINT", printFn, nullptr},
    {"PROMPT", promptFn, nullptr},        {"TERPRI", terpriFn, nullptr}, {"WRITE-LINE", writeLineFn, nullptr},
    {"OPEN", openFn, nullptr},            {"CLOSE", closeFn, nullptr},  {"READ-LINE", readLineFn, nullptr},
};

}  // namespace

std::span<const Builtin> outputBuiltins() { return table; }

}  // namespace cadhost::lisp
