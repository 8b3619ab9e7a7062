#pragma once
// The layer list of the layer dialog as a Qt table model: one row per entry of the current
// view, the key and name columns, then the property columns of LayerDataCols. Property cells
// show the half the priority chooses; the delegate paints the colour swatch.
#include <QAbstractTableModel>
#include <QColor>
#include <string>
#include <vector>

#include "dialog/LayerColumns.h"
#include "layers/CentralLayerFile.h"
#include "layers/Lineweight.h"

namespace ardo {

class cListControl : public QAbstractTableModel {
public:
    enum Role {
        SwatchRole = Qt::UserRole + 1,   // QColor of the colour cell's swatch, unset without one
        MarkedRole,                      // true where drawing and file disagree
    };

    // Where drawing and file disagree, and the rows of drawing layers when marked.
    static QColor markingBackground() { return QColor(255, 221, 170); }
    static QColor drawingLayerBackground() { return QColor(214, 234, 255); }

    explicit cListControl(QObject* parent = nullptr);

    // Rebuilds the columns from LayerDataCols; the rows stay.
    void buildColumns(const std::string& dataCols);
    void setPriority(int priority);
    void setMarkDrawingLayers(bool on);
    void setLineweightState(const LineweightState& state);

    // The rows of one view, in list order.
    void fill(const CentralLayerFile& list, int view);
    // Sorts by a header click: each click on a column turns its direction round.
    void sortByColumn(int position);

    LayerEntry* entryAt(int row) const;
    int rowOf(const LayerEntry* entry) const;
    // The row of the first entry with this key, any case; -1 when none.
    int rowOfKey(const std::string& key) const;
    // Repaints the row of an entry whose values changed.
    void entryChanged(const LayerEntry* entry);

    const LayerColumns& columns() const { return columns_; }
    int priority() const { return priority_; }
    int view() const { return view_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    QVariant background(const LayerEntry& entry, LayerColumn column) const;
    QVariant swatch(const LayerEntry& entry) const;

    std::vector<LayerEntry*> rows_;
    LayerColumns columns_;
    int priority_ = 1;
    int view_ = 0;
    bool markDrawingLayers_ = false;
    LineweightState lineweights_;
};

// The swatch of a colour: its RGB, unset for by-layer, by-block and no colour.
QVariant swatchColour(const HostColor& colour);

// The header text of a column from the message catalog.
std::string columnHeaderText(LayerColumn column);

}  // namespace ardo
