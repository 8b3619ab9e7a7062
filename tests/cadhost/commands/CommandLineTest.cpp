#include <gtest/gtest.h>

#include "CommandTestSupport.h"

namespace cadhost::test {

using ardo::RTERROR;
using ardo::RTNORM;

TEST(CommandLine, NamesTakeGlobalBuiltInAndDashPrefixesInAnyCase) {
    CommandLine cl;
    cl.echo(0);
    for (const char* name : {"_.LAYER", "._layer", "-LAYER", "_-Layer", "layer", "._.VPLAYER", "_select"})
        EXPECT_TRUE(cl.processor.knows(name)) << name;
    EXPECT_FALSE(cl.processor.knows("-SELECT"));
    EXPECT_FALSE(cl.processor.knows("LAYERS"));
    EXPECT_EQ(cl.feed({S("._layer"), S("_new"), S("A"), S("")}), RTNORM);
    EXPECT_EQ(cl.feed({S("-LAYER"), S("n"), S("B"), S("")}), RTNORM);
    EXPECT_TRUE(cl.drawing.findLayer("A"));
    EXPECT_TRUE(cl.drawing.findLayer("B"));
}

TEST(CommandLine, UnknownCommandIsAnErrorAndDropsTheRest) {
    CommandLine cl;
    EXPECT_EQ(cl.feed({S("_xyz"), S("_.LAYER"), S("_NEW"), S("A"), S("")}), RTERROR);
    EXPECT_EQ(cl.printed, "Unknown command \"XYZ\".  Press F1 for help.\n");
    EXPECT_FALSE(cl.processor.active());
    EXPECT_FALSE(cl.drawing.findLayer("A"));
}

TEST(CommandLine, InputOverSeveralFeedsKeepsTheCommandActive) {
    CommandLine cl;
    cl.echo(0);
    EXPECT_EQ(cl.cmdactive(), 0);
    EXPECT_EQ(cl.feed({S("_.LAYER")}), RTNORM);
    EXPECT_TRUE(cl.processor.active());
    EXPECT_EQ(cl.cmdactive(), 1);
    EXPECT_EQ(cl.feed({S("_MAKE")}), RTNORM);
    EXPECT_EQ(cl.processor.prompt(), "Enter name for new layer (becomes the current layer) <0>: ");
    EXPECT_EQ(cl.feed({S("Wand")}), RTNORM);
    EXPECT_EQ(cl.clayer(), "Wand");
    EXPECT_EQ(cl.cmdactive(), 1);
    EXPECT_EQ(cl.feed({S("")}), RTNORM);
    EXPECT_FALSE(cl.processor.active());
    EXPECT_EQ(cl.cmdactive(), 0);
    // A stray Enter at the command prompt starts nothing.
    EXPECT_EQ(cl.feed({S("")}), RTNORM);
    EXPECT_EQ(cl.printed, "");
}

TEST(CommandLine, RefusedInputCancelsTheCommand) {
    CommandLine cl;
    cl.echo(0);
    EXPECT_EQ(cl.feed({S("_.LAYER"), S("_BOGUS"), S("_NEW"), S("A"), S("")}), RTERROR);
    EXPECT_EQ(cl.printed, "Invalid option keyword.\n");
    EXPECT_FALSE(cl.processor.active());
    EXPECT_EQ(cl.cmdactive(), 0);
    EXPECT_FALSE(cl.drawing.findLayer("A"));
    // The next command starts afresh.
    EXPECT_EQ(cl.feed({S("_.LAYER"), S("_NEW"), S("A"), S("")}), RTNORM);
    EXPECT_TRUE(cl.drawing.findLayer("A"));
}

TEST(CommandLine, CancelEndsTheActiveCommand) {
    CommandLine cl;
    cl.feed({S("_.LAYER"), S("_NEW")});
    cl.printed.clear();
    cl.processor.cancel();
    EXPECT_FALSE(cl.processor.active());
    EXPECT_EQ(cl.cmdactive(), 0);
    EXPECT_EQ(cl.printed, "*Cancel*\n");
    // "A" now names a command, which does not exist.
    EXPECT_EQ(cl.feed({S("A")}), RTERROR);
}

TEST(CommandLine, EchoShowsPromptsAndInputOnlyWithCmdechoOne) {
    CommandLine cl;
    cl.addLayer("Wand");
    cl.echo(1);
    cl.feed({S("_.LAYER"), S("_FREEZE"), S("0,Wand"), S("")});
    EXPECT_EQ(cl.printed,
              "Command: _.LAYER\n"
              "Current layer:  \"0\"\n"
              "Enter an option\n[?/Make/Set/New/ON/OFF/Color/Ltype/LWeight/Plot/Freeze/Thaw/LOck/Unlock]: _FREEZE\n"
              "Enter name list of layer(s) to freeze or <select objects>: 0,Wand\n"
              "Cannot freeze the current layer.\n"
              "Enter an option\n[?/Make/Set/New/ON/OFF/Color/Ltype/LWeight/Plot/Freeze/Thaw/LOck/Unlock]: \n");
    cl.printed.clear();
    cl.echo(0);
    cl.feed({S("_.LAYER"), S("_FREEZE"), S("0,Wand"), S("")});
    EXPECT_EQ(cl.printed, "Cannot freeze the current layer.\n");
}

TEST(CommandLine, NumbersAndPointsAreEchoedAsTheCommandLineShowsThem) {
    CommandLine cl;
    cl.feed({S("_.LAYER"), S("_COLOR"), ardo::ResBuf::shortInt(3), S(""), S("")});
    EXPECT_NE(cl.printed.find("New color [Truecolor/COlorbook] : 3\n"
                              "Enter name list of layer(s) for color 3 <0>: \n"),
              std::string::npos)
        << cl.printed;
    EXPECT_EQ(cl.layer("0").color, ardo::HostColor::fromIndex(3));
}

TEST(CommandLine, SwitchingDrawingsCancelsAndTargetsTheNewOne) {
    CommandLine cl;
    cl.echo(0);
    Drawing other;
    cl.feed({S("_.LAYER"), S("_NEW")});
    cl.processor.setDrawing(&other);
    EXPECT_FALSE(cl.processor.active());
    EXPECT_EQ(cl.feed({S("_.LAYER"), S("_NEW"), S("X"), S("")}), RTNORM);
    EXPECT_TRUE(other.findLayer("X"));
    EXPECT_FALSE(cl.drawing.findLayer("X"));
}

}  // namespace cadhost::test
