// The layer list model against the example installation's central file and a real drawing.
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QStyleOptionViewItem>

#include "cadhost/drawing/Drawing.h"
#include "dialog/GuiApplication.h"
#include "dialog/LayerViews.h"
#include "dialog/cListControl.h"
#include "dialog/cListDelegate.h"
#include "support/ScriptedHost.h"

namespace ardo {
namespace {

const std::string kExampleArdoIni = std::string(ARDO_SOURCE_DIR) + "/examples/install/DefaultIni/Ardo.ini";

TEST(LayerColumnsTest, BuildsKeyAndNameThenThePropertyCharacters) {
    LayerColumns none("");
    EXPECT_EQ(none.count(), 2);
    EXPECT_FALSE(none.shown(LayerColumn::Color));
    EXPECT_EQ(none.indexOf(LayerColumn::Plottable), -1);

    LayerColumns some("7x32");
    ASSERT_EQ(some.count(), 5) << "the character x is skipped";
    EXPECT_EQ(some.at(2), LayerColumn::Plottable);
    EXPECT_EQ(some.indexOf(LayerColumn::Linetype), 3);
    EXPECT_EQ(some.indexOf(LayerColumn::Color), 4);
    EXPECT_FALSE(some.shown(LayerColumn::State));

    LayerColumns repeated("232");
    EXPECT_EQ(repeated.count(), 5) << "a repeated character inserts its column again";
    EXPECT_EQ(repeated.indexOf(LayerColumn::Color), 4) << "the later position wins";

    some.build("4");
    EXPECT_EQ(some.count(), 3) << "a rebuild starts over";
    EXPECT_EQ(some.indexOf(LayerColumn::Color), -1);
}

TEST(LayerColumnsTest, SortDirectionsStartAtPlusOneAndTheNameAtMinusOne) {
    LayerColumns columns("234567");
    EXPECT_EQ(columns.sortDirection(0), 1);
    EXPECT_EQ(columns.sortDirection(1), -1);
    EXPECT_EQ(columns.takeSortDirection(1), -1);
    EXPECT_EQ(columns.takeSortDirection(1), 1);
    EXPECT_EQ(columns.takeSortDirection(2), 1);
    columns.build("2");
    EXPECT_EQ(columns.sortDirection(1), -1) << "a rebuild resets the directions";
    EXPECT_EQ(columns.sortDirection(2), 1);
}

class ListControlTest : public ::testing::Test {
protected:
    void SetUp() override {
        test::guiApplication();
        host.drawing = &drawing;
        addLayer("A-Wand-tragend", HostColor::fromIndex(1));           // file says 7
        addLayer("a-decken", HostColor::fromIndex(4), "CONTINUOUS");     // same as the file, other case
        addLayer("Skizze", HostColor::fromRgb(10, 200, 30));              // only in the drawing
        ASSERT_TRUE(file.loadFileImage(kExampleArdoIni));
        file.loadEntries();
        ASSERT_TRUE(file.mergeDrawingLayers(drawing));
        file.sortByName();
        model.buildColumns("234567");
    }
    void addLayer(const std::string& name, HostColor colour, const std::string& linetype = "Continuous") {
        LayerRecord r;
        r.name = name;
        r.color = colour;
        r.linetype = linetype;
        r.lineweight = 50;
        ASSERT_EQ(drawing.addLayer(r), DbStatus::Ok) << name;
    }
    int rowOfName(const std::string& name) {
        for (int row = 0; row < model.rowCount(); ++row)
            if (model.entryAt(row)->name == name) return row;
        ADD_FAILURE() << name << " is not in the view";
        return -1;
    }
    QVariant cell(const std::string& name, LayerColumn column, int role = Qt::DisplayRole) {
        return model.index(rowOfName(name), model.columns().indexOf(column)).data(role);
    }

    test::ScriptedHost host;
    cadhost::Drawing drawing;
    CentralLayerFile file;
    cListControl model;
};

TEST_F(ListControlTest, ViewsShowTheEntriesOfTheirSource) {
    model.fill(file, layerview::kCentral);
    const int central = model.rowCount();
    EXPECT_GT(central, 50);
    for (int row = 0; row < central; ++row) EXPECT_TRUE(model.entryAt(row)->has(entryflag::kFromFile));
    EXPECT_EQ(model.rowOfKey("a_wand_trag"), rowOfName("A-Wand-tragend")) << "keys are found in any case";

    model.fill(file, layerview::kDrawing);
    std::vector<std::string> names;
    for (int row = 0; row < model.rowCount(); ++row) names.push_back(model.entryAt(row)->name);
    EXPECT_EQ(names, (std::vector<std::string>{"0", "A-Decken", "A-Wand-tragend", "Skizze"}));
    EXPECT_EQ(model.rowOfKey("A_DECKE"), 1);

    file.findByName("Skizze").entry->state = kStateDeleted;
    model.fill(file, layerview::kDrawing);
    EXPECT_EQ(model.rowCount(), 3) << "a deleted entry is in no view";
}

TEST_F(ListControlTest, HeadersFollowTheColumnString) {
    model.buildColumns("53");
    ASSERT_EQ(model.columnCount(), 4);
    EXPECT_EQ(model.headerData(0, Qt::Horizontal).toString(), QString::fromUtf8("Layerschlüssel"));
    EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), "Layername");
    EXPECT_EQ(model.headerData(2, Qt::Horizontal).toString(), QString::fromUtf8("Linienstärke"));
    EXPECT_EQ(model.headerData(3, Qt::Horizontal).toString(), "Linientyp");
}

TEST_F(ListControlTest, PriorityChoosesTheHalfAndDifferencesAreMarked) {
    model.fill(file, layerview::kCentral);
    EXPECT_EQ(cell("A-Wand-tragend", LayerColumn::Color).toString(), "1") << "drawing data first";
    EXPECT_EQ(cell("A-Wand-tragend", LayerColumn::Color, Qt::BackgroundRole).value<QColor>(),
              cListControl::markingBackground());
    EXPECT_EQ(cell("A-Wand-tragend", LayerColumn::Lineweight).toString(), "0.50 mm");
    EXPECT_FALSE(cell("A-Wand-tragend", LayerColumn::Lineweight, cListControl::MarkedRole).toBool())
        << "both say 0.50 mm";
    EXPECT_FALSE(cell("A-Wand-tragend", LayerColumn::Name, cListControl::MarkedRole).toBool());
    EXPECT_FALSE(cell("A-Decken", LayerColumn::Linetype, cListControl::MarkedRole).toBool())
        << "linetypes are compared without regard to case";
    EXPECT_TRUE(cell("A-Decken", LayerColumn::Lineweight, cListControl::MarkedRole).toBool()) << "50 against 35";

    model.setPriority(2);
    EXPECT_EQ(cell("A-Wand-tragend", LayerColumn::Color).toString(), "7") << "file data first";
    EXPECT_EQ(cell("A-Wand-tragend", LayerColumn::Color, Qt::BackgroundRole).value<QColor>(),
              cListControl::markingBackground()) << "the marking does not depend on the priority";

    for (int priority : {1, 2}) {
        model.setPriority(priority);
        EXPECT_EQ(cell("A-Wand-Abbruch", LayerColumn::Color).toString(), "RGB:255,215,0");
        EXPECT_EQ(cell("A-Wand-Abbruch", LayerColumn::Linetype).toString(), "ARDO_STRICH");
        EXPECT_FALSE(cell("A-Wand-Abbruch", LayerColumn::Color, Qt::BackgroundRole).isValid())
            << "an entry only in the file is never marked";
    }
    model.fill(file, layerview::kDrawing);
    EXPECT_EQ(cell("Skizze", LayerColumn::Color).toString(), "RGB:10,200,30") << "only in the drawing";
    EXPECT_EQ(cell("Skizze", LayerColumn::State).toString(), "Ein");
    EXPECT_EQ(cell("Skizze", LayerColumn::Plottable).toString(), "Ja");
}

TEST_F(ListControlTest, StatesShowTheFourBitsAndNeverBitEight) {
    LayerEntry& entry = *file.findByName("A-Wand-Abbruch").entry;
    entry.fileStates = 1 | 2 | 4 | 8 | 16;
    model.fill(file, layerview::kCentral);
    EXPECT_EQ(cell("A-Wand-Abbruch", LayerColumn::State).toString(),
              "Aus, Gefroren, Gesperrt, In neuen Ansichtsfenstern gefroren");
    LayerEntry& both = *file.findByName("A-Wand-tragend").entry;
    both.dwgStates = 8;
    model.entryChanged(&both);
    EXPECT_FALSE(cell("A-Wand-tragend", LayerColumn::State, cListControl::MarkedRole).toBool())
        << "bit 8 is not shown, so it makes no difference";
}

TEST_F(ListControlTest, DrawingLayersAreLightBlueOnlyWhenAskedFor) {
    model.fill(file, layerview::kCentral);
    EXPECT_FALSE(cell("A-Decken", LayerColumn::Key, Qt::BackgroundRole).isValid());
    model.setMarkDrawingLayers(true);
    EXPECT_EQ(cell("A-Decken", LayerColumn::Key, Qt::BackgroundRole).value<QColor>(),
              cListControl::drawingLayerBackground());
    EXPECT_EQ(cell("A-Decken", LayerColumn::Lineweight, Qt::BackgroundRole).value<QColor>(),
              cListControl::markingBackground()) << "a difference stays visible on a drawing layer";
    EXPECT_FALSE(cell("A-Fenster", LayerColumn::Key, Qt::BackgroundRole).isValid());
}

TEST_F(ListControlTest, SwatchesTakeThePaletteOfIndexColoursAndTheRgbOfTrueColours) {
    model.fill(file, layerview::kCentral);
    const std::uint32_t red = host.rgbOfIndexColor(1);
    EXPECT_EQ(cell("A-Wand-tragend", LayerColumn::Color, cListControl::SwatchRole).value<QColor>(),
              QColor(int(red >> 16), int((red >> 8) & 0xFF), int(red & 0xFF)));
    EXPECT_EQ(cell("A-Wand-Abbruch", LayerColumn::Color, cListControl::SwatchRole).value<QColor>(), QColor(255, 215, 0));
    EXPECT_FALSE(cell("A-Wand-Abbruch", LayerColumn::Linetype, cListControl::SwatchRole).isValid());
}

TEST_F(ListControlTest, HeaderClicksTurnTheSortRound) {
    model.fill(file, layerview::kCentral);
    const QString first = model.index(0, 1).data().toString();
    model.sortByColumn(1);
    EXPECT_GT(model.index(0, 1).data().toString().toUpper(), model.index(1, 1).data().toString().toUpper())
        << "the list came sorted by name, so the first click sorts it downwards";
    model.sortByColumn(1);
    EXPECT_EQ(model.index(0, 1).data().toString(), first);

    const int colour = model.columns().indexOf(LayerColumn::Color);
    model.sortByColumn(colour);
    for (int row = 1; row < model.rowCount(); ++row)
        ASSERT_LE(model.index(row - 1, colour).data().toString().toUpper(),
                  model.index(row, colour).data().toString().toUpper()) << row;
    const LayerEntry* wand = model.entryAt(rowOfName("A-Wand-tragend"));
    model.setPriority(2);
    model.sortByColumn(0);
    EXPECT_EQ(model.entryAt(rowOfName("A-Wand-tragend")), wand) << "rows keep their entries when sorted";
    for (int row = 1; row < model.rowCount(); ++row)
        ASSERT_LE(model.entryAt(row - 1)->key, model.entryAt(row)->key);
}

TEST_F(ListControlTest, TheDelegatePaintsTheSwatchAndTheMarking) {
    model.fill(file, layerview::kCentral);
    cListDelegate delegate;
    QImage image(140, 18, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QStyleOptionViewItem option;
    option.rect = image.rect();
    option.state = QStyle::State_Enabled;
    delegate.paint(&painter, option, model.index(rowOfName("A-Wand-Abbruch"), model.columns().indexOf(LayerColumn::Color)));
    painter.end();
    EXPECT_EQ(QColor(image.pixel(8, 8)), QColor(255, 215, 0)) << "inside the swatch";
    EXPECT_EQ(QColor(image.pixel(130, 2)), QColor(Qt::white)) << "right of the text";

    image.fill(Qt::white);
    painter.begin(&image);
    delegate.paint(&painter, option, model.index(rowOfName("A-Wand-tragend"), model.columns().indexOf(LayerColumn::Color)));
    painter.end();
    EXPECT_EQ(QColor(image.pixel(130, 9)), cListControl::markingBackground());
    EXPECT_EQ(QColor(image.pixel(8, 8)).red(), 255);

    EXPECT_EQ(cListDelegate::swatchRect(QRect(0, 0, 140, 18)), QRect(QPoint(2, 1), QPoint(14, 15)));
    EXPECT_EQ(cListDelegate::swatchRect(QRect(10, 0, 8, 18)).right(), 17) << "a narrow cell clips the swatch";
    EXPECT_TRUE(cListDelegate::swatchRect(QRect(0, 0, 2, 18)).isEmpty());
}

TEST_F(ListControlTest, TenThousandEntriesFillAndSort) {
    for (int i = 0; i < 10000; ++i) {
        LayerEntry e;
        e.flags = entryflag::kFromFile;
        e.key = "K" + std::to_string(i);
        e.name = "Layer-" + std::to_string(10000 - i);
        e.fileColor = 1 + i % 255;
        file.append(std::move(e));
    }
    model.fill(file, layerview::kCentral);
    EXPECT_GT(model.rowCount(), 10000);
    EXPECT_EQ(model.entryAt(model.rowOfKey("k9999"))->name, "Layer-1");
    model.sortByColumn(0);
    for (int row = 1; row < model.rowCount(); ++row)
        ASSERT_LE(model.entryAt(row - 1)->key, model.entryAt(row)->key);
}

}  // namespace
}  // namespace ardo
