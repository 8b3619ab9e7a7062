#include "dialog/cDlgProps.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QAction>
#include <QPainter>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "base/CaseFold.h"
#include "dialog/DialogHelp.h"
#include "dialog/DialogIcons.h"
#include "dialog/EntryProposal.h"
#include "dialog/LayerCellValue.h"
#include "dialog/PlotStyleList.h"
#include "dialog/LinetypeList.h"
#include "dialog/cDlgLineWeight.h"
#include "dialog/cDlgOpenLineType.h"
#include "dialog/cDlgPlotStyle.h"
#include "dialog/cListControl.h"
#include "layers/ColourCode.h"
#include "layers/LayerKeyRules.h"
#include "module/HostBinding.h"
#include "settings/ModuleFiles.h"
#include "ui/UiTexts.h"

namespace ardo {

namespace {

struct ModeTexts {
    MsgKey title;
    const char* helpTopic;
};

ModeTexts textsOfMode(int mode) {
    switch (mode) {
        case propsmode::kNew: return {MsgKey::TiDlgPropNew, "NewLayer"};
        case propsmode::kBased: return {MsgKey::TiDlgPropBased, "AttachLayer"};
        case propsmode::kBasedObject: return {MsgKey::TiDlgPropBasedF, "ObjectLayer"};
        case propsmode::kChange: return {MsgKey::TiDlgPropChange, "LayerProps"};
        default: return {MsgKey::TiDlgPropOther, "LayerProps"};
    }
}

struct ToggleTexts {
    DialogIcon set, clear;
    MsgKey setTip, clearTip;
};

constexpr std::array<ToggleTexts, 4> kToggles{{
    {DialogIcon::LayerOff, DialogIcon::LayerOn, MsgKey::TtDlgPropOff, MsgKey::TtDlgPropOn},
    {DialogIcon::Frozen, DialogIcon::Thawed, MsgKey::TtDlgPropFrozen, MsgKey::TtDlgPropThawed},
    {DialogIcon::Locked, DialogIcon::Unlocked, MsgKey::TtDlgPropLocked, MsgKey::TtDlgPropUnlocked},
    {DialogIcon::FrozenInNewViewports, DialogIcon::ThawedInNewViewports, MsgKey::TtDlgPropFrInNewV,
     MsgKey::TtDlgPropThInNewV},
}};

// A 14 x 10 swatch of the colour, outlined; empty for colours without their own RGB.
QIcon swatchIcon(const HostColor& colour) {
    QPixmap pixmap(14, 10);
    pixmap.fill(Qt::transparent);
    const QVariant rgb = swatchColour(colour);
    if (rgb.isValid()) {
        QPainter p(&pixmap);
        p.fillRect(pixmap.rect(), rgb.value<QColor>());
        p.setPen(Qt::black);
        p.drawRect(pixmap.rect().adjusted(0, 0, -1, -1));
    }
    return QIcon(pixmap);
}

QString textOf(const LayerEntry& e, LayerColumn column, DataHalf half) {
    return qText(cellText(e, column, half, readLineweightState()));
}

// One toggle's look for the state word.
void showToggle(QToolButton& button, const ToggleTexts& texts, bool set) {
    button.setIcon(dialogIcon(set ? texts.set : texts.clear));
    button.setToolTip(qCatalog(set ? texts.setTip : texts.clearTip) + "\n" + qCatalog(MsgKey::TtDlgPropLeftBtnToSwitch));
}

}  // namespace

cDlgProps::cDlgProps(int mode, const LayerEntry& entry, const CentralLayerFile& list, const LayerEntry* self,
                     const LayerEntry* base, QWidget* parent)
    : QDialog(parent), mode_(mode), entry_(entry), list_(list), self_(self) {
    setObjectName("cDlgProps");
    if (base) base_ = propertiesOf(*base);
    QString title = qCatalog(textsOfMode(mode).title);
    if (base && (mode == propsmode::kBased || mode == propsmode::kBasedObject)) title += " " + qText(base->name);
    setWindowTitle(title);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(buildIdentification());
    layout->addWidget(buildCreation());
    if (entry_.has(entryflag::kInDrawing)) {
        drawingFrame_ = buildDrawing();
        layout->addWidget(drawingFrame_);
    }
    layout->addStretch(1);
    layout->addWidget(okCancelHelpButtons(this, textsOfMode(mode).helpTopic));
    showValues();
    // Showing a drawing layer changes nothing.
    if (mode_ == propsmode::kShow) {
        key_->setReadOnly(true);
        name_->setReadOnly(true);
        findChild<QGroupBox*>("creation")->setEnabled(false);
    }
}

QWidget* cDlgProps::buildIdentification() {
    auto* frame = new QGroupBox(qCatalog(MsgKey::RsDlgPropFrmId));
    auto* form = new QFormLayout(frame);
    key_ = new QLineEdit(qText(entry_.key));
    key_->setObjectName("key");
    name_ = new QLineEdit(qText(entry_.name));
    name_->setObjectName("name");
    key_->setMaxLength(256);
    name_->setMaxLength(256);
    // A layer in the drawing keeps its name here; the list renames it in place.
    name_->setReadOnly(mode_ == propsmode::kChange && entry_.has(entryflag::kInDrawing));
    connect(key_, &QLineEdit::textEdited, this, [this](const QString& t) { entry_.key = t.toStdString(); });
    connect(name_, &QLineEdit::textEdited, this, [this](const QString& t) { entry_.name = t.toStdString(); });
    form->addRow(qCatalog(MsgKey::RsDlgPropTxtKey), key_);
    form->addRow(qCatalog(MsgKey::RsDlgPropTxtName), name_);
    if (base_ && (mode_ == propsmode::kBased || mode_ == propsmode::kBasedObject)) {
        takeOver_ = new QToolButton;
        takeOver_->setObjectName("takeOver");
        takeOver_->setText(qText(base_->name));
        takeOver_->setPopupMode(QToolButton::InstantPopup);
        menuIcons_ = iconMenuImages(false);
        menuIconsGreyed_ = iconMenuImages(true);
        auto* menu = new cIconMenu(&menuIcons_, &menuIconsGreyed_, this, takeOver_);
        const auto add = [&](MsgKey text, int id, TakeOver what) {
            auto* action = new QAction(qCatalog(text), menu);
            connect(action, &QAction::triggered, this, [this, what] { takeOver(what); });
            menu->appendItem(action, id);
        };
        add(MsgKey::MiPropSelIds, takeoverid::kIdentification, TakeOver::Identification);
        add(MsgKey::MiPropSelPrs, takeoverid::kProperties, TakeOver::Properties);
        add(MsgKey::MiPropSelAll, takeoverid::kAll, TakeOver::All);
        takeOver_->setMenu(menu);
        form->addRow(QString(), takeOver_);
    }
    return frame;
}

QWidget* cDlgProps::buildCreation() {
    auto* frame = new QGroupBox(qCatalog(MsgKey::RsDlgPropFrmCreat));
    frame->setObjectName("creation");
    auto* form = new QFormLayout(frame);
    colour_ = new QPushButton;
    colour_->setObjectName("colour");
    colour_->setToolTip(qCatalog(MsgKey::TtDlgPropChgColor));
    connect(colour_, &QPushButton::clicked, this, &cDlgProps::chooseColour);
    linetype_ = new QPushButton;
    linetype_->setObjectName("linetype");
    linetype_->setToolTip(qCatalog(MsgKey::TtDlgPropChgLType));
    connect(linetype_, &QPushButton::clicked, this, &cDlgProps::chooseLinetype);
    linetypeFile_ = new QLabel;
    linetypeFile_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* states = new QHBoxLayout;
    for (int i = 0; i < 4; ++i) {
        toggles_[i] = new QToolButton;
        toggles_[i]->setIconSize(QSize(16, 16));
        toggles_[i]->setAutoRaise(false);
        connect(toggles_[i], &QToolButton::clicked, this, [this, i] { flipState(i); });
        states->addWidget(toggles_[i]);
    }
    states->addStretch(1);
    lineweight_ = new QPushButton;
    lineweight_->setObjectName("lineweight");
    connect(lineweight_, &QPushButton::clicked, this, &cDlgProps::chooseLineweight);
    plotStyle_ = new QPushButton;
    plotStyle_->setObjectName("plotStyle");
    connect(plotStyle_, &QPushButton::clicked, this, &cDlgProps::choosePlotStyle);
    plottable_ = new QCheckBox(qCatalog(MsgKey::RsDlgPropChkPlot));
    connect(plottable_, &QCheckBox::toggled, this, [this](bool on) { entry_.filePlottable = on; });

    form->addRow(qCatalog(MsgKey::RsDlgPropTxtColor), colour_);
    form->addRow(qCatalog(MsgKey::RsDlgPropTxtLType), linetype_);
    form->addRow(qCatalog(MsgKey::RsDlgPropTxtLFile), linetypeFile_);
    form->addRow(qCatalog(MsgKey::RsDlgPropTxtState), states);
    form->addRow(qCatalog(MsgKey::RsDlgPropTxtLineW), lineweight_);
    form->addRow(qCatalog(MsgKey::RsDlgPropTxtPlotS), plotStyle_);
    form->addRow(QString(), plottable_);
    return frame;
}

QWidget* cDlgProps::buildDrawing() {
    auto* frame = new QGroupBox(qCatalog(MsgKey::RsDlgPropFrmAct));
    frame->setObjectName("drawing");
    auto* form = new QFormLayout(frame);
    const auto value = [this](LayerColumn column) {
        auto* label = new QLabel(textOf(entry_, column, DataHalf::Drawing));
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        return label;
    };
    auto* colourRow = new QHBoxLayout;
    auto* swatch = new QLabel;
    swatch->setPixmap(swatchIcon(halfColour(entry_, DataHalf::Drawing)).pixmap(14, 10));
    colourRow->addWidget(swatch);
    colourRow->addWidget(value(LayerColumn::Color), 1);
    form->addRow(qCatalog(MsgKey::RsDlgPropTxtColor), colourRow);
    form->addRow(qCatalog(MsgKey::RsDlgPropTxtLType), value(LayerColumn::Linetype));
    auto* states = new QHBoxLayout;
    for (size_t i = 0; i < kToggles.size(); ++i) {
        auto* icon = new QLabel;
        const bool set = (entry_.dwgStates & static_cast<std::uint32_t>(kStateToggleBits[i])) != 0;
        icon->setPixmap(dialogIcon(set ? kToggles[i].set : kToggles[i].clear).pixmap(16, 16));
        icon->setToolTip(qCatalog(set ? kToggles[i].setTip : kToggles[i].clearTip));
        states->addWidget(icon);
    }
    states->addStretch(1);
    form->addRow(qCatalog(MsgKey::RsDlgPropTxtState), states);
    form->addRow(qCatalog(MsgKey::RsDlgPropTxtLineW), value(LayerColumn::Lineweight));
    form->addRow(qCatalog(MsgKey::RsDlgPropTxtPlotS), value(LayerColumn::PlotStyle));
    auto* plottable = new QCheckBox(qCatalog(MsgKey::RsDlgPropChkPlot));
    plottable->setChecked(entry_.dwgPlottable);
    plottable->setEnabled(false);
    form->addRow(QString(), plottable);
    return frame;
}

void cDlgProps::showValues() {
    key_->setText(qText(entry_.key));
    name_->setText(qText(entry_.name));
    colour_->setIcon(swatchIcon(halfColour(entry_, DataHalf::File)));
    colour_->setText(textOf(entry_, LayerColumn::Color, DataHalf::File));
    linetype_->setText(qText(entry_.fileLinetype));
    linetypeFile_->setText(qText(entry_.fileLinetypeFile));
    for (size_t i = 0; i < kToggles.size(); ++i) showToggle(*toggles_[i], kToggles[i], (entry_.fileStates & kStateToggleBits[i]) != 0);
    lineweight_->setText(textOf(entry_, LayerColumn::Lineweight, DataHalf::File));
    plotStyle_->setText(qText(entry_.filePlotStyle));
    const QSignalBlocker quiet(plottable_);
    plottable_->setChecked(entry_.filePlottable);
}

void cDlgProps::flipState(int index) {
    entry_.fileStates ^= kStateToggleBits.at(index);
    showToggle(*toggles_[index], kToggles[index], (entry_.fileStates & kStateToggleBits[index]) != 0);
}

void cDlgProps::takeOver(TakeOver what) {
    if (!base_) return;
    if (what != TakeOver::Properties) copyIdentification(*base_, entry_);
    if (what != TakeOver::Identification) copyFileProperties(*base_, entry_);
    showValues();
}

void cDlgProps::chooseColour() {
    HostColor colour = halfColour(entry_, DataHalf::File);
    if (host().colorDialog(colour, true) != RTNORM) return;
    const ColourCode code = encodeColour(colour);
    entry_.fileColor = code.code;
    entry_.fileColorBookName = code.bookName;
    entry_.fileColorName = code.colourName;
    showValues();
}

void cDlgProps::chooseLinetype() {
    cDlgOpenLineType picker(this, moduleFiles().programFolder);
    std::string path;
    if (!entry_.fileLinetypeFile.empty() && host().findFile(entry_.fileLinetypeFile, path))
        picker.selectLinetypeFile(qText(path), qText(entry_.fileLinetype));
    if (picker.exec() != QDialog::Accepted || picker.chosenLinetype().empty()) return;
    entry_.fileLinetype = picker.chosenLinetype();
    entry_.fileLinetypeFile = linetypeFileReference(picker.chosenFile());
    showValues();
}

void cDlgProps::chooseLineweight() {
    cDlgLineWeight picker(entry_.fileLineweight, this);
    if (picker.exec() != QDialog::Accepted) return;
    entry_.fileLineweight = picker.lineweight();
    showValues();
}

void cDlgProps::choosePlotStyle() {
    cDlgPlotStyle picker(plotStyleNames(list_), entry_.filePlotStyle, this);
    if (picker.exec() != QDialog::Accepted) return;
    entry_.filePlotStyle = picker.plotStyle();
    showValues();
}

void cDlgProps::accept() {
    if (mode_ != propsmode::kShow) {
        entry_.key = std::string(trimWhite(entry_.key));
        entry_.name = std::string(trimWhite(entry_.name));
        // A new entry is taken by a layer of its name only in the drawing, if there is one.
        const LayerEntry* self = self_ ? self_ : entryTakingNew(list_, entry_.name);
        if (!identificationAccepted(list_, entry_.key, entry_.name, self)) return;
    }
    QDialog::accept();
}

}  // namespace ardo
