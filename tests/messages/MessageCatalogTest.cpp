#include "messages/CatalogDefaults.h"
#include "messages/MessageCatalog.h"

#include <map>
#include <set>

#include <gtest/gtest.h>

#include <fstream>

#include "support/TempFolder.h"
#include "base/TextFile.h"
#include "module/paths/PathJoin.h"
#include "support/ScriptedHost.h"

namespace ardo {
namespace {

constexpr auto kLastKey = static_cast<MsgKey>(kMessageKeyCount - 1);

class MessageCatalogTest : public ::testing::Test {
protected:
    // A dialog text file with every key (overridden or left out as asked), written in
    // the module's code page with Windows line ends.
    std::string writeDialogFile(const std::map<std::string, std::string>& values = {},
                                const std::set<std::string>& leftOut = {}) {
        std::string text = "[Ardo]\n";
        for (int i = 0; i < kMessageKeyCount; ++i) {
            const std::string key = MessageCatalog::keyName(static_cast<MsgKey>(i));
            if (leftOut.count(key)) continue;
            auto given = values.find(key);
            text += key + "=" + (given != values.end() ? given->second : "Text " + key) + "\n";
        }
        const std::string path = folder / "ardo.dlg";
        EXPECT_TRUE(writeTextFile(path, text, LineEnd::CRLF));
        return path;
    }

    test::ScriptedHost host;
    test::TempFolder folder;
    MessageCatalog catalog;
};

TEST_F(MessageCatalogTest, AllKeysPresentShowNoBoxAndReplaceEveryDefault) {
    const std::string path = writeDialogFile();
    EXPECT_TRUE(catalog.load(path));
    EXPECT_EQ(catalog.missingCount(), 0);
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_EQ(catalog.filePath(), path);
    EXPECT_EQ(catalog.text(MsgKey::TiMsgBoxInfo), "Text TiMsgBoxInfo");
    EXPECT_EQ(catalog.text(kLastKey), "Text RsVersionInfoUpdateButton");
}

TEST_F(MessageCatalogTest, OneMissingKeyIsNamedOnceAndLoadingSucceeds) {
    EXPECT_TRUE(catalog.load(writeDialogFile({}, {"EtNoLayerFile3"})));
    EXPECT_EQ(catalog.missingCount(), 1);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text, "message text not found: key 'EtNoLayerFile3'");
    EXPECT_EQ(catalog.text(MsgKey::EtNoLayerFile3), "unbedingt den ZV·TELVANO-Layerdialog (Befehl Kemb_EditLayers) auf");
}

TEST_F(MessageCatalogTest, ThreeMissingKeysNameTheFirstAndGiveTheCount) {
    // An empty value counts as missing, as a key that is not there does.
    const std::string path = writeDialogFile({{"MnView", ""}}, {"RsBtnHelp", "TxHlHelp"});
    EXPECT_FALSE(catalog.load(path));
    EXPECT_EQ(catalog.missingCount(), 3);
    ASSERT_EQ(host.boxes.size(), 2u);
    EXPECT_EQ(host.boxes[0].text, "message text not found: key 'RsBtnHelp'");
    EXPECT_EQ(host.boxes[1].text, "3 message texts not found\n");
    EXPECT_EQ(catalog.text(MsgKey::MnView), "Ansicht");
    EXPECT_EQ(catalog.text(MsgKey::RsBtnHelp), "Hilfe");
    EXPECT_EQ(catalog.text(MsgKey::RsBtnOk), "Text RsBtnOk");
}

TEST_F(MessageCatalogTest, BoxesAreWarningsWithTheLoadedCaption) {
    catalog.load(writeDialogFile({{"TiMsgBoxWarn", "Achtung"}}, {"RsBtnNo"}));
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].caption, "Achtung");
    EXPECT_EQ(host.boxes[0].icon, MbIcon::Exclamation);
    EXPECT_EQ(host.boxes[0].buttons, MbButtons::Ok);
}

TEST_F(MessageCatalogTest, MissingFileKeepsEveryDefault) {
    EXPECT_FALSE(catalog.load(folder / "nowhere.dlg"));
    EXPECT_EQ(catalog.missingCount(), kMessageKeyCount);
    ASSERT_EQ(host.boxes.size(), 2u);
    EXPECT_EQ(host.boxes[0].text, "message text not found: key 'TiMsgBoxInfo'");
    EXPECT_EQ(host.boxes[1].text, "292 message texts not found\n");
    EXPECT_EQ(catalog.text(MsgKey::EtNoLayerFile1), "Datei nicht gefunden");
}

TEST_F(MessageCatalogTest, EscapesBecomeLineBreaksAndTabsAndTildesVanish) {
    catalog.load(writeDialogFile({{"QuSaveChanges", "Erste\\nZweite"},
                                  {"RsBtnOk", "~OK\\tjetzt~"},
                                  {"TxError", "a\\n\\nb"}}));
    EXPECT_EQ(catalog.text(MsgKey::QuSaveChanges), "Erste\n\rZweite");
    EXPECT_EQ(catalog.text(MsgKey::RsBtnOk), "OK\tjetzt");
    EXPECT_EQ(catalog.text(MsgKey::TxError), "a\n\r\n\rb");
}

TEST_F(MessageCatalogTest, TextsComeThroughTheCodePageAndProfileRules) {
    // Umlauts are stored in the 8-bit code page; blanks around the value and enclosing
    // quotes are dropped as profile strings drop them; keys are found without regard to case.
    std::string text = "[ardo]\nrsbtnclose =  \"Schließen & Übernehmen\"  \n";
    ASSERT_TRUE(writeTextFile(folder / "ardo.dlg", text, LineEnd::CRLF));
    ASSERT_NE(readFileBytes(folder / "ardo.dlg")->find("Schlie\xdf""en"), std::string::npos);
    catalog.load(folder / "ardo.dlg");
    EXPECT_EQ(catalog.text(MsgKey::RsBtnClose), "Schließen & Übernehmen");
    EXPECT_EQ(catalog.missingCount(), kMessageKeyCount - 1);
}

TEST_F(MessageCatalogTest, ASecondLoadStartsTheCountAgainAndKeepsEarlierTexts) {
    catalog.load(writeDialogFile({{"RsBtnYes", "Oui"}}));
    host.clearOutput();
    EXPECT_TRUE(catalog.load(writeDialogFile({}, {"RsBtnYes"})));
    EXPECT_EQ(catalog.missingCount(), 1);
    EXPECT_EQ(catalog.text(MsgKey::RsBtnYes), "Oui");
}

TEST(DialogTextFilePath, LiesBesideTheModuleWithItsBaseName) {
    EXPECT_EQ(withExtension("/opt/ardo/ardo.arx", ".dlg"), "/opt/ardo/ardo.dlg");
    EXPECT_EQ(withExtension("/opt/ardo/ardo.arx", ".msg"), "/opt/ardo/ardo.msg");
    EXPECT_EQ(withExtension("/opt/ardo.v2/ardo", ".cfg"), "/opt/ardo.v2/ardo.cfg");
    EXPECT_EQ(withExtension("ardo.tar.arx", ".bfl"), "ardo.tar.bfl");
}

// Every key and default text of the catalog against one table of all of them, in order.
TEST(CatalogDefaults, EveryKeyAndTextMatchesTheTableInOrder) {
    std::ifstream in(ARDO_TEST_DATA "/messages/catalog-defaults.tsv");
    ASSERT_TRUE(in);
    std::string line;
    int rows = 0;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#') continue;
        const size_t tab1 = line.find('\t'), tab2 = line.find('\t', tab1 + 1);
        ASSERT_NE(tab2, std::string::npos) << line;
        const int number = std::stoi(line.substr(0, tab1));
        const std::string key = line.substr(tab1 + 1, tab2 - tab1 - 1);
        const std::string text = line.substr(tab2 + 1);
        ASSERT_EQ(number, rows + 1) << line;
        ASSERT_LT(rows, kMessageKeyCount) << "more rows in the table than keys";
        const CatalogRow& row = kCatalogRows[rows];
        EXPECT_EQ(row.key, key) << "row " << number;
        if (text.size() >= 2 && text.front() == '"' && text.back() == '"')
            EXPECT_EQ(row.defaultText, text.substr(1, text.size() - 2)) << key;
        else
            EXPECT_STRNE(row.defaultText, "") << key;
        EXPECT_EQ(MessageCatalog::defaultText(MsgKey(rows)), std::string(row.defaultText)) << key;
        ++rows;
    }
    EXPECT_EQ(rows, kMessageKeyCount);
    // The keys the code names stand where the table has them.
    static_assert(int(MsgKey::TiMsgBoxInfo) == 0);
    static_assert(int(MsgKey::RsVersionInfoUpdateButton) == kMessageKeyCount - 1);
    EXPECT_STREQ(kCatalogRows[int(MsgKey::EtNoLayerFile1)].key, "EtNoLayerFile1");
    EXPECT_STREQ(kCatalogRows[int(MsgKey::EtCantWriteObjectFile2)].key, "EtCantWriteObjectFile2");
    EXPECT_STREQ(kCatalogRows[int(MsgKey::QuChangeLayerName3)].key, "QuChangeLayerName3");
}

}  // namespace
}  // namespace ardo
