#include "cadhost/commands/PlotSettings.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "base/CaseFold.h"
#include "cadhost/drawing/Drawing.h"
#include "cadhost/dxf/TagValue.h"

namespace cadhost::commands {

namespace {

PlotWriter& installedWriter() {
    static PlotWriter writer;
    return writer;
}

constexpr double kInch = 25.4;

// A listed name without its dimensions: "ISO A4", "ANSI B".
std::string_view shortName(std::string_view name) { return name.substr(0, name.find(" (")); }

// The plot settings part of the named layout's LAYOUT object; empty when there is none.
std::span<const DxfTag> plotSettingsOf(const Drawing& drawing, std::string_view layout) {
    const DxfDocument& doc = drawing.document();
    for (RecordId id = doc.first(); id != kNoRecord; id = doc.next(id)) {
        if (doc.isErased(id) || doc.type(id) != "LAYOUT") continue;
        const std::span<const DxfTag> tags = doc.tags(id);
        // The layout's own name follows its AcDbLayout marker; the plot settings come before it.
        std::size_t layoutPart = tags.size();
        for (std::size_t i = 0; i < tags.size(); ++i)
            if (tags[i].code == 100 && tags[i].value == "AcDbLayout") layoutPart = i;
        bool named = false;
        for (std::size_t i = layoutPart; i < tags.size(); ++i)
            if (tags[i].code == 1) named = ardo::equalsNoCase(tags[i].value, layout);
        if (named) return tags.first(layoutPart);
    }
    return {};
}

// A paper size as a page setup saves it, with underscores for blanks: "ISO_A3_(297.00_x_420.00_MM)".
const PaperSize* savedPaper(std::string_view saved) {
    std::string name(saved);
    std::replace(name.begin(), name.end(), '_', ' ');
    return findPaperSize(name);
}

// Reads the model layout's page setup into `settings` when it was set up for a PDF device;
// a setup for another device (a new drawing has none) says nothing about a PDF sheet.
void readSavedSetup(const Drawing& drawing, PlotSettings& settings) {
    const std::span<const DxfTag> tags = plotSettingsOf(drawing, "Model");
    if (tags.empty()) return;
    const auto value = [&](int code) -> std::optional<std::string_view> {
        for (std::size_t i = 0; i < tags.size(); ++i)
            if (tags[i].code == code) return tags[i].value;
        return std::nullopt;
    };
    const auto number = [&](int code, double fallback) {
        const auto v = value(code);
        return v ? toDouble(*v, fallback) : fallback;
    };
    const auto device = value(2);
    if (!device || !isPdfDevice(*device)) return;
    if (const auto paper = value(4))
        if (const PaperSize* size = savedPaper(*paper)) settings.paper = size;
    settings.millimeters = number(72, 1) != 0;
    const int rotation = static_cast<int>(number(73, 0));
    settings.landscape = rotation == 1 || rotation == 3;
    settings.upsideDown = rotation == 2 || rotation == 3;
    switch (static_cast<int>(number(74, 1))) {
    case 0: settings.area = PlotArea::Display; break;
    case 2: settings.area = PlotArea::Limits; break;
    case 4:
        settings.area = PlotArea::Window;
        settings.windowFirst = {number(48, 0), number(49, 0), 0};
        settings.windowSecond = {number(140, 0), number(141, 0), 0};
        break;
    default: settings.area = PlotArea::Extents; break;
    }
    const int flags = static_cast<int>(number(70, 0));
    const bool standard = flags & 16;
    if (standard && number(75, 0) == 0) settings.scale.reset();
    else if (standard && number(147, 0) > 0) settings.scale = number(147, 1);
    else if (number(142, 0) > 0 && number(143, 0) > 0) settings.scale = number(142, 1) / number(143, 1);
    if (flags & 4) settings.offset.reset();
    else settings.offset = ardo::Point3{number(46, 0) / (settings.millimeters ? 1 : 25.4),
                                        number(47, 0) / (settings.millimeters ? 1 : 25.4), 0};
    settings.plotStyles = flags & 32;
    settings.lineweights = flags & 128;
    if (const auto table = value(7)) settings.styleTable = std::string(*table);
}

}  // namespace

const std::vector<PaperSize>& paperSizes() {
    static const std::vector<PaperSize> sizes{
        {"ISO A4 (210.00 x 297.00 MM)", 210, 297},
        {"ISO A3 (297.00 x 420.00 MM)", 297, 420},
        {"ISO A2 (420.00 x 594.00 MM)", 420, 594},
        {"ISO A1 (594.00 x 841.00 MM)", 594, 841},
        {"ISO A0 (841.00 x 1189.00 MM)", 841, 1189},
        {"ANSI A (8.50 x 11.00 Inches)", 8.5 * kInch, 11 * kInch, true},
        {"ANSI B (11.00 x 17.00 Inches)", 11 * kInch, 17 * kInch, true},
        {"ANSI C (17.00 x 22.00 Inches)", 17 * kInch, 22 * kInch, true},
        {"ANSI D (22.00 x 34.00 Inches)", 22 * kInch, 34 * kInch, true},
        {"ANSI E (34.00 x 44.00 Inches)", 34 * kInch, 44 * kInch, true},
    };
    return sizes;
}

const PaperSize* findPaperSize(std::string_view typed) {
    typed = ardo::trimWhite(typed);
    for (const PaperSize& size : paperSizes()) {
        const std::string_view brief = shortName(size.name);
        const bool iso = brief.starts_with("ISO ");
        if (ardo::equalsNoCase(typed, size.name) || ardo::equalsNoCase(typed, brief) ||
            (iso && ardo::equalsNoCase(typed, brief.substr(4))))
            return &size;
    }
    return nullptr;
}

bool isPdfDevice(std::string_view name) {
    name = ardo::trimWhite(name);
    return ardo::equalsNoCase(name, kPdfDevice) || ardo::equalsNoCase(name, "DWG To PDF");
}

StyleTable styleTableOf(std::string_view name) {
    name = ardo::trimWhite(name);
    if (name.empty() || name == ".") return StyleTable::None;
    if (ardo::equalsNoCase(name, "monochrome.ctb") || ardo::equalsNoCase(name, "monochrome.stb"))
        return StyleTable::Monochrome;
    if (ardo::equalsNoCase(name, "acad.ctb") || ardo::equalsNoCase(name, "acad.stb")) return StyleTable::ObjectColors;
    return StyleTable::Unread;
}

double PlotSettings::sheetWidth() const {
    if (sheet) return sheet->first;
    const PaperSize& size = paper ? *paper : paperSizes().front();
    return landscape ? size.height : size.width;
}

double PlotSettings::sheetHeight() const {
    if (sheet) return sheet->second;
    const PaperSize& size = paper ? *paper : paperSizes().front();
    return landscape ? size.width : size.height;
}

namespace {

PlotSettings modelPlotSettings(const Drawing& drawing) {
    PlotSettings settings;
    settings.paper = &paperSizes().front();
    const auto name = drawing.getVar("DWGNAME");
    const auto prefix = drawing.getVar("DWGPREFIX");
    std::filesystem::path file = name && !name->text.empty() ? name->text : "Drawing1";
    file.replace_extension(".pdf");
    settings.file = (prefix ? std::filesystem::path(prefix->text) / file : file).string();
    readSavedSetup(drawing, settings);
    return settings;
}

// Plots a layout: its whole sheet at 1:1 of paper units, centred; on its own paper where its
// plot settings were made for a PDF or name a listed paper, else on the paper already chosen.
void usePaperOf(const Drawing& drawing, const Layout& layout, PlotSettings& settings) {
    bool inches = false, ownPaper = false;
    for (const DxfTag& t : plotSettingsOf(drawing, layout.name)) {
        if (t.code == 72) inches = toInteger(t.value, 1) == 0;
        if ((t.code == 2 && isPdfDevice(t.value)) || (t.code == 4 && savedPaper(t.value))) ownPaper = true;
    }
    settings.sheet.reset();
    if (ownPaper && !layout.paper.empty()) {
        const double unit = inches ? kInch : 1;
        const double width = (layout.paper.x1 - layout.paper.x0) * unit, height = (layout.paper.y1 - layout.paper.y0) * unit;
        settings.millimeters = !inches;
        settings.sheet = {width, height};
        // A listed size is shown and chosen as such; only an odd sheet stands on its own.
        for (const PaperSize& size : paperSizes()) {
            const bool upright = std::abs(size.width - width) < 0.5 && std::abs(size.height - height) < 0.5;
            const bool turned = std::abs(size.height - width) < 0.5 && std::abs(size.width - height) < 0.5;
            if (!upright && !turned) continue;
            settings.paper = &size;
            settings.landscape = turned;
            settings.sheet.reset();
            break;
        }
    }
    settings.area = PlotArea::Layout;
    settings.scale = 1;
    settings.offset.reset();
}

}  // namespace

bool choosePlotLayout(const Drawing& drawing, std::string_view name, PlotSettings& settings) {
    if (ardo::equalsNoCase(name, "Model")) {
        const PlotSettings model = modelPlotSettings(drawing);
        settings.layout = model.layout;
        settings.paper = model.paper;
        settings.sheet.reset();
        settings.millimeters = model.millimeters;
        settings.landscape = model.landscape;
        settings.area = model.area;
        settings.scale = model.scale;
        settings.offset = model.offset;
        return true;
    }
    for (const Layout& layout : drawing.layouts()) {
        if (!ardo::equalsNoCase(layout.name, name)) continue;
        settings.layout = layout.name;
        usePaperOf(drawing, layout, settings);
        return true;
    }
    return false;
}

PlotSettings defaultPlotSettings(const Drawing& drawing) {
    PlotSettings settings = modelPlotSettings(drawing);
    if (const auto shown = drawing.getVar("CTAB")) choosePlotLayout(drawing, shown->text, settings);
    return settings;
}

bool PlotSettings::plotsLayout() const { return !ardo::equalsNoCase(layout, "Model"); }


namespace {

// Visits the records of the drawing's VIEW table: name, centre and size.
template <class Visit>
void forEachView(const Drawing& drawing, Visit&& visit) {
    const DxfDocument& doc = drawing.document();
    for (RecordId id = doc.first(); id != kNoRecord; id = doc.next(id)) {
        if (doc.isErased(id) || doc.type(id) != "VIEW") continue;
        std::string name;
        double x = 0, y = 0, height = 0, width = 0;
        for (const DxfTag& t : doc.tags(id)) {
            if (t.code == 2) name = std::string(t.value);
            else if (t.code == 10) x = toDouble(t.value);
            else if (t.code == 20) y = toDouble(t.value);
            else if (t.code == 40) height = toDouble(t.value);
            else if (t.code == 41) width = toDouble(t.value);
        }
        if (!visit(name, ardo::Point3{x - width / 2, y - height / 2, 0}, ardo::Point3{x + width / 2, y + height / 2, 0}))
            return;
    }
}

}  // namespace

std::optional<std::pair<ardo::Point3, ardo::Point3>> namedView(const Drawing& drawing, std::string_view name) {
    std::optional<std::pair<ardo::Point3, ardo::Point3>> found;
    forEachView(drawing, [&](const std::string& view, const ardo::Point3& low, const ardo::Point3& high) {
        if (!ardo::equalsNoCase(view, ardo::trimWhite(name))) return true;
        found = std::pair{low, high};
        return false;
    });
    return found;
}

std::vector<std::string> viewNames(const Drawing& drawing) {
    std::vector<std::string> names;
    forEachView(drawing, [&](const std::string& view, const ardo::Point3&, const ardo::Point3&) {
        names.push_back(view);
        return true;
    });
    return names;
}

void setPlotWriter(PlotWriter writer) { installedWriter() = std::move(writer); }
const PlotWriter& plotWriter() { return installedWriter(); }

}  // namespace cadhost::commands
