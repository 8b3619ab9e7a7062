#include "TestHost.h"
#include "cadhost/lisp/SelectionSet.h"

namespace cadhost::lisp::test {
namespace {

class HostBuiltins : public LispTest {
protected:
    void SetUp() override {
        host.entities = {
            {0x10, {group(0, "LINE"), group(8, "Wand"), group(10, ardo::Point3{1, 2, 0}), group(62, 1)}},
            {0x11, {group(0, "CIRCLE"), group(8, "A-Achse"), group(40, 0)}},
            {0x12, {group(0, "LINE"), group(8, "a-text"), group(62, 3)}},
        };
        host.entities[1].groups[2].real = 2.5;
        host.layers = {{group(0, "LAYER"), group(2, "0"), group(70, 0), group(62, 7)},
                       {group(0, "LAYER"), group(2, "Wand"), group(70, 4), group(62, 1)}};
        host.vars["CLAYER"] = ardo::ResBuf::str("0");
        host.vars["OSMODE"] = ardo::ResBuf::shortInt(7);
        host.vars["INSBASE"] = ardo::ResBuf::point3({1, 2, 3});
    }
};

TEST_F(HostBuiltins, GetvarAndSetvar) {
    EXPECT_EQ(run("(list (getvar \"clayer\") (getvar \"OSMODE\") (getvar \"insbase\") (getvar \"NOPE\"))"),
              "(\"0\" 7 (1.0 2.0 3.0) nil)");
    EXPECT_EQ(run("(setvar \"osmode\" 0)"), "0");
    EXPECT_EQ(host.vars["OSMODE"].integer, 0);
    EXPECT_EQ(run("(setvar \"CLAYER\" 5)"), "ERR:AutoCAD variable setting rejected: \"CLAYER\" 5");
    EXPECT_EQ(run("(getvar 1)"), "ERR:bad argument type: stringp 1");
}

TEST_F(HostBuiltins, CommandFlattensArgumentsToTokens) {
    EXPECT_EQ(run("(command \"_.LAYER\" \"_S\" \"Wand\" \"\" '(1 2) '(1.5 2 3) 7 2.5 nil (entlast))"), "nil");
    ASSERT_EQ(host.commands.size(), 1u);
    const ardo::ResBufChain& t = host.commands[0];
    ASSERT_EQ(t.size(), 9u);
    EXPECT_EQ(t[0], ardo::ResBuf::str("_.LAYER"));
    EXPECT_EQ(t[3], ardo::ResBuf::str(""));
    EXPECT_EQ(t[4].restype, ardo::RTPOINT);
    EXPECT_EQ(t[4].point[1], 2.0);
    EXPECT_EQ(t[5], ardo::ResBuf::point3({1.5, 2, 3}));
    EXPECT_EQ(t[6], ardo::ResBuf::shortInt(7));
    EXPECT_EQ(t[7], ardo::ResBuf::realNum(2.5));
    EXPECT_EQ(t[8], ardo::ResBuf::entityName(0x12));
    host.commandStatus = ardo::RTCAN;
    EXPECT_EQ(run("(command \"_LINE\")"), "ERR:Function cancelled");
}

TEST_F(HostBuiltins, SsgetAllWithFiltersOnTypeAndLayer) {
    EXPECT_EQ(run("(sslength (ssget \"X\"))"), "3");
    EXPECT_EQ(run("(setq ss (ssget \"_X\" '((0 . \"LINE\")))) (sslength ss)"), "2");
    EXPECT_EQ(run("(list (ssname ss 0) (ssname ss 1) (ssname ss 2))"),
              "(<Entity name: 10> <Entity name: 12> nil)");
    EXPECT_EQ(run("(sslength (ssget \"X\" '((8 . \"a-*\"))))"), "2");
    EXPECT_EQ(run("(sslength (ssget \"X\" '((0 . \"line\") (8 . \"~Wand\"))))"), "1");
    EXPECT_EQ(run("(sslength (ssget \"X\" '((0 . \"CIRCLE,LINE\") (62 . 1))))"), "1");
    EXPECT_EQ(run("(ssget \"X\" '((8 . \"Dach\")))"), "nil");
    EXPECT_EQ(run("(ssget \"Z\")"),
              "ERR:ssget mode \"Z\" is not known; use \"X\", \"P\", \"L\", \"W\", \"C\", \"F\", \"WP\", \"CP\" or \":S\"");
    EXPECT_EQ(run("(type ss)"), "PICKSET");
}

TEST_F(HostBuiltins, FilterOperatorsGroupAndCompare) {
    auto count = [&](const std::string& filter) { return run("(if (setq s (ssget \"X\" '(" + filter + "))) (sslength s) 0)"); };
    EXPECT_EQ(count("(-4 . \"<OR\") (62 . 1) (62 . 3) (-4 . \"OR>\")"), "2");
    EXPECT_EQ(count("(-4 . \"<NOT\") (0 . \"LINE\") (-4 . \"NOT>\")"), "1");
    EXPECT_EQ(count("(-4 . \"<AND\") (0 . \"LINE\") (-4 . \"<NOT\") (8 . \"Wand\") (-4 . \"NOT>\") (-4 . \"AND>\")"), "1");
    EXPECT_EQ(count("(-4 . \"<XOR\") (8 . \"a*\") (0 . \"CIRCLE\") (-4 . \"XOR>\")"), "1");
    EXPECT_EQ(count("(-4 . \">\") (40 . 2.0)"), "1");
    EXPECT_EQ(count("(-4 . \"<=\") (40 . 2.0)"), "0");
    EXPECT_EQ(count("(-4 . \"!=\") (62 . 1)"), "1");      // the circle has no colour group
    EXPECT_EQ(count("(-4 . \"&\") (62 . 2)"), "1");       // 3 has bit 2, 1 has not
    EXPECT_EQ(count("(-4 . \"&=\") (62 . 3)"), "1");
    EXPECT_EQ(count("(-4 . \"*\") (62 . 0)"), "2");
    EXPECT_EQ(count("(-4 . \">,<,*\") (10 0.5 3.0 9.0)"), "1");
    EXPECT_EQ(count("(-4 . \">,>,*\") (10 0.5 3.0 9.0)"), "0");
    EXPECT_EQ(count("(-4 . \"/=\") (8 . \"a-*\")"), "1");
    // Unbalanced groups, wrong operand counts and unknown operators are refused.
    for (const char* bad : {"(-4 . \"<OR\")", "(-4 . \"<OR\") (62 . 1)", "(62 . 1) (-4 . \"OR>\")",
                            "(-4 . \"<NOT\") (62 . 1) (62 . 3) (-4 . \"NOT>\")",
                            "(-4 . \"<XOR\") (62 . 1) (-4 . \"XOR>\")", "(-4 . \"<OR\") (-4 . \"OR>\")",
                            "(-4 . \"~\") (62 . 1)", "(-4 . \">\")", "(-4 . 1) (62 . 1)",
                            "(-4 . \"<AND\") (62 . 1) (-4 . \"OR>\")"})
        EXPECT_EQ(count(bad), "ERR:bad SSGET list") << bad;
}

TEST_F(HostBuiltins, GeometricAndInteractiveModesAskTheHost) {
    host.selected = std::vector<std::int64_t>{0x10, 0x12};
    EXPECT_EQ(run("(sslength (ssget \"_W\" '(0 0) '(5 5 1)))"), "2");
    EXPECT_EQ(host.selectMode, "W");
    ASSERT_EQ(host.selectPoints.size(), 2u);
    EXPECT_EQ(host.selectPoints[1], (ardo::Point3{5, 5, 1}));
    // The filter applies to what the host found.
    EXPECT_EQ(run("(sslength (ssget \"CP\" '((0 0) (1 0) (1 1)) '((62 . 3))))"), "1");
    EXPECT_EQ(host.selectMode, "CP");
    EXPECT_EQ(host.selectPoints.size(), 3u);
    EXPECT_EQ(run("(sslength (ssget '(1 2)))"), "2");
    EXPECT_EQ(host.selectMode, ".");
    EXPECT_EQ(run("(sslength (ssget))"), "2");
    EXPECT_EQ(host.selectMode, "");
    EXPECT_EQ(run("(sslength (ssget \"_:S\" '((0 . \"LINE\"))))"), "2");
    EXPECT_EQ(host.selectMode, ":S");
    EXPECT_EQ(run("(ssname (ssget \"L\") 0)"), "<Entity name: 12>");
    host.selected.reset();   // cancelled
    EXPECT_EQ(run("(ssget)"), "nil");
    host.selectMode = "untouched";
    EXPECT_EQ(run("(ssget \"W\" '(0 0))"), "ERR:too few arguments");
    EXPECT_EQ(run("(ssget \"C\" '(0 0) \"x\")"), "ERR:bad point argument: \"x\"");
    EXPECT_EQ(run("(ssget \"F\" '((0 0) 7))"), "ERR:bad point argument: 7");
    EXPECT_EQ(run("(ssget \"X\" nil nil)"), "ERR:too many arguments");
    EXPECT_EQ(host.selectMode, "untouched");
}

TEST_F(HostBuiltins, PreviousSetAndSsaddSsdel) {
    host.previous = {0x11, 0x12};
    EXPECT_EQ(run("(setq p (ssget \"P\")) (sslength p)"), "2");
    EXPECT_EQ(run("(sslength (ssadd (entnext) p))"), "3");
    EXPECT_EQ(run("(sslength (ssadd (entnext) p))"), "3");
    EXPECT_EQ(run("(sslength (ssdel (entlast) p))"), "2");
    EXPECT_EQ(run("(ssdel (entlast) p)"), "nil");
    EXPECT_EQ(run("(list (ssmemb (entlast) p) (ssmemb (entnext) p))"), "(nil <Entity name: 10>)");
    EXPECT_EQ(run("(ssmemb p p)").rfind("ERR:bad argument type: lentityp <Selection set: ", 0), 0u);
    EXPECT_EQ(run("(list (sslength (ssadd)) (sslength (ssadd (entlast))))"), "(0 1)");
    EXPECT_EQ(run("(sslength 1)"), "ERR:bad argument type: lselsetp 1");
    // The host resolves RTPICKS tokens through the interpreter while the set lives.
    const EvalResult r = lisp.evaluate("p");
    ASSERT_EQ(r.value.kind(), Kind::Pickset);
    EXPECT_EQ(lisp.selectionSet(r.value.asPickset().id)->entities.size(), 2u);
    host.previous.clear();
    EXPECT_EQ(run("(ssget \"P\")"), "nil");
}

TEST_F(HostBuiltins, EntitiesAndTables) {
    EXPECT_EQ(run("(entget (entnext))"),
              "((-1 . <Entity name: 10>) (0 . \"LINE\") (8 . \"Wand\") (10 1.0 2.0 0.0) (62 . 1))");
    EXPECT_EQ(run("(cdr (assoc 40 (entget (entnext (entnext)))))"), "2.5");
    EXPECT_EQ(run("(list (entnext (entlast)) (type (entlast)))"), "(nil ENAME)");
    EXPECT_EQ(run("(entget \"x\")"), "ERR:bad argument type: lentityp \"x\"");
    EXPECT_EQ(run("(tblsearch \"layer\" \"WAND\")"), "((0 . \"LAYER\") (2 . \"Wand\") (70 . 4) (62 . 1))");
    EXPECT_EQ(run("(tblsearch \"LAYER\" \"Dach\")"), "nil");
    EXPECT_EQ(run("(list (cdr (assoc 2 (tblnext \"LAYER\" T))) (cdr (assoc 2 (tblnext \"LAYER\"))) "
                  "(tblnext \"LAYER\"))"),
              "(\"0\" \"Wand\" nil)");
}

}  // namespace
}  // namespace cadhost::lisp::test
