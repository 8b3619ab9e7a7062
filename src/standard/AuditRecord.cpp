#include "standard/AuditRecord.h"

#include <sstream>
#include <vector>

namespace ardo {

namespace {

void appendEscaped(std::string& out, const std::string& value) {
    for (char c : value) {
        switch (c) {
            case '\\': out += "\\\\"; break;
            case '\t': out += "\\t"; break;
            case '\n': out += "\\n"; break;
            case '\r': out += "\\r"; break;
            default: out += c;
        }
    }
}

void appendLine(std::string& out, const char* item, std::initializer_list<const std::string*> fields) {
    out += item;
    for (const std::string* f : fields) {
        out += '\t';
        appendEscaped(out, *f);
    }
    out += '\n';
}

std::vector<std::string> splitFields(const std::string& line) {
    std::vector<std::string> fields(1);
    for (size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (c == '\t') {
            fields.emplace_back();
        } else if (c == '\\' && i + 1 < line.size()) {
            const char n = line[++i];
            fields.back() += n == 't' ? '\t' : n == 'n' ? '\n' : n == 'r' ? '\r' : n;
        } else {
            fields.back() += c;
        }
    }
    return fields;
}

}  // namespace

std::string writeAuditRecord(const DrawingAudit& audit) {
    std::string out;
    for (const LayerDeviation& d : audit.deviations) {
        const std::string property = propertyName(d.property);
        appendLine(out, "deviation", {&d.key, &d.layer, &property, &d.fileValue, &d.drawingValue, &d.fileRgb,
                                      &d.drawingRgb});
    }
    for (const UnnamedLayer& u : audit.unnamed) appendLine(out, "unnamed", {&u.layer, &u.hintKey, &u.hintName});
    for (const MissingKey& m : audit.missing) appendLine(out, "missing", {&m.key, &m.layer});
    for (const LayerChange& c : audit.changes) appendLine(out, "change", {&c.layer, &c.what, &c.from, &c.to, &c.failure});
    return out;
}

std::optional<DrawingAudit> readAuditRecord(const std::string& record) {
    DrawingAudit audit;
    std::istringstream in(record);
    std::string line;
    while (std::getline(in, line)) {
        if (line.empty()) continue;
        std::vector<std::string> f = splitFields(line);
        const std::string& item = f[0];
        if (item == "deviation" && f.size() == 8) {
            const auto property = propertyOfName(f[3]);
            if (!property) return std::nullopt;
            audit.deviations.push_back({f[1], f[2], *property, f[4], f[5], f[6], f[7]});
        } else if (item == "unnamed" && f.size() == 4) {
            audit.unnamed.push_back({f[1], f[2], f[3]});
        } else if (item == "missing" && f.size() == 3) {
            audit.missing.push_back({f[1], f[2]});
        } else if (item == "change" && f.size() == 6) {
            audit.changes.push_back({f[1], f[2], f[3], f[4], f[5]});
        } else {
            return std::nullopt;
        }
    }
    return audit;
}

}  // namespace ardo
