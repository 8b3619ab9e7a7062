#include "cadhost/commands/PropertyGroups.h"

#include <algorithm>

#include "base/CaseFold.h"
#include "cadhost/commands/NewEntity.h"
#include "cadhost/commands/TypedInput.h"

namespace cadhost::commands {

namespace {

const std::string* groupText(const std::vector<EntityTag>& tags, int code) {
    for (const EntityTag& t : tags) {
        if (t.code == 1001) break;
        if (t.code == code) return &t.value;
    }
    return nullptr;
}

double groupNumber(const std::vector<EntityTag>& tags, int code, double absent) {
    const std::string* text = groupText(tags, code);
    return text ? parseReal(*text).value_or(absent) : absent;
}

// Keeps a value while every entity agrees on it.
template <typename T>
void agree(std::optional<T>& shared, bool first, const T& value) {
    if (first) shared = value;
    else if (shared && !(*shared == value)) shared.reset();
}

}  // namespace

void setProperties(Drawing& drawing, const std::vector<Handle>& entities, std::vector<int> remove,
                   const std::vector<EntityTag>& set) {
    for (const EntityTag& t : set) remove.push_back(t.code);
    for (Handle h : entities) {
        std::vector<EntityTag> tags = drawing.entityTags(h);
        auto own = std::find_if(tags.begin(), tags.end(), [](const EntityTag& t) { return t.code == 1001; });
        own = tags.erase(std::remove_if(tags.begin(), own,
                                        [&](const EntityTag& t) {
                                            return std::find(remove.begin(), remove.end(), t.code) != remove.end();
                                        }),
                         own);
        // After the layer (or the subclass marker that precedes it), where writers put them.
        auto at = std::find_if(tags.begin(), own, [](const EntityTag& t) { return t.code == kLayerCode; });
        at = at == own ? own : at + 1;
        tags.insert(at, set.begin(), set.end());
        drawing.modifyEntity(h, tags);
    }
}

ardo::HostColor colorOfGroups(const std::vector<EntityTag>& tags) {
    if (const std::string* book = groupText(tags, 430)) {
        ardo::HostColor c;
        c.method = ardo::HostColor::Method::ColorBook;
        const auto dollar = book->find('$');
        c.bookName = dollar == std::string::npos ? std::string() : book->substr(0, dollar);
        c.colorName = dollar == std::string::npos ? *book : book->substr(dollar + 1);
        const auto rgb = static_cast<std::uint32_t>(groupNumber(tags, 420, 0));
        c.red = static_cast<std::uint8_t>(rgb >> 16), c.green = static_cast<std::uint8_t>(rgb >> 8),
        c.blue = static_cast<std::uint8_t>(rgb);
        return c;
    }
    if (groupText(tags, 420)) {
        const auto rgb = static_cast<std::uint32_t>(groupNumber(tags, 420, 0));
        return ardo::HostColor::fromRgb(static_cast<std::uint8_t>(rgb >> 16), static_cast<std::uint8_t>(rgb >> 8),
                                        static_cast<std::uint8_t>(rgb));
    }
    const int index = static_cast<int>(groupNumber(tags, 62, 256));
    if (index == 256) return ardo::HostColor::byLayer();
    if (index == 0) return ardo::HostColor::byBlock();
    return ardo::HostColor::fromIndex(std::abs(index));   // a negative number only says the layer is off
}

std::vector<EntityTag> colorGroups(const ardo::HostColor& color) {
    using Method = ardo::HostColor::Method;
    switch (color.method) {
        case Method::ByLayer:
        case Method::None: return {};
        case Method::ByBlock: return {{62, "0"}};
        case Method::Index: return {{62, std::to_string(color.index)}};
        case Method::TrueColor: return {{420, std::to_string(color.rgb())}};
        case Method::ColorBook:
            return {{420, std::to_string(color.rgb())},
                    {430, color.bookName.empty() ? color.colorName : color.bookName + "$" + color.colorName}};
    }
    return {};
}

SharedProperties sharedProperties(const Drawing& drawing, const std::vector<Handle>& entities) {
    SharedProperties shared;
    bool first = true;
    for (Handle h : entities) {
        const auto tags = drawing.entityTags(h);
        if (tags.empty()) continue;
        const std::string* layer = groupText(tags, kLayerCode);
        const std::string* linetype = groupText(tags, kLinetypeCode);
        agree(shared.color, first, colorOfGroups(tags));
        agree(shared.layer, first, layer ? *layer : std::string("0"));
        agree(shared.linetype, first, linetype ? *linetype : std::string("ByLayer"));
        agree(shared.lineweight, first, static_cast<int>(groupNumber(tags, kLineweightCode, -1)));
        agree(shared.linetypeScale, first, groupNumber(tags, kLinetypeScaleCode, 1.0));
        first = false;
    }
    return shared;
}

void applyProperties(Drawing& drawing, const std::vector<Handle>& entities, const PropertyChanges& changes) {
    std::vector<int> remove;
    std::vector<EntityTag> set;
    if (changes.color) {
        for (int code : kColorCodes) remove.push_back(code);
        const auto groups = colorGroups(*changes.color);
        set.insert(set.end(), groups.begin(), groups.end());
    }
    if (changes.layer) set.push_back({kLayerCode, *changes.layer});
    // ByLayer, a lineweight of -1 and a linetype scale of 1 are written by leaving the group out.
    if (changes.linetype) {
        if (ardo::equalsNoCase(*changes.linetype, "BYLAYER")) remove.push_back(kLinetypeCode);
        else set.push_back({kLinetypeCode, *changes.linetype});
    }
    if (changes.lineweight) {
        if (*changes.lineweight == -1) remove.push_back(kLineweightCode);
        else set.push_back({kLineweightCode, std::to_string(*changes.lineweight)});
    }
    if (changes.linetypeScale) {
        if (*changes.linetypeScale == 1.0) remove.push_back(kLinetypeScaleCode);
        else set.push_back({kLinetypeScaleCode, dxfNumber(*changes.linetypeScale)});
    }
    if (remove.empty() && set.empty()) return;
    setProperties(drawing, entities, std::move(remove), set);
}

}  // namespace cadhost::commands
