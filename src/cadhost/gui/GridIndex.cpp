#include "cadhost/gui/GridIndex.h"

#include <cmath>

namespace cadhost::gui {

namespace {

// An item spanning more cells than this is visited on every query instead.
constexpr int kLargeSpan = 16;

}  // namespace

void GridIndex::reset(const Box2& bounds, std::size_t expected) {
    bounds_ = bounds.empty() ? Box2{0, 0, 1, 1} : bounds;
    // About four items per cell, at most 1024 cells a side.
    const int side = std::clamp(static_cast<int>(std::sqrt(static_cast<double>(expected) / 4)), 1, 1024);
    const double w = std::max(bounds_.x1 - bounds_.x0, 1e-9), h = std::max(bounds_.y1 - bounds_.y0, 1e-9);
    columns_ = std::max(1, static_cast<int>(side * std::sqrt(w / h)));
    rows_ = std::max(1, static_cast<int>(side * std::sqrt(h / w)));
    columns_ = std::min(columns_, 1024), rows_ = std::min(rows_, 1024);
    cellWidth_ = w / columns_;
    cellHeight_ = h / rows_;
    cells_.assign(static_cast<std::size_t>(columns_) * rows_, {});
    large_.clear();
    seen_.clear();
}

namespace {
// Clamped before it becomes an int: a point far outside the grid would not fit in one.
int cellOf(double at, int count) {
    return static_cast<int>(std::clamp(std::floor(at), 0.0, static_cast<double>(count - 1)));
}
}  // namespace

int GridIndex::column(double x) const { return cellOf((x - bounds_.x0) / cellWidth_, columns_); }

int GridIndex::row(double y) const { return cellOf((y - bounds_.y0) / cellHeight_, rows_); }

void GridIndex::insert(std::uint32_t item, const Box2& box) {
    if (box.empty()) return;
    if (item >= seen_.size()) seen_.resize(item + 1, 0);
    const int c0 = column(box.x0), c1 = column(box.x1), r0 = row(box.y0), r1 = row(box.y1);
    if (c1 - c0 >= kLargeSpan || r1 - r0 >= kLargeSpan) {
        large_.push_back(item);
        return;
    }
    for (int r = r0; r <= r1; ++r)
        for (int c = c0; c <= c1; ++c) cells_[static_cast<std::size_t>(r) * columns_ + c].push_back(item);
}

void GridIndex::query(const Box2& area, const std::function<void(std::uint32_t)>& visit) const {
    if (area.empty() || cells_.empty()) return;
    if (++stamp_ == 0) {
        std::fill(seen_.begin(), seen_.end(), 0);
        stamp_ = 1;
    }
    auto once = [&](std::uint32_t item) {
        if (seen_[item] == stamp_) return;
        seen_[item] = stamp_;
        visit(item);
    };
    for (std::uint32_t item : large_) once(item);
    const int c0 = column(area.x0), c1 = column(area.x1), r0 = row(area.y0), r1 = row(area.y1);
    for (int r = r0; r <= r1; ++r)
        for (int c = c0; c <= c1; ++c)
            for (std::uint32_t item : cells_[static_cast<std::size_t>(r) * columns_ + c]) once(item);
}

}  // namespace cadhost::gui
