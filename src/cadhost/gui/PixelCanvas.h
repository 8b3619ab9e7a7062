#pragma once
// Hair lines and dots written straight into an image's pixels. The view draws thousands of
// lines a few pixels long; a painter's per-call setup costs more than the pixels, so thin
// solid and dashed lines take this path and only fills, texts and wide lines a painter's.
#include <QImage>
#include <QRect>
#include <algorithm>
#include <cstdint>

namespace cadhost::gui {

class PixelCanvas {
public:
    // `image` is 32 bits a pixel and outlives the canvas; nothing is drawn outside `clip`.
    PixelCanvas(QImage& image, QRect clip);

    void setColor(std::uint32_t argb) { color_ = argb; }
    // Pixels drawn and skipped in turn along a chain of lines; 0 drawn is solid.
    void setDash(int on, int off) {
        on_ = on, off_ = off;
        phase_ = 0;
    }
    // Lines this many pixels wide, across their run (1 is a hair line).
    void setWidth(int pixels) { width_ = std::max(1, pixels); }
    // A new chain: the dash pattern starts over.
    void restartDash() { phase_ = 0; }

    void line(double x0, double y0, double x1, double y1);
    void dot(double x, double y);

private:
    bool clipLine(double& x0, double& y0, double& x1, double& y1) const;
    void hairLine(double x0, double y0, double x1, double y1);
    void pixel(double x, double y);
    void put(int x, int y) {
        if (on_ > 0) {
            const bool drawn = phase_ < on_;
            if (++phase_ == on_ + off_) phase_ = 0;
            if (!drawn) return;
        }
        reinterpret_cast<std::uint32_t*>(bits_ + static_cast<std::ptrdiff_t>(y) * stride_)[x] = color_;
    }

    std::uint8_t* bits_;
    qsizetype stride_;
    int left_, top_, right_, bottom_;   // inclusive
    std::uint32_t color_ = 0xFFFFFFFF;
    int on_ = 0, off_ = 0, phase_ = 0;
    int width_ = 1;
};

}  // namespace cadhost::gui
