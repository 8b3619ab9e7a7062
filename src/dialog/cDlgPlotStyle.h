#pragma once
// The plot style picker: one row per plot style name, the current one preselected.
#include <QDialog>
#include <string>
#include <vector>

class QListWidget;

namespace ardo {

class cDlgPlotStyle : public QDialog {
public:
    cDlgPlotStyle(const std::vector<std::string>& names, const std::string& current, QWidget* parent);

    // The chosen name after OK; the current one until then.
    const std::string& plotStyle() const { return plotStyle_; }
    QListWidget& list() { return *list_; }

    void accept() override;

private:
    std::string plotStyle_;
    QListWidget* list_ = nullptr;
};

}  // namespace ardo
