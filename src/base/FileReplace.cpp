#include "base/FileReplace.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

namespace ardo {

namespace {

bool writeAll(int fd, std::string_view bytes) {
    size_t done = 0;
    while (done < bytes.size()) {
        ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        done += size_t(n);
    }
    return true;
}

}  // namespace

bool replaceFile(const std::string& path, std::string_view bytes) {
    struct stat existing{};
    const bool exists = ::stat(path.c_str(), &existing) == 0;
    // A read-only file may not be replaced, as a plain open for writing would refuse it.
    // The mode bits count too: a privileged user passes access() for any file.
    if (exists && ((existing.st_mode & 0222) == 0 || ::access(path.c_str(), W_OK) != 0)) return false;

    std::string pattern = path + ".tmp-XXXXXX";
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    int fd = ::mkstemp(name.data());
    if (fd < 0) return false;
    const std::string temp(name.data());

    mode_t mode;
    if (exists) {
        mode = existing.st_mode & 07777;
    } else {
        mode_t mask = ::umask(0);
        ::umask(mask);
        mode = 0666 & ~mask;
    }
    bool ok = ::fchmod(fd, mode) == 0 && writeAll(fd, bytes) && ::fsync(fd) == 0;
    ok = (::close(fd) == 0) && ok;
    if (ok) ok = ::rename(temp.c_str(), path.c_str()) == 0;
    if (!ok) ::unlink(temp.c_str());
    return ok;
}

}  // namespace ardo
