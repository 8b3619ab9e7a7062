// kemb_setCurrentColorFromLisp through the real module: every form of colour it sends is
// taken by the host as CECOLOR, and an index colour is saved in the drawing.
#include <gtest/gtest.h>

#include "e2e/E2eSupport.h"

namespace ardo::e2e {
namespace {

TEST(CurrentColour, TheModuleSetsEveryKindOfColour) {
    Installation install;
    const fs::path saved = install.scratch("saved.dxf");
    const std::vector<std::pair<std::string, std::string>> colours{
        {"\"BYBLOCK\"", "\"BYBLOCK\""},
        {"'((420 . 16744448))", "\"RGB:255,128,0\""},
        {"\"rgb:1,2,3\"", "\"RGB:1,2,3\""},
        {"256", "\"BYLAYER\""},
        {"3", "\"3\""},
    };
    std::vector<std::string> args{officeDrawing().string()};
    std::string expected;
    for (const auto& [given, cecolor] : colours) {
        args.insert(args.end(), {"-e", "(list (kemb_setCurrentColorFromLisp " + given + ") (getvar \"CECOLOR\"))"});
        expected += "(T " + cecolor + ")\n";
    }
    // What names no colour is refused by the module and leaves the current one.
    args.insert(args.end(), {"-e", "(list (kemb_setCurrentColorFromLisp \"keine Farbe\") (getvar \"CECOLOR\"))",
                             "-o", saved.string()});
    expected += "(nil \"3\")\n";
    const RunResult r = install.run(args);
    EXPECT_EQ(r.exitCode, 0) << r.output;
    EXPECT_EQ(r.output, expected);
    EXPECT_EQ(openSaved(saved).getVar("CECOLOR")->text, "3");
}

}  // namespace
}  // namespace ardo::e2e
