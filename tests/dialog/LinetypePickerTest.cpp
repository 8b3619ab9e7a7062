// The linetype picker's list of a ".lin" file, and the file dialog that shows it.
#include <gtest/gtest.h>

#include <QTableWidget>
#include <QTest>
#include <filesystem>

#include "dialog/GuiApplication.h"
#include "dialog/LinetypeList.h"
#include "dialog/cDlgOpenLineType.h"
#include "support/ScriptedHost.h"
#include "support/TempFolder.h"

namespace ardo {
namespace {

TEST(LinetypeListTest, DefinitionLinesGiveNameAndDescription) {
    LinetypeRow row;
    ASSERT_TRUE(parseLinetypeLine("*DASHED,    __ __ __ __\r\n", row));
    EXPECT_EQ(row.name, "DASHED");
    EXPECT_EQ(row.description, "__ __ __ __");
    ASSERT_TRUE(parseLinetypeLine("*  RAND  \n", row));
    EXPECT_EQ(row.name, "RAND");
    EXPECT_EQ(row.description, "");
    ASSERT_TRUE(parseLinetypeLine("*,Komma zuerst", row));
    EXPECT_EQ(row.name, ",Komma zuerst") << "a comma at the start is no separator";
    EXPECT_FALSE(parseLinetypeLine("A,.5,-.25", row));
    EXPECT_FALSE(parseLinetypeLine(";*KOMMENTAR,x", row));
}

TEST(LinetypeListTest, FilesListContinuousFirstAndNothingWhenUnreadable) {
    test::TempFolder tmp;
    const std::string lin = tmp.write("test.lin", ";; Linientypen\r\n*DASHED,Strich __ __\r\nA,.5,-.25\r\n*MAUER\xE4,Mauer \xE4\r\n"
                                                  "A,1,-1\r\n*Continuous,doppelt\r\n");
    const std::vector<LinetypeRow> rows = linetypesOfFile(lin);
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_EQ(rows[0].name, "Continuous");
    EXPECT_EQ(rows[0].description, "Continuous");
    EXPECT_EQ(rows[1].name, "DASHED");
    EXPECT_EQ(rows[2].name, "MAUER\xC3\xA4") << "Windows-1252 read as such";
    EXPECT_EQ(rows[3].description, "doppelt") << "a file's own Continuous is listed as it stands";
    EXPECT_TRUE(linetypesOfFile(tmp.file("fehlt.lin")).empty());

    // A line longer than a piece goes on in a second piece, which is no definition.
    const std::string longName(300, 'L');
    const auto longRows = linetypesOfFile(tmp.write("long.lin", "*" + longName + ",x\n"));
    ASSERT_EQ(longRows.size(), 2u);
    EXPECT_EQ(longRows[1].name.size(), 255u);
}

TEST(LinetypePickerTest, TheSelectedFilesLinetypesAreListed) {
    test::guiApplication();
    test::ScriptedHost host;
    const std::string folder = std::string(ARDO_SOURCE_DIR) + "/examples/install";
    cDlgOpenLineType picker(nullptr, folder);
    EXPECT_EQ(picker.windowTitle(), QString::fromUtf8("Linientyp wählen"));
    picker.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&picker));
    picker.selectLinetypeFile(QString::fromStdString(folder + "/ardo.lin"), "ardo_verdeckt");
    QTableWidget& list = picker.linetypeList();
    ASSERT_GT(list.rowCount(), 1);
    EXPECT_EQ(list.item(0, 0)->text(), "Continuous");
    EXPECT_EQ(list.horizontalHeaderItem(0)->text(), "Linientyp");
    EXPECT_EQ(list.horizontalHeaderItem(1)->text(), "Beschreibung");
    bool strich = false;
    for (int row = 0; row < list.rowCount(); ++row) strich |= list.item(row, 0)->text() == "ARDO_STRICH";
    EXPECT_TRUE(strich);
    EXPECT_EQ(picker.chosenLinetype(), "ARDO_VERDECKT") << "the entry's linetype is preselected, in any case";
    list.selectRow(1);
    EXPECT_EQ(picker.chosenLinetype(), list.item(1, 0)->text().toStdString());
    EXPECT_EQ(std::filesystem::path(picker.chosenFile()).filename(), "ardo.lin");
    picker.resize(720, 520);
    std::filesystem::create_directories("grabs");
    EXPECT_TRUE(picker.grab().save("grabs/linetype-picker.png"));

    picker.showLinetypesOf(QString::fromStdString(folder + "/fehlt.lin"));
    EXPECT_EQ(list.rowCount(), 0);
}

}  // namespace
}  // namespace ardo
