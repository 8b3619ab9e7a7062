// The layer entry properties dialog and the Layer menu commands that open it, on the
// example installation's central file and a real drawing.
#include <gtest/gtest.h>

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>

#include "dialog/EntryProposal.h"
#include "dialog/LayerDialogFixture.h"
#include "dialog/PlotStyleList.h"
#include "dialog/cDlgPlotStyle.h"
#include "dialog/cDlgProps.h"
#include "help/Help.h"
#include "settings/ModuleFiles.h"
#include "settings/ProfileString.h"

namespace ardo {
namespace {

LayerEntry named(const std::string& key, const std::string& name, std::uint32_t flags = entryflag::kFromFile) {
    LayerEntry e;
    e.key = key;
    e.name = name;
    e.flags = flags;
    return e;
}

TEST(EntryProposalTest, NewNamesAndCopiesTakeTheFirstFreeNumber) {
    CentralLayerFile list;
    list.append(named("K1", "Layer1"));
    list.append(named("K2", "layer2"));
    EXPECT_EQ(proposedLayerName(list), "Layer3") << "names are compared without regard to case";
    const LayerEntry proposal = newEntryProposal(list);
    EXPECT_EQ(proposal.fileLinetype, "Continuous");
    EXPECT_TRUE(proposal.has(entryflag::kFromFile));

    LayerEntry& wall = list.append(named("WAND", "Wand"));
    wall.fileColor = 5;
    wall.fileStates = 2;
    list.append(named("WAND_2", "Wand-3"));
    const LayerEntry copy = entryBasedOn(list, wall);
    EXPECT_EQ(copy.key, "WAND_3");
    EXPECT_EQ(copy.name, "Wand-2");
    EXPECT_EQ(copy.fileColor, 5);
    EXPECT_EQ(copy.fileStates, 2);

    // A drawing layer lends its drawing half and its name.
    LayerEntry& sketch = list.append(named("", "Skizze", entryflag::kInDrawing));
    sketch.dwgColor = 3;
    sketch.dwgLinetype = "DASHED";
    sketch.dwgStates = 1 | 16;
    sketch.dwgLineweight = 50;
    const LayerEntry taken = entryBasedOn(list, sketch);
    EXPECT_EQ(taken.key, "Skizze");
    EXPECT_EQ(taken.name, "Skizze");
    EXPECT_EQ(taken.fileColor, 3);
    EXPECT_EQ(taken.fileLinetype, "DASHED");
    EXPECT_EQ(taken.fileStates, 17);
    EXPECT_EQ(taken.fileLineweight, 50);
    EXPECT_EQ(entryTakingNew(list, "SKIZZE"), &sketch) << "the drawing layer takes the new entry";
    EXPECT_EQ(entryTakingNew(list, "Wand"), nullptr);
}

TEST(PlotStylePickerTest, PreselectsInAnyCaseAndFallsBackToTheFirstRow) {
    test::guiApplication();
    test::ScriptedHost host;
    cadhost::Drawing drawing;
    host.drawing = &drawing;
    // A drawing keeps the plot styles its dictionary names.
    if (!drawing.hasDictionary("ACAD_PLOTSTYLENAME")) {
        ASSERT_EQ(drawing.addDictionary("ACAD_PLOTSTYLENAME"), DbStatus::Ok);
    }
    ASSERT_EQ(drawing.addPlaceHolder("ACAD_PLOTSTYLENAME", "Dick"), DbStatus::Ok);
    LayerRecord r;
    r.name = "Plan";
    r.plotStyleName = "Dick";
    ASSERT_EQ(drawing.addLayer(r), DbStatus::Ok);
    CentralLayerFile list;
    list.append(named("A", "A")).filePlotStyle = "DICK";
    list.append(named("B", "B")).filePlotStyle = "Duenn";
    const std::vector<std::string> names = plotStyleNames(list);
    EXPECT_EQ(names, (std::vector<std::string>{"Normal", "Dick", "Duenn"})) << "each name once, Normal first";

    cDlgPlotStyle picker(names, "dUENN", nullptr);
    EXPECT_EQ(picker.list().currentRow(), 2);
    picker.list().setCurrentRow(1);
    picker.accept();
    EXPECT_EQ(picker.plotStyle(), "Dick");
    cDlgPlotStyle unknown(names, "Gibtsnicht", nullptr);
    EXPECT_EQ(unknown.list().currentRow(), 0);
    unknown.reject();
    EXPECT_EQ(unknown.plotStyle(), "Gibtsnicht") << "Cancel keeps the value";
}

class PropertiesTest : public LayerDialogTest {
protected:
    const LayerEntry& entryNamed(const std::string& name) {
        const FoundEntry found = session->list().findByName(name);
        EXPECT_TRUE(found) << name;
        return *found.entry;
    }
};

TEST_F(PropertiesTest, StateTogglesFlipTheirBitOnly) {
    CentralLayerFile list;
    LayerEntry e = named("K", "L");
    e.fileStates = 8;
    cDlgProps props(propsmode::kChange, e, list, nullptr, nullptr, nullptr);
    EXPECT_EQ(props.stateToggle(3).toolTip().split('\n').first(), "In neuen Ansichtsfenstern getaut");
    props.stateToggle(3).click();
    EXPECT_EQ(props.entry().fileStates, 8 | 16);
    EXPECT_EQ(props.stateToggle(3).toolTip().split('\n').first(), "In neuen Ansichtsfenstern gefroren");
    props.stateToggle(3).click();
    EXPECT_EQ(props.entry().fileStates, 8) << "twice is as before, and bit 8 stays as it was";
    props.stateToggle(0).click();
    props.stateToggle(2).click();
    EXPECT_EQ(props.entry().fileStates, 8 | 1 | 4);
    EXPECT_EQ(props.stateToggle(0).toolTip(), "Aus\numschalten mit linker Maustaste");
    EXPECT_EQ(props.drawingFrame(), nullptr) << "an entry only in the file shows no drawing frame";
    EXPECT_EQ(props.windowTitle(), QString::fromUtf8("Layer-Eintrag ändern"));
}

TEST_F(PropertiesTest, OkRefusesMissingInvalidAndUsedIdentifications) {
    session = std::make_unique<LayerDialogSession>(3, settings);
    session->load();
    LayerEntry& wall = *session->list().findByKey("A_WAND_TRAG").entry;
    cDlgProps props(propsmode::kChange, wall, session->list(), &wall, nullptr, nullptr);
    ASSERT_NE(props.drawingFrame(), nullptr) << "the layer is in the drawing";
    EXPECT_TRUE(props.nameField().isReadOnly()) << "a drawing layer is renamed in the list";
    props.show();
    const auto tryOk = [&](const QString& key) {
        host.clearOutput();
        props.keyField().clear();
        QTest::keyClicks(&props.keyField(), key);
        props.accept();
        return host.boxes.empty() ? std::string() : host.boxes.back().text;
    };
    EXPECT_EQ(tryOk("   "), QString::fromUtf8("Der Layer-Schlüssel fehlt.").toStdString());
    EXPECT_EQ(tryOk("A;B"), QString::fromUtf8("Unzulässiges Zeichen in Layer-Schlüssel").toStdString());
    EXPECT_EQ(tryOk("a_decke"), QString::fromUtf8("Dieser Layer-Schlüssel ist schon vorhanden.").toStdString());
    EXPECT_TRUE(props.isVisible()) << "a refusal keeps the dialog open";
    EXPECT_EQ(tryOk("  a_wand_trag "), "") << "its own key in other case passes";
    EXPECT_FALSE(props.isVisible());
    EXPECT_EQ(props.entry().key, "a_wand_trag") << "stored trimmed";

    // A new entry named like a layer only in the drawing takes that layer; named like a
    // file entry it is refused.
    LayerEntry fresh = newEntryProposal(session->list());
    cDlgProps add(propsmode::kNew, fresh, session->list(), nullptr, nullptr, nullptr);
    add.show();
    QTest::keyClicks(&add.keyField(), "NEU");
    add.nameField().clear();
    QTest::keyClicks(&add.nameField(), "A-Decken");
    host.clearOutput();
    add.accept();
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text, QString::fromUtf8("Dieser Layer-Name ist schon vorhanden.").toStdString());
    add.nameField().clear();
    QTest::keyClicks(&add.nameField(), "skizze");
    host.clearOutput();
    add.accept();
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(PropertiesTest, NewEntryJoinsTheListAndIsSavedWithItsProperties) {
    auto dialog = open(3);
    whenShown<cDlgProps>([this](cDlgProps& props) {
        EXPECT_EQ(props.windowTitle(), "Neuer Layer-Eintrag");
        EXPECT_EQ(props.nameField().text(), "Layer1");
        QTest::keyClicks(&props.keyField(), "K_NEU");
        host.chosenColors.push_back(HostColor::fromIndex(1));
        props.colourButton().click();
        props.stateToggle(2).click();
        props.accept();
    });
    dialog->run(LayerCommand::LayerNew);
    ASSERT_NE(dialog->chosenEntry(), nullptr);
    EXPECT_EQ(dialog->chosenEntry()->key, "K_NEU") << "the new row is selected";
    EXPECT_TRUE(session->changed());
    dialog->run(LayerCommand::FileSave);
    const std::string bytes = readBytes(centralPath);
    EXPECT_NE(bytes.find("\r\nK_NEU=Layer1,1,Continuous,,4,"), std::string::npos) << bytes;

    // Cancel adds nothing.
    const int rows = dialog->model().rowCount();
    whenShown<cDlgProps>([](cDlgProps& props) { props.reject(); });
    dialog->run(LayerCommand::LayerNew);
    EXPECT_EQ(dialog->model().rowCount(), rows);
    dialog->reject();
}

TEST_F(PropertiesTest, ADrawingLayerIsTakenOverIntoItsOwnRow) {
    settings.viewModeEdit = 2;
    auto dialog = open(3);
    const int rows = dialog->model().rowCount();
    select(*dialog, "Skizze");
    whenShown<cDlgProps>([](cDlgProps& props) {
        EXPECT_EQ(props.windowTitle(), "Neuer Layer-Eintrag auf Basis von Skizze");
        ASSERT_NE(props.takeOverButton(), nullptr);
        props.keyField().clear();
        QTest::keyClicks(&props.keyField(), "SKIZZE");
        props.accept();
    });
    dialog->run(LayerCommand::LayerBased);
    EXPECT_EQ(dialog->model().rowCount(), rows) << "no second row for the same layer";
    const LayerEntry& sketch = entryNamed("Skizze");
    EXPECT_EQ(sketch.key, "SKIZZE");
    EXPECT_TRUE(sketch.has(entryflag::kFromFile) && sketch.has(entryflag::kInDrawing));
    EXPECT_EQ(sketch.fileLineweight, 50) << "the drawing layer's lineweight";
    host.answers = {MbAnswer::No};
    dialog->reject();
}

TEST_F(PropertiesTest, TakeOverCopiesIdentificationOrPropertiesOfTheBase) {
    auto dialog = open(3);
    select(*dialog, "A-Decken");
    whenShown<cDlgProps>([](cDlgProps& props) {
        const LayerEntry proposed = props.entry();
        EXPECT_EQ(proposed.name, "A-Decken-2");
        props.takeOver(cDlgProps::TakeOver::Identification);
        EXPECT_EQ(props.entry().key, "A_DECKE");
        EXPECT_EQ(props.keyField().text(), "A_DECKE");
        props.keyField().clear();
        QTest::keyClicks(&props.keyField(), "A_DECKE_2");
        props.nameField().clear();
        QTest::keyClicks(&props.nameField(), "A-Decken-oben");
        props.stateToggle(1).click();
        props.takeOver(cDlgProps::TakeOver::Properties);
        EXPECT_EQ(props.entry().fileStates, proposed.fileStates) << "properties come back from the base";
        EXPECT_EQ(props.entry().key, "A_DECKE_2") << "the identification stays";
        props.accept();
    });
    dialog->run(LayerCommand::LayerFromCentral);
    EXPECT_EQ(entryNamed("A-Decken-oben").key, "A_DECKE_2");
    EXPECT_EQ(entryNamed("A-Decken-oben").fileColor, entryNamed("A-Decken").fileColor);
    host.answers = {MbAnswer::No};
    dialog->reject();
}

TEST_F(PropertiesTest, PickingOffersThePickedEntitysLayer) {
    const auto line = drawing.makeEntity({{0, "LINE"}, {8, "A-Wand-tragend"}, {10, "0"}, {20, "0"}, {30, "0"},
                                          {11, "5"}, {21, "5"}, {31, "0"}});
    ASSERT_TRUE(line);
    auto dialog = open(3);
    host.picks.push_back({static_cast<std::int64_t>(*line), Point3{1, 1, 0}});
    bool offered = false;
    whenShown<cDlgProps>([&](cDlgProps& props) {
        offered = true;
        EXPECT_EQ(props.windowTitle(), "Neuer Layer-Eintrag auf Basis von A-Wand-tragend");
        props.accept();
    });
    dialog->pickLayer();
    QTest::qWait(50);
    EXPECT_TRUE(offered);
    EXPECT_NE(host.printed.find("Neuen Layereintrag aus der Zeichnung picken: "), std::string::npos);
    EXPECT_EQ(entryNamed("A-Wand-tragend-2").key, "A_WAND_TRAG_2");

    // Nothing picked: nothing offered.
    dialog->pickLayer();
    QTest::qWait(50);
    host.answers = {MbAnswer::No};
    dialog->reject();
}

TEST_F(PropertiesTest, EnterOpensTheChosenEntrysProperties) {
    auto dialog = open(3, "A_DECKE");
    whenShown<cDlgProps>([this](cDlgProps& props) {
        EXPECT_EQ(props.windowTitle(), QString::fromUtf8("Layer-Eintrag ändern"));
        host.chosenColors.push_back(HostColor::fromIndex(4));
        props.colourButton().click();
        props.accept();
    });
    dialog->table().setFocus();
    QTest::keyClick(&dialog->table(), Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible()) << "Enter is not OK";
    EXPECT_EQ(entryNamed("A-Decken").fileColor, 4);
    EXPECT_TRUE(session->changed());

    // A layer only in the drawing is shown, and nothing is taken from the dialog.
    settings.viewModeEdit = 2;
    dialog->run(LayerCommand::ViewDrawing);
    select(*dialog, "Skizze");
    whenShown<cDlgProps>([](cDlgProps& props) {
        EXPECT_EQ(props.windowTitle(), "Layer-Eintrag-Eigenschaften");
        EXPECT_TRUE(props.keyField().isReadOnly());
        props.accept();
    });
    dialog->run(LayerCommand::LayerChange);
    EXPECT_FALSE(entryNamed("Skizze").has(entryflag::kFromFile));
    host.answers = {MbAnswer::No};
    dialog->reject();
}

// Every help topic the dialogs ask for is in the shipped topic map, and the buttons ask.
TEST_F(PropertiesTest, HelpButtonsAskForTheirTopics) {
    const std::string map = std::string(ARDO_SOURCE_DIR) + "/help/de/ArdoArx.top";
    for (const char* key : {"LayerEditor", "LayerSelection", "LayerDialog", "NewLayer", "AttachLayer", "ObjectLayer",
                            "LayerProps", "LayerOptions", "LayerLineWeights", "LayerPlotStyles", "LinetypeDialog"})
        EXPECT_FALSE(GetPrivateProfileStringW(kHelpSection, key, "", 510, map).text.empty()) << key;

    // The shipped map in the program folder of a module without a configuration.
    ModuleFiles& files = moduleFiles();
    const std::string savedFolder = files.programFolder;
    files.programFolder = tmp.path().string() + "/";
    tmp.write("ArdoArx.top", readBytes(map));
    std::vector<std::string> shown;
    setHelpViewer([&](const std::string& address) {
        shown.push_back(address);
        return true;
    });
    CentralLayerFile list;
    cDlgProps props(propsmode::kNew, named("K", "L"), list, nullptr, nullptr, nullptr);
    props.findChild<QPushButton*>("help")->click();
    cDlgPlotStyle picker({"Normal"}, "Normal", nullptr);
    picker.findChild<QPushButton*>("help")->click();
    setHelpViewer(nullptr);
    files.programFolder = savedFolder;
    EXPECT_TRUE(host.alerts.empty());
    EXPECT_EQ(shown, (std::vector<std::string>{tmp.path().string() + "/::/Layereintrag.htm#neu",
                                               tmp.path().string() + "/::/Plotstile.htm"}));
}

TEST_F(PropertiesTest, GrabsOfThePropertiesDialogAndThePlotStylePicker) {
    session = std::make_unique<LayerDialogSession>(3, settings);
    session->load();
    LayerEntry& wall = *session->list().findByKey("A_WAND_TRAG").entry;
    cDlgProps props(propsmode::kChange, wall, session->list(), &wall, nullptr, nullptr);
    props.show();
    QApplication::processEvents();
    std::filesystem::create_directories("grabs");
    EXPECT_TRUE(props.grab().save("grabs/properties-dialog.png"));
    cDlgPlotStyle picker(plotStyleNames(session->list()), "Normal", nullptr);
    picker.show();
    QApplication::processEvents();
    EXPECT_TRUE(picker.grab().save("grabs/plot-style-picker.png"));
}

}  // namespace
}  // namespace ardo
