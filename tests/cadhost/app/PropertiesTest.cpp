// PROPERTIES: on the console it asks as CHPROP does; the values a dialog shows for a
// selection ("*VARIES*" where the objects differ) and what it sets, on the real drawing.
#include "AppTestSupport.h"

#include "cadhost/app/CommandLine.h"
#include "cadhost/commands/PropertyGroups.h"

namespace cadhost::test {
namespace {

using commands::PropertyChanges;
using commands::sharedProperties;

class Properties : public HostTest {
protected:
    CommandLine line{host};
    Drawing& drawing() { return first.drawing(); }
    Handle last() { return static_cast<Handle>(std::stoll(run("(cdr (assoc 5 (entget (entlast))))").substr(1), nullptr, 16)); }
};

TEST_F(Properties, OnTheConsoleItAsksAsChpropDoes) {
    run("(command \"_.LINE\" '(0 0) '(1 0) \"\")");
    for (const char* name : {"PROPERTIES", "PR", "_.DDCHPROP"}) {
        line.enter(name);
        line.enter("L");
        line.enter("");
        EXPECT_EQ(host.commands().prompt(), "Enter property to change [Color/LAyer/LType/ltScale/LWeight/Thickness]: ") << name;
        line.enter("_C");
        line.enter("2");
        line.enter("");
        EXPECT_EQ(run("(cdr (assoc 62 (entget (entlast))))"), "2") << name;
        run("(command \"_.CHPROP\" (entlast) \"\" \"_C\" \"BYLAYER\" \"\")");
    }
}

TEST_F(Properties, SharedValuesAndVaries) {
    run("(command \"_.-LAYER\" \"_New\" \"Wand\" \"\")");
    run("(command \"_.LINE\" '(0 0) '(1 0) \"\")");
    const Handle a = last();
    run("(command \"_.LINE\" '(0 1) '(1 1) \"\")");
    const Handle b = last();
    auto shared = sharedProperties(drawing(), {a, b});
    ASSERT_TRUE(shared.color && shared.layer && shared.linetype && shared.lineweight && shared.linetypeScale);
    EXPECT_EQ(*shared.color, ardo::HostColor::byLayer());
    EXPECT_EQ(*shared.layer, "0");
    EXPECT_EQ(*shared.linetype, "ByLayer");
    EXPECT_EQ(*shared.lineweight, -1);
    EXPECT_EQ(*shared.linetypeScale, 1.0);
    run("(command \"_.CHPROP\" (entlast) \"\" \"_C\" \"255,128,0\" \"_LA\" \"Wand\" \"_LW\" \"0.5\" \"_ltScale\" \"2\" \"\")");
    shared = sharedProperties(drawing(), {a, b});
    EXPECT_FALSE(shared.color || shared.layer || shared.lineweight || shared.linetypeScale);
    EXPECT_TRUE(shared.linetype);
    shared = sharedProperties(drawing(), {b});
    ASSERT_TRUE(shared.color);
    EXPECT_EQ(*shared.color, ardo::HostColor::fromRgb(255, 128, 0));
    EXPECT_EQ(*shared.lineweight, 50);
}

TEST_F(Properties, ChangesSetOnlyWhatIsGivenAndDefaultsLeaveTheGroupOut) {
    run("(command \"_.-LAYER\" \"_New\" \"Wand\" \"\")");
    run("(command \"_.LINE\" '(0 0) '(1 0) \"\")");
    const Handle a = last();
    run("(command \"_.CIRCLE\" '(5 5) 1)");
    const Handle b = last();
    run("(command \"_.CHPROP\" (entlast) \"\" \"_C\" \"3\" \"\")");
    PropertyChanges changes;
    changes.layer = "Wand";
    changes.lineweight = 35;
    changes.linetypeScale = 0.5;
    commands::applyProperties(drawing(), {a, b}, changes);
    for (Handle h : {a, b}) {
        EXPECT_EQ(drawing().entity(h)->layer, "Wand");
        const auto shared = sharedProperties(drawing(), {h});
        EXPECT_EQ(shared.lineweight, 35);
        EXPECT_EQ(shared.linetypeScale, 0.5);
    }
    // The circle keeps its own colour; the colour was not among the changes.
    EXPECT_EQ(sharedProperties(drawing(), {b}).color, ardo::HostColor::fromIndex(3));
    PropertyChanges back;
    back.color = ardo::HostColor::byLayer();
    back.lineweight = -1;
    back.linetypeScale = 1.0;
    commands::applyProperties(drawing(), {a, b}, back);
    for (Handle h : {a, b})
        for (const EntityTag& t : drawing().entityTags(h))
            EXPECT_TRUE(t.code != 62 && t.code != 370 && t.code != 48) << t.code;
}

}  // namespace
}  // namespace cadhost::test
