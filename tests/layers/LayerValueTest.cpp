#include <gtest/gtest.h>

#include "layers/LayerValue.h"

namespace ardo {
namespace {

TEST(LayerValue, FullLineWithContinuousNormalised) {
    LayerValue v;
    ASSERT_TRUE(parseLayerValue("Mauer,1,continuous,,0,,,-3,Normal,,1", v));
    EXPECT_EQ(v.name, "Mauer");
    EXPECT_EQ(v.color, 1);
    EXPECT_EQ(v.linetype, "Continuous");
    EXPECT_EQ(v.lineweight, -3);
    EXPECT_EQ(v.plotStyle, "Normal");
    EXPECT_TRUE(v.plottable);
}

TEST(LayerValue, FiveFieldsAreEnoughAndTakeDefaults) {
    LayerValue v;
    ASSERT_TRUE(parseLayerValue("Wand,3,DASHED,,6", v));
    EXPECT_EQ(v.linetype, "DASHED");
    EXPECT_EQ(v.states, 6);
    EXPECT_EQ(v.lineweight, -3);
    EXPECT_EQ(v.plotStyle, "Normal");
    EXPECT_TRUE(v.plottable);
}

TEST(LayerValue, TooFewFieldsAreInvalid) {
    LayerValue v;
    EXPECT_FALSE(parseLayerValue("Dach,3,DASHED", v));
    EXPECT_FALSE(parseLayerValue("Dach,3,DASHED,", v));
    EXPECT_FALSE(parseLayerValue("", v));
    // Four commas make five fields, the last one empty.
    EXPECT_TRUE(parseLayerValue("Dach,3,DASHED,,", v));
}

TEST(LayerValue, LineweightAndPlottableFields) {
    LayerValue v;
    ASSERT_TRUE(parseLayerValue("A,1,X,,0,,,,,,0", v));
    EXPECT_EQ(v.lineweight, -3) << "an empty 8th field keeps the default";
    EXPECT_FALSE(v.plottable);
    ASSERT_TRUE(parseLayerValue("A,1,X,,0,,,abc,,,7", v));
    EXPECT_EQ(v.lineweight, -3) << "no number keeps the default";
    EXPECT_TRUE(v.plottable);
    ASSERT_TRUE(parseLayerValue("A,1,X,,0,,,50,,,", v));
    EXPECT_EQ(v.lineweight, 50);
    EXPECT_FALSE(v.plottable) << "an empty 11th field is not a non-zero number";
}

TEST(LayerValue, NonNumbersReadAsZeroAndTextAfterEleventhCommaIsIgnored) {
    LayerValue v;
    ASSERT_TRUE(parseLayerValue("A,rot,X,lin,zwei,Buch,Farbe,13,Stil,zehn,1,zwoelf,13", v));
    EXPECT_EQ(v.color, 0);
    EXPECT_EQ(v.states, 0);
    EXPECT_EQ(v.colorBookName, "Buch");
    EXPECT_EQ(v.colorName, "Farbe");
    EXPECT_EQ(v.plotStyle, "Stil");
    EXPECT_EQ(v.textField10, "zehn");
    EXPECT_TRUE(v.plottable);
}

TEST(LayerValue, FieldsAreNotTrimmed) {
    LayerValue v;
    ASSERT_TRUE(parseLayerValue(" Mauer , 5,Continuous ,,0", v));
    EXPECT_EQ(v.name, " Mauer ");
    EXPECT_EQ(v.color, 5) << "the number reader skips leading blanks";
    EXPECT_EQ(v.linetype, "Continuous ");
}

TEST(LayerValue, FormatWritesAllElevenFields) {
    LayerValue v;
    ASSERT_TRUE(parseLayerValue("Wand,3,DASHED,,6", v));
    EXPECT_EQ(formatLayerValue(v), "Wand,3,DASHED,,6,,,-3,Normal,,1");
    LayerValue back;
    ASSERT_TRUE(parseLayerValue(formatLayerValue(v), back));
    EXPECT_EQ(formatLayerValue(back), formatLayerValue(v));
}

}  // namespace
}  // namespace ardo
