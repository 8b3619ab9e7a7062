#pragma once
// The layer entry properties dialog: key and name, the properties the layer is created
// with, and, for a layer in the drawing, its current properties there. It works on a copy
// of the entry; the caller takes the copy over after OK.
#include <QDialog>
#include <array>
#include <optional>

#include "layers/CentralLayerFile.h"
#include "ui/cIconMenu.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace ardo {

class cDlgProps : public QDialog {
public:
    // `list` is checked against on OK; `self` is the entry that takes the values (none for
    // a new one); `base` is the layer a new entry is based on (modes 2 and 3).
    cDlgProps(int mode, const LayerEntry& entry, const CentralLayerFile& list, const LayerEntry* self,
              const LayerEntry* base, QWidget* parent);

    const LayerEntry& entry() const { return entry_; }
    int mode() const { return mode_; }

    QLineEdit& keyField() { return *key_; }
    QLineEdit& nameField() { return *name_; }
    // The four state toggles in the order on/off, frozen, locked, frozen in new viewports.
    QToolButton& stateToggle(int index) { return *toggles_.at(index); }
    QPushButton& colourButton() { return *colour_; }
    QPushButton& linetypeButton() { return *linetype_; }
    QPushButton& lineweightButton() { return *lineweight_; }
    QPushButton& plotStyleButton() { return *plotStyle_; }
    QCheckBox& plottableBox() { return *plottable_; }
    // The frame of the drawing's current properties; none when the layer is not there.
    QWidget* drawingFrame() const { return drawingFrame_; }
    // The take-over menu of the base layer; none without a base.
    QToolButton* takeOverButton() const { return takeOver_; }

    // The take-over commands: identification, properties or both from the base.
    enum class TakeOver { Identification, Properties, All };
    void takeOver(TakeOver what);

    void chooseColour();
    void chooseLinetype();
    void chooseLineweight();
    void choosePlotStyle();

    void accept() override;

private:
    QWidget* buildIdentification();
    QWidget* buildCreation();
    QWidget* buildDrawing();
    void showValues();
    void flipState(int index);

    int mode_;
    LayerEntry entry_;
    const CentralLayerFile& list_;
    const LayerEntry* self_;
    std::optional<LayerEntry> base_;
    QLineEdit* key_ = nullptr;
    QLineEdit* name_ = nullptr;
    QToolButton* takeOver_ = nullptr;
    QPushButton* colour_ = nullptr;
    QPushButton* linetype_ = nullptr;
    QLabel* linetypeFile_ = nullptr;
    std::array<QToolButton*, 4> toggles_{};
    QPushButton* lineweight_ = nullptr;
    QPushButton* plotStyle_ = nullptr;
    QCheckBox* plottable_ = nullptr;
    QWidget* drawingFrame_ = nullptr;
    IconList menuIcons_;
    IconList menuIconsGreyed_;
};

// The state bits of the four toggles, in their order.
inline constexpr std::array<std::int32_t, 4> kStateToggleBits{1, 2, 4, 16};

}  // namespace ardo
