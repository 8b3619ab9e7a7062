#pragma once
// Edits of a record's own tags that leave everything else in place: extended data (from
// the first 1001) and application groups (102 "{..." to "}") are never touched.
#include <string>
#include <vector>

#include "cadhost/dxf/DxfTag.h"

namespace cadhost {

// Index of the first extended-data tag, or the size when there is none.
std::size_t ownTagsEnd(const std::vector<OwnedTag>& tags);
// Sets the first own tag with `code` to `value`; appends it at the end of the own tags
// when there is none.
void setTag(std::vector<OwnedTag>& tags, int code, std::string value);
// Removes every own tag with `code`.
void removeTags(std::vector<OwnedTag>& tags, int code);
// Inserts tags at the end of the own tags (before extended data).
void appendOwnTags(std::vector<OwnedTag>& tags, const std::vector<OwnedTag>& more);

}  // namespace cadhost
