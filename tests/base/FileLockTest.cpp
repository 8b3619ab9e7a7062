#include "base/FileLock.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include "base/FileReplace.h"
#include "support/TempFolder.h"

namespace ardo {
namespace {

using namespace std::chrono_literals;
using test::TempFolder;

// Another session's lock, as a separate open of the file.
struct OtherSession {
    explicit OtherSession(const std::string& path) : fd(::open(path.c_str(), O_RDONLY)) {
        EXPECT_EQ(::flock(fd, LOCK_EX), 0);
    }
    ~OtherSession() { ::close(fd); }
    int fd;
};

TEST(FileLock, WaitsForAnotherSessionAndThenGetsTheFile) {
    TempFolder dir;
    const auto path = dir.write("Ardo.ini", "[LAYER]\n");
    {
        OtherSession other(path);
        EXPECT_FALSE(FileLock::acquire(path, 60ms).has_value());
    }
    auto mine = FileLock::acquire(path, 60ms);
    ASSERT_TRUE(mine.has_value());
    // Held now: a third session waits in turn.
    const int third = ::open(path.c_str(), O_RDONLY);
    EXPECT_NE(::flock(third, LOCK_EX | LOCK_NB), 0);
    mine.reset();
    EXPECT_EQ(::flock(third, LOCK_EX | LOCK_NB), 0);
    ::close(third);
}

// A writer holds the lock on the file it then replaces; the next session must not settle for
// a lock on the replaced file nobody else will ever look at.
TEST(FileLock, ALockOnAReplacedFileMovesToItsSuccessor) {
    TempFolder dir;
    const auto path = dir.write("Ardo.ini", "old");
    OtherSession writer(path);
    ASSERT_TRUE(replaceFile(path, "new").ok());
    auto mine = FileLock::acquire(path, 60ms);
    ASSERT_TRUE(mine.has_value());
    const int successor = ::open(path.c_str(), O_RDONLY);
    EXPECT_NE(::flock(successor, LOCK_EX | LOCK_NB), 0);
    ::close(successor);
}

TEST(FileLock, StampSeesEveryKindOfChange) {
    TempFolder dir;
    const auto path = dir.write("Ardo.ini", "abc");
    const auto first = FileStamp::of(path);
    ASSERT_TRUE(first.has_value());
    EXPECT_EQ(FileStamp::of(path), first);
    ASSERT_TRUE(replaceFile(path, "abc").ok());  // same size, new file
    const auto replaced = FileStamp::of(path);
    EXPECT_NE(replaced, first);
    dir.write("Ardo.ini", "abcd");  // in place
    EXPECT_NE(FileStamp::of(path), replaced);
    EXPECT_FALSE(FileStamp::of(dir.file("missing.ini")).has_value());
}

}  // namespace
}  // namespace ardo
