#include "cadhost/app/ModuleLisp.h"

#include <filesystem>

#include "cadhost/app/Application.h"
#include "cadhost/lisp/ArgCheck.h"
#include "cadhost/lisp/LispError.h"

namespace cadhost {

using lisp::Args;
using lisp::Interpreter;
using lisp::Value;

namespace {


// What a failing call returns: the caller's onfailure value, or the host's error.
Value failed(const Args& args, const char* failure) {
    if (args.size() < 2) throw lisp::LispError(failure);
    return args[1];
}

Value arxloadFn(Interpreter& in, const Args& args) {
    lisp::checkCount(args, 1, 2);
    const std::string& name = lisp::stringArg(args[0]);
    std::filesystem::path file(name);
    if (!file.has_extension()) file += ".arx";
    const auto found = in.findFile(file.string());
    Application& host = applicationOf(in);
    const ardo::Status loaded = host.modules().load(found ? found->string() : file.string());
    if (loaded) return args[0];
    if (args.size() < 2) host.printLine("; " + loaded.error());
    return failed(args, "ARXLOAD failed");
}

Value arxunloadFn(Interpreter& in, const Args& args) {
    lisp::checkCount(args, 1, 2);
    const std::string& name = lisp::stringArg(args[0]);
    Application& host = applicationOf(in);
    if (host.modules().unload(name)) return args[0];
    if (args.size() < 2)
        host.printLine("; application \"" + appNameOf(name) + "\" is not loaded; (arx) lists those that are");
    return failed(args, "ARXUNLOAD failed");
}

Value arxFn(Interpreter& in, const Args& args) {
    lisp::checkCount(args, 0, 0);
    const std::vector<std::string> names = applicationOf(in).modules().appNames();
    Value list;
    for (auto it = names.rbegin(); it != names.rend(); ++it) list = Value::cons(Value::string(*it), list);
    return list;
}

const lisp::Builtin functions[] = {
    {"ARXLOAD", arxloadFn, nullptr},
    {"ARXUNLOAD", arxunloadFn, nullptr},
    {"ARX", arxFn, nullptr},
};

}  // namespace

std::string appNameOf(const std::string& nameOrPath) {
    std::filesystem::path p(nameOrPath);
    if (!p.has_extension()) p += ".arx";
    return p.filename().string();
}

void defineModuleFunctions(Interpreter& in) {
    for (const lisp::Builtin& b : functions) in.intern(b.name)->value = Value::subr(&b);
}

}  // namespace cadhost
