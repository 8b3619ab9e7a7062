#include "cadhost/commands/TextSettings.h"

namespace cadhost::commands {

std::string currentTextStyle(const Drawing& drawing) {
    const auto style = drawing.getVar("TEXTSTYLE");
    return style && !style->text.empty() ? style->text : "Standard";
}

double currentTextHeight(const Drawing& drawing) {
    const auto size = drawing.getVar("TEXTSIZE");
    return size && size->restype == ardo::RTREAL && size->real > 0 ? size->real : 2.5;
}

void rememberTextHeight(Drawing& drawing, double height) {
    // Drawings without the variable in their header keep the default.
    (void)drawing.setVar("TEXTSIZE", ardo::ResBuf::realNum(height));
}

}  // namespace cadhost::commands
