// Drawing and erasing through (command ...), as the suite's modules draw.
#include <algorithm>

#include "AppTestSupport.h"

namespace cadhost::test {
namespace {

TEST_F(HostTest, CommandDrawsLinesAndCirclesAndErasesThem) {
    EXPECT_EQ(run("(command \"_.LINE\" '(0 0) '(5 0) '(5 2.5 1) \"\")"), "nil");
    EXPECT_EQ(run("(cdr (assoc 10 (entget (entlast))))"), "(5.0 0.0 0.0)");
    EXPECT_EQ(run("(cdr (assoc 11 (entget (entlast))))"), "(5.0 2.5 1.0)");
    EXPECT_EQ(run("(getvar \"LASTPOINT\")"), "(5.0 2.5 1.0)");
    EXPECT_EQ(run("(command \"_.CIRCLE\" '(1 1) 2)"), "nil");
    EXPECT_EQ(run("(list (cdr (assoc 0 (entget (entlast)))) (cdr (assoc 40 (entget (entlast)))))"), "(\"CIRCLE\" 2.0)");
    // A command left waiting goes on with the next call.
    EXPECT_EQ(run("(command \"_.LINE\" \"@\") (command \"@1<90\" \"\")"), "nil");
    EXPECT_EQ(run("(cdr (assoc 11 (entget (entlast))))"), "(1.0 2.0 0.0)");
    EXPECT_EQ(run("(sslength (ssget \"_X\" '((0 . \"LINE,CIRCLE\"))))"), "4");
    EXPECT_EQ(run("(command \"_.ERASE\" (ssget \"_X\" '((0 . \"LINE\"))) \"\")"), "nil");
    EXPECT_EQ(run("(sslength (ssget \"_X\" '((0 . \"LINE,CIRCLE\"))))"), "1");
}

TEST_F(HostTest, EntmakeFillsInMarkersAndTheCurrentLayer) {
    EXPECT_EQ(run("(entmake '((0 . \"LINE\") (62 . 1) (10 1 2) (11 3.5 4 5)))"),
              "((0 . \"LINE\") (62 . 1) (10 1 2) (11 3.5 4 5))");
    // The last entity's tags as "code=value", without handle and owner, or only those of `codes`.
    auto lastTags = [&](std::vector<int> codes) {
        Handle last = 0;
        first.drawing().forEachEntity([&](const EntityInfo& e) { return last = e.handle, true; });
        std::vector<std::string> tags;
        for (const EntityTag& t : first.drawing().entityTags(last))
            if (codes.empty() ? t.code != 5 && t.code != 330 : std::find(codes.begin(), codes.end(), t.code) != codes.end())
                tags.push_back(std::to_string(t.code) + "=" + t.value);
        return tags;
    };
    EXPECT_EQ(lastTags({}), (std::vector<std::string>{"0=LINE", "100=AcDbEntity", "8=0", "62=1", "100=AcDbLine", "10=1.0", "20=2.0",
                                              "30=0.0", "11=3.5", "21=4.0", "31=5.0"}));
    EXPECT_NE(run("(entmake '((0 . \"ARC\") (8 . \"0\") (10 0 0 0) (40 . 2) (50 . 0.0) (51 . 1.5)))"), "nil");
    EXPECT_EQ(lastTags({100, 40}), (std::vector<std::string>{"100=AcDbEntity", "100=AcDbCircle", "40=2.0", "100=AcDbArc"}));
    EXPECT_EQ(run("(eq (entmakex '((0 . \"CIRCLE\") (10 0 0) (40 . 1.0))) (entlast))"), "T");
    // A layer that does not exist, a list without a type and a broken group.
    EXPECT_EQ(run("(entmake '((0 . \"LINE\") (8 . \"Nope\") (10 0 0) (11 1 1)))"), "nil");
    EXPECT_EQ(run("(entmake '((8 . \"0\")))"), "nil");
    EXPECT_EQ(run("(entmake '((0 . \"LINE\") (10 . x)))"), "ERR:bad DXF group: (10 . X)");
    EXPECT_EQ(run("(entmake 5)"), "ERR:bad argument type: listp 5");
}

}  // namespace
}  // namespace cadhost::test
