#pragma once
// The CAD host ardo-cad: one drawing, the LISP interpreter, the command processor and the
// colour services behind the module's host boundary. Modules are loaded by its
// ModuleLoader and reach the host through the ardo::Host* their entry point gets.
#include <functional>
#include <string>
#include <string_view>

#include "cadhost/app/CadLispHost.h"
#include "cadhost/app/FunctionRegistry.h"
#include "cadhost/app/HostVariables.h"
#include "cadhost/app/MessageBoxes.h"
#include "cadhost/app/ModuleLoader.h"
#include "cadhost/colors/ColorServices.h"
#include "cadhost/commands/CommandProcessor.h"
#include "cadhost/drawing/Drawing.h"
#include "cadhost/lisp/Interpreter.h"
#include "boundary/Host.h"

namespace cadhost {

class CadHost final : public ardo::Host {
public:
    using Print = std::function<void(std::string_view)>;

    // `titled`: the drawing was read from a file (DWGTITLED).
    CadHost(Drawing drawing, bool titled, Print print);
    // Ends the loaded modules (kQuitMsg) before the host goes.
    ~CadHost() override;
    CadHost(const CadHost&) = delete;
    CadHost& operator=(const CadHost&) = delete;

    Drawing& drawing() { return drawing_; }
    lisp::Interpreter& lisp() { return lisp_; }
    CommandProcessor& commands() { return commands_; }
    MessageBoxes& boxes() { return boxes_; }
    ModuleLoader& modules() { return modules_; }
    HostVariables& variables() { return variables_; }
    const ColorServices& colors() const { return colors_; }

    // Sends an application message to the module, which is the current module meanwhile
    // (its registrations are its own).
    void send(const LoadedModule& module, AppMsg message);
    // Drops the module's functions and handlers from the interpreter and the registry.
    void forgetModule(const LoadedModule& module);
    // Runs the expressions modules queued; the prompt calls it when it is next ready.
    std::size_t runQueuedExpressions() { return lisp_.runQueuedExpressions(); }
    // Set by (quit) and (exit) at the prompt.
    bool quitRequested() const { return quitRequested_; }
    void printLine(std::string_view text);

    // --- ardo::Host --------------------------------------------------------------------
    int defun(const std::string& name, int code) override;
    int undef(const std::string& name, int code) override;
    int regFunc(ardo::LispHandler handler, int code) override;
    int getFunCode() const override { return frame_.code; }
    int queueExpr(const std::string& expression) override;

    const ardo::ResBufChain& getArgs() const override { return frame_.args; }
    int retNil() override { return setResult({ardo::ResBuf::marker(ardo::RTNIL)}); }
    int retT() override { return setResult({ardo::ResBuf::marker(ardo::RTT)}); }
    int retVoid() override { return setResult({ardo::ResBuf::marker(ardo::RTVOID)}); }
    int retStr(const std::string& value) override { return setResult({ardo::ResBuf::str(value)}); }
    int retInt(int value) override { return setResult({ardo::ResBuf::longInt(value)}); }
    int retReal(double value) override { return setResult({ardo::ResBuf::realNum(value)}); }
    int retList(const ardo::ResBufChain& list) override { return setResult(list); }

    void print(const std::string& text) override { output_(text); }
    void alert(const std::string& text) override { boxes_.alert(text); }
    ardo::MbAnswer messageBox(const std::string& text, const std::string& caption, ardo::MbButtons buttons,
                              ardo::MbIcon icon) override {
        return boxes_.show(text, caption, buttons, icon);
    }

    int getVar(const std::string& name, ardo::ResBuf& value) const override;
    int setVar(const std::string& name, const ardo::ResBuf& value) override;
    int command(const ardo::ResBufChain& tokens) override { return commands_.feed(tokens); }

    ardo::HostDrawing* workingDrawing() override { return &drawing_; }
    bool lockDocument() override;
    void unlockDocument() override;
    const void* currentDocument() const override { return &drawing_; }

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

private:
    // The call in progress: whose function, its code, its arguments and its result.
    struct Frame {
        const LoadedModule* owner = nullptr;
        int code = -1;
        ardo::ResBufChain args;
        ardo::ResBufChain result;
    };

    ardo::ResBufChain invoke(const LoadedModule* owner, int code, const std::string& name,
                             const ardo::ResBufChain& args);
    int setResult(ardo::ResBufChain result);
    void defineQuit();

    Print output_;
    Drawing drawing_;
    MessageBoxes boxes_;
    HostVariables variables_;
    CadLispHost lispHost_;
    lisp::Interpreter lisp_;
    CommandProcessor commands_;
    ColorServices colors_;
    FunctionRegistry functions_;
    Frame frame_;
    const LoadedModule* currentModule_ = nullptr;
    int lockCount_ = 0;
    bool quitRequested_ = false;
    ModuleLoader modules_;
};

}  // namespace cadhost
