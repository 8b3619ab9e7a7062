#pragma once
// The popup menu of the layer dialog, drawn item by item: an icon beside each text, a
// checked item on a dithered icon cell, a disabled item in embossed grey. The icon lists
// and the window that measures the texts belong to the caller.
#include <QMenu>
#include <map>
#include <optional>
#include <vector>

class QPixmap;

namespace ardo {

using IconList = std::vector<QPixmap>;

// The icon of a command id; none for ids without one.
std::optional<int> iconMenuIconOf(int commandId);

// The colours the items are drawn with, from the palette the menu shows.
struct IconMenuColours {
    QColor background, selectedBackground, text, selectedText, disabledText;
    QColor frameTopLeft, frameBottomRight;   // the bottom-right edge is also the emboss and second dither colour
    QColor dither;
    static IconMenuColours of(const QPalette& palette);
};

struct IconMenuItemState {
    bool selected = false;
    bool checked = false;
    bool disabled = false;
};

// The size of an item with this text: 0.8 of the text's width in the measuring font plus
// 20, and its height plus twice the margin; none without a text.
std::optional<QSize> measureIconMenuItem(const QString& text, const QFontMetrics& measuring, int margin);
// Draws one item into its rectangle.
void drawIconMenuItem(QPainter& painter, const QRect& item, const IconMenuItemState& state, int commandId,
                      const QString& text, int margin, const IconList* icons, const IconList* disabledIcons,
                      const IconMenuColours& colours);

class cIconMenu : public QMenu {
public:
    cIconMenu(const IconList* icons, const IconList* disabledIcons, QWidget* measuring, QWidget* parent = nullptr);

    // Appends a command under its id; the action stays the caller's.
    void appendItem(QAction* action, int commandId);
    int commandIdOf(const QAction* action) const;
    void setVerticalMargin(int margin) { margin_ = margin; }
    int verticalMargin() const { return margin_; }
    // The size of the item's text as measured, widened where the menu's own font needs it.
    QSize itemSize(const QString& text) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const IconList* icons_;
    const IconList* disabledIcons_;
    QWidget* measuring_;
    int margin_ = 0;
    std::map<const QAction*, int> ids_;
};

}  // namespace ardo
