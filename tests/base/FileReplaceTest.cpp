#include "base/FileReplace.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>

#include "support/TempFolder.h"

namespace ardo {
namespace {

using test::readBytes;
using test::TempFolder;

mode_t modeOf(const std::string& path) {
    struct stat st{};
    ::stat(path.c_str(), &st);
    return st.st_mode & 07777;
}

TEST(FileReplace, ReplacesTheFileAndKeepsItsPermissions) {
    TempFolder dir;
    const auto path = dir.write("a.ini", "old");
    ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
    ASSERT_TRUE(replaceFile(path, "new content").ok());
    EXPECT_EQ(readBytes(path), "new content");
    EXPECT_EQ(modeOf(path), mode_t(0640));
    EXPECT_EQ(dir.names(), std::vector<std::string>{"a.ini"});
}

TEST(FileReplace, CreatesAMissingFile) {
    TempFolder dir;
    ASSERT_TRUE(replaceFile(dir.file("new.ini"), std::string("a\0b", 3)).ok());
    EXPECT_EQ(readBytes(dir.file("new.ini")), std::string("a\0b", 3));
}

TEST(FileReplace, ReadOnlyTargetIsRefusedAndUntouched) {
    TempFolder dir;
    const auto path = dir.write("ro.ini", "keep");
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    EXPECT_FALSE(replaceFile(path, "lost").ok());
    EXPECT_EQ(readBytes(path), "keep");
    EXPECT_EQ(dir.names(), std::vector<std::string>{"ro.ini"});
}

TEST(FileReplace, MissingFolderIsRefused) {
    TempFolder dir;
    EXPECT_FALSE(replaceFile(dir.file("no/such/folder.ini"), "x").ok());
}

TEST(FileReplace, TargetThatIsAFolderIsRefusedWithoutLeftovers) {
    TempFolder dir;
    std::filesystem::create_directory(dir.file("sub"));
    dir.write("sub/inner", "x");
    EXPECT_FALSE(replaceFile(dir.file("sub"), "y").ok());
    EXPECT_EQ(dir.names(), std::vector<std::string>{"sub"});
}

// A write that fails half-way (here: the file size limit, as a full disk would) leaves the
// old file as it was and no temporary file behind.
TEST(FileReplace, FailedWriteLeavesTheOldFileIntactAndNoTempFile) {
    TempFolder dir;
    const auto path = dir.write("big.ini", "old content");
    rlimit saved{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &saved), 0);
    auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit small = saved;
    small.rlim_cur = 4096;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const bool written = replaceFile(path, std::string(100000, 'x')).ok();
    ::setrlimit(RLIMIT_FSIZE, &saved);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_FALSE(written);
    EXPECT_EQ(readBytes(path), "old content");
    EXPECT_EQ(dir.names(), std::vector<std::string>{"big.ini"});
}

// A central file shared through a link: the file behind the link gets the change and the
// link stays a link, also through a chain of relative links.
TEST(FileReplace, WritesThroughSymbolicLinksToTheirTarget) {
    TempFolder dir;
    std::filesystem::create_directory(dir.file("shared"));
    const auto real = dir.write("shared/central.ini", "old");
    ASSERT_EQ(::symlink("shared/central.ini", dir.file("middle.ini").c_str()), 0);
    ASSERT_EQ(::symlink("middle.ini", dir.file("mine.ini").c_str()), 0);
    ASSERT_TRUE(replaceFile(dir.file("mine.ini"), "new").ok());
    EXPECT_EQ(readBytes(real), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(dir.file("mine.ini")));
    EXPECT_TRUE(std::filesystem::is_symlink(dir.file("middle.ini")));
    EXPECT_EQ(dir.names().size(), 3u);
}

TEST(FileReplace, DanglingLinkCreatesTheFileItNames) {
    TempFolder dir;
    ASSERT_EQ(::symlink("target.dxf", dir.file("link.dxf").c_str()), 0);
    ASSERT_TRUE(replaceFile(dir.file("link.dxf"), "drawing").ok());
    EXPECT_TRUE(std::filesystem::is_symlink(dir.file("link.dxf")));
    EXPECT_EQ(readBytes(dir.file("target.dxf")), "drawing");
}

TEST(FileReplace, PipesAndDevicesAreRefusedAndStayWhatTheyAre) {
    TempFolder dir;
    const auto fifo = dir.file("pipe");
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    const auto refused = replaceFile(fifo, "x");
    ASSERT_FALSE(refused.ok());
    EXPECT_NE(refused.error().find("not a regular file"), std::string::npos) << refused.error();
    EXPECT_TRUE(std::filesystem::is_fifo(fifo));

    // A device node is only made by a privileged user, the one for whom this matters most.
    const auto device = dir.file("null");
    if (::mknod(device.c_str(), S_IFCHR | 0666, makedev(1, 3)) == 0) {
        EXPECT_FALSE(replaceFile(device, "x").ok());
        EXPECT_TRUE(std::filesystem::is_character_file(device));
    }
    // A link to a pipe is refused the same way.
    ASSERT_EQ(::symlink("pipe", dir.file("link").c_str()), 0);
    EXPECT_FALSE(replaceFile(dir.file("link"), "x").ok());
    EXPECT_TRUE(std::filesystem::is_fifo(fifo));
}

TEST(FileReplace, KeepsOwnerAndGroupWhereTheUserMaySetThem) {
    TempFolder dir;
    const auto path = dir.write("shared.ini", "old");
    // Only a privileged user can hand a file to someone else; others keep their own files.
    if (::chown(path.c_str(), 4321, 8765) != 0) GTEST_SKIP() << "needs a privileged user";
    ASSERT_EQ(::chmod(path.c_str(), 0664), 0);
    ASSERT_TRUE(replaceFile(path, "new").ok());
    struct stat st{};
    ASSERT_EQ(::stat(path.c_str(), &st), 0);
    EXPECT_EQ(st.st_uid, uid_t(4321));
    EXPECT_EQ(st.st_gid, gid_t(8765));
    EXPECT_EQ(st.st_mode & 07777, mode_t(0664));
}

// What a killed save left is removed at the next save of that file; a save still under way
// (it holds its temporary file locked) and other files' leftovers are left alone.
TEST(FileReplace, NextSaveRemovesTemporaryFilesOfAKilledSave) {
    TempFolder dir;
    const auto path = dir.write("office.dxf", "old");
    dir.write("office.dxf.tmp-abc123", std::string(5000, 'x'));
    dir.write("other.dxf.tmp-abc123", "not ours");
    dir.write("office.dxf.tmp-toolong", "not a temporary name");
    const auto live = dir.write("office.dxf.tmp-live00", "being written");
    const int fd = ::open(live.c_str(), O_RDONLY);
    ASSERT_GE(fd, 0);
    ASSERT_EQ(::flock(fd, LOCK_EX), 0);
    ASSERT_TRUE(replaceFile(path, "new").ok());
    ::close(fd);
    auto names = dir.names();
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{"office.dxf", "office.dxf.tmp-live00", "office.dxf.tmp-toolong",
                                               "other.dxf.tmp-abc123"}));
}

}  // namespace
}  // namespace ardo
