#pragma once
// The panes' layout as kept in "DockingPanelLayout.xml": one element per pane with where it
// docks, whether it floats and where, whether it is shown, and the tab group it shares.
#include <QByteArray>
#include <QRect>
#include <QString>
#include <Qt>
#include <optional>
#include <vector>

namespace ardo {

struct PanePlace {
    QString id;
    Qt::DockWidgetArea area = Qt::LeftDockWidgetArea;
    bool floating = false;
    bool visible = true;
    QRect geometry;      // the floating frame's place on the screen, or the docked size
    QString tabGroup;    // the id of the group's first pane when it is tabbed, else empty
};

QByteArray layoutXml(const std::vector<PanePlace>& places);
// The places of a layout file; nothing when the bytes are not a layout of ours (the panes
// then start where their modules put them).
std::optional<std::vector<PanePlace>> parseLayoutXml(const QByteArray& bytes);

}  // namespace ardo
