// --help, the man page and the option table must never disagree, and every option of the
// table must be one the parser knows.
#include "cadhost/console/ConsoleOptions.h"

#include <gtest/gtest.h>

#include <regex>

#include "cadhost/console/ManPage.h"
#include "support/ChildProcess.h"
#include "support/TempFolder.h"

namespace cadhost::console {
namespace {

// The man page as a reader sees it: font changes gone, escaped minus signs plain.
std::string plainRoff(std::string text) {
    text = std::regex_replace(text, std::regex(R"(\\f[BIRP])"), "");
    text = std::regex_replace(text, std::regex(R"(\\-)"), "-");
    return std::regex_replace(text, std::regex(R"(\\&)"), "");
}

std::string section(const std::string& page, const std::string& name) {
    const auto start = page.find(".SH " + name + "\n");
    if (start == std::string::npos) return {};
    const auto end = page.find("\n.SH ", start + 1);
    return page.substr(start, end == std::string::npos ? std::string::npos : end - start);
}

std::string optionLine(const OptionRow& row) {
    return std::string(row.names) + (*row.value ? std::string(" ") + row.value : "");
}

TEST(OptionTable, HelpAndManPageShowEveryRowInTableOrderAndNothingElse) {
    const ardo::test::ProcessResult help = ardo::test::runProcess({ARDO_CAD_EXE, "--help"});
    ASSERT_EQ(help.exitCode, 0);
    EXPECT_EQ(help.output, usageText());

    const std::string built = ardo::test::readBytes(ARDO_MANPAGE);
    ASSERT_FALSE(built.empty()) << "the build wrote no man page at " << ARDO_MANPAGE;
    EXPECT_EQ(built, manPage(ARDO_VERSION)) << "the built man page is stale";
    const std::string page = plainRoff(built);
    const std::string options = section(page, "OPTIONS");
    const std::string synopsis = section(page, "SYNOPSIS");

    std::size_t helpAt = 0, optionsAt = 0, synopsisAt = 0;
    for (const OptionRow& row : optionTable()) {
        SCOPED_TRACE(row.names);
        // Help: one line naming the option and its value, then its text.
        helpAt = help.output.find("\n  " + optionLine(row), helpAt);
        ASSERT_NE(helpAt, std::string::npos);
        const char after = help.output[helpAt + 3 + optionLine(row).size()];
        EXPECT_TRUE(after == ' ' || after == '\n') << "the names run on into other text";
        EXPECT_NE(help.output.find(row.text, helpAt), std::string::npos);
        // Man page: a tagged paragraph with the same names, value and text.
        optionsAt = options.find(".TP\n" + optionLine(row) + "\n" + row.text, optionsAt);
        ASSERT_NE(optionsAt, std::string::npos);
        ++optionsAt;
        const std::string item = "[" + synopsisName(row) + (*row.value ? std::string(" ") + row.value : "") + "]" +
                                 (row.repeatable ? "..." : "");
        synopsisAt = synopsis.find(item, synopsisAt);
        ASSERT_NE(synopsisAt, std::string::npos) << item;
        EXPECT_NE(help.output.substr(0, help.output.find("\n  -")).find(item), std::string::npos) << item;
    }
    std::size_t paragraphs = 0;
    for (auto at = options.find(".TP\n"); at != std::string::npos; at = options.find(".TP\n", at + 1)) ++paragraphs;
    EXPECT_EQ(paragraphs, optionTable().size());
}

TEST(OptionTable, TheParserKnowsEveryOptionOfTheTable) {
    for (const OptionRow& row : optionTable()) {
        const std::string names = row.names;
        for (std::size_t start = 0; start < names.size();) {
            const auto comma = names.find(", ", start);
            const std::string name = names.substr(start, comma - start);
            std::vector<std::string> args{name};
            if (*row.value) args.push_back(std::string(row.value).substr(0, std::string(row.value).find('|')));
            const auto parsed = parseOptions(args);
            const auto* error = std::get_if<std::string>(&parsed);
            EXPECT_FALSE(error) << name << ": " << *error;
            if (comma == std::string::npos) break;
            start = comma + 2;
        }
    }
}

TEST(OptionTable, TheWindowTakesDrawingsAndStepsButNotWhatOnlyAConsoleRunDoes) {
    const auto window = parseOptions({"--gui", "a.dxf", "-e", "(princ)"});
    ASSERT_TRUE(std::holds_alternative<ConsoleOptions>(window));
    EXPECT_TRUE(std::get<ConsoleOptions>(window).gui);
    EXPECT_EQ(std::get<ConsoleOptions>(window).drawings, std::vector<std::string>{"a.dxf"});
    for (const auto& args : {std::vector<std::string>{"--gui", "-o", "out.dxf"}, {"--gui", "--answer", "yes"},
                             {"--gui", "--audit-layers", "plans"}, {"--gui", "--recover", "a.dxf"}}) {
        const auto parsed = parseOptions(args);
        ASSERT_TRUE(std::holds_alternative<std::string>(parsed)) << args[1];
        EXPECT_NE(std::get<std::string>(parsed).find("--gui"), std::string::npos);
    }
    EXPECT_FALSE(std::get<ConsoleOptions>(parseOptions({"a.dxf"})).gui);
}

TEST(OptionTable, TheManPageFormatsWithoutWarnings) {
    const ardo::test::ProcessResult r = ardo::test::runProcess(
        {"sh", "-c", std::string("LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -E UTF-8 -l '") +
                         ARDO_MANPAGE + "' 2>&1 >/dev/null"});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.output, "");
}

TEST(Version, NamesTheProgramTheModuleBesideItAndTheDxfVersions) {
    const std::string folder = std::filesystem::path(ARDO_CAD_EXE).parent_path().string();
    const ardo::test::ProcessResult r = ardo::test::runProcess({ARDO_CAD_EXE, "--version"});
    ASSERT_EQ(r.exitCode, 0) << r.output;
    EXPECT_EQ(r.output.substr(0, r.output.find('\n')), std::string("ardo-cad ") + ARDO_VERSION);
    EXPECT_NE(r.output.find("module: " + folder + "/ardo.arx " + ARDO_VERSION + "\n"), std::string::npos) << r.output;
    EXPECT_NE(r.output.find("DXF: "), std::string::npos);

    const ardo::test::ProcessResult none = ardo::test::runProcess({ARDO_CAD_EXE, "--version", "--no-module"});
    EXPECT_NE(none.output.find("module: none loaded\n"), std::string::npos) << none.output;
    const ardo::test::ProcessResult noVersion =
        ardo::test::runProcess({ARDO_CAD_EXE, "--version", "--module", ARDO_TEST_NOENTRY});
    EXPECT_NE(noVersion.output.find("has no entry point"), std::string::npos) << noVersion.output;
}

}  // namespace
}  // namespace cadhost::console
