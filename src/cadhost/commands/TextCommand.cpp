// TEXT: one line of text at a start or justification point, with height and rotation;
// Align and Fit take the baseline's two ends instead.
#include <array>
#include <vector>

#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/DraftingCommands.h"
#include "cadhost/commands/NewEntity.h"
#include "cadhost/commands/TextSettings.h"

namespace cadhost::commands {

namespace {

// A justification: its keyword, the point prompt, and its horizontal (72) and vertical (73)
// alignment groups.
struct Justification {
    std::string_view keyword;
    const char* point;
    int horizontal, vertical;
};

constexpr int kAlign = 3, kFit = 5;

constexpr std::array<Justification, 15> kJustifications{{
    {"Left", "Specify start point of text: ", 0, 0},
    {"Center", "Specify center point of text: ", 1, 0},
    {"Right", "Specify right endpoint of text baseline: ", 2, 0},
    {"Align", "Specify first endpoint of text baseline: ", kAlign, 0},
    {"Middle", "Specify middle point of text: ", 4, 0},
    {"Fit", "Specify first endpoint of text baseline: ", kFit, 0},
    {kBoxJustifications[0], "Specify top-left point of text: ", 0, 3},
    {kBoxJustifications[1], "Specify top-center point of text: ", 1, 3},
    {kBoxJustifications[2], "Specify top-right point of text: ", 2, 3},
    {kBoxJustifications[3], "Specify middle-left point of text: ", 0, 2},
    {kBoxJustifications[4], "Specify middle-center point of text: ", 1, 2},
    {kBoxJustifications[5], "Specify middle-right point of text: ", 2, 2},
    {kBoxJustifications[6], "Specify bottom-left point of text: ", 0, 1},
    {kBoxJustifications[7], "Specify bottom-center point of text: ", 1, 1},
    {kBoxJustifications[8], "Specify bottom-right point of text: ", 2, 1},
}};

class TextCommand final : public Command {
public:
    explicit TextCommand(Context& context)
        : context_(context), drawing_(*context.drawing), height_(currentTextHeight(drawing_)) {}

    Step start() override {
        context_.echo(currentTextSettings(drawing_) + "  Justify:  Left\n");
        return Step::More;
    }

    std::string prompt() const override {
        switch (stage_) {
            case Stage::Point:
                if (justification_ == 0) return "Specify start point of text or [Justify]: ";
                return kJustifications[justification_].point;
            case Stage::Justify:
                return "Enter an option [Left/Center/Right/Align/Middle/Fit/TL/TC/TR/ML/MC/MR/BL/BC/BR]: ";
            case Stage::SecondPoint: return "Specify second endpoint of text baseline: ";
            case Stage::Height: return "Specify height <" + shownLength(height_) + ">: ";
            case Stage::Rotation: return "Specify rotation angle of text <0>: ";
            case Stage::Text: return "Enter text: ";
        }
        return {};
    }
    InputRequest request() const override {
        if (stage_ == Stage::Justify || stage_ == Stage::Text) return {};
        return pointRequest(points_.empty() ? std::nullopt : std::optional(points_.front()));
    }

    Step take(const ardo::ResBuf& input) override {
        switch (stage_) {
            case Stage::Point: {
                if (justification_ == 0 && matchKeyword(input, {"Justify"})) return next(Stage::Justify);
                const auto p = pointInput(drawing_, input);
                if (!p) return askAgain(context_, justification_ == 0 ? kPointOrKeyword : kInvalidPoint);
                points_.push_back(*p);
                return next(baseline() ? Stage::SecondPoint : Stage::Height);
            }
            case Stage::Justify: {
                std::vector<std::string_view> keywords;
                for (const Justification& j : kJustifications) keywords.push_back(j.keyword);
                const auto chosen = matchKeyword(input, keywords);
                if (!chosen) return askAgain(context_, kInvalidKeyword);
                justification_ = *chosen;
                return next(Stage::Point);
            }
            case Stage::SecondPoint: {
                const auto p = pointInput(drawing_, input);
                if (!p) return askAgain(context_, kInvalidPoint);
                if (distanceBetween(points_.front(), *p, true) == 0)
                    return askAgain(context_, "The baseline needs two different points.\n");
                points_.push_back(*p);
                rotation_ = angleBetween(points_[0], points_[1]);
                return next(kJustifications[justification_].horizontal == kAlign ? Stage::Text : Stage::Height);
            }
            case Stage::Height:
                if (!takeTextHeight(context_, input, points_.front(), height_)) return Step::More;
                return next(baseline() ? Stage::Text : Stage::Rotation);
            case Stage::Rotation:
                if (!takeTextRotation(context_, input, points_.front(), rotation_)) return Step::More;
                return next(Stage::Text);
            case Stage::Text:
                if (isEnter(input)) return Step::Done;   // no text, nothing drawn
                return finish(inputText(input));
        }
        return Step::Refused;
    }

private:
    enum class Stage { Point, Justify, SecondPoint, Height, Rotation, Text };

    bool baseline() const {
        const int h = kJustifications[justification_].horizontal;
        return h == kAlign || h == kFit;
    }
    Step next(Stage stage) {
        stage_ = stage;
        return Step::More;
    }

    Step finish(const std::string& text) {
        const Justification& j = kJustifications[justification_];
        std::vector<EntityTag> data;
        // Left-justified text has only its start point; the others are placed by their
        // alignment point, from which readers work out the start.
        appendPoint(data, 10, points_.front());
        data.push_back({40, dxfNumber(height_)});
        data.push_back({1, text});
        if (rotation_ != 0) data.push_back({50, dxfDegrees(rotation_)});
        data.push_back({7, currentTextStyle(drawing_)});
        if (j.horizontal != 0) data.push_back({72, std::to_string(j.horizontal)});
        if (j.horizontal != 0 || j.vertical != 0) appendPoint(data, 11, points_.back());
        if (hasSubclassMarkers(drawing_)) data.push_back({100, "AcDbText"});
        if (j.vertical != 0) data.push_back({73, std::to_string(j.vertical)});
        return finishWith(context_, "TEXT", "AcDbText", std::move(data), "The text");
    }

    Context& context_;
    Drawing& drawing_;
    Stage stage_ = Stage::Point;
    std::size_t justification_ = 0;
    std::vector<ardo::Point3> points_;
    double height_;
    double rotation_ = 0;
};

}  // namespace

std::unique_ptr<Command> makeTextCommand(Context& context) { return std::make_unique<TextCommand>(context); }

}  // namespace cadhost::commands
