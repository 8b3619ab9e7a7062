#pragma once
// The dash patterns of a drawing's linetypes, as the view draws them.
#include <optional>
#include <string>
#include <vector>

namespace cadhost {

class Drawing;

namespace geometry {

// A linetype's pattern in drawing units, one length per element: dashes positive, gaps
// negative, dots 0 (text and shape elements keep only their length). Empty for a linetype
// without elements (Continuous); nothing for a name the drawing lacks.
std::optional<std::vector<double>> linetypePattern(const Drawing& drawing, const std::string& name);

}  // namespace geometry
}  // namespace cadhost
