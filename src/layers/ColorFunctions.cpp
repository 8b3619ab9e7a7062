#include "layers/ColorFunctions.h"

#include <optional>

#include "module/HostBinding.h"
#include "module/lisp/CallFrame.h"
#include "layers/ColorText.h"

namespace ardo::handlers {

namespace {

std::optional<HostColor> colorOfIndex(std::int64_t index) {
    if (index == 0) return HostColor::byBlock();
    if (index == 256) return HostColor::byLayer();
    if (index >= 1 && index <= 255) return HostColor::fromIndex(int(index));
    return std::nullopt;
}

HostColor colorOfRgb(std::int64_t rgb) {
    return HostColor::fromRgb(std::uint8_t(rgb >> 16), std::uint8_t(rgb >> 8), std::uint8_t(rgb));
}

// A colour list of DXF pairs ((62 . i) (420 . rgb) (430 . "book$colour")): a book colour
// the host knows comes first, then the true colour, then the index.
std::optional<HostColor> colorOfPairs(std::span<const ResBuf> list) {
    std::optional<HostColor> index, trueColor, book;
    for (size_t i = 0; i + 4 < list.size(); ++i) {
        if (list[i].restype != RTLB || list[i + 2].restype != RTDOTE || list[i + 4].restype != RTLE) continue;
        const ResBuf& code = list[i + 1];
        const ResBuf& value = list[i + 3];
        if (code.restype != RTSHORT && code.restype != RTLONG) continue;
        const bool integer = value.restype == RTSHORT || value.restype == RTLONG;
        if (code.integer == 62 && integer) index = colorOfIndex(value.integer);
        if (code.integer == 420 && integer) trueColor = colorOfRgb(value.integer);
        if (code.integer == 430 && value.restype == RTSTR) {
            const size_t dollar = value.text.find('$');
            HostColor found;
            if (dollar != std::string::npos &&
                host().colorFromColorBookName(value.text.substr(0, dollar), value.text.substr(dollar + 1), found))
                book = found;
        }
    }
    if (book) return book;
    if (trueColor) return trueColor;
    return index;
}

// A colour given to LISP as an index, a colour text or a list of DXF colour pairs.
std::optional<HostColor> colorOfArgument(const CallFrame& frame, size_t i) {
    const ResBuf& node = frame.node(i);
    if (node.restype == RTSHORT || node.restype == RTLONG) return colorOfIndex(node.integer);
    if (node.restype == RTSTR) {
        HostColor color;
        if (parseColorText(color, node.text)) return color;
        return std::nullopt;
    }
    if (node.restype == RTLB) return colorOfPairs(frame.list(i));
    return std::nullopt;
}

}  // namespace

// (kemb_GetLayerRgbColor command layer) gives (red green blue) of the drawing layer's colour.
int kemb_GetLayerRgbColor() {
    CallFrame frame;
    if (!frame.check({{ArgKind::String}, {ArgKind::String}})) return RSRSLT;
    HostDrawing* drawing = host().workingDrawing();
    if (!drawing) return RSRSLT;
    const auto layer = drawing->findLayer(frame.text(1));
    if (!layer) return RSRSLT;
    const HostColor& c = layer->color;
    const std::uint32_t rgb = c.method == HostColor::Method::Index ? host().rgbOfIndexColor(c.index) : c.rgb();
    host().retList({ResBuf::marker(RTLB), ResBuf::shortInt(int(rgb >> 16)), ResBuf::shortInt(int((rgb >> 8) & 0xFF)),
                    ResBuf::shortInt(int(rgb & 0xFF)), ResBuf::marker(RTLE)});
    return RSRSLT;
}

// (kemb_getColorDataFromLisp colour): an index, a colour text or a list of DXF colour
// pairs, given back as the colour data list of kemb_getColorDataFromString.
int kemb_getColorDataFromLisp() {
    CallFrame frame;
    if (!frame.check({{ArgKind::Any}})) return RSRSLT;
    if (const auto color = colorOfArgument(frame, 0)) host().retList(colorDataList(*color));
    return RSRSLT;
}

// (kemb_setCurrentColorFromLisp colour) makes the colour the current entity colour
// (CECOLOR); T when it was set.
int kemb_setCurrentColorFromLisp() {
    CallFrame frame;
    if (!frame.check({{ArgKind::Any}})) return RSRSLT;
    const auto color = colorOfArgument(frame, 0);
    if (!color) return RSRSLT;
    if (host().setVar("CECOLOR", ResBuf::str(colorText(*color))) == RTNORM) host().retT();
    return RSRSLT;
}

// (kemb_ColorDialog [colour [meta]]) opens the host's colour dialog on the colour given (an
// index, a colour text or a list of DXF colour pairs; white without one). BYLAYER and BYBLOCK
// are offered unless meta is nil. The chosen colour comes back as the colour data list of
// kemb_getColorDataFromString; nil when the dialog was cancelled.
int kemb_ColorDialog() {
    CallFrame frame;
    if (!frame.check({{ArgKind::Any, Presence::Optional}, {ArgKind::Any, Presence::Optional}})) return RSRSLT;
    HostColor color = HostColor::fromIndex(7);
    if (frame.has(0) && frame.node(0).restype != RTNIL) {
        const auto given = colorOfArgument(frame, 0);
        if (!given) {
            frame.reportBadValue();
            return RSRSLT;
        }
        color = *given;
    }
    const bool allowMeta = !frame.has(1) || frame.node(1).restype != RTNIL;
    if (host().colorDialog(color, allowMeta) == RTNORM) host().retList(colorDataList(color));
    return RSRSLT;
}

}  // namespace ardo::handlers
