// -PLOT answered from a script, and the PDF it writes: page size, what is inked where,
// scale, lineweights and plot style tables, measured on pdfinfo's report and pdftoppm's
// rasterised page.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <cstdio>
#include <filesystem>
#include <unistd.h>

#include "cadhost/commands/CommandTestSupport.h"
#include "cadhost/commands/PlotSettings.h"
#include "cadhost/gui/PlotRenderer.h"
#include "PlotCheck.h"

namespace cadhost::test {
namespace {

using plot::app;
using plot::kDpi;
using plot::kPerMm;
using plot::run;

class Plot : public ::testing::Test {
protected:
    void SetUp() override {
        app();
        commands::setPlotWriter(gui::writePlot);
        folder = std::filesystem::temp_directory_path() / ("ardo-plot-" + std::to_string(getpid()) + "-" +
                                                           ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(folder);
        cmd.echo(0);
    }
    void TearDown() override { std::filesystem::remove_all(folder); }

    void layer(const std::string& name, int color, bool off = false, bool frozen = false, bool plottable = true,
               int lineweight = -3) {
        ardo::LayerRecord r;
        r.name = name;
        r.color = ardo::HostColor::fromIndex(color);
        r.isOff = off;
        r.isFrozen = frozen;
        r.isPlottable = plottable;
        r.lineweight = lineweight;
        ASSERT_EQ(cmd.drawing.addLayer(r), ardo::DbStatus::Ok);
    }
    void line(const std::string& layerName, double x0, double y0, double x1, double y1) {
        ASSERT_TRUE(cmd.drawing.makeEntity({{0, "LINE"}, {8, layerName}, {10, std::to_string(x0)},
                                            {20, std::to_string(y0)}, {11, std::to_string(x1)},
                                            {21, std::to_string(y1)}}));
    }

    // -PLOT with the detailed prompts: A4 landscape in millimetres, the window 0,0 to
    // 297,210 at 1=1 from the sheet's corner, so the page shows drawing millimetres.
    std::string plot(const std::string& table = ".", const std::string& lineweights = "No",
                     const std::string& paper = "ISO A4 (210.00 x 297.00 MM)", const std::string& orientation = "L") {
        const std::string file = (folder / "plot.pdf").string();
        ardo::ResBufChain tokens;
        for (const std::string& t : {std::string("_.-PLOT"), std::string("_Y"), std::string("Model"),
                                     std::string("DWG To PDF.pc3"), paper, std::string("M"), orientation,
                                     std::string("N"), std::string("W"), std::string("0,0"), std::string("297,210"),
                                     std::string("1=1"), std::string("0,0"), std::string("Y"), table, lineweights,
                                     file, std::string("N"), std::string("Y")})
            tokens.push_back(S(t));
        EXPECT_EQ(cmd.feed(tokens), ardo::RTNORM) << cmd.printed;
        EXPECT_FALSE(cmd.processor.active()) << cmd.processor.prompt();
        return file;
    }

    QImage page(const std::string& pdf) { return plot::rasterise(pdf, (folder / "page").string()); }

    // Pixels not white within a box given in sheet millimetres from the lower left.
    static int ink(const QImage& image, double x0, double y0, double x1, double y1) {
        int n = 0;
        for (int y = static_cast<int>((210 - y1) * kPerMm); y < static_cast<int>((210 - y0) * kPerMm); ++y)
            for (int x = static_cast<int>(x0 * kPerMm); x < static_cast<int>(x1 * kPerMm); ++x)
                n += image.valid(x, y) && qGray(image.pixel(x, y)) < 200;
        return n;
    }

    CommandLine cmd;
    std::filesystem::path folder;
};

TEST_F(Plot, OnePageOfTheRequestedSizeForEachOrientation) {
    layer("Walls", 1);
    line("Walls", 0, 0, 100, 100);
    const std::string file = plot(".", "No", "A3", "P");
    const std::string info = run("pdfinfo '" + file + "'");
    EXPECT_NE(info.find("Pages:           1\n"), std::string::npos) << info;
    EXPECT_PAGE(file, 297, 420);
    // ANSI B turned: 17 x 11 inches.
    EXPECT_PAGE(plot(".", "No", "ANSI B"), 17 * 25.4, 11 * 25.4);
}

TEST_F(Plot, InkOnlyWherePlottedLayersAre) {
    layer("Walls", 1);
    layer("Hidden", 3, /*off*/ true);
    layer("Thawless", 4, false, /*frozen*/ true);
    layer("Notes", 5, false, false, /*plottable*/ false);
    // Each layer has a square of its own part of the sheet.
    const std::vector<std::pair<std::string, double>> squares{{"Walls", 20}, {"Hidden", 80}, {"Thawless", 140}, {"Notes", 200}};
    for (const auto& [name, x] : squares) {
        line(name, x, 50, x + 40, 50);
        line(name, x + 40, 50, x + 40, 90);
        line(name, x + 40, 90, x, 90);
        line(name, x, 90, x, 50);
    }
    const QImage image = page(plot());
    EXPECT_GT(ink(image, 18, 48, 62, 92), 4 * 40 * kPerMm / 2);
    EXPECT_EQ(ink(image, 78, 48, 122, 92), 0) << "a layer that is off plotted";
    EXPECT_EQ(ink(image, 138, 48, 182, 92), 0) << "a frozen layer plotted";
    EXPECT_EQ(ink(image, 198, 48, 242, 92), 0) << "a layer marked not to plot plotted";
    image.save(QString::fromStdString((std::filesystem::temp_directory_path() / "ardo-plot-layers.png").string()));
}

TEST_F(Plot, OneToOneGivesDrawingMillimetresOnPaper) {
    layer("Walls", 7);
    line("Walls", 50, 100, 150, 100);
    line("Walls", 200, 20, 200, 170);
    const QImage image = page(plot());
    const int row = static_cast<int>(std::lround((210 - 100) * kPerMm));
    int left = image.width(), right = -1;
    for (int y = row - 3; y <= row + 3; ++y)
        for (int x = 0; x < 180 * kPerMm; ++x)
            if (qGray(image.pixel(x, y)) < 200) left = std::min(left, x), right = std::max(right, x);
    ASSERT_GE(right, 0) << "the line did not plot";
    EXPECT_NEAR((right - left + 1) / double(kPerMm), 100.0, 0.3);
    EXPECT_NEAR(left / double(kPerMm), 50.0, 0.3);
    // The vertical line: 150 mm from 20 mm above the sheet's lower edge.
    int top = image.height(), bottom = -1;
    const int column = 200 * kPerMm;
    for (int y = 0; y < image.height(); ++y)
        for (int x = column - 3; x <= column + 3; ++x)
            if (qGray(image.pixel(x, y)) < 200) top = std::min(top, y), bottom = std::max(bottom, y);
    EXPECT_NEAR((bottom - top + 1) / double(kPerMm), 150.0, 0.3);
    EXPECT_NEAR(210 - (bottom + 1) / double(kPerMm), 20.0, 0.3);
}

TEST_F(Plot, LineweightsPlotAtTheirWidthOnlyWhenAskedFor) {
    layer("Thick", 7, false, false, true, 200);
    line("Thick", 50, 100, 150, 100);
    const auto thickness = [&](const QImage& image) {
        int n = 0;
        for (int y = 95 * kPerMm; y < 125 * kPerMm; ++y) n += qGray(image.pixel(100 * kPerMm, y)) < 128;
        return n;
    };
    EXPECT_NEAR(thickness(page(plot(".", "Yes"))) / double(kPerMm), 2.0, 0.2);
    EXPECT_LE(thickness(page(plot(".", "No"))), 2);
}

TEST_F(Plot, ColorsFollowTheStyleTable) {
    layer("Red", 1);
    layer("White", 7);
    for (double y : {60.0, 61.0, 62.0}) line("Red", 20, y, 120, y);
    for (double y : {150.0, 151.0}) line("White", 20, y, 120, y);
    const auto colored = [](const QImage& image) {
        int n = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const QColor c(image.pixel(x, y));
                n += std::max({c.red(), c.green(), c.blue()}) - std::min({c.red(), c.green(), c.blue()}) > 30;
            }
        return n;
    };
    const QImage own = page(plot("acad"));
    EXPECT_GT(colored(own), 100 * kPerMm) << "acad.ctb keeps the red";
    // Colour 7 is white on the screen but black on paper.
    EXPECT_GT(ink(own, 20, 148, 120, 153), 100 * kPerMm);
    const QImage mono = page(plot("monochrome.ctb"));
    EXPECT_EQ(colored(mono), 0);
    EXPECT_GT(ink(mono, 20, 58, 120, 64), 100 * kPerMm);
    plot("custom.ctb");
    EXPECT_NE(cmd.printed.find("Plot style table files are not read: \"custom.ctb\""), std::string::npos) << cmd.printed;
}

// Each prompt refuses what it cannot take with its message and asks again.
TEST_F(Plot, BadInputAtEachPromptAsksAgain) {
    line("0", 0, 0, 10, 10);
    const std::string file = (folder / "asked.pdf").string();
    const std::vector<std::pair<std::string, std::string>> steps{
        {"Maybe", "Y"},                        // detailed
        {"Sheet9", "Model"},                   // layout
        {"Printer.pc3", "DWG To PDF.pc3"},     // device
        {"B7", "A4"},                          // paper
        {"Yards", "M"},                        // units
        {"Sideways", "P"},                     // orientation
        {"Perhaps", "N"},                      // upside down
        {"Everything", "E"},                   // area
        {"1=0", "1:2"},                        // scale
        {"left", "C"},                         // offset
        {"X", "Y"},                            // plot styles
        {"shades.stb", "."},                   // table
        {"Z", "Y"},                            // lineweights
        {(folder / "missing" / "x").string(), file},   // file
        {"Q", "N"},                            // save page setup
        {"Later", "Y"},                        // proceed
    };
    ASSERT_EQ(cmd.feed({S("-PLOT")}), ardo::RTNORM);
    for (const auto& [bad, good] : steps) {
        const std::string prompt = cmd.processor.prompt();
        cmd.printed.clear();
        EXPECT_EQ(cmd.feed({S(bad)}), ardo::RTNORM) << prompt;
        EXPECT_EQ(cmd.processor.prompt(), prompt) << "no second ask after " << bad;
        EXPECT_FALSE(cmd.printed.empty()) << "no message for " << bad << " at " << prompt;
        EXPECT_EQ(cmd.feed({S(good)}), ardo::RTNORM) << prompt;
        EXPECT_NE(cmd.processor.prompt(), prompt) << good;
    }
    EXPECT_FALSE(cmd.processor.active());
    EXPECT_PAGE(file, 210, 297);
}

TEST_F(Plot, PlainPlotTakesDefaultsAndNothingIsWrittenWhenDeclined) {
    line("0", 0, 0, 400, 100);
    const std::string file = (folder / "plain.pdf").string();
    EXPECT_EQ(cmd.feed({S("_-PLOT"), S("N"), S(""), S(""), S(""), S(file), S(""), S("N")}), ardo::RTNORM) << cmd.printed;
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_EQ(cmd.feed({S("_-PLOT"), S(""), S(""), S(""), S(""), S(file), S(""), S("")}), ardo::RTNORM) << cmd.printed;
    // ISO A4 landscape with the extents fitted: the 4:1 line spans the sheet's width.
    EXPECT_PAGE(file, 297, 210);
    const QImage image = page(file);
    EXPECT_GT(ink(image, 0, 0, 5, 210), 0);
    EXPECT_GT(ink(image, 292, 0, 297, 210), 0);
}

TEST_F(Plot, PlainPlotFollowsTheModelLayoutsPdfPageSetup) {
    // The model layout set up for the PDF device on ISO A3, turned (landscape), 1:1 from
    // the sheet's corner.
    std::string dxf = cmd.drawing.toDxf();
    for (const auto& [from, to] : {std::pair<std::string, std::string>{"none_device", "DWG To PDF.pc3"},
                                   {"ISO_A4_(210.00_x_297.00_MM)", "ISO_A3_(297.00_x_420.00_MM)"}}) {
        const auto at = dxf.find(from);
        ASSERT_NE(at, std::string::npos) << from;
        dxf.replace(at, from.size(), to);
    }
    auto read = Drawing::fromBytes(dxf);
    ASSERT_TRUE(read) << read.error();
    CommandLine saved(std::move(read).value());
    saved.echo(0);
    ASSERT_TRUE(saved.drawing.makeEntity({{0, "LINE"}, {8, "0"}, {10, "0"}, {20, "0"}, {11, "100"}, {21, "0"}}));
    // A point sets the extents' lower left corner 10 units below and left of the line.
    ASSERT_TRUE(saved.drawing.makeEntity({{0, "POINT"}, {8, "0"}, {10, "-10"}, {20, "-10"}}));
    const std::string file = (folder / "saved.pdf").string();
    EXPECT_EQ(saved.feed({S("-PLOT"), S(""), S(""), S(""), S(""), S(file), S(""), S("")}), ardo::RTNORM) << saved.printed;
    EXPECT_PAGE(file, 420, 297);
    const QImage image = page(file);
    // Scale 1:1 from the lower left corner: the line runs from 10 to 110 mm, 10 mm up.
    int left = image.width(), right = -1;
    const int row = image.height() - 10 * kPerMm;
    for (int y = row - 3; y <= row + 3; ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) < 200) left = std::min(left, x), right = std::max(right, x);
    EXPECT_NEAR(left / double(kPerMm), 10.0, 0.3);
    EXPECT_NEAR((right + 1) / double(kPerMm), 110.0, 0.3);
}

TEST_F(Plot, ANamedViewPlotsItsBoxAndNothingBeyond) {
    // A view 30 wide and 20 high about 50,50 in the drawing's VIEW table.
    std::string dxf = cmd.drawing.toDxf();
    const auto table = dxf.find("VIEW\n");
    ASSERT_NE(table, std::string::npos);
    dxf.insert(dxf.find("  0\nENDTAB", table),
               "  0\nVIEW\n  5\nFFF0\n330\n5\n100\nAcDbSymbolTableRecord\n100\nAcDbViewTableRecord\n  2\nDoor\n"
               " 70\n0\n 40\n20.0\n 10\n50.0\n 20\n50.0\n 41\n30.0\n");
    auto read = Drawing::fromBytes(dxf);
    ASSERT_TRUE(read) << read.error();
    CommandLine viewed(std::move(read).value());
    viewed.echo(0);
    ASSERT_TRUE(viewed.drawing.makeEntity({{0, "LINE"}, {8, "0"}, {10, "40"}, {20, "50"}, {11, "90"}, {21, "50"}}));
    const std::string file = (folder / "view.pdf").string();
    ASSERT_EQ(viewed.feed({S("-PLOT"), S("Y"), S(""), S(""), S("A4"), S("M"), S("L"), S("N"), S("V")}), ardo::RTNORM);
    viewed.printed.clear();
    ASSERT_EQ(viewed.feed({S("Window")}), ardo::RTNORM);
    EXPECT_NE(viewed.printed.find("View \"Window\" not found"), std::string::npos) << viewed.printed;
    EXPECT_EQ(viewed.feed({S("door"), S("1=1"), S("0,0"), S("N"), S("N"), S(file), S("N"), S("Y")}), ardo::RTNORM)
        << viewed.printed;
    // The view's box is 35..65 by 40..60: the line shows from 5 mm to the box's edge at 30 mm.
    const QImage image = page(file);
    int left = image.width(), right = -1;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) < 200) left = std::min(left, x), right = std::max(right, x);
    EXPECT_NEAR(left / double(kPerMm), 5.0, 0.3);
    EXPECT_NEAR((right + 1) / double(kPerMm), 30.0, 0.3);
}

using gui::Box2;

// Layout1 of layout_viewports.dxf: an A3 landscape sheet with two viewports side by side,
// the right one freezing "Dach"; "Wand" (red) is in sight of both.
class LayoutPlot : public ::testing::Test {
protected:
    void SetUp() override {
        app();
        commands::setPlotWriter(gui::writePlot);
        folder = std::filesystem::temp_directory_path() / ("ardo-layoutplot-" + std::to_string(getpid()));
        std::filesystem::create_directories(folder);
        cmd.echo(0);
        // A green line on "Dach" in model space, in sight of both viewports.
        ASSERT_TRUE(cmd.drawing.makeEntity({{0, "LINE"}, {67, "0"}, {8, "Dach"}, {10, "40"}, {20, "10"}, {11, "60"},
                                            {21, "40"}}));
        for (const Layout& layout : cmd.drawing.layouts())
            if (layout.name == "Layout1") sheet = layout.paper;
        ASSERT_FALSE(sheet.empty());
    }
    void TearDown() override { std::filesystem::remove_all(folder); }

    // Pixels of a colour family inside a box of paper space, a little within its edges.
    template <class Is>
    int count(const QImage& image, const Box2& area, Is is) const {
        const auto px = [&](double x) { return static_cast<int>((x - sheet.x0) * kPerMm); };
        const auto py = [&](double y) { return static_cast<int>((sheet.y1 - y) * kPerMm); };
        int n = 0;
        for (int y = py(area.y1) + 5; y < py(area.y0) - 5; ++y)
            for (int x = px(area.x0) + 5; x < px(area.x1) - 5; ++x) n += image.valid(x, y) && is(image.pixel(x, y));
        return n;
    }

    CommandLine cmd{openFixture("layout_viewports.dxf")};
    std::filesystem::path folder;
    SheetArea sheet;
};

bool red(QRgb c) { return qRed(c) > 180 && qGreen(c) < 90 && qBlue(c) < 90; }
bool green(QRgb c) { return qGreen(c) > 150 && qRed(c) < 90 && qBlue(c) < 90; }

TEST_F(LayoutPlot, TheSheetWithEachViewportsModelSpaceLeavingOutItsFrozenLayers) {
    const std::string file = (folder / "layout.pdf").string();
    // The plain prompts: the layout's own sheet, its whole area at 1:1.
    EXPECT_EQ(cmd.feed({S("_.-PLOT"), S("_N"), S("layout1"), S(""), S(""), S(file), S("N"), S("Y")}), ardo::RTNORM)
        << cmd.printed;
    EXPECT_FALSE(cmd.processor.active()) << cmd.processor.prompt();
    ASSERT_TRUE(std::filesystem::exists(file)) << cmd.printed;
    EXPECT_PAGE(file, sheet.x1 - sheet.x0, sheet.y1 - sheet.y0);
    EXPECT_PAGE(file, 420, 297);

    const QImage image = plot::rasterise(file, (folder / "page").string());
    ASSERT_FALSE(image.isNull());
    image.save(QString::fromStdString((std::filesystem::temp_directory_path() / "ardo-plot-layout.png").string()));
    const Box2 left{20, 90, 200, 210}, right{220, 90, 400, 210};
    EXPECT_GT(count(image, left, red), 100);
    EXPECT_GT(count(image, right, red), 100);
    EXPECT_GT(count(image, left, green), 100);
    EXPECT_EQ(count(image, right, green), 0) << "a layer frozen in the viewport plotted there";
    // Model space ends at the viewport borders.
    EXPECT_EQ(count(image, Box2{sheet.x0, sheet.y0, 15, 85}, red), 0);
}

TEST_F(LayoutPlot, LayoutPromptListsAndRefuses) {
    EXPECT_EQ(cmd.feed({S("_.-PLOT"), S("_N"), S("?")}), ardo::RTNORM);
    EXPECT_NE(cmd.printed.find("  Model\n  Layout1\n  Layout2\n"), std::string::npos) << cmd.printed;
    cmd.printed.clear();
    EXPECT_EQ(cmd.feed({S("Nowhere")}), ardo::RTNORM);
    EXPECT_NE(cmd.printed.find("Layout \"Nowhere\" not found"), std::string::npos) << cmd.printed;
    // A layout's plot area offers Layout in place of Limits, and takes it by default.
    cmd.processor.cancel();
    EXPECT_EQ(cmd.feed({S("_.-PLOT"), S("_Y"), S("Layout2"), S(""), S(""), S(""), S(""), S("")}), ardo::RTNORM)
        << cmd.printed;
    EXPECT_EQ(cmd.processor.prompt(), "Enter plot area [Display/Extents/Layout/View/Window] <Layout>: ");
    EXPECT_EQ(cmd.feed({S("_L")}), ardo::RTNORM);
    EXPECT_EQ(cmd.processor.prompt(), "Enter plot scale (Plotted Millimeters=Drawing Units) or [Fit] <1=1>: ");
}

TEST_F(LayoutPlot, ALayoutSetUpForAnotherDeviceGoesOnThePaperAnswered) {
    // The same drawing with Layout1 set up for a plotter and a paper no PDF lists.
    std::string text = run("cat '" + fixturePath("layout_viewports.dxf") + "'");
    for (const auto& [from, to] : {std::pair<std::string, std::string>{"DWG to PDF.pc3", "Plotter.pc3"},
                                   {"ezdxf_(420.00_x_297.00_MM)", "Roll_(914_x_1200_MM)"}}) {
        const auto at = text.find(from);
        ASSERT_NE(at, std::string::npos) << from;
        text.replace(at, from.size(), to);
    }
    const std::filesystem::path source = folder / "plotter.dxf";
    {
        FILE* out = std::fopen(source.c_str(), "wb");
        ASSERT_NE(out, nullptr);
        std::fwrite(text.data(), 1, text.size(), out);
        std::fclose(out);
    }
    auto opened = Drawing::open(source.string());
    ASSERT_TRUE(opened) << opened.error();
    CommandLine other(std::move(*opened));
    other.echo(0);
    const std::string file = (folder / "a3.pdf").string();
    EXPECT_EQ(other.feed({S("_.-PLOT"), S("_Y"), S("Layout1"), S(""), S("A3"), S(""), S(""), S(""), S(""), S(""), S(""),
                          S("N"), S("N"), S(file), S("N"), S("Y")}),
              ardo::RTNORM)
        << other.printed;
    EXPECT_FALSE(other.processor.active()) << other.processor.prompt();
    EXPECT_PAGE(file, 420, 297);
    // Layout2 names a listed paper (A3, turned a quarter) and is plotted on it, whatever
    // was answered before.
    commands::PlotSettings settings = commands::defaultPlotSettings(other.drawing);
    settings.paper = commands::findPaperSize("ANSI B");
    ASSERT_TRUE(commands::choosePlotLayout(other.drawing, "Layout2", settings));
    EXPECT_EQ(settings.area, commands::PlotArea::Layout);
    EXPECT_EQ(settings.scale, 1.0);
    EXPECT_NEAR(settings.sheetWidth(), 297, 1e-6);
    EXPECT_NEAR(settings.sheetHeight(), 420, 1e-6);
    EXPECT_FALSE(commands::choosePlotLayout(other.drawing, "Layout9", settings));
}

TEST(PlotSettings, PaperSizesByListedOrShortName) {
    using commands::findPaperSize;
    ASSERT_NE(findPaperSize("iso a1 (594.00 x 841.00 mm)"), nullptr);
    EXPECT_EQ(findPaperSize("A1")->width, 594);
    EXPECT_EQ(findPaperSize("ANSI D")->height, 34 * 25.4);
    EXPECT_TRUE(findPaperSize("ANSI D")->inches);
    EXPECT_EQ(findPaperSize("A5"), nullptr);
    EXPECT_EQ(findPaperSize("ANSI"), nullptr);
}

}  // namespace
}  // namespace cadhost::test
