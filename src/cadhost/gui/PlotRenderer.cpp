#include "cadhost/gui/PlotRenderer.h"

#include <QGuiApplication>
#include <QPageSize>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <memory>

#include "cadhost/drawing/Drawing.h"
#include "base/CaseFold.h"
#include "cadhost/gui/LayoutScene.h"
#include "cadhost/gui/Scene.h"
#include "cadhost/gui/ScenePainter.h"

namespace cadhost::gui {

namespace {

using commands::PlotArea;
using commands::PlotSettings;
using commands::StyleTable;

// PDF user space is in points; this many dots an inch keeps the geometry exact enough
// for drafting sheets while the coordinates stay small integers' worth of precision.
constexpr int kDotsPerInch = 1200;
// A line's width on paper when lineweights are not plotted: the thinnest the device draws.
constexpr double kHairline = 0;

// Fonts need a GUI application; the console has none, so the first plot there makes one
// that paints nowhere.
void ensureGuiApplication() {
    if (QCoreApplication::instance()) return;
    static int argc = 3;
    static char name[] = "ardo-cad", option[] = "-platform", platform[] = "offscreen";
    static char* argv[] = {name, option, platform, nullptr};
    static QGuiApplication app(argc, argv);
}

Box2 pointsBox(const ardo::Point3& a, const ardo::Point3& b) {
    Box2 box;
    box.add(Vec2{a[0], a[1]});
    box.add(Vec2{b[0], b[1]});
    return box;
}

// The drawing's saved view: centre and height, as wide as the sheet's proportions.
Box2 savedDisplay(const Drawing& drawing, const PlotSettings& settings) {
    const auto centre = drawing.getVar("VIEWCTR");
    const auto height = drawing.getVar("VIEWSIZE");
    if (!centre || !height || !(height->real > 0)) return {};
    const double h = height->real, w = h * settings.sheetWidth() / settings.sheetHeight();
    return pointsBox({centre->point[0] - w / 2, centre->point[1] - h / 2, 0},
                     {centre->point[0] + w / 2, centre->point[1] + h / 2, 0});
}

QColor plottedColor(std::uint32_t rgb, const PlotSettings& settings) {
    if (settings.plotStyles && commands::styleTableOf(settings.styleTable) == StyleTable::Monochrome) return Qt::black;
    // White, as colour 7 is on the screen's dark background, plots black on white paper.
    if ((rgb & 0xFFFFFF) == 0xFFFFFF) return Qt::black;
    return QColor((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF);
}

// Paints pieces in device units: x and y from the view transform, pens from lineweights.
class PiecePainter {
public:
    PiecePainter(QPainter& painter, const Scene& scene, const ViewTransform& view, double dotsPerMillimetre,
                 double millimetresPerUnit, const PlotSettings& settings, std::vector<bool> frozen = {})
        : painter_(painter), scene_(scene), view_(view), dots_(dotsPerMillimetre),
          unitsToDots_(millimetresPerUnit * dotsPerMillimetre), settings_(settings), frozen_(std::move(frozen)) {}

    void paint(const Piece& p) {
        const SceneLayer& layer = scene_.layers()[p.layer];
        if (!layer.shown() || !layer.plottable) return;
        if (static_cast<std::size_t>(p.layer) < frozen_.size() && frozen_[p.layer]) return;
        const QColor color = plottedColor(p.color.byLayer ? layer.rgb : p.color.rgb, settings_);
        QPen pen(color, penWidth(p.line.weight, layer), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
        painter_.setPen(pen);
        painter_.setBrush(Qt::NoBrush);
        switch (p.kind) {
        case Piece::Kind::Stroke:
            painter_.drawPath(dashed(p.points, p.closed, pattern(p, layer)));
            break;
        case Piece::Kind::Segments:
            for (std::size_t k = 0; k + 1 < p.points.size(); k += 2)
                painter_.drawLine(at(p.points[k]), at(p.points[k + 1]));
            break;
        case Piece::Kind::Dot:
            // A point keeps a visible size even when its lineweight is a hair line.
            pen.setWidthF(std::max(pen.widthF(), 0.25 * dots_));
            painter_.setPen(pen);
            for (Vec2 v : p.points) painter_.drawPoint(at(v));
            break;
        case Piece::Kind::Fill:
            fill(p, color);
            break;
        case Piece::Kind::Text:
            text(p, color);
            break;
        }
    }

private:
    QPointF at(Vec2 v) const { return {view_.x(v.x), view_.y(v.y)}; }

    double penWidth(int weight, const SceneLayer& layer) const {
        if (!settings_.lineweights) return kHairline;
        if (weight == -1) weight = layer.lineweight;
        if (weight < 0) weight = scene_.defaultLineweight();
        // At least a device dot, so that a small preview still shows thin lines.
        return std::max(weight / 100.0 * dots_, 1.0);
    }

    // The piece's linetype pattern in device units; empty is solid.
    std::vector<double> pattern(const Piece& p, const SceneLayer& layer) const {
        std::vector<double> dashes = p.line.dashesByLayer ? layer.dashes : p.line.dashes;
        const double scale = p.line.dashScale * scene_.linetypeScale() * unitsToDots_;
        for (double& e : dashes) e *= scale;
        return dashes;
    }

    // A chain of lines cut into the pattern's dashes, gaps and dots; the pattern runs on
    // from one line into the next.
    QPainterPath dashed(const std::vector<Vec2>& points, bool closed, const std::vector<double>& dashes) const {
        QPainterPath path;
        if (points.empty()) return path;
        std::vector<QPointF> chain;
        for (Vec2 v : points) chain.push_back(at(v));
        if (closed && chain.size() > 2) chain.push_back(chain.front());
        double period = 0;
        for (double e : dashes) period += std::fabs(e);
        if (dashes.empty() || period < 1) {
            path.moveTo(chain.front());
            for (std::size_t i = 1; i < chain.size(); ++i) path.lineTo(chain[i]);
            if (chain.size() == 1) path.lineTo(chain.front());
            return path;
        }
        std::size_t element = 0;
        double left = std::fabs(dashes[0]);
        for (std::size_t i = 1; i < chain.size(); ++i) {
            const QPointF a = chain[i - 1], b = chain[i];
            const double length = std::hypot(b.x() - a.x(), b.y() - a.y());
            double done = 0;
            while (done < length) {
                const double step = std::min(left, length - done);
                const QPointF from = a + (b - a) * (done / length), to = a + (b - a) * ((done + step) / length);
                if (dashes[element] > 0) {
                    path.moveTo(from);
                    path.lineTo(to);
                } else if (dashes[element] == 0) {
                    path.moveTo(from);
                    path.lineTo(from);
                }
                done += step;
                left -= step;
                if (left > 0) break;
                element = (element + 1) % dashes.size();
                left = std::fabs(dashes[element]);
            }
        }
        return path;
    }

    void fill(const Piece& p, const QColor& color) { painter_.fillPath(fillPath(p, view_), color); }

    void text(const Piece& p, const QColor& color) {
        // Text too small to read on paper is left out, as the view leaves out a dot's worth.
        if (p.height * unitsToDots_ < 1) return;
        paintText(painter_, p, color, view_);
    }

    QPainter& painter_;
    const Scene& scene_;
    const ViewTransform& view_;
    double dots_, unitsToDots_;
    const PlotSettings& settings_;
    std::vector<bool> frozen_;   // a viewport's frozen layers
};

// Paper space onto the sheet: the area's lower left corner where the placement puts it.
ViewTransform sheetView(const Box2& area, const SheetPlacement& placement, double dotsPerMillimetre, double sheetHeight) {
    ViewTransform view;
    view.scale = placement.millimetresPerUnit * dotsPerMillimetre;
    view.left = placement.left * dotsPerMillimetre - area.x0 * view.scale;
    view.top = (sheetHeight - placement.bottom) * dotsPerMillimetre + area.y0 * view.scale;
    return view;
}

QRectF deviceRect(const ViewTransform& view, const Box2& b) {
    return QRectF(QPointF(view.x(b.x0), view.y(b.y1)), QPointF(view.x(b.x1), view.y(b.y0)));
}

}  // namespace

Box2 plotArea(const Drawing& drawing, const Scene& scene, const PlotSettings& settings) {
    switch (settings.area) {
    case PlotArea::Window:
    case PlotArea::View: return pointsBox(settings.windowFirst, settings.windowSecond);
    case PlotArea::Limits: {
        const auto low = drawing.getVar("LIMMIN"), high = drawing.getVar("LIMMAX");
        if (low && high) {
            const Box2 limits = pointsBox(low->point, high->point);
            if (limits.x1 > limits.x0 && limits.y1 > limits.y0) return limits;
        }
        break;
    }
    case PlotArea::Display: {
        if (settings.display) return pointsBox(settings.display->first, settings.display->second);
        if (const Box2 shown = savedDisplay(drawing, settings); !shown.empty()) return shown;
        break;
    }
    default: break;
    }
    return scene.extents();
}

SheetPlacement placeOnSheet(const Box2& area, const PlotSettings& settings) {
    const double width = std::max(area.x1 - area.x0, 1e-9), height = std::max(area.y1 - area.y0, 1e-9);
    SheetPlacement placement;
    placement.millimetresPerUnit = settings.scale
                                       ? settings.millimetresPerUnit(*settings.scale)
                                       : std::min(settings.sheetWidth() / width, settings.sheetHeight() / height);
    if (settings.offset) {
        const double unit = settings.millimeters ? 1 : 25.4;
        placement.left = (*settings.offset)[0] * unit;
        placement.bottom = (*settings.offset)[1] * unit;
    } else {
        placement.left = (settings.sheetWidth() - width * placement.millimetresPerUnit) / 2;
        placement.bottom = (settings.sheetHeight() - height * placement.millimetresPerUnit) / 2;
    }
    return placement;
}

void paintPlot(QPainter& painter, const Scene& scene, const Box2& area, const SheetPlacement& placement,
               double dotsPerMillimetre, double sheetHeight, const PlotSettings& settings) {
    const ViewTransform view = sheetView(area, placement, dotsPerMillimetre, sheetHeight);
    painter.save();
    // Nothing outside a chosen area reaches the paper; the extents hold everything already,
    // and clipping to them would cut a flat drawing's lines and every line's width.
    if (settings.area != PlotArea::Extents) painter.setClipRect(deviceRect(view, area));
    PiecePainter pieces(painter, scene, view, dotsPerMillimetre, placement.millimetresPerUnit, settings);
    scene.visit(area, [&](const SceneItem& item, Look) {
        for (const Piece& piece : item.pieces) pieces.paint(piece);
    });
    painter.restore();
}

Box2 plotArea(const LayoutScene& layout, const PlotSettings& settings) {
    switch (settings.area) {
    case PlotArea::Window:
    case PlotArea::View: return pointsBox(settings.windowFirst, settings.windowSecond);
    case PlotArea::Extents: return layout.paper().extents();
    default: {
        const SheetArea& sheet = layout.layout().paper;
        return sheet.empty() ? layout.extents() : Box2{sheet.x0, sheet.y0, sheet.x1, sheet.y1};
    }
    }
}

void paintLayoutPlot(QPainter& painter, const LayoutScene& layout, const Scene& model, const Box2& area,
                     const SheetPlacement& placement, double dotsPerMillimetre, double sheetHeight,
                     const PlotSettings& settings) {
    const ViewTransform view = sheetView(area, placement, dotsPerMillimetre, sheetHeight);
    painter.save();
    if (settings.area != PlotArea::Extents) painter.setClipRect(deviceRect(view, area));
    for (const ViewportView& v : layout.viewports()) {
        if (!v.on || !(v.scale > 0)) continue;
        painter.save();
        painter.setClipRect(deviceRect(view, v.frame), Qt::IntersectClip);
        const ViewTransform through = throughViewport(view, v);
        // The model-space box the frame shows, so only what can be seen is visited.
        const double cx = (v.frame.x0 + v.frame.x1) / 2, cy = (v.frame.y0 + v.frame.y1) / 2;
        const Box2 seen{v.viewCentre.x + (v.frame.x0 - cx) / v.scale, v.viewCentre.y + (v.frame.y0 - cy) / v.scale,
                        v.viewCentre.x + (v.frame.x1 - cx) / v.scale, v.viewCentre.y + (v.frame.y1 - cy) / v.scale};
        PiecePainter pieces(painter, model, through, dotsPerMillimetre, placement.millimetresPerUnit * v.scale, settings,
                            v.frozenMask(model));
        model.visit(seen, [&](const SceneItem& item, Look) {
            for (const Piece& piece : item.pieces) pieces.paint(piece);
        });
        painter.restore();
    }
    PiecePainter pieces(painter, layout.paper(), view, dotsPerMillimetre, placement.millimetresPerUnit, settings);
    layout.paper().visit(area, [&](const SceneItem& item, Look) {
        for (const Piece& piece : item.pieces) pieces.paint(piece);
    });
    painter.restore();
}

std::optional<Layout> findLayout(const Drawing& drawing, std::string_view name) {
    for (const Layout& layout : drawing.layouts())
        if (ardo::equalsNoCase(layout.name, name)) return layout;
    return std::nullopt;
}

ardo::Result<SheetPlacement> paintSheet(QPainter& painter, Drawing& drawing, const Scene& model,
                                        const PlotSettings& settings, double dotsPerMillimetre) {
    std::optional<LayoutScene> layout;
    if (!ardo::equalsNoCase(settings.layout, "Model")) {
        const auto found = findLayout(drawing, settings.layout);
        if (!found) return ardo::Error{"Layout \"" + settings.layout + "\" not found; plot Model or another layout."};
        layout.emplace(drawing, *found);
    }
    const Box2 area = layout ? plotArea(*layout, settings) : plotArea(drawing, model, settings);
    if (area.empty() || !(area.x1 > area.x0 || area.y1 > area.y0))
        return ardo::Error{"Nothing to plot: the plot area is empty. Draw something or choose another plot area."};
    const SheetPlacement placement = placeOnSheet(area, settings);
    painter.save();
    if (settings.upsideDown) {
        painter.translate(settings.sheetWidth() * dotsPerMillimetre, settings.sheetHeight() * dotsPerMillimetre);
        painter.rotate(180);
    }
    if (layout)
        paintLayoutPlot(painter, *layout, model, area, placement, dotsPerMillimetre, settings.sheetHeight(), settings);
    else
        paintPlot(painter, model, area, placement, dotsPerMillimetre, settings.sheetHeight(), settings);
    painter.restore();
    SheetPlacement plotted = placement;
    plotted.width = (area.x1 - area.x0) * placement.millimetresPerUnit;
    plotted.height = (area.y1 - area.y0) * placement.millimetresPerUnit;
    return plotted;
}

ardo::Status writePlot(Drawing& drawing, const PlotSettings& settings,
                       const std::function<void(const std::string&)>& note) {
    ensureGuiApplication();
    const Scene scene(drawing, Space::Model);
    // Written beside the target and moved over it, so a failed plot leaves the old file.
    const std::filesystem::path target = settings.file;
    const std::filesystem::path partial = target.string() + ".part";
    {
        QPdfWriter writer(QString::fromStdString(partial.string()));
        writer.setResolution(kDotsPerInch);
        writer.setCreator("ardo-cad");
        writer.setTitle(QString::fromStdString(target.stem().string()));
        writer.setPageSize(QPageSize(QSizeF(settings.sheetWidth(), settings.sheetHeight()), QPageSize::Millimeter,
                                     QString(), QPageSize::ExactMatch));
        writer.setPageMargins(QMarginsF(0, 0, 0, 0));
        QPainter painter;
        if (!painter.begin(&writer))
            return ardo::Error{"Cannot write \"" + target.string() + "\": check that the folder is writable."};
        const auto plotted = paintSheet(painter, drawing, scene, settings, kDotsPerInch / 25.4);
        if (!plotted) {
            painter.end();
            std::error_code ec;
            std::filesystem::remove(partial, ec);
            return ardo::Error{plotted.error()};
        }
        if (note) {
            char text[160];
            std::snprintf(text, sizeof text, "Effective plotting area: %.2f wide by %.2f high (millimeters)\n",
                          plotted->width, plotted->height);
            note(text);
        }
        if (!painter.end())
            return ardo::Error{"Cannot write \"" + target.string() + "\": check that the disk has room."};
    }
    std::error_code ec;
    std::filesystem::rename(partial, target, ec);
    if (ec) {
        std::filesystem::remove(partial, ec);
        return ardo::Error{"Cannot replace \"" + target.string() + "\": close it in other programs and plot again."};
    }
    return {};
}

}  // namespace cadhost::gui
