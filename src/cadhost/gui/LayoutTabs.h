#pragma once
// A drawing's view with its space tabs under it, as the common hosts show them: "Model"
// and each layout in tab order. Choosing a tab sets CTAB, and with it TILEMODE, so that
// commands and LISP add entities to the space shown; CTAB or TILEMODE set elsewhere
// (setvar from LISP) switches the tab.
#include <QWidget>
#include <string>
#include <vector>

#include "cadhost/drawing/Drawing.h"

class QTabBar;

namespace cadhost::gui {

class DrawingView;

class LayoutTabs final : public QWidget, public DrawingListener {
public:
    LayoutTabs(Drawing& drawing, DrawingView* view, QWidget* parent = nullptr);
    ~LayoutTabs() override;
    LayoutTabs(const LayoutTabs&) = delete;
    LayoutTabs& operator=(const LayoutTabs&) = delete;

    DrawingView* view() const { return view_; }
    QTabBar* tabBar() const { return tabs_; }
    // The drawing is gone: neither the tabs nor the view touch it again.
    void forgetDrawing();

    void variableChanged(const std::string& name) override;

private:
    // Shows the space of the tab and makes it the drawing's current one.
    void choose(int index);
    // Shows the tab the drawing names as current.
    void follow();

    Drawing& drawing_;
    DrawingView* view_;
    QTabBar* tabs_;
    std::vector<Layout> layouts_;   // the tabs after "Model"
    bool attached_ = true;
    bool following_ = false;
};

}  // namespace cadhost::gui
