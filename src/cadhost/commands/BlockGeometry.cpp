#include "cadhost/commands/BlockGeometry.h"

#include <cmath>

#include "cadhost/commands/NewEntity.h"
#include "cadhost/dxf/TagValue.h"

namespace cadhost::commands {

ardo::Point3 Placement::place(const ardo::Point3& p) const {
    const double x = (p[0] - base[0]) * scale[0], y = (p[1] - base[1]) * scale[1];
    const double c = std::cos(rotation), s = std::sin(rotation);
    return {point[0] + x * c - y * s, point[1] + x * s + y * c, point[2] + (p[2] - base[2]) * scale[2]};
}

std::vector<EntityTag> attributeFrom(const std::vector<EntityTag>& definition, const std::string& value,
                                     const Placement& placement, const std::string& insertLayer) {
    std::vector<EntityTag> out{{0, "ATTRIB"}};
    ardo::Point3 position{}, alignment{};
    for (const EntityTag& t : definition) {
        if (t.code >= 10 && t.code <= 30 && t.code % 10 == 0) position[static_cast<std::size_t>(t.code / 10 - 1)] = toDouble(t.value);
        if (t.code >= 11 && t.code <= 31 && t.code % 10 == 1) alignment[static_cast<std::size_t>(t.code / 10 - 1)] = toDouble(t.value);
    }
    const double heightScale = std::fabs(placement.scale[1]);
    for (std::size_t i = 1; i < definition.size(); ++i) {
        const EntityTag& t = definition[i];
        switch (t.code) {
            case 3: break;   // the prompt belongs to the definition
            case 8: out.push_back({8, t.value == "0" ? insertLayer : t.value}); break;
            case 1: out.push_back({1, value}); break;
            case 10: appendPoint(out, 10, placement.place(position)); break;
            case 11: appendPoint(out, 11, placement.place(alignment)); break;
            case 20: case 30: case 21: case 31: break;
            case 40: out.push_back({40, dxfNumber(toDouble(t.value) * heightScale)}); break;
            case 41:
                out.push_back({41, dxfNumber(toDouble(t.value, 1) * std::fabs(placement.scale[0]) / heightScale)});
                break;
            case 50: break;   // written below, with the insert's rotation
            case 100:
                out.push_back({100, t.value == "AcDbAttributeDefinition" ? "AcDbAttribute" : t.value});
                break;
            default: out.push_back(t);
        }
        // The rotation follows the height in the text's own group order.
        if (t.code == 40) {
            double degrees = 0;
            for (const EntityTag& r : definition)
                if (r.code == 50) degrees = toDouble(r.value);
            const double turned = degrees + placement.rotation * 180 / M_PI;
            if (turned != 0) out.push_back({50, dxfNumber(std::fmod(turned, 360.0))});
        }
    }
    return out;
}

}  // namespace cadhost::commands
