#include "cadhost/geometry/Linetypes.h"

#include "base/CaseFold.h"
#include "cadhost/drawing/Drawing.h"
#include "cadhost/dxf/TagValue.h"

namespace cadhost::geometry {

namespace {

std::string_view nameOf(std::span<const DxfTag> tags) {
    for (const DxfTag& tag : tags)
        if (tag.code == 2) return tag.value;
    return {};
}

}  // namespace

std::optional<std::vector<double>> linetypePattern(const Drawing& drawing, const std::string& name) {
    const DxfDocument& doc = drawing.document();
    // The linetype table lies near the start of the file; the walk ends with it.
    bool inTable = false;
    for (RecordId id = doc.first(); id != kNoRecord; id = doc.next(id)) {
        if (doc.isErased(id)) continue;
        const std::string_view type = doc.type(id);
        if (type == "ENDTAB" && inTable) break;
        if (type == "ENDSEC" && inTable) break;
        const auto tags = doc.tags(id);
        if (type == "TABLE") {
            inTable = nameOf(tags) == "LTYPE";
            continue;
        }
        if (!inTable || type != "LTYPE" || !ardo::equalsNoCase(nameOf(tags), name)) continue;
        std::vector<double> pattern;
        for (const DxfTag& tag : tags)
            if (tag.code == 49) pattern.push_back(toDouble(tag.value));
        return pattern;
    }
    return std::nullopt;
}

}  // namespace cadhost::geometry
