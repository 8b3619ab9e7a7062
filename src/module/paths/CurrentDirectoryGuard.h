#pragma once
// Forming a user path changes the process's current directory; this keeps the directory
// the caller had and goes back to it when the path work is done.
#include <string>

namespace ardo {

class CurrentDirectoryGuard {
public:
    CurrentDirectoryGuard();
    ~CurrentDirectoryGuard();
    CurrentDirectoryGuard(const CurrentDirectoryGuard&) = delete;
    CurrentDirectoryGuard& operator=(const CurrentDirectoryGuard&) = delete;

private:
    std::string saved_;
};

}  // namespace ardo
