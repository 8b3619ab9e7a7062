#pragma once
// A host that takes every message and answers every box with its first button, for fuzz
// targets, which link the module without the test support library.
#include "StandInHost.h"  // fuzz targets include this header by its relative path

namespace ardo::test {

class QuietHost : public StandInHost {
public:
    int defun(const std::string&, int) override { return RTNORM; }
    int undef(const std::string&, int) override { return RTNORM; }
    int regFunc(LispHandler, int) override { return RTNORM; }
    int getFunCode() const override { return -1; }
    int queueExpr(const std::string&) override { return RTNORM; }

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

    bool colorFromAciName(const std::string&, HostColor&) const override { return false; }
    bool colorFromRgbName(const std::string&, HostColor&) const override { return false; }
    bool colorFromColorBookName(const std::string&, const std::string&, HostColor&) const override { return false; }
    std::uint32_t rgbOfIndexColor(int) const override { return 0; }

    bool arxLoad(const std::string&) override { return false; }
    bool arxLoaded(const std::string&) const override { return false; }
    bool findFile(const std::string&, std::string&) const override { return false; }
    bool greyMenuItem(const std::string&, const std::string&, bool) override { return false; }

    int redraw(std::int64_t, int) override { return RTNORM; }
    void updateDisplay() override {}
    int colorDialog(HostColor&, bool) override { return RTCAN; }
    int entSel(const std::string&, std::int64_t&, Point3&) override { return RTCAN; }
    // Nobody answers prompts.
    int getKword(const std::string&, std::string&) override { return RTCAN; }
    int getDist(const std::string&, double&) override { return RTCAN; }
};

}  // namespace ardo::test
