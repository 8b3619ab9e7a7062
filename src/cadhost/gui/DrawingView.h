#pragma once
// The drawing view: paints one space of a document from its cached scene, zooms with the
// wheel about the cursor, pans with the middle button, and turns left clicks into what
// the active prompt takes: a point, or objects by pick, window (left to right) or
// crossing (right to left), Shift removing them.
#include <QWidget>
#include <functional>
#include <optional>
#include <unordered_set>
#include <vector>

#include <memory>

#include "cadhost/commands/InputRequest.h"
#include "cadhost/commands/ViewControl.h"
#include "cadhost/gui/LayoutScene.h"
#include "cadhost/gui/ObjectSnap.h"
#include "cadhost/gui/ScenePainter.h"

class QPainter;

namespace cadhost::gui {

class DrawingView final : public QWidget, public commands::ViewControl {
public:
    struct Input {
        // What the prompt takes at the moment (Text when nothing is asked).
        std::function<commands::InputRequest()> request;
        std::function<void(Vec2)> point;
        // Entities found by a pick or a window, and where the pick was; `remove` with Shift held.
        std::function<void(const std::vector<Handle>&, Vec2 at, bool remove)> objects;
        // True while the prompt takes one entity: a pick that hits nothing hands over
        // nothing instead of opening a window.
        std::function<bool()> singlePick;
        // Keys typed while the view has the focus belong to the command line.
        std::function<void(QKeyEvent*)> typed;
        // Escape over the view cancels what the command line runs.
        std::function<void()> cancel;
        // The cursor's world position, for the status bar.
        std::function<void(Vec2)> cursor;
        // Where the cursor gives a point (snapped, or ortho from the base point) at
        // `scale` pixels per unit; without it the cursor's own position.
        std::function<TrackedPoint(Vec2 cursor, double scale)> track;
    };

    DrawingView(Drawing& drawing, Space space, QWidget* parent = nullptr);

    // Model space, which the view and each viewport of a layout show.
    Scene& scene() { return scene_; }
    // What the view shows: model space, or the paper space of the layout shown.
    Scene& shown() { return layout_ ? layout_->paper() : scene_; }
    void setInput(Input input) { input_ = std::move(input); }
    const Input& input() const { return input_; }
    // The drawing is gone: neither scene touches it again.
    void forgetDrawing();

    // --- space ------------------------------------------------------------------------
    // Shows a layout's sheet, or model space again; each space keeps its own view.
    void showLayout(std::optional<Layout> layout);
    const LayoutScene* layout() const { return layout_.get(); }

    // --- view -------------------------------------------------------------------------
    void zoomExtents() override;
    // Shows exactly the area, centred (ZOOM Window).
    void zoomWindow(const Box2& area);
    // --- commands::ViewControl, for ZOOM and PAN ----------------------------------------
    void zoomWindow(const ardo::Point3& a, const ardo::Point3& b) override;
    void zoomCenter(const ardo::Point3& centre, std::optional<double> height) override;
    void zoomScale(double factor, bool relative) override;
    void pan(const ardo::Point3& from, const ardo::Point3& to) override;
    double viewHeight() const override;
    // Zooms by `factor` keeping the world point under `screen` where it is.
    void zoomAt(double factor, QPointF screen);
    void panBy(QPointF pixels);
    // The previous view, as ZOOM Previous; false when there is none.
    bool zoomPrevious() override;
    double scale() const { return scale_; }
    Vec2 toWorld(QPointF screen) const;
    QPointF toScreen(Vec2 world) const;
    Box2 visibleArea() const;
    ViewTransform transform() const;

    // --- selection without a command (noun-verb) ----------------------------------------
    const std::vector<Handle>& selection() const { return selection_; }
    void setSelection(std::vector<Handle> entities);
    void clearSelection();

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void wheelEvent(QWheelEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void keyPressEvent(QKeyEvent*) override;

private:
    struct ViewState {
        Vec2 centre;
        double scale;
    };
    // The view of the space not shown, kept for switching back.
    struct SpaceView {
        Vec2 centre;
        double scale = 1;
        bool fitted = false;
        std::vector<ViewState> previous;
    };
    void rememberView();
    // Shows the box centred, filling that part of the view; the view before is remembered.
    void fit(const Box2& box, double fill);
    void click(QPointF at, bool shift);
    void finishWindow(QPointF at, bool shift);
    void hand(const std::vector<Handle>& found, QPointF at, bool remove);
    // Brings the cached picture of the drawing up to the view: kept, shifted by a pan with
    // only the uncovered strips painted, or painted anew; then the highlights over a copy.
    void refreshPicture();
    void drawRubberBand(QPainter& painter);
    // The point the cursor at `screen` gives to a point prompt.
    TrackedPoint trackedAt(QPointF screen) const;

    Scene scene_;
    std::unique_ptr<LayoutScene> layout_;
    SpaceView otherSpace_;
    Input input_;
    Vec2 centre_;
    double scale_ = 1;   // pixels per drawing unit
    bool fitted_ = false;
    std::vector<ViewState> previous_;
    std::optional<QPointF> panFrom_;
    std::optional<QPointF> windowFrom_;   // first corner of a selection window
    bool dragged_ = false;
    QPointF mouse_;
    std::optional<TrackedPoint> tracked_;   // while a point is asked: where the cursor gives it
    std::vector<Handle> selection_;
    std::unordered_set<Handle> selected_;

    QImage drawing_;        // the drawing without highlights, as `drawn_` shows it
    QImage picture_;        // what the screen shows: `drawing_` with the highlights
    ViewTransform drawn_;
    std::uint64_t drawingRevision_ = 0, highlightRevision_ = 0, selectionRevision_ = 0, shownSelection_ = 0;
    bool pictureStale_ = true;
};

}  // namespace cadhost::gui
