#pragma once
// An installation in a temporary folder: a program folder with its system configuration,
// a user root beside it, and the test message file.
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "support/TempFolder.h"
#include "messages/MessageFile.h"
#include "settings/ModuleFiles.h"
#include "support/ScriptedHost.h"

namespace ardo::test {

class PathsFixture : public ::testing::Test {
protected:
    void SetUp() override {
        savedProgramFolder = moduleFiles().programFolder;
        std::filesystem::create_directory(folder.path() / "prog");
        programFolder = folder / "prog/";
        moduleFiles().programFolder = programFolder;
        userRoot = folder / "users";
        messages.attach(SettingsStore::load(ARDO_TEST_DATA "/messages/ardo.msg"));
    }
    void TearDown() override {
        moduleFiles().programFolder = savedProgramFolder;
        moduleFiles().configuration.reset();
        messages.release();
    }

    // The system configuration naming the user root; the root folder is created unless told.
    void configureUserRoot(const std::string& root, bool createRoot = true) {
        writeFile(programFolder + "Ardo_Sys.cfg", "[ARDO_SYS_INI]\r\nUSER_ROOT=" + root + "\r\n");
        if (createRoot) std::filesystem::create_directories(root);
    }

    static void writeFile(const std::string& path, const std::string& content) {
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        std::ofstream(path, std::ios::binary) << content;
    }

    static bool exists(const std::string& path) { return std::filesystem::exists(path); }

    ScriptedHost host;
    TempFolder folder;
    std::string programFolder;
    std::string userRoot;
    MessageFile& messages = MessageFile::instance();

private:
    std::string savedProgramFolder;
};

}  // namespace ardo::test
