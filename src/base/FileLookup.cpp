#include "base/FileLookup.h"

#include <filesystem>
#include <vector>

#include "base/CaseFold.h"

namespace ardo {

namespace {

namespace fs = std::filesystem;

bool isWanted(const fs::path& p, bool folder) {
    std::error_code ec;
    return folder ? fs::is_directory(p, ec) : fs::is_regular_file(p, ec);
}

std::vector<std::string> partsOf(const std::string& path) {
    std::vector<std::string> parts;
    std::string part;
    for (char c : path) {
        if (c == '/' || c == '\\') {
            if (!part.empty()) parts.push_back(std::move(part));
            part.clear();
        } else {
            part += c;
        }
    }
    if (!part.empty()) parts.push_back(std::move(part));
    return parts;
}

// The entry of the folder whose name equals `part` ignoring case; an exact match first.
std::optional<std::string> entryIgnoringCase(const fs::path& folder, const std::string& part) {
    std::error_code ec;
    if (fs::exists(folder / part, ec)) return part;
    for (fs::directory_iterator it(folder.empty() ? fs::path(".") : folder, ec), end; !ec && it != end;
         it.increment(ec)) {
        const std::string name = it->path().filename().string();
        if (equalsNoCase(name, part)) return name;
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::string> findOnDisk(const std::string& path, bool folder) {
    if (path.empty()) return std::nullopt;
    if (isWanted(path, folder)) return path;
    const bool absolute = path[0] == '/' || path[0] == '\\';
    fs::path found = absolute ? fs::path("/") : fs::path();
    for (const std::string& part : partsOf(path)) {
        if (part == "." || part == "..") {
            found /= part;
            continue;
        }
        const auto entry = entryIgnoringCase(found, part);
        if (!entry) return std::nullopt;
        found /= *entry;
    }
    if (!isWanted(found, folder)) return std::nullopt;
    return found.string();
}

}  // namespace ardo
