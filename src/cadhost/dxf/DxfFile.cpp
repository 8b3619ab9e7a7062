#include "cadhost/dxf/DxfFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace cadhost {

namespace {

const char* kindOf(mode_t mode) {
    if (S_ISDIR(mode)) return "a folder";
    if (S_ISFIFO(mode)) return "a named pipe";
    if (S_ISCHR(mode) || S_ISBLK(mode)) return "a device";
    if (S_ISSOCK(mode)) return "a socket";
    return "not a regular file";
}

class FileDescriptor {
public:
    explicit FileDescriptor(int fd) : fd_(fd) {}
    ~FileDescriptor() { if (fd_ >= 0) ::close(fd_); }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    int get() const { return fd_; }

private:
    int fd_;
};

}  // namespace

std::variant<std::string, DxfError> readDrawingFile(const std::string& path) {
    const std::string name = "\"" + path + "\"";
    // Non-blocking, so that opening a named pipe without a writer does not wait forever.
    const FileDescriptor fd(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (fd.get() < 0)
        return DxfError{"Cannot open " + name + ": " + std::strerror(errno) + ". Check the name and your access rights.", 0};
    struct stat st {};
    if (::fstat(fd.get(), &st) != 0)
        return DxfError{"Cannot open " + name + ": " + std::strerror(errno) + ".", 0};
    if (!S_ISREG(st.st_mode))
        return DxfError{"Cannot open " + name + ": it is " + std::string(kindOf(st.st_mode)) +
                           ", not a drawing file. Give the name of a DXF file.", 0};
    std::string bytes;
    try {
        bytes.resize(static_cast<std::size_t>(st.st_size));
    } catch (const std::bad_alloc&) {
        return DxfError{"Cannot open " + name + ": there is not enough memory for a file of " +
                           std::to_string(st.st_size) + " bytes.", 0};
    }
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::read(fd.get(), bytes.data() + done, bytes.size() - done);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return DxfError{"Cannot read " + name + ": " + std::strerror(errno) + ".", 0};
        if (n == 0) break;   // the file shrank while being read
        done += static_cast<std::size_t>(n);
    }
    bytes.resize(done);
    return bytes;
}

}  // namespace cadhost
