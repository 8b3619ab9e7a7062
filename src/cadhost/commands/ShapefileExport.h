#pragma once
// Areas written as an ESRI polygon shapefile: the geometry in ".shp" with its index ".shx",
// one attribute row per area in ".dbf" (LAYER, HANDLE, AREA) and ".cpg" naming the
// attributes' code page (UTF-8). All files are written beside each other under temporary
// names first and then renamed, so an export that fails leaves the old files as they were.
#include <string>
#include <vector>

#include "base/Result.h"
#include "cadhost/geometry/AreaOutline.h"

namespace cadhost::commands {

struct ExportedArea {
    geometry::AreaOutline outline;
    std::string layer;
    std::string handle;   // hexadecimal, as the drawing writes it
};

// `shpPath` ends in ".shp"; the other files take its name with their extensions.
ardo::Status writeAreaShapefile(const std::string& shpPath, const std::vector<ExportedArea>& areas);

}  // namespace cadhost::commands
