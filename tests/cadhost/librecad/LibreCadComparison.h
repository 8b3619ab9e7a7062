#pragma once
// Our rendering of a drawing against LibreCAD's, on the same page: LibreCAD prints the
// drawing with dxf2pdf at a scale and margins computed from our extents (the page size it
// takes from the drawing's paper limits in the drawing's units, so a copy gets
// $PLIMMIN/$PLIMMAX of the page and millimetres as $INSUNITS),
// pdftoppm rasterises the PDF, and we paint the same extents to an image of the same size.
//
// The measure: each image becomes an ink mask (LibreCAD's: darker than light grey on its
// white page; ours: not the view's background), each mask is widened by `radius` pixels,
// and two shares are counted: of our ink, the part lying near theirs, and of their ink, the
// part lying near ours. A drawing passes when both shares reach the threshold. Widening
// forgives the pixel or two that line placement, caps and anti-aliasing differ by; a
// missing or extra entity, a wrong position or scale, or texts in another font lower one
// of the shares.
#include <QImage>
#include <filesystem>
#include <string>

#include "base/Result.h"
#include "cadhost/gui/SceneTypes.h"

namespace cadhost::test {

struct Page {
    double width = 297, height = 210, margin = 10;   // millimetres
    double scale = 1;                                // millimetres per drawing unit
    gui::Box2 extents;
    int dpi = 72;
    int pixelsWide() const;
    int pixelsHigh() const;
};

// An A4 page, landscape or portrait as the extents are, filled within its margins.
Page pageFor(const gui::Box2& extents, int dpi);

// Our model space's extents (layers shown), nothing for a drawing that cannot be read.
ardo::Result<gui::Box2> ourExtents(const std::filesystem::path& dxf);
ardo::Result<QImage> ourImage(const std::filesystem::path& dxf, const Page& page);
// LibreCAD's print of a copy of the drawing in `work`, rasterised.
ardo::Result<QImage> libreCadImage(const std::filesystem::path& dxf, const Page& page, const std::filesystem::path& work);

struct InkAgreement {
    long oursInk = 0, theirsInk = 0;
    double oursNearTheirs = 0, theirsNearOurs = 0;
    bool passes(double threshold) const { return oursNearTheirs >= threshold && theirsNearOurs >= threshold; }
};

constexpr int kInkRadius = 3;          // pixels at 72 dpi: about one millimetre on the page
constexpr double kInkThreshold = 0.8;

// `oursBackground`: the colour of our image where nothing is drawn.
InkAgreement compareInk(const QImage& ours, QRgb oursBackground, const QImage& theirs, int radius);

}  // namespace cadhost::test
