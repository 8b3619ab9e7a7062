#pragma once
// PROPERTIES in the window: layer, colour, linetype, lineweight and linetype scale of the
// selected objects, "*VARIES*" where they differ. Only what the user changes is set.
#include <QDialog>
#include <QString>
#include <optional>
#include <vector>

#include "cadhost/commands/PropertyGroups.h"

class QComboBox;
class QDialogButtonBox;
class QLineEdit;
class QPushButton;

namespace cadhost::gui {

class PropertiesDialog final : public QDialog {
public:
    PropertiesDialog(const Drawing& drawing, const std::vector<Handle>& entities, QWidget* parent = nullptr);

    commands::PropertyChanges changes() const;

    static const QString& varies();

private:
    void chooseColor();
    void checkScale();

    commands::SharedProperties shared_;
    std::optional<ardo::HostColor> color_;
    QComboBox* layer_;
    QPushButton* colorButton_;
    QComboBox* linetype_;
    QComboBox* lineweight_;
    QLineEdit* linetypeScale_;
    QDialogButtonBox* buttons_;
    // What the fields showed at first: only what differs from it is changed.
    int initialLayer_ = 0, initialLinetype_ = 0, initialLineweight_ = 0;
    QString initialScale_;
};

}  // namespace cadhost::gui
