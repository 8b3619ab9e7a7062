#include "cadhost/gui/LayerBar.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <cstdlib>

#include "cadhost/colors/AciPalette.h"

namespace cadhost::gui {

namespace {

constexpr int kCell = 16;

void drawBulb(QPainter& p, QRectF cell, bool on) {
    p.setPen(QPen(QColor(60, 60, 60), 1));
    p.setBrush(on ? QColor(255, 220, 40) : QColor(40, 50, 110));
    p.drawEllipse(cell.adjusted(3, 2, -3, -5));
    p.setBrush(QColor(150, 150, 150));
    p.drawRect(QRectF(cell.center().x() - 2, cell.bottom() - 5, 4, 3));
}

void drawSun(QPainter& p, QRectF cell, bool thawed) {
    const QPointF c = cell.center();
    if (thawed) {
        p.setPen(QPen(QColor(230, 160, 0), 1.5));
        for (int i = 0; i < 8; ++i) {
            const double a = i * M_PI / 4;
            p.drawLine(c + QPointF(4 * std::cos(a), 4 * std::sin(a)), c + QPointF(7 * std::cos(a), 7 * std::sin(a)));
        }
        p.setBrush(QColor(255, 200, 0));
        p.drawEllipse(c, 3, 3);
    } else {
        // A snowflake: three crossed strokes.
        p.setPen(QPen(QColor(70, 150, 230), 1.5));
        for (int i = 0; i < 3; ++i) {
            const double a = i * M_PI / 3;
            p.drawLine(c - QPointF(6 * std::cos(a), 6 * std::sin(a)), c + QPointF(6 * std::cos(a), 6 * std::sin(a)));
        }
    }
}

void drawLock(QPainter& p, QRectF cell, bool locked) {
    p.setPen(QPen(QColor(90, 90, 90), 1.5));
    p.setBrush(Qt::NoBrush);
    // The shackle stands open to the right when unlocked.
    const QRectF shackle(cell.left() + 4, cell.top() + 1, 8, 9);
    QPainterPath path;
    path.moveTo(shackle.left(), shackle.center().y() + 3);
    path.arcTo(locked ? shackle : shackle.translated(3, -1), 180, -180);
    p.drawPath(path);
    p.setBrush(locked ? QColor(200, 160, 40) : QColor(220, 220, 220));
    p.drawRect(QRectF(cell.left() + 2.5, cell.top() + 7.5, 11, 7));
}

}  // namespace

QPixmap layerRowIcon(const ardo::LayerRecord& layer, std::uint32_t rgb) {
    QPixmap pixmap(4 * kCell, kCell);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    drawBulb(p, QRectF(0, 0, kCell, kCell), !layer.isOff);
    drawSun(p, QRectF(kCell, 0, kCell, kCell), !layer.isFrozen);
    drawLock(p, QRectF(2 * kCell, 0, kCell, kCell), layer.isLocked);
    p.setPen(QColor(40, 40, 40));
    p.setBrush(QColor((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF));
    p.drawRect(QRectF(3 * kCell + 2.5, 2.5, kCell - 5, kCell - 5));
    return pixmap;
}

LayerBar::LayerBar(QWidget* parent) : QToolBar(tr("Layers"), parent) {
    setObjectName("layers");
    list_ = new QComboBox(this);
    list_->setObjectName("layerList");
    list_->setMinimumWidth(260);
    list_->setIconSize(QSize(4 * kCell, kCell));
    list_->setToolTip(tr("Current layer; the switches turn a layer off, freeze or lock it"));
    list_->view()->viewport()->installEventFilter(this);
    addWidget(list_);
    connect(list_, qOverload<int>(&QComboBox::activated), this, [this](int index) {
        if (index >= 0) choose(list_->itemText(index).toStdString());
    });
}

void LayerBar::setDrawing(Drawing* drawing, std::function<std::vector<Handle>()> selection) {
    drawing_ = drawing;
    selection_ = std::move(selection);
    refresh();
}

void LayerBar::refresh() {
    filling_ = true;
    list_->clear();
    setEnabled(drawing_ != nullptr);
    if (drawing_) {
        drawing_->forEachLayer([&](const ardo::LayerRecord& layer) {
            const std::uint32_t rgb = layer.color.method == ardo::HostColor::Method::TrueColor
                                          ? layer.color.rgb()
                                          : aciRgb(std::abs(layer.color.index));
            list_->addItem(QIcon(layerRowIcon(layer, rgb)), QString::fromStdString(layer.name));
            return true;
        });
        const auto current = drawing_->getVar("CLAYER");
        if (current) list_->setCurrentIndex(list_->findText(QString::fromStdString(current->text), Qt::MatchFixedString));
    }
    filling_ = false;
}

bool LayerBar::flip(const std::string& name, Switch which, std::string& why) {
    if (!drawing_) return false;
    auto layer = drawing_->findLayer(name);
    if (!layer) return false;
    const auto current = drawing_->getVar("CLAYER");
    const bool isCurrent = current && foldName(current->text) == foldName(layer->name);
    switch (which) {
    case Switch::On: layer->isOff = !layer->isOff; break;
    case Switch::Thawed:
        if (!layer->isFrozen && isCurrent) {
            why = "Cannot freeze the current layer \"" + layer->name + "\"; make another layer current first.";
            return false;
        }
        layer->isFrozen = !layer->isFrozen;
        break;
    case Switch::Unlocked: layer->isLocked = !layer->isLocked; break;
    }
    if (drawing_->updateLayer(*layer) != ardo::DbStatus::Ok) {
        why = "Layer \"" + layer->name + "\" could not be changed.";
        return false;
    }
    return true;
}

void LayerBar::choose(const std::string& layer) {
    if (!drawing_ || filling_) return;
    const std::vector<Handle> selected = selection_ ? selection_() : std::vector<Handle>{};
    if (selected.empty()) {
        if (drawing_->setVar("CLAYER", ardo::ResBuf::str(layer)) != ardo::DbStatus::Ok && message_)
            message_("Layer \"" + layer + "\" cannot be made current.");
    } else {
        for (Handle h : selected) drawing_->setEntityLayer(h, layer);
    }
    refresh();
}

bool LayerBar::eventFilter(QObject* watched, QEvent* event) {
    if (watched != list_->view()->viewport() || event->type() != QEvent::MouseButtonRelease)
        return QToolBar::eventFilter(watched, event);
    const auto* mouse = static_cast<QMouseEvent*>(event);
    const QModelIndex index = list_->view()->indexAt(mouse->position().toPoint());
    const QRect row = list_->view()->visualRect(index);
    // The icon starts after the style's margin; the switches are its first three cells.
    const int x = mouse->position().toPoint().x() - row.left() - 4;
    if (!index.isValid() || x < 0 || x >= 3 * kCell) return false;
    std::string why;
    const std::string name = index.data().toString().toStdString();
    if (!flip(name, static_cast<Switch>(x / kCell), why) && !why.empty() && message_) message_(why);
    // The list stays open so that several switches can be flipped in a row.
    const int keep = list_->currentIndex();
    refresh();
    list_->setCurrentIndex(keep);
    return true;
}

}  // namespace cadhost::gui
