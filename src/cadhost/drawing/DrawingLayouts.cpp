// Paper-space layouts: their LAYOUT objects, the sheet each is plotted on, and which one
// CTAB makes current, so that new entities go to the space the window shows.
#include <algorithm>

#include "base/CaseFold.h"
#include "cadhost/drawing/Drawing.h"
#include "cadhost/dxf/TagValue.h"

namespace cadhost {

namespace {

constexpr std::string_view kActivePaperSpace = "*Paper_Space";
constexpr double kMillimetresPerInch = 25.4;

// The plot settings of a layout as its LAYOUT object keeps them.
struct PlotSettings {
    double width = 0, height = 0;                      // 44, 45: the paper in millimetres
    double left = 0, bottom = 0, right = 0, top = 0;   // 40 to 43: its margins in millimetres
    int units = 1;                                     // 72: 0 inches, 1 millimetres
    int rotation = 0;                                  // 73: quarter turns counter-clockwise
};

// The sheet in paper-space units: the plot origin is the printable area's lower left corner.
void placeSheet(const PlotSettings& plot, Layout& layout) {
    if (!(plot.width > 0 && plot.height > 0)) return;
    const double unit = plot.units == 0 ? kMillimetresPerInch : 1;
    const bool turned = plot.rotation % 2 == 1;
    const double w = (turned ? plot.height : plot.width) / unit, h = (turned ? plot.width : plot.height) / unit;
    // A quarter turn counter-clockwise brings the top margin to the left, and so on.
    double m[4] = {plot.left, plot.bottom, plot.right, plot.top};
    std::rotate(m, m + (4 - plot.rotation % 4) % 4, m + 4);
    const double left = m[0] / unit, bottom = m[1] / unit, right = m[2] / unit, top = m[3] / unit;
    layout.paper = {-left, -bottom, w - left, h - bottom};
    layout.printable = {0, 0, w - left - right, h - bottom - top};
}

}  // namespace

std::vector<Layout> Drawing::layouts() const {
    std::vector<Layout> out;
    for (RecordId id : objects_) {
        if (doc_.isErased(id) || doc_.type(id) != "LAYOUT") continue;
        Layout layout;
        PlotSettings plot;
        SheetArea limits;
        std::string blockRecord;
        bool ownPart = false;   // past the plot settings, in the layout's own groups
        for (const DxfTag& t : doc_.tags(id)) {
            if (t.code == 100) ownPart = t.value == "AcDbLayout";
            if (!ownPart) {
                switch (t.code) {
                case 40: plot.left = toDouble(t.value); break;
                case 41: plot.bottom = toDouble(t.value); break;
                case 42: plot.right = toDouble(t.value); break;
                case 43: plot.top = toDouble(t.value); break;
                case 44: plot.width = toDouble(t.value); break;
                case 45: plot.height = toDouble(t.value); break;
                case 72: plot.units = static_cast<int>(toInteger(t.value, 1)); break;
                case 73: plot.rotation = static_cast<int>(toIntegerWithin(t.value, 0, 3).value_or(0)); break;
                default: break;
                }
                continue;
            }
            switch (t.code) {
            case 1: layout.name = text(t.value); break;
            case 71: layout.tabOrder = static_cast<int>(toInteger(t.value)); break;
            case 10: limits.x0 = toDouble(t.value); break;
            case 20: limits.y0 = toDouble(t.value); break;
            case 11: limits.x1 = toDouble(t.value); break;
            case 21: limits.y1 = toDouble(t.value); break;
            case 330: blockRecord = std::string(t.value); break;
            default: break;
            }
        }
        if (const auto record = recordByHandle(blockRecord))
            layout.block = text(tagValue(doc_.tags(*record), 2).value_or(""));
        if (ardo::equalsNoCase(layout.block, "*Model_Space") || ardo::equalsNoCase(layout.name, "Model")) continue;
        placeSheet(plot, layout);
        // A layout without a paper size is as large as its limits.
        if (layout.paper.empty() && !limits.empty()) layout.paper = layout.printable = limits;
        out.push_back(std::move(layout));
    }
    std::stable_sort(out.begin(), out.end(), [](const Layout& a, const Layout& b) { return a.tabOrder < b.tabOrder; });
    return out;
}

std::optional<Layout> Drawing::currentLayout() const {
    const std::string_view block =
        currentLayoutBlock_.empty() ? kActivePaperSpace : std::string_view(currentLayoutBlock_);
    for (Layout& layout : layouts())
        if (ardo::equalsNoCase(layout.block, block)) return std::move(layout);
    return std::nullopt;
}

std::optional<std::string> Drawing::currentTabName() const {
    if (!paperSpaceShown()) return "Model";
    const auto layout = currentLayout();
    return layout ? layout->name : std::string("Layout1");
}

// CTAB chooses the space by its tab's name: "Model" sets TILEMODE 1, a layout TILEMODE 0.
// TILEMODE is written only when it changes, so that switching and switching back leaves
// the file as it was.
ardo::DbStatus Drawing::storeCurrentTab(const ardo::ResBuf& value) {
    if (value.restype != ardo::RTSTR) return ardo::DbStatus::InvalidInput;
    std::optional<Layout> chosen;
    if (!ardo::equalsNoCase(value.text, "Model")) {
        for (Layout& layout : layouts())
            if (ardo::equalsNoCase(layout.name, value.text)) chosen = std::move(layout);
        if (!chosen) return ardo::DbStatus::InvalidInput;
    }
    const int tilemode = chosen ? 0 : 1;
    if (const auto now = getVar("TILEMODE"); !now || now->integer != tilemode) {
        const ardo::DbStatus stored = storeVar("TILEMODE", ardo::ResBuf::shortInt(tilemode));
        if (stored != ardo::DbStatus::Ok) return stored;
        announce([&](DrawingListener& l) { l.variableChanged("TILEMODE"); });
    }
    if (chosen) currentLayoutBlock_ = ardo::equalsNoCase(chosen->block, kActivePaperSpace) ? "" : chosen->block;
    return ardo::DbStatus::Ok;
}

std::pair<std::int32_t, RecordId> Drawing::newEntityPlace() const {
    if (currentLayoutBlock_.empty() || !paperSpaceShown()) return {-1, entitiesEnd_};
    const auto it = blockByName_.find(foldName(currentLayoutBlock_));
    if (it == blockByName_.end()) return {-1, entitiesEnd_};
    const Block& block = blocks_[static_cast<std::size_t>(it->second)];
    // Before the block's ENDBLK, which follows its last entity (or the BLOCK record).
    RecordId last = block.record;
    for (std::uint32_t index : block.entities) last = entities_[index].last;
    RecordId end = doc_.next(last);
    while (end != kNoRecord && doc_.isErased(end)) end = doc_.next(end);
    if (end == kNoRecord || doc_.type(end) != "ENDBLK") return {-1, entitiesEnd_};
    return {it->second, end};
}

}  // namespace cadhost
