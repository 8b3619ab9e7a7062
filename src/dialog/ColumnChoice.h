#pragma once
// The working copy of LayerDataCols in the options dialog: which property columns are shown
// in which order, which are hidden, and when each of the four move buttons may be used.
#include <string>

namespace ardo {

class ColumnChoice {
public:
    explicit ColumnChoice(std::string dataCols);

    // The property characters shown, in order; the hidden ones in '2' to '7' order.
    std::string shown() const;
    std::string hidden() const;
    // The new LayerDataCols: the shown columns in their order.
    std::string columns() const { return shown(); }

    // A hidden column goes to the end of the shown ones; a shown one back to the hidden.
    void show(char column);
    void hide(char column);
    // The hidden columns, first remaining first, so they keep their order.
    void showAll();
    void hideAll();

    // The button rules. The shown list counts key and name as its first two items; a
    // selection is a list position, -1 for none.
    bool canShowAll() const { return !hidden().empty(); }
    bool canShowOne(int hiddenSelection) const { return !hidden().empty() && hiddenSelection >= 0; }
    bool canHideOne(int shownSelection) const { return shownCount() > 2 && shownSelection >= 2; }
    bool canHideAll() const { return shownCount() >= 3; }
    // Items of the shown list, key and name included.
    int shownCount() const { return 2 + static_cast<int>(shown().size()); }

private:
    std::string columns_;
};

}  // namespace ardo
