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
#include "dialog/LayerViews.h"
#include "dialog/cCellEdit.h"
#include "dialog/cDlgLayer.h"
#include "dialog/cListControl.h"
#include "ui/cWndLayerTip.h"
#include "support/ScriptedHost.h"
#include "support/TempFolder.h"

namespace ardo {
namespace {

std::string readBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

class LayerDialogTest : public ::testing::Test {
protected:
    void SetUp() override {
        test::guiApplication();
        host.drawing = &drawing;
        LayerRecord r;
        r.name = "A-Wand-tragend";
        r.color = HostColor::fromIndex(1);   // the file says 7
        r.lineweight = 50;
        ASSERT_EQ(drawing.addLayer(r), DbStatus::Ok);
        r.name = "Skizze";
        ASSERT_EQ(drawing.addLayer(r), DbStatus::Ok);
        centralPath = tmp.write("Ardo.ini", readBytes(std::string(ARDO_SOURCE_DIR) + "/examples/install/DefaultIni/Ardo.ini"));
        settings.ardoLayerFile = centralPath;
    }
    std::unique_ptr<cDlgLayer> open(int mode, const std::string& defaultKey = {}) {
        session = std::make_unique<LayerDialogSession>(mode, settings);
        session->load();
        LayerDialogCall call;
        call.mode = mode;
        call.defaultKey = defaultKey;
        auto dialog = std::make_unique<cDlgLayer>(*session, call, nullptr);
        dialog->show();
        dialog->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
        return dialog;
    }
    void select(cDlgLayer& dialog, const std::string& name) {
        for (int row = 0; row < dialog.model().rowCount(); ++row)
            if (dialog.model().entryAt(row)->name == name) {
                dialog.table().setFocus();
                dialog.table().selectRow(row);
                dialog.updateCommands();
                return;
            }
        ADD_FAILURE() << name << " is not in the list";
    }

    test::ScriptedHost host;
    test::TempFolder tmp;
    cadhost::Drawing drawing;
    LayerDialogSettings settings;
    std::string centralPath;
    std::unique_ptr<LayerDialogSession> session;
};

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
    const std::set<C> always{C::FileQuit, C::OptsConfig, C::OptsDwg, C::OptsIni, C::HelpHelp, C::LayerRegen};
    const auto with = [&](std::initializer_list<C> more) {
        std::set<C> s = always;
        s.insert(more);
        return s;
    };
    const std::vector<Row> table{
        {3, 3, "", with({C::FileNew, C::FileOpen, C::FileSaveAs, C::ViewDrawing, C::ViewCentral})},
        {3, 3, "A-Decken", with({C::FileNew, C::FileOpen, C::FileSaveAs, C::ViewDrawing, C::ViewCentral,
                                 C::LayerColor, C::LayerLinetype, C::LayerDelete})},
        {3, 2, "Skizze", with({C::FileNew, C::FileOpen, C::FileSaveAs, C::ViewDrawing, C::ViewCentral,
                               C::LayerDelete})},
        {1, 3, "", with({C::ViewCentral})},
        {1, 3, "A-Decken", with({C::ViewCentral, C::LayerColor, C::LayerLinetype, C::LayerDelete})},
        {7, 3, "A-Decken", with({C::ViewObjects, C::ViewObjectType, C::ViewDrawing, C::ViewCentral, C::LayerColor,
                                 C::LayerLinetype, C::LayerDelete})},
        {7, 2, "Skizze", with({C::ViewObjects, C::ViewObjectType, C::ViewDrawing, C::ViewCentral, C::LayerDelete})},
    };
    for (const Row& row : table) {
        if (row.mode == 3) settings.viewModeEdit = row.view;
        if (row.mode == 7) settings.viewModeObjs = row.view;
        auto dialog = open(row.mode);
        if (*row.selected) select(*dialog, row.selected);
        for (int c = int(C::FileNew); c <= int(C::HelpHelp); ++c) {
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
    EXPECT_EQ(dialog->geometry().width(), 500) << "a width of 100 or less is ignored";
    EXPECT_EQ(dialog->geometry().height(), 400);
    dialog->table().setColumnWidth(0, 77);
    dialog->reject();
    EXPECT_EQ(settings.widthKey, 77) << "column widths are kept on closing";
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

TEST_F(LayerDialogTest, TheRowTipTellsWhereTheLayerIs) {
    auto dialog = open(3);
    dialog->showLayerTip(dialog->model().rowOfKey("A_WAND_TRAG"));
    ASSERT_NE(dialog->layerTip(), nullptr);
    EXPECT_EQ(dialog->layerTip()->lines(), (QStringList{"in zentraler Layersteuerdatei", "in der Zeichnung"}));
    dialog->showLayerTip(dialog->model().rowOfKey("A_FENSTER"));
    EXPECT_EQ(dialog->layerTip()->lines().last(), "nicht in der Zeichnung");
    dialog->reject();
}

TEST_F(LayerDialogTest, GrabsOfTheDialog) {
    settings.markLayers = true;
    auto dialog = open(3, "A_WAND_TRAG");
    dialog->resize(760, 420);
    QApplication::processEvents();
    // Beside the test binary, to be looked at.
    std::filesystem::create_directories("grabs");
    EXPECT_TRUE(dialog->grab().save("grabs/layer-dialog.png"));
    dialog->reject();
}

}  // namespace
}  // namespace ardo
