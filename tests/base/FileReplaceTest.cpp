#include "base/FileReplace.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

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
    ASSERT_TRUE(replaceFile(path, "new content"));
    EXPECT_EQ(readBytes(path), "new content");
    EXPECT_EQ(modeOf(path), mode_t(0640));
    EXPECT_EQ(dir.names(), std::vector<std::string>{"a.ini"});
}

TEST(FileReplace, CreatesAMissingFile) {
    TempFolder dir;
    ASSERT_TRUE(replaceFile(dir.file("new.ini"), std::string("a\0b", 3)));
    EXPECT_EQ(readBytes(dir.file("new.ini")), std::string("a\0b", 3));
}

TEST(FileReplace, ReadOnlyTargetIsRefusedAndUntouched) {
    TempFolder dir;
    const auto path = dir.write("ro.ini", "keep");
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    EXPECT_FALSE(replaceFile(path, "lost"));
    EXPECT_EQ(readBytes(path), "keep");
    EXPECT_EQ(dir.names(), std::vector<std::string>{"ro.ini"});
}

TEST(FileReplace, MissingFolderIsRefused) {
    TempFolder dir;
    EXPECT_FALSE(replaceFile(dir.file("no/such/folder.ini"), "x"));
}

TEST(FileReplace, TargetThatIsAFolderIsRefusedWithoutLeftovers) {
    TempFolder dir;
    std::filesystem::create_directory(dir.file("sub"));
    dir.write("sub/inner", "x");
    EXPECT_FALSE(replaceFile(dir.file("sub"), "y"));
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
    const bool written = replaceFile(path, std::string(100000, 'x'));
    ::setrlimit(RLIMIT_FSIZE, &saved);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_FALSE(written);
    EXPECT_EQ(readBytes(path), "old content");
    EXPECT_EQ(dir.names(), std::vector<std::string>{"big.ini"});
}

}  // namespace
}  // namespace ardo
