// The LISP input functions and ssget's interactive modes on a real drawing, with a
// stand-in for the person at the prompt: typed text or picks from a view, in order.
#include <gtest/gtest.h>

#include <cmath>
#include <deque>

#include "cadhost/app/Application.h"

namespace cadhost::test {
namespace {

using Kind = commands::InputRequest::Kind;

class ScriptedPerson final : public UserInterface {
public:
    std::string printed;
    std::deque<PromptAnswer> answers;
    std::vector<std::pair<std::string, commands::InputRequest>> asked;

    void type(std::initializer_list<const char*> lines) {
        for (const char* line : lines) answers.push_back({std::string(line), std::nullopt, {}});
    }
    void pick(ardo::Point3 p) { answers.push_back({std::nullopt, p, {}}); }

    void print(std::string_view text) override { printed += text; }
    std::optional<std::string> prompt(const std::string&) override { return std::nullopt; }
    std::optional<PromptAnswer> ask(const std::string& question, const commands::InputRequest& request) override {
        asked.emplace_back(question, request);
        if (answers.empty()) return std::nullopt;
        PromptAnswer next = answers.front();
        answers.pop_front();
        return next;
    }
    ardo::MbAnswer messageBox(const std::string&, const std::string&, ardo::MbButtons, ardo::MbIcon) override {
        return ardo::MbAnswer::Ok;
    }
    void alert(const std::string&) override {}
    void redraw() override {}
    MainWindow* mainWindow() override { return nullptr; }
    void redrawEntity(std::int64_t, int) override {}
    void updateDisplay() override {}
    std::optional<int> chooseColor(ardo::HostColor&, bool) override { return std::nullopt; }
    std::optional<int> pickEntity(const std::string&, std::int64_t&, ardo::Point3&) override { return std::nullopt; }
};

class InputFunctions : public ::testing::Test {
protected:
    ScriptedPerson person;
    Application host{person};
    Document& document = host.addDocument(Drawing(), false);

    std::string run(std::string_view source) {
        const lisp::EvalResult r = host.lisp().evaluate(source);
        return r.ok ? r.printed : "ERR:" + r.error;
    }
    std::int64_t line(const char* x0, const char* y0, const char* x1, const char* y1) {
        const auto h = document.drawing().makeEntity(
            {{0, "LINE"}, {8, "0"}, {10, x0}, {20, y0}, {30, "0"}, {11, x1}, {21, y1}, {31, "0"}});
        EXPECT_TRUE(h);
        return static_cast<std::int64_t>(h.value_or(0));
    }
    double real(std::string_view source) {
        const lisp::EvalResult r = host.lisp().evaluate(source);
        EXPECT_TRUE(r.ok && r.value.isNumber()) << source << ": " << r.error;
        return r.value.asNumber();
    }
    static std::string name(std::int64_t id) {
        char text[48];
        std::snprintf(text, sizeof text, "<Entity name: %llX>", static_cast<unsigned long long>(id));
        return text;
    }
};

TEST_F(InputFunctions, PointsTypedOrPickedAndTheLastPoint) {
    person.type({"10,20", "@3,4", "oops", "@5<90"});
    EXPECT_EQ(run("(getpoint \"\\nStart: \")"), "(10.0 20.0 0.0)");
    EXPECT_EQ(person.asked.back().first, "\nStart: ");
    EXPECT_EQ(person.asked.back().second.kind, Kind::Point);
    EXPECT_FALSE(person.asked.back().second.from);
    EXPECT_EQ(run("(getpoint '(10 20))"), "(13.0 24.0 0.0)");
    ASSERT_TRUE(person.asked.back().second.from);
    EXPECT_EQ((*person.asked.back().second.from)[0], 10.0);
    // Bad input is explained and asked again.
    EXPECT_EQ(run("(getpoint)"), "(13.0 29.0 0.0)");
    EXPECT_EQ(person.printed, "Invalid point.\n");
    EXPECT_EQ(run("(getvar \"LASTPOINT\")"), "(13.0 29.0 0.0)");

    person.pick({1.5, 2.5, 0});
    EXPECT_EQ(run("(getcorner '(0 0) \"Other corner: \")"), "(1.5 2.5 0.0)");
    EXPECT_TRUE(person.asked.back().second.rectangle);
    EXPECT_EQ(run("(getcorner)"), "ERR:too few arguments");
    EXPECT_EQ(run("(getpoint 5)"), "ERR:bad argument type: 2D/3D point 5");
    // Nobody left to answer: the expression is cancelled.
    EXPECT_EQ(run("(getpoint)"), "ERR:Function cancelled");
}

TEST_F(InputFunctions, NumbersFollowTheInitgetBits) {
    person.type({"abc", "2.5", "40000", "-3"});
    EXPECT_EQ(run("(getint)"), "-3");
    EXPECT_EQ(person.printed,
              "Requires an integer value.\nRequires an integer value.\nRequires an integer between -32768 and 32767.\n");
    person.printed.clear();
    person.type({"", "0", "-1", "7"});
    EXPECT_EQ(run("(initget 7) (getint)"), "7");
    EXPECT_EQ(person.printed, "Value must be positive and nonzero.\nValue must be positive and nonzero.\n");
    // The rules were for one call only.
    person.type({"0", ""});
    EXPECT_EQ(run("(list (getint) (getint))"), "(0 nil)");
    person.printed.clear();
    person.type({"x", "-2.5e1"});
    EXPECT_EQ(run("(getreal)"), "-25.0");
    EXPECT_EQ(person.printed, "Requires numeric value.\n");
    person.type({"0", "-1"});
    EXPECT_EQ(run("(initget 2) (getreal)"), "-1.0");
    person.type({"abc"});
    EXPECT_EQ(run("(initget 128) (getint)"), "\"abc\"");
}

TEST_F(InputFunctions, KeywordsAnswerEveryInputFunction) {
    person.type({"maybe", "n"});
    EXPECT_EQ(run("(initget \"Yes No _Ja Nein\") (getkword \"[Yes/No]: \")"), "\"Nein\"");
    EXPECT_EQ(person.printed, "Invalid option keyword.\n");
    person.type({"cl"});
    EXPECT_EQ(run("(initget \"Close Undo\") (getpoint)"), "\"Close\"");
    person.printed.clear();
    person.type({"x", "5"});
    EXPECT_EQ(run("(initget \"Close Undo\") (getpoint)"), "ERR:Function cancelled");
    EXPECT_EQ(person.printed,
              "Point or option keyword required.\nPoint or option keyword required.\n; error: Function cancelled\n");
    person.type({"u"});
    EXPECT_EQ(run("(initget 1 \"Undo\") (getint)"), "\"Undo\"");
    person.type({"", "Yes"});
    EXPECT_EQ(run("(initget 1 \"Yes No\") (getkword)"), "\"Yes\"");
    EXPECT_EQ(run("(initget 1 2)"), "ERR:bad argument type: stringp 2");
}

TEST_F(InputFunctions, DistancesAndAnglesFromNumbersOrPoints) {
    person.type({"12.5", "0,0", "3,4,12"});
    EXPECT_EQ(real("(getdist)"), 12.5);
    EXPECT_NEAR(real("(getdist)"), 13, 1e-9);
    EXPECT_EQ(person.asked.back().first, "Specify second point: ");
    EXPECT_EQ(person.asked.back().second.from, (ardo::Point3{0, 0, 0}));
    person.pick({3, 4, 12});
    EXPECT_NEAR(real("(initget 64) (getdist '(0 0 0))"), 5, 1e-9);
    person.type({"-2", "2"});
    EXPECT_EQ(real("(initget 4) (getdist)"), 2);
    EXPECT_EQ(person.printed, "Value must be positive.\n");

    person.type({"90", "45d30'", "north", "1,1", "1,0"});
    EXPECT_NEAR(real("(getangle)"), M_PI / 2, 1e-12);
    EXPECT_NEAR(real("(getorient)"), 45.5 * M_PI / 180, 1e-12);
    EXPECT_NEAR(real("(getangle)"), 1.5 * M_PI, 1e-12);
    EXPECT_NE(person.printed.find("Requires valid numeric angle or second point.\n"), std::string::npos);
    person.pick({0, -1, 0});
    EXPECT_NEAR(real("(getangle '(0 0))"), 1.5 * M_PI, 1e-12);
    person.type({"-90"});
    EXPECT_NEAR(real("(getorient)"), 1.5 * M_PI, 1e-12);
}

TEST_F(InputFunctions, StringsStopAtASpaceUnlessAsked) {
    person.type({"two words", "two words", ""});
    EXPECT_EQ(run("(getstring \"Name: \")"), "\"two\"");
    EXPECT_EQ(person.asked.back().first, "Name: ");
    EXPECT_EQ(run("(getstring T \"Name: \")"), "\"two words\"");
    EXPECT_EQ(run("(getstring)"), "\"\"");
}

TEST_F(InputFunctions, EntselPicksAtATypedPointOrTakesTheViewsPick) {
    const auto a = line("0", "0", "100", "0");
    const auto b = line("0", "50", "100", "50");
    person.type({"50,0.2", "50,25", "junk", ""});
    EXPECT_EQ(run("(entsel)"), "(" + name(a) + " (50.0 0.2 0.0))");
    EXPECT_EQ(person.asked.back().first, "\nSelect object: ");
    EXPECT_EQ(person.asked.back().second.kind, Kind::Objects);
    EXPECT_EQ(run("(entsel \"Pick: \")"), "nil");   // a miss
    EXPECT_EQ(run("(entsel)"), "nil");
    EXPECT_EQ(person.printed, "*Invalid selection*\nExpects a point or Last\n");
    person.answers.push_back({std::nullopt, ardo::Point3{7, 50, 0}, {b}});
    EXPECT_EQ(run("(cadr (nentsel))"), "(7.0 50.0 0.0)");
    person.type({"L"});
    EXPECT_EQ(run("(eq (car (entsel)) (entlast))"), "T");
    person.type({"Undo"});
    EXPECT_EQ(run("(initget \"Undo\") (entsel)"), "\"Undo\"");
}

TEST_F(InputFunctions, InteractiveSsgetUsesTheSelectObjectsPrompt) {
    const auto a = line("0", "0", "100", "0");
    const auto b = line("0", "50", "100", "50");
    line("200", "0", "200", "50");
    person.type({"W", "-1,-1", "101,1", "0,50", "0,50", ""});
    EXPECT_EQ(run("(sslength (ssget))"), "2");
    EXPECT_EQ(person.printed, "1 found, 1 total\n1 found, 2 total\n1 found (1 duplicate), 2 total\n");
    EXPECT_EQ(person.asked[1].first, "Specify first corner: ");
    EXPECT_EQ(person.asked[2].first, "Specify opposite corner: ");
    EXPECT_TRUE(person.asked[2].second.rectangle);
    // A miss opens a window; from right to left it crosses.
    person.type({"150,60", "50,-10", ""});
    EXPECT_EQ(run("(sslength (ssget))"), "2");
    person.type({"150,60", "250,-10", ""});
    EXPECT_EQ(run("(sslength (ssget))"), "1");
    // A single pick ends at once; entities from a view count as picked.
    person.answers.push_back({std::nullopt, std::nullopt, {b}});
    EXPECT_EQ(run("(ssname (ssget \"_:S\") 0)"), name(b));
    EXPECT_TRUE(person.answers.empty());
    person.type({"F", "50,-5", "50,55", "", "R", "50,0", ""});
    EXPECT_EQ(run("(setq s (ssget)) (sslength s)"), "1");
    EXPECT_EQ(run("(ssname s 0)"), name(b));
    EXPECT_EQ(run("(ssmemb (ssname (ssget \"W\" '(-1 -1) '(101 1)) 0) s)"), "nil");
    EXPECT_EQ(run("(ssname (ssget \"W\" '(-1 -1) '(101 1)) 0)"), name(a));
    // Geometric modes need nobody.
    EXPECT_EQ(run("(sslength (ssget \"C\" '(-1 -1) '(1 51)))"), "2");
    EXPECT_EQ(run("(sslength (ssget \"WP\" '((-1 -1) (300 -1) (300 1) (-1 1))))"), "1");
    EXPECT_EQ(run("(sslength (ssget \"F\" '((199 25) (201 25))))"), "1");
    EXPECT_EQ(run("(ssget '(150 25))"), "nil");
    person.type({"nonsense", ""});
    EXPECT_EQ(run("(ssget)"), "nil");
    EXPECT_NE(person.printed.find("*Invalid selection*"), std::string::npos);
}

}  // namespace
}  // namespace cadhost::test
