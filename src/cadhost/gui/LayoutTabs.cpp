#include "cadhost/gui/LayoutTabs.h"

#include <QTabBar>
#include <QVBoxLayout>

#include "base/CaseFold.h"
#include "cadhost/gui/DrawingView.h"

namespace cadhost::gui {

LayoutTabs::LayoutTabs(Drawing& drawing, DrawingView* view, QWidget* parent)
    : QWidget(parent), drawing_(drawing), view_(view), tabs_(new QTabBar(this)), layouts_(drawing.layouts()) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(view_, 1);
    column->addWidget(tabs_);
    tabs_->setObjectName("layoutTabs");
    tabs_->setShape(QTabBar::RoundedSouth);
    tabs_->setDocumentMode(true);
    tabs_->setExpanding(false);
    tabs_->setDrawBase(false);
    tabs_->setFocusPolicy(Qt::NoFocus);
    tabs_->addTab(tr("Model"));
    for (const Layout& layout : layouts_) tabs_->addTab(QString::fromStdString(layout.name));
    follow();
    connect(tabs_, &QTabBar::currentChanged, this, [this](int index) {
        if (!following_) choose(index);
    });
    drawing_.addListener(*this);
}

LayoutTabs::~LayoutTabs() {
    if (attached_) drawing_.removeListener(*this);
}

void LayoutTabs::forgetDrawing() {
    attached_ = false;
    view_->forgetDrawing();
}

void LayoutTabs::choose(int index) {
    const std::string name = index <= 0 ? "Model" : layouts_[static_cast<std::size_t>(index - 1)].name;
    // The drawing announces the change, and the space is shown then; a tab the drawing
    // refuses goes back to the one that is current.
    if (drawing_.setVar("CTAB", ardo::ResBuf::str(name)) != ardo::DbStatus::Ok) follow();
}

void LayoutTabs::follow() {
    const auto tab = drawing_.getVar("CTAB");
    int index = 0;
    std::optional<Layout> shown;
    if (tab && !ardo::equalsNoCase(tab->text, "Model"))
        for (std::size_t i = 0; i < layouts_.size(); ++i)
            if (ardo::equalsNoCase(layouts_[i].name, tab->text)) {
                index = static_cast<int>(i) + 1;
                shown = layouts_[i];
            }
    following_ = true;
    tabs_->setCurrentIndex(index);
    following_ = false;
    view_->showLayout(std::move(shown));
}

void LayoutTabs::variableChanged(const std::string& name) {
    if (name == "CTAB" || name == "TILEMODE") follow();
}

}  // namespace cadhost::gui
