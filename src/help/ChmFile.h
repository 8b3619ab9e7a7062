#pragma once
// One compiled help file, open for reading its pages, images and index.
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "help/HelpLibrary.h"

namespace ardo {

class ChmFile {
public:
    // None when the help library is missing or the file is not a compiled help file.
    static std::unique_ptr<ChmFile> open(const std::string& path);
    ~ChmFile();
    ChmFile(const ChmFile&) = delete;
    ChmFile& operator=(const ChmFile&) = delete;

    // The bytes of a file inside, by its path ("/name.htm"; a missing leading slash is
    // added); none when there is no such file.
    std::optional<std::string> read(const std::string& inner) const;
    // The paths of the normal files inside (pages, images, index), in the file's order.
    std::vector<std::string> files() const;

private:
    ChmFile(const ChmLibrary& lib, chmFile* handle) : lib_(lib), handle_(handle) {}
    const ChmLibrary& lib_;
    chmFile* handle_;
};

// "file.chm::/topic.htm" split into the file and the topic inside it.
struct HelpAddress {
    std::string file;
    std::string topic;
};
HelpAddress splitHelpAddress(const std::string& address);

}  // namespace ardo
