// The pieces of a run that are text: similarity hints, mapping files and patterns, and the
// record a worker hands to the parent.
#include <gtest/gtest.h>

#include "standard/AuditRecord.h"
#include "standard/NearestKey.h"
#include "standard/RenameMap.h"
#include "support/TempFolder.h"

namespace ardo::test {

TEST(NameSimilarity, IgnoresCaseAndWordOrderButNotLetters) {
    EXPECT_DOUBLE_EQ(nameSimilarity("A-Wand", "a-wAND"), 1.0);
    EXPECT_DOUBLE_EQ(nameSimilarity("Mäuer", "MÄUER"), 1.0);
    EXPECT_DOUBLE_EQ(nameSimilarity("abc", "xyz"), 0.0);
    EXPECT_DOUBLE_EQ(nameSimilarity("", "abc"), 0.0);
    EXPECT_GT(nameSimilarity("Wand-alt", "alt-Wand"), 0.7);
    // Repeated letter pairs count as often as both names hold them.
    EXPECT_LT(nameSimilarity("aaaa", "aa"), 1.0);
}

TEST(LayerPattern, StarAndQuestionMarkWithoutRegardToCase) {
    EXPECT_TRUE(matchesLayerPattern("bestand-*", "Bestand-Öffnungen"));
    EXPECT_TRUE(matchesLayerPattern("*-ALT", "Bemaßung-alt"));
    EXPECT_TRUE(matchesLayerPattern("w?nd", "WAND"));
    EXPECT_TRUE(matchesLayerPattern("*", ""));
    EXPECT_TRUE(matchesLayerPattern("a*b*c", "aXXbYbZc"));
    EXPECT_FALSE(matchesLayerPattern("a*b*c", "aXXbYbZ"));
    EXPECT_FALSE(matchesLayerPattern("w?nd", "Wnd"));
    EXPECT_FALSE(matchesLayerPattern("Wand", "Wand2"));
    EXPECT_TRUE(matchesLayerPattern("mäuer", "MÄUER"));
}

TEST(RenameMapFile, RulesInOrderWithTheirSeparators) {
    const auto map = parseRenameMap("# comment\n\n  old* \t KEY1 \r\nx;K2\ny,K3\n", "m.txt");
    ASSERT_TRUE(std::holds_alternative<RenameMap>(map));
    const RenameMap& rules = std::get<RenameMap>(map);
    ASSERT_EQ(rules.size(), 3u);
    EXPECT_EQ(rules[0].pattern, "old*");
    EXPECT_EQ(rules[0].key, "KEY1");
    EXPECT_EQ(rules[1].key, "K2");
    EXPECT_EQ(rules[2].key, "K3");
}

TEST(RenameMapFile, BadLinesNameFileAndLine) {
    EXPECT_EQ(std::get<std::string>(parseRenameMap("a;K\nonly-one-column\n", "m.txt")),
              "\"m.txt\" line 2: a rule is an old layer name pattern and a key, separated by a tab, \";\" or \",\"");
    EXPECT_EQ(std::get<std::string>(parseRenameMap("a;\n", "m.txt")), "\"m.txt\" line 1: the key is missing");
    EXPECT_NE(std::get<std::string>(readRenameMap("/no/such/map.txt")).find("cannot read"), std::string::npos);
}

TEST(RenameMapFile, ReadsUtf8AndTheCodePage) {
    TempFolder folder;
    const auto utf8 = readRenameMap(folder.write("u.txt", "\xEF\xBB\xBF" "Bema\xC3\x9F" "ung*;K1\n"));
    EXPECT_EQ(std::get<RenameMap>(utf8)[0].pattern, "Bemaßung*");
    const auto latin = readRenameMap(folder.write("l.txt", "Bema\xDF" "ung*;K1\n"));
    EXPECT_EQ(std::get<RenameMap>(latin)[0].pattern, "Bemaßung*");
}

TEST(AuditRecordLines, RoundTripKeepsTabsLineFeedsAndBackslashes) {
    DrawingAudit audit;
    audit.deviations.push_back({"K\t1", "Wand\\alt", LayerProperty::PlotStyle, "a\nb", "", "#ffffff", ""});
    audit.deviations.push_back({"K2", "Dach", LayerProperty::Colour, "1", "RGB:1,2,3", "#ff0000", "#010203"});
    audit.unnamed.push_back({"Bestand", "", ""});
    audit.missing.push_back({"K3", "Mäuer"});
    audit.changes.push_back({"Dach", "colour", "RGB:1,2,3", "1", "refused\r"});
    const std::string record = writeAuditRecord(audit);
    EXPECT_EQ(std::count(record.begin(), record.end(), '\n'), 5);
    EXPECT_EQ(readAuditRecord(record), audit);
    EXPECT_EQ(readAuditRecord(""), DrawingAudit{});
}

TEST(AuditRecordLines, ForeignLinesAreRefused) {
    EXPECT_FALSE(readAuditRecord("deviation\tK\tL\tcolour\n"));
    EXPECT_FALSE(readAuditRecord("deviation\tK\tL\tshade\t1\t2\t\t\n"));
    EXPECT_FALSE(readAuditRecord("hello\n"));
}

}  // namespace ardo::test
