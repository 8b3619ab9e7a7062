#pragma once
// The layer dialog's persistent settings, section "CONFIG" of the user's "ArdoSetup.ini":
// one record per process, loaded at module initialisation and saved when the dialog closes.
#include <string>

#include "settings/cSetup.h"

namespace ardo {

struct LayerDialogSettings {
    std::string ardoLayerFile;       // the central layer control file last used
    int posX = 150, posY = 100;
    int sizeX = 500, sizeY = 300;
    std::string dataCols = "234567";
    int dataPrio = 1;                // 1 drawing data first, 2 central-file data first
    int viewModeEdit = 3;
    int viewModeArdo = 3;
    int viewModeObjs = 4;
    bool markLayers = false;
    int widthKey = 140, widthName = 120, widthColor = 140, widthLtype = 100;
    int widthState = 72, widthWeight = 90, widthPlotStyle = 70, widthPlottable = 50;

    // Kept beside the stored values.
    int currentPrio = 1;
    int currentMode = 0;
    bool objectFilesChanged = false;

    // Reads every key through the bound setup object, applying the load rules.
    void load(const cSetup& setup);
    // Writes every key of the record.
    void save(cSetup& setup) const;
};

// The module-wide settings objects and record.
struct ModuleSettings {
    cSetup setup;        // "ArdoSetup.ini", section "CONFIG"
    cSetup highlight;    // "ArdoHighlight.ini", section "HIGHLIGHT"
    LayerDialogSettings layerDialog;
};

ModuleSettings& moduleSettings();

}  // namespace ardo
