// The options dialog: the two column lists, their buttons and what OK stores.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <filesystem>

#include "dialog/ColumnChoice.h"
#include "dialog/GuiApplication.h"
#include "dialog/cDlgOptions.h"
#include "support/ScriptedHost.h"

namespace ardo {
namespace {

QStringList texts(const QListWidget& list) {
    QStringList result;
    for (int i = 0; i < list.count(); ++i) result << list.item(i)->text();
    return result;
}

TEST(ColumnChoiceTest, MovesKeepTheOrderInWhichColumnsWereAdded) {
    ColumnChoice choice("234567");
    EXPECT_EQ(choice.hidden(), "");
    EXPECT_FALSE(choice.canShowAll());
    EXPECT_FALSE(choice.canShowOne(0));
    EXPECT_TRUE(choice.canHideAll());
    EXPECT_FALSE(choice.canHideOne(1)) << "the name can never be hidden";
    EXPECT_TRUE(choice.canHideOne(2));

    choice.hide('3');
    choice.hide('5');
    EXPECT_EQ(choice.hidden(), "35");
    choice.show('5');
    choice.show('3');
    EXPECT_EQ(choice.columns(), "246753");
    choice.show('4');
    EXPECT_EQ(choice.columns(), "246753") << "a shown column is not added twice";

    choice.hideAll();
    EXPECT_EQ(choice.columns(), "");
    EXPECT_FALSE(choice.canHideAll());
    EXPECT_FALSE(choice.canHideOne(2));
    choice.showAll();
    EXPECT_EQ(choice.columns(), "234567") << "show all keeps the hidden list's order";

    ColumnChoice odd("7x2");
    EXPECT_EQ(odd.columns(), "72") << "characters that name no column are dropped";
    EXPECT_EQ(odd.hidden(), "3456");
}

class OptionsDialogTest : public ::testing::Test {
protected:
    void SetUp() override { test::guiApplication(); }
    test::ScriptedHost host;
    LayerDialogSettings settings;
};

TEST_F(OptionsDialogTest, AllShownAllowsOnlyHiding) {
    cDlgOptions dialog(settings, nullptr);
    EXPECT_EQ(dialog.windowTitle(), "Konfiguration");
    EXPECT_EQ(dialog.hiddenList().count(), 0);
    EXPECT_EQ(texts(dialog.shownList()).mid(0, 3),
              (QStringList{QString::fromUtf8("Layerschlüssel"), "Layername", "Farbe"}));
    EXPECT_FALSE(dialog.showAllButton().isEnabled());
    EXPECT_FALSE(dialog.showOneButton().isEnabled());
    EXPECT_FALSE(dialog.hideOneButton().isEnabled()) << "nothing selected";
    EXPECT_TRUE(dialog.hideAllButton().isEnabled());
    dialog.shownList().setCurrentRow(1);
    EXPECT_FALSE(dialog.hideOneButton().isEnabled());
    dialog.shownList().setCurrentRow(3);
    EXPECT_TRUE(dialog.hideOneButton().isEnabled());
    EXPECT_EQ(dialog.hideAllButton().toolTip(), "Nur Layer-Schlüssel und -Name anzeigen!");
}

TEST_F(OptionsDialogTest, HideAllThenOkLeavesKeyAndNameOnly) {
    cDlgOptions dialog(settings, nullptr);
    dialog.hideAllButton().click();
    EXPECT_EQ(dialog.shownList().count(), 2);
    EXPECT_EQ(dialog.hiddenList().count(), 6);
    EXPECT_FALSE(dialog.hideAllButton().isEnabled());
    dialog.accept();
    EXPECT_EQ(settings.dataCols, "");
}

TEST_F(OptionsDialogTest, ShowOneAppendsTheSelectedColumnAtTheEnd) {
    cDlgOptions dialog(settings, nullptr);

    dialog.shownList().setCurrentRow(3);   // Linientyp
    dialog.hideOneButton().click();
    dialog.shownList().setCurrentRow(4);   // Linienstärke, now fifth
    dialog.hideOneButton().click();
    EXPECT_EQ(texts(dialog.hiddenList()), (QStringList{"Linientyp", QString::fromUtf8("Linienstärke")}));
    dialog.hiddenList().setCurrentRow(1);
    EXPECT_TRUE(dialog.showOneButton().isEnabled());
    dialog.showOneButton().click();
    EXPECT_EQ(texts(dialog.shownList()).last(), QString::fromUtf8("Linienstärke"));
    // A double click on a hidden column shows it.
    dialog.hiddenList().setCurrentRow(0);
    emit dialog.hiddenList().itemDoubleClicked(dialog.hiddenList().item(0));
    dialog.accept();
    EXPECT_EQ(settings.dataCols, "246753");
}

TEST_F(OptionsDialogTest, StartsFromTheStoredPriorityAndOkSetsBoth) {
    settings.dataPrio = 2;
    settings.currentPrio = 1;
    cDlgOptions dialog(settings, nullptr);
    EXPECT_TRUE(dialog.filePriority().isChecked()) << "the stored priority, not the current one";
    dialog.drawingPriority().setChecked(true);
    dialog.markLayers().setChecked(true);
    dialog.reject();
    EXPECT_EQ(settings.dataPrio, 2) << "Cancel changes nothing";
    EXPECT_FALSE(settings.markLayers);

    cDlgOptions again(settings, nullptr);
    again.drawingPriority().setChecked(true);
    again.markLayers().setChecked(true);
    again.show();
    std::filesystem::create_directories("grabs");
    EXPECT_TRUE(again.grab().save("grabs/options-dialog.png"));
    again.accept();
    EXPECT_EQ(settings.dataPrio, 1);
    EXPECT_EQ(settings.currentPrio, 1);
    EXPECT_TRUE(settings.markLayers);
    EXPECT_EQ(settings.dataCols, "234567");
}

}  // namespace
}  // namespace ardo
