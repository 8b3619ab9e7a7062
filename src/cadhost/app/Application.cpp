#include "cadhost/app/Application.h"

#include <algorithm>
#include <charconv>

#include "base/CaseFold.h"
#include "cadhost/lisp/LispError.h"

namespace cadhost {

using ardo::ResBuf;
using ardo::ResBufChain;

namespace {

// Makes a document current for the length of a message or a queued expression.
class WorkingDocument {
public:
    WorkingDocument(Document*& current, Document& document) : current_(current), previous_(current) {
        current_ = &document;
    }
    ~WorkingDocument() { current_ = previous_; }
    WorkingDocument(const WorkingDocument&) = delete;
    WorkingDocument& operator=(const WorkingDocument&) = delete;

private:
    Document*& current_;
    Document* previous_;
};

}  // namespace

Application::Application(UserInterface& ui) : ui_(ui), modules_(*this) {}

Application::~Application() { modules_.quit(); }

void Application::printLine(std::string_view text) {
    ui_.print(text);
    ui_.print("\n");
}

Document& Application::addDocument(Drawing drawing, bool titled) {
    documents_.push_back(std::make_unique<Document>(*this, std::move(drawing), titled));
    Document& document = *documents_.back();
    current_ = &document;
    modules_.documentLoaded(document);
    return document;
}

ardo::Result<Document*> Application::openDocument(const std::string& path) {
    auto opened = Drawing::open(path);
    if (!opened) return ardo::Error{opened.error()};
    return &addDocument(std::move(opened).value(), true);
}

ardo::Status Application::closeDocument(Document& document) {
    if (documents_.size() == 1)
        return ardo::Error{"\"" + document.name() + "\" is the only open drawing and stays open; QUIT ends the session."};
    modules_.documentClosing(document);
    const auto it = std::find_if(documents_.begin(), documents_.end(),
                                 [&](const auto& d) { return d.get() == &document; });
    const auto index = it - documents_.begin();
    std::unique_ptr<Document> closing = std::move(*it);
    documents_.erase(it);
    if (current_ == closing.get()) current_ = documents_[static_cast<std::size_t>(index > 0 ? index - 1 : 0)].get();
    return {};
}

void Application::activate(Document& document) { current_ = &document; }

void Application::idle() {
    // Changes may queue expressions (a drawing opened) and expressions may ask for changes.
    while (true) {
        std::vector<std::function<void()>> changes = std::move(afterInput_);
        afterInput_.clear();
        for (auto& change : changes) change();
        bool ran = false;
        // By index: a queued expression may open another drawing.
        for (std::size_t i = 0; i < documents_.size(); ++i) {
            Document& document = *documents_[i];
            WorkingDocument working(current_, document);
            ran = document.lisp().runQueuedExpressions() > 0 || ran;
        }
        if (!ran && afterInput_.empty()) return;
    }
}

Document* Application::findDocument(std::string_view nameOrNumber) {
    const std::string_view wanted = ardo::trimWhite(nameOrNumber);
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(wanted.data(), wanted.data() + wanted.size(), number);
    if (error == std::errc() && end == wanted.data() + wanted.size())
        return number >= 1 && number <= documents_.size() ? documents_[number - 1].get() : nullptr;
    for (const auto& document : documents_)
        if (ardo::equalsNoCase(document->name(), wanted) || ardo::equalsNoCase(document->path(), wanted))
            return document.get();
    return nullptr;
}

void Application::send(const LoadedModule& module, AppMsg message) {
    const LoadedModule* previous = currentModule_;
    currentModule_ = &module;
    // The appId is how the module finds its host: the ardo::Host part of this object.
    module.send(message, static_cast<ardo::Host*>(this));
    currentModule_ = previous;
}

void Application::send(const LoadedModule& module, AppMsg message, Document& document) {
    WorkingDocument working(current_, document);
    send(module, message);
}

void Application::forgetModule(const LoadedModule& module) {
    for (const std::string& name : functions_.forget(&module))
        for (const auto& document : documents_) document->lisp().undefineExternal(name);
}

int Application::defun(const std::string& name, int code) {
    if (ardo::trimWhite(name).empty() || code < 0 || !current_) return ardo::RTERROR;
    const LoadedModule* owner = currentModule_;
    functions_.define(name, owner, code);
    current_->lisp().defineExternal(name, code, [this, owner, name](int c, const ResBufChain& args) {
        return invoke(owner, c, name, args);
    });
    return ardo::RTNORM;
}

int Application::undef(const std::string& name, int code) {
    if (!current_ || !functions_.defined(name, currentModule_, code)) return ardo::RTERROR;
    return current_->lisp().undefineExternal(name) ? ardo::RTNORM : ardo::RTERROR;
}

int Application::regFunc(ardo::LispHandler handler, int code) {
    functions_.setHandler(currentModule_, code, handler);
    return ardo::RTNORM;
}

int Application::queueExpr(const std::string& expression) {
    if (!current_) return ardo::RTERROR;
    current_->lisp().queueExpression(expression);
    ui_.expressionQueued();
    return ardo::RTNORM;
}

ResBufChain Application::invoke(const LoadedModule* owner, int code, const std::string& name,
                                const ResBufChain& args) {
    // A handler may run LISP that calls another function; each call keeps its own frame.
    struct Restore {
        Application& app;
        Frame frame;
        const LoadedModule* module;
        ~Restore() {
            app.frame_ = std::move(frame);
            app.currentModule_ = module;
        }
    } restore{*this, std::move(frame_), currentModule_};
    frame_ = Frame{owner, code, &args, {ResBuf::marker(ardo::RTNIL)}};
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

int Application::setResult(ResBufChain result) {
    frame_.result = std::move(result);
    return ardo::RTNORM;
}

// One value is what nearly every module call returns, and each call sets the nil result
// first: the frame's storage is reused instead of a new chain each time.
int Application::setResult(ResBuf value) {
    frame_.result.clear();
    frame_.result.push_back(std::move(value));
    return ardo::RTNORM;
}

int Application::getVar(Document& document, const std::string& name, ResBuf& value) const {
    // Nearly every layer call of a module reads CLAYER, which only a drawing holds: it is
    // given at once, without looking through the application's own names first.
    if (ardo::equalsNoCase(name, "CLAYER")) {
        // Into the caller's buffer: no new string for the name.
        value.restype = ardo::RTSTR;
        value.text = document.drawing().currentLayerName();
        value.integer = 0;
        value.real = 0.0;
        value.point = {};
        return ardo::RTNORM;
    }
    const std::string key = ardo::upperCase(name);
    std::optional<ResBuf> found;
    if (key == "DWGTITLED") found = ResBuf::shortInt(document.titled() ? 1 : 0);
    else if (auto held = variables_.get(key)) found = std::move(held);
    else found = document.drawing().getVar(key);
    if (!found) return ardo::RTERROR;
    value = std::move(*found);
    return ardo::RTNORM;
}

int Application::setVar(Document& document, const std::string& name, const ResBuf& value) {
    const std::string key = ardo::upperCase(name);
    if (key == "DWGTITLED") return ardo::RTERROR;
    if (variables_.holds(key)) return variables_.set(key, value) ? ardo::RTNORM : ardo::RTERROR;
    return document.drawing().setVar(key, value) == ardo::DbStatus::Ok ? ardo::RTNORM : ardo::RTERROR;
}

int Application::getVar(const std::string& name, ResBuf& value) const {
    return current_ ? getVar(*current_, name, value) : ardo::RTERROR;
}

int Application::setVar(const std::string& name, const ResBuf& value) {
    return current_ ? setVar(*current_, name, value) : ardo::RTERROR;
}

int Application::command(const ResBufChain& tokens) {
    return current_ ? current_->commands().feed(tokens) : ardo::RTERROR;
}

bool Application::arxLoad(const std::string& path) {
    if (auto loaded = modules_.load(path); !loaded) {
        printLine(loaded.error());
        return false;
    }
    return true;
}

bool Application::arxLoaded(const std::string& application) const { return modules_.find(application) != nullptr; }

bool Application::findFile(const std::string& name, std::string& result) const {
    if (!current_) return false;
    auto found = current_->lisp().findFile(name);
    if (!found) return false;
    result = found->string();
    return true;
}

}  // namespace cadhost
