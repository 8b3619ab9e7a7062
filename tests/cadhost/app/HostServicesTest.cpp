#include "AppTestSupport.h"

namespace cadhost::test {
namespace {

using HostServices = HostTest;

// Handlers registered by the test itself, outside any module, as plain functions.
Application* current = nullptr;
int outerCode = -1;

int innerHandler() {
    current->retStr("inner:" + current->getArgs().front().text);
    return ardo::RSRSLT;
}

// Calls another function in the middle of its own call; its code and arguments must survive.
int outerHandler() {
    const lisp::EvalResult inner = current->lisp().evaluate("(t_inner \"x\")");
    const bool intact = current->getFunCode() == outerCode && current->getArgs().size() == 2;
    current->retList({ardo::ResBuf::marker(ardo::RTLB), ardo::ResBuf::str(inner.printed),
                      ardo::ResBuf::marker(intact ? ardo::RTT : ardo::RTNIL), ardo::ResBuf::marker(ardo::RTLE)});
    return ardo::RSRSLT;
}

TEST_F(HostServices, FunctionsDefinedOutsideModulesDispatchToTheirHandlers) {
    current = &host;
    outerCode = 7;
    ASSERT_EQ(host.defun("t_inner", 3), ardo::RTNORM);
    ASSERT_EQ(host.regFunc(innerHandler, 3), ardo::RTNORM);
    ASSERT_EQ(host.defun("t_outer", outerCode), ardo::RTNORM);
    ASSERT_EQ(host.regFunc(outerHandler, outerCode), ardo::RTNORM);
    EXPECT_EQ(run("(t_outer 1 2)"), "(\"\\\"inner:x\\\"\" T)");
    EXPECT_EQ(host.getFunCode(), -1);

    EXPECT_EQ(host.defun("", 1), ardo::RTERROR);
    EXPECT_EQ(host.undef("t_inner", 4), ardo::RTERROR);
    EXPECT_EQ(host.undef("t_inner", 3), ardo::RTNORM);
    EXPECT_EQ(run("(t_inner \"x\")"), "ERR:no function definition: T_INNER");
    // Without a handler and without a module there is nobody to answer.
    host.regFunc(nullptr, outerCode);
    EXPECT_EQ(run("(t_outer 1 2)"), "ERR:no function definition: T_OUTER");
}

TEST_F(HostServices, SystemVariablesOfTheDrawingAndOfTheHost) {
    ardo::ResBuf v;
    ASSERT_EQ(host.getVar("clayer", v), ardo::RTNORM);
    EXPECT_EQ(v.text, "0");
    ASSERT_EQ(host.getVar("ACADVER", v), ardo::RTNORM);
    EXPECT_EQ(v.text, "18.0");
    ASSERT_EQ(host.getVar("PROGRAM", v), ardo::RTNORM);
    EXPECT_EQ(v.text, "ardo-cad");
    ASSERT_EQ(host.getVar("DWGTITLED", v), ardo::RTNORM);
    EXPECT_EQ(v.integer, 0);
    ASSERT_EQ(host.getVar("TEMPPREFIX", v), ardo::RTNORM);
    EXPECT_TRUE(v.text.ends_with("/"));
    EXPECT_EQ(host.getVar("NOSUCHVAR", v), ardo::RTERROR);

    EXPECT_EQ(host.setVar("USERS1", ardo::ResBuf::str("Wand")), ardo::RTNORM);
    EXPECT_EQ(run("(getvar \"users1\")"), "\"Wand\"");
    EXPECT_EQ(host.setVar("USERS1", ardo::ResBuf::shortInt(1)), ardo::RTERROR);
    EXPECT_EQ(host.setVar("ACADVER", ardo::ResBuf::str("1")), ardo::RTERROR);
    EXPECT_EQ(host.setVar("CLAYER", ardo::ResBuf::str("no such layer")), ardo::RTERROR);
    EXPECT_EQ(run("(setvar \"CMDECHO\" 0)"), "0");
    EXPECT_EQ(run("(getvar \"CMDECHO\")"), "0");
}

TEST_F(HostServices, MessageBoxesInScriptModeTakeGivenAnswersThenTheDefault) {
    ui.boxes().addScriptAnswer(ardo::MbAnswer::No);
    ui.boxes().addScriptAnswer(ardo::MbAnswer::Ok);
    EXPECT_EQ(host.messageBox("Delete the layer?", "Layers", ardo::MbButtons::YesNo, ardo::MbIcon::Question),
              ardo::MbAnswer::No);
    EXPECT_EQ(output, "\n+-- Layers (Question) --\n| Delete the layer?\n+-- [Yes] No\nAnswer: No\n");
    // A single-button box takes no answer: the queued Ok is still there for the next choice.
    host.alert("Saved.\nDone.");
    output.clear();
    EXPECT_EQ(host.messageBox("Go on?", "Layers", ardo::MbButtons::YesNoCancel, ardo::MbIcon::None),
              ardo::MbAnswer::Yes);
    EXPECT_NE(output.find("the given answer OK is not a button of this box, Yes taken instead"),
              std::string::npos)
        << output;
    EXPECT_EQ(host.messageBox("Go on?", "Layers", ardo::MbButtons::OkCancel, ardo::MbIcon::None),
              ardo::MbAnswer::Ok);
}

TEST_F(HostServices, MessageBoxesOnATerminalAskUntilAButtonIsNamed) {
    std::vector<std::string> typed{"maybe", "c", ""};
    std::vector<std::string> prompts;
    ui.boxes().setReader([&](const std::string& prompt) -> std::optional<std::string> {
        prompts.push_back(prompt);
        if (typed.empty()) return std::nullopt;
        std::string line = typed.front();
        typed.erase(typed.begin());
        return line;
    });
    EXPECT_EQ(host.messageBox("Save?", "Layers", ardo::MbButtons::YesNoCancel, ardo::MbIcon::Question),
              ardo::MbAnswer::Cancel);
    EXPECT_EQ(prompts.front(), "Answer [Yes/No/Cancel] <Yes>: ");
    EXPECT_EQ(prompts.size(), 2u);
    EXPECT_NE(output.find("Please answer with one of the buttons shown."), std::string::npos);
    // An empty line takes the default; so does the end of input.
    EXPECT_EQ(host.messageBox("Save?", "Layers", ardo::MbButtons::YesNo, ardo::MbIcon::None), ardo::MbAnswer::Yes);
    EXPECT_EQ(host.messageBox("Save?", "Layers", ardo::MbButtons::OkCancel, ardo::MbIcon::None), ardo::MbAnswer::Ok);
}

TEST_F(HostServices, EntitiesAndTablesOfTheDrawingReachLisp) {
    auto opened = host.openDocument(ARDO_TEST_DATA "/app/two-lines.dxf");
    ASSERT_TRUE(opened) << opened.error();
    Application& withLines = host;
    const auto run2 = [&](std::string_view source) {
        const lisp::EvalResult r = withLines.lisp().evaluate(source);
        return r.ok ? r.printed : "ERR:" + r.error;
    };
    EXPECT_EQ(run2("(cdr (assoc 8 (entget (entnext))))"), "\"Wand\"");
    EXPECT_EQ(run2("(cdr (assoc 0 (entget (entlast))))"), "\"LINE\"");
    EXPECT_EQ(run2("(cdr (assoc 8 (entget (entlast))))"), "\"Decke\"");
    EXPECT_EQ(run2("(entnext (entlast))"), "nil");
    EXPECT_EQ(run2("(cdr (assoc 62 (tblsearch \"LAYER\" \"wand\")))"), "1");
    EXPECT_EQ(run2("(cdr (assoc 62 (tblsearch \"LAYER\" \"Decke\")))"), "-5");
    EXPECT_EQ(run2("(cdr (assoc 2 (tblsearch \"LTYPE\" \"continuous\")))"), "\"Continuous\"");
    EXPECT_EQ(run2("(list (cdr (assoc 2 (tblnext \"LAYER\" T))) (cdr (assoc 2 (tblnext \"LAYER\")))"
                   " (cdr (assoc 2 (tblnext \"LAYER\"))) (cdr (assoc 2 (tblnext \"LAYER\" T))))"),
              "(\"0\" \"Defpoints\" \"Wand\" \"0\")");
    // A layer made during a walk comes at its end; the end stays the end.
    EXPECT_EQ(run2("(progn (tblnext \"LAYER\" T) (command \"-LAYER\" \"N\" \"Neu\" \"\") "
                   "(list (cdr (assoc 2 (tblnext \"LAYER\"))) (cdr (assoc 2 (tblnext \"LAYER\"))) "
                   "(cdr (assoc 2 (tblnext \"LAYER\"))) (cdr (assoc 2 (tblnext \"LAYER\"))) (tblnext \"LAYER\")))"),
              "(\"Defpoints\" \"Wand\" \"Decke\" \"Neu\" nil)");
    EXPECT_EQ(run2("(sslength (ssget \"X\" '((8 . \"Wand\"))))"), "1");
    ardo::ResBuf v;
    ASSERT_EQ(withLines.getVar("DWGTITLED", v), ardo::RTNORM);
    EXPECT_EQ(v.integer, 1);
}

TEST_F(HostServices, ColourLookupsAreTheHostsColourServices) {
    ardo::HostColor c;
    ASSERT_TRUE(host.colorFromAciName("red", c));
    EXPECT_EQ(c.index, 1);
    ASSERT_TRUE(host.colorFromRgbName("255,128,0", c));
    EXPECT_EQ(c.rgb(), 0xFF8000u);
    EXPECT_EQ(host.rgbOfIndexColor(1), 0xFF0000u);
    EXPECT_FALSE(host.colorFromAciName("no colour", c));
}

}  // namespace
}  // namespace cadhost::test
