#include "ui/cIconMenu.h"

#include <QAction>
#include <QPaintEvent>
#include <QPainter>
#include <QPixmap>
#include <QProxyStyle>
#include <QRegularExpression>
#include <QStyleOptionMenuItem>
#include <array>
#include <utility>

namespace ardo {

namespace {

constexpr std::array<std::pair<int, int>, 23> kIconOfCommand{{
    {40001, 2}, {40002, 3}, {40004, 4}, {40005, 6}, {40006, 7}, {40007, 8}, {40008, 16}, {40009, 12},
    {40010, 17}, {40015, 13}, {40016, 14}, {40060, 0}, {40061, 1}, {40071, 18}, {40072, 19}, {40089, 20},
    {40090, 21}, {40091, 22}, {113, 9}, {114, 11}, {123, 15}, {129, 5}, {130, 10},
}};

constexpr int kTextLeft = 30;
constexpr int kIconLeft = 4;
// Space the host's menus add beside an owner-drawn item, as for a check mark.
constexpr int kCheckMarkSpace = 16;
constexpr int kTextRightSpace = 8;

QString plainText(QString text) {
    // Mnemonics are not drawn.
    return text.remove(QRegularExpression("&(?!&)"));
}

// Item sizes come from the menu's own rule instead of the style's.
class IconMenuStyle : public QProxyStyle {
public:
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override {
        const auto* menu = dynamic_cast<const cIconMenu*>(widget);
        const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        if (type == CT_MenuItem && menu && item && item->menuItemType != QStyleOptionMenuItem::Separator)
            return menu->itemSize(item->text);
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    }
};

}  // namespace

std::optional<int> iconMenuIconOf(int commandId) {
    for (const auto& [id, icon] : kIconOfCommand)
        if (id == commandId) return icon;
    return std::nullopt;
}

IconMenuColours IconMenuColours::of(const QPalette& p) {
    IconMenuColours c;
    c.background = p.color(QPalette::Active, QPalette::Window);
    c.selectedBackground = p.color(QPalette::Active, QPalette::Highlight);
    c.text = p.color(QPalette::Active, QPalette::WindowText);
    c.selectedText = p.color(QPalette::Active, QPalette::HighlightedText);
    c.disabledText = p.color(QPalette::Disabled, QPalette::WindowText);
    c.frameTopLeft = p.color(QPalette::Active, QPalette::Light);
    c.frameBottomRight = p.color(QPalette::Active, QPalette::Dark);
    c.dither = p.color(QPalette::Active, QPalette::Light);
    return c;
}

std::optional<QSize> measureIconMenuItem(const QString& text, const QFontMetrics& measuring, int margin) {
    if (text.isEmpty()) return std::nullopt;
    // The extent of one line: its advance and the font's height.
    return QSize(static_cast<int>(0.8 * measuring.horizontalAdvance(text)) + 20, measuring.height() + 2 * margin);
}

void drawIconMenuItem(QPainter& p, const QRect& r, const IconMenuItemState& state, int commandId, const QString& text,
                      int margin, const IconList* icons, const IconList* disabledIcons, const IconMenuColours& c) {
    const int left = r.left(), top = r.top(), bottom = r.top() + r.height();
    p.fillRect(r, state.selected ? c.selectedBackground : c.background);
    const QColor ink = state.selected ? c.selectedText : c.text;

    if (state.checked) {
        for (int y = top + 3; y < bottom - 3; ++y)
            for (int x = left + 3; x < left + 21; ++x) {
                p.setPen((x + y) % 2 == 0 ? c.dither : c.frameBottomRight);
                p.drawPoint(x, y);
            }
        // The frame's width is given as left + 23, as the menu always did.
        const QRect frame(left + 1, top + 1, left + 23, bottom - top - 1);
        p.setPen(c.frameTopLeft);
        p.drawLine(frame.topLeft(), QPoint(frame.right() - 1, frame.top()));
        p.drawLine(frame.topLeft(), QPoint(frame.left(), frame.bottom() - 1));
        p.setPen(c.frameBottomRight);
        p.drawLine(QPoint(frame.right(), frame.top()), frame.bottomRight());
        p.drawLine(QPoint(frame.left(), frame.bottom()), frame.bottomRight());
    }

    const std::optional<int> icon = iconMenuIconOf(commandId);
    if (icons && disabledIcons && icon) {
        const IconList& list = state.disabled ? *disabledIcons : *icons;
        if (*icon < static_cast<int>(list.size())) {
            const int shift = state.checked ? 1 : 0;
            p.drawPixmap(left + kIconLeft + shift, top + margin + 1 + shift, list[static_cast<size_t>(*icon)]);
        }
    }

    if (text.isEmpty()) return;
    p.save();
    p.setClipRect(r);
    p.setBackgroundMode(Qt::TransparentMode);
    const QRect textRect(left + kTextLeft, top + margin + 1, r.width() - kTextLeft, r.height() - margin - 1);
    const int flags = Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine;
    if (!state.disabled) {
        p.setPen(ink);
        p.drawText(textRect, flags, text);
    } else {
        if (!state.selected) {
            p.setPen(c.frameBottomRight);
            p.drawText(textRect.translated(1, 1), flags, text);
        }
        p.setPen(c.disabledText);
        p.drawText(textRect, flags, text);
    }
    p.restore();
}

cIconMenu::cIconMenu(const IconList* icons, const IconList* disabledIcons, QWidget* measuring, QWidget* parent)
    : QMenu(parent), icons_(icons), disabledIcons_(disabledIcons), measuring_(measuring) {
    setObjectName("cIconMenu");
    auto* style = new IconMenuStyle;
    style->setParent(this);
    setStyle(style);
}

void cIconMenu::appendItem(QAction* action, int commandId) {
    addAction(action);
    ids_[action] = commandId;
}

int cIconMenu::commandIdOf(const QAction* action) const {
    const auto found = ids_.find(action);
    return found == ids_.end() ? 0 : found->second;
}

QSize cIconMenu::itemSize(const QString& text) const {
    if (!measuring_) return {};
    const QString plain = plainText(text);
    const std::optional<QSize> measured = measureIconMenuItem(plain, measuring_->fontMetrics(), margin_);
    if (!measured) return {};
    // The rule expects a menu font narrower than the measuring one; ours is not, so the item
    // is widened until its text fits whole.
    const int needed = kTextLeft + fontMetrics().horizontalAdvance(plain) + kTextRightSpace;
    return {std::max(measured->width() + kCheckMarkSpace, needed),
            std::max(measured->height(), fontMetrics().height() + 2 * margin_ + 2)};
}

void cIconMenu::paintEvent(QPaintEvent* event) {
    QPainter p(this);
    p.setClipRegion(event->region());
    const IconMenuColours colours = IconMenuColours::of(palette());
    p.fillRect(rect(), colours.background);
    p.setPen(colours.frameBottomRight);
    p.drawRect(rect().adjusted(0, 0, -1, -1));
    for (QAction* action : actions()) {
        const QRect r = actionGeometry(action);
        if (!r.isValid() || !action->isVisible()) continue;
        if (action->isSeparator()) {
            const int y = r.center().y();
            p.setPen(colours.frameBottomRight);
            p.drawLine(r.left() + 2, y, r.right() - 2, y);
            p.setPen(colours.frameTopLeft);
            p.drawLine(r.left() + 2, y + 1, r.right() - 2, y + 1);
            continue;
        }
        const IconMenuItemState state{action == activeAction(), action->isChecked(), !action->isEnabled()};
        drawIconMenuItem(p, r, state, commandIdOf(action), plainText(action->text()), margin_, icons_, disabledIcons_,
                         colours);
    }
}

}  // namespace ardo
