#include "cadhost/librecad/LibreCadComparison.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>
#include <vector>

#include "cadhost/drawing/Drawing.h"
#include "cadhost/gui/Scene.h"
#include "cadhost/gui/ScenePainter.h"
#include "support/ChildProcess.h"

namespace cadhost::test {

namespace fs = std::filesystem;

namespace {

const QColor kOurBackground(0, 0, 0);
constexpr double kMillimetresPerInch = 25.4;
// LibreCAD's ink is what is darker than this on its white page.
constexpr int kPaperGrey = 200;

std::string readFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

std::string number(double v) {
    std::ostringstream out;
    out.precision(12);
    out << v;
    return out.str();
}

// The drawing's text with the page's paper limits at the end of its header, where they
// override any the file has, and millimetres as its units: LibreCAD reads the limits in
// the drawing's units and converts them to millimetres, so a drawing in metres would get a
// page a thousand times too large and one in a tiny unit a page of a pixel. Binary files
// go through our reader and writer first.
std::string withPaperLimits(const fs::path& dxf, const Page& page) {
    std::string text = readFile(dxf);
    if (text.rfind("AutoCAD Binary DXF", 0) == 0) {
        auto drawing = Drawing::fromBytes(text, dxf.string());
        text = drawing ? drawing->toDxf() : std::string();
    }
    const std::string limits = "  9\n$PLIMMIN\n 10\n0.0\n 20\n0.0\n  9\n$PLIMMAX\n 10\n" + number(page.width) +
                               "\n 20\n" + number(page.height) + "\n  9\n$INSUNITS\n 70\n4\n";
    // Walk the group code / value pairs to the header's ENDSEC.
    std::vector<std::pair<std::size_t, std::string>> lines;   // start offset, trimmed line
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = text.find('\n', at);
        if (end == std::string::npos) end = text.size();
        std::string line = text.substr(at, end - at);
        while (!line.empty() && (line.back() == '\r' || line.back() == ' ')) line.pop_back();
        line.erase(0, std::min(line.find_first_not_of(' '), line.size()));
        lines.emplace_back(at, line);
        at = end + 1;
    }
    bool inHeader = false;
    for (std::size_t i = 0; i + 1 < lines.size(); i += 2) {
        const std::string& code = lines[i].second;
        const std::string& value = lines[i + 1].second;
        if (code == "2" && value == "HEADER") inHeader = true;
        if (inHeader && code == "0" && value == "ENDSEC") return text.insert(lines[i].first, limits);
    }
    return "  0\nSECTION\n  2\nHEADER\n" + limits + "  0\nENDSEC\n" + text;
}

// Widens a mask by `radius` pixels in x and y (a square around each inked pixel).
std::vector<std::uint8_t> widen(const std::vector<std::uint8_t>& mask, int w, int h, int radius) {
    std::vector<std::uint8_t> rows(mask.size()), out(mask.size());
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            std::uint8_t any = 0;
            for (int dx = std::max(0, x - radius); dx <= std::min(w - 1, x + radius) && !any; ++dx) any = mask[y * w + dx];
            rows[y * w + x] = any;
        }
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            std::uint8_t any = 0;
            for (int dy = std::max(0, y - radius); dy <= std::min(h - 1, y + radius) && !any; ++dy) any = rows[dy * w + x];
            out[y * w + x] = any;
        }
    return out;
}

double share(const std::vector<std::uint8_t>& ink, const std::vector<std::uint8_t>& near, long count) {
    if (count == 0) return 0;
    long hit = 0;
    for (std::size_t i = 0; i < ink.size(); ++i) hit += ink[i] && near[i];
    return static_cast<double>(hit) / static_cast<double>(count);
}

}  // namespace

int Page::pixelsWide() const { return static_cast<int>(std::lround(width / kMillimetresPerInch * dpi)); }
int Page::pixelsHigh() const { return static_cast<int>(std::lround(height / kMillimetresPerInch * dpi)); }

Page pageFor(const gui::Box2& extents, int dpi) {
    Page page;
    page.dpi = dpi;
    page.extents = extents;
    const double w = std::max(extents.x1 - extents.x0, 1e-9), h = std::max(extents.y1 - extents.y0, 1e-9);
    if (h > w) std::swap(page.width, page.height);
    page.scale = std::min((page.width - 2 * page.margin) / w, (page.height - 2 * page.margin) / h);
    return page;
}

ardo::Result<gui::Box2> ourExtents(const fs::path& dxf) {
    auto drawing = Drawing::open(dxf.string());
    if (!drawing) return ardo::Error{drawing.error()};
    const gui::Scene scene(*drawing, Space::Model);
    const gui::Box2 box = scene.extents();
    if (box.empty()) return ardo::Error{"nothing is drawn in model space"};
    return box;
}

ardo::Result<QImage> ourImage(const fs::path& dxf, const Page& page) {
    auto drawing = Drawing::open(dxf.string());
    if (!drawing) return ardo::Error{drawing.error()};
    const gui::Scene scene(*drawing, Space::Model);
    QImage image(page.pixelsWide(), page.pixelsHigh(), QImage::Format_RGB32);
    const double s = page.scale * page.dpi / kMillimetresPerInch;   // pixels per unit
    const double cx = (page.extents.x0 + page.extents.x1) / 2, cy = (page.extents.y0 + page.extents.y1) / 2;
    const gui::ViewTransform view{image.width() / 2.0 - cx * s, image.height() / 2.0 + cy * s, s};
    gui::ScenePainter(scene, kOurBackground).paintDrawing(image, image.rect(), view);
    return image;
}

ardo::Result<QImage> libreCadImage(const fs::path& dxf, const Page& page, const fs::path& work) {
    fs::create_directories(work);
    const fs::path copy = work / dxf.filename();
    {
        std::ofstream out(copy, std::ios::binary);
        out << withPaperLimits(dxf, page);
    }
    const fs::path pdf = fs::path(copy).replace_extension(".pdf");
    std::error_code ec;
    fs::remove(pdf, ec);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const std::string margins = number(page.margin);
    // -m: black ink on white paper, whatever the colours; -c: the extents centred.
    const auto printed = ardo::test::runProcess({"librecad", "dxf2pdf", "-m", "-c", "-s", number(page.scale), "-f",
                                                 margins + "," + margins + "," + margins + "," + margins, copy.string()},
                                                120);
    if (printed.exitCode != 0 || !fs::exists(pdf)) return ardo::Error{"dxf2pdf failed: " + printed.output};
    const fs::path png = work / (dxf.stem().string() + "-librecad");
    const auto raster = ardo::test::runProcess(
        {"pdftoppm", "-r", std::to_string(page.dpi), "-png", "-singlefile", pdf.string(), png.string()}, 120);
    QImage image(QString::fromStdString(png.string() + ".png"));
    if (raster.exitCode != 0 || image.isNull()) return ardo::Error{"pdftoppm failed: " + raster.output};
    return image.convertToFormat(QImage::Format_RGB32);
}

InkAgreement compareInk(const QImage& ours, QRgb oursBackground, const QImage& theirs, int radius) {
    const int w = std::min(ours.width(), theirs.width()), h = std::min(ours.height(), theirs.height());
    std::vector<std::uint8_t> a(static_cast<std::size_t>(w) * h), b(a.size());
    InkAgreement agreement;
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const std::size_t i = static_cast<std::size_t>(y) * w + x;
            a[i] = (ours.pixel(x, y) & 0xFFFFFF) != (oursBackground & 0xFFFFFF);
            b[i] = qGray(theirs.pixel(x, y)) < kPaperGrey;
            agreement.oursInk += a[i];
            agreement.theirsInk += b[i];
        }
    agreement.oursNearTheirs = share(a, widen(b, w, h, radius), agreement.oursInk);
    agreement.theirsNearOurs = share(b, widen(a, w, h, radius), agreement.theirsInk);
    return agreement;
}

}  // namespace cadhost::test
