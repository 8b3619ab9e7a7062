#pragma once
// Plain 2D geometry of the view: points, boxes and the placement of block contents.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

namespace cadhost::gui {

struct Vec2 {
    double x = 0, y = 0;
};

// An axis-aligned box; empty while min > max.
struct Box2 {
    double x0 = 1, y0 = 1, x1 = 0, y1 = 0;

    bool empty() const { return x0 > x1 || y0 > y1; }
    void add(Vec2 p) {
        if (empty()) {
            x0 = x1 = p.x;
            y0 = y1 = p.y;
            return;
        }
        x0 = std::min(x0, p.x), y0 = std::min(y0, p.y);
        x1 = std::max(x1, p.x), y1 = std::max(y1, p.y);
    }
    void add(const Box2& b) {
        if (b.empty()) return;
        add(Vec2{b.x0, b.y0});
        add(Vec2{b.x1, b.y1});
    }
    bool intersects(const Box2& b) const { return !(b.x0 > x1 || b.x1 < x0 || b.y0 > y1 || b.y1 < y0); }
    bool contains(const Box2& b) const { return b.x0 >= x0 && b.x1 <= x1 && b.y0 >= y0 && b.y1 <= y1; }
};

// x' = a*x + c*y + e, y' = b*x + d*y + f: where a block's contents land.
struct Affine {
    double a = 1, b = 0, c = 0, d = 1, e = 0, f = 0;

    Vec2 apply(Vec2 p) const { return {a * p.x + c * p.y + e, b * p.x + d * p.y + f}; }
    // This placement after `inner`.
    Affine after(const Affine& inner) const {
        return {a * inner.a + c * inner.b, b * inner.a + d * inner.b, a * inner.c + c * inner.d,
                b * inner.c + d * inner.d, a * inner.e + c * inner.f + e, b * inner.e + d * inner.f + f};
    }
    // How much lengths grow (for text heights and tessellation).
    double scale() const { return std::sqrt(std::fabs(a * d - b * c)); }
    double angle() const { return std::atan2(b, a); }
    bool mirrored() const { return a * d - b * c < 0; }
};

// A text's size without its font: a character advances about this many text heights, and
// lines stand this many heights apart.
constexpr double kCharacterAdvance = 0.7, kLineSpacing = 1.6;

// The longest line of a text in characters and how many lines it has.
struct TextExtent {
    std::size_t longest = 0, lines = 1;
};
inline TextExtent textExtent(const std::string& text) {
    TextExtent e;
    std::size_t current = 0;
    for (char c : text) {
        if (c == '\n') ++e.lines, current = 0;
        else if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) e.longest = std::max(e.longest, ++current);
    }
    return e;
}

// Where a piece's colour comes from: its layer's colour, or a colour of its own.
struct PieceColor {
    bool byLayer = true;
    std::uint32_t rgb = 0;   // 0xRRGGBB when not by layer
};

// How a piece's lines are drawn: the dash pattern of its linetype and its lineweight.
struct PieceLine {
    bool dashesByLayer = true;   // the layer's pattern instead of `dashes`
    std::vector<double> dashes{};  // drawing units: dashes > 0, gaps < 0, dots 0; empty is solid
    double dashScale = 1;        // the entity's linetype scale, times a block's scale
    int weight = -1;             // hundredths of a millimetre; -1 the layer's, -3 the default
};

// One drawable piece of an entity in world coordinates.
struct Piece {
    // Segments: separate lines, two points each (hatch pattern lines).
    enum class Kind : std::uint8_t { Stroke, Fill, Text, Dot, Segments };
    Kind kind = Kind::Stroke;
    bool closed = false;
    int layer = 0;            // index in the scene's layer table
    PieceColor color;
    PieceLine line;
    std::vector<Vec2> points; // Text: the insertion point (left end of the base line)
    // Fill: where the second and further loops begin in `points`; loops inside others are holes.
    std::vector<std::uint32_t> loops;
    std::string text;         // lines separated by '\n'
    double height = 0, angle = 0;
};

}  // namespace cadhost::gui
