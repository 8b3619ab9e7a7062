// MTEXT at the command line: a box from two corners (or a width), height, rotation and
// attachment, then plain lines of text until an empty line.
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/DraftingCommands.h"
#include "cadhost/commands/NewEntity.h"
#include "cadhost/commands/TextSettings.h"

namespace cadhost::commands {

namespace {

// Plain text as MTEXT content: backslashes and braces would start formatting codes.
std::string mtextContent(const std::vector<std::string>& lines) {
    std::string content;
    for (const std::string& line : lines) {
        if (!content.empty()) content += "\\P";
        for (const char c : line) {
            if (c == '\\' || c == '{' || c == '}') content += '\\';
            content += c;
        }
    }
    return content;
}

// Content longer than one group goes in 250-byte pieces (group 3) before the last (group 1),
// cut between UTF-8 characters.
void appendContent(std::vector<EntityTag>& data, const std::string& content) {
    constexpr std::size_t kPiece = 250;
    std::size_t at = 0;
    while (content.size() - at > kPiece) {
        std::size_t cut = at + kPiece;
        while (cut > at && (static_cast<unsigned char>(content[cut]) & 0xC0) == 0x80) --cut;
        data.push_back({3, content.substr(at, cut - at)});
        at = cut;
    }
    data.push_back({1, content.substr(at)});
}

class MtextCommand final : public Command {
public:
    explicit MtextCommand(Context& context)
        : context_(context), drawing_(*context.drawing), height_(currentTextHeight(drawing_)) {}

    Step start() override {
        context_.echo(currentTextSettings(drawing_) + "\n");
        return Step::More;
    }

    std::string prompt() const override {
        switch (stage_) {
            case Stage::First: return "Specify first corner: ";
            case Stage::Opposite: return "Specify opposite corner or [Height/Justify/Rotation/Width]: ";
            case Stage::Height: return "Specify height <" + shownLength(height_) + ">: ";
            case Stage::Justify:
                return "Enter justification [TL/TC/TR/ML/MC/MR/BL/BC/BR] <" +
                       std::string(kBoxJustifications[attachment_]) + ">: ";
            case Stage::Rotation: return "Specify rotation angle <" + shownLength(rotation_ * 180 / M_PI) + ">: ";
            case Stage::Width: return "Specify width: ";
            case Stage::Text: return "Enter text: ";
        }
        return {};
    }
    InputRequest request() const override {
        if (stage_ == Stage::Justify || stage_ == Stage::Text) return {};
        return pointRequest(first_, stage_ == Stage::Opposite);
    }

    Step take(const ardo::ResBuf& input) override {
        switch (stage_) {
            case Stage::First:
                first_ = pointInput(drawing_, input);
                if (!first_) return askAgain(context_, kInvalidPoint);
                return next(Stage::Opposite);
            case Stage::Opposite: {
                if (const auto keyword = matchKeyword(input, {"Height", "Justify", "Rotation", "Width"}))
                    return next(std::array{Stage::Height, Stage::Justify, Stage::Rotation, Stage::Width}[*keyword]);
                const auto p = pointInput(drawing_, input);
                if (!p) return askAgain(context_, kPointOrKeyword);
                placeBox(*p);
                return next(Stage::Text);
            }
            case Stage::Height:
                if (!takeTextHeight(context_, input, *first_, height_)) return Step::More;
                return next(Stage::Opposite);
            case Stage::Justify:
                if (!isEnter(input)) {
                    const auto chosen =
                        matchKeyword(input, std::vector<std::string_view>(kBoxJustifications.begin(), kBoxJustifications.end()));
                    if (!chosen) return askAgain(context_, kInvalidKeyword);
                    attachment_ = *chosen;
                }
                return next(Stage::Opposite);
            case Stage::Rotation:
                if (!takeTextRotation(context_, input, *first_, rotation_)) return Step::More;
                return next(Stage::Opposite);
            case Stage::Width: {
                const auto width = distanceInput(drawing_, input, *first_);
                if (!width || *width < 0)
                    return askAgain(context_, width ? "Value must be positive or zero.\n"
                                          : "Requires numeric distance or second point.\n");
                // With a width the first corner is the insertion point itself.
                insertion_ = *first_;
                width_ = *width;
                return next(Stage::Text);
            }
            case Stage::Text:
                if (isEnter(input)) return finish();
                lines_.push_back(inputText(input));
                return Step::More;
        }
        return Step::Refused;
    }

private:
    enum class Stage { First, Opposite, Height, Justify, Rotation, Width, Text };

    Step next(Stage stage) {
        stage_ = stage;
        return Step::More;
    }

    // The box's corners in the text's own directions; the attachment picks the insertion
    // point on its edges.
    void placeBox(const ardo::Point3& opposite) {
        const double c = std::cos(rotation_), s = std::sin(rotation_);
        const double dx = opposite[0] - (*first_)[0], dy = opposite[1] - (*first_)[1];
        const double u = dx * c + dy * s, v = -dx * s + dy * c;
        const double column = static_cast<double>(attachment_ % 3) / 2;   // 0 left, 0.5 centre, 1 right
        const double row = static_cast<double>(attachment_ / 3) / 2;      // 0 top, 0.5 middle, 1 bottom
        const double x = std::min(0.0, u) + column * std::abs(u);
        const double y = std::max(0.0, v) - row * std::abs(v);
        insertion_ = {(*first_)[0] + x * c - y * s, (*first_)[1] + x * s + y * c, (*first_)[2]};
        width_ = std::abs(u);
    }

    Step finish() {
        if (lines_.empty()) return Step::Done;   // no text, nothing drawn
        std::vector<EntityTag> data;
        appendPoint(data, 10, insertion_);
        data.push_back({40, dxfNumber(height_)});
        data.push_back({41, dxfNumber(width_)});
        data.push_back({71, std::to_string(attachment_ + 1)});
        data.push_back({72, "1"});   // left to right
        appendContent(data, mtextContent(lines_));
        data.push_back({7, currentTextStyle(drawing_)});
        // The direction of the text's x axis says the rotation without doubt about units.
        appendPoint(data, 11, {std::cos(rotation_), std::sin(rotation_), 0});
        return finishWith(context_, "MTEXT", "AcDbMText", std::move(data), "The text");
    }

    Context& context_;
    Drawing& drawing_;
    Stage stage_ = Stage::First;
    std::optional<ardo::Point3> first_;
    ardo::Point3 insertion_{};
    double height_;
    double width_ = 0;
    double rotation_ = 0;
    std::size_t attachment_ = 0;
    std::vector<std::string> lines_;
};

}  // namespace

std::unique_ptr<Command> makeMtextCommand(Context& context) { return std::make_unique<MtextCommand>(context); }

}  // namespace cadhost::commands
