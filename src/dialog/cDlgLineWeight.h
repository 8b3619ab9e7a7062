#pragma once
// The lineweight picker: one painted row per lineweight of the module's list, the current
// one preselected, with the drawing's unit and display state beside it.
#include <QDialog>

#include "layers/Lineweight.h"

class QListWidget;
class QLabel;

namespace ardo {

class cDlgLineWeight : public QDialog {
public:
    // The drawing's lineweight state is read from the host.
    cDlgLineWeight(int lineweight, QWidget* parent);

    int lineweight() const { return lineweight_; }
    QListWidget& list() { return *list_; }
    QLabel& unitText() { return *unit_; }
    QLabel& displayText() { return *display_; }

    void accept() override;

private:
    int lineweight_;
    QListWidget* list_ = nullptr;
    QLabel* unit_ = nullptr;
    QLabel* display_ = nullptr;
};

}  // namespace ardo
