#pragma once
// Layer names as the layer commands take them: comma lists, wildcards, the current layer.
#include <string>
#include <string_view>
#include <vector>

namespace cadhost {
class Drawing;
}

namespace cadhost::commands {

// The drawing's layers that the comma list of names and wildcards matches, in table
// order, each once; case is ignored.
std::vector<std::string> matchingLayers(const Drawing& drawing, std::string_view pattern);
// The names of a comma list, trimmed; empty items are dropped.
std::vector<std::string> splitNames(std::string_view list);
std::string currentLayer(const Drawing& drawing);
bool isCurrentLayer(const Drawing& drawing, std::string_view name);

inline constexpr const char* kNoMatchingLayer = "No matching layer names found.\n";

}  // namespace cadhost::commands
