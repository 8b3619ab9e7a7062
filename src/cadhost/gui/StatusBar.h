#pragma once
// The status bar's own part: the cursor's coordinates and the OSNAP (F3) and ORTHO (F8)
// buttons. The buttons show OSMODE and ORTHOMODE of the current drawing, whoever set them
// (the buttons, the keys, SETVAR or LISP), and write them back; OSNAP's context menu
// chooses the snap kinds.
#include <QWidget>
#include <functional>
#include <optional>

#include "cadhost/gui/ObjectSnap.h"

class QLabel;
class QMenu;
class QToolButton;

namespace cadhost::gui {

class StatusBar final : public QWidget {
public:
    struct Variables {
        // The current value of a system variable; nothing without a drawing.
        std::function<std::optional<int>(const char* name)> get;
        std::function<void(const char* name, int value)> set;
        // Says on the command line what a key turned on or off ("<Osnap on>").
        std::function<void(const std::string&)> say;
    };

    // The F3 and F8 keys are taken for the whole `window`.
    explicit StatusBar(QWidget* window);
    void setVariables(Variables variables);

    // The settings as the current drawing holds them now.
    SnapSettings settings() const;
    // The buttons follow the variables again (after a command or a change of drawing).
    void sync();
    void showCursor(Vec2 at);

    QToolButton* osnapButton() const { return osnap_; }
    QToolButton* orthoButton() const { return ortho_; }
    // The snap kinds menu that OSNAP's context menu opens.
    QMenu* snapMenu() const { return menu_; }

private:
    void toggleOsnap();
    void toggleOrtho();
    void chooseKind(geometry::SnapKind kind, bool on);

    Variables variables_;
    QLabel* coordinates_;
    QToolButton* osnap_;
    QToolButton* ortho_;
    QMenu* menu_;
};

}  // namespace cadhost::gui
