#include "cadhost/app/CadHost.h"

#include "cadhost/app/ModuleLisp.h"
#include "cadhost/lisp/LispError.h"
#include "cadhost/lisp/SelectionSet.h"
#include "base/CaseFold.h"

namespace cadhost {

using ardo::ResBuf;
using ardo::ResBufChain;

CadHost::CadHost(Drawing drawing, bool titled, Print print)
    : output_(std::move(print)),
      drawing_(std::move(drawing)),
      boxes_(output_),
      lispHost_(*this),
      lisp_(lispHost_),
      commands_(CommandProcessor::Environment{
          &drawing_, [this](const std::string& text) { output_(text); },
          [this](std::int64_t set) {
              const auto selection = lisp_.selectionSet(set);
              return selection ? selection->entities : std::vector<std::int64_t>{};
          },
          // The console draws nothing; a window repaints here.
          [] {}}),
      modules_(*this) {
    variables_.setDrawingTitled(titled);
    defineModuleFunctions(*this);
    defineQuit();
}

CadHost::~CadHost() { modules_.quit(); }

void CadHost::printLine(std::string_view text) {
    output_(text);
    output_("\n");
}

// (quit) and (exit) end the session at the prompt. The error only unwinds the LISP code
// that called them; it is marked reported so that neither *error* nor the prompt shows it.
void CadHost::defineQuit() {
    for (const char* name : {"QUIT", "EXIT"})
        lisp_.defineExternal(name, -1, [this](int, const ResBufChain& args) -> ResBufChain {
            if (!args.empty()) throw lisp::LispError("too many arguments");
            quitRequested_ = true;
            lisp::LispError unwind("quit / exit abort");
            unwind.reported = true;
            throw unwind;
        });
}

void CadHost::send(const LoadedModule& module, AppMsg message) {
    const LoadedModule* previous = currentModule_;
    currentModule_ = &module;
    // The appId is how the module finds its host: the ardo::Host part of this object.
    module.send(message, static_cast<ardo::Host*>(this));
    currentModule_ = previous;
}

void CadHost::forgetModule(const LoadedModule& module) {
    for (const std::string& name : functions_.forget(&module)) lisp_.undefineExternal(name);
}

int CadHost::defun(const std::string& name, int code) {
    if (ardo::trimWhite(name).empty() || code < 0) return ardo::RTERROR;
    const LoadedModule* owner = currentModule_;
    functions_.define(name, owner, code);
    lisp_.defineExternal(name, code, [this, owner, name](int c, const ResBufChain& args) {
        return invoke(owner, c, name, args);
    });
    return ardo::RTNORM;
}

int CadHost::undef(const std::string& name, int code) {
    if (!functions_.undefine(name, currentModule_, code)) return ardo::RTERROR;
    lisp_.undefineExternal(name);
    return ardo::RTNORM;
}

int CadHost::regFunc(ardo::LispHandler handler, int code) {
    functions_.setHandler(currentModule_, code, handler);
    return ardo::RTNORM;
}

int CadHost::queueExpr(const std::string& expression) {
    lisp_.queueExpression(expression);
    return ardo::RTNORM;
}

ResBufChain CadHost::invoke(const LoadedModule* owner, int code, const std::string& name,
                            const ResBufChain& args) {
    // A handler may run LISP that calls another function; each call keeps its own frame.
    struct Restore {
        CadHost& host;
        Frame frame;
        const LoadedModule* module;
        ~Restore() {
            host.frame_ = std::move(frame);
            host.currentModule_ = module;
        }
    } restore{*this, std::move(frame_), currentModule_};
    frame_ = Frame{owner, code, args, {ResBuf::marker(ardo::RTNIL)}};
    if (ardo::LispHandler handler = functions_.handler(owner, code)) {
        currentModule_ = owner;
        handler();
    } else if (owner) {
        send(*owner, kInvkSubrMsg);
    } else {
        throw lisp::LispError("no function definition: " + ardo::upperCase(name));
    }
    return std::move(frame_.result);
}

int CadHost::setResult(ResBufChain result) {
    frame_.result = std::move(result);
    return ardo::RTNORM;
}

int CadHost::getVar(const std::string& name, ResBuf& value) const {
    const std::string key = ardo::upperCase(name);
    const std::optional<ResBuf> found = variables_.holds(key) ? variables_.get(key) : drawing_.getVar(key);
    if (!found) return ardo::RTERROR;
    value = *found;
    return ardo::RTNORM;
}

int CadHost::setVar(const std::string& name, const ResBuf& value) {
    const std::string key = ardo::upperCase(name);
    if (variables_.holds(key)) return variables_.set(key, value) ? ardo::RTNORM : ardo::RTERROR;
    return drawing_.setVar(key, value) == ardo::DbStatus::Ok ? ardo::RTNORM : ardo::RTERROR;
}

// One lock at a time: a second lock fails as it does while another command holds the document.
bool CadHost::lockDocument() {
    if (lockCount_ > 0) return false;
    ++lockCount_;
    return true;
}

void CadHost::unlockDocument() {
    if (lockCount_ > 0) --lockCount_;
}

bool CadHost::arxLoad(const std::string& path) {
    if (auto error = modules_.load(path)) {
        printLine(*error);
        return false;
    }
    return true;
}

bool CadHost::arxLoaded(const std::string& application) const { return modules_.find(application) != nullptr; }

bool CadHost::findFile(const std::string& name, std::string& result) const {
    auto found = lisp_.findFile(name);
    if (!found) return false;
    result = found->string();
    return true;
}

}  // namespace cadhost
