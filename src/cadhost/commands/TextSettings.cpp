#include "cadhost/commands/TextSettings.h"

#include "cadhost/commands/ArcGeometry.h"
#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/NewEntity.h"

namespace cadhost::commands {

std::string currentTextStyle(const Drawing& drawing) {
    const auto style = drawing.getVar("TEXTSTYLE");
    return style && !style->text.empty() ? style->text : "Standard";
}

double currentTextHeight(const Drawing& drawing) {
    const auto size = drawing.getVar("TEXTSIZE");
    return size && size->restype == ardo::RTREAL && size->real > 0 ? size->real : 2.5;
}

std::string currentTextSettings(const Drawing& drawing) {
    return "Current text style:  \"" + currentTextStyle(drawing) + "\"  Text height:  " +
           shownLength(currentTextHeight(drawing));
}

bool takeTextHeight(const Context& context, const ardo::ResBuf& input, const ardo::Point3& base, double& height) {
    if (isEnter(input)) return true;
    const auto typed = distanceInput(*context.drawing, input, base);
    if (!typed || *typed <= 0) {
        askAgain(context, typed ? "Value must be positive and nonzero.\n" : "Requires numeric distance or second point.\n");
        return false;
    }
    height = *typed;
    // Drawings without the variable in their header keep the default.
    (void)context.drawing->setVar("TEXTSIZE", ardo::ResBuf::realNum(height));
    return true;
}

bool takeTextRotation(const Context& context, const ardo::ResBuf& input, const ardo::Point3& base, double& rotation) {
    if (isEnter(input)) return true;
    const auto angle = angleInput(*context.drawing, input, base);
    if (!angle) {
        askAgain(context, "Requires valid numeric angle or second point.\n");
        return false;
    }
    rotation = normalAngle(*angle);
    return true;
}

}  // namespace cadhost::commands
