#pragma once
// A mapping file for renaming non-standard layers: one rule a line, an old layer name
// pattern and a key, separated by a tab, a semicolon or a comma. Patterns use "*" for any
// run of characters and "?" for one, without regard to case. Blank lines and lines
// beginning with "#" are skipped. The first rule that matches a layer decides.
#include <string>
#include <variant>
#include <vector>

#include "boundary/HostDrawing.h"
#include "standard/LayerAudit.h"

namespace ardo {

struct RenameRule {
    std::string pattern;
    std::string key;
};

using RenameMap = std::vector<RenameRule>;

// The rules, or a message naming the file and line that is wrong.
std::variant<RenameMap, std::string> readRenameMap(const std::string& path);
// Parses the text of a mapping file; `path` only names it in messages.
std::variant<RenameMap, std::string> parseRenameMap(const std::string& text, const std::string& path);

bool matchesLayerPattern(const std::string& pattern, const std::string& name);

// The changes are worded thus in results: the layer took another's name, or its
// entities went to an existing layer.
inline constexpr const char* kRenamedTo = "renamed to";
inline constexpr const char* kMergedInto = "merged into";

// Moves each layer no key names that a rule matches to the layer of the rule's key: into
// that layer when the drawing has it, else into a new layer made from the key's file
// half. Records each move in `changes`; with `dryRun` nothing is changed. A list that was
// merged with the drawing; it is stale afterwards. The number of layers moved.
int renameLayers(const RenameMap& map, const CentralLayerFile& merged, HostDrawing& drawing,
                 std::vector<LayerChange>& changes, bool dryRun);

}  // namespace ardo
