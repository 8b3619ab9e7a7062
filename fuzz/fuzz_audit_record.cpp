// The records workers hand to the parent and the rename mapping files: any bytes parse
// without fault; a record that parses writes back to text that parses to the same audit.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "standard/AuditRecord.h"
#include "standard/RenameMap.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    if (const auto audit = ardo::readAuditRecord(text)) {
        if (ardo::readAuditRecord(ardo::writeAuditRecord(*audit)) != audit) std::abort();
    }
    const auto parsed = ardo::parseRenameMap(text, "fuzz");
    if (const auto* map = std::get_if<ardo::RenameMap>(&parsed)) {
        for (const ardo::RenameRule& rule : *map) ardo::matchesLayerPattern(rule.pattern, text.substr(0, 64));
    }
    return 0;
}
