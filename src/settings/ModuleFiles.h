#pragma once
// The parsed module files held in memory from start-up to unload, and the program folder
// they were found in.
#include <memory>
#include <string>

#include "settings/SettingsStore.h"

namespace ardo {

struct ModuleFiles {
    std::string programFolder;                      // ends with the path separator
    std::string modulePath;                         // the module file itself
    std::unique_ptr<SettingsStore> configuration;   // ".cfg"
    std::unique_ptr<SettingsStore> definition;      // ".bfl"
    std::unique_ptr<SettingsStore> centralLayerFile;
    std::string centralLayerFilePath;

    // Forgets the parsed files (the message file is released by its own owner).
    void release() {
        configuration.reset();
        definition.reset();
        centralLayerFile.reset();
    }
};

ModuleFiles& moduleFiles();

}  // namespace ardo
