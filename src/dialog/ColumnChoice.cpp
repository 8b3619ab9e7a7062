#include "dialog/ColumnChoice.h"

#include "dialog/LayerColumns.h"

namespace ardo {

ColumnChoice::ColumnChoice(std::string dataCols) : columns_(std::move(dataCols)) {}

std::string ColumnChoice::shown() const {
    std::string result;
    LayerColumn column;
    for (char c : columns_)
        if (propertyColumnOfChar(c, column)) result += c;
    return result;
}

std::string ColumnChoice::hidden() const {
    std::string result;
    for (char c = '2'; c <= '7'; ++c)
        if (columns_.find(c) == std::string::npos) result += c;
    return result;
}

void ColumnChoice::show(char column) {
    if (hidden().find(column) != std::string::npos) columns_ += column;
}

void ColumnChoice::hide(char column) {
    std::erase(columns_, column);
}

void ColumnChoice::showAll() {
    for (std::string rest = hidden(); !rest.empty(); rest = hidden()) show(rest.front());
}

void ColumnChoice::hideAll() {
    for (char c : shown()) hide(c);
}

}  // namespace ardo
