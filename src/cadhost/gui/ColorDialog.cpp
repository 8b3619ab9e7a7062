#include "cadhost/gui/ColorDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>
#include <functional>

#include "cadhost/colors/AciPalette.h"
#include "cadhost/colors/ColorBook.h"
#include "cadhost/colors/ColorNames.h"
#include "cadhost/colors/RgbName.h"

namespace cadhost::gui {

using Method = ardo::HostColor::Method;

namespace {

constexpr int kCell = 15;   // pixels of one cell, its frame included
constexpr int kGap = 6;     // between the blocks of the grid
constexpr int kHues = 24;   // columns: index 10, 20, ... 240 and the nine after each

QColor qcolor(std::uint32_t rgb) { return QColor((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF); }

bool isIndex(const ardo::HostColor& c) { return c.method == Method::Index; }

std::uint32_t rgbOf(const ardo::HostColor& c) {
    return c.method == Method::TrueColor || c.method == Method::ColorBook ? c.rgb() : aciRgb(c.index);
}

QPixmap swatch(QColor color, QSize size) {
    QPixmap pixmap(size);
    pixmap.fill(color);
    QPainter painter(&pixmap);
    painter.setPen(Qt::black);
    painter.drawRect(0, 0, size.width() - 1, size.height() - 1);
    return pixmap;
}

}  // namespace

QString colorText(const ardo::HostColor& c) {
    switch (c.method) {
    case Method::ByLayer: return "BYLAYER";
    case Method::ByBlock: return "BYBLOCK";
    case Method::Index: return QString::number(c.index);
    case Method::TrueColor: return QString("%1,%2,%3").arg(c.red).arg(c.green).arg(c.blue);
    case Method::ColorBook: return QString::fromStdString(c.colorName);
    case Method::None: break;
    }
    return {};
}

// The index colours as the common hosts lay them out: 10..249 in 24 columns of hues,
// the even shades above the odd ones, then the nine standard colours and the six greys.
class IndexGrid final : public QWidget {
public:
    explicit IndexGrid(std::function<void(int)> chosen) : chosen_(std::move(chosen)) {
        setObjectName("indexGrid");
        setFixedSize(kHues * kCell + 1, 12 * kCell + 2 * kGap + 1);
        setCursor(Qt::PointingHandCursor);
    }
    void setCurrent(int index) {
        current_ = index;
        update();
    }
    static std::optional<QRect> cell(int index) {
        if (index >= 10 && index <= 249) {
            const int column = index / 10 - 1, shade = index % 10;
            const int row = shade % 2 == 0 ? shade / 2 : 5 + shade / 2;
            return QRect(column * kCell, row * kCell + (row >= 5 ? kGap / 2 : 0), kCell, kCell);
        }
        const int top = 10 * kCell + kGap;
        if (index >= 1 && index <= 9) return QRect((index - 1) * kCell, top, kCell, kCell);
        if (index >= 250 && index <= 255) return QRect((index - 250 + 10) * kCell, top + kCell + kGap, kCell, kCell);
        return std::nullopt;
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        for (int i = 1; i <= 255; ++i) {
            const QRect r = *cell(i);
            painter.fillRect(r.adjusted(1, 1, 0, 0), qcolor(aciRgb(i)));
            painter.setPen(palette().color(QPalette::Mid));
            painter.drawRect(r);
        }
        if (auto r = cell(current_)) {
            painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
            painter.drawRect(r->adjusted(0, 0, 0, 0));
        }
    }
    void mousePressEvent(QMouseEvent* event) override {
        for (int i = 1; i <= 255; ++i)
            if (cell(i)->contains(event->position().toPoint())) {
                chosen_(i);
                return;
            }
    }

private:
    std::function<void(int)> chosen_;
    int current_ = 0;
};

ColorDialog::ColorDialog(const ardo::HostColor& initial, bool allowMetaColors, QWidget* parent)
    : QDialog(parent), allowMetaColors_(allowMetaColors) {
    setObjectName("colorDialog");
    setWindowTitle(tr("Select Color"));
    tabs_ = new QTabWidget(this);
    tabs_->setObjectName("colorTabs");
    tabs_->addTab(makeIndexPage(allowMetaColors), tr("Index Color"));
    tabs_->addTab(makeTrueColorPage(), tr("True Color"));
    tabs_->addTab(makeBookPage(), tr("Color Books"));

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(new QLabel(tr("Color:"), this));
    typed_ = new QLineEdit(this);
    typed_->setObjectName("colorText");
    typed_->setToolTip(tr("A colour number 1-255, a name such as red, BYLAYER, BYBLOCK, r,g,b or a book colour"));
    bottom->addWidget(typed_, 1);
    swatch_ = new QLabel(this);
    swatch_->setFixedSize(48, 22);
    bottom->addWidget(swatch_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    ok_ = buttons->button(QDialogButtonBox::Ok);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_);
    layout->addLayout(bottom);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(typed_, &QLineEdit::editingFinished, this, [this] { takeTyped(); });

    // A meta colour the caller does not allow is not offered as the starting point either.
    const bool meta = initial.method == Method::ByLayer || initial.method == Method::ByBlock;
    setColor(meta && !allowMetaColors ? ardo::HostColor::fromIndex(7) : initial);
    tabs_->setCurrentIndex(color_.method == Method::TrueColor ? 1 : color_.method == Method::ColorBook ? 2 : 0);
}

QWidget* ColorDialog::makeIndexPage(bool allowMetaColors) {
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    grid_ = new IndexGrid([this](int index) { setColor(ardo::HostColor::fromIndex(index)); });
    layout->addWidget(grid_, 0, Qt::AlignHCenter);
    indexInfo_ = new QLabel(page);
    indexInfo_->setObjectName("indexInfo");
    layout->addWidget(indexInfo_);
    auto* meta = new QHBoxLayout;
    auto* byLayer = new QPushButton(tr("ByLayer"), page);
    byLayer->setObjectName("byLayer");
    auto* byBlock = new QPushButton(tr("ByBlock"), page);
    byBlock->setObjectName("byBlock");
    for (QPushButton* b : {byLayer, byBlock}) {
        b->setEnabled(allowMetaColors);
        b->setAutoDefault(false);
        meta->addWidget(b);
    }
    meta->addStretch(1);
    layout->addLayout(meta);
    layout->addStretch(1);
    connect(byLayer, &QPushButton::clicked, this, [this] { setColor(ardo::HostColor::byLayer()); });
    connect(byBlock, &QPushButton::clicked, this, [this] { setColor(ardo::HostColor::byBlock()); });
    return page;
}

QWidget* ColorDialog::makeTrueColorPage() {
    auto* page = new QWidget(this);
    auto* form = new QFormLayout(page);
    auto spin = [page](const char* name, int top) {
        auto* box = new QSpinBox(page);
        box->setObjectName(name);
        box->setRange(0, top);
        return box;
    };
    red_ = spin("red", 255);
    green_ = spin("green", 255);
    blue_ = spin("blue", 255);
    hue_ = spin("hue", 359);
    hue_->setWrapping(true);
    hue_->setSuffix("\u00B0");
    saturation_ = spin("saturation", 100);
    saturation_->setSuffix(" %");
    luminance_ = spin("luminance", 100);
    luminance_->setSuffix(" %");
    form->addRow(new QLabel(tr("<b>RGB</b>"), page));
    form->addRow(tr("Red:"), red_);
    form->addRow(tr("Green:"), green_);
    form->addRow(tr("Blue:"), blue_);
    form->addRow(new QLabel(tr("<b>HSL</b>"), page));
    form->addRow(tr("Hue:"), hue_);
    form->addRow(tr("Saturation:"), saturation_);
    form->addRow(tr("Luminance:"), luminance_);
    for (QSpinBox* box : {red_, green_, blue_})
        connect(box, &QSpinBox::valueChanged, this, [this] { takeRgb(); });
    for (QSpinBox* box : {hue_, saturation_, luminance_})
        connect(box, &QSpinBox::valueChanged, this, [this] { takeHsl(); });
    return page;
}

QWidget* ColorDialog::makeBookPage() {
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    books_ = new QComboBox(page);
    books_->setObjectName("books");
    for (const ColorBook& book : shippedColorBooks()) books_->addItem(book.name);
    bookColors_ = new QListWidget(page);
    bookColors_->setObjectName("bookColors");
    bookColors_->setIconSize(QSize(32, 16));
    layout->addWidget(books_);
    layout->addWidget(bookColors_, 1);
    connect(books_, &QComboBox::currentIndexChanged, this, [this](int book) { showBook(book); });
    connect(bookColors_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (showing_ || row < 0) return;
        const ColorBook& book = shippedColorBooks()[static_cast<std::size_t>(books_->currentIndex())];
        ardo::HostColor chosen;
        if (colorFromColorBookName(book.name, book.colors[static_cast<std::size_t>(row)].name, chosen)) {
            color_ = chosen;
            display(bookColors_);
        }
    });
    connect(bookColors_, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    showBook(0);
    return page;
}

void ColorDialog::showBook(int book) {
    if (book < 0) return;
    const bool was = showing_;
    showing_ = true;
    bookColors_->clear();
    for (const BookColor& c : shippedColorBooks()[static_cast<std::size_t>(book)].colors)
        bookColors_->addItem(new QListWidgetItem(QIcon(swatch(QColor(c.red, c.green, c.blue), QSize(32, 16))), c.name));
    showing_ = was;
}

QWidget* ColorDialog::indexGrid() const { return grid_; }

std::optional<QPoint> ColorDialog::indexCell(int index) const {
    if (auto r = IndexGrid::cell(index)) return r->center();
    return std::nullopt;
}

void ColorDialog::setColor(const ardo::HostColor& color) {
    color_ = color;
    display(nullptr);
}

void ColorDialog::display(const QWidget* from) {
    showing_ = true;
    const QColor rgb = qcolor(rgbOf(color_));
    const bool meta = color_.method == Method::ByLayer || color_.method == Method::ByBlock;
    grid_->setCurrent(isIndex(color_) ? color_.index : 0);
    indexInfo_->setText(isIndex(color_) ? tr("Index color: %1    Red, Green, Blue: %2,%3,%4")
                                               .arg(color_.index)
                                               .arg(rgb.red())
                                               .arg(rgb.green())
                                               .arg(rgb.blue())
                                        : QString());
    if (!meta && from != red_ && from != green_ && from != blue_) {
        red_->setValue(rgb.red());
        green_->setValue(rgb.green());
        blue_->setValue(rgb.blue());
    }
    if (!meta && from != hue_ && from != saturation_ && from != luminance_) {
        // A grey has no hue of its own: the one shown stays.
        if (rgb.hslHue() >= 0) hue_->setValue(rgb.hslHue());
        saturation_->setValue(qRound(rgb.hslSaturationF() * 100));
        luminance_->setValue(qRound(rgb.lightnessF() * 100));
    }
    if (from != bookColors_) {
        int row = -1;
        if (color_.method == Method::ColorBook)
            for (std::size_t b = 0; b < shippedColorBooks().size() && row < 0; ++b) {
                const ColorBook& book = shippedColorBooks()[b];
                if (color_.bookName != book.name) continue;
                books_->setCurrentIndex(static_cast<int>(b));
                for (std::size_t i = 0; i < book.colors.size(); ++i)
                    if (color_.colorName == book.colors[i].name) row = static_cast<int>(i);
            }
        bookColors_->setCurrentRow(row);
        if (row >= 0) bookColors_->scrollToItem(bookColors_->item(row), QAbstractItemView::PositionAtCenter);
    }
    if (from != typed_) typed_->setText(colorText(color_));
    if (meta) {
        swatch_->setPixmap(QPixmap());
        swatch_->setText(color_.method == Method::ByLayer ? tr("ByLayer") : tr("ByBlock"));
    } else {
        swatch_->setPixmap(swatch(rgb, swatch_->size()));
    }
    showing_ = false;
}

void ColorDialog::takeRgb() {
    if (showing_) return;
    color_ = ardo::HostColor::fromRgb(static_cast<std::uint8_t>(red_->value()), static_cast<std::uint8_t>(green_->value()),
                                      static_cast<std::uint8_t>(blue_->value()));
    display(red_);
}

void ColorDialog::takeHsl() {
    if (showing_) return;
    const QColor rgb = QColor::fromHslF(hue_->value() / 360.0, saturation_->value() / 100.0,
                                        luminance_->value() / 100.0);
    color_ = ardo::HostColor::fromRgb(static_cast<std::uint8_t>(rgb.red()), static_cast<std::uint8_t>(rgb.green()),
                                      static_cast<std::uint8_t>(rgb.blue()));
    display(hue_);
}

// Typed text takes what the command line's colour prompts take, and book colour names.
void ColorDialog::takeTyped() {
    const std::string text = typed_->text().toStdString();
    ardo::HostColor chosen;
    const bool known = colorFromAciName(text, ColorNameLanguage::English, chosen) ||
                       colorFromRgbName(text, chosen) || colorFromColorBookName({}, text, chosen);
    const bool meta = chosen.method == Method::ByLayer || chosen.method == Method::ByBlock;
    if (!known || (meta && !allowMetaColors_)) {
        typed_->setText(colorText(color_));   // not a colour here: the chosen one stays
        return;
    }
    color_ = chosen;
    display(typed_);
}

}  // namespace cadhost::gui
