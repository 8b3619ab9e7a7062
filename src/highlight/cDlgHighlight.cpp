#include "highlight/cDlgHighlight.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QVBoxLayout>
#include <cstdio>

#include "boundary/Host.h"
#include "dialog/LayerDialogRun.h"
#include "help/Help.h"
#include "layers/ColourCode.h"
#include "layers/LayerFunctionsEntry.h"
#include "module/HostBinding.h"
#include "ui/UiTexts.h"

namespace ardo {

namespace {

constexpr int kDefaultFrequencyEntry = 2;   // "2.0"

QColor colorOf(const HostColor& c) {
    switch (c.method) {
        case HostColor::Method::Index: {
            const std::uint32_t rgb = host().rgbOfIndexColor(c.index);
            return QColor((rgb >> 16) & 0xff, (rgb >> 8) & 0xff, rgb & 0xff);
        }
        case HostColor::Method::TrueColor:
        case HostColor::Method::ColorBook: return QColor(c.red, c.green, c.blue);
        default: return QColor();
    }
}

// Two picked points joined by a measuring line, on the button that picks the distance.
QIcon pickDistanceIcon() {
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(40, 40, 40), 1.2));
    p.drawLine(QPointF(3, 12), QPointF(13, 4));
    p.setPen(QPen(QColor(200, 0, 0), 1.5));
    for (const QPointF& at : {QPointF(3, 12), QPointF(13, 4)}) {
        p.drawLine(at - QPointF(2.5, 0), at + QPointF(2.5, 0));
        p.drawLine(at - QPointF(0, 2.5), at + QPointF(0, 2.5));
    }
    return QIcon(pixmap);
}

}  // namespace

QStringList frequencyEntries() { return {"0.5", "1.0", "2.0", "3.0"}; }

int frequencyEntryOf(double frequency) {
    char text[64];
    std::snprintf(text, sizeof text, "%.1lf", frequency);
    const int index = frequencyEntries().indexOf(QString::fromLatin1(text));
    return index >= 0 ? index : kDefaultFrequencyEntry;
}

QString distanceText(double distance) {
    char buffer[512];
    std::snprintf(buffer, sizeof buffer, "%.6lf", distance);
    QString text = QString::fromLatin1(buffer);
    while (text.endsWith('0')) text.chop(1);
    while (text.endsWith('.')) text.chop(1);
    return text;
}

void takeDistanceText(const QString& text, double& distance) {
    double value = 0;
    if (std::sscanf(text.toStdString().c_str(), "%lf", &value) != 1) return;
    distance = value < 0 ? 0 : value;
}

QColor frameLayerColor(const cOptHighlight& options) {
    if (options.frameLayer.empty()) return QColor();
    if (HostDrawing* drawing = host().workingDrawing())
        if (const auto layer = drawing->findLayer(options.frameLayer)) return colorOf(layer->color);
    if (const LayerValue* entry = options.frameLayerKey.empty() ? nullptr : layerEntryOfKey(options.frameLayerKey))
        return colorOf(decodeColour(entry->color, entry->colorBookName, entry->colorName));
    return QColor();
}

cColorSwatch::cColorSwatch(QWidget* parent) : QWidget(parent) { setFixedSize(40, 18); }

void cColorSwatch::setColor(const QColor& color) {
    color_ = color;
    update();
}

void cColorSwatch::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const QRect r = rect();
    const QColor fill = color_.isValid() ? color_ : palette().color(QPalette::Window);
    const QColor light = palette().color(QPalette::Light), shadow = palette().color(QPalette::Dark);
    p.fillRect(r, fill);
    // Raised outer border, then a sunken one a pixel inside, as owner-drawn swatches look.
    p.setPen(light);
    p.drawLine(r.topLeft(), r.topRight());
    p.drawLine(r.topLeft(), r.bottomLeft());
    p.setPen(shadow);
    p.drawLine(r.bottomLeft(), r.bottomRight());
    p.drawLine(r.topRight(), r.bottomRight());
    const QRect inner = r.adjusted(1, 1, -1, -1);
    p.setPen(fill);
    p.drawLine(inner.bottomLeft(), inner.bottomRight());
    p.drawLine(inner.topRight(), inner.bottomRight());
    p.setPen(shadow);
    p.drawLine(inner.topLeft(), inner.topRight());
    p.drawLine(inner.topLeft(), inner.bottomLeft());
}

cDlgHighlight::cDlgHighlight(QWidget* parent) : QDialog(parent) {
    setObjectName("cDlgHighlight");
    setWindowTitle(qCatalog(MsgKey::RsHlTitle));

    auto* modeBox = new QGroupBox(qCatalog(MsgKey::RsHlFrmMode).trimmed());
    auto* modeLayout = new QGridLayout(modeBox);
    illuminate_ = new QRadioButton(qCatalog(MsgKey::RsHlRadShow));
    illuminate_->setObjectName("illuminate");
    blink_ = new QRadioButton(qCatalog(MsgKey::RsHlRadBlink));
    blink_->setObjectName("blink");
    perSecondLabel_ = new QLabel(qCatalog(MsgKey::RsHlTxtPerSec));
    frequency_ = new QComboBox;
    frequency_->setObjectName("frequency");
    frequency_->addItems(frequencyEntries());
    modeLayout->addWidget(illuminate_, 0, 0, 1, 2);
    modeLayout->addWidget(blink_, 1, 0, 1, 2);
    modeLayout->addWidget(perSecondLabel_, 2, 0);
    modeLayout->addWidget(frequency_, 2, 1);

    auto* optionsBox = new QGroupBox(qCatalog(MsgKey::RsHlFrmOpts).trimmed());
    auto* optionsLayout = new QGridLayout(optionsBox);
    frame_ = new QCheckBox(qCatalog(MsgKey::RsHlChkFrame));
    frame_->setObjectName("frame");
    distanceLabel_ = new QLabel(qCatalog(MsgKey::RsHlTxtDist));
    distance_ = new QLineEdit;
    distance_->setObjectName("distance");
    pick_ = new QPushButton;
    pick_->setObjectName("pick");
    pick_->setIcon(pickDistanceIcon());
    pick_->setIconSize(QSize(16, 16));
    pick_->setToolTip(qCatalog(MsgKey::TxHlPickFirstPnt));
    hatch_ = new QCheckBox(qCatalog(MsgKey::RsHlChkHatch));
    hatch_->setObjectName("hatch");
    auto* distanceRow = new QHBoxLayout;
    distanceRow->addWidget(distanceLabel_);
    distanceRow->addWidget(distance_, 1);
    distanceRow->addWidget(pick_);
    optionsLayout->addWidget(frame_, 0, 0);
    optionsLayout->addLayout(distanceRow, 1, 0);
    optionsLayout->addWidget(hatch_, 2, 0);

    auto* layerBox = new QGroupBox(qCatalog(MsgKey::RsHlFrmPermFr).trimmed());
    auto* layerLayout = new QHBoxLayout(layerBox);
    layerName_ = new QLabel;
    layerName_->setObjectName("frameLayer");
    layerName_->setFrameShape(QFrame::StyledPanel);
    layerName_->setMinimumWidth(140);
    swatch_ = new cColorSwatch;
    swatch_->setObjectName("swatch");
    chooseLayer_ = new QPushButton("...");
    chooseLayer_->setObjectName("chooseLayer");
    chooseLayer_->setFixedWidth(32);
    layerLayout->addWidget(new QLabel(qCatalog(MsgKey::RsHlTxtLayer)));
    layerLayout->addWidget(layerName_, 1);
    layerLayout->addWidget(swatch_);
    layerLayout->addWidget(chooseLayer_);

    auto* buttons = new QDialogButtonBox;
    buttons->addButton(qCatalog(MsgKey::RsBtnOk), QDialogButtonBox::AcceptRole)->setObjectName("ok");
    buttons->addButton(qCatalog(MsgKey::RsBtnCancel), QDialogButtonBox::RejectRole)->setObjectName("cancel");
    buttons->addButton(qCatalog(MsgKey::RsBtnHelp), QDialogButtonBox::HelpRole)->setObjectName("help");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons, &QDialogButtonBox::helpRequested, this, [] { showHelp(kHelpSection, "HighlightOptions"); });

    auto* layout = new QVBoxLayout(this);
    auto* top = new QHBoxLayout;
    top->addWidget(modeBox);
    top->addWidget(optionsBox, 1);
    layout->addLayout(top);
    layout->addWidget(layerBox);
    layout->addWidget(buttons);

    connect(illuminate_, &QRadioButton::clicked, this, [this] { setMode(0); });
    connect(blink_, &QRadioButton::clicked, this, [this] { setMode(1); });
    connect(frequency_, &QComboBox::activated, this, [this](int index) {
        double value = 2.0;
        if (index >= 0) std::sscanf(frequency_->itemText(index).toStdString().c_str(), "%lf", &value);
        working_.setFrequency(value);
    });
    connect(frame_, &QCheckBox::clicked, this, [this](bool on) {
        working_.drawFrame = on;
        enableControls();
    });
    connect(hatch_, &QCheckBox::clicked, this, [this](bool on) { working_.changeHatch = on; });
    connect(distance_, &QLineEdit::textEdited, this,
            [this](const QString& text) { takeDistanceText(text, working_.distance); });
    connect(pick_, &QPushButton::clicked, this, [this] { done(kPickDistance); });
    connect(chooseLayer_, &QPushButton::clicked, this, &cDlgHighlight::chooseFrameLayer);
}

int cDlgHighlight::exec() {
    showValues();
    const int result = QDialog::exec();
    // The next opening, and the settings, keep where the user left the dialog.
    working_.dialogPosX = x();
    working_.dialogPosY = y();
    return result;
}

void cDlgHighlight::showValues() {
    frequency_->setCurrentIndex(frequencyEntryOf(working_.frequency));
    setMode(working_.mode);
    frame_->setChecked(working_.drawFrame);
    hatch_->setChecked(working_.changeHatch);
    distance_->setText(distanceText(working_.distance));
    showFrameLayer();
    move(working_.dialogPosX, working_.dialogPosY);
    raise();
    enableControls();
}

void cDlgHighlight::setMode(int mode) {
    working_.mode = mode;
    illuminate_->setChecked(mode == 0);
    blink_->setChecked(mode == 1);
    enableControls();
}

void cDlgHighlight::enableControls() {
    const bool blinking = working_.mode == 1;
    perSecondLabel_->setEnabled(blinking);
    frequency_->setEnabled(blinking);
    distanceLabel_->setEnabled(working_.drawFrame);
    distance_->setEnabled(working_.drawFrame);
}

void cDlgHighlight::showFrameLayer() {
    layerName_->setText(qText(working_.frameLayer));
    swatch_->setColor(frameLayerColor(working_));
}

void cDlgHighlight::chooseFrameLayer() {
    LayerDialogCall call;
    call.mode = layermode::kObject;
    call.objectName = qCatalog(MsgKey::RsHlFrmPermFr).trimmed().toStdString();
    call.defaultKey = working_.frameLayerKey;
    const LayerDialogOutcome chosen = runLayerDialog(call, false);
    if (chosen.status != RTNORM || chosen.name.empty()) return;
    working_.frameLayer = chosen.name;
    working_.frameLayerKey = chosen.key;
    working_.frameLayerFlags[0] = 0;
    working_.frameLayerFlags[1] = 1;
    showFrameLayer();
}

}  // namespace ardo
