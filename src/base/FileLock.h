#pragma once
// Two sessions that share a file (the central layer file of an office) take turns at
// writing it: an advisory lock on the file, and a stamp that tells whether the file changed
// on disk since this session read or wrote it.
#include <chrono>
#include <optional>
#include <string>
#include <sys/types.h>

namespace ardo {

// What tells one state of a file from the next: a replaced file gets a new inode, a file
// written in place a new size or modification time.
struct FileStamp {
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;
    long long modifiedNs = 0;

    bool operator==(const FileStamp&) const = default;

    // None when the file does not exist; links are followed.
    static std::optional<FileStamp> of(const std::string& path);
};

// An exclusive lock on the file a path names, held until destruction. Files here are
// replaced by rename, so a lock taken on a file that was replaced meanwhile is taken again
// on its successor. Nothing is locked for a missing file. Only sessions that lock too are
// kept out (an advisory lock).
class FileLock {
public:
    // Waits up to `patience` for a session holding the lock; none when it still holds it.
    static std::optional<FileLock> acquire(const std::string& path, std::chrono::milliseconds patience);

    FileLock(FileLock&& other) noexcept : fd_(other.fd_) { other.fd_ = -1; }
    FileLock& operator=(FileLock&&) = delete;
    FileLock(const FileLock&) = delete;
    ~FileLock();

private:
    explicit FileLock(int fd) : fd_(fd) {}
    int fd_ = -1;
};

}  // namespace ardo
