#pragma once
// The CAD host ardo-cad as an application: the loaded modules, the LISP functions they
// defined, the support path, the colour services, the application's system variables and
// the open documents, shown through one user interface. Modules reach it through the
// ardo::Host* their entry point gets; every call of that boundary works on the current
// document.
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/Result.h"
#include "boundary/Host.h"
#include "cadhost/app/Document.h"
#include "cadhost/app/FunctionRegistry.h"
#include "cadhost/app/HostVariables.h"
#include "cadhost/app/ModuleLoader.h"
#include "cadhost/app/UserInterface.h"
#include "cadhost/colors/ColorServices.h"

namespace cadhost {

class Application final : public ardo::Host {
public:
    explicit Application(UserInterface& ui);
    // Ends the loaded modules (kQuitMsg) before the documents go.
    ~Application() override;
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    UserInterface& ui() { return ui_; }
    ModuleLoader& modules() { return modules_; }
    HostVariables& variables() { return variables_; }
    const ColorServices& colors() const { return colors_; }
    // Folders searched for files after the current folder (findfile, load, arxload).
    const std::vector<std::filesystem::path>& supportPath() const { return supportPath_; }
    void setSupportPath(std::vector<std::filesystem::path> folders) { supportPath_ = std::move(folders); }

    // --- documents ------------------------------------------------------------------
    // Adds the drawing as a new document and makes it current; every loaded module gets
    // kLoadDwgMsg for it.
    Document& addDocument(Drawing drawing, bool titled);
    // Reads the file and adds it as above.
    ardo::Result<Document*> openDocument(const std::string& path);
    // Sends kUnloadDwgMsg for the document to every module and closes it. The last open
    // document cannot be closed. The one before it becomes current when it was.
    ardo::Status closeDocument(Document& document);
    void activate(Document& document);
    // Document changes asked for while LISP code runs wait until the input is done, as
    // LISP code keeps running in the drawing it started in.
    void afterInput(std::function<void()> change) { afterInput_.push_back(std::move(change)); }
    // The prompt is ready again: runs the expressions modules queued (each in its own
    // document) and the document changes asked for meanwhile.
    void idle();

    bool hasDocument() const { return current_ != nullptr; }
    Document& current() { return *current_; }
    const std::vector<std::unique_ptr<Document>>& documents() const { return documents_; }
    // By its number in the list (from 1), its file name or its full path, in any case.
    Document* findDocument(std::string_view nameOrNumber);

    // The current document's parts.
    Drawing& drawing() { return current_->drawing(); }
    lisp::Interpreter& lisp() { return current_->lisp(); }
    CommandProcessor& commands() { return current_->commands(); }

    // --- modules --------------------------------------------------------------------
    // Sends an application message to the module, which is the current module meanwhile
    // (its registrations are its own).
    void send(const LoadedModule& module, AppMsg message);
    // The same with the document current meanwhile (document load and unload).
    void send(const LoadedModule& module, AppMsg message, Document& document);
    // Drops the module's functions and handlers from every document and the registry.
    void forgetModule(const LoadedModule& module);
    // Set by (quit) and (exit) at the prompt.
    bool quitRequested() const { return quitRequested_; }
    void requestQuit() { quitRequested_ = true; }
    void printLine(std::string_view text);

    // System variables of a document: the application's own first, then its drawing's.
    int getVar(Document& document, const std::string& name, ardo::ResBuf& value) const;
    int setVar(Document& document, const std::string& name, const ardo::ResBuf& value);

    // --- ardo::Host --------------------------------------------------------------------
    int defun(const std::string& name, int code) override;
    int undef(const std::string& name, int code) override;
    int regFunc(ardo::LispHandler handler, int code) override;
    int getFunCode() const override { return frame_.code; }
    int queueExpr(const std::string& expression) override;

    const ardo::ResBufChain& getArgs() const override { return frame_.args ? *frame_.args : noArgs_; }
    int retNil() override { return setResult(ardo::ResBuf::marker(ardo::RTNIL)); }
    int retT() override { return setResult(ardo::ResBuf::marker(ardo::RTT)); }
    int retVoid() override { return setResult(ardo::ResBuf::marker(ardo::RTVOID)); }
    int retStr(const std::string& value) override { return setResult(ardo::ResBuf::str(value)); }
    int retInt(int value) override { return setResult(ardo::ResBuf::longInt(value)); }
    int retReal(double value) override { return setResult(ardo::ResBuf::realNum(value)); }
    int retList(const ardo::ResBufChain& list) override { return setResult(list); }

    void print(const std::string& text) override { ui_.print(text); }
    void alert(const std::string& text) override { ui_.alert(text); }
    ardo::MbAnswer messageBox(const std::string& text, const std::string& caption, ardo::MbButtons buttons,
                              ardo::MbIcon icon) override {
        return ui_.messageBox(text, caption, buttons, icon);
    }

    int getVar(const std::string& name, ardo::ResBuf& value) const override;
    int setVar(const std::string& name, const ardo::ResBuf& value) override;
    int command(const ardo::ResBufChain& tokens) override;

    ardo::HostDrawing* workingDrawing() override { return current_ ? &current_->drawing() : nullptr; }
    bool lockDocument() override { return current_ && current_->lock(); }
    void unlockDocument() override {
        if (current_) current_->unlock();
    }
    const void* currentDocument() const override { return current_; }

    bool colorFromAciName(const std::string& text, ardo::HostColor& color) const override {
        return colors_.fromAciName(text, color);
    }
    bool colorFromRgbName(const std::string& text, ardo::HostColor& color) const override {
        return colors_.fromRgbName(text, color);
    }
    bool colorFromColorBookName(const std::string& book, const std::string& name,
                                ardo::HostColor& color) const override {
        return colors_.fromColorBookName(book, name, color);
    }
    std::uint32_t rgbOfIndexColor(int index) const override { return colors_.rgbOfIndex(index); }

    // Loads through the module loader; a failure is printed as (arxload) prints it.
    bool arxLoad(const std::string& path) override;
    bool arxLoaded(const std::string& application) const override;
    bool findFile(const std::string& name, std::string& result) const override;
    // The console has no menu bar: menu groups load (MENULOAD) but have no entries to grey.
    bool greyMenuItem(const std::string&, const std::string&, bool) override { return false; }

    QWidget* mainWindow() override {
        auto* window = ui_.mainWindow();
        return window ? window->widget() : nullptr;
    }
    int redraw(std::int64_t entity, int mode) override;
    void updateDisplay() override { ui_.updateDisplay(); }
    int colorDialog(ardo::HostColor& color, bool allowMetaColors) override;
    int entSel(const std::string& prompt, std::int64_t& entity, ardo::Point3& point) override;

private:
    // The call in progress: whose function, its code, its arguments and its result.
    struct Frame {
        const LoadedModule* owner = nullptr;
        int code = -1;
        const ardo::ResBufChain* args = nullptr;   // the caller's, alive for the whole call
        ardo::ResBufChain result;
    };

    ardo::ResBufChain invoke(const LoadedModule* owner, int code, const std::string& name,
                             const ardo::ResBufChain& args);
    int setResult(ardo::ResBufChain result);
    int setResult(ardo::ResBuf value);

    UserInterface& ui_;
    ColorServices colors_;
    HostVariables variables_;
    FunctionRegistry functions_;
    std::vector<std::filesystem::path> supportPath_;
    std::vector<std::unique_ptr<Document>> documents_;
    Document* current_ = nullptr;
    std::vector<std::function<void()>> afterInput_;
    Frame frame_;
    const ardo::ResBufChain noArgs_;
    const LoadedModule* currentModule_ = nullptr;
    bool quitRequested_ = false;
    ModuleLoader modules_;
};

}  // namespace cadhost
