#pragma once
// A host for tests of module logic: it records what the module printed and showed, answers
// message boxes from a script, and keeps system variables. Drawing work goes to a real
// drawing the test hands it; with useDrawing() commands run through the CAD host's command
// processor on that drawing and system variables are the drawing's.
#include <deque>
#include <utility>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "cadhost/colors/ColorServices.h"
#include "support/StandInHost.h"

namespace cadhost {
class CommandProcessor;
class Drawing;
}  // namespace cadhost

namespace ardo::test {

struct ShownBox {
    std::string text;
    std::string caption;
    MbButtons buttons;
    MbIcon icon;
};

class ScriptedHost : public StandInHost {
public:
    ScriptedHost();

    // What the module did.
    std::string printed;
    std::vector<std::string> alerts;
    std::vector<ShownBox> boxes;
    std::vector<ResBufChain> commands;
    std::vector<std::string> queued;
    std::map<int, std::string> defined;     // code -> name
    std::map<int, LispHandler> handlers;    // code -> handler

    // The LISP result of the last call.
    ResBufChain result;

    // Answers for message boxes, in order; Ok when none is left.
    std::deque<MbAnswer> answers;

    std::map<std::string, ResBuf> variables;
    HostDrawing* drawing = nullptr;
    bool lockFails = false;
    // The CAD host's own colour services; tests switch its language to German.
    cadhost::ColorServices colors;
    int defunFailsAt = -1;

    // Calls a handler as the host would: sets the arguments, runs it, keeps the result.
    int call(LispHandler handler, ResBufChain args);
    // Works on the real drawing: command() runs the tokens through the processor (and still
    // records them); getVar and setVar go to the drawing. The processor's output should go
    // to print(), as the host's command line is the module's.
    void useDrawing(cadhost::Drawing& realDrawing, cadhost::CommandProcessor& processor);
    void setArgs(ResBufChain args) { args_ = std::move(args); }
    // Clears what was printed and shown.
    void clearOutput();

    int defun(const std::string& name, int code) override;
    int undef(const std::string& name, int code) override;
    int regFunc(LispHandler handler, int code) override;
    int getFunCode() const override { return funCode_; }
    void setFunCode(int code) { funCode_ = code; }
    int queueExpr(const std::string& expression) override;

    int retNil() override;
    int retT() override;
    int retVoid() override;
    int retStr(const std::string& value) override;
    int retInt(int value) override;
    int retReal(double value) override;
    int retList(const ResBufChain& list) override;

    void print(const std::string& text) override { printed += text; }
    void alert(const std::string& text) override { alerts.push_back(text); }
    MbAnswer messageBox(const std::string& text, const std::string& caption, MbButtons buttons,
                        MbIcon icon) override;

    int getVar(const std::string& name, ResBuf& value) const override;
    int setVar(const std::string& name, const ResBuf& value) override;
    int command(const ResBufChain& tokens) override;

    HostDrawing* workingDrawing() override { return drawing; }
    bool lockDocument() override { return !lockFails; }

    bool colorFromAciName(const std::string& text, HostColor& color) const override;
    bool colorFromRgbName(const std::string& text, HostColor& color) const override;
    bool colorFromColorBookName(const std::string& book, const std::string& name,
                                HostColor& color) const override;
    std::uint32_t rgbOfIndexColor(int index) const override;

    bool arxLoad(const std::string& path) override;
    bool arxLoaded(const std::string& application) const override;
    bool findFile(const std::string& name, std::string& result) const override;
    bool greyMenuItem(const std::string& menuGroup, const std::string& item, bool grey) override;

    int redraw(std::int64_t entity, int mode) override;
    void updateDisplay() override { ++displayUpdates; }
    int colorDialog(HostColor& color, bool allowMetaColors) override;
    int entSel(const std::string& prompt, std::int64_t& entity, Point3& point) override;
    // Keyword and distance prompts take the answers below in order (cancelled when none is
    // left) and record their prompts.
    int getKword(const std::string& prompt, std::string& result) override;
    int getDist(const std::string& prompt, double& result) override;

    // Redraws asked for (entity, mode), display updates, and the answers of the colour
    // dialog and of entity picks, in order: cancelled when none is left.
    std::vector<std::pair<std::int64_t, int>> redraws;
    int displayUpdates = 0;
    std::deque<HostColor> chosenColors;
    // Each colour dialog opened: the colour it showed first and whether BYLAYER/BYBLOCK were offered.
    std::vector<std::pair<HostColor, bool>> colorDialogsOpened;
    std::deque<std::pair<std::int64_t, Point3>> picks;
    std::deque<std::string> keywords;
    std::deque<double> distances;
    std::vector<std::string> prompts;

    // Applications loaded with arxLoad (file names without folder and extension, upper
    // case), files findFile knows (name -> path), and greyed menu entries ("GROUP|item").
    std::set<std::string> loadedApplications;
    std::map<std::string, std::string> supportFiles;
    std::map<std::string, bool> menuItems;

private:
    cadhost::Drawing* realDrawing_ = nullptr;
    std::function<int(const ResBufChain&)> runCommand_;
    int funCode_ = -1;
};

}  // namespace ardo::test
