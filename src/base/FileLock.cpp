#include "base/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <thread>

#include "base/FileReplace.h"

namespace ardo {

namespace {

constexpr std::chrono::milliseconds kRetryEvery{20};

FileStamp stampOf(const struct stat& st) {
    return {st.st_dev, st.st_ino, st.st_size, (long long)st.st_mtim.tv_sec * 1000000000LL + st.st_mtim.tv_nsec};
}

}  // namespace

std::optional<FileStamp> FileStamp::of(const std::string& path) {
    struct stat st{};
    if (::stat(path.c_str(), &st) != 0) return std::nullopt;
    return stampOf(st);
}

std::optional<FileLock> FileLock::acquire(const std::string& path, std::chrono::milliseconds patience) {
    const std::string target = saveTarget(path);
    const auto deadline = std::chrono::steady_clock::now() + patience;
    for (;;) {
        const int fd = ::open(target.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        if (fd < 0) return FileLock(-1);
        struct stat held{};
        if (::fstat(fd, &held) != 0 || !S_ISREG(held.st_mode)) {
            ::close(fd);
            return FileLock(-1);
        }
        if (::flock(fd, LOCK_EX | LOCK_NB) == 0) {
            // The lock counts only if the path still names the file locked.
            struct stat now{};
            if (::stat(target.c_str(), &now) == 0 && now.st_dev == held.st_dev && now.st_ino == held.st_ino)
                return FileLock(fd);
            ::close(fd);
            continue;
        }
        ::close(fd);
        if (std::chrono::steady_clock::now() >= deadline) return std::nullopt;
        std::this_thread::sleep_for(kRetryEvery);
    }
}

FileLock::~FileLock() {
    if (fd_ >= 0) ::close(fd_);
}

}  // namespace ardo
