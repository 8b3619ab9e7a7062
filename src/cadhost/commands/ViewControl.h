#pragma once
// What ZOOM and PAN ask of the view showing the drawing. The window gives its current
// view; the console has none, and the commands then take their input and change nothing,
// so LISP programs that zoom run unchanged in both.
#include <optional>

#include "boundary/ResBuf.h"

namespace cadhost::commands {

class ViewControl {
public:
    virtual ~ViewControl() = default;
    // Everything shown, with a small margin.
    virtual void zoomExtents() = 0;
    // Exactly the area between the corners, centred.
    virtual void zoomWindow(const ardo::Point3& a, const ardo::Point3& b) = 0;
    // The point in the middle; `height` drawing units high, or at the scale shown.
    virtual void zoomCenter(const ardo::Point3& centre, std::optional<double> height) = 0;
    // The view before the last change; false when there is none.
    virtual bool zoomPrevious() = 0;
    // `factor` times the view shown (relative) or times the drawing's extents.
    virtual void zoomScale(double factor, bool relative) = 0;
    // The drawing moves by the displacement from `from` to `to`.
    virtual void pan(const ardo::Point3& from, const ardo::Point3& to) = 0;
    // The height of the area shown, in drawing units.
    virtual double viewHeight() const = 0;
};

}  // namespace cadhost::commands
