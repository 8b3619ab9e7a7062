// The layer dialog headless, on a copy of the example installation's central file and a
// real drawing; message boxes are answered by the scripted host.
#include <gtest/gtest.h>

#include <QAction>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <QToolButton>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "base/CodePage.h"
#include "cadhost/drawing/Drawing.h"
#include "dialog/GuiApplication.h"
#include "dialog/LayerDialogFixture.h"
#include "dialog/LayerViews.h"
#include "dialog/cCellEdit.h"
#include "dialog/cDlgLayer.h"
#include "dialog/cListControl.h"
#include "ui/cIconMenu.h"
#include "ui/cWndLayerTip.h"
#include "support/ScriptedHost.h"
#include "support/TempFolder.h"

namespace ardo {
namespace {

TEST(LayerDialogModesTest, ViewsByModeAndTheirSettings) {
    LayerDialogSettings s;
    s.viewModeObjs = 9;
    EXPECT_EQ(startViewOfMode(s, 7), 4) << "a view outside 1 to 4 becomes 4";
    s.viewModeObjs = 1;
    EXPECT_EQ(startViewOfMode(s, 7), 1);
    s.viewModeEdit = 2;
    EXPECT_EQ(startViewOfMode(s, 3), 2);
    storeViewOfMode(s, 1, 3);
    EXPECT_EQ(s.viewModeArdo, 3);
    for (int view = 1; view <= 4; ++view) {
        EXPECT_TRUE(viewOffered(7, view));
        EXPECT_EQ(viewOffered(3, view), view == 2 || view == 3) << view;
        EXPECT_EQ(viewOffered(1, view), view == 3) << view;
    }
    s.viewModeArdo = 2;
    LayerDialogSession session(1, s);
    EXPECT_EQ(session.view(), 3) << "mode 1 cannot show the drawing view it has stored";
}

// Which commands are enabled, by mode, view and selection.
TEST_F(LayerDialogTest, CommandsAreEnabledByModeViewAndSelection) {
    using C = LayerCommand;
    struct Row {
        int mode;
        int view;
        const char* selected;   // a layer name, or empty for no selection
        std::set<C> enabled;
    };
    const std::set<C> always{C::FileQuit, C::OptsConfig, C::OptsDwg, C::OptsIni, C::HelpHelp, C::HelpInfo,
                             C::LayerRegen, C::LayerNew, C::LayerPick};
    const auto with = [&](std::initializer_list<C> more) {
        std::set<C> s = always;
        s.insert(more);
        return s;
    };
    const std::initializer_list<C> editor{C::FileNew, C::FileOpen, C::FileSaveAs, C::ViewDrawing, C::ViewCentral};
    const std::initializer_list<C> objects{C::ViewObjects, C::ViewObjectType, C::ViewDrawing, C::ViewCentral};
    const auto join = [](std::initializer_list<C> a, std::initializer_list<C> b) {
        std::set<C> s(a);
        s.insert(b);
        return s;
    };
    const auto plus = [&](const std::set<C>& a, std::initializer_list<C> b) {
        std::set<C> s = a;
        s.insert(b);
        s.insert(always.begin(), always.end());
        return s;
    };
    const std::initializer_list<C> fileEntry{C::LayerFromCentral, C::LayerChange, C::LayerColor, C::LayerLinetype,
                                             C::LayerDelete};
    const std::initializer_list<C> drawingLayer{C::LayerBased, C::LayerChange, C::LayerDelete};
    const std::vector<Row> table{
        {3, 3, "", with(editor)},
        {3, 3, "A-Decken", plus(join(editor, fileEntry), {})},
        {3, 2, "Skizze", plus(join(editor, drawingLayer), {})},
        {3, 2, "A-Wand-tragend", plus(join(editor, fileEntry), {C::LayerBased})},
        {1, 3, "", with({C::ViewCentral})},
        {1, 3, "A-Decken", plus(join({C::ViewCentral}, fileEntry), {})},
        {7, 3, "A-Decken", plus(join(objects, fileEntry), {})},
        {7, 2, "Skizze", plus(join(objects, drawingLayer), {})},
    };
    for (const Row& row : table) {
        if (row.mode == 3) settings.viewModeEdit = row.view;
        if (row.mode == 7) settings.viewModeObjs = row.view;
        auto dialog = open(row.mode);
        if (*row.selected) select(*dialog, row.selected);
        for (int c = int(C::FileNew); c <= int(C::HelpInfo); ++c) {
            const C command = static_cast<C>(c);
            EXPECT_EQ(dialog->action(command)->isEnabled(), row.enabled.count(command) == 1)
                << "mode " << row.mode << " view " << row.view << " selected '" << row.selected << "' command " << c;
        }
        dialog->hide();
    }
}

TEST_F(LayerDialogTest, SaveFollowsChangesAndTheToolbarHasTooltips) {
    auto dialog = open(3);
    EXPECT_FALSE(dialog->action(LayerCommand::FileSave)->isEnabled());
    EXPECT_EQ(dialog->action(LayerCommand::LayerRegen)->toolTip(),
              QString::fromUtf8("Layer regenerieren, d.h. auf zentrale Layersteuerdatei abgleichen"));
    EXPECT_EQ(dialog->action(LayerCommand::FileNew)->text(), "Neu");
    EXPECT_EQ(dialog->windowTitle(), QString::fromUtf8("ZV·TELVANO Layer-Editor"));
    select(*dialog, "A-Decken");
    host.chosenColors.push_back(HostColor::fromIndex(3));
    dialog->run(LayerCommand::LayerColor);
    EXPECT_TRUE(dialog->action(LayerCommand::FileSave)->isEnabled());
    EXPECT_EQ(session->list().findByName("A-Decken").entry->fileColor, 3);
    host.answers = {MbAnswer::No};
    dialog->reject();
    EXPECT_FALSE(dialog->isVisible()) << "No drops the changes and closes";
}

TEST_F(LayerDialogTest, ColourGoesToEverySelectedFileEntry) {
    auto dialog = open(3);
    dialog->table().selectAll();
    const int rows = dialog->model().rowCount();
    host.chosenColors.push_back(HostColor::fromRgb(1, 2, 3));
    dialog->run(LayerCommand::LayerColor);
    for (int row = 0; row < rows; ++row) ASSERT_EQ(dialog->model().entryAt(row)->fileColor, 0x02010203) << row;
    host.answers = {MbAnswer::Cancel};
    dialog->reject();
    EXPECT_TRUE(dialog->isVisible()) << "Cancel keeps the dialog open";
    EXPECT_EQ(host.boxes.back().caption, QString::fromUtf8("Rückfrage").toStdString());
    EXPECT_NE(host.boxes.back().text.find("\n    " + centralPath + "\n"), std::string::npos);
    host.answers = {MbAnswer::No};
    dialog->reject();
}

TEST_F(LayerDialogTest, DeleteAsksBySingularAndPluralAndSkipsDrawingLayers) {
    settings.viewModeEdit = 2;
    auto dialog = open(3);
    select(*dialog, "Skizze");
    QTest::keyClick(&dialog->table(), Qt::Key_Delete);
    ASSERT_FALSE(host.boxes.empty());
    EXPECT_EQ(host.boxes.back().text, QString::fromUtf8("Die Auswahl enthält keine löschbaren Einträge.").toStdString());

    dialog->table().selectAll();
    host.answers = {MbAnswer::No};
    QTest::keyClick(&dialog->table(), Qt::Key_Delete);
    EXPECT_NE(host.boxes.back().text.find("Wollen Sie den Eintrag wirklich"), std::string::npos)
        << "only A-Wand-tragend of the drawing view is in the file";
    EXPECT_EQ(host.boxes.back().buttons, MbButtons::YesNo);
    EXPECT_FALSE(session->changed());

    dialog->run(LayerCommand::ViewCentral);
    const int before = dialog->model().rowCount();
    select(*dialog, "A-Decken");
    dialog->table().selectionModel()->select(dialog->model().index(0, 0),
                                              QItemSelectionModel::Select | QItemSelectionModel::Rows);
    host.answers = {MbAnswer::Yes};
    QTest::keyClick(&dialog->table(), Qt::Key_Delete);
    EXPECT_NE(host.boxes.back().text.find("Wollen Sie die Einträge wirklich"), std::string::npos);
    EXPECT_EQ(dialog->model().rowCount(), before - 2);
    EXPECT_TRUE(session->list().findByName("A-Decken").entry->isDeleted());

    host.answers = {MbAnswer::Yes};
    dialog->accept();
    const std::string saved = readBytes(centralPath);
    EXPECT_EQ(saved.find("A_DECKE="), std::string::npos) << "deleted entries are not written";
    EXPECT_NE(saved.find("A_WAND_TRAG=A-Wand-tragend"), std::string::npos);
}

TEST_F(LayerDialogTest, RegenerateBringsTheDrawingInLineWithTheFile) {
    auto dialog = open(3);
    dialog->run(LayerCommand::LayerRegen);
    EXPECT_EQ(drawing.findLayer("A-Wand-tragend")->color, HostColor::fromIndex(7));
    EXPECT_NE(host.printed.find("\n1 (1) Layer erfolgreich geändert\n"), std::string::npos) << host.printed;
    EXPECT_EQ(host.boxes.back().text, "1 (1) Layer erfolgreich geändert");
    EXPECT_EQ(host.displayUpdates, 1);
    EXPECT_FALSE(dialog->model().index(dialog->model().rowOfKey("A_WAND_TRAG"), 2).data(cListControl::MarkedRole).toBool())
        << "the row shows the layer as it now is";

    host.clearOutput();
    dialog->run(LayerCommand::LayerRegen);
    EXPECT_EQ(host.boxes.back().text, "0 (0) Layer erfolgreich geändert");
    EXPECT_EQ(host.displayUpdates, 1) << "nothing changed, nothing to update";
    dialog->reject();
}

TEST_F(LayerDialogTest, SearchSelectsAndTheToggleFilters) {
    auto dialog = open(3);
    QTest::keyClicks(&dialog->searchField(), "fenster");
    ASSERT_NE(dialog->chosenEntry(), nullptr);
    EXPECT_EQ(dialog->chosenEntry()->name, "A-Ansichtsfenster") << "the first row holding the text";
    dialog->searchField().setText("a-fenster");
    ASSERT_NE(dialog->chosenEntry(), nullptr);
    EXPECT_EQ(dialog->chosenEntry()->name, "A-Fenster");
    QTest::keyClicks(&dialog->searchField(), "x");
    EXPECT_EQ(dialog->chosenEntry()->name, "A-Fenster") << "no match leaves the selection";
    int hidden = 0;
    for (int row = 0; row < dialog->model().rowCount(); ++row) hidden += dialog->table().isRowHidden(row);
    EXPECT_EQ(hidden, 0) << "selecting only, as by default";

    dialog->searchField().setText("fenster");
    dialog->filterToggle().click();
    int shown = 0;
    for (int row = 0; row < dialog->model().rowCount(); ++row)
        if (!dialog->table().isRowHidden(row)) {
            ++shown;
            EXPECT_NE(QString::fromStdString(dialog->model().entryAt(row)->name).toUpper().indexOf("FENSTER"), -1);
        }
    EXPECT_GE(shown, 2) << "A-Ansichtsfenster and A-Fenster";
    EXPECT_LT(shown, dialog->model().rowCount());
    dialog->filterToggle().click();
    for (int row = 0; row < dialog->model().rowCount(); ++row) ASSERT_FALSE(dialog->table().isRowHidden(row));
    dialog->reject();
}

TEST_F(LayerDialogTest, PriorityMenuSwitchesTheShownHalf) {
    auto dialog = open(3);
    const QModelIndex colour = dialog->model().index(dialog->model().rowOfKey("A_WAND_TRAG"), 2);
    EXPECT_EQ(colour.data().toString(), "1");
    dialog->action(LayerCommand::OptsIni)->trigger();
    EXPECT_EQ(colour.data().toString(), "7");
    EXPECT_TRUE(dialog->action(LayerCommand::OptsIni)->isChecked());
    EXPECT_FALSE(dialog->action(LayerCommand::OptsDwg)->isChecked());
    EXPECT_EQ(settings.currentPrio, 2);
    EXPECT_EQ(settings.dataPrio, 1) << "the menu changes the current priority only";
    dialog->reject();
}

TEST_F(LayerDialogTest, StoredGeometryIsCheckedAgainstTheVirtualScreensWidth) {
    settings.posX = 40;
    settings.posY = 5000;
    settings.sizeX = 90;
    settings.sizeY = 400;
    auto dialog = open(3);
    EXPECT_EQ(dialog->geometry().x(), 40);
    EXPECT_EQ(dialog->geometry().y(), 100) << "Y beyond the width minus 10 is ignored";
    EXPECT_GT(dialog->geometry().width(), 100) << "a width of 100 or less is ignored";
    EXPECT_EQ(dialog->geometry().height(), 400);
    dialog->table().setColumnWidth(0, 77);
    dialog->reject();
    EXPECT_EQ(settings.widthKey, 77) << "column widths are kept on closing";
}

TEST_F(LayerDialogTest, TheFirstOpenShowsEveryColumnWhole) {
    auto dialog = open(3);
    QApplication::processEvents();
    const QTableView& table = dialog->table();
    const int columns = dialog->model().columnCount();
    ASSERT_EQ(columns, 8);
    int right = 0;
    for (int position = 0; position < columns; ++position)
        right = std::max(right, table.columnViewportPosition(position) + table.columnWidth(position));
    // On a screen too narrow for all columns the dialog takes what the screen has.
    const QRect screen = dialog->screen()->availableGeometry();
    if (right + 100 < screen.width() - 150) EXPECT_LE(right, table.viewport()->width()) << "the last column is cut off";
    else EXPECT_EQ(dialog->geometry().right(), screen.right());
    EXPECT_GE(table.viewport()->height(), 10 * table.verticalHeader()->defaultSectionSize());
    for (const QWidget* w : dialog->findChildren<QWidget*>("ok")) EXPECT_TRUE(w->isVisible());

    dialog->reject();
    dialog.reset();   // a dialog ends before its session is replaced by the next opening
    settings.sizeX = 520;
    settings.sizeY = 310;
    auto again = open(3);
    EXPECT_EQ(again->geometry().size(), QSize(520, 310)) << "a size the user gave is kept";
    again->reject();
}

// In-place editing of the key and name cells.
class CellEditTest : public LayerDialogTest {
protected:
    void edit(cDlgLayer& dialog, Qt::Key column, const QString& text, Qt::Key end = Qt::Key_Return) {
        if (column == Qt::Key_Right) dialog.table().setCurrentIndex(dialog.table().currentIndex().siblingAtColumn(1));
        QTest::keyClick(&dialog.table(), Qt::Key_F2);
        cCellEdit* editor = dialog.cellEditor();
        ASSERT_NE(editor, nullptr);
        EXPECT_EQ(editor->selectedText(), editor->text()) << "the whole text is selected";
        editor->selectAll();
        // QTest types ASCII keys only; other letters come as an input method would give them.
        bool ascii = true;
        for (QChar c : text) ascii &= c.unicode() < 128;
        if (ascii) QTest::keyClicks(editor, text);
        else editor->insert(text);
        QTest::keyClick(editor, end);
        QApplication::processEvents();
    }
};

TEST_F(CellEditTest, KeyIsTrimmedAndChangedAfterTheQuestion) {
    auto dialog = open(3, "A_DECKE");
    host.answers = {MbAnswer::Yes};
    edit(*dialog, Qt::Key_Left, "  A_DECKE_NEU  ");
    EXPECT_EQ(session->list().findByName("A-Decken").entry->key, "A_DECKE_NEU");
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text, QString::fromUtf8("A c h t u n g !\n\nDie Änderung eines Layerschlüssels kann zu "
                                                    "Inkonsistenzen führen.\n\nWollen Sie den Layerschlüssel wirklich ändern ?")
                                      .toStdString());
    EXPECT_EQ(host.boxes[0].icon, MbIcon::Exclamation);
    EXPECT_EQ(dialog->cellEditor(), nullptr) << "the editor is gone";
    EXPECT_TRUE(session->changed());

    host.clearOutput();
    host.answers = {MbAnswer::No};
    edit(*dialog, Qt::Key_Left, "A_X");
    EXPECT_EQ(session->list().findByName("A-Decken").entry->key, "A_DECKE_NEU") << "No changes nothing";

    for (const char* refused : {"   ", "A;B", "A_FENSTER"}) {
        host.clearOutput();
        edit(*dialog, Qt::Key_Left, refused);
        ASSERT_EQ(host.boxes.size(), 1u) << refused;
        EXPECT_EQ(host.boxes[0].icon, MbIcon::Error) << refused;
        EXPECT_EQ(session->list().findByName("A-Decken").entry->key, "A_DECKE_NEU") << refused;
    }
    host.answers = {MbAnswer::No};
    dialog->reject();
}

TEST_F(CellEditTest, EscapeRestoresAndNamesInOtherCaseAreNoChange) {
    auto dialog = open(3, "A_DECKE");
    edit(*dialog, Qt::Key_Left, "WEG", Qt::Key_Escape);
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_EQ(session->list().findByName("A-Decken").entry->key, "A_DECKE");

    edit(*dialog, Qt::Key_Right, "a-DECKEN");
    EXPECT_TRUE(host.boxes.empty()) << "no question for the same letters";
    EXPECT_EQ(session->list().findByKey("A_DECKE").entry->name, "A-Decken");

    host.answers = {MbAnswer::Yes};
    edit(*dialog, Qt::Key_Right, "A-Decken-neu");
    EXPECT_EQ(session->list().findByKey("A_DECKE").entry->name, "A-Decken-neu");
    EXPECT_NE(host.printed.find("OnEditFocusKilled Nam T:4 Op:0\n"), std::string::npos) << host.printed;
    EXPECT_EQ(dialog->model().index(dialog->model().rowOfKey("A_DECKE"), 1).data().toString(), "A-Decken-neu");
    EXPECT_FALSE(dialog->editCell(3)) << "only key and name are edited in place";
    host.answers = {MbAnswer::No};
    dialog->reject();
}

TEST_F(CellEditTest, SavingKeepsLineEndsAndCodePage) {
    auto dialog = open(3, "A_BODEN");
    host.answers = {MbAnswer::Yes};
    edit(*dialog, Qt::Key_Right, QString::fromUtf8("A-Bodenbeläge"));
    dialog->run(LayerCommand::FileSave);
    const std::string bytes = readBytes(centralPath);
    EXPECT_NE(bytes.find("A_BODEN=A-Bodenbel\xE4ge,9,Continuous,,0,,,13,Normal,Bodenbel\xE4ge,1\r\n"), std::string::npos);
    for (size_t at = bytes.find('\n'); at != std::string::npos; at = bytes.find('\n', at + 1))
        ASSERT_TRUE(at > 0 && bytes[at - 1] == '\r') << "a bare line feed at " << at;
    EXPECT_FALSE(session->changed());
    EXPECT_FALSE(dialog->action(LayerCommand::FileSave)->isEnabled());
    dialog->reject();
    EXPECT_TRUE(host.boxes.size() == 1) << "no closing question after saving";
}

TEST_F(CellEditTest, RenamingADrawingLayerRenamesItWhenTheFileIsSaved) {
    const auto line = drawing.makeEntity({{0, "LINE"}, {8, "A-Wand-tragend"}, {10, "0"}, {20, "0"}, {30, "0"},
                                          {11, "1"}, {21, "1"}, {31, "0"}});
    ASSERT_TRUE(line);
    auto dialog = open(3, "A_WAND_TRAG");
    host.answers = {MbAnswer::Yes};
    edit(*dialog, Qt::Key_Right, "A-Wand-neu");
    EXPECT_EQ(host.printed.find("OnEditFocusKilled"), std::string::npos) << "no trace for a drawing layer";
    EXPECT_TRUE(drawing.findLayer("A-Wand-tragend")) << "queued, not yet done";
    host.answers = {MbAnswer::Yes};
    edit(*dialog, Qt::Key_Right, "A-Wand-neuer");
    ASSERT_EQ(session->pendingRenames().size(), 1u) << "two renames of one layer are one";
    dialog->run(LayerCommand::FileSave);
    EXPECT_FALSE(drawing.findLayer("A-Wand-tragend"));
    ASSERT_TRUE(drawing.findLayer("A-Wand-neuer"));
    EXPECT_EQ(drawing.findLayer("A-Wand-neuer")->color, HostColor::fromIndex(1)) << "the layer keeps its colour";
    EXPECT_EQ(drawing.entity(*line)->layer, "A-Wand-neuer") << "its entities follow";
    const LayerEntry* entry = session->list().findByKey("A_WAND_TRAG").entry;
    ASSERT_NE(entry, nullptr);
    EXPECT_TRUE(entry->has(entryflag::kInDrawing)) << "the saved entry finds its layer again";
    EXPECT_NE(readBytes(centralPath).find("A_WAND_TRAG=A-Wand-neuer,"), std::string::npos);
    dialog->reject();
}

TEST_F(CellEditTest, RenamesAreDroppedWithTheOtherChanges) {
    auto dialog = open(3, "A_WAND_TRAG");
    host.answers = {MbAnswer::Yes};
    edit(*dialog, Qt::Key_Right, "A-Wand-neu");
    host.answers = {MbAnswer::No};
    dialog->accept();
    EXPECT_TRUE(drawing.findLayer("A-Wand-tragend"));
    EXPECT_FALSE(drawing.findLayer("A-Wand-neu"));
}

TEST_F(CellEditTest, ALayerOnlyInTheDrawingIsNotEditedInPlace) {
    settings.viewModeEdit = 2;
    auto dialog = open(3);
    select(*dialog, "Skizze");
    QTest::keyClick(&dialog->table(), Qt::Key_F2);
    EXPECT_EQ(dialog->cellEditor(), nullptr);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text, QString::fromUtf8("Ein Layerschlüssel des nur in der Zeichnung vorhandenen Layers\n"
                                                    "kann nicht zugewiesen werden.").toStdString());
    dialog->reject();
}

TEST_F(LayerDialogTest, TheRowTipTellsWhereTheLayerIs) {
    auto dialog = open(3);
    dialog->showLayerTip(dialog->model().rowOfKey("A_WAND_TRAG"));
    ASSERT_NE(dialog->layerTip(), nullptr);
    EXPECT_EQ(dialog->layerTip()->lines(), (QStringList{"in zentraler Layersteuerdatei", "in der Zeichnung"}));
    dialog->showLayerTip(dialog->model().rowOfKey("A_FENSTER"));
    EXPECT_EQ(dialog->layerTip()->lines().last(), "nicht in der Zeichnung");
    dialog->reject();
}

TEST_F(LayerDialogTest, TheContextMenuIsTheLayerMenuInItsOrder) {
    settings.viewModeEdit = 2;
    auto dialog = open(3);
    for (const char* name : {"Skizze", "A-Wand-tragend"}) {
        select(*dialog, name);
        const std::unique_ptr<cIconMenu> menu = dialog->contextMenu();
        QStringList texts;
        for (QAction* a : menu->actions()) texts << (a->isSeparator() ? "-" : a->text());
        EXPECT_EQ(texts, (QStringList{"Neu ...", QString::fromUtf8("Layer aus Zeichnung übernehmen ..."),
                                      QString::fromUtf8("Layer aus zentraler Layersteuerdatei übernehmen ..."),
                                      "Eigenschaften ...", "-", "Farbe ...", "Linientyp ...", "-",
                                      QString::fromUtf8("Löschen ...")}));
        const QList<QAction*> a = menu->actions();
        EXPECT_EQ(a[3]->isEnabled(), a[8]->isEnabled()) << "Eigenschaften and Löschen share one test";
        EXPECT_EQ(a[5]->isEnabled(), a[6]->isEnabled()) << "Farbe and Linientyp share one test";
        EXPECT_EQ(a[2]->isEnabled(), std::string(name) == "A-Wand-tragend") << name;
        EXPECT_EQ(menu->commandIdOf(a[3]), 40060);
    }
    const std::unique_ptr<cIconMenu> menu = dialog->contextMenu();
    menu->popup(dialog->mapToGlobal(QPoint(40, 80)));
    QApplication::processEvents();
    std::filesystem::create_directories("grabs");
    EXPECT_TRUE(menu->grab().save("grabs/context-menu.png"));
    menu->hide();
    dialog->reject();
}

TEST_F(LayerDialogTest, GrabsOfTheDialog) {
    settings.markLayers = true;
    // At the size of the first open.
    auto dialog = open(3, "A_WAND_TRAG");
    QApplication::processEvents();
    // Beside the test binary, to be looked at.
    std::filesystem::create_directories("grabs");
    EXPECT_TRUE(dialog->grab().save("grabs/layer-dialog.png"));
    dialog->reject();
}

}  // namespace
}  // namespace ardo
