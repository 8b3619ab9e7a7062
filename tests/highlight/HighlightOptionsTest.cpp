// The highlight options as stored in their settings file, the prompt's keywords and codes,
// and the shape of a permanent frame.
#include <gtest/gtest.h>

#include "highlight/BlinkControl.h"
#include "highlight/HighlightFrames.h"
#include "highlight/HighlightPrompt.h"
#include "highlight/cOptHighlight.h"
#include "support/TempFolder.h"

namespace ardo {
namespace {

class HighlightOptionsFile : public ::testing::Test {
protected:
    void write(const std::string& text) { folder.write("ArdoHighlight.ini", text); }
    test::TempFolder folder;
    std::string path = folder.file("ArdoHighlight.ini");
};

TEST_F(HighlightOptionsFile, MissingKeysMeanIlluminateTwiceASecond) {
    write("[HIGHLIGHTING]\r\n");
    cOptHighlight options;
    EXPECT_EQ(options.mode, 1) << "a fresh record blinks";
    options.load(path, kHighlightSection);
    EXPECT_EQ(options.mode, 0) << "a file without keys illuminates";
    EXPECT_EQ(options.period, 500);
    EXPECT_DOUBLE_EQ(options.frequency, 2.0);
    EXPECT_FALSE(options.drawFrame);
    EXPECT_FALSE(options.changeHatch);
    EXPECT_DOUBLE_EQ(options.distance, 1.0);
    EXPECT_EQ(options.dialogPosX, 50);
    EXPECT_EQ(options.dialogPosY, 50);
}

TEST_F(HighlightOptionsFile, ValuesOutsideTheirRangeAreBroughtIntoIt) {
    write("[HIGHLIGHTING]\r\nBlinking=2\r\nBlinkTime=100\r\nDlgPosX=-5\r\nDlgPosY=9000\r\n");
    cOptHighlight options;
    options.load(path, kHighlightSection);
    EXPECT_EQ(options.mode, 0) << "only 0 and 1 are modes";
    EXPECT_EQ(options.period, 333);
    EXPECT_DOUBLE_EQ(options.frequency, 3.0) << "1000 / 333 carried with one decimal";
    EXPECT_EQ(options.dialogPosX, 0);
    EXPECT_EQ(options.dialogPosY, 750);

    write("[HIGHLIGHTING]\r\nBlinking=1\r\nBlinkTime=99999\r\nDlgPosX=5000\r\nDlgPosY=1\r\n");
    options.load(path, kHighlightSection);
    EXPECT_EQ(options.mode, 1);
    EXPECT_EQ(options.period, 10000);
    EXPECT_DOUBLE_EQ(options.frequency, 0.1);
    EXPECT_EQ(options.dialogPosX, 1200);
    EXPECT_EQ(options.dialogPosY, 1);

    write("[HIGHLIGHTING]\r\nBlinkTime=400\r\n");
    options.load(path, kHighlightSection);
    EXPECT_DOUBLE_EQ(options.frequency, 2.5);
}

TEST_F(HighlightOptionsFile, SavedOptionsReadBackInTheirOwnSection) {
    write("[OTHER]\r\nBlinking=1\r\n");
    cOptHighlight options;
    options.load(path, "MYMODULE");
    options.mode = 1;
    options.setFrequency(3.0);
    options.drawFrame = true;
    options.changeHatch = true;
    options.distance = 2.5;
    options.dialogPosX = 300;
    options.dialogPosY = 200;
    options.save();

    const std::string text = test::readBytes(path);
    EXPECT_NE(text.find("[OTHER]\r\nBlinking=1\r\n"), std::string::npos) << "other sections stay: " << text;
    EXPECT_NE(text.find("BlinkTime=333"), std::string::npos) << "the period is written, truncated: " << text;

    cOptHighlight again;
    again.load(path, "MYMODULE");
    EXPECT_EQ(again.mode, 1);
    EXPECT_EQ(again.period, 333);
    EXPECT_DOUBLE_EQ(again.frequency, 3.0);
    EXPECT_TRUE(again.drawFrame);
    EXPECT_TRUE(again.changeHatch);
    EXPECT_DOUBLE_EQ(again.distance, 2.5);
    EXPECT_EQ(again.dialogPosX, 300);
    EXPECT_EQ(again.dialogPosY, 200);
}

TEST(HighlightPromptTest, SelectionKeywordOnlyWhenTheControlTextHasS) {
    const auto all = highlightKeywords("LS");
    EXPECT_EQ(highlightPrompt(all), "\nReturn oder [Optionen/Permanentumrahmung/Auswahlsatz/Löschen/Hilfe]: ");
    EXPECT_EQ(highlightKeywordList(all), "Optionen Permanentumrahmung Auswahlsatz Löschen Hilfe");

    const auto without = highlightKeywords("L");
    EXPECT_EQ(highlightPrompt(without), "\nReturn oder [Optionen/Permanentumrahmung/Löschen/Hilfe]: ");
    EXPECT_EQ(highlightCode(true, "Löschen", without), HighlightCode::Delete)
        << "leaving the selection set out moves no other code";
    EXPECT_EQ(highlightCode(true, "Auswahlsatz", without), HighlightCode::Return)
        << "a keyword not offered is typed text";
}

TEST(HighlightPromptTest, EachKeywordHasItsCodeAndEverythingElseReturns) {
    const auto words = highlightKeywords("LS");
    EXPECT_EQ(highlightCode(true, "Optionen", words), HighlightCode::Options);
    EXPECT_EQ(highlightCode(true, "Permanentumrahmung", words), HighlightCode::PermanentFrame);
    EXPECT_EQ(highlightCode(true, "Auswahlsatz", words), HighlightCode::SelectionSet);
    EXPECT_EQ(highlightCode(true, "Hilfe", words), HighlightCode::Help);
    EXPECT_EQ(highlightCode(true, "irgendwas", words), HighlightCode::Return);
    EXPECT_EQ(highlightCode(false, "Optionen", words), HighlightCode::Return) << "a cancel ends the prompt";
}

TEST(BlinkControlTest, NoFrequencyMeansOneChangeInTenSeconds) {
    BlinkControl control;
    for (double f : {0.0, -2.0, 0.1}) {
        control.setFrequency(f);
        EXPECT_EQ(control.periodMs(), 10000) << f;
    }
    control.setFrequency(3.0);
    EXPECT_EQ(control.periodMs(), 333);
}

TEST(HighlightFrameTest, CrossedBoxRunsRoundTheGrownExtentsAndBothDiagonals) {
    const auto v = crossedBox({0, 0, 0}, {10, 4, 0}, 1.0);
    const Point3 p1{-1, -1, 0}, p2{11, -1, 0}, p3{11, 5, 0}, p4{-1, 5, 0};
    EXPECT_EQ(v, (std::vector<Point3>{p4, p1, p3, p2, p4, p3, p2, p1}));
}

}  // namespace
}  // namespace ardo
