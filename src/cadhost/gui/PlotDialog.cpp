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
// The third area is the sheet: a layout's own, or the drawing's limits for Model.
const char* const kAreas[] = {"Display", "Extents", "Limits", "Window"};
constexpr int kSheetArea = 2;
constexpr PlotArea kAreaValues[] = {PlotArea::Display, PlotArea::Extents, PlotArea::Limits, PlotArea::Window};

PlotArea areaValue(int index, bool layout) {
    return index == kSheetArea && layout ? PlotArea::Layout : kAreaValues[std::max(0, index)];
}

QString shown(double value) { return QString::number(value, 'g', 10); }

// Controls side by side in one row of the form; `stretched` takes the room left.
QHBoxLayout* sideBySide(std::initializer_list<QWidget*> widgets, QWidget* stretched = nullptr) {
    auto* row = new QHBoxLayout;
    for (QWidget* widget : widgets) row->addWidget(widget, widget == stretched ? 1 : 0);
    return row;
}

}  // namespace

bool PlotDialog::asksForDialog(std::string_view line) {
    return commands::commandKey(line) == "PLOT";
}

PlotDialog::PlotDialog(Drawing& drawing, DrawingView* view, QWidget* parent)
    : QDialog(parent), drawing_(drawing), view_(view), settings_(commands::defaultPlotSettings(drawing)) {
    auto* form = new QFormLayout;

    layout_ = new QComboBox;
    layout_->addItem("Model");
    for (const Layout& layout : drawing_.layouts()) layout_->addItem(QString::fromStdString(layout.name));
    form->addRow(tr("Layout:"), layout_);

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
    form->addRow(tr("Drawing orientation:"), sideBySide({orientation_, units_, upsideDown_}));

    area_ = new QComboBox;
    for (const char* area : kAreas) area_->addItem(tr(area));
    auto* pick = new QPushButton(tr("Window <"));
    window_ = new QLabel;
    form->addRow(tr("What to plot:"), sideBySide({area_, pick, window_}, window_));

    fit_ = new QCheckBox(tr("Fit to paper"));
    paperUnits_ = new QLineEdit;
    drawingUnits_ = new QLineEdit;
    form->addRow(tr("Plot scale:"),
                 sideBySide({fit_, paperUnits_, new QLabel("="), drawingUnits_, new QLabel(tr("units"))}));

    center_ = new QCheckBox(tr("Center the plot"));
    offsetX_ = new QLineEdit;
    offsetY_ = new QLineEdit;
    form->addRow(tr("Plot offset:"), sideBySide({center_, new QLabel("X:"), offsetX_, new QLabel("Y:"), offsetY_}));

    plotStyles_ = new QCheckBox(tr("Plot with plot styles"));
    table_ = new QComboBox;
    table_->setEditable(true);
    const QString extension = drawing_.usesNamedPlotStyles() ? ".stb" : ".ctb";
    table_->addItems({tr("None"), "monochrome" + extension, "acad" + extension});
    form->addRow(tr("Plot style table:"), sideBySide({table_, plotStyles_}, table_));

    lineweights_ = new QCheckBox(tr("Plot object lineweights"));
    form->addRow(QString(), lineweights_);

    file_ = new QLineEdit;
    auto* browse = new QPushButton(tr("Browse..."));
    form->addRow(tr("File name:"), sideBySide({file_, browse}, file_));

    preview_ = new QLabel;
    preview_->setAlignment(Qt::AlignCenter);
    preview_->setMinimumSize(kPreviewWidth + 8, kPreviewWidth + 8);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto* columns = new QHBoxLayout;
    columns->addLayout(form, 1);
    columns->addWidget(preview_);
    auto* page = new QVBoxLayout(this);
    page->addLayout(columns);
    page->addWidget(buttons);

    // Names for the controls, so that scripts and tests find them.
    const std::pair<QWidget*, const char*> named[] = {
        {layout_, "layout"}, {device_, "device"}, {paper_, "paper"}, {units_, "units"}, {orientation_, "orientation"},
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
    // A new paper size brings its own unit, as the device lists it, and replaces a layout's odd sheet.
    connect(paper_, &QComboBox::currentIndexChanged, this, [this](int index) {
        settings_.sheet.reset();
        if (index >= 0) units_->setCurrentIndex(commands::paperSizes()[static_cast<std::size_t>(index)].inches ? 1 : 0);
    });
    connect(orientation_, &QComboBox::currentIndexChanged, this, [this] { settings_.sheet.reset(); });
    // Another layout brings its own sheet, area and scale.
    connect(layout_, &QComboBox::currentIndexChanged, this, [this] {
        takeControls();
        commands::choosePlotLayout(drawing_, layout_->currentText().toStdString(), settings_);
        showSettings();
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
    const QSignalBlocker blockers[] = {QSignalBlocker(layout_), QSignalBlocker(paper_), QSignalBlocker(units_), QSignalBlocker(orientation_),
                                       QSignalBlocker(area_), QSignalBlocker(table_), QSignalBlocker(upsideDown_),
                                       QSignalBlocker(fit_), QSignalBlocker(center_), QSignalBlocker(plotStyles_),
                                       QSignalBlocker(lineweights_)};
    setWindowTitle(tr("Plot - %1").arg(QString::fromStdString(settings_.layout)));
    layout_->setCurrentText(QString::fromStdString(settings_.layout));
    area_->setItemText(kSheetArea, settings_.plotsLayout() ? tr("Layout") : tr("Limits"));
    const auto& sizes = commands::paperSizes();
    for (std::size_t i = 0; i < sizes.size(); ++i)
        if (&sizes[i] == settings_.paper) paper_->setCurrentIndex(static_cast<int>(i));
    units_->setCurrentIndex(settings_.millimeters ? 0 : 1);
    orientation_->setCurrentIndex(settings_.landscape ? 1 : 0);
    upsideDown_->setChecked(settings_.upsideDown);
    for (int i = 0; i < 4; ++i)
        if (areaValue(i, settings_.plotsLayout()) == settings_.area) area_->setCurrentIndex(i);
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
    settings_.area = areaValue(area_->currentIndex(), settings_.plotsLayout());
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
    const Scene& model = view_ ? view_->scene() : *(own = std::make_unique<Scene>(drawing_, Space::Model));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    // Nothing to plot leaves the sheet blank; OK says why.
    (void)paintSheet(painter, drawing_, model, settings_, dots);
    painter.end();
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
