#include "module/paths/UserPaths.h"

#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

#include "boundary/ResBuf.h"
#include "module/paths/PathsFixture.h"
#include "module/paths/Platform.h"

namespace ardo {
namespace {

using UserPathTest = test::PathsFixture;
using UserFileTest = test::PathsFixture;

const std::string kCantCreate = "Benutzerpfad kann nicht angelegt werden";

TEST_F(UserPathTest, WithoutUserRootThePathIsTheProgramFolderAndNothingIsCreated) {
    std::string path, root;
    EXPECT_EQ(readUserRoot(root), RTERROR);
    EXPECT_EQ(getUserPath(path, "", "anna", false), RTNORM);
    EXPECT_EQ(path, programFolder);
    EXPECT_EQ(getUserPath(path, "Kabel", "anna", false), RTNORM);
    EXPECT_EQ(path, programFolder + "Kabel/");
    EXPECT_FALSE(exists(programFolder + "Kabel"));

    // A key without a value is no user root either.
    configureUserRoot("", false);
    EXPECT_EQ(readUserRoot(root), RTERROR);
    EXPECT_EQ(getUserPath(path, "Kabel", "", false), RTNORM);
    EXPECT_EQ(path, programFolder + "Kabel/");
    EXPECT_TRUE(host.alerts.empty());
}

TEST_F(UserPathTest, TheUserFolderAndItsSubfolderAreCreatedUnderTheRoot) {
    configureUserRoot(userRoot);
    std::string root, path;
    EXPECT_EQ(readUserRoot(root), RTNORM);
    EXPECT_EQ(root, userRoot);
    EXPECT_EQ(getUserPath(path, "Kabel", "anna", false), RTNORM);
    EXPECT_EQ(path, userRoot + "/anna/Kabel/");
    EXPECT_TRUE(platform::folderExists(path));
    // A second call finds what the first created.
    EXPECT_EQ(getUserPath(path, "", "anna", false), RTNORM);
    EXPECT_EQ(path, userRoot + "/anna/");
    EXPECT_TRUE(host.alerts.empty());
}

TEST_F(UserPathTest, TheCurrentDirectoryIsKeptThroughSuccessAndFailure) {
    const std::string before = platform::currentDirectory();
    configureUserRoot(userRoot);
    std::string path;
    getUserPath(path, "Kabel", "anna", false);
    EXPECT_EQ(platform::currentDirectory(), before);
    configureUserRoot(folder / "missing", false);
    getUserPath(path, "Kabel", "anna", true);
    EXPECT_EQ(platform::currentDirectory(), before);
}

TEST_F(UserPathTest, DefaultMarkersSelectTheDefaultFolders) {
    configureUserRoot(userRoot + "/");
    std::string path;
    EXPECT_EQ(getUserPath(path, "Kabel", "<DEFAULT>", false), RTNORM);
    EXPECT_EQ(path, userRoot + "/DefaultIni/Kabel/");
    EXPECT_TRUE(platform::folderExists(path));
    EXPECT_EQ(getUserPath(path, "Kabel", "<SYS_DEFAULT>", false), RTNORM);
    EXPECT_EQ(path, programFolder + "DefaultIni/Kabel/");
    EXPECT_FALSE(exists(programFolder + "DefaultIni"));
}

TEST_F(UserPathTest, AnEmptyUserNameMeansTheLoginName) {
    configureUserRoot(userRoot);
    const std::string login = platform::loginName();
    ASSERT_FALSE(login.empty());
    std::string path, name;
    EXPECT_EQ(getUserName(name), RTNORM);
    EXPECT_EQ(name, login);
    EXPECT_EQ(getUserPath(path, "", "", false), RTNORM);
    EXPECT_EQ(path, userRoot + "/" + login + "/");
}

// In a child process under a user id that the password database does not know, with the
// given LOGNAME (or none): true when the user name is the expected one and the user's
// folder is formed and created under the root.
bool formsFolderAsUnknownUser(const char* logname, const std::string& expected) {
    pid_t child = fork();
    if (child == 0) {
        if (setgroups(0, nullptr) != 0 || setgid(54321) != 0 || setuid(54321) != 0) _exit(2);
        if (logname) setenv("LOGNAME", logname, 1);
        else unsetenv("LOGNAME");
        std::string name, path;
        getUserName(name);
        const bool formed = getUserPath(path, "", "", true) == RTNORM && platform::folderExists(path);
        _exit(name == expected && formed ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST_F(UserPathTest, AUserWhoseLoginNameCannotBeReadGetsTheDefaultFolder) {
    if (geteuid() != 0) GTEST_SKIP() << "needs root to run as a user unknown to the password database";
    configureUserRoot(userRoot);
    // The other user must reach the configuration and create folders under the root.
    std::filesystem::permissions(folder.path(), std::filesystem::perms::others_exec, std::filesystem::perm_options::add);
    std::filesystem::permissions(userRoot, std::filesystem::perms::all);
    EXPECT_TRUE(formsFolderAsUnknownUser(nullptr, "_Default"));
    EXPECT_TRUE(platform::folderExists(userRoot + "/_Default"));
    // Where the database has no entry, the session's LOGNAME still names the user.
    EXPECT_TRUE(formsFolderAsUnknownUser("berta", "berta"));
    EXPECT_TRUE(platform::folderExists(userRoot + "/berta"));
}

TEST_F(UserPathTest, AMissingUserRootIsAnErrorWithAnEmptyPath) {
    configureUserRoot(folder / "missing", false);
    std::string path = "old";
    EXPECT_EQ(getUserPath(path, "Kabel", "anna", false), RTERROR);
    EXPECT_EQ(path, "");
    EXPECT_EQ(host.alerts, std::vector<std::string>{kCantCreate});
    EXPECT_FALSE(exists(folder / "missing"));

    host.clearOutput();
    EXPECT_EQ(getUserPath(path, "Kabel", "anna", true), RTERROR);
    EXPECT_TRUE(host.alerts.empty());
}

TEST_F(UserPathTest, WithoutTheMessageTextTheBuiltInTextIsShown) {
    messages.release();
    configureUserRoot(folder / "missing", false);
    std::string path;
    EXPECT_EQ(getUserPath(path, "", "anna", false), RTERROR);
    EXPECT_EQ(host.alerts, std::vector<std::string>{"Cant create user ini path"});
}

TEST_F(UserPathTest, AFolderThatCannotBeCreatedIsAnError) {
    configureUserRoot(userRoot);
    writeFile(userRoot + "/anna", "a file where the folder should be");
    std::string path;
    EXPECT_EQ(getUserPath(path, "", "anna", false), RTERROR);
    EXPECT_EQ(host.alerts, std::vector<std::string>{kCantCreate});
}

TEST_F(UserFileTest, WithoutUserRootTheProgramFoldersFileIsUsedAsItIs) {
    writeFile(programFolder + "DefaultIni/ArdoSetup.ini", "[CONFIG]\n");
    std::string file;
    EXPECT_EQ(provideUserFile(file, "ArdoSetup.ini", "", "", false), RTNORM);
    EXPECT_EQ(file, programFolder + "ArdoSetup.ini");
    EXPECT_FALSE(exists(file));
    EXPECT_TRUE(host.alerts.empty());
}

TEST_F(UserFileTest, AnExistingUserFileIsNeverOverwritten) {
    configureUserRoot(userRoot);
    writeFile(userRoot + "/anna/ArdoSetup.ini", "mine");
    writeFile(userRoot + "/DefaultIni/ArdoSetup.ini", "default");
    std::string file;
    EXPECT_EQ(provideUserFile(file, "ArdoSetup.ini", "", "anna", false), RTNORM);
    EXPECT_EQ(file, userRoot + "/anna/ArdoSetup.ini");
    EXPECT_EQ(test::readBytes(file), "mine");
}

TEST_F(UserFileTest, TheUserRootsDefaultIsCopiedToTheUser) {
    configureUserRoot(userRoot);
    writeFile(userRoot + "/DefaultIni/Kabel/Kabel.ini", "[KABEL]\nA=1\n");
    std::string file;
    EXPECT_EQ(provideUserFile(file, "Kabel.ini", "Kabel", "anna", false), RTNORM);
    EXPECT_EQ(file, userRoot + "/anna/Kabel/Kabel.ini");
    EXPECT_EQ(test::readBytes(file), "[KABEL]\nA=1\n");
}

TEST_F(UserFileTest, TheProgramFoldersDefaultIsCopiedDownTheChain) {
    configureUserRoot(userRoot);
    writeFile(programFolder + "DefaultIni/ArdoHighlight.ini", "[HIGHLIGHT]\n");
    std::string file;
    EXPECT_EQ(provideUserFile(file, "ArdoHighlight.ini", "", "anna", false), RTNORM);
    EXPECT_EQ(test::readBytes(userRoot + "/DefaultIni/ArdoHighlight.ini"), "[HIGHLIGHT]\n");
    EXPECT_EQ(test::readBytes(userRoot + "/anna/ArdoHighlight.ini"), "[HIGHLIGHT]\n");
}

// An installed, read-only program folder with its users in their homes.
TEST_F(UserFileTest, ARootInTheHomeIsMadeOnFirstUseAndFilledFromTheProgramFolder) {
    const char* savedHome = std::getenv("HOME");
    const std::string saved = savedHome ? savedHome : "";
    const std::string home = folder / "home";
    ::setenv("HOME", home.c_str(), 1);
    configureUserRoot("~/.config/ardo", false);
    writeFile(programFolder + "DefaultIni/ArdoSetup.ini", "[CONFIG]\n");
    std::filesystem::permissions(programFolder, std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);

    std::string root, file;
    EXPECT_EQ(readUserRoot(root), RTNORM);
    EXPECT_EQ(root, home + "/.config/ardo");
    EXPECT_EQ(provideUserFile(file, "ArdoSetup.ini", "", "anna", false), RTNORM);
    EXPECT_EQ(file, home + "/.config/ardo/anna/ArdoSetup.ini");
    EXPECT_EQ(test::readBytes(file), "[CONFIG]\n");
    EXPECT_TRUE(host.alerts.empty());

    std::filesystem::permissions(programFolder, std::filesystem::perms::owner_all);
    if (savedHome) ::setenv("HOME", saved.c_str(), 1);
    else ::unsetenv("HOME");
}

TEST_F(UserFileTest, AReadOnlyDefaultGivesAWritableCopy) {
    configureUserRoot(userRoot);
    const std::string installed = programFolder + "DefaultIni/Ardo.ini";
    writeFile(installed, "[LAYER]\n");
    std::filesystem::permissions(installed, std::filesystem::perms::owner_read | std::filesystem::perms::group_read);
    std::string file;
    ASSERT_EQ(provideUserFile(file, "Ardo.ini", "", "anna", false), RTNORM);
    for (const std::string& copy : {userRoot + "/DefaultIni/Ardo.ini", file}) {
        struct stat info {};
        ASSERT_EQ(stat(copy.c_str(), &info), 0);
        EXPECT_EQ(info.st_mode & 0777, 0640u) << copy;
    }
}

TEST_F(UserFileTest, NoDefaultAnywhereIsAnError) {
    configureUserRoot(userRoot);
    std::string file;
    EXPECT_EQ(provideUserFile(file, "ArdoUpdate.ini", "", "anna", false), RTERROR);
    EXPECT_EQ(host.alerts, std::vector<std::string>{"Ini-Datei 'ArdoUpdate.ini' kann nicht kopiert werden"});
    EXPECT_FALSE(exists(userRoot + "/anna/ArdoUpdate.ini"));

    host.clearOutput();
    EXPECT_EQ(provideUserFile(file, "ArdoUpdate.ini", "", "anna", true), RTERROR);
    EXPECT_TRUE(host.alerts.empty());

    messages.release();
    EXPECT_EQ(provideUserFile(file, "ArdoUpdate.ini", "", "anna", false), RTERROR);
    EXPECT_EQ(host.alerts, std::vector<std::string>{"Cant copy ini file 'ArdoUpdate.ini'"});
}

TEST_F(UserFileTest, TheDefaultUserGetsTheDefaultFileItself) {
    configureUserRoot(userRoot);
    writeFile(programFolder + "DefaultIni/Ardo.ini", "[LAYER]\n");
    std::string file;
    EXPECT_EQ(provideUserFile(file, "Ardo.ini", "", "<DEFAULT>", false), RTNORM);
    EXPECT_EQ(file, userRoot + "/DefaultIni/Ardo.ini");
    EXPECT_EQ(test::readBytes(file), "[LAYER]\n");
    EXPECT_TRUE(host.alerts.empty());
}

}  // namespace
}  // namespace ardo
