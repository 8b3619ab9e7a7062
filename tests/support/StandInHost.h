#pragma once
// What the stand-in hosts of tests and fuzz targets share: bound as the module's host while
// they live, no main window, one document, and no selection sets or entities to work on
// (tests that need those run the real host).
#include "module/HostBinding.h"

namespace ardo::test {

class StandInHost : public Host {
public:
    StandInHost() { bindHost(this); }
    ~StandInHost() override {
        if (hasHost() && &host() == this) bindHost(nullptr);
    }

    const ResBufChain& getArgs() const override { return args_; }
    QWidget* mainWindow() override { return nullptr; }
    void unlockDocument() override {}
    const void* currentDocument() const override { return this; }
    int initGet(int, const std::string&) override { return RTNORM; }

    int ssLength(std::int64_t, long&) override { return RTERROR; }
    int ssName(std::int64_t, long, std::int64_t&) override { return RTERROR; }
    int ssAdd(std::int64_t, std::int64_t, std::int64_t&) override { return RTERROR; }
    int ssFree(std::int64_t) override { return RTERROR; }
    int entityType(std::int64_t, std::string&) override { return RTERROR; }
    int entityExtents(std::int64_t, Point3&, Point3&) override { return RTERROR; }
    int entDel(std::int64_t) override { return RTERROR; }
    int addPolyline(const std::vector<Point3>&, double, const std::string&, std::int64_t&) override {
        return RTERROR;
    }

protected:
    ResBufChain args_;
};

}  // namespace ardo::test
