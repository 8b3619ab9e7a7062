#include <gtest/gtest.h>

#include <regex>
#include <sstream>

#include "standard/AuditReport.h"
#include "standard/RenameMap.h"

namespace ardo::test {

namespace {

size_t count(const std::string& text, const std::string& part) {
    size_t n = 0;
    for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++n;
    return n;
}

// Two drawings deviating on the same key, one meeting the standard, one unreadable.
AuditRun sampleRun() {
    AuditRun run;
    DrawingResult a{"plans/a <1>.dxf", {}, {}, false};
    a.audit.deviations.push_back({"A_WAND", "A-Wand", LayerProperty::Colour, "7", "1", "#ffffff", "#ff0000"});
    a.audit.deviations.push_back({"A_WAND", "A-Wand", LayerProperty::Lineweight, "0.50 mm", "0.25 mm", "", ""});
    a.audit.unnamed.push_back({"Bestand, alt", "A_BESTAND", "A-Bestand \"alt\""});
    a.audit.missing.push_back({"A_DACH", "A-Dach"});
    DrawingResult b{"plans/b.dxf", {}, {}, false};
    b.audit.deviations.push_back({"A_WAND", "a-wand", LayerProperty::Linetype, "DASHED", "CONTINUOUS", "", ""});
    DrawingResult c{"plans/c.dxf", {}, {}, false};
    DrawingResult d{"plans/d.dxf", {}, "Line 7: not a DXF file", false};
    run.drawings = {a, b, c, d};
    run.seconds = 2;
    run.workers = 2;
    return run;
}

}  // namespace

TEST(AuditReports, ExitStatusTellsDeviationsAndFailures) {
    AuditRun run = sampleRun();
    EXPECT_EQ(runExitStatus(run), 3);
    run.drawings.pop_back();
    EXPECT_EQ(runExitStatus(run), 1);
    run.drawings = {run.drawings[2]};
    EXPECT_EQ(runExitStatus(run), 0);
}

TEST(AuditReports, AppliedChangesResolveTheirDeviationsOnlyOutsideADryRun) {
    AuditRun run = sampleRun();
    run.drawings.resize(2);
    run.apply = true;
    run.drawings[1].audit.changes.push_back({"a-wand", "linetype", "CONTINUOUS", "DASHED", ""});
    EXPECT_EQ(remainingDeviations(run, run.drawings[1]), 0u);
    run.drawings[0].audit.changes.push_back({"A-Wand", "colour", "1", "7", ""});
    run.drawings[0].audit.changes.push_back({"A-Wand", "lineweight", "0.25 mm", "0.50 mm", "refused"});
    EXPECT_EQ(remainingDeviations(run, run.drawings[0]), 2u);   // the lineweight and the unnamed layer
    run.dryRun = true;
    EXPECT_EQ(remainingDeviations(run, run.drawings[1]), 1u);
}

TEST(AuditReports, ConsoleSummaryCountsAndTimes) {
    const std::string text = consoleSummary(sampleRun());
    EXPECT_NE(text.find("plans/a <1>.dxf: 2 deviations, 1 layer without a key (1 key without a layer)\n"), std::string::npos);
    EXPECT_NE(text.find("  A-Wand [A_WAND] colour: 1, standard 7\n"), std::string::npos);
    EXPECT_NE(text.find("  Bestand, alt: no key names it; nearest A_BESTAND"), std::string::npos);
    EXPECT_NE(text.find("plans/c.dxf: meets the standard"), std::string::npos);
    EXPECT_NE(text.find("plans/d.dxf: Line 7: not a DXF file\n"), std::string::npos);
    EXPECT_NE(text.find("4 drawings: 1 meets the standard, 2 deviate, 1 failed\n"), std::string::npos);
    EXPECT_NE(text.find("2.00 s, 2.0 drawings/s with 2 workers\n"), std::string::npos);
}

// Counts of one take the singular, in the summary line of the console and of the page alike.
TEST(AuditReports, CountsOfOneAreSingular) {
    AuditRun one = sampleRun();
    one.drawings = {one.drawings[1]};   // one drawing with one deviation
    EXPECT_EQ(drawingCounts(one), "1 drawing: 0 meet the standard, 1 deviates, 0 failed");
    EXPECT_NE(consoleSummary(one).find("\n1 drawing: 0 meet the standard, 1 deviates, 0 failed\n"), std::string::npos);
    const std::string html = htmlReport(one);
    EXPECT_NE(html.find("<div class=\"meta\">1 drawing: 0 meet the standard, 1 deviates, 0 failed</div>"), std::string::npos);
    EXPECT_EQ(html.find("1 drawings"), std::string::npos);
    EXPECT_NE(html.find(">1 finding<"), std::string::npos);

    AuditRun meeting = sampleRun();
    meeting.drawings = {meeting.drawings[2], meeting.drawings[2]};
    EXPECT_EQ(drawingCounts(meeting), "2 drawings: 2 meet the standard, 0 deviate, 0 failed");
    meeting.drawings.pop_back();
    EXPECT_EQ(drawingCounts(meeting), "1 drawing: 1 meets the standard, 0 deviate, 0 failed");
}

TEST(AuditReports, CsvHasOneQuotedRowPerFinding) {
    const std::string csv = csvReport(sampleRun());
    ASSERT_TRUE(csv.starts_with("\xEF\xBB\xBF" "drawing,finding,layer,key,property,"));
    EXPECT_EQ(count(csv, "\r\n"), 1u + 2 + 1 + 1 + 1 + 1);   // header, deviations, no key, missing, b, d
    EXPECT_NE(csv.find("plans/a <1>.dxf,deviation,A-Wand,A_WAND,colour,7,1,,,,\r\n"), std::string::npos);
    EXPECT_NE(csv.find(",no key,\"Bestand, alt\",,,,,A_BESTAND,\"A-Bestand \"\"alt\"\"\",,\r\n"), std::string::npos);
    EXPECT_NE(csv.find("plans/d.dxf,failed,,,,,,,,,Line 7: not a DXF file\r\n"), std::string::npos);
    // Every row has the header's number of fields outside quotes.
    std::istringstream rows(csv);
    std::string row;
    while (std::getline(rows, row)) {
        size_t commas = 0;
        bool quoted = false;
        for (char ch : row) {
            if (ch == '"') quoted = !quoted;
            if (ch == ',' && !quoted) ++commas;
        }
        EXPECT_EQ(commas, 10u) << row;
    }
}

TEST(AuditReports, HtmlIsOneSelfContainedPage) {
    const std::string html = htmlReport(sampleRun());
    EXPECT_TRUE(html.starts_with("<!DOCTYPE html>"));
    EXPECT_EQ(count(html, "<script"), 1u);
    EXPECT_EQ(count(html, "src="), 0u);
    EXPECT_EQ(count(html, "<link"), 0u);
    EXPECT_EQ(count(html, "http"), 0u);
    // A heading per drawing, texts escaped.
    EXPECT_EQ(count(html, "<h2 id=\"d"), 4u);
    EXPECT_NE(html.find("plans/a &lt;1&gt;.dxf"), std::string::npos);
    EXPECT_EQ(html.find("a <1>"), std::string::npos);
    EXPECT_NE(html.find("A-Bestand &quot;alt&quot;"), std::string::npos);
    // Colour swatches with both sides' colours.
    EXPECT_NE(html.find("<span class=\"sw\" style=\"background:#ffffff\"></span>7"), std::string::npos);
    EXPECT_NE(html.find("<span class=\"sw\" style=\"background:#ff0000\"></span>1"), std::string::npos);
    // Every table can be sorted, and the overview counts the drawings per key once each.
    EXPECT_EQ(count(html, "<table class=\"sortable\">"), count(html, "<table"));
    EXPECT_TRUE(std::regex_search(html, std::regex("<td>A_WAND</td><td>[^<]*</td><td class=\"num\">2</td>")));
    EXPECT_NE(html.find("Line 7: not a DXF file"), std::string::npos);
}

TEST(AuditReports, HtmlShowsLayerMovesAndFailedChangesWithTheirResult) {
    AuditRun run = sampleRun();
    run.apply = true;
    run.drawings.resize(2);
    run.drawings[1].audit.changes = {{"Bestand", kMergedInto, "", "A-Wand", ""},
                                     {"a-wand", "linetype", "CONTINUOUS", "DASHED", "no <DASHED> in the file"}};
    const std::string html = htmlReport(run);
    EXPECT_NE(html.find("<td>Bestand</td><td>merged into</td><td>A-Wand</td><td><span class=\"fixed\">done</span></td>"),
              std::string::npos);
    EXPECT_NE(html.find("<td class=\"err\">no &lt;DASHED&gt; in the file</td>"), std::string::npos);
    EXPECT_NE(html.find("<span class=\"err\">not fixed</span>"), std::string::npos);
    run.dryRun = true;
    EXPECT_NE(htmlReport(run).find("would be done"), std::string::npos);
}

}  // namespace ardo::test
