#include "dialog/DialogIcons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace ardo {

namespace {

const QColor kInk(40, 48, 64);
const QColor kPaper(255, 255, 255);
const QColor kFolder(226, 184, 76);
const QColor kDisk(70, 110, 180);
const QColor kDrawingBlue(60, 130, 210);
const QColor kFileGreen(70, 150, 80);
const QColor kRed(200, 50, 40);

void sheet(QPainter& p, const QRect& r) {
    p.setPen(kInk);
    p.setBrush(kPaper);
    QPainterPath path;
    path.moveTo(r.left(), r.top());
    path.lineTo(r.right() - 3, r.top());
    path.lineTo(r.right(), r.top() + 3);
    path.lineTo(r.right(), r.bottom());
    path.lineTo(r.left(), r.bottom());
    path.closeSubpath();
    p.drawPath(path);
}

void lines(QPainter& p, int left, int right, int top, int count, const QColor& colour) {
    p.setPen(colour);
    for (int i = 0; i < count; ++i) p.drawLine(left, top + 2 * i, right, top + 2 * i);
}

void disk(QPainter& p) {
    p.setPen(kInk);
    p.setBrush(kDisk);
    p.drawRect(1, 1, 13, 13);
    p.setBrush(kPaper);
    p.drawRect(4, 1, 7, 5);
    p.fillRect(4, 10, 7, 4, QColor(200, 200, 200));
}

void layers(QPainter& p, const QColor& colour) {
    p.setPen(kInk);
    for (int i = 2; i >= 0; --i) {
        p.setBrush(i == 0 ? colour : colour.lighter(130 + 20 * i));
        QPolygon diamond;
        diamond << QPoint(8, 2 + 3 * i) << QPoint(15, 5 + 3 * i) << QPoint(8, 8 + 3 * i) << QPoint(1, 5 + 3 * i);
        p.drawPolygon(diamond);
    }
}

// One or two arrow heads pointing right (or left).
void arrows(QPainter& p, int count, bool right) {
    p.setPen(kInk);
    p.setBrush(kDrawingBlue);
    for (int i = 0; i < count; ++i) {
        const int x = (count == 1 ? 5 : 2 + 6 * i);
        QPolygon head = right ? QPolygon({QPoint(x, 3), QPoint(x + 6, 8), QPoint(x, 13)})
                              : QPolygon({QPoint(x + 6, 3), QPoint(x, 8), QPoint(x + 6, 13)});
        p.drawPolygon(head);
    }
}

void bulb(QPainter& p, bool on) {
    p.setPen(kInk);
    p.setBrush(on ? QColor(255, 214, 40) : QColor(120, 120, 150));
    p.drawEllipse(3, 1, 9, 9);
    p.setBrush(QColor(170, 170, 170));
    p.drawRect(5, 10, 5, 4);
}

void sunOrFlake(QPainter& p, bool frozen, int size) {
    const QPoint c(size == 16 ? 7 : 6, size == 16 ? 7 : 6);
    const int r = size == 16 ? 6 : 4;
    if (frozen) {
        p.setPen(QPen(QColor(60, 140, 220), 2));
        p.drawLine(c.x() - r, c.y(), c.x() + r, c.y());
        p.drawLine(c.x(), c.y() - r, c.x(), c.y() + r);
        p.drawLine(c.x() - r + 2, c.y() - r + 2, c.x() + r - 2, c.y() + r - 2);
        p.drawLine(c.x() - r + 2, c.y() + r - 2, c.x() + r - 2, c.y() - r + 2);
    } else {
        p.setPen(QColor(200, 120, 0));
        p.setBrush(QColor(255, 190, 30));
        p.drawEllipse(c, r - 2, r - 2);
        p.drawLine(c.x() - r, c.y(), c.x() - r + 1, c.y());
        p.drawLine(c.x() + r - 1, c.y(), c.x() + r, c.y());
        p.drawLine(c.x(), c.y() - r, c.x(), c.y() - r + 1);
        p.drawLine(c.x(), c.y() + r - 1, c.x(), c.y() + r);
    }
}

void padlock(QPainter& p, bool locked) {
    p.setPen(QPen(kInk, 2));
    p.setBrush(Qt::NoBrush);
    if (locked) p.drawArc(4, 1, 8, 10, 0, 180 * 16);
    else p.drawArc(8, 0, 8, 10, 0, 180 * 16);
    p.setPen(kInk);
    p.setBrush(locked ? QColor(210, 160, 40) : QColor(230, 210, 150));
    p.drawRect(2, 7, 11, 8);
}

void draw(QPainter& p, DialogIcon icon) {
    switch (icon) {
        case DialogIcon::FileNew:
            sheet(p, QRect(3, 1, 10, 14));
            p.setPen(QPen(kFolder, 2));
            p.drawLine(12, 1, 12, 5);
            p.drawLine(10, 3, 14, 3);
            break;
        case DialogIcon::FileOpen:
            p.setPen(kInk);
            p.setBrush(kFolder.darker(115));
            p.drawRect(1, 3, 12, 10);
            p.setBrush(kFolder);
            p.drawPolygon(QPolygon({QPoint(3, 7), QPoint(15, 7), QPoint(13, 13), QPoint(1, 13)}));
            break;
        case DialogIcon::FileSave: disk(p); break;
        case DialogIcon::FileSaveAs:
            disk(p);
            p.setPen(QPen(kRed, 2));
            p.drawLine(10, 14, 15, 9);
            break;
        case DialogIcon::ViewObjects:
            p.setPen(kInk);
            p.setBrush(QColor(150, 150, 150));
            p.drawRect(2, 6, 11, 8);
            p.setBrush(kFolder);
            p.drawPolygon(QPolygon({QPoint(1, 6), QPoint(7, 1), QPoint(14, 6)}));
            break;
        case DialogIcon::ViewObjectType:
            sheet(p, QRect(2, 1, 12, 14));
            p.setPen(kInk);
            p.setBrush(QColor(150, 150, 150));
            p.drawRect(5, 8, 6, 5);
            p.drawPolygon(QPolygon({QPoint(4, 8), QPoint(8, 4), QPoint(12, 8)}));
            break;
        case DialogIcon::ViewDrawing: layers(p, kDrawingBlue); break;
        case DialogIcon::ViewCentral:
            sheet(p, QRect(2, 1, 12, 14));
            lines(p, 4, 11, 4, 5, kFileGreen);
            break;
        case DialogIcon::LayerNew:
            layers(p, kFileGreen);
            p.setPen(QPen(kFolder.darker(130), 2));
            p.drawLine(12, 0, 12, 6);
            p.drawLine(9, 3, 15, 3);
            break;
        case DialogIcon::LayerBased:
            layers(p, kDrawingBlue);
            arrows(p, 1, true);
            break;
        case DialogIcon::LayerFromFile:
            sheet(p, QRect(1, 1, 9, 13));
            lines(p, 3, 7, 4, 4, kFileGreen);
            p.translate(5, 2);
            arrows(p, 1, true);
            p.translate(-5, -2);
            break;
        case DialogIcon::Pick:
            p.setPen(kInk);
            p.setBrush(kPaper);
            p.drawPolygon(QPolygon({QPoint(2, 1), QPoint(2, 13), QPoint(5, 10), QPoint(8, 15), QPoint(10, 14),
                                    QPoint(7, 9), QPoint(11, 9)}));
            p.setPen(QPen(kDrawingBlue, 1));
            p.setBrush(Qt::NoBrush);
            p.drawRect(10, 1, 5, 5);
            break;
        case DialogIcon::Properties:
            sheet(p, QRect(2, 1, 12, 14));
            p.fillRect(4, 4, 3, 3, kRed);
            lines(p, 8, 11, 5, 1, kInk);
            p.fillRect(4, 8, 3, 3, kDrawingBlue);
            lines(p, 8, 11, 9, 1, kInk);
            break;
        case DialogIcon::Color:
            p.setPen(kInk);
            p.setBrush(kRed);
            p.drawEllipse(1, 1, 8, 8);
            p.setBrush(QColor(60, 170, 70));
            p.drawEllipse(7, 1, 8, 8);
            p.setBrush(QColor(60, 90, 210));
            p.drawEllipse(4, 7, 8, 8);
            break;
        case DialogIcon::Linetype:
            p.setPen(QPen(kInk, 2, Qt::DashLine));
            p.drawLine(1, 4, 15, 4);
            p.setPen(QPen(kInk, 2, Qt::DashDotLine));
            p.drawLine(1, 8, 15, 8);
            p.setPen(QPen(kInk, 2, Qt::SolidLine));
            p.drawLine(1, 12, 15, 12);
            break;
        case DialogIcon::Regen:
            p.setPen(QPen(kDrawingBlue, 2));
            p.setBrush(Qt::NoBrush);
            p.drawArc(2, 2, 12, 12, 30 * 16, 280 * 16);
            p.setPen(kDrawingBlue);
            p.setBrush(kDrawingBlue);
            p.drawPolygon(QPolygon({QPoint(10, 0), QPoint(15, 4), QPoint(9, 6)}));
            break;
        case DialogIcon::Delete:
            p.setPen(QPen(kRed, 3, Qt::SolidLine, Qt::RoundCap));
            p.drawLine(3, 3, 12, 12);
            p.drawLine(12, 3, 3, 12);
            break;
        case DialogIcon::Options:
            p.setPen(kInk);
            p.setBrush(kPaper);
            p.drawRect(1, 2, 13, 11);
            p.fillRect(2, 3, 12, 3, kDrawingBlue);
            p.drawLine(6, 6, 6, 12);
            p.drawLine(10, 6, 10, 12);
            break;
        case DialogIcon::ShowAll: arrows(p, 2, true); break;
        case DialogIcon::ShowOne: arrows(p, 1, true); break;
        case DialogIcon::HideOne: arrows(p, 1, false); break;
        case DialogIcon::HideAll: arrows(p, 2, false); break;
        case DialogIcon::PrioDrawing:
            layers(p, kDrawingBlue);
            p.setPen(QPen(kRed, 2));
            p.drawLine(12, 1, 12, 6);
            break;
        case DialogIcon::PrioFile:
            sheet(p, QRect(2, 1, 12, 14));
            lines(p, 4, 9, 4, 5, kFileGreen);
            p.setPen(QPen(kRed, 2));
            p.drawLine(12, 7, 12, 13);
            break;
        case DialogIcon::LayerOn: bulb(p, true); break;
        case DialogIcon::LayerOff: bulb(p, false); break;
        case DialogIcon::Thawed: sunOrFlake(p, false, 16); break;
        case DialogIcon::Frozen: sunOrFlake(p, true, 16); break;
        case DialogIcon::Unlocked: padlock(p, false); break;
        case DialogIcon::Locked: padlock(p, true); break;
        case DialogIcon::ThawedInNewViewports:
        case DialogIcon::FrozenInNewViewports:
            // A viewport frame with the sun or flake of new viewports inside.
            p.setPen(kInk);
            p.setBrush(kPaper);
            p.drawRect(1, 3, 14, 12);
            p.translate(3, 4);
            sunOrFlake(p, icon == DialogIcon::FrozenInNewViewports, 12);
            p.translate(-3, -4);
            break;
        case DialogIcon::Filter:
            p.setPen(kInk);
            p.setBrush(kDrawingBlue.lighter(140));
            p.drawPolygon(QPolygon({QPoint(1, 2), QPoint(14, 2), QPoint(9, 8), QPoint(9, 14), QPoint(6, 12), QPoint(6, 8)}));
            break;
    }
}

}  // namespace

QIcon dialogIcon(DialogIcon icon) {
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing, false);
    draw(painter, icon);
    painter.end();
    return QIcon(pixmap);
}

IconList iconMenuImages(bool disabled) {
    // Each command's own icon at the number its id has in the icon menu; the take-over
    // commands show what they copy.
    const std::vector<std::pair<int, DialogIcon>> byId{
        {commandIdOf(LayerCommand::FileNew), DialogIcon::FileNew},
        {commandIdOf(LayerCommand::FileOpen), DialogIcon::FileOpen},
        {commandIdOf(LayerCommand::FileSave), DialogIcon::FileSave},
        {commandIdOf(LayerCommand::FileSaveAs), DialogIcon::FileSaveAs},
        {commandIdOf(LayerCommand::ViewObjects), DialogIcon::ViewObjects},
        {commandIdOf(LayerCommand::ViewDrawing), DialogIcon::ViewDrawing},
        {commandIdOf(LayerCommand::ViewCentral), DialogIcon::ViewCentral},
        {commandIdOf(LayerCommand::ViewObjectType), DialogIcon::ViewObjectType},
        {commandIdOf(LayerCommand::LayerNew), DialogIcon::LayerNew},
        {commandIdOf(LayerCommand::LayerBased), DialogIcon::LayerBased},
        {commandIdOf(LayerCommand::LayerFromCentral), DialogIcon::LayerFromFile},
        {commandIdOf(LayerCommand::LayerChange), DialogIcon::Properties},
        {commandIdOf(LayerCommand::LayerDelete), DialogIcon::Delete},
        {commandIdOf(LayerCommand::LayerColor), DialogIcon::Color},
        {commandIdOf(LayerCommand::LayerLinetype), DialogIcon::Linetype},
        {commandIdOf(LayerCommand::LayerPick), DialogIcon::Pick},
        {commandIdOf(LayerCommand::LayerRegen), DialogIcon::Regen},
        {commandIdOf(LayerCommand::OptsConfig), DialogIcon::Options},
        {commandIdOf(LayerCommand::OptsDwg), DialogIcon::PrioDrawing},
        {commandIdOf(LayerCommand::OptsIni), DialogIcon::PrioFile},
        {takeoverid::kIdentification, DialogIcon::LayerFromFile},
        {takeoverid::kProperties, DialogIcon::Properties},
        {takeoverid::kAll, DialogIcon::LayerBased},
    };
    IconList images(byId.size());
    for (const auto& [id, icon] : byId)
        if (const std::optional<int> at = iconMenuIconOf(id); at && *at < static_cast<int>(images.size()))
            images[static_cast<size_t>(*at)] = dialogIcon(icon).pixmap(16, 16, disabled ? QIcon::Disabled : QIcon::Normal);
    return images;
}

DialogIcon iconOfCommand(LayerCommand command) {
    switch (command) {
        case LayerCommand::FileNew: return DialogIcon::FileNew;
        case LayerCommand::FileOpen: return DialogIcon::FileOpen;
        case LayerCommand::FileSave: return DialogIcon::FileSave;
        case LayerCommand::FileSaveAs: return DialogIcon::FileSaveAs;
        case LayerCommand::ViewObjects: return DialogIcon::ViewObjects;
        case LayerCommand::ViewObjectType: return DialogIcon::ViewObjectType;
        case LayerCommand::ViewDrawing: return DialogIcon::ViewDrawing;
        case LayerCommand::ViewCentral: return DialogIcon::ViewCentral;
        case LayerCommand::LayerNew: return DialogIcon::LayerNew;
        case LayerCommand::LayerBased: return DialogIcon::LayerBased;
        case LayerCommand::LayerFromCentral: return DialogIcon::LayerFromFile;
        case LayerCommand::LayerPick: return DialogIcon::Pick;
        case LayerCommand::LayerChange: return DialogIcon::Properties;
        case LayerCommand::LayerColor: return DialogIcon::Color;
        case LayerCommand::LayerLinetype: return DialogIcon::Linetype;
        case LayerCommand::LayerRegen: return DialogIcon::Regen;
        case LayerCommand::LayerDelete: return DialogIcon::Delete;
        case LayerCommand::OptsConfig: return DialogIcon::Options;
        case LayerCommand::OptsDwg: return DialogIcon::PrioDrawing;
        case LayerCommand::OptsIni: return DialogIcon::PrioFile;
        case LayerCommand::FileQuit:
        case LayerCommand::HelpHelp:
        case LayerCommand::HelpInfo: break;
    }
    return DialogIcon::Filter;
}

}  // namespace ardo
