#include "module/paths/PathJoin.h"

namespace ardo {

std::string joinPath(const std::string& folder, const std::string& name) {
    if (folder.empty()) return name;
    if (folder.back() == kPathSeparator) return folder + name;
    return folder + kPathSeparator + name;
}

std::string withTrailingSeparator(const std::string& folder) {
    if (!folder.empty() && folder.back() == kPathSeparator) return folder;
    return folder + kPathSeparator;
}

std::string withExtension(const std::string& path, const std::string& extension) {
    const size_t nameStart = path.rfind(kPathSeparator) + 1;  // 0 when there is no separator
    const size_t dot = path.rfind('.');
    const size_t stemEnd = (dot == std::string::npos || dot < nameStart) ? path.size() : dot;
    return path.substr(0, stemEnd) + extension;
}

}  // namespace ardo
