#include "settings/LayerDialogSettings.h"

namespace ardo {

namespace {

// A column width below 10 falls back to its default.
void loadWidth(const cSetup& setup, const char* key, int& width, int defaultWidth) {
    width = defaultWidth;
    setup.getInt(key, width);
    if (width < 10) width = defaultWidth;
}

}  // namespace

void LayerDialogSettings::load(const cSetup& setup) {
    *this = LayerDialogSettings{};
    setup.getString("ArdoLayerFile", "", ardoLayerFile);
    setup.getInt("LayerDlgPosX", posX);
    setup.getInt("LayerDlgPosY", posY);
    setup.getInt("LayerDlgSizeX", sizeX);
    setup.getInt("LayerDlgSizeY", sizeY);
    setup.getString("LayerDataCols", "234567", dataCols);
    setup.getInt("LayerDataPrio", dataPrio);
    if (dataPrio < 1 || dataPrio > 2) dataPrio = 1;
    currentPrio = dataPrio;
    setup.getInt("ViewModeEdit", viewModeEdit);
    setup.getInt("ViewModeArdo", viewModeArdo);
    setup.getInt("ViewModeObjs", viewModeObjs);
    if (viewModeObjs < 1 || viewModeObjs > 4) viewModeObjs = 4;
    setup.getBool("OptsMarkLayers", markLayers);
    loadWidth(setup, "LayerDlgWidthKey", widthKey, 140);
    loadWidth(setup, "LayerDlgWidthName", widthName, 120);
    loadWidth(setup, "LayerDlgWidthColor", widthColor, 140);
    loadWidth(setup, "LayerDlgWidthLtype", widthLtype, 100);
    loadWidth(setup, "LayerDlgWidthState", widthState, 72);
    loadWidth(setup, "LayerDlgWidthWeight", widthWeight, 90);
    loadWidth(setup, "LayerDlgWidthPlotStyle", widthPlotStyle, 70);
    loadWidth(setup, "LayerDlgWidthPlottable", widthPlottable, 50);
}

void LayerDialogSettings::save(cSetup& setup) const {
    setup.setString("ArdoLayerFile", ardoLayerFile, true);
    setup.setInt("LayerDlgPosX", posX, true);
    setup.setInt("LayerDlgPosY", posY, true);
    setup.setInt("LayerDlgSizeX", sizeX, true);
    setup.setInt("LayerDlgSizeY", sizeY, true);
    setup.setString("LayerDataCols", dataCols, true);
    setup.setInt("LayerDataPrio", dataPrio, true);
    setup.setInt("ViewModeEdit", viewModeEdit, true);
    setup.setInt("ViewModeArdo", viewModeArdo, true);
    setup.setInt("ViewModeObjs", viewModeObjs, true);
    setup.setBool("OptsMarkLayers", markLayers, true);
    setup.setInt("LayerDlgWidthKey", widthKey, true);
    setup.setInt("LayerDlgWidthName", widthName, true);
    setup.setInt("LayerDlgWidthColor", widthColor, true);
    setup.setInt("LayerDlgWidthLtype", widthLtype, true);
    setup.setInt("LayerDlgWidthState", widthState, true);
    setup.setInt("LayerDlgWidthWeight", widthWeight, true);
    setup.setInt("LayerDlgWidthPlotStyle", widthPlotStyle, true);
    setup.setInt("LayerDlgWidthPlottable", widthPlottable, true);
}

ModuleSettings& moduleSettings() {
    static ModuleSettings settings;
    return settings;
}

}  // namespace ardo
