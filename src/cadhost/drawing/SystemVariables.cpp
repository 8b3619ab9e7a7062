// System variables: the drawing's header where DXF keeps them, the rest in memory.
#include <chrono>
#include <ctime>

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

std::optional<ResBuf> Drawing::getVar(std::string_view name) const {
    const std::string key = foldName(name);
    if (key == "CDATE") return ResBuf::realNum(currentDate());
    if (key == "PROGRAM") return ResBuf::str("ardo-cad");
    if (key == "DWGNAME") return ResBuf::str(fileNameOf(path_));
    if (key == "DWGPREFIX") return ResBuf::str(directoryOf(path_));
    if (key == "CMDECHO") return ResBuf::shortInt(cmdEcho_);
    if (key == "FILEDIA") return ResBuf::shortInt(fileDia_);
    if (key == "CMDACTIVE") return ResBuf::shortInt(cmdActive_);
    if (key == "LWUNITS") return ResBuf::shortInt(lwUnits_);
    if (key == "LWDEFAULT") return ResBuf::shortInt(lwDefault_);
    if (key == "LASTPOINT") return ResBuf::point3(lastPoint_);
    const auto tags = headerVar("$" + key);
    if (!tags || tags->size() < 2) {
        // Defaults of variables older formats do not keep.
        if (key == "CLAYER") return ResBuf::str("0");
        if (key == "TILEMODE") return ResBuf::shortInt(1);
        if (key == "LWDISPLAY") return ResBuf::shortInt(0);
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
    if (status == DbStatus::Ok) announce([&](DrawingListener& l) { l.variableChanged(foldName(name)); });
    return status;
}

DbStatus Drawing::storeVar(std::string_view name, const ResBuf& value) {
    const std::string key = foldName(name);
    if (key == "CDATE" || key == "PROGRAM" || key == "DWGNAME" || key == "DWGPREFIX" || key == "CMDACTIVE")
        return DbStatus::InvalidInput;
    int* memory = key == "CMDECHO" ? &cmdEcho_ : key == "FILEDIA" ? &fileDia_ : key == "LWUNITS" ? &lwUnits_
                  : key == "LWDEFAULT" ? &lwDefault_ : nullptr;
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
    std::string text = value.text;
    if (key == "CLAYER") {
        const auto layer = value.restype == ardo::RTSTR ? findLayer(value.text) : std::nullopt;
        if (!layer) return DbStatus::InvalidInput;
        // The layer's own spelling, whatever case was typed, as the common hosts keep it.
        text = layer->name;
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

}  // namespace cadhost
