#pragma once
// The options dialog of the layer dialog: which property columns the list shows and in
// which order, the priority of drawing or file data, and the light blue of drawing layers.
#include <QDialog>

#include "dialog/ColumnChoice.h"
#include "settings/LayerDialogSettings.h"

class QCheckBox;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace ardo {

class cDlgOptions : public QDialog {
public:
    cDlgOptions(LayerDialogSettings& settings, QWidget* parent);

    QListWidget& hiddenList() { return *hiddenList_; }
    QListWidget& shownList() { return *shownList_; }
    QPushButton& showAllButton() { return *showAll_; }
    QPushButton& showOneButton() { return *showOne_; }
    QPushButton& hideOneButton() { return *hideOne_; }
    QPushButton& hideAllButton() { return *hideAll_; }
    QRadioButton& drawingPriority() { return *dwgPrio_; }
    QRadioButton& filePriority() { return *iniPrio_; }
    QCheckBox& markLayers() { return *mark_; }
    const ColumnChoice& choice() const { return choice_; }

    // Stores the choice into the settings record.
    void accept() override;

private:
    void fillLists();
    void updateButtons();
    void showSelected();
    void hideSelected();

    LayerDialogSettings& settings_;
    ColumnChoice choice_;
    QListWidget* hiddenList_ = nullptr;
    QListWidget* shownList_ = nullptr;
    QPushButton* showAll_ = nullptr;
    QPushButton* showOne_ = nullptr;
    QPushButton* hideOne_ = nullptr;
    QPushButton* hideAll_ = nullptr;
    QRadioButton* dwgPrio_ = nullptr;
    QRadioButton* iniPrio_ = nullptr;
    QCheckBox* mark_ = nullptr;
};

}  // namespace ardo
