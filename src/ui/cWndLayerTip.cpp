#include "ui/cWndLayerTip.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

#include "ui/UiTexts.h"
#include "messages/MessageCatalog.h"

namespace ardo {

namespace {

constexpr int kLineStep = 17;
constexpr int kTextLeft = 22;
constexpr int kIconLeft = 2;

QColor tipBackground() { return QColor(0xFF, 0xFF, 0xE1); }
QColor tipText() { return QColor(Qt::black); }

// The base icon: a small stack of layers.
void drawBaseIcon(QPainter& p, int x, int y) {
    p.setPen(QColor(40, 48, 64));
    p.setBrush(QColor(120, 170, 230));
    p.drawPolygon(QPolygon({QPoint(x + 7, y + 1), QPoint(x + 14, y + 5), QPoint(x + 7, y + 9), QPoint(x, y + 5)}));
}

// The yes or no overlay in the lower right of the icon cell.
void drawOverlay(QPainter& p, int x, int y, bool yes) {
    if (yes) {
        p.setPen(QPen(QColor(30, 140, 40), 2));
        p.drawLine(x + 7, y + 11, x + 9, y + 13);
        p.drawLine(x + 9, y + 13, x + 14, y + 8);
    } else {
        p.setPen(QPen(QColor(200, 40, 30), 2));
        p.drawLine(x + 8, y + 8, x + 14, y + 14);
        p.drawLine(x + 14, y + 8, x + 8, y + 14);
    }
}

}  // namespace

QStringList layerTipLines(std::uint32_t bits, bool withObjectLine) {
    QStringList lines;
    lines << qCatalog(bits & tipbit::kInCentralFile ? MsgKey::CtInArdoIni : MsgKey::CtNotInArdoIni);
    if (withObjectLine) lines << qCatalog(bits & tipbit::kInObjectFile ? MsgKey::CtInObjIni : MsgKey::CtNotInObjIni);
    lines << qCatalog(bits & tipbit::kInDrawing ? MsgKey::CtInDrawing : MsgKey::CtNotInDrawing);
    return lines;
}

int layerTipHeight(int rowHeight, int lines) { return rowHeight + (lines >= 3 ? 54 : 36); }

QRect keepOnScreen(QRect tip, const QRect& screen) {
    if (tip.width() > screen.width()) {
        tip.moveLeft(0);
        tip.setWidth(screen.width());
    }
    if (tip.height() > screen.height()) {
        tip.moveTop(0);
        tip.setHeight(screen.height());
    }
    const int right = screen.x() + screen.width();
    const int bottom = screen.y() + screen.height();
    if (tip.x() + tip.width() > right) tip.moveLeft(tip.x() - (tip.x() + tip.width() - right));
    if (tip.y() + tip.height() > bottom) tip.moveTop(tip.y() - (tip.y() + tip.height() - bottom));
    return tip;
}

cWndLayerTip::cWndLayerTip(QWidget* parent) : QWidget(parent, Qt::ToolTip | Qt::FramelessWindowHint) {
    setObjectName("cWndLayerTip");
    setAttribute(Qt::WA_ShowWithoutActivating);
}

void cWndLayerTip::showFor(std::uint32_t bits, bool withObjectLine, const QPoint& at, int width, int rowHeight) {
    bits_ = bits;
    lines_ = layerTipLines(bits, withObjectLine);
    yes_ = {(bits & tipbit::kInCentralFile) != 0};
    if (withObjectLine) yes_.push_back((bits & tipbit::kInObjectFile) != 0);
    yes_.push_back((bits & tipbit::kInDrawing) != 0);
    const QScreen* screen = QGuiApplication::screenAt(at);
    if (!screen) screen = QGuiApplication::primaryScreen();
    const QRect virtualScreen = screen ? screen->virtualGeometry() : QRect(0, 0, 1 << 15, 1 << 15);
    setGeometry(keepOnScreen(QRect(at, QSize(width, layerTipHeight(rowHeight, static_cast<int>(lines_.size())))),
                             virtualScreen));
    show();
    update();
}

void cWndLayerTip::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const QRect r = rect();
    p.fillRect(r, tipBackground());
    p.setPen(tipText());
    p.drawRect(r.adjusted(0, 0, -1, -1));
    int y = r.top() + 1;
    for (int i = 0; i < lines_.size(); ++i, y += kLineStep) {
        p.setPen(tipText());
        p.drawText(QRect(QPoint(r.left() + kTextLeft, y), QPoint(r.right() - 1, y + 16)), Qt::AlignLeft | Qt::AlignVCenter,
                   lines_[i]);
        drawBaseIcon(p, r.left() + kIconLeft, y);
        drawOverlay(p, r.left() + kIconLeft, y, yes_[static_cast<size_t>(i)]);
    }
}

}  // namespace ardo
