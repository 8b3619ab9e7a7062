#include "module/paths/ModuleSubfolder.h"

#include "base/CaseFold.h"
#include "settings/ModuleFiles.h"

namespace ardo {

namespace {

std::string lastFolderName(std::string_view folder) {
    const size_t end = folder.find_last_not_of("/\\");
    if (end == std::string_view::npos) return {};
    const size_t separator = folder.find_last_of("/\\", end);
    const size_t start = separator == std::string_view::npos ? 0 : separator + 1;
    return std::string(folder.substr(start, end + 1 - start));
}

}  // namespace

std::string moduleSubfolder(const std::string& moduleName) {
    SettingsStore* configuration = moduleFiles().configuration.get();
    if (configuration) {
        auto entry = configuration->findKey(configuration->findSection("MODULE"), moduleName);
        if (entry != configuration->end()) {
            std::string name = lastFolderName(trimWhite(entry->value));
            if (!name.empty()) return name;
        }
    }
    return moduleName;
}

}  // namespace ardo
