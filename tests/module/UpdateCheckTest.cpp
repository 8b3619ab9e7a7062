#include "module/UpdateCheck.h"

#include <sys/stat.h>

#include <chrono>
#include <fstream>
#include <thread>

#include "module/ModuleFixture.h"
#include "module/paths/Platform.h"

namespace ardo {
namespace {

namespace fs = std::filesystem;

// An updater that notes its arguments in a file, so the test sees whether it ran.
class UpdateCheckTest : public test::ModuleFixture {
protected:
    std::string marker;

    void SetUp() override {
        ModuleFixture::SetUp();
        marker = folder / "updater-ran";
        // Written aside and renamed, so the marker never exists without its arguments.
        const std::string updater = folder.write(
            "prog/updater", "#!/bin/sh\necho \"$@\" > '" + marker + ".part' && mv '" + marker + ".part' '" + marker + "'\n");
        ::chmod(updater.c_str(), 0755);
    }
    void offer(const std::string& updater) {
        std::ofstream(programFolder + "ardo.cfg", std::ios::app) << "\r\n[UPDATE]\r\nUpdater=" << updater << "\r\n";
    }
    void agree(const std::string& value) {
        const std::string text = "[UPDATER]\r\nCheckOnStartup=" + value + "\r\n";
        folder.write("prog/DefaultIni/ArdoUpdate.ini", text);
    }
    std::string userSwitchFile() const { return programFolder + "users/" + platform::loginName() + "/ArdoUpdate.ini"; }
    // What the updater noted, waiting a while for it; empty when it did not run.
    std::string updaterArguments() const {
        for (int i = 0; i < 100 && !fs::exists(marker); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(20));
        return fs::exists(marker) ? test::readBytes(marker) : std::string();
    }
};

TEST_F(UpdateCheckTest, NothingStartsWithoutTheUsersConsentOrWithoutAnUpdater) {
    // Offered by the installation, but the user's file has the default 0.
    offer("updater");
    EXPECT_EQ(moduleEntryPoint(kInitAppMsg, &host), kRetOK);
    EXPECT_TRUE(fs::exists(userSwitchFile())) << "the user's switch is provided at every start";
    EXPECT_EQ(runUpdateCheck(), UpdateCheck::NoConsent);
    for (const char* notYes : {"", "yes", "2", " 0"}) {
        std::ofstream(userSwitchFile(), std::ios::trunc) << "[UPDATER]\r\nCheckOnStartup=" << notYes << "\r\n";
        EXPECT_EQ(runUpdateCheck(), UpdateCheck::NoConsent) << notYes;
    }
    std::ofstream(userSwitchFile(), std::ios::trunc) << "[OTHER]\r\nCheckOnStartup=1\r\n";
    EXPECT_EQ(runUpdateCheck(), UpdateCheck::NoConsent);
    EXPECT_EQ(updaterArguments(), "");
    EXPECT_TRUE(host.printed.empty()) << host.printed;
}

TEST_F(UpdateCheckTest, AnInstallationWithoutUpdaterNeverStartsOneEvenWhenTheUserAgreed) {
    agree("1");
    EXPECT_EQ(moduleEntryPoint(kInitAppMsg, &host), kRetOK);
    EXPECT_EQ(runUpdateCheck(), UpdateCheck::NotOffered);
    EXPECT_EQ(updaterArguments(), "");
}

TEST_F(UpdateCheckTest, OfferedAndAgreedStartsTheUpdaterWithTheArgumentOne) {
    offer("updater");
    agree("1");
    EXPECT_EQ(moduleEntryPoint(kInitAppMsg, &host), kRetOK);
    EXPECT_EQ(updaterArguments(), "1\n");
    EXPECT_TRUE(host.printed.empty()) << host.printed;
}

TEST_F(UpdateCheckTest, AMissingUpdaterIsReportedOnTheCommandLine) {
    offer("gone/updater");
    agree("1");
    EXPECT_EQ(moduleEntryPoint(kInitAppMsg, &host), kRetOK);
    EXPECT_NE(host.printed.find("No update check: the updater \"" + programFolder + "gone/updater\""),
              std::string::npos)
        << host.printed;
    EXPECT_EQ(updaterArguments(), "");
}

TEST_F(UpdateCheckTest, AFileThatCannotRunIsNoUpdater) {
    ::chmod((programFolder + "updater").c_str(), 0644);
    offer("updater");
    agree("1");
    EXPECT_EQ(moduleEntryPoint(kInitAppMsg, &host), kRetOK);
    EXPECT_EQ(runUpdateCheck(), UpdateCheck::UpdaterMissing);
    EXPECT_EQ(updaterArguments(), "");
}

}  // namespace
}  // namespace ardo
