#include "cadhost/gui/PixelCanvas.h"

#include <cmath>
#include <cstdlib>

namespace cadhost::gui {

PixelCanvas::PixelCanvas(QImage& image, QRect clip) : bits_(image.bits()), stride_(image.bytesPerLine()) {
    const QRect r = clip.intersected(image.rect());
    left_ = r.left(), top_ = r.top(), right_ = r.right(), bottom_ = r.bottom();
}

// Liang-Barsky against the clip rectangle, widened by half a pixel so that a line along
// its edge rounds onto the edge's pixels.
bool PixelCanvas::clipLine(double& x0, double& y0, double& x1, double& y1) const {
    if (right_ < left_ || bottom_ < top_) return false;
    const double dx = x1 - x0, dy = y1 - y0;
    double t0 = 0, t1 = 1;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {x0 - (left_ - 0.49), (right_ + 0.49) - x0, y0 - (top_ - 0.49), (bottom_ + 0.49) - y0};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0) {
            if (q[i] < 0) return false;
            continue;
        }
        const double t = q[i] / p[i];
        if (p[i] < 0) {
            if (t > t1) return false;
            if (t > t0) t0 = t;
        } else {
            if (t < t0) return false;
            if (t < t1) t1 = t;
        }
    }
    if (t1 < 1) x1 = x0 + t1 * dx, y1 = y0 + t1 * dy;
    if (t0 > 0) x0 = x0 + t0 * dx, y0 = y0 + t0 * dy;
    return true;
}

void PixelCanvas::line(double x0, double y0, double x1, double y1) {
    if (width_ == 1) return hairLine(x0, y0, x1, y1);
    // A wide line is hair lines side by side, offset across its run, each dashed alike.
    const bool steep = std::fabs(y1 - y0) > std::fabs(x1 - x0);
    const int phase = phase_;
    int end = phase;
    for (int k = 0; k < width_; ++k) {
        const double offset = k - (width_ - 1) / 2.0;
        phase_ = phase;
        if (steep) hairLine(x0 + offset, y0, x1 + offset, y1);
        else hairLine(x0, y0 + offset, x1, y1 + offset);
        if (k == 0) end = phase_;
    }
    phase_ = end;
}

void PixelCanvas::dot(double x, double y) {
    if (width_ == 1) return pixel(x, y);
    for (int i = 0; i < width_; ++i)
        for (int k = 0; k < width_; ++k) pixel(x + i - (width_ - 1) / 2.0, y + k - (width_ - 1) / 2.0);
}

void PixelCanvas::hairLine(double x0, double y0, double x1, double y1) {
    if (!std::isfinite(x0 + y0 + x1 + y1) || !clipLine(x0, y0, x1, y1)) return;
    int ax = static_cast<int>(std::lround(x0)), ay = static_cast<int>(std::lround(y0));
    const int bx = static_cast<int>(std::lround(x1)), by = static_cast<int>(std::lround(y1));
    // Rounding may step half a pixel outside; the clip box is kept to the letter.
    auto inside = [&](int x, int y) { return x >= left_ && x <= right_ && y >= top_ && y <= bottom_; };
    const int dx = std::abs(bx - ax), dy = -std::abs(by - ay);
    const int sx = ax < bx ? 1 : -1, sy = ay < by ? 1 : -1;
    int err = dx + dy;
    for (;;) {
        if (inside(ax, ay)) put(ax, ay);
        if (ax == bx && ay == by) break;
        const int e2 = 2 * err;
        if (e2 >= dy) err += dy, ax += sx;
        if (e2 <= dx) err += dx, ay += sy;
    }
}

void PixelCanvas::pixel(double x, double y) {
    if (!std::isfinite(x + y)) return;
    const int ix = static_cast<int>(std::lround(x)), iy = static_cast<int>(std::lround(y));
    if (ix >= left_ && ix <= right_ && iy >= top_ && iy <= bottom_) put(ix, iy);
}

}  // namespace cadhost::gui
