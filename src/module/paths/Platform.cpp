#include "module/paths/Platform.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace ardo::platform {

namespace {

// Names are read into buffers of this many characters, as the Windows calls are given.
constexpr size_t kNameBuffer = 100;

const passwd* userEntry() { return getpwuid(geteuid()); }

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

bool writeAll(int fd, const char* data, size_t size) {
    while (size > 0) {
        ssize_t n = write(fd, data, size);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        data += n;
        size -= size_t(n);
    }
    return true;
}

bool copyContent(int in, int out) {
    std::vector<char> buffer(64 * 1024);
    for (;;) {
        ssize_t n = read(in, buffer.data(), buffer.size());
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return false;
        if (n == 0) return true;
        if (!writeAll(out, buffer.data(), size_t(n))) return false;
    }
}

}  // namespace

std::string loginName() {
    const passwd* entry = userEntry();
    std::string name = (entry && entry->pw_name) ? entry->pw_name : "";
    if (name.empty()) name = environment("LOGNAME");
    return name.size() < kNameBuffer ? name : std::string();
}

std::string homeFolder() {
    std::string home = environment("HOME");
    if (home.empty())
        if (const passwd* entry = userEntry(); entry && entry->pw_dir) home = entry->pw_dir;
    return home;
}

std::string fullUserName() {
    const passwd* entry = userEntry();
    if (!entry || !entry->pw_gecos) return {};
    std::string comment = entry->pw_gecos;
    return comment.substr(0, comment.find(','));
}

std::string computerName() {
    char buffer[kNameBuffer] = {};
    if (gethostname(buffer, sizeof buffer - 1) != 0) return {};
    return buffer;
}

std::string tempFolder() {
    std::string folder = environment("TMPDIR");
    if (folder.empty()) folder = "/tmp";
    if (folder.back() != '/') folder += '/';
    return folder;
}

bool folderExists(const std::string& path) {
    struct stat info {};
    return stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

bool createFolders(const std::string& path) {
    std::error_code ec;
    std::filesystem::create_directories(path, ec);
    return folderExists(path);
}

bool createFolder(const std::string& path) { return mkdir(path.c_str(), 0777) == 0; }

bool changeDirectory(const std::string& path) { return chdir(path.c_str()) == 0; }

std::string currentDirectory() {
    std::vector<char> buffer(4096);
    if (!getcwd(buffer.data(), buffer.size())) return {};
    return buffer.data();
}

bool fileExists(const std::string& path) {
    struct stat info {};
    return stat(path.c_str(), &info) == 0;
}

bool copyFileNoOverwrite(const std::string& from, const std::string& to) {
    int in = open(from.c_str(), O_RDONLY | O_CLOEXEC);
    if (in < 0) return false;
    struct stat info {};
    if (fstat(in, &info) != 0 || !S_ISREG(info.st_mode)) {
        close(in);
        return false;
    }
    // O_EXCL makes "never overwrite" one atomic step; the permissions follow the source.
    int out = open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, info.st_mode & 07777);
    if (out < 0) {
        close(in);
        return false;
    }
    bool ok = copyContent(in, out);
    ok = (fchmod(out, info.st_mode & 07777) == 0) && ok;
    ok = (close(out) == 0) && ok;
    close(in);
    if (!ok) unlink(to.c_str());
    return ok;
}

bool makeReadWrite(const std::string& path) {
    struct stat info {};
    if (stat(path.c_str(), &info) != 0) return false;
    return chmod(path.c_str(), (info.st_mode & 07777) | S_IRUSR | S_IWUSR) == 0;
}

}  // namespace ardo::platform
