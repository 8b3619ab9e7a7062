// ardo-cad --audit-layers over folders of drawings: the office drawing with layers of the
// standard changed, the DXF corpus against a central file made from its own layers, and
// what a run leaves on disk.
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>

#include "base/CaseFold.h"
#include "base/CodePage.h"
#include "e2e/E2eSupport.h"
#include "support/Ezdxf.h"
#include "support/TempFolder.h"

namespace ardo::e2e {
namespace {

size_t count(const std::string& text, const std::string& part) {
    size_t n = 0;
    for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++n;
    return n;
}

void addLayer(cadhost::Drawing& d, const std::string& name, HostColor colour, const std::string& linetype, int lineweight) {
    LayerRecord r;
    r.name = name;
    r.color = colour;
    r.linetype = linetype;
    r.lineweight = lineweight;
    ASSERT_EQ(d.addLayer(r), DbStatus::Ok) << name;
}

// ezdxf's audit error count of each drawing, by file name: -1 when its audit broke off, absent
// when ezdxf cannot read the file.
std::map<std::string, int> ezdxfAuditErrors(const fs::path& folder) {
    const std::string script =
        "import sys, os, ezdxf\n"
        "for root, _, files in os.walk(sys.argv[1]):\n"
        "    for f in files:\n"
        "        if not f.lower().endswith('.dxf'): continue\n"
        "        try:\n"
        "            d = ezdxf.readfile(os.path.join(root, f))\n"
        "        except Exception:\n"
        "            continue\n"
        "        try:\n"
        "            print(f, '\\t', len(d.audit().errors), sep='')\n"
        "        except Exception:\n"
        "            print(f, '\\t-1', sep='')\n";
    const auto r = test::runPython(*test::pythonWithEzdxf(), script, {folder.string()}, 600);
    EXPECT_EQ(r.exitCode, 0) << r.output;
    std::map<std::string, int> errors;
    std::istringstream lines(r.output);
    std::string line;
    while (std::getline(lines, line))
        if (const auto tab = line.find('\t'); tab != std::string::npos)
            errors[line.substr(0, tab)] = std::stoi(line.substr(tab + 1));
    return errors;
}

// The rows of a drawing's changes that failed.
size_t failedChanges(const std::string& rows, const std::string& drawingPrefix) {
    size_t failed = 0;
    std::istringstream in(rows);
    std::string row;
    while (std::getline(in, row))
        if (row.starts_with(drawingPrefix + "change,") && row.find(",failed,") != std::string::npos) ++failed;
    return failed;
}

class LayerAudit : public ::testing::Test {
protected:
    void SetUp() override {
        fs::create_directories(plans / "sub");
        fs::copy_file(officeDrawing(), plans / "office.dxf");
        // The office drawing with layers of the standard whose properties differ.
        cadhost::Drawing d = openSaved(officeDrawing());
        addLayer(d, "A-Wand-tragend", HostColor::fromIndex(1), "Continuous", 25);
        addLayer(d, "A-Achsen", HostColor::fromIndex(1), "Continuous", 18);
        addLayer(d, "A-Türen", HostColor::fromIndex(2), "Continuous", 25);   // as the standard has it
        ASSERT_TRUE(d.save((plans / "sub" / "deviating.dxf").string()));
        std::ofstream(plans / "rename.txt") << "Bestand-*\tA_WAND_BESTAND\nRaumtext\tA_RAUMSTEMPEL\nBema*\tA_BEM\n";
    }

    RunResult audit(std::vector<std::string> args) {
        args.insert(args.begin(), "--audit-layers");
        return install.run(args);
    }

    Installation install;
    fs::path plans = install.scratch("plans");
};

TEST_F(LayerAudit, FindsTheDeviationsAndListsUnreadableDrawings) {
    std::ofstream(plans / "broken.dxf") << "this is no drawing\n";
    const fs::path html = install.scratch("report.html"), csv = install.scratch("report.csv");
    const RunResult r = audit({plans.string(), "--report", html.string(), "--report", csv.string()});
    EXPECT_EQ(r.exitCode, 3) << r.output;
    const std::string deviating = (plans / "sub" / "deviating.dxf").string();
    EXPECT_NE(r.output.find(deviating + ": 3 deviations, 4 layers without a key (62 keys without a layer)"),
              std::string::npos) << r.output;
    EXPECT_NE(r.output.find("  A-Wand-tragend [A_WAND_TRAG] colour: 1, standard 7\n"), std::string::npos);
    EXPECT_NE(r.output.find("  A-Wand-tragend [A_WAND_TRAG] lineweight: 0.25 mm, standard 0.50 mm\n"), std::string::npos);
    EXPECT_NE(r.output.find("  A-Achsen [A_ACHSE] linetype: CONTINUOUS, standard ARDO_STRICHPUNKT\n"), std::string::npos);
    EXPECT_NE(r.output.find("  Bestand-alt: no key names it; nearest A_WAND_BESTAND \"A-Wand-Bestand\"\n"), std::string::npos);
    EXPECT_NE(r.output.find((plans / "broken.dxf").string() + ": "), std::string::npos);
    EXPECT_NE(r.output.find("3 drawings: 0 meet the standard, 2 deviate, 1 failed\n"), std::string::npos);
    EXPECT_NE(r.output.find(" drawings/s with "), std::string::npos);

    const std::string page = test::readBytes(html);
    EXPECT_EQ(count(page, "<h2 id=\"d"), 3u);
    EXPECT_EQ(count(page, "src="), 0u);
    const std::string rows = test::readBytes(csv);
    EXPECT_EQ(count(rows, ",deviation,"), 3u);
    EXPECT_EQ(count(rows, ",no key,"), 8u);
    EXPECT_EQ(count(rows, ",failed,"), 1u);
}

TEST_F(LayerAudit, ApplyAndRenameThenAuditFindsNothingAndEzdxfReadsTheDrawings) {
    const fs::path originals = install.scratch("originals");
    fs::copy(plans, originals, fs::copy_options::recursive);
    const RunResult applied = audit({"--apply", "--rename", (plans / "rename.txt").string(), plans.string()});
    EXPECT_EQ(applied.exitCode, 0) << applied.output;
    EXPECT_EQ(count(applied.output, "\n  saved\n"), 2u) << applied.output;

    const RunResult again = audit({plans.string()});
    EXPECT_EQ(again.exitCode, 0) << again.output;
    EXPECT_EQ(count(again.output, ": meets the standard"), 2u) << again.output;
    const cadhost::Drawing d = openSaved(plans / "sub" / "deviating.dxf");
    EXPECT_EQ(layerOf(d, "A-Achsen").linetype, "ARDO_STRICHPUNKT");
    EXPECT_FALSE(d.findLayer("Raumtext"));
    EXPECT_TRUE(d.findLayer("A-Raumstempel"));

    if (!test::pythonWithEzdxf()) GTEST_SKIP() << test::kNoEzdxf;
    const auto before = ezdxfAuditErrors(originals), after = ezdxfAuditErrors(plans);
    ASSERT_EQ(after.size(), 2u);
    for (const auto& [file, errors] : after) {
        EXPECT_GE(errors, 0) << file;
        EXPECT_LE(errors, before.at(file)) << file;
    }
}

TEST_F(LayerAudit, DryRunAndUnchangedDrawingsLeaveTheFilesAlone) {
    const std::string office = test::readBytes(plans / "office.dxf"), deviating = test::readBytes(plans / "sub" / "deviating.dxf");
    const auto stamp = fs::last_write_time(plans / "office.dxf");
    const RunResult dry = audit({"--apply", "--dry-run", plans.string()});
    EXPECT_EQ(dry.exitCode, 1) << dry.output;
    EXPECT_NE(dry.output.find("  would change: A-Achsen linetype CONTINUOUS -> ARDO_STRICHPUNKT\n"), std::string::npos)
        << dry.output;
    EXPECT_NE(dry.output.find("(dry run: nothing saved)"), std::string::npos);
    EXPECT_EQ(test::readBytes(plans / "sub" / "deviating.dxf"), deviating);

    // The office drawing has no layer of a key: --apply changes nothing, so it is not written.
    const RunResult applied = audit({"--apply", (plans / "office.dxf").string()});
    EXPECT_EQ(applied.exitCode, 1) << applied.output;
    EXPECT_EQ(test::readBytes(plans / "office.dxf"), office);
    EXPECT_EQ(fs::last_write_time(plans / "office.dxf"), stamp);
}

// The page's own script sorts a table when a column heading is clicked: a browser with the
// clicks appended prints the document as it then is.
TEST_F(LayerAudit, ReportSortsByAClickedColumnInABrowser) {
    if (RunResult probe = runProcess({"chromium", "--version"}, {}, ""); probe.exitCode != 0)
        GTEST_SKIP() << "chromium (Debian chromium) is not installed";
    const fs::path html = install.scratch("report.html"), clicked = install.scratch("clicked.html");
    audit({plans.string(), "--report", html.string()});
    std::string page = test::readBytes(html);
    // The drawings table is the one with a "Deviations" column; two clicks sort it descending.
    page.insert(page.rfind("</body>"),
                "<script>document.querySelectorAll('table').forEach(function(t){var h=t.querySelectorAll('th');"
                "if(h[1]&&h[1].textContent==='Deviations'){h[1].click();h[1].click();}});</script>");
    std::ofstream(clicked) << page;
    const RunResult dom = runProcess({"chromium", "--headless", "--no-sandbox", "--disable-gpu", "--dump-dom",
                                      "file://" + clicked.string()}, {}, "");
    ASSERT_EQ(dom.exitCode, 0) << dom.output;
    const size_t office = dom.output.find("office.dxf</a>"), deviating = dom.output.find("deviating.dxf</a>");
    ASSERT_NE(office, std::string::npos);
    ASSERT_NE(deviating, std::string::npos);
    EXPECT_LT(deviating, office) << "3 deviations sort before 0";
    EXPECT_NE(dom.output.find("<th class=\"desc\">Deviations</th>"), std::string::npos);
    EXPECT_LT(page.find("office.dxf</a>"), page.find("deviating.dxf</a>")) << "the page lists the drawings by path";
}

TEST_F(LayerAudit, BadInputStopsWithAMessage) {
    const RunResult noCentral = audit({"--central", install.scratch("none.ini").string(), plans.string()});
    EXPECT_EQ(noCentral.exitCode, 2);
    EXPECT_NE(noCentral.output.find("cannot use the central layer file"), std::string::npos) << noCentral.output;
    std::ofstream(plans / "bad-map.txt") << "just one column\n";
    const RunResult badMap = audit({"--rename", (plans / "bad-map.txt").string(), plans.string()});
    EXPECT_EQ(badMap.exitCode, 2);
    EXPECT_NE(badMap.output.find("bad-map.txt\" line 1:"), std::string::npos) << badMap.output;
    const RunResult nothing = audit({install.scratch("empty").string()});
    EXPECT_EQ(nothing.exitCode, 3) << nothing.output;
    EXPECT_EQ(install.run({"--audit-layers"}).exitCode, 2);
    EXPECT_EQ(install.run({"--audit-layers", "--dry-run", "x.dxf"}).exitCode, 2);
    EXPECT_EQ(install.run({"--audit-layers", "--jobs", "0", "x.dxf"}).exitCode, 2);
    const RunResult report = install.run({"--audit-layers", "--report", "r.txt", "x.dxf"});
    EXPECT_EQ(report.exitCode, 2);
    EXPECT_NE(report.output.find("--report writes an .html or a .csv file, not \"r.txt\""), std::string::npos);
    EXPECT_EQ(install.run({"--apply", plans.string()}).exitCode, 2) << "the audit's options need --audit-layers";
}

// Every corpus drawing against a central file that names its layers with another colour and
// Continuous: the expected deviations are found, --apply brings them in line as far as the
// drawing's format holds them, and ezdxf reads every applied drawing with no new errors.
TEST_F(LayerAudit, CorpusDrawingsAgainstACentralFileOfTheirOwnLayers) {
    const fs::path corpus = fs::path(ARDO_SOURCE_DIR) / ".." / "shared" / "dxf-corpus";
    if (!fs::is_directory(corpus)) GTEST_SKIP() << "the shared DXF corpus is not there";
    const fs::path folder = install.scratch("corpus"), originals = install.scratch("corpus-originals");
    fs::create_directories(folder);
    std::map<std::string, std::pair<std::string, int>> keys;   // upper-case layer name -> key, colour index
    std::map<std::string, size_t> expected;                     // file name -> colour and linetype deviations
    std::set<std::string> unreadable;
    for (const auto& e : fs::directory_iterator(corpus)) {
        if (e.path().extension() != ".dxf") continue;
        const std::string name = e.path().filename().string();
        fs::copy_file(e.path(), folder / name);
        fs::permissions(folder / name, fs::perms::owner_write, fs::perm_options::add);
        auto opened = cadhost::Drawing::open(e.path().string());
        if (!opened) {
            unreadable.insert(name);
            continue;
        }
        size_t deviations = 0;
        const DbStatus read = opened->forEachLayer([&](const LayerRecord& l) {
            const bool fits = l.name.find_first_of("<>\"?*|,=`;[]\\") == std::string::npos &&
                              decodeFileText(encodeFileText(l.name)) == l.name;
            if (!fits || l.name == "0" || equalsNoCase(l.name, "Defpoints")) return true;
            auto [it, isNew] = keys.emplace(upperCase(l.name), std::pair<std::string, int>{});
            if (isNew) {
                const int index = l.color.method == HostColor::Method::Index ? l.color.index : 7;
                it->second = {"K" + std::to_string(keys.size()), index % 255 + 1};
            }
            const int wanted = it->second.second;
            deviations += (l.color.method != HostColor::Method::Index || l.color.index != wanted) ? 1 : 0;
            deviations += equalsNoCase(l.linetype, "Continuous") ? 0 : 1;
            return true;
        });
        // A drawing without a layer table cannot be audited.
        if (read == DbStatus::Ok) expected[name] = deviations;
        else unreadable.insert(name);
    }
    fs::copy(folder, originals, fs::copy_options::recursive);
    std::string central = "[LAYER]\r\n";
    for (const auto& [upper, key] : keys) central += key.first + "=" + upper + "," + std::to_string(key.second) + ",Continuous,,0,,,-3,Normal,,1\r\n";
    const fs::path centralFile = install.scratch("corpus.ini");
    std::ofstream(centralFile, std::ios::binary) << encodeFileText(central);

    const fs::path csv = install.scratch("corpus.csv");
    const RunResult r = audit({"--central", centralFile.string(), "--report", csv.string(), folder.string()});
    EXPECT_EQ(r.exitCode, unreadable.empty() ? 1 : 3) << r.output;
    const std::string rows = test::readBytes(csv);
    for (const auto& [name, deviations] : expected)
        EXPECT_EQ(count(rows, (folder / name).string() + ",deviation,"), deviations) << name;
    for (const std::string& name : unreadable) EXPECT_EQ(count(rows, (folder / name).string() + ",failed,"), 1u) << name;

    const fs::path appliedCsv = install.scratch("applied.csv"), againCsv = install.scratch("again.csv");
    const RunResult applied = audit({"--central", centralFile.string(), "--apply", "--report", appliedCsv.string(), folder.string()});
    const RunResult again = audit({"--central", centralFile.string(), "--report", againCsv.string(), folder.string()});
    EXPECT_NE(applied.output.find(" saved\n"), std::string::npos) << applied.output;
    // What is left is exactly what the apply could not change.
    const std::string appliedRows = test::readBytes(appliedCsv), againRows = test::readBytes(againCsv);
    for (const auto& [name, deviations] : expected) {
        const std::string prefix = (folder / name).string() + ",";
        EXPECT_EQ(count(appliedRows, prefix + "change,"), deviations) << name;
        EXPECT_EQ(count(againRows, prefix + "deviation,"), failedChanges(appliedRows, prefix)) << name;
    }

    if (!test::pythonWithEzdxf()) GTEST_SKIP() << test::kNoEzdxf;
    const auto before = ezdxfAuditErrors(originals), after = ezdxfAuditErrors(folder);
    for (const auto& [file, errors] : before) {
        ASSERT_TRUE(after.count(file)) << file << " was readable by ezdxf before the apply";
        if (errors < 0) continue;   // ezdxf's own audit cannot finish on the original
        EXPECT_GE(after.at(file), 0) << file;
        EXPECT_LE(after.at(file), errors) << file;
    }
}

}  // namespace
}  // namespace ardo::e2e
