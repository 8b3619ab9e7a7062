#pragma once
// The host's colour dialog: an index colour from the usual grid (ByLayer and ByBlock where
// the caller allows them), a true colour by RGB or HSL, or a colour of a shipped colour
// book. The colour field below takes a typed name, number or "r,g,b" as well.
#include <QDialog>
#include <optional>

#include "boundary/HostColor.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QSpinBox;
class QTabWidget;

namespace cadhost::gui {

class IndexGrid;

class ColorDialog final : public QDialog {
public:
    ColorDialog(const ardo::HostColor& initial, bool allowMetaColors, QWidget* parent = nullptr);

    const ardo::HostColor& color() const { return color_; }
    void setColor(const ardo::HostColor& color);

    // The grid of index colours and where a colour's cell lies in it; nothing for 0, 256
    // and numbers outside the palette.
    QWidget* indexGrid() const;
    std::optional<QPoint> indexCell(int index) const;

private:
    QWidget* makeIndexPage(bool allowMetaColors);
    QWidget* makeTrueColorPage();
    QWidget* makeBookPage();
    void showBook(int book);
    // Shows the colour everywhere but in the widget it came from.
    void display(const QWidget* from);
    void takeRgb();
    void takeHsl();
    void takeTyped();

    ardo::HostColor color_;
    bool allowMetaColors_;
    bool showing_ = false;
    QTabWidget* tabs_;
    IndexGrid* grid_;
    QLabel* indexInfo_;
    QSpinBox *red_, *green_, *blue_;
    QSpinBox *hue_, *saturation_, *luminance_;
    QComboBox* books_;
    QListWidget* bookColors_;
    QLineEdit* typed_;
    QLabel* swatch_;
    QPushButton* ok_;
};

// The text the colour field shows for a colour: the index number, BYLAYER, BYBLOCK,
// "r,g,b" or the book colour's name.
QString colorText(const ardo::HostColor& color);

}  // namespace cadhost::gui
