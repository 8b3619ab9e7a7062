// System variables: the drawing's header where DXF keeps them, the rest in memory.
#include <algorithm>
#include <chrono>
#include <ctime>
#include <variant>

#include "base/CaseFold.h"
#include "base/Utf8.h"
#include "cadhost/drawing/Drawing.h"
#include "cadhost/dxf/GroupCode.h"
#include "cadhost/dxf/TagValue.h"

namespace cadhost {

using ardo::DbStatus;
using ardo::ResBuf;

namespace {

// YYYYMMDD.HHMMSSmmm of the local clock.
double currentDate() {
    const auto now = std::chrono::system_clock::now();
    const std::time_t t = std::chrono::system_clock::to_time_t(now);
    const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000;
    std::tm tm{};
    localtime_r(&t, &tm);
    const double date = (tm.tm_year + 1900) * 10000.0 + (tm.tm_mon + 1) * 100.0 + tm.tm_mday;
    const double time = tm.tm_hour * 10000000.0 + tm.tm_min * 100000.0 + tm.tm_sec * 1000.0 + static_cast<double>(ms);
    return date + time / 1e9;
}

std::string directoryOf(const std::string& path) {
    const auto slash = path.find_last_of('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

std::string fileNameOf(const std::string& path) {
    const auto slash = path.find_last_of('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

bool isInteger(const ResBuf& v) { return v.restype == ardo::RTSHORT || v.restype == ardo::RTLONG; }

// $CECOLOR's index: 0 BYBLOCK, 256 BYLAYER.
constexpr long long kByBlock = 0, kByLayer = 256;

// A current colour as text: an index (from a name or digits), or the canonical text of a
// true colour ("RGB:r,g,b", also given without "RGB:") or of a colour-book colour.
std::variant<long long, std::string, std::monostate> currentColorOf(std::string_view given) {
    const std::string text(ardo::trimWhite(given));
    const std::string upper = ardo::upperCase(text);
    if (upper == "BYLAYER") return kByLayer;
    if (upper == "BYBLOCK") return kByBlock;
    // 0 and 256 as the COLOR command takes them.
    if (const auto index = toIntegerWithin(text, kByBlock, kByLayer); index && text.find('.') == std::string::npos)
        return *index;
    if (const auto dollar = text.find('$'); dollar != std::string::npos) {
        if (dollar == 0 || dollar + 1 == text.size()) return std::monostate{};
        return text;
    }
    std::string_view rgb = text;
    if (upper.starts_with("RGB:")) rgb.remove_prefix(4);
    std::string canonical = "RGB:";
    for (int part = 0; part < 3; ++part) {
        const auto comma = rgb.find(',');
        if ((comma == std::string_view::npos) != (part == 2)) return std::monostate{};
        const auto value = toIntegerWithin(ardo::trimWhite(rgb.substr(0, comma)), 0, 255);
        if (!value) return std::monostate{};
        canonical += (part ? "," : "") + std::to_string(*value);
        rgb.remove_prefix(comma == std::string_view::npos ? rgb.size() : comma + 1);
    }
    return canonical;
}

// Header variables that drawings from other programs or older formats may lack: their
// group code and the value they have until set.
struct HeaderDefault {
    std::string_view key;
    int code;
    int value;
};
// OSMODE: endpoint, centre and intersection snaps on.
constexpr HeaderDefault kHeaderDefaults[] = {{"OSMODE", 70, 37}, {"ORTHOMODE", 70, 0}};

const HeaderDefault* headerDefault(std::string_view key) {
    for (const HeaderDefault& d : kHeaderDefaults)
        if (d.key == key) return &d;
    return nullptr;
}

}  // namespace

std::optional<std::span<const DxfTag>> Drawing::headerVar(std::string_view name) const {
    if (header_ == kNoRecord) return std::nullopt;
    const auto it = headerIndex_.find(std::string(name));
    if (it == headerIndex_.end()) return std::nullopt;
    const auto tags = doc_.tags(header_);
    std::size_t end = it->second + 1;
    while (end < tags.size() && tags[end].code != 9 && tags[end].code != 0) ++end;
    return tags.subspan(it->second, end - it->second);
}

bool Drawing::setHeaderVar(std::string_view name, std::vector<OwnedTag> values) {
    const auto it = headerIndex_.find(std::string(name));
    if (it == headerIndex_.end()) return false;
    const auto current = headerVar(name);
    std::vector<OwnedTag> tags = doc_.copyTags(header_);
    const auto first = tags.begin() + static_cast<std::ptrdiff_t>(it->second + 1);
    tags.erase(first, first + static_cast<std::ptrdiff_t>(current->size() - 1));
    tags.insert(tags.begin() + static_cast<std::ptrdiff_t>(it->second + 1), values.begin(), values.end());
    doc_.replace(header_, std::move(tags));
    indexHeader();
    return true;
}

const std::string& Drawing::currentLayerName() const {
    const std::uint32_t revision = header_ == kNoRecord ? 0 : doc_.revision(header_);
    if (!currentLayer_ || currentLayer_->headerRevision != revision) {
        const auto tags = headerVar("$CLAYER");
        // Older formats may not keep it: layer "0" is current then.
        currentLayer_ = CurrentLayer{revision, tags && tags->size() > 1 ? text((*tags)[1].value) : std::string("0")};
    }
    return currentLayer_->name;
}

bool Drawing::paperSpaceShown() const {
    // Straight from the header: every new entity asks, and getVar tries a dozen names first.
    const auto tags = headerVar("$TILEMODE");
    return tags && tags->size() > 1 && toGroupInteger((*tags)[1].code, (*tags)[1].value) == 0;
}

std::optional<ResBuf> Drawing::getVar(std::string_view name) const {
    if (ardo::equalsNoCase(name, "CLAYER")) return ResBuf::str(currentLayerName());
    const std::string key = foldName(name);
    if (key == "CDATE") return ResBuf::realNum(currentDate());
    if (key == "PROGRAM") return ResBuf::str("ardo-cad");
    if (key == "DWGNAME") return ResBuf::str(fileNameOf(path_));
    if (key == "DWGPREFIX") return ResBuf::str(directoryOf(path_));
    if (key == "CMDECHO") return ResBuf::shortInt(cmdEcho_);
    if (key == "FILEDIA") return ResBuf::shortInt(fileDia_);
    if (key == "ATTREQ") return ResBuf::shortInt(attReq_);
    if (key == "CMDACTIVE") return ResBuf::shortInt(cmdActive_);
    if (key == "LWUNITS") return ResBuf::shortInt(lwUnits_);
    if (key == "LWDEFAULT") return ResBuf::shortInt(lwDefault_);
    if (key == "LASTPOINT") return ResBuf::point3(lastPoint_);
    if (key == "CTAB") return ResBuf::str(*currentTabName());
    const auto tags = headerVar("$" + key);
    if (key == "CECOLOR") {
        if (!currentColorBeyondIndex_.empty()) return ResBuf::str(currentColorBeyondIndex_);
        const long long index = tags && tags->size() > 1 ? toInteger((*tags)[1].value, kByLayer) : kByLayer;
        return ResBuf::str(index == kByLayer ? "BYLAYER" : index == kByBlock ? "BYBLOCK" : std::to_string(index));
    }
    if (!tags || tags->size() < 2) {
        // Defaults of variables older formats do not keep.
        if (key == "TILEMODE") return ResBuf::shortInt(1);
        if (key == "LWDISPLAY") return ResBuf::shortInt(0);
        if (const HeaderDefault* d = headerDefault(key)) return ResBuf::shortInt(d->value);
        return std::nullopt;
    }
    const DxfTag& v = (*tags)[1];
    if (startsPoint(v.code)) {
        ardo::Point3 p{};
        for (std::size_t i = 1; i < tags->size() && i <= 3; ++i) p[i - 1] = toDouble((*tags)[i].value);
        return ResBuf::point3(p);
    }
    switch (valueKind(v.code)) {
        case ValueKind::Double: return ResBuf::realNum(toDouble(v.value));
        case ValueKind::Int16:
        case ValueKind::Bool: return ResBuf::shortInt(static_cast<int>(toGroupInteger(v.code, v.value)));
        case ValueKind::Int32:
        case ValueKind::Int64: return ResBuf::longInt(toGroupInteger(v.code, v.value));
        default: return ResBuf::str(text(v.value));
    }
}

DbStatus Drawing::setVar(std::string_view name, const ResBuf& value) {
    const DbStatus status = storeVar(name, value);
    if (status != DbStatus::Ok) return status;
    // A listener may switch the view's space on CTAB or TILEMODE, which adds and removes
    // listeners: walk a copy and skip those gone meanwhile.
    const std::vector<DrawingListener*> listeners = listeners_;
    const std::string folded = foldName(name);
    for (DrawingListener* listener : listeners)
        if (std::find(listeners_.begin(), listeners_.end(), listener) != listeners_.end())
            listener->variableChanged(folded);
    return status;
}

DbStatus Drawing::storeVar(std::string_view name, const ResBuf& value) {
    const std::string key = foldName(name);
    if (key == "CDATE" || key == "PROGRAM" || key == "DWGNAME" || key == "DWGPREFIX" || key == "CMDACTIVE")
        return DbStatus::InvalidInput;
    int* memory = key == "CMDECHO" ? &cmdEcho_ : key == "FILEDIA" ? &fileDia_ : key == "LWUNITS" ? &lwUnits_
                  : key == "LWDEFAULT" ? &lwDefault_ : key == "ATTREQ" ? &attReq_ : nullptr;
    if (memory) {
        if (!isInteger(value)) return DbStatus::InvalidInput;
        *memory = static_cast<int>(value.integer);
        return DbStatus::Ok;
    }
    if (key == "LASTPOINT") {
        if (value.restype != ardo::RTPOINT && value.restype != ardo::RT3DPOINT) return DbStatus::InvalidInput;
        lastPoint_ = value.point;
        return DbStatus::Ok;
    }
    // No value of a system variable holds a line break or another control character.
    if (value.restype == ardo::RTSTR && ardo::hasControlCharacter(value.text)) return DbStatus::InvalidInput;
    if (key == "CECOLOR") return storeCurrentColor(value);
    if (key == "CTAB") return storeCurrentTab(value);
    std::string text = value.text;
    if (key == "CLAYER") {
        const auto layer = value.restype == ardo::RTSTR ? findLayer(value.text) : std::nullopt;
        if (!layer) return DbStatus::InvalidInput;
        // The layer's own spelling, whatever case was typed, as the common hosts keep it.
        text = layer->name;
    }
    if (const HeaderDefault* d = headerDefault(key); d && !headerVar("$" + key) && header_ != kNoRecord) {
        // Set for the first time: the header gains it, so the drawing keeps it when saved.
        std::vector<OwnedTag> tags = doc_.copyTags(header_);
        tags.push_back({9, "$" + key});
        tags.push_back({d->code, std::to_string(d->value)});
        doc_.replace(header_, std::move(tags));
        indexHeader();
    }
    const auto tags = headerVar("$" + key);
    if (!tags || tags->size() < 2) return DbStatus::KeyNotFound;
    const int code = (*tags)[1].code;
    std::vector<OwnedTag> values;
    if (startsPoint(code)) {
        if (value.restype != ardo::RTPOINT && value.restype != ardo::RT3DPOINT) return DbStatus::InvalidInput;
        for (std::size_t i = 1; i < tags->size(); ++i)
            values.push_back({(*tags)[i].code, doubleToText(value.point[i - 1])});
    } else if (valueKind(code) == ValueKind::Double) {
        if (value.restype != ardo::RTREAL && value.restype != ardo::RTANG && !isInteger(value)) return DbStatus::InvalidInput;
        values.push_back({code, doubleToText(isInteger(value) ? static_cast<double>(value.integer) : value.real)});
    } else if (valueKind(code) == ValueKind::String || valueKind(code) == ValueKind::Handle) {
        if (value.restype != ardo::RTSTR) return DbStatus::InvalidInput;
        values.push_back({code, fileText(text)});
    } else {
        if (!isInteger(value)) return DbStatus::InvalidInput;
        values.push_back({code, std::to_string(value.integer)});
    }
    setHeaderVar("$" + key, std::move(values));
    return DbStatus::Ok;
}

DbStatus Drawing::storeCurrentColor(const ResBuf& value) {
    std::variant<long long, std::string, std::monostate> color = std::monostate{};
    if (isInteger(value) && value.integer >= kByBlock && value.integer <= kByLayer) color = value.integer;
    if (value.restype == ardo::RTSTR) color = currentColorOf(value.text);
    if (std::holds_alternative<std::monostate>(color)) return DbStatus::InvalidInput;
    if (const auto* text = std::get_if<std::string>(&color)) {
        currentColorBeyondIndex_ = *text;
        return DbStatus::Ok;
    }
    const auto tags = headerVar("$CECOLOR");
    if (!tags || tags->size() < 2) return DbStatus::KeyNotFound;
    setHeaderVar("$CECOLOR", {{(*tags)[1].code, std::to_string(std::get<long long>(color))}});
    currentColorBeyondIndex_.clear();
    return DbStatus::Ok;
}

std::vector<EntityTag> Drawing::currentColorTags() const {
    const auto current = getVar("CECOLOR");
    if (!current) return {};
    const auto color = currentColorOf(current->text);
    if (const auto* index = std::get_if<long long>(&color))
        return *index == kByLayer ? std::vector<EntityTag>{} : std::vector<EntityTag>{{62, std::to_string(*index)}};
    const auto* text = std::get_if<std::string>(&color);
    if (!text) return {};
    if (!text->starts_with("RGB:")) return {{430, *text}};
    int rgb = 0;
    std::string_view parts = std::string_view(*text).substr(4);
    for (int part = 0; part < 3; ++part) {
        const auto comma = parts.find(',');
        rgb = rgb * 256 + static_cast<int>(toIntegerWithin(parts.substr(0, comma), 0, 255).value_or(0));
        parts.remove_prefix(comma == std::string_view::npos ? parts.size() : comma + 1);
    }
    return {{420, std::to_string(rgb)}};
}

}  // namespace cadhost
