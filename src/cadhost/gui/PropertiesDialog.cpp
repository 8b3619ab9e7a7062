#include "cadhost/gui/PropertiesDialog.h"

#include <algorithm>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "cadhost/drawing/StandardLineweights.h"
#include "cadhost/gui/ColorDialog.h"

namespace cadhost::gui {

namespace {

// Fills the box; the shared value is chosen, or "*VARIES*" on top when there is none.
// The index shown first.
int fill(QComboBox* box, const QStringList& texts, const QList<QVariant>& values, const std::optional<QVariant>& shared) {
    if (!shared) box->addItem(PropertiesDialog::varies());
    for (int i = 0; i < texts.size(); ++i) box->addItem(texts[i], values[i]);
    box->setCurrentIndex(shared ? std::max(0, box->findData(*shared)) : 0);
    return box->currentIndex();
}

// The value of another item than the one shown at first.
std::optional<QVariant> picked(const QComboBox* box, int initial) {
    if (box->currentIndex() == initial || !box->currentData().isValid()) return std::nullopt;
    return box->currentData();
}

QString lineweightText(int weight) {
    switch (weight) {
        case -1: return "ByLayer";
        case -2: return "ByBlock";
        case kLineweightDefault: return "Default";
        default: return QString::number(weight / 100.0, 'f', 2) + " mm";
    }
}

}  // namespace

const QString& PropertiesDialog::varies() {
    static const QString text("*VARIES*");
    return text;
}

PropertiesDialog::PropertiesDialog(const Drawing& drawing, const std::vector<Handle>& entities, QWidget* parent)
    : QDialog(parent), shared_(commands::sharedProperties(drawing, entities)), color_(shared_.color) {
    setWindowTitle(tr("Properties"));
    auto* form = new QFormLayout;

    layer_ = new QComboBox;
    layer_->setObjectName("layer");
    QStringList layers;
    QList<QVariant> layerValues;
    drawing.forEachLayer([&](const ardo::LayerRecord& record) {
        layers << QString::fromStdString(record.name);
        layerValues << QString::fromStdString(record.name);
        return true;
    });
    initialLayer_ = fill(layer_, layers, layerValues,
                         shared_.layer ? std::optional<QVariant>(QString::fromStdString(*shared_.layer)) : std::nullopt);
    form->addRow(tr("&Layer:"), layer_);

    colorButton_ = new QPushButton(color_ ? colorText(*color_) : varies());
    colorButton_->setObjectName("color");
    connect(colorButton_, &QPushButton::clicked, this, &PropertiesDialog::chooseColor);
    form->addRow(tr("&Color:"), colorButton_);

    linetype_ = new QComboBox;
    linetype_->setObjectName("linetype");
    QStringList linetypes{"ByLayer", "ByBlock"};
    for (const std::string& name : drawing.linetypeNames())
        if (QString::fromStdString(name).compare("ByLayer", Qt::CaseInsensitive) != 0 &&
            QString::fromStdString(name).compare("ByBlock", Qt::CaseInsensitive) != 0)
            linetypes << QString::fromStdString(name);
    QList<QVariant> linetypeValues(linetypes.begin(), linetypes.end());
    // Linetype names are matched without regard to case, as the drawing keeps them.
    std::optional<QVariant> sharedLinetype;
    for (int i = 0; shared_.linetype && !sharedLinetype && i < linetypes.size(); ++i)
        if (linetypes[i].compare(QString::fromStdString(*shared_.linetype), Qt::CaseInsensitive) == 0)
            sharedLinetype = linetypeValues[i];
    initialLinetype_ = fill(linetype_, linetypes, linetypeValues, sharedLinetype);
    form->addRow(tr("Line&type:"), linetype_);

    lineweight_ = new QComboBox;
    lineweight_->setObjectName("lineweight");
    QStringList weights;
    QList<QVariant> weightValues;
    for (int weight : {-1, -2, kLineweightDefault}) weights << lineweightText(weight), weightValues << weight;
    for (int weight : kStandardLineweights) weights << lineweightText(weight), weightValues << weight;
    initialLineweight_ =
        fill(lineweight_, weights, weightValues, shared_.lineweight ? std::optional<QVariant>(*shared_.lineweight) : std::nullopt);
    form->addRow(tr("Line&weight:"), lineweight_);

    linetypeScale_ = new QLineEdit(shared_.linetypeScale ? QString::number(*shared_.linetypeScale, 'f', 4) : varies());
    linetypeScale_->setObjectName("linetypeScale");
    initialScale_ = linetypeScale_->text();
    connect(linetypeScale_, &QLineEdit::textChanged, this, &PropertiesDialog::checkScale);
    form->addRow(tr("Linetype &scale:"), linetypeScale_);

    buttons_ = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons_, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    auto* count = new QLabel(entities.size() == 1 ? tr("1 object selected") : tr("%1 objects selected").arg(entities.size()));
    count->setObjectName("count");
    layout->addWidget(count);
    layout->addLayout(form);
    layout->addWidget(buttons_);
}

void PropertiesDialog::chooseColor() {
    ColorDialog dialog(color_.value_or(ardo::HostColor::byLayer()), true, this);
    if (dialog.exec() != QDialog::Accepted) return;
    color_ = dialog.color();
    colorButton_->setText(colorText(*color_));
}

// A scale is a positive number; "*VARIES*" left as it is changes nothing.
void PropertiesDialog::checkScale() {
    bool number = false;
    const double value = linetypeScale_->text().toDouble(&number);
    const bool fine = linetypeScale_->text() == varies() || (number && value > 0);
    buttons_->button(QDialogButtonBox::Ok)->setEnabled(fine);
    linetypeScale_->setToolTip(fine ? QString() : tr("Enter a positive number."));
}

commands::PropertyChanges PropertiesDialog::changes() const {
    commands::PropertyChanges out;
    if (color_ && color_ != shared_.color) out.color = color_;
    if (const auto layer = picked(layer_, initialLayer_)) out.layer = layer->toString().toStdString();
    if (const auto linetype = picked(linetype_, initialLinetype_)) out.linetype = linetype->toString().toStdString();
    if (const auto weight = picked(lineweight_, initialLineweight_)) out.lineweight = weight->toInt();
    bool number = false;
    const double scale = linetypeScale_->text().toDouble(&number);
    if (linetypeScale_->text() != initialScale_ && number && scale > 0) out.linetypeScale = scale;
    return out;
}

}  // namespace cadhost::gui
