#pragma once
// Which columns the layer list shows and in which order: the key and the name always, then
// the property columns named by the characters of LayerDataCols.
#include <array>
#include <string>
#include <vector>

namespace ardo {

enum class LayerColumn { Key, Name, Color, Linetype, State, Lineweight, PlotStyle, Plottable };

constexpr int kPropertyColumnCount = 6;
constexpr int kSortDirectionCount = 10;

class LayerColumns {
public:
    LayerColumns() { build(""); }
    explicit LayerColumns(const std::string& dataCols) { build(dataCols); }

    // Starts over from the key and name columns and appends a column for each character
    // '2' to '7'; a repeated character inserts its column again and the later position
    // becomes its index. Sort directions start at +1, the name's at -1.
    void build(const std::string& dataCols);

    int count() const { return static_cast<int>(order_.size()); }
    LayerColumn at(int position) const { return order_[position]; }
    // The list position of a property column, -1 when it is not shown.
    int indexOf(LayerColumn column) const;
    bool shown(LayerColumn column) const { return indexOf(column) >= 0; }

    int sortDirection(int position) const;
    // Gives the direction the next sort by this position takes and turns it round.
    int takeSortDirection(int position);

private:
    std::vector<LayerColumn> order_;
    std::array<int, kPropertyColumnCount> index_{};
    std::array<bool, kPropertyColumnCount> shown_{};
    std::array<int, kSortDirectionCount> sortDirection_{};
};

// The column a character of LayerDataCols names; false for any other character.
bool propertyColumnOfChar(char c, LayerColumn& column);
char charOfPropertyColumn(LayerColumn column);

}  // namespace ardo
