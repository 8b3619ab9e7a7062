// The lineweight picker with the lineweight variables as the host gives them.
#include <gtest/gtest.h>

#include <QLabel>
#include <QListWidget>
#include <filesystem>

#include "dialog/GuiApplication.h"
#include "dialog/cDlgLineWeight.h"
#include "support/ScriptedHost.h"

namespace ardo {
namespace {

TEST(LineweightPickerTest, PreselectsTheValueAndGivesBackTheChosenOne) {
    test::guiApplication();
    test::ScriptedHost host;
    host.variables["LWUNITS"] = ResBuf::shortInt(1);
    host.variables["LWDISPLAY"] = ResBuf::shortInt(1);
    cDlgLineWeight picker(35, nullptr);
    EXPECT_EQ(picker.windowTitle(), QString::fromUtf8("Layer-Linienstärke wählen"));
    ASSERT_NE(picker.list().currentItem(), nullptr);
    EXPECT_EQ(picker.list().currentItem()->text(), "0.35 mm");
    EXPECT_EQ(picker.unitText().text(), "mm");
    EXPECT_EQ(picker.displayText().text(), "ein");
    picker.show();
    std::filesystem::create_directories("grabs");
    EXPECT_TRUE(picker.grab().save("grabs/lineweight-picker.png"));

    picker.list().setCurrentRow(0);
    picker.reject();
    EXPECT_EQ(picker.lineweight(), 35) << "Cancel leaves the value";
    picker.list().setCurrentRow(0);
    picker.accept();
    EXPECT_EQ(picker.lineweight(), -3) << "the first row is the default lineweight";
}

TEST(LineweightPickerTest, InchesWhenTheDrawingSaysSo) {
    test::guiApplication();
    test::ScriptedHost host;
    host.variables["LWUNITS"] = ResBuf::shortInt(0);
    host.variables["LWDISPLAY"] = ResBuf::shortInt(0);
    cDlgLineWeight picker(9999, nullptr);
    EXPECT_EQ(picker.unitText().text(), "Zoll");
    EXPECT_EQ(picker.displayText().text(), "aus");
    EXPECT_EQ(picker.list().currentItem(), nullptr) << "a value not in the list selects nothing";
    EXPECT_NE(picker.list().item(6)->text().indexOf('"'), -1);
}

}  // namespace
}  // namespace ardo
