// MAPEXPORT (also -MAPEXPORT): writes closed areas of the drawing as an ESRI polygon
// shapefile, as a GIS map export does on the command line:
//   Export format [SHP] <SHP>:      Enter or SHP
//   Export file name:               the ".shp" file (the extension may be left out)
//   Select objects:                 closed LWPOLYLINEs, closed 2D POLYLINEs and CIRCLEs;
//                                   other objects are counted and left out
// Each area becomes one polygon with its layer, handle and area as attributes.
#include <filesystem>
#include <sstream>

#include "base/CaseFold.h"
#include "cadhost/commands/Command.h"
#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/ObjectSelection.h"
#include "cadhost/commands/ShapefileExport.h"
#include "cadhost/drawing/Drawing.h"
#include "cadhost/geometry/AreaOutline.h"

namespace cadhost::commands {

namespace {

using ardo::ResBuf;

std::string handleText(Handle handle) {
    std::ostringstream out;
    out << std::uppercase << std::hex << handle;
    return out.str();
}

std::string plural(std::size_t n, const char* one, const char* many) {
    return std::to_string(n) + (n == 1 ? one : many);
}

class MapExportCommand final : public Command {
public:
    explicit MapExportCommand(Context& context)
        : context_(context), selection_(*context.drawing, context.previousSelection, context.selectionMembers) {}

    std::string prompt() const override {
        switch (ask_) {
            case Ask::Format: return "Export format [SHP] <SHP>: ";
            case Ask::File: return "Export file name: ";
            case Ask::Objects: return selection_.prompt();
        }
        return {};
    }
    InputRequest request() const override { return ask_ == Ask::Objects ? selection_.request() : InputRequest{}; }

    Step take(const ResBuf& input) override {
        switch (ask_) {
            case Ask::Format:
                if (!isEnter(input) && !matchKeyword(input, {"SHP"}))
                    return refuse("ardo-cad exports ESRI shapefiles only: answer SHP or press Enter.\n");
                ask_ = Ask::File;
                return Step::More;
            case Ask::File: return takeFile(input);
            case Ask::Objects: return takeSelection(input);
        }
        return Step::Refused;
    }

private:
    enum class Ask { Format, File, Objects };

    Step refuse(const std::string& message) {
        context_.message(message);
        return Step::Refused;
    }

    Step takeFile(const ResBuf& input) {
        if (input.restype != ardo::RTSTR || isEnter(input)) return refuse("Give the shapefile's name as text.\n");
        std::filesystem::path path = input.text;
        if (!path.has_extension()) path += ".shp";
        if (ardo::upperCase(path.extension().string()) != ".SHP")
            return refuse("A shapefile's name ends in \".shp\"; the \".shx\" and \".dbf\" files are written beside it.\n");
        path_ = path.string();
        ask_ = Ask::Objects;
        return Step::More;
    }

    Step takeSelection(const ResBuf& input) {
        if (const auto going = takeObjects(selection_, input, context_)) return *going;
        return exportAreas(selection_.selected());
    }

    Step exportAreas(const std::vector<std::int64_t>& entities) {
        const Drawing& drawing = *context_.drawing;
        std::vector<ExportedArea> areas;
        std::size_t leftOut = 0;
        for (std::int64_t id : entities) {
            const auto handle = static_cast<Handle>(id);
            auto outline = geometry::areaOutlineOf(drawing, handle);
            const auto info = drawing.entity(handle);
            if (!outline || !info) {
                ++leftOut;
                continue;
            }
            areas.push_back({std::move(*outline), info->layer, handleText(handle)});
        }
        context_.previousSelection = entities;
        if (leftOut > 0)
            context_.message(plural(leftOut, " object was", " objects were") +
                             " not a closed area (closed polyline or circle) and left out.\n");
        if (areas.empty()) return refuse("No closed areas selected; nothing was exported.\n");
        if (const ardo::Status written = writeAreaShapefile(path_, areas); !written)
            return refuse(written.error() + "\n");
        context_.message(plural(areas.size(), " area", " areas") + " exported to \"" + path_ + "\".\n");
        return Step::Done;
    }

    Context& context_;
    ObjectSelection selection_;
    Ask ask_ = Ask::Format;
    std::string path_;
};

}  // namespace

std::unique_ptr<Command> makeMapExportCommand(Context& context) { return std::make_unique<MapExportCommand>(context); }

}  // namespace cadhost::commands
