// The boundary's calls for the person at the host, on the console: colours are typed,
// redraws are checked and then shown by nobody, and there is no view to pick in.
#include <deque>

#include "AppTestSupport.h"

namespace cadhost::test {
namespace {

class Interaction : public HostTest {
protected:
    std::deque<std::string> typed;
    std::vector<std::string> asked;

    void answerWith(std::deque<std::string> lines) {
        typed = std::move(lines);
        ui.setReader([this](const std::string& question) -> std::optional<std::string> {
            asked.push_back(question);
            if (typed.empty()) return std::nullopt;
            std::string line = typed.front();
            typed.pop_front();
            return line;
        });
    }
};

TEST_F(Interaction, ColourDialogOnTheConsoleTakesTypedColours) {
    ardo::HostColor color = ardo::HostColor::fromIndex(3);
    answerWith({"red"});
    EXPECT_EQ(host.colorDialog(color, true), ardo::RTNORM);
    EXPECT_EQ(color, ardo::HostColor::fromIndex(1));

    answerWith({"255,128,0"});
    EXPECT_EQ(host.colorDialog(color, false), ardo::RTNORM);
    EXPECT_EQ(color, ardo::HostColor::fromRgb(255, 128, 0));

    // Enter keeps the colour; the end of input cancels and keeps it too.
    answerWith({""});
    EXPECT_EQ(host.colorDialog(color, true), ardo::RTNORM);
    EXPECT_EQ(color, ardo::HostColor::fromRgb(255, 128, 0));
    answerWith({});
    EXPECT_EQ(host.colorDialog(color, true), ardo::RTCAN);
    EXPECT_EQ(color, ardo::HostColor::fromRgb(255, 128, 0));
}

TEST_F(Interaction, ColourDialogAsksAgainForWhatItCannotTake) {
    ardo::HostColor color = ardo::HostColor::fromIndex(3);
    answerWith({"mauve", "bylayer", "256", "7"});
    EXPECT_EQ(host.colorDialog(color, false), ardo::RTNORM);
    EXPECT_EQ(color, ardo::HostColor::fromIndex(7));
    ASSERT_EQ(asked.size(), 4u);
    EXPECT_EQ(asked.front(), "Enter a color name or number (1-255): ");
    EXPECT_EQ(output, "Invalid color.\nInvalid color.\nInvalid color.\n");

    answerWith({"bylayer"});
    EXPECT_EQ(host.colorDialog(color, true), ardo::RTNORM);
    EXPECT_EQ(color, ardo::HostColor::byLayer());
}

TEST_F(Interaction, RedrawTakesOnlyEntitiesOfTheDrawingAndTheFourModes) {
    const auto line = first.drawing().makeEntity(
        {{0, "LINE"}, {8, "0"}, {10, "0"}, {20, "0"}, {30, "0"}, {11, "1"}, {21, "1"}, {31, "0"}});
    ASSERT_TRUE(line);
    const auto id = static_cast<std::int64_t>(*line);
    for (int mode = 1; mode <= 4; ++mode) EXPECT_EQ(host.redraw(id, mode), ardo::RTNORM) << mode;
    EXPECT_EQ(host.redraw(id, 0), ardo::RTERROR);
    EXPECT_EQ(host.redraw(id, 5), ardo::RTERROR);
    EXPECT_EQ(host.redraw(id + 1000, 3), ardo::RTERROR);
    EXPECT_EQ(host.mainWindow(), nullptr);
}

TEST_F(Interaction, NothingToPickInOnTheConsole) {
    std::int64_t entity = 0;
    ardo::Point3 point{};
    EXPECT_EQ(host.entSel("\nSelect object: ", entity, point), ardo::RTERROR);
}

TEST_F(Interaction, PromptsThatTakePicksGetTypedTextOnTheConsole) {
    commands::InputRequest point;
    point.kind = commands::InputRequest::Kind::Point;
    answerWith({"10,20"});
    const auto answer = ui.ask("Specify first point: ", point);
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->text, "10,20");
    EXPECT_FALSE(answer->point);
    EXPECT_TRUE(answer->entities.empty());
    EXPECT_FALSE(ui.ask("Specify next point: ", point));
    EXPECT_EQ(asked, (std::vector<std::string>{"Specify first point: ", "Specify next point: "}));
}

}  // namespace
}  // namespace cadhost::test
