#include "cadhost/gui/PlotDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QEventLoop>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <filesystem>
#include <memory>

#include "base/CaseFold.h"
#include "cadhost/commands/CommandNames.h"
#include "cadhost/commands/TypedInput.h"
#include "cadhost/drawing/Drawing.h"
#include "cadhost/gui/DrawingView.h"
#include "cadhost/gui/PlotRenderer.h"
#include "cadhost/gui/Scene.h"

namespace cadhost::gui {

namespace {

using commands::PlotArea;

constexpr int kPreviewWidth = 280;
const char* const kAreas[] = {"Display", "Extents", "Limits", "Window"};
constexpr PlotArea kAreaValues[] = {PlotArea::Display, PlotArea::Extents, PlotArea::Limits, PlotArea::Window};

QString shown(double value) { return QString::number(value, 'g', 10); }

}  // namespace

bool PlotDialog::asksForDialog(std::string_view line) {
    return commands::commandKey(line) == "PLOT";
}

PlotDialog::PlotDialog(Drawing& drawing, DrawingView* view, QWidget* parent)
    : QDialog(parent), drawing_(drawing), view_(view), settings_(commands::defaultPlotSettings(drawing)) {
    setWindowTitle(tr("Plot - Model"));
    auto* form = new QFormLayout;

    device_ = new QComboBox;
    device_->addItem(QString::fromUtf8(commands::kPdfDevice.data(), commands::kPdfDevice.size()));
    form->addRow(tr("Printer/plotter:"), device_);

    paper_ = new QComboBox;
    for (const commands::PaperSize& size : commands::paperSizes())
        paper_->addItem(QString::fromUtf8(size.name.data(), size.name.size()));
    form->addRow(tr("Paper size:"), paper_);

    units_ = new QComboBox;
    units_->addItems({tr("Millimeters"), tr("Inches")});
    orientation_ = new QComboBox;
    orientation_->addItems({tr("Portrait"), tr("Landscape")});
    upsideDown_ = new QCheckBox(tr("Plot upside-down"));
    auto* sheet = new QHBoxLayout;
    sheet->addWidget(orientation_);
    sheet->addWidget(units_);
    sheet->addWidget(upsideDown_);
    form->addRow(tr("Drawing orientation:"), sheet);

    area_ = new QComboBox;
    for (const char* area : kAreas) area_->addItem(tr(area));
    auto* pick = new QPushButton(tr("Window <"));
    window_ = new QLabel;
    auto* area = new QHBoxLayout;
    area->addWidget(area_);
    area->addWidget(pick);
    area->addWidget(window_, 1);
    form->addRow(tr("What to plot:"), area);

    fit_ = new QCheckBox(tr("Fit to paper"));
    paperUnits_ = new QLineEdit;
    drawingUnits_ = new QLineEdit;
    auto* scale = new QHBoxLayout;
    scale->addWidget(fit_);
    scale->addWidget(paperUnits_);
    scale->addWidget(new QLabel("="));
    scale->addWidget(drawingUnits_);
    scale->addWidget(new QLabel(tr("units")));
    form->addRow(tr("Plot scale:"), scale);

    center_ = new QCheckBox(tr("Center the plot"));
    offsetX_ = new QLineEdit;
    offsetY_ = new QLineEdit;
    auto* offset = new QHBoxLayout;
    offset->addWidget(center_);
    offset->addWidget(new QLabel("X:"));
    offset->addWidget(offsetX_);
    offset->addWidget(new QLabel("Y:"));
    offset->addWidget(offsetY_);
    form->addRow(tr("Plot offset:"), offset);

    plotStyles_ = new QCheckBox(tr("Plot with plot styles"));
    table_ = new QComboBox;
    table_->setEditable(true);
    const QString extension = drawing_.usesNamedPlotStyles() ? ".stb" : ".ctb";
    table_->addItems({tr("None"), "monochrome" + extension, "acad" + extension});
    auto* styles = new QHBoxLayout;
    styles->addWidget(table_, 1);
    styles->addWidget(plotStyles_);
    form->addRow(tr("Plot style table:"), styles);

    lineweights_ = new QCheckBox(tr("Plot object lineweights"));
    form->addRow(QString(), lineweights_);

    file_ = new QLineEdit;
    auto* browse = new QPushButton(tr("Browse..."));
    auto* file = new QHBoxLayout;
    file->addWidget(file_, 1);
    file->addWidget(browse);
    form->addRow(tr("File name:"), file);

    preview_ = new QLabel;
    preview_->setAlignment(Qt::AlignCenter);
    preview_->setMinimumSize(kPreviewWidth + 8, kPreviewWidth + 8);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto* columns = new QHBoxLayout;
    columns->addLayout(form, 1);
    columns->addWidget(preview_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns);
    layout->addWidget(buttons);

    // Names for the controls, so that scripts and tests find them.
    const std::pair<QWidget*, const char*> named[] = {
        {device_, "device"}, {paper_, "paper"}, {units_, "units"}, {orientation_, "orientation"},
        {upsideDown_, "upsideDown"}, {area_, "area"}, {fit_, "fit"}, {paperUnits_, "paperUnits"},
        {drawingUnits_, "drawingUnits"}, {center_, "center"}, {offsetX_, "offsetX"}, {offsetY_, "offsetY"},
        {table_, "table"}, {plotStyles_, "plotStyles"}, {lineweights_, "lineweights"}, {file_, "file"},
        {preview_, "preview"}};
    for (const auto& [widget, name] : named) widget->setObjectName(name);

    showSettings();
    connect(buttons, &QDialogButtonBox::accepted, this, &PlotDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &PlotDialog::reject);
    connect(pick, &QPushButton::clicked, this, [this] { pickWindow(); });
    connect(browse, &QPushButton::clicked, this, [this] {
        const QString path = QFileDialog::getSaveFileName(this, tr("Plot to File"), file_->text(), tr("PDF (*.pdf)"));
        if (!path.isEmpty()) file_->setText(path);
    });
    // A new paper size brings its own unit, as the device lists it.
    connect(paper_, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (index >= 0) units_->setCurrentIndex(commands::paperSizes()[static_cast<std::size_t>(index)].inches ? 1 : 0);
    });
    const auto refresh = [this] {
        takeControls();
        updatePreview();
    };
    for (QComboBox* box : {paper_, units_, orientation_, area_, table_})
        connect(box, &QComboBox::currentIndexChanged, this, refresh);
    for (QCheckBox* box : {upsideDown_, fit_, center_, plotStyles_, lineweights_})
        connect(box, &QCheckBox::toggled, this, refresh);
    for (QLineEdit* edit : {paperUnits_, drawingUnits_, offsetX_, offsetY_})
        connect(edit, &QLineEdit::editingFinished, this, refresh);
}

void PlotDialog::showSettings() {
    const QSignalBlocker blockers[] = {QSignalBlocker(paper_), QSignalBlocker(units_), QSignalBlocker(orientation_),
                                       QSignalBlocker(area_), QSignalBlocker(table_), QSignalBlocker(upsideDown_),
                                       QSignalBlocker(fit_), QSignalBlocker(center_), QSignalBlocker(plotStyles_),
                                       QSignalBlocker(lineweights_)};
    const auto& sizes = commands::paperSizes();
    for (std::size_t i = 0; i < sizes.size(); ++i)
        if (&sizes[i] == settings_.paper) paper_->setCurrentIndex(static_cast<int>(i));
    units_->setCurrentIndex(settings_.millimeters ? 0 : 1);
    orientation_->setCurrentIndex(settings_.landscape ? 1 : 0);
    upsideDown_->setChecked(settings_.upsideDown);
    for (int i = 0; i < 4; ++i)
        if (kAreaValues[i] == settings_.area) area_->setCurrentIndex(i);
    window_->setText(settings_.area == PlotArea::Window
                         ? QString("%1,%2 - %3,%4")
                               .arg(shown(settings_.windowFirst[0]), shown(settings_.windowFirst[1]),
                                    shown(settings_.windowSecond[0]), shown(settings_.windowSecond[1]))
                         : QString());
    fit_->setChecked(!settings_.scale);
    paperUnits_->setText(settings_.scale ? shown(*settings_.scale) : "1");
    drawingUnits_->setText("1");
    paperUnits_->setEnabled(settings_.scale.has_value());
    drawingUnits_->setEnabled(settings_.scale.has_value());
    center_->setChecked(!settings_.offset);
    offsetX_->setText(settings_.offset ? shown((*settings_.offset)[0]) : "0");
    offsetY_->setText(settings_.offset ? shown((*settings_.offset)[1]) : "0");
    offsetX_->setEnabled(settings_.offset.has_value());
    offsetY_->setEnabled(settings_.offset.has_value());
    plotStyles_->setChecked(settings_.plotStyles);
    table_->setCurrentText(settings_.styleTable.empty() ? tr("None") : QString::fromStdString(settings_.styleTable));
    lineweights_->setChecked(settings_.lineweights);
    file_->setText(QString::fromStdString(settings_.file));
    updatePreview();
}

std::string PlotDialog::takeControls() {
    settings_.paper = &commands::paperSizes()[static_cast<std::size_t>(std::max(0, paper_->currentIndex()))];
    settings_.millimeters = units_->currentIndex() == 0;
    settings_.landscape = orientation_->currentIndex() == 1;
    settings_.upsideDown = upsideDown_->isChecked();
    settings_.area = kAreaValues[std::max(0, area_->currentIndex())];
    if (view_) {
        const Box2 shownArea = view_->visibleArea();
        settings_.display = std::pair{ardo::Point3{shownArea.x0, shownArea.y0, 0}, ardo::Point3{shownArea.x1, shownArea.y1, 0}};
    }
    std::string complaint;
    paperUnits_->setEnabled(!fit_->isChecked());
    drawingUnits_->setEnabled(!fit_->isChecked());
    if (fit_->isChecked()) {
        settings_.scale.reset();
    } else {
        const auto paper = commands::parseReal(paperUnits_->text().trimmed().toStdString());
        const auto units = commands::parseReal(drawingUnits_->text().trimmed().toStdString());
        if (paper && units && *paper > 0 && *units > 0) settings_.scale = *paper / *units;
        else complaint = "The plot scale needs two positive numbers, paper units = drawing units.";
    }
    offsetX_->setEnabled(!center_->isChecked());
    offsetY_->setEnabled(!center_->isChecked());
    if (center_->isChecked()) {
        settings_.offset.reset();
    } else {
        const auto x = commands::parseReal(offsetX_->text().trimmed().toStdString());
        const auto y = commands::parseReal(offsetY_->text().trimmed().toStdString());
        if (x && y) settings_.offset = ardo::Point3{*x, *y, 0};
        else if (complaint.empty()) complaint = "The plot offset needs two numbers, or Center the plot.";
    }
    settings_.plotStyles = plotStyles_->isChecked();
    const std::string table = table_->currentText().trimmed().toStdString();
    settings_.styleTable = table_->currentIndex() == 0 && table == tr("None").toStdString() ? std::string() : table;
    settings_.lineweights = lineweights_->isChecked();
    std::filesystem::path file = file_->text().trimmed().toStdString();
    if (!ardo::equalsNoCase(file.extension().string(), ".pdf")) file += ".pdf";
    settings_.file = file.string();
    if (settings_.area == PlotArea::Window &&
        (settings_.windowFirst[0] == settings_.windowSecond[0] || settings_.windowFirst[1] == settings_.windowSecond[1]) &&
        complaint.empty())
        complaint = "Pick a plot window in the drawing first (Window <).";
    return complaint;
}

void PlotDialog::updatePreview() {
    // The sheet at a small size with the plot painted by the same code as the PDF.
    const double widthMm = settings_.sheetWidth(), heightMm = settings_.sheetHeight();
    const double dots = kPreviewWidth / std::max(widthMm, heightMm);
    QImage image(static_cast<int>(widthMm * dots), static_cast<int>(heightMm * dots), QImage::Format_RGB32);
    image.fill(Qt::white);
    std::unique_ptr<Scene> own;
    const Scene* scene = view_ ? &view_->scene() : (own = std::make_unique<Scene>(drawing_, Space::Model)).get();
    const Box2 area = plotArea(drawing_, *scene, settings_);
    if (!area.empty()) {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        if (settings_.upsideDown) {
            painter.translate(image.width(), image.height());
            painter.rotate(180);
        }
        paintPlot(painter, *scene, area, placeOnSheet(area, settings_), dots, heightMm, settings_);
    }
    QPixmap framed(image.width() + 2, image.height() + 2);
    framed.fill(Qt::darkGray);
    QPainter(&framed).drawImage(1, 1, image);
    preview_->setPixmap(framed);
}

void PlotDialog::pickWindow() {
    if (!view_) return;
    const DrawingView::Input before = view_->input();
    std::optional<Vec2> first;
    QEventLoop loop;
    DrawingView::Input picking;
    picking.request = [&first] {
        return commands::pointRequest(first ? std::optional(ardo::Point3{first->x, first->y, 0}) : std::nullopt,
                                      first.has_value());
    };
    picking.point = [&](Vec2 at) {
        if (!first) {
            first = at;
            return;
        }
        settings_.windowFirst = {std::min(first->x, at.x), std::min(first->y, at.y), 0};
        settings_.windowSecond = {std::max(first->x, at.x), std::max(first->y, at.y), 0};
        settings_.area = PlotArea::Window;
        loop.quit();
    };
    picking.cancel = [&loop] { loop.quit(); };
    picking.cursor = before.cursor;
    takeControls();
    hide();
    view_->setInput(picking);
    view_->setFocus();
    loop.exec();
    view_->setInput(before);
    showSettings();
    show();
}

void PlotDialog::accept() {
    const std::string complaint = takeControls();
    if (!complaint.empty()) {
        QMessageBox::warning(this, windowTitle(), QString::fromStdString(complaint));
        return;
    }
    const auto note = [this](const std::string& text) {
        if (note_) note_(text);
    };
    if (settings_.plotStyles && commands::styleTableOf(settings_.styleTable) == commands::StyleTable::Unread)
        note("Plot style table files are not read: \"" + settings_.styleTable + "\" plots with the objects' own colors.\n");
    const auto written = writePlot(drawing_, settings_, note);
    if (!written) {
        QMessageBox::warning(this, windowTitle(), QString::fromStdString(written.error()));
        return;
    }
    note("Plot written to \"" + settings_.file + "\".\n");
    QDialog::accept();
}

}  // namespace cadhost::gui
