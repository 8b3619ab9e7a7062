#include "about/ProductDialogs.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "messages/MessageCatalog.h"
#include "messages/MessageFile.h"
#include "module/HostBinding.h"
#include "module/PathInfo.h"
#include "settings/ModuleFiles.h"
#include "ui/CTransparentStatic.h"
#include "ui/QtApplication.h"

namespace ardo {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }
QString catalog(MsgKey key) { return q(catalogText(key)); }
QString info(const char* key) { return q(MessageFile::instance().text("INFO", key)); }

// "r,g,b" as the catalog gives colours, as 0x00BBGGRR; the fallback when it is not one.
std::uint32_t colorRef(const std::string& text, std::uint32_t fallback) {
    const QStringList parts = q(text).split(',');
    if (parts.size() != 3) return fallback;
    std::uint32_t rgb[3];
    for (int i = 0; i < 3; ++i) {
        bool ok = false;
        const uint v = parts[i].trimmed().toUInt(&ok);
        if (!ok || v > 255) return fallback;
        rgb[i] = v;
    }
    return rgb[0] | (rgb[1] << 8) | (rgb[2] << 16);
}

QColor qColor(std::uint32_t ref) { return QColor(ref & 0xFF, (ref >> 8) & 0xFF, (ref >> 16) & 0xFF); }

// Label and value rows; empty values are left out.
void addRows(QGridLayout* grid, const std::vector<std::pair<QString, std::string>>& rows, std::uint32_t color,
             QWidget* parent) {
    for (const auto& [label, value] : rows) {
        if (value.empty()) continue;
        const int row = grid->rowCount();
        auto* name = new CTransparentStatic(label, parent, kSsNoPrefix);
        auto* text = new CTransparentStatic(q(value), parent, kSsNoPrefix | kSsEndEllipsis);
        name->setTextColor(color);
        text->setTextColor(color);
        grid->addWidget(name, row, 0);
        grid->addWidget(text, row, 1);
    }
    grid->setColumnStretch(1, 1);
}

QString hostLine(const ProductInfo& i) { return q(i.hostProgram + (i.hostVersion.empty() ? "" : " " + i.hostVersion)); }

QPixmap productIcon() {
    const std::string icon = configurationValue("PRODUCTINFO", "ProductIcon");
    if (icon.empty()) return {};
    return QPixmap(q(moduleFiles().programFolder + icon));
}

}  // namespace

cDlgAbout::cDlgAbout(const ProductInfo& i, QWidget* parent) : QDialog(parent), info_(i) {
    setWindowTitle(catalog(MsgKey::RsAdd2AboutTitle));
    auto* layout = new QHBoxLayout(this);
    if (const QPixmap icon = productIcon(); !icon.isNull()) {
        auto* picture = new QLabel(this);
        picture->setPixmap(icon.scaled(64, 64, Qt::KeepAspectRatio, Qt::SmoothTransformation));
        picture->setAlignment(Qt::AlignTop);
        layout->addWidget(picture);
    }
    auto* column = new QVBoxLayout;
    layout->addLayout(column, 1);
    auto* name = new CTransparentStatic(q(i.productName), this, kSsNoPrefix);
    QFont big = name->font();
    big.setPointSizeF(big.pointSizeF() * 1.6);
    big.setBold(true);
    name->setFont(big);
    column->addWidget(name);
    column->addWidget(new CTransparentStatic(q(i.productText), this, kSsNoPrefix));
    auto* grid = new QGridLayout;
    addRows(grid, {{catalog(MsgKey::RsVersionText1), i.version}, {catalog(MsgKey::RsVersionText2), i.build},
                   {catalog(MsgKey::RsVersionText3), i.rights.empty() ? i.companyName : i.rights}},
            0, this);
    column->addLayout(grid);
    auto* buttons = new QDialogButtonBox(this);
    QPushButton* more = buttons->addButton(catalog(MsgKey::MnHelpInfo), QDialogButtonBox::ActionRole);
    buttons->addButton(catalog(MsgKey::RsBtnOk), QDialogButtonBox::AcceptRole)->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(more, &QPushButton::clicked, this, [this] { cDlgInfo(info_, this).exec(); });
    column->addStretch(1);
    column->addWidget(buttons);
    // Wide enough for its title beside the window manager's buttons, and not resizable.
    setFixedSize(std::max(sizeHint().width(), fontMetrics().horizontalAdvance(windowTitle()) + 160),
                 sizeHint().height());
}

cDlgInfo::cDlgInfo(const ProductInfo& i, QWidget* parent) : QDialog(parent) {
    setWindowTitle(info("InfoTitel") + " - " + q(i.productName));
    auto* layout = new QVBoxLayout(this);
    auto* grid = new QGridLayout;
    addRows(grid, {{catalog(MsgKey::RsVersionText1), i.version}, {info("ModulVersion"), i.moduleVersion},
                   {info("Programm"), hostLine(i).toStdString()}},
            0, this);
    layout->addLayout(grid);
    layout->addWidget(new QLabel(info("Dateien"), this));
    files_ = new QTreeWidget(this);
    files_->setRootIsDecorated(false);
    files_->setHeaderLabels({info("Datei"), info("Pfad")});
    for (const auto& f : i.files) {
        auto* item = new QTreeWidgetItem(files_, {q(f.role), q(f.path) + (f.present ? "" : " " + info("Fehlt"))});
        if (!f.present) item->setForeground(1, palette().color(QPalette::Disabled, QPalette::Text));
    }
    files_->resizeColumnToContents(0);
    layout->addWidget(files_, 1);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(catalog(MsgKey::RsBtnClose), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    resize(640, 360);
}

cDlgVersionInfo::cDlgVersionInfo(const ProductInfo& i, QWidget* parent) : QDialog(parent) {
    setWindowTitle(catalog(MsgKey::RsVersionInfoTitle));
    const std::uint32_t background = colorRef(catalogText(MsgKey::SyVersionInfoBkgndColor), 0xC0C0C0);
    const std::uint32_t textColor = colorRef(catalogText(MsgKey::SyVersionInfoTextColor), 0xFF0000);
    setAutoFillBackground(true);
    QPalette panel = palette();
    panel.setColor(QPalette::Window, qColor(background));
    setPalette(panel);

    auto* layout = new QVBoxLayout(this);
    // The catalog names the picture below the program folder, Windows-style.
    std::string picturePath = catalogText(MsgKey::SyVersionInfoBitmap);
    std::replace(picturePath.begin(), picturePath.end(), '\\', '/');
    while (picturePath.starts_with("/")) picturePath.erase(0, 1);
    if (const QPixmap picture(q(moduleFiles().programFolder + picturePath)); !picture.isNull()) {
        auto* top = new QLabel(this);
        top->setPixmap(picture);
        layout->addWidget(top);
    }
    auto* name = new CTransparentStatic(q(i.productName + (i.productText.empty() ? "" : " - " + i.productText)),
                                        this, kSsNoPrefix | kSsCenter);
    name->setTextColor(textColor);
    QFont big = name->font();
    big.setPointSizeF(big.pointSizeF() * 1.4);
    big.setBold(true);
    name->setFont(big);
    name->setMinimumHeight(QFontMetrics(big).height() + 4);
    layout->addWidget(name);
    auto* grid = new QGridLayout;
    addRows(grid,
            {{catalog(MsgKey::RsVersionText1), i.version},
             {catalog(MsgKey::RsVersionText2), i.build},
             {catalog(MsgKey::RsVersionInfoServicePack), i.servicePack},
             {catalog(MsgKey::RsVersionInfoCompany), i.companyName},
             {info("ModulVersion"), i.moduleVersion},
             {info("Programm"), hostLine(i).toStdString()}},
            textColor, this);
    layout->addLayout(grid);
    layout->addStretch(1);
    auto* buttons = new QDialogButtonBox(this);
    QPushButton* copy = buttons->addButton(catalog(MsgKey::RsBtnCopyToClipbord), QDialogButtonBox::ActionRole);
    buttons->addButton(catalog(MsgKey::RsBtnClose), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    const QString text = q(productInfoText(i)).trimmed();
    connect(copy, &QPushButton::clicked, this, [text] { QApplication::clipboard()->setText(text); });
    layout->addWidget(buttons);
    resize(460, 300);
}

bool openProductWindow(ProductWindow which, const ProductInfo& i) {
    if (!ensureApplication()) return false;
    QWidget* parent = hasHost() ? host().mainWindow() : nullptr;
    switch (which) {
        case ProductWindow::About: cDlgAbout(i, parent).exec(); break;
        case ProductWindow::Info: cDlgInfo(i, parent).exec(); break;
        case ProductWindow::Version: cDlgVersionInfo(i, parent).exec(); break;
    }
    return true;
}

}  // namespace ardo
