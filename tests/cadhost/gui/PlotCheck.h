#pragma once
// What the plot tests share: an offscreen QApplication, and the PDF a plot wrote as
// poppler's tools see it (pdfinfo's page size, pdftoppm's rasterised page).
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <cstdio>
#include <string>
#include <utility>

namespace cadhost::test::plot {

inline void app() {
    static int argc = 1;
    static char name[] = "plot-tests";
    static char* argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication* qt = new QApplication(argc, argv);
    (void)qt;
}

inline std::string run(const std::string& command) {
    std::string out;
    if (FILE* pipe = popen(command.c_str(), "r")) {
        char buffer[512];
        while (std::fgets(buffer, sizeof buffer, pipe)) out += buffer;
        pclose(pipe);
    }
    return out;
}

// The first page's size in millimetres as pdfinfo reports it.
inline std::pair<double, double> pageSize(const std::string& pdf) {
    const std::string info = run("pdfinfo '" + pdf + "'");
    double w = 0, h = 0;
    const auto at = info.find("Page size:");
    if (at == std::string::npos || std::sscanf(info.c_str() + at, "Page size: %lf x %lf", &w, &h) != 2)
        ADD_FAILURE() << "no page size in " << info;
    return {w / 72 * 25.4, h / 72 * 25.4};
}

// Qt writes the page box in whole points: a third of a millimetre.
constexpr double kPageTolerance = 0.4;

#define EXPECT_PAGE(pdf, width, height)                                          \
    do {                                                                         \
        const auto [w, h] = ::cadhost::test::plot::pageSize(pdf);                \
        EXPECT_NEAR(w, width, ::cadhost::test::plot::kPageTolerance);            \
        EXPECT_NEAR(h, height, ::cadhost::test::plot::kPageTolerance);           \
    } while (false)

// Ten pixels a millimetre.
constexpr int kDpi = 254;
constexpr int kPerMm = 10;

// The PDF's first page at kDpi, rasterised beside `stem` (stem.png).
inline QImage rasterise(const std::string& pdf, const std::string& stem) {
    run("pdftoppm -png -singlefile -r " + std::to_string(kDpi) + " '" + pdf + "' '" + stem + "'");
    QImage image(QString::fromStdString(stem + ".png"));
    EXPECT_FALSE(image.isNull()) << "pdftoppm gave no page for " << pdf;
    return image.convertToFormat(QImage::Format_RGB32);
}

}  // namespace cadhost::test::plot
