#pragma once
// One DXF tag: a group code and its value text, as it stands in the file (file encoding).
#include <cstdint>
#include <string>
#include <string_view>

namespace cadhost {

// A tag of a parsed file; the value views the document's bytes, so it lives as long as the
// document and is never copied while loading.
struct DxfTag {
    std::string_view value;
    int code = 0;
    std::uint32_t line = 0;   // line of the group code in the file; 0 for tags made later
};

// A tag the host made or changed; it owns its value (file encoding).
struct OwnedTag {
    int code = 0;
    std::string value;
    bool operator==(const OwnedTag&) const = default;
};

}  // namespace cadhost
