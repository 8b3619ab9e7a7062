#pragma once
// A small installation in a temporary folder: the module's files beside a module path in
// "prog", the user root "prog/users", and TMPDIR pointed at "tmp" so the command stub file
// lands inside the test's folder.
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "boundary/ResBuf.h"
#include "boundary/AppMessages.h"
#include "module/ModuleEntry.h"
#include "module/ModuleState.h"
#include "messages/MessageFile.h"
#include "settings/ModuleFiles.h"
#include "support/EnvironmentOverride.h"
#include "support/ScriptedHost.h"
#include "support/TempFolder.h"

namespace ardo::test {

class ModuleFixture : public ::testing::Test {
protected:
    void SetUp() override {
        namespace fs = std::filesystem;
        fs::copy(ARDO_TEST_DATA "/module/install", folder.path() / "prog", fs::copy_options::recursive);
        fs::create_directory(folder.path() / "tmp");
        fs::create_directory(folder.path() / "prog/users");  // the user root is installed, not created
        programFolder = folder / "prog/";
        tempFolder = folder / "tmp/";
        tmpDir.emplace("TMPDIR", tempFolder);
        moduleFiles().modulePath = programFolder + "ardo.arx";
    }
    void TearDown() override {
        tmpDir.reset();
        moduleFiles().release();
        moduleFiles() = ModuleFiles{};
        MessageFile::instance().release();
        moduleState() = ModuleState{};
    }

    // Calls the table's row of that code as the host would.
    int callRow(int code, ResBufChain args = {}) {
        host.setArgs(std::move(args));
        host.result.clear();
        host.setFunCode(code);
        return moduleEntryPoint(kInvkSubrMsg, &host);
    }

    static ResBuf text(const std::string& s) { return ResBuf::str(s); }
    static bool isNil(const ResBufChain& r) { return r.size() == 1 && r[0].restype == RTNIL; }
    static bool isT(const ResBufChain& r) { return r.size() == 1 && r[0].restype == RTT; }
    static bool isVoid(const ResBufChain& r) { return r.size() == 1 && r[0].restype == RTVOID; }
    static std::string stringOf(const ResBufChain& r) {
        return r.size() == 1 && r[0].restype == RTSTR ? r[0].text : "<no string>";
    }

    // The LCINIT texts of the test installation's message file.
    static constexpr const char* kBadNum = "\nArgumentanzahl falsch";
    static constexpr const char* kBadTyp = "\nArgumenttyp falsch";

    ScriptedHost host;
    TempFolder folder;
    std::string programFolder;
    std::string tempFolder;

private:
    std::optional<test::EnvironmentOverride> tmpDir;
};

}  // namespace ardo::test
