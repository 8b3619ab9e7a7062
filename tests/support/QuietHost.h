#pragma once
// A host that takes every message and answers every box with its first button, for fuzz
// targets, which link the module without the test support library.
#include "module/HostBinding.h"

namespace ardo::test {

class QuietHost : public Host {
public:
    QuietHost() { bindHost(this); }
    ~QuietHost() override { bindHost(nullptr); }

    int defun(const std::string&, int) override { return RTNORM; }
    int undef(const std::string&, int) override { return RTNORM; }
    int regFunc(LispHandler, int) override { return RTNORM; }
    int getFunCode() const override { return -1; }
    int queueExpr(const std::string&) override { return RTNORM; }

    const ResBufChain& getArgs() const override { return args_; }
    int retNil() override { return RTNORM; }
    int retT() override { return RTNORM; }
    int retVoid() override { return RTNORM; }
    int retStr(const std::string&) override { return RTNORM; }
    int retInt(int) override { return RTNORM; }
    int retReal(double) override { return RTNORM; }
    int retList(const ResBufChain&) override { return RTNORM; }

    void print(const std::string&) override {}
    void alert(const std::string&) override {}
    MbAnswer messageBox(const std::string&, const std::string&, MbButtons, MbIcon) override { return MbAnswer::Ok; }

    int getVar(const std::string&, ResBuf&) const override { return RTERROR; }
    int setVar(const std::string&, const ResBuf&) override { return RTERROR; }
    int command(const ResBufChain&) override { return RTERROR; }

    HostDrawing* workingDrawing() override { return nullptr; }
    bool lockDocument() override { return false; }
    void unlockDocument() override {}
    const void* currentDocument() const override { return this; }

    bool colorFromAciName(const std::string&, HostColor&) const override { return false; }
    bool colorFromRgbName(const std::string&, HostColor&) const override { return false; }
    bool colorFromColorBookName(const std::string&, const std::string&, HostColor&) const override { return false; }
    std::uint32_t rgbOfIndexColor(int) const override { return 0; }

    bool arxLoad(const std::string&) override { return false; }
    bool arxLoaded(const std::string&) const override { return false; }
    bool findFile(const std::string&, std::string&) const override { return false; }
    bool greyMenuItem(const std::string&, const std::string&, bool) override { return false; }

    QWidget* mainWindow() override { return nullptr; }
    int redraw(std::int64_t, int) override { return RTNORM; }
    void updateDisplay() override {}
    int colorDialog(HostColor&, bool) override { return RTCAN; }
    int entSel(const std::string&, std::int64_t&, Point3&) override { return RTCAN; }
    // Nobody answers prompts, and there are no selection sets or entities to work on.
    int initGet(int, const std::string&) override { return RTNORM; }
    int getKword(const std::string&, std::string&) override { return RTCAN; }
    int getDist(const std::string&, double&) override { return RTCAN; }
    int ssLength(std::int64_t, long&) override { return RTERROR; }
    int ssName(std::int64_t, long, std::int64_t&) override { return RTERROR; }
    int ssAdd(std::int64_t, std::int64_t, std::int64_t&) override { return RTERROR; }
    int ssFree(std::int64_t) override { return RTERROR; }
    int entityType(std::int64_t, std::string&) override { return RTERROR; }
    int entityExtents(std::int64_t, Point3&, Point3&) override { return RTERROR; }
    int entDel(std::int64_t) override { return RTERROR; }
    int addPolyline(const std::vector<Point3>&, double, const std::string&, std::int64_t&) override { return RTERROR; }

private:
    ResBufChain args_;
};

}  // namespace ardo::test
