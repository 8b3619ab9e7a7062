#include "base/FileReplace.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <vector>

namespace ardo {

namespace {

constexpr std::string_view kTempInfix = ".tmp-";
constexpr size_t kTempSuffixLength = 6;  // the XXXXXX of mkstemp

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

std::string folderOf(const std::string& path) {
    const auto slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string nameOf(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

Error failure(const std::string& path, const std::string& why) {
    return Error{"Cannot save \"" + path + "\": " + why};
}

Error failureFromErrno(const std::string& path, const char* what) {
    return failure(path, std::string(what) + " (" + std::strerror(errno) +
                             "). The file was left as it was; check the folder's access rights and free space.");
}

bool isTempName(const std::string& entry, const std::string& target) {
    return entry.size() == target.size() + kTempInfix.size() + kTempSuffixLength &&
           entry.compare(0, target.size(), target) == 0 &&
           entry.compare(target.size(), kTempInfix.size(), kTempInfix) == 0;
}

// A save holds a lock on its temporary file until the rename; a file nobody holds is
// what a killed save left behind.
void removeStaleTempFiles(const std::string& target) {
    const std::string folder = folderOf(target);
    const std::string name = nameOf(target);
    DIR* dir = ::opendir(folder.c_str());
    if (!dir) return;
    while (const dirent* entry = ::readdir(dir)) {
        if (!isTempName(entry->d_name, name)) continue;
        const std::string stale = folder + "/" + entry->d_name;
        const int fd = ::open(stale.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
        if (fd < 0) continue;
        struct stat st{};
        if (::fstat(fd, &st) == 0 && S_ISREG(st.st_mode) && ::flock(fd, LOCK_EX | LOCK_NB) == 0)
            ::unlink(stale.c_str());
        ::close(fd);
    }
    ::closedir(dir);
}

// Gives the new file the old one's owner and group as far as this user may: the owner only
// for a privileged user, the group for any group the user belongs to.
void keepOwnerAndGroup(int fd, const struct stat& existing) {
    if (::fchown(fd, existing.st_uid, existing.st_gid) == 0) return;
    (void)::fchown(fd, uid_t(-1), existing.st_gid);
}

}  // namespace

std::string saveTarget(const std::string& path) {
    std::string current = path;
    // The same bound as the kernel's for a chain of links; a loop ends here and then fails
    // to open like any bad path.
    for (int hops = 0; hops < 40; ++hops) {
        struct stat st{};
        if (::lstat(current.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) return current;
        std::vector<char> buffer(size_t(st.st_size > 0 ? st.st_size : 255) + 1);
        const ssize_t n = ::readlink(current.c_str(), buffer.data(), buffer.size());
        if (n < 0 || size_t(n) >= buffer.size()) return current;
        std::string link(buffer.data(), size_t(n));
        current = link.front() == '/' ? link : folderOf(current) + "/" + link;
    }
    return current;
}

Status replaceFile(const std::string& path, std::string_view bytes) {
    const std::string target = saveTarget(path);
    struct stat existing{};
    const bool exists = ::stat(target.c_str(), &existing) == 0;
    if (exists && S_ISDIR(existing.st_mode)) return failure(path, "it is a folder, not a file.");
    if (exists && !S_ISREG(existing.st_mode))
        return failure(path, "it is a device, pipe or socket, not a regular file; save to a file instead.");
    // A read-only file may not be replaced, as a plain open for writing would refuse it.
    // The mode bits count too: a privileged user passes access() for any file.
    if (exists && ((existing.st_mode & 0222) == 0 || ::access(target.c_str(), W_OK) != 0))
        return failure(path, "the file is read-only. It was left as it was.");

    removeStaleTempFiles(target);

    std::string pattern = target + std::string(kTempInfix) + std::string(kTempSuffixLength, 'X');
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    const int fd = ::mkstemp(name.data());
    if (fd < 0) return failureFromErrno(path, "no temporary file can be made beside it");
    const std::string temp(name.data());
    (void)::flock(fd, LOCK_EX);

    mode_t mode;
    if (exists) {
        mode = existing.st_mode & 07777;
        keepOwnerAndGroup(fd, existing);
    } else {
        mode_t mask = ::umask(0);
        ::umask(mask);
        mode = 0666 & ~mask;
    }
    const char* step = "the new content cannot be written";
    bool ok = ::fchmod(fd, mode) == 0 && writeAll(fd, bytes) && ::fsync(fd) == 0;
    if (ok) {
        step = "the new file cannot take the old one's place";
        ok = ::rename(temp.c_str(), target.c_str()) == 0;
    }
    const int savedErrno = errno;
    if (!ok) ::unlink(temp.c_str());
    ::close(fd);
    if (!ok) {
        errno = savedErrno;
        return failureFromErrno(path, step);
    }
    return {};
}

}  // namespace ardo
