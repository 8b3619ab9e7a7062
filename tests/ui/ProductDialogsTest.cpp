#include "about/ProductDialogs.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include "messages/MessageCatalog.h"
#include "ui/CTransparentStatic.h"
#include "ui/QtTestApplication.h"

namespace ardo {
namespace {

ProductInfo sample() {
    ProductInfo i;
    i.productName = "ardo";
    i.productText = "Zentrale Layersteuerung";
    i.companyName = "ardo-Entwickler";
    i.version = "1.0.0";
    i.build = "17";
    i.servicePack = "2";
    i.moduleVersion = "0.9.3";
    i.hostProgram = "ardo-cad";
    i.hostVersion = "18.0";
    i.files = {{"Modul", "/opt/ardo/ardo.arx", true}, {"Hilfe", "/opt/ardo/help/ArdoArx.chm", false}};
    return i;
}

QStringList labelTexts(QWidget& w) {
    QStringList texts;
    for (auto* l : w.findChildren<CTransparentStatic*>()) texts << l->text();
    return texts;
}

TEST(ProductDialogs, VersionWindowShowsVersionsOnTheColouredPanelAndCopiesThem) {
    const ProductInfo info = sample();
    cDlgVersionInfo dialog(info, nullptr);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    const QStringList texts = labelTexts(dialog);
    for (const char* want : {"1.0.0", "17", "2", "ardo-Entwickler", "0.9.3", "ardo-cad 18.0"})
        EXPECT_TRUE(texts.contains(want)) << want << " missing in " << texts.join('|').toStdString();
    EXPECT_EQ(dialog.windowTitle().toStdString(), catalogText(MsgKey::RsVersionInfoTitle));
    // The catalog's colours: grey panel, blue labels.
    const QImage grab = dialog.grab().toImage();
    test::saveImage(grab, "version-info");
    EXPECT_EQ(grab.pixelColor(2, grab.height() / 2), QColor(192, 192, 192));
    for (auto* l : dialog.findChildren<CTransparentStatic*>()) EXPECT_EQ(l->textColor(), 0xFF0000u);

    QPushButton* copy = nullptr;
    for (auto* b : dialog.findChildren<QPushButton*>())
        if (b->text().toStdString() == catalogText(MsgKey::RsBtnCopyToClipbord)) copy = b;
    ASSERT_NE(copy, nullptr);
    copy->click();
    const QString copied = QApplication::clipboard()->text();
    EXPECT_TRUE(copied.contains("1.0.0")) << copied.toStdString();
    EXPECT_TRUE(copied.contains("/opt/ardo/help/ArdoArx.chm")) << copied.toStdString();
}

TEST(ProductDialogs, InfoWindowListsTheFilesAndMarksMissingOnes) {
    const ProductInfo info = sample();
    cDlgInfo dialog(info, nullptr);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    ASSERT_EQ(dialog.files()->topLevelItemCount(), 2);
    EXPECT_EQ(dialog.files()->topLevelItem(0)->text(1), "/opt/ardo/ardo.arx");
    EXPECT_TRUE(dialog.files()->topLevelItem(1)->text(1).startsWith("/opt/ardo/help/ArdoArx.chm "));
    EXPECT_TRUE(labelTexts(dialog).contains("0.9.3"));
    test::saveGrab(dialog, "info");
}

TEST(ProductDialogs, AboutBoxNamesProductVersionAndBuild) {
    const ProductInfo info = sample();
    cDlgAbout dialog(info, nullptr);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    const QStringList texts = labelTexts(dialog);
    EXPECT_TRUE(texts.contains("ardo"));
    EXPECT_TRUE(texts.contains("1.0.0"));
    EXPECT_TRUE(texts.contains("17"));
    EXPECT_EQ(dialog.windowTitle().toStdString(), catalogText(MsgKey::RsAdd2AboutTitle));
    test::saveGrab(dialog, "about");
}

}  // namespace
}  // namespace ardo
