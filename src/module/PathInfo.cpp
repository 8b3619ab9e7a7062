#include "module/PathInfo.h"

#include "module/paths/PathJoin.h"
#include "settings/ModuleFiles.h"

namespace ardo {

std::string configurationValue(const std::string& section, const std::string& key) {
    const SettingsStore* cfg = moduleFiles().configuration.get();
    if (!cfg) return {};
    auto record = cfg->findKey(cfg->findSection(section), key);
    return record == cfg->end() ? std::string() : record->value;
}

std::string pathInfo(const std::string& name) {
    std::string folder = moduleFiles().programFolder;
    while (!folder.empty() && (folder.back() == '/' || folder.back() == '\\')) folder.pop_back();
    return folder + kPathSeparator + configurationValue("PFADINFO", name);
}

std::string moduleFolder(const std::string& module) {
    return moduleFiles().programFolder + configurationValue("MODULE", module);
}

}  // namespace ardo
