#include "dialog/cListControl.h"

#include <algorithm>

#include "ui/UiTexts.h"
#include "base/CaseFold.h"
#include "dialog/LayerCellValue.h"
#include "dialog/LayerViews.h"
#include "messages/MessageCatalog.h"
#include "module/HostBinding.h"

namespace ardo {

std::string columnHeaderText(LayerColumn column) {
    switch (column) {
        case LayerColumn::Key: return catalogText(MsgKey::RsLayerDlgHdKey);
        case LayerColumn::Name: return catalogText(MsgKey::RsLayerDlgHdName);
        case LayerColumn::Color: return catalogText(MsgKey::RsLayerDlgHdColor);
        case LayerColumn::Linetype: return catalogText(MsgKey::RsLayerDlgHdLtype);
        case LayerColumn::State: return catalogText(MsgKey::RsLayerDlgHdState);
        case LayerColumn::Lineweight: return catalogText(MsgKey::RsLayerDlgHdWeight);
        case LayerColumn::PlotStyle: return catalogText(MsgKey::RsLayerDlgHdPlotStyle);
        case LayerColumn::Plottable: return catalogText(MsgKey::RsLayerDlgHdPlottable);
    }
    return {};
}

cListControl::cListControl(QObject* parent) : QAbstractTableModel(parent) {}

void cListControl::buildColumns(const std::string& dataCols) {
    beginResetModel();
    columns_.build(dataCols);
    endResetModel();
}

void cListControl::setPriority(int priority) {
    if (priority == priority_) return;
    priority_ = priority;
    if (!rows_.empty()) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void cListControl::setMarkDrawingLayers(bool on) {
    if (on == markDrawingLayers_) return;
    markDrawingLayers_ = on;
    if (!rows_.empty()) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void cListControl::setLineweightState(const LineweightState& state) { lineweights_ = state; }

void cListControl::fill(const CentralLayerFile& list, int view) {
    beginResetModel();
    view_ = view;
    rows_.clear();
    rows_.reserve(list.entries().size());
    for (const auto& entry : list.entries())
        if (entryInView(*entry, view)) rows_.push_back(entry.get());
    endResetModel();
}

void cListControl::sortByColumn(int position) {
    if (position < 0 || position >= columns_.count()) return;
    const int direction = columns_.takeSortDirection(position);
    const LayerColumn column = columns_.at(position);
    // The texts are made once, not per comparison, so 10,000 rows sort at once.
    std::vector<std::pair<std::string, LayerEntry*>> keyed;
    keyed.reserve(rows_.size());
    for (LayerEntry* e : rows_) {
        const std::string text = column == LayerColumn::Name ? e->name
                                 : cellText(*e, column, shownHalf(*e, priority_), lineweights_);
        keyed.emplace_back(upperCase(text), e);
    }
    std::stable_sort(keyed.begin(), keyed.end(), [direction](const auto& a, const auto& b) {
        return direction > 0 ? a.first < b.first : b.first < a.first;
    });
    emit layoutAboutToBeChanged();
    for (size_t i = 0; i < keyed.size(); ++i) rows_[i] = keyed[i].second;
    emit layoutChanged();
}

LayerEntry* cListControl::entryAt(int row) const {
    return row >= 0 && row < rowCount() ? rows_[static_cast<size_t>(row)] : nullptr;
}

int cListControl::rowOf(const LayerEntry* entry) const {
    const auto it = std::find(rows_.begin(), rows_.end(), entry);
    return it == rows_.end() ? -1 : static_cast<int>(it - rows_.begin());
}

int cListControl::rowOfKey(const std::string& key) const {
    const auto it = std::find_if(rows_.begin(), rows_.end(),
                                 [&](const LayerEntry* e) { return !e->key.empty() && equalsNoCase(e->key, key); });
    return it == rows_.end() ? -1 : static_cast<int>(it - rows_.begin());
}

void cListControl::entryChanged(const LayerEntry* entry) {
    const int row = rowOf(entry);
    if (row >= 0) emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}

int cListControl::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int cListControl::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : columns_.count(); }

QVariant cListControl::data(const QModelIndex& index, int role) const {
    const LayerEntry* entry = entryAt(index.row());
    if (!entry || index.column() < 0 || index.column() >= columns_.count()) return {};
    const LayerColumn column = columns_.at(index.column());
    switch (role) {
        case Qt::DisplayRole:
        case Qt::ToolTipRole:
            return qText(cellText(*entry, column, shownHalf(*entry, priority_), lineweights_));
        case Qt::BackgroundRole: return background(*entry, column);
        case SwatchRole: return column == LayerColumn::Color ? swatch(*entry) : QVariant();
        case MarkedRole: return halvesDiffer(*entry, column);
        default: return {};
    }
}

QVariant cListControl::background(const LayerEntry& entry, LayerColumn column) const {
    if (halvesDiffer(entry, column)) return markingBackground();
    if (markDrawingLayers_ && entry.has(entryflag::kInDrawing)) return drawingLayerBackground();
    return {};
}

QVariant cListControl::swatch(const LayerEntry& entry) const {
    return swatchColour(halfColour(entry, shownHalf(entry, priority_)));
}

QVariant swatchColour(const HostColor& colour) {
    std::uint32_t rgb = 0;
    switch (colour.method) {
        case HostColor::Method::Index: rgb = host().rgbOfIndexColor(colour.index); break;
        case HostColor::Method::TrueColor:
        case HostColor::Method::ColorBook: rgb = colour.rgb(); break;
        // By layer and by block have no colour of their own to show.
        case HostColor::Method::ByLayer:
        case HostColor::Method::ByBlock:
        case HostColor::Method::None: return {};
    }
    return QColor(static_cast<int>(rgb >> 16), static_cast<int>((rgb >> 8) & 0xFF), static_cast<int>(rgb & 0xFF));
}

QVariant cListControl::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= columns_.count())
        return QAbstractTableModel::headerData(section, orientation, role);
    return qText(columnHeaderText(columns_.at(section)));
}

}  // namespace ardo
