#include "cadhost/gui/StatusBar.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QToolButton>

namespace cadhost::gui {

using geometry::SnapKind;

namespace {

QToolButton* toggle(QWidget* parent, const QString& text, const QString& tip) {
    auto* button = new QToolButton(parent);
    button->setText(text);
    button->setCheckable(true);
    button->setAutoRaise(true);
    button->setToolTip(tip);
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

QString nameOf(SnapKind kind) {
    const auto name = geometry::snapName(kind);
    return QString::fromUtf8(name.data(), static_cast<int>(name.size()));
}

}  // namespace

StatusBar::StatusBar(QWidget* window) : QWidget(window) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    coordinates_ = new QLabel(this);
    coordinates_->setMinimumWidth(220);
    osnap_ = toggle(this, "OSNAP", tr("Running object snaps (F3); right-click to choose the snaps"));
    ortho_ = toggle(this, "ORTHO", tr("Points horizontal or vertical from the last point (F8)"));
    layout->addWidget(coordinates_);
    layout->addWidget(osnap_);
    layout->addWidget(ortho_);

    connect(osnap_, &QToolButton::clicked, this, [this] { toggleOsnap(); });
    connect(ortho_, &QToolButton::clicked, this, [this] { toggleOrtho(); });
    menu_ = new QMenu(this);
    for (SnapKind kind : geometry::snapKinds()) {
        QAction* action = menu_->addAction(nameOf(kind));
        action->setCheckable(true);
        action->setData(static_cast<int>(kind));
        connect(action, &QAction::triggered, this, [this, kind](bool on) { chooseKind(kind, on); });
    }
    osnap_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(osnap_, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { menu_->popup(osnap_->mapToGlobal(at)); });

    // The keys work wherever the focus is in the window, the command line included.
    auto* f3 = new QAction(this);
    f3->setShortcut(Qt::Key_F3);
    f3->setShortcutContext(Qt::WindowShortcut);
    connect(f3, &QAction::triggered, this, [this] { toggleOsnap(); });
    auto* f8 = new QAction(this);
    f8->setShortcut(Qt::Key_F8);
    f8->setShortcutContext(Qt::WindowShortcut);
    connect(f8, &QAction::triggered, this, [this] { toggleOrtho(); });
    window->addAction(f3);
    window->addAction(f8);
}

void StatusBar::setVariables(Variables variables) {
    variables_ = std::move(variables);
    sync();
}

SnapSettings StatusBar::settings() const {
    SnapSettings s;
    if (!variables_.get) return s;
    s.osmode = variables_.get("OSMODE").value_or(s.osmode);
    s.ortho = variables_.get("ORTHOMODE").value_or(0) != 0;
    s.aperture = variables_.get("APERTURE").value_or(s.aperture);
    return s;
}

void StatusBar::sync() {
    const bool drawing = variables_.get && variables_.get("OSMODE");
    osnap_->setEnabled(drawing);
    ortho_->setEnabled(drawing);
    const SnapSettings s = settings();
    osnap_->setChecked(drawing && !(s.osmode & geometry::kSnapsOff));
    ortho_->setChecked(drawing && s.ortho);
    for (QAction* action : menu_->actions()) action->setChecked((s.osmode & action->data().toInt()) != 0);
}

void StatusBar::showCursor(Vec2 at) {
    coordinates_->setText(QString("%1, %2").arg(at.x, 0, 'f', 4).arg(at.y, 0, 'f', 4));
}

void StatusBar::toggleOsnap() {
    if (!variables_.set || !variables_.get || !variables_.get("OSMODE")) return sync();
    const int osmode = settings().osmode ^ geometry::kSnapsOff;
    variables_.set("OSMODE", osmode);
    if (variables_.say) variables_.say(osmode & geometry::kSnapsOff ? "<Osnap off>" : "<Osnap on>");
    sync();
}

void StatusBar::toggleOrtho() {
    if (!variables_.set || !variables_.get || !variables_.get("ORTHOMODE")) return sync();
    const bool on = !settings().ortho;
    variables_.set("ORTHOMODE", on ? 1 : 0);
    if (variables_.say) variables_.say(on ? "<Ortho on>" : "<Ortho off>");
    sync();
}

void StatusBar::chooseKind(SnapKind kind, bool on) {
    if (!variables_.set || !variables_.get || !variables_.get("OSMODE")) return sync();
    int osmode = settings().osmode;
    osmode = on ? osmode | static_cast<int>(kind) : osmode & ~static_cast<int>(kind);
    // Choosing a snap means wanting snaps: they are turned on with it.
    if (on) osmode &= ~geometry::kSnapsOff;
    variables_.set("OSMODE", osmode);
    sync();
}

}  // namespace cadhost::gui
