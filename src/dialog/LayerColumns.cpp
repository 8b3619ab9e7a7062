#include "dialog/LayerColumns.h"

namespace ardo {

namespace {

int propertySlot(LayerColumn column) { return static_cast<int>(column) - static_cast<int>(LayerColumn::Color); }

}  // namespace

bool propertyColumnOfChar(char c, LayerColumn& column) {
    if (c < '2' || c > '7') return false;
    column = static_cast<LayerColumn>(static_cast<int>(LayerColumn::Color) + (c - '2'));
    return true;
}

char charOfPropertyColumn(LayerColumn column) { return static_cast<char>('2' + propertySlot(column)); }

void LayerColumns::build(const std::string& dataCols) {
    order_ = {LayerColumn::Key, LayerColumn::Name};
    index_.fill(-1);
    shown_.fill(false);
    sortDirection_.fill(1);
    sortDirection_[1] = -1;  // the list starts sorted by name, so its first click turns it round
    for (char c : dataCols) {
        LayerColumn column;
        if (!propertyColumnOfChar(c, column)) continue;
        index_[propertySlot(column)] = count();
        shown_[propertySlot(column)] = true;
        order_.push_back(column);
    }
}

int LayerColumns::indexOf(LayerColumn column) const {
    if (column == LayerColumn::Key) return 0;
    if (column == LayerColumn::Name) return 1;
    return index_[propertySlot(column)];
}

int LayerColumns::sortDirection(int position) const {
    return position >= 0 && position < kSortDirectionCount ? sortDirection_[position] : 1;
}

int LayerColumns::takeSortDirection(int position) {
    if (position < 0 || position >= kSortDirectionCount) return 1;
    const int direction = sortDirection_[position];
    sortDirection_[position] = -direction;
    return direction;
}

}  // namespace ardo
