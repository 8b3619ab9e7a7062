#pragma once
// The small borderless tip beside a layer row that tells where the layer is defined: in the
// central layer file, in the object layer file (object mode only) and in the drawing, one
// line each with a yes or no icon.
#include <QRect>
#include <QStringList>
#include <QWidget>
#include <cstdint>

namespace ardo {

namespace tipbit {
constexpr std::uint32_t kInObjectFile = 1;
constexpr std::uint32_t kInDrawing = 2;
constexpr std::uint32_t kInCentralFile = 4;
}  // namespace tipbit

// The texts of the tip's lines for these state bits; the object line only with it.
QStringList layerTipLines(std::uint32_t bits, bool withObjectLine);
// Row height plus 36 pixels for two lines, plus 54 for three.
int layerTipHeight(int rowHeight, int lines);
// Kept on the screen: wider (taller) than the screen it spans it from 0; beyond the right
// (bottom) edge it moves back by the overflow.
QRect keepOnScreen(QRect tip, const QRect& screen);

class cWndLayerTip : public QWidget {
public:
    explicit cWndLayerTip(QWidget* parent = nullptr);

    // Shows the tip for a row at the given place, on the virtual screen.
    void showFor(std::uint32_t bits, bool withObjectLine, const QPoint& at, int width, int rowHeight);
    const QStringList& lines() const { return lines_; }
    std::uint32_t bits() const { return bits_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QStringList lines_;
    std::vector<bool> yes_;
    std::uint32_t bits_ = 0;
};

}  // namespace ardo
