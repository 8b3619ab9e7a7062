#pragma once
// The layers toolbar: the drop-down of the drawing's layers with the current one shown.
// Each row has switches for on/off, freeze/thaw and lock/unlock, then the layer's colour
// and name; a click on a switch flips it and leaves the list open, a click on the name
// makes the layer current, or, with objects selected, moves them to it.
#include <QToolBar>
#include <functional>
#include <string>
#include <vector>

#include "cadhost/drawing/Drawing.h"

class QComboBox;

namespace cadhost::gui {

class LayerBar final : public QToolBar {
public:
    enum class Switch { On, Thawed, Unlocked };

    explicit LayerBar(QWidget* parent = nullptr);

    // The drawing shown (null: none) and where the selection to move comes from.
    void setDrawing(Drawing* drawing, std::function<std::vector<Handle>()> selection);
    // Reads the layers again after the drawing announced a change.
    void refresh();
    QComboBox* list() const { return list_; }

    // What a click does, for the list and for tests: flips a switch of the layer; false
    // with the reason in `why` when the drawing refuses (the current layer cannot be frozen).
    bool flip(const std::string& layer, Switch which, std::string& why);
    // Makes the layer current, or moves the selected objects to it.
    void choose(const std::string& layer);
    // Tells the user why something was refused.
    void setMessage(std::function<void(const std::string&)> message) { message_ = std::move(message); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QComboBox* list_;
    Drawing* drawing_ = nullptr;
    std::function<std::vector<Handle>()> selection_;
    std::function<void(const std::string&)> message_;
    bool filling_ = false;
};

// The row's picture: the three switches and the colour swatch, 16 pixels each.
QPixmap layerRowIcon(const ardo::LayerRecord& layer, std::uint32_t rgb);

}  // namespace cadhost::gui
