// U, UNDO and REDO at the command line: every command and every expression typed is one
// step, and taking steps back restores the saved file byte for byte.
#include <map>

#include "AppTestSupport.h"

#include "cadhost/app/CommandLine.h"
#include "cadhost/drawing/DrawingListener.h"

namespace cadhost::test {
namespace {

Drawing openData(const std::string& name) {
    auto opened = Drawing::open(std::string(ARDO_TEST_DATA) + "/" + name);
    EXPECT_TRUE(opened) << opened.error();
    return opened ? std::move(opened).value() : Drawing();
}

class UndoInput : public HostTest {
protected:
    Document& doc = host.addDocument(openData("commands/layout_viewports.dxf"), true);
    CommandLine line{host};

    std::string saved() { return doc.drawing().toDxf(); }
    void enter(std::initializer_list<const char*> lines) {
        for (const char* l : lines) line.enter(l);
    }
    // How many entities of the type the test added (the fixture has some of its own).
    std::size_t count(const std::string& type) { return all(type) - fixtureCount(type); }
    std::size_t all(const std::string& type) {
        std::size_t n = 0;
        doc.drawing().forEachEntity([&](const EntityInfo& e) { return n += e.type == type, true; });
        return n;
    }
    std::size_t fixtureCount(const std::string& type) {
        auto [it, fresh] = fixtureCounts.try_emplace(type, 0);
        if (fresh) {
            const auto d = openData("commands/layout_viewports.dxf");
            d.forEachEntity([&, &n = it->second](const EntityInfo& e) { return n += e.type == type, true; });
        }
        return it->second;
    }
    std::map<std::string, std::size_t> fixtureCounts;
};

TEST_F(UndoInput, EachCommandAndExpressionIsOneStepThatUTakesBackToTheSameBytes) {
    enter({"(setvar \"CMDECHO\" 0)"});
    std::vector<std::string> states{saved()};
    enter({"LINE", "0,0", "10,0", "10,5", ""});
    states.push_back(saved());
    enter({"(command \"_.CIRCLE\" '(5 5) 2)"});
    states.push_back(saved());
    // Two changes in one expression, one of them a header variable.
    enter({"(progn (entmake '((0 . \"LINE\") (10 0 0) (11 1 1))) (setvar \"CLAYER\" \"Wand\"))"});
    states.push_back(saved());
    enter({"-LAYER", "_COLOR", "3", "Dach", "_NEW", "Neu", ""});
    states.push_back(saved());
    enter({"(entdel (entlast))"});
    ASSERT_EQ(count("LINE"), 2u);
    states.push_back(saved());
    for (std::size_t i = states.size() - 1; i-- > 0;) {
        line.enter("U");
        ASSERT_EQ(saved(), states[i]) << "after undoing step " << i + 1;
    }
    EXPECT_FALSE(doc.drawing().findLayer("Neu"));
    EXPECT_EQ(doc.drawing().getVar("CLAYER")->text, "0");
    output.clear();
    line.enter("U");
    EXPECT_EQ(output, "Everything has been undone\n");
    EXPECT_EQ(saved(), states[0]);
    // Each REDO makes again what one U took back, the last first.
    for (std::size_t i = 1; i < states.size(); ++i) {
        line.enter("REDO");
        ASSERT_EQ(saved(), states[i]) << "after redoing step " << i;
    }
    output.clear();
    line.enter("REDO");
    EXPECT_EQ(output, "Previous command did not undo things.\n");
    // A change after an undo drops what was undone.
    enter({"U", "(command \"_.CIRCLE\" '(0 0) 1)"});
    output.clear();
    line.enter("REDO");
    EXPECT_EQ(output, "Previous command did not undo things.\n");
}

TEST_F(UndoInput, NumbersGroupsMarksAndBack) {
    enter({"(setvar \"CMDECHO\" 0)"});
    const std::string empty = saved();
    enter({"LINE", "0,0", "1,1", ""});
    const std::string oneLine = saved();
    enter({"UNDO", "_BEGIN"});
    enter({"(command \"_.CIRCLE\" '(0 0) 1)", "(command \"_.CIRCLE\" '(0 0) 2)", "_.UNDO _E"});
    enter({"(command \"_.CIRCLE\" '(0 0) 3)"});
    ASSERT_EQ(count("CIRCLE"), 3u);
    output.clear();
    enter({"UNDO", "2"});   // the last circle, then the group of two
    EXPECT_EQ(output, "GROUP GROUP\n");
    EXPECT_EQ(saved(), oneLine);

    enter({"UNDO", "_Mark"});
    enter({"(command \"_.CIRCLE\" '(0 0) 1)", "CIRCLE 0,0 2", "(setvar \"CLAYER\" \"Dach\")"});
    output.clear();
    enter({"UNDO", "_Back"});
    EXPECT_EQ(output, "GROUP CIRCLE GROUP\nMark encountered\n");
    EXPECT_EQ(saved(), oneLine);
    // With no mark left, BACK asks before taking back everything.
    output.clear();
    enter({"UNDO", "_B"});
    EXPECT_EQ(line.prompt(), "");
    EXPECT_EQ(count("LINE"), 1u);
    enter({""});
    EXPECT_EQ(output, "LINE\nEverything has been undone\n");
    EXPECT_EQ(saved(), empty);
}

TEST_F(UndoInput, BadAnswersAreRefusedAndThePromptComesAgain) {
    enter({"LINE", "0,0", "1,1", ""});
    output.clear();
    enter({"(setvar \"CMDECHO\" 0)"});
    output.clear();
    enter({"UNDO", "two", "-1", "1.5"});
    EXPECT_EQ(output, "Requires an integer value or option keyword.\nValue must be positive and nonzero.\n"
                      "Requires an integer value or option keyword.\n");
    EXPECT_EQ(count("LINE"), 1u);
    enter({"1"});
    EXPECT_EQ(count("LINE"), 0u);
    EXPECT_EQ(line.prompt(), "Command: ");
}

TEST_F(UndoInput, LispDrivesUndoAndChangesOutsideTheCommandLineAreAStepOfTheirOwn) {
    const std::string before = saved();
    enter({"(command \"_.CIRCLE\" '(0 0) 1)"});
    enter({"(command \"_.UNDO\" 1)"});
    EXPECT_EQ(saved(), before);
    enter({"(command \"_.REDO\")"});
    EXPECT_EQ(count("CIRCLE"), 1u);
    const std::string withCircle = saved();
    // A module changes a layer through the host's drawing interface, as its dialog does.
    ardo::LayerRecord wand = *doc.drawing().findLayer("Wand");
    wand.isLocked = true;
    wand.color = ardo::HostColor::fromIndex(6);
    ASSERT_EQ(doc.drawing().updateLayer(wand), ardo::DbStatus::Ok);
    enter({"U"});
    EXPECT_FALSE(doc.drawing().findLayer("Wand")->isLocked);
    EXPECT_EQ(saved(), withCircle);
}

struct Heard : DrawingListener {
    std::vector<std::string> events;
    void layerChanged(Change c, const std::string& layer) override { events.push_back(name(c) + " layer " + layer); }
    void entityChanged(Change c, std::uint64_t) override { events.push_back(name(c) + " entity"); }
    void variableChanged(const std::string& variable) override { events.push_back("variable " + variable); }
    static std::string name(Change c) {
        return c == Change::Created ? "created" : c == Change::Erased ? "erased" : "modified";
    }
};

TEST_F(UndoInput, ListenersHearWhatUndoAndRedoChange) {
    Heard heard;
    doc.drawing().addListener(heard);
    enter({"-LAYER", "_NEW", "Neu", "_COLOR", "2", "Wand", ""});
    enter({"(progn (command \"_.CIRCLE\" '(0 0) 1) (setvar \"CLAYER\" \"Neu\"))"});
    heard.events.clear();
    enter({"U"});
    EXPECT_EQ(heard.events, (std::vector<std::string>{"erased entity", "variable CLAYER"}));
    heard.events.clear();
    enter({"U"});
    std::sort(heard.events.begin(), heard.events.end());
    EXPECT_EQ(heard.events, (std::vector<std::string>{"erased layer Neu", "modified layer Wand"}));
    heard.events.clear();
    enter({"REDO"});
    std::sort(heard.events.begin(), heard.events.end());
    EXPECT_EQ(heard.events, (std::vector<std::string>{"created layer Neu", "modified layer Wand"}));
    doc.drawing().removeListener(heard);
}

TEST_F(UndoInput, MemoryStaysWithinTheBudgetAndTheNewestStepsStayUndoable) {
    UndoHistory& history = doc.undoHistory();
    history.setBudget(1024 * 1024);
    std::size_t most = 0;
    for (int i = 0; i < 400; ++i) {
        // A header variable replaces the whole header record: a few kilobytes a step.
        line.enter(i % 2 ? "(setvar \"CLAYER\" \"Dach\")" : "(setvar \"CLAYER\" \"Wand\")");
        most = std::max(most, history.bytes());
    }
    EXPECT_LE(most, history.budget());
    EXPECT_LT(history.steps(), 400u);
    EXPECT_GT(history.steps(), 10u);
    const std::string last = saved();
    enter({"(command \"_.CIRCLE\" '(0 0) 1)", "U"});
    EXPECT_EQ(saved(), last);
    enter({"U"});
    EXPECT_EQ(doc.drawing().getVar("CLAYER")->text, "Wand");
}

}  // namespace
}  // namespace cadhost::test
