#include "messages/MessageFile.h"

#include <gtest/gtest.h>

#include "boundary/ResBuf.h"
#include "support/ScriptedHost.h"

namespace ardo {
namespace {

class MessageFileTest : public ::testing::Test {
protected:
    void SetUp() override { attach(ARDO_TEST_DATA "/messages/ardo.msg"); }
    void TearDown() override { file.release(); }

    void attach(const std::string& path) {
        auto store = SettingsStore::load(path);
        ASSERT_TRUE(store) << path;
        file.attach(std::move(store));
    }

    test::ScriptedHost host;
    MessageFile& file = MessageFile::instance();
};

TEST_F(MessageFileTest, FoundTextTurnsBackslashNIntoALineFeedOnlyAndKeepsTildes) {
    std::string text;
    EXPECT_EQ(file.text("Kabel", "Hinweis", text), RTNORM);
    EXPECT_EQ(text, "Erste Zeile\nZweite Zeile");
    EXPECT_EQ(file.text("Kabel", "Titel"), "Kabel~plan");
    EXPECT_EQ(file.text("kabel", "größe"), "Überlänge");
    EXPECT_TRUE(host.printed.empty());
}

TEST_F(MessageFileTest, MissingSectionIsSilent) {
    std::string text = "old";
    EXPECT_EQ(file.text("Gibt es nicht", "Titel", text), RTERROR);
    EXPECT_EQ(text, "");
    EXPECT_TRUE(host.printed.empty());
    EXPECT_TRUE(host.alerts.empty());
}

TEST_F(MessageFileTest, MissingOrEmptyKeyPrintsMsgNotFoundWithKeyAndSection) {
    std::string text;
    EXPECT_EQ(file.text("Kabel", "Fehlt", text), RTERROR);
    EXPECT_EQ(host.printed, "\nText 'Fehlt' in Abschnitt 'Kabel' nicht gefunden");
    host.clearOutput();
    EXPECT_EQ(file.text("Kabel", "Leer", text), RTERROR);
    EXPECT_EQ(text, "");
    EXPECT_EQ(host.printed, "\nText 'Leer' in Abschnitt 'Kabel' nicht gefunden");
}

TEST_F(MessageFileTest, WithoutMsgNotFoundItselfNoMessagesFoundIsPrinted) {
    auto store = std::make_unique<SettingsStore>();
    store->appendLine("[LCINIT]");
    store->appendLine("BadNumOfArg=zu wenig");
    file.attach(std::move(store));
    EXPECT_EQ(file.text("LCINIT", "Fehlt"), "");
    EXPECT_EQ(host.printed, "\nno messages found");
    host.clearOutput();
    EXPECT_EQ(file.text("LCINIT", "MsgNotFound"), "");
    EXPECT_EQ(host.printed, "\nno messages found");
}

TEST_F(MessageFileTest, SameSectionNameReusesTheRememberedSectionAnyOtherSearchesFromTheTop) {
    EXPECT_EQ(file.text("Strassen", "Titel"), "Straßenplan");
    // A section of the same name now stands first; only a fresh search can find it.
    auto& records = file.store()->records();
    SettingsRecord header;
    header.section = "Strassen";
    SettingsRecord entry;
    entry.key = "Titel";
    entry.value = "davor";
    records.push_front(entry);
    records.push_front(header);

    EXPECT_EQ(file.text("Strassen", "Titel"), "Straßenplan");
    EXPECT_EQ(file.text("STRASSEN", "Titel"), "davor");
    // The remembered section is now the first one; an exact repeat stays there.
    EXPECT_EQ(file.text("Strassen", "Titel"), "davor");
}

TEST_F(MessageFileTest, AMissingSectionForgetsTheRememberedOne) {
    EXPECT_EQ(file.text("Strassen", "Titel"), "Straßenplan");
    EXPECT_EQ(file.findSection("Fehlt"), file.store()->end());
    SettingsRecord header;
    header.section = "Strassen";
    file.store()->records().push_front(header);
    EXPECT_EQ(file.findSection("Strassen"), file.store()->records().begin());
}

TEST_F(MessageFileTest, NoFileMeansEveryLookupFailsQuietly) {
    file.release();
    std::string text;
    EXPECT_EQ(file.text("LCINIT", "BadNumOfArg", text), RTERROR);
    EXPECT_TRUE(host.printed.empty());
}

}  // namespace
}  // namespace ardo
