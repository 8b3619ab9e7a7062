#include "messages/MessageFunctions.h"

#include <gtest/gtest.h>

#include "messages/MessageFile.h"
#include "support/ScriptedHost.h"

namespace ardo {
namespace {

using handlers::kemb_text;
using handlers::kemb_textliste;

const ResBufChain kNil{ResBuf::marker(RTNIL)};

ResBuf str(const char* s) { return ResBuf::str(s); }

class MessageFunctionsTest : public ::testing::Test {
protected:
    void SetUp() override { file.attach(SettingsStore::load(ARDO_TEST_DATA "/messages/ardo.msg")); }
    void TearDown() override { file.release(); }

    test::ScriptedHost host;
    MessageFile& file = MessageFile::instance();
};

TEST_F(MessageFunctionsTest, TextGivesTheKeysTextWithLineFeeds) {
    EXPECT_EQ(host.call(kemb_text, {str("ZVKABEL"), str("Kabel"), str("Hinweis")}), RSRSLT);
    EXPECT_EQ(host.result, ResBufChain{str("Erste Zeile\nZweite Zeile")});
    EXPECT_TRUE(host.alerts.empty());
    EXPECT_TRUE(host.printed.empty());
}

TEST_F(MessageFunctionsTest, TextCountsBeforeItChecksTypes) {
    host.call(kemb_text, {});
    EXPECT_EQ(host.printed, "\nfalsche Anzahl Argumente");
    host.clearOutput();
    host.call(kemb_text, {ResBuf::shortInt(1), str("Kabel")});
    EXPECT_EQ(host.printed, "\nfalsche Anzahl Argumente");
    EXPECT_EQ(host.result, kNil);
    host.clearOutput();
    host.call(kemb_text, {str("ZVKABEL"), ResBuf::shortInt(1), ResBuf::shortInt(2)});
    EXPECT_EQ(host.printed, "\nfalscher Argumenttyp");
    EXPECT_EQ(host.result, kNil);
}

TEST_F(MessageFunctionsTest, TextAlertsMsgNotFoundForAMissingKeyOrSection) {
    host.call(kemb_text, {str("ZVKABEL"), str("Kabel"), str("Hinweis")});
    host.call(kemb_text, {str("ZVKABEL"), str("Kabel"), str("Fehlt")});
    EXPECT_EQ(host.result, kNil);
    ASSERT_EQ(host.alerts.size(), 1u);
    EXPECT_EQ(host.alerts[0], "\nText 'Fehlt' in Abschnitt 'Kabel' nicht gefunden");
    EXPECT_TRUE(host.printed.empty());

    host.call(kemb_text, {str("ZVKABEL"), str("Nirgends"), str("Titel")});
    EXPECT_EQ(host.result, kNil);
    ASSERT_EQ(host.alerts.size(), 2u);
    EXPECT_EQ(host.alerts[1], "\nText 'Titel' in Abschnitt 'Nirgends' nicht gefunden");
}

TEST_F(MessageFunctionsTest, TextListGivesKeyAndTextPairsInFileOrder) {
    host.call(kemb_textliste, {str("ZVKABEL"), str("KABEL"), str("überzählig")});
    const ResBuf lb = ResBuf::marker(RTLB), le = ResBuf::marker(RTLE);
    const ResBufChain expected{lb,
                               lb, str("Titel"), str("Kabel~plan"), le,
                               lb, str("Hinweis"), str("Erste Zeile\nZweite Zeile"), le,
                               lb, str("Größe"), str("Überlänge"), le,
                               lb, str("Leer"), str(""), le,
                               le};
    EXPECT_EQ(host.result, expected);
    EXPECT_TRUE(host.alerts.empty());
}

TEST_F(MessageFunctionsTest, TextListOfASingleEntryIsStillAListOfLists) {
    host.call(kemb_textliste, {str("ZVSTR"), str("Strassen")});
    const ResBuf lb = ResBuf::marker(RTLB), le = ResBuf::marker(RTLE);
    EXPECT_EQ(host.result, (ResBufChain{lb, lb, str("Titel"), str("Straßenplan"), le, le}));
}

TEST_F(MessageFunctionsTest, TextListOfAMissingSectionAlertsNamingTheCallingCommand) {
    host.call(kemb_textliste, {str("ZVKABEL"), str("Nirgends")});
    EXPECT_EQ(host.result, kNil);
    ASSERT_EQ(host.alerts.size(), 1u);
    EXPECT_EQ(host.alerts[0], "Textliste für 'ZVKABEL' nicht gefunden");
}

TEST_F(MessageFunctionsTest, TextListOfASectionWithoutEntriesIsNilWithoutAMessage) {
    host.call(kemb_textliste, {str("ZVKABEL"), str("Leerer Abschnitt")});
    EXPECT_EQ(host.result, kNil);
    EXPECT_TRUE(host.alerts.empty());
    EXPECT_TRUE(host.printed.empty());
}

// A key line whose key is only blanks (" = text") is an entry without a key: the list ends
// before it, also when it stands first.
TEST_F(MessageFunctionsTest, TextListStopsAtAnEntryWithoutKey) {
    auto store = std::make_unique<SettingsStore>();
    for (const char* line : {"[Mitte]", "Eins=1", " = ohne Schlüssel", "Zwei=2", "[Anfang]", "  =ohne", "Drei=3"})
        store->appendLine(line);
    ASSERT_FALSE(store->records().back().isSection());
    file.attach(std::move(store));
    host.call(kemb_textliste, {str("ZVSTR"), str("Mitte")});
    const ResBuf lb = ResBuf::marker(RTLB), le = ResBuf::marker(RTLE);
    EXPECT_EQ(host.result, (ResBufChain{lb, lb, str("Eins"), str("1"), le, le}));
    host.call(kemb_textliste, {str("ZVSTR"), str("Anfang")});
    EXPECT_EQ(host.result, kNil);
    EXPECT_TRUE(host.alerts.empty());
}

TEST_F(MessageFunctionsTest, TextListChecksCountThenTypes) {
    host.call(kemb_textliste, {str("ZVKABEL")});
    EXPECT_EQ(host.printed, "\nfalsche Anzahl Argumente");
    host.clearOutput();
    host.call(kemb_textliste, {ResBuf::realNum(1.0), ResBuf::shortInt(2)});
    EXPECT_EQ(host.printed, "\nfalscher Argumenttyp");
    EXPECT_EQ(host.result, kNil);
}

}  // namespace
}  // namespace ardo
