#include "support/ScriptedHost.h"

#include <filesystem>
#include <tuple>

#include "cadhost/drawing/Drawing.h"
#include "base/CaseFold.h"

namespace ardo::test {

ScriptedHost::ScriptedHost() {
    variables["CLAYER"] = ResBuf::str("0");
    variables["TILEMODE"] = ResBuf::shortInt(1);
    variables["CMDECHO"] = ResBuf::shortInt(1);
    variables["PROGRAM"] = ResBuf::str("acad");
    variables["LWUNITS"] = ResBuf::shortInt(1);
    variables["CDATE"] = ResBuf::realNum(20261122.101530123);
}

int ScriptedHost::call(LispHandler handler, ResBufChain args) {
    args_ = std::move(args);
    result.clear();
    return handler();
}

void ScriptedHost::clearOutput() {
    printed.clear();
    alerts.clear();
    boxes.clear();
    commands.clear();
}

int ScriptedHost::defun(const std::string& name, int code) {
    if (code == defunFailsAt) return RTERROR;
    defined[code] = name;
    return RTNORM;
}

int ScriptedHost::undef(const std::string&, int code) {
    defined.erase(code);
    return RTNORM;
}

int ScriptedHost::regFunc(LispHandler handler, int code) {
    if (handler) handlers[code] = handler;
    else handlers.erase(code);
    return RTNORM;
}

int ScriptedHost::queueExpr(const std::string& expression) {
    queued.push_back(expression);
    return RTNORM;
}

int ScriptedHost::retNil() { result = {ResBuf::marker(RTNIL)}; return RTNORM; }
int ScriptedHost::retT() { result = {ResBuf::marker(RTT)}; return RTNORM; }
int ScriptedHost::retVoid() { result = {ResBuf::marker(RTVOID)}; return RTNORM; }
int ScriptedHost::retStr(const std::string& value) { result = {ResBuf::str(value)}; return RTNORM; }
int ScriptedHost::retInt(int value) { result = {ResBuf::longInt(value)}; return RTNORM; }
int ScriptedHost::retReal(double value) { result = {ResBuf::realNum(value)}; return RTNORM; }
int ScriptedHost::retList(const ResBufChain& list) { result = list; return RTNORM; }

MbAnswer ScriptedHost::messageBox(const std::string& text, const std::string& caption, MbButtons buttons,
                                  MbIcon icon) {
    boxes.push_back({text, caption, buttons, icon});
    if (answers.empty()) return MbAnswer::Ok;
    MbAnswer a = answers.front();
    answers.pop_front();
    return a;
}

int ScriptedHost::getVar(const std::string& name, ResBuf& value) const {
    if (realDrawing_) {
        const auto found = realDrawing_->getVar(name);
        if (!found) return RTERROR;
        value = *found;
        return RTNORM;
    }
    auto it = variables.find(upperCase(name));
    if (it == variables.end()) return RTERROR;
    value = it->second;
    return RTNORM;
}

int ScriptedHost::setVar(const std::string& name, const ResBuf& value) {
    if (realDrawing_) return realDrawing_->setVar(name, value) == DbStatus::Ok ? RTNORM : RTERROR;
    variables[upperCase(name)] = value;
    return RTNORM;
}

int ScriptedHost::command(const ResBufChain& tokens) {
    commands.push_back(tokens);
    return runCommand_ ? runCommand_(tokens) : RTNORM;
}

bool ScriptedHost::colorFromAciName(const std::string& text, HostColor& color) const {
    return colors.fromAciName(text, color);
}

bool ScriptedHost::colorFromRgbName(const std::string& text, HostColor& color) const {
    return colors.fromRgbName(text, color);
}

bool ScriptedHost::colorFromColorBookName(const std::string& book, const std::string& name,
                                          HostColor& color) const {
    return colors.fromColorBookName(book, name, color);
}

std::uint32_t ScriptedHost::rgbOfIndexColor(int index) const { return colors.rgbOfIndex(index); }

bool ScriptedHost::arxLoad(const std::string& path) {
    std::string name = path.substr(path.find_last_of('/') + 1);
    name = name.substr(0, name.rfind('.'));
    if (!std::filesystem::exists(path)) return false;
    loadedApplications.insert(upperCase(name));
    return true;
}

bool ScriptedHost::arxLoaded(const std::string& application) const {
    return loadedApplications.count(upperCase(application)) > 0;
}

bool ScriptedHost::findFile(const std::string& name, std::string& result) const {
    auto it = supportFiles.find(name);
    if (it == supportFiles.end()) return false;
    result = it->second;
    return true;
}

bool ScriptedHost::greyMenuItem(const std::string& menuGroup, const std::string& item, bool grey) {
    auto it = menuItems.find(upperCase(menuGroup) + "|" + item);
    if (it == menuItems.end()) return false;
    it->second = grey;
    return true;
}

int ScriptedHost::redraw(std::int64_t entity, int mode) {
    if (mode < 1 || mode > 4) return RTERROR;
    redraws.emplace_back(entity, mode);
    return RTNORM;
}

int ScriptedHost::colorDialog(HostColor& color, bool allowMetaColors) {
    colorDialogsOpened.emplace_back(color, allowMetaColors);
    if (chosenColors.empty()) return RTCAN;
    color = chosenColors.front();
    chosenColors.pop_front();
    return RTNORM;
}

int ScriptedHost::getKword(const std::string& prompt, std::string& result) {
    prompts.push_back(prompt);
    if (keywords.empty()) return RTCAN;
    result = keywords.front();
    keywords.pop_front();
    return RTNORM;
}

int ScriptedHost::getDist(const std::string& prompt, double& result) {
    prompts.push_back(prompt);
    if (distances.empty()) return RTCAN;
    result = distances.front();
    distances.pop_front();
    return RTNORM;
}

int ScriptedHost::entSel(const std::string& prompt, std::int64_t& entity, Point3& point) {
    printed += prompt;
    if (picks.empty()) return RTCAN;
    std::tie(entity, point) = picks.front();
    picks.pop_front();
    return RTNORM;
}

}  // namespace ardo::test
