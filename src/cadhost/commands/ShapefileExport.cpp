#include "cadhost/commands/ShapefileExport.h"

#include <shapefil.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <memory>

namespace cadhost::commands {

namespace fs = std::filesystem;

namespace {

constexpr std::array<const char*, 4> kExtensions{".shp", ".shx", ".dbf", ".cpg"};
// Text attributes hold at most 254 bytes in a DBF file.
constexpr int kLayerWidth = 254;
constexpr int kHandleWidth = 16;
constexpr int kAreaWidth = 19, kAreaDecimals = 6;

struct ShpCloser {
    void operator()(SHPInfo* h) const { SHPClose(h); }
};
struct DbfCloser {
    void operator()(DBFInfo* h) const { DBFClose(h); }
};

std::string withExtension(const fs::path& base, const char* extension) {
    fs::path p = base;
    p += extension;
    return p.string();
}

void removeAll(const fs::path& base) {
    std::error_code ignored;
    for (const char* extension : kExtensions) fs::remove(withExtension(base, extension), ignored);
}

ardo::Status cannotWrite(const std::string& path, int error) {
    return ardo::Error{"Cannot write the shapefile \"" + path + "\": " + std::strerror(error) +
                       ". Check that the folder exists and may be written to."};
}

ardo::Status writeFiles(const fs::path& base, const std::string& shown, const std::vector<ExportedArea>& areas) {
    errno = 0;
    std::unique_ptr<SHPInfo, ShpCloser> shp(SHPCreate(withExtension(base, ".shp").c_str(), SHPT_POLYGON));
    if (!shp) return cannotWrite(shown, errno ? errno : EIO);
    std::unique_ptr<DBFInfo, DbfCloser> dbf(DBFCreateEx(withExtension(base, ".dbf").c_str(), "UTF-8"));
    if (!dbf) return cannotWrite(shown, errno ? errno : EIO);
    const int layer = DBFAddField(dbf.get(), "LAYER", FTString, kLayerWidth, 0);
    const int handle = DBFAddField(dbf.get(), "HANDLE", FTString, kHandleWidth, 0);
    const int area = DBFAddField(dbf.get(), "AREA", FTDouble, kAreaWidth, kAreaDecimals);
    if (layer < 0 || handle < 0 || area < 0) return cannotWrite(shown, EIO);
    for (const ExportedArea& a : areas) {
        std::vector<double> x, y;
        x.reserve(a.outline.ring.size());
        y.reserve(a.outline.ring.size());
        for (const auto& p : a.outline.ring) {
            x.push_back(p[0]);
            y.push_back(p[1]);
        }
        SHPObject* object = SHPCreateSimpleObject(SHPT_POLYGON, static_cast<int>(x.size()), x.data(), y.data(), nullptr);
        const int row = object ? SHPWriteObject(shp.get(), -1, object) : -1;
        SHPDestroyObject(object);
        if (row < 0) return cannotWrite(shown, errno ? errno : EIO);
        const std::string layerName = a.layer.substr(0, kLayerWidth);
        if (!DBFWriteStringAttribute(dbf.get(), row, layer, layerName.c_str()) ||
            !DBFWriteStringAttribute(dbf.get(), row, handle, a.handle.c_str()) ||
            !DBFWriteDoubleAttribute(dbf.get(), row, area, a.outline.area))
            return cannotWrite(shown, errno ? errno : EIO);
    }
    return {};
}

}  // namespace

ardo::Status writeAreaShapefile(const std::string& shpPath, const std::vector<ExportedArea>& areas) {
    const fs::path target = fs::path(shpPath).replace_extension();
    fs::path temporary = target;
    temporary += ".export-" + std::to_string(::getpid());
    removeAll(temporary);
    if (ardo::Status written = writeFiles(temporary, shpPath, areas); !written) {
        removeAll(temporary);
        return written;
    }
    // The handles are closed: now the files take their names.
    for (const char* extension : kExtensions) {
        std::error_code ec;
        // The code page file is written by shapelib builds that know it.
        if (std::strcmp(extension, ".cpg") == 0 && !fs::exists(withExtension(temporary, extension), ec)) continue;
        fs::rename(withExtension(temporary, extension), withExtension(target, extension), ec);
        if (ec) {
            removeAll(temporary);
            return cannotWrite(shpPath, ec.value());
        }
    }
    return {};
}

}  // namespace cadhost::commands
