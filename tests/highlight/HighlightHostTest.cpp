// kemb_Highlight in the CAD host with the real module on a copy of the example installation:
// the prompt answered as a user answers it, the frames read back from the saved drawing by
// ezdxf, and the blink watched in the host's window.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <deque>
#include <fstream>
#include <optional>

#include "cadhost/app/Application.h"
#include "cadhost/app/ConsoleInterface.h"
#include "cadhost/gui/CadWindow.h"
#include "cadhost/gui/CommandDock.h"
#include "cadhost/gui/DrawingView.h"
#include "dialog/GuiApplication.h"
#include "e2e/E2eSupport.h"
#include "support/Ezdxf.h"

namespace ardo::e2e {
namespace {

using cadhost::gui::Look;

// The example drawing with one hatch added, saved where the test works.
fs::path drawingWithHatch(const Installation& install) {
    auto drawing = cadhost::Drawing::open(officeDrawing().string());
    EXPECT_TRUE(drawing);
    std::vector<cadhost::EntityTag> hatch{{0, "HATCH"}, {100, "AcDbEntity"}, {8, "0"}, {100, "AcDbHatch"},
                                          {10, "0"},    {20, "0"},           {30, "0"}, {2, "SOLID"},
                                          {70, "1"},    {71, "0"},           {91, "0"}, {75, "0"},
                                          {76, "1"},    {98, "0"}};
    EXPECT_TRUE(drawing->makeEntity(hatch));
    const fs::path path = install.scratch("office-hatch.dxf");
    EXPECT_TRUE(drawing->save(path.string()));
    return path;
}

// Writes the highlight options every new user of the installation starts with.
void startingOptions(const Installation& install, const std::string& keys) {
    std::ofstream(install.file("DefaultIni/ArdoHighlight.ini"), std::ios::binary) << "[HIGHLIGHTING]\r\n" << keys;
}

// The application with the module loaded, in the console: prompts and boxes take the
// scripted answers in order, and nothing answers once they are used up (a cancel).
class HighlightInConsole : public ::testing::Test {
protected:
    void SetUp() override {
        ui.setReader([this](const std::string& question) -> std::optional<std::string> {
            questions.push_back(question);
            if (answers.empty()) return std::nullopt;
            std::string a = answers.front();
            answers.pop_front();
            return a;
        });
        app.setSupportPath({install.folder()});
    }
    void start(const std::string& options = "") {
        startingOptions(install, options);
        ASSERT_TRUE(app.openDocument(drawingWithHatch(install).string()));
        ASSERT_TRUE(app.modules().load(install.file("ardo.arx").string()));
        app.idle();
    }
    std::string eval(const std::string& expression) {
        const auto r = app.lisp().evaluate(expression);
        EXPECT_TRUE(r.ok) << expression << "\n" << printed;
        return r.printed;
    }
    fs::path save() {
        const fs::path path = install.scratch("saved.dxf");
        EXPECT_TRUE(app.drawing().save(path.string()));
        return path;
    }

    Installation install;
    TemporaryFolderOf temporary{install};
    std::string printed;
    std::deque<std::string> answers;
    std::vector<std::string> questions;
    cadhost::ConsoleInterface ui{[this](std::string_view t) { printed += t; }};
    cadhost::Application app{ui};
};

size_t count(const std::string& text, const std::string& part) {
    size_t n = 0;
    for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++n;
    return n;
}

TEST_F(HighlightInConsole, WrongArgumentsSaySoAndAskNothing) {
    start();
    eval("(setq ss (ssget \"X\"))");
    eval("(kemb_Highlight \"T\")");
    eval("(kemb_Highlight \"T\" 5)");
    eval("(kemb_Highlight \"T\" ss \"Eigene.ini\")");
    eval("(kemb_Highlight \"T\" ss 7 \"A\")");
    eval("(kemb_Highlight \"T\" ss \"Eigene.ini\" 7)");
    EXPECT_TRUE(questions.empty()) << questions.front();
    EXPECT_EQ(count(printed, "Falsche Anzahl von Argumenten."), 2u) << printed;
    EXPECT_EQ(count(printed, "Falscher Argumenttyp."), 3u) << printed;
}

TEST_F(HighlightInConsole, BlinkingInTheConsoleShowsThePromptWithoutComplaint) {
    start("Blinking=1\r\nBlinkTime=250\r\n");
    eval("(setq ss (ssget \"X\" '((0 . \"LINE\"))))");
    answers = {"Permanentumrahmung"};
    EXPECT_EQ(eval("(kemb_Highlight \"T\" ss)"), "") << "the function returns nothing";
    ASSERT_EQ(questions.size(), 2u) << "the loop goes on after the frames, a cancel ends it: " << printed;
    EXPECT_EQ(questions[0], "\nReturn oder [Optionen/Permanentumrahmung/Auswahlsatz/Löschen/Hilfe]: ");
    EXPECT_EQ(printed.find("error"), std::string::npos) << printed;
    EXPECT_EQ(eval("(sslength (ssget \"X\" '((0 . \"LWPOLYLINE\") (90 . 8))))"), eval("(sslength ss)"));
    // The options go back to the user's own file (not a default copy), the period as the
    // clamped load made it.
    std::string saved;
    for (const auto& entry : fs::recursive_directory_iterator(install.folder() / "Benutzer"))
        if (entry.path().filename() == "ArdoHighlight.ini" && entry.path().parent_path().filename() != "DefaultIni") {
            std::ifstream in(entry.path(), std::ios::binary);
            saved.assign(std::istreambuf_iterator<char>(in), {});
        }
    EXPECT_NE(saved.find("Blinking=1"), std::string::npos) << saved;
    EXPECT_NE(saved.find("BlinkTime=333"), std::string::npos) << saved;
}

TEST_F(HighlightInConsole, PermanentFramesAreCrossedBoxesInTheSavedDrawing) {
    if (!hasEzdxf()) GTEST_SKIP() << test::kNoEzdxf;
    start("Distance=2.5\r\n");
    eval("(setq ss (ssget \"X\" '((0 . \"LINE\"))))");
    const std::string lines = eval("(sslength ss)");
    answers = {"Permanentumrahmung", "x"};
    eval("(kemb_Highlight \"T\" ss)");
    const fs::path saved = save();

    const auto frames = ezdxfEval(saved, "len(d.modelspace().query('LWPOLYLINE[count==8]'))");
    ASSERT_TRUE(frames);
    EXPECT_EQ(*frames, lines + "\n") << "one frame for each line";
    // Each frame around its line: P4 P1 P3 P2 P4 P3 P2 P1, P1 the lower left corner of the
    // line's extents grown by the distance.
    const auto checked = ezdxfEval(saved, R"(all(
        [tuple(round(c, 6) for c in p) for p in f.get_points('xy')] == [
            (x1, y2), (x1, y1), (x2, y2), (x2, y1), (x1, y2), (x2, y2), (x2, y1), (x1, y1)]
        for f, l in zip(d.modelspace().query('LWPOLYLINE[count==8]'), d.modelspace().query('LINE'))
        for x1, y1, x2, y2 in [(round(min(l.dxf.start.x, l.dxf.end.x) - 2.5, 6),
                                round(min(l.dxf.start.y, l.dxf.end.y) - 2.5, 6),
                                round(max(l.dxf.start.x, l.dxf.end.x) + 2.5, 6),
                                round(max(l.dxf.start.y, l.dxf.end.y) + 2.5, 6))]))");
    ASSERT_TRUE(checked);
    EXPECT_EQ(*checked, "True\n");
}

TEST_F(HighlightInConsole, SelectionSetBecomesThePreviousSetWithItsFrames) {
    start();
    eval("(setq ss (ssget \"X\" '((0 . \"LINE\"))))");
    const std::string lines = eval("(sslength ss)");
    answers = {"P", "A", "ok"};
    eval("(kemb_Highlight \"T\" ss)");
    EXPECT_NE(printed.find("Ein Auswahlsatz bestehend aus den\n   " + lines + " aktuellen"), std::string::npos)
        << printed;
    EXPECT_NE(printed.find("deren\n   " + lines + " permanenten Umrahmungen"), std::string::npos) << printed;
    EXPECT_EQ(eval("(sslength (ssget \"P\"))"), std::to_string(2 * std::stoi(lines)))
        << "the lines and their frames are the previous set";
}

TEST_F(HighlightInConsole, AnEmptySetMakesNoReport) {
    start();
    answers = {"Auswahlsatz"};
    eval("(kemb_Highlight \"T\" (ssadd))");
    EXPECT_EQ(printed.find("Ein Auswahlsatz"), std::string::npos) << printed;
    EXPECT_EQ(questions.size(), 1u) << "the selection set ends the prompt";
}

TEST_F(HighlightInConsole, DeleteAsksFirstAndErasesEntitiesAndFrames) {
    start();
    eval("(setq ss (ssget \"X\" '((0 . \"LINE\"))))");
    answers = {"Permanentumrahmung", "Löschen", "no", "Löschen", "yes"};
    eval("(kemb_Highlight \"T\" ss)");
    EXPECT_TRUE(answers.empty());
    EXPECT_EQ(eval("(ssget \"X\" '((0 . \"LINE\")))"), "nil");
    EXPECT_EQ(eval("(ssget \"X\" '((0 . \"LWPOLYLINE\") (90 . 8)))"), "nil") << "the frames went too";
    EXPECT_NE(eval("(ssget \"X\" '((0 . \"TEXT\")))"), "nil") << "nothing else was erased";
}

// The application in the host's window; the blink is watched in the view's looks.
class HighlightInWindow : public ::testing::Test {
protected:
    void SetUp() override {
        test::guiApplication();
        window = std::make_unique<cadhost::gui::CadWindow>(install.scratch("history").string());
        app = std::make_unique<cadhost::Application>(*window);
        window->attach(*app);
        window->resize(1000, 700);
        app->setSupportPath({install.folder()});
    }
    void start(const std::string& options) {
        startingOptions(install, options);
        ASSERT_TRUE(window->openFiles({QString::fromStdString(drawingWithHatch(install).string())}));
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        window->currentView()->zoomExtents();
        ASSERT_TRUE(app->modules().load(install.file("ardo.arx").string()));
        app->idle();
    }
    void TearDown() override {
        window->detach();
        app.reset();
        window.reset();
    }
    std::vector<Look> looks(const std::vector<std::int64_t>& entities) {
        std::vector<Look> result;
        for (auto e : entities) result.push_back(window->currentView()->scene().look(static_cast<cadhost::Handle>(e)));
        return result;
    }
    std::vector<std::int64_t> handles(const std::string& filter) {
        std::vector<std::int64_t> result;
        app->drawing().forEachEntity([&](const cadhost::EntityInfo& e) {
            if (e.type == filter) result.push_back(static_cast<std::int64_t>(e.handle));
            return true;
        });
        return result;
    }
    void answer(const QString& text) {
        QLineEdit* input = window->commandDock()->input();
        QTest::keyClicks(input, text);
        QTest::keyClick(input, Qt::Key_Return);
    }
    void grab(const char* name) {
        if (const QByteArray dir = qgetenv("ARDO_GRAB_DIR"); !dir.isEmpty())
            window->grab().save(QString::fromLocal8Bit(dir) + "/" + name + ".png");
    }

    Installation install;
    TemporaryFolderOf temporary{install};
    std::unique_ptr<cadhost::gui::CadWindow> window;
    std::unique_ptr<cadhost::Application> app;
};

// Samples the looks half a period into each of the first phases, then ends the prompt.
TEST_F(HighlightInWindow, BlinkAlternatesPhasesAndLeavesNothingHighlighted) {
    start("Blinking=1\r\nBlinkTime=400\r\n");
    const auto lines = handles("LINE");
    const auto hatches = handles("HATCH");
    ASSERT_FALSE(lines.empty());
    ASSERT_EQ(hatches.size(), 1u);
    std::vector<std::vector<Look>> lineLooks, hatchLooks;
    for (int phase = 0; phase < 4; ++phase)
        QTimer::singleShot(200 + 400 * phase, [&, phase] {
            lineLooks.push_back(looks(lines));
            hatchLooks.push_back(looks(hatches));
            if (phase < 2) grab(phase == 0 ? "blink-phase-on" : "blink-phase-off");
        });
    QTimer::singleShot(200 + 400 * 4, [&] { answer("x"); });
    ASSERT_TRUE(app->lisp().evaluate("(kemb_Highlight \"T\" (ssget \"X\"))").ok);

    ASSERT_EQ(lineLooks.size(), 4u);
    const std::vector<Look> on(lines.size(), Look::Highlighted), off(lines.size(), Look::Normal);
    EXPECT_EQ(lineLooks[0], on);
    EXPECT_EQ(lineLooks[1], off);
    EXPECT_EQ(lineLooks[2], on);
    EXPECT_EQ(lineLooks[3], off);
    for (const auto& h : hatchLooks) EXPECT_EQ(h, std::vector<Look>{Look::Normal}) << "hatches are left out";
    EXPECT_EQ(looks(lines), off) << "the prompt's end unhighlights";
}

TEST_F(HighlightInWindow, HatchesTakePartWhenAskedAndIlluminateHoldsSteady) {
    start("Blinking=0\r\nChngHatch=1\r\n");
    const auto hatches = handles("HATCH");
    const auto texts = handles("TEXT");
    std::vector<std::vector<Look>> samples;
    for (int i = 0; i < 3; ++i)
        QTimer::singleShot(150 + 300 * i, [&] {
            auto all = looks(hatches);
            for (Look l : looks(texts)) all.push_back(l);
            samples.push_back(all);
        });
    QTimer::singleShot(1000, [&] { answer("x"); });
    ASSERT_TRUE(app->lisp().evaluate("(kemb_Highlight \"T\" (ssget \"X\"))").ok);
    ASSERT_EQ(samples.size(), 3u);
    const std::vector<Look> on(hatches.size() + texts.size(), Look::Highlighted);
    for (const auto& s : samples) EXPECT_EQ(s, on);
    EXPECT_EQ(looks(hatches), std::vector<Look>{Look::Normal});
}

}  // namespace
}  // namespace ardo::e2e
