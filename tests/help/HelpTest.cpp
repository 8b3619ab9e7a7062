#include "help/Help.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "help/ChmFile.h"
#include "module/ModuleFixture.h"
#include "settings/ProfileString.h"
#include "settings/registry/CRegistry.h"

namespace ardo {
namespace {

using test::TempFolder;

// The help file the build compiled, with its topic map.
const std::string kBuiltHelp = ARDO_BUILD_HELP_DIR "/ArdoArx.chm";
const std::string kBuiltTopics = ARDO_BUILD_HELP_DIR "/ArdoArx.top";

// Every address a page names (links and images), relative to the page's folder.
std::vector<std::string> referencesOf(const std::string& html) {
    static const std::regex ref(R"re((?:href|src)="([^"#:]+)(?:#[^"]*)?")re");
    std::vector<std::string> refs;
    for (auto it = std::sregex_iterator(html.begin(), html.end(), ref); it != std::sregex_iterator(); ++it)
        refs.push_back((*it)[1]);
    return refs;
}

TEST(BuiltHelp, EveryKeyOfTheTopicMapResolvesToAPageAndAnchorInside) {
    const auto chm = ChmFile::open(kBuiltHelp);
    ASSERT_TRUE(chm) << "chmlib cannot open " << kBuiltHelp;
    const auto keys = GetPrivateProfileStringW(kHelpSection, std::nullopt, "", 4096, kBuiltTopics).names;
    // The dialogs' and the highlight prompt's keys are all there.
    const std::set<std::string> need{"Highlight", "HighlightOptions", "LayerOptions", "LayerLineWeights",
                                     "LayerPlotStyles", "LinetypeDialog", "NewLayer", "AttachLayer",
                                     "ObjectLayer", "LayerProps", "LayerEditor", "LayerSelection", "LayerDialog"};
    const std::set<std::string> have(keys.begin(), keys.end());
    for (const auto& k : need) EXPECT_TRUE(have.count(k)) << k;

    for (const auto& key : keys) {
        const std::string topic = GetPrivateProfileStringW(kHelpSection, key, "", 510, kBuiltTopics).text;
        ASSERT_TRUE(topic.starts_with("::/")) << key << "=" << topic;
        const std::string page = topic.substr(2, topic.find('#') - 2);
        const auto html = chm->read(page);
        ASSERT_TRUE(html) << key << ": " << page << " is not in the help file";
        if (const size_t hash = topic.find('#'); hash != std::string::npos) {
            EXPECT_NE(html->find("id=\"" + topic.substr(hash + 1) + "\""), std::string::npos) << key;
        }
    }
}

TEST(BuiltHelp, LinksImagesAndIndexEntriesPointInsideTheFile) {
    const auto chm = ChmFile::open(kBuiltHelp);
    ASSERT_TRUE(chm);
    int pages = 0;
    for (const auto& f : chm->files()) {
        if (!f.ends_with(".htm") && !f.ends_with(".hhk")) continue;
        ++pages;
        const auto html = chm->read(f);
        ASSERT_TRUE(html) << f;
        const std::string folder = f.substr(0, f.rfind('/') + 1);
        for (const auto& ref : referencesOf(*html)) EXPECT_TRUE(chm->read(folder + ref)) << f << " -> " << ref;
        if (f.ends_with(".hhk")) {
            static const std::regex local(R"re(name="Local" value="([^"#]+))re");
            int entries = 0;
            for (auto it = std::sregex_iterator(html->begin(), html->end(), local); it != std::sregex_iterator(); ++it, ++entries)
                EXPECT_TRUE(chm->read((*it)[1])) << "index entry " << (*it)[1];
            EXPECT_GT(entries, 10);
        }
    }
    EXPECT_GE(pages, 11);
    const auto png = chm->read("/ardo.png");
    ASSERT_TRUE(png);
    EXPECT_EQ(png->substr(1, 3), "PNG");
    EXPECT_FALSE(chm->read("/Fehlt.htm"));
    EXPECT_FALSE(ChmFile::open(kBuiltTopics)) << "a text file is no help file";
}

TEST(HelpAddress, SplitsAtTheDoubleColon) {
    const HelpAddress a = splitHelpAddress("/opt/ardo/help/ArdoArx.chm::/Hervorheben.htm#x");
    EXPECT_EQ(a.file, "/opt/ardo/help/ArdoArx.chm");
    EXPECT_EQ(a.topic, "/Hervorheben.htm#x");
    EXPECT_EQ(splitHelpAddress("ArdoArx.chm").topic, "");
}

class ShowHelp : public test::ModuleFixture {
protected:
    void SetUp() override {
        ModuleFixture::SetUp();
        setHelpViewer([this](const std::string& address) {
            shown.push_back(address);
            return viewerSucceeds;
        });
    }
    void TearDown() override {
        setHelpViewer(nullptr);
        ModuleFixture::TearDown();
    }
    // Starts the module, with a line added to the configuration's PFADINFO section.
    void start(const std::string& pathLine) {
        if (!pathLine.empty()) {
            std::string cfg = test::readBytes(programFolder + "ardo.cfg");
            const size_t section = cfg.find("[PFADINFO]");
            ASSERT_NE(section, std::string::npos);
            cfg.insert(cfg.find('\n', section) + 1, pathLine + "\n");
            folder.write("prog/ardo.cfg", cfg);
        }
        moduleEntryPoint(kInitAppMsg, &host);
        host.clearOutput();
    }
    std::vector<std::string> shown;
    bool viewerSucceeds = true;
};

TEST_F(ShowHelp, TheTopicMapBesideTheConfiguredHelpFileNamesTheTopic) {
    std::filesystem::create_directory(folder.path() / "prog/hilfe");
    folder.write("prog/hilfe/ArdoArx.top", "[ArdoArx]\r\nHighlight=::/Hervorheben.htm\r\n");
    start("ArdoArx.chm=hilfe/ArdoArx.chm");
    showHelp("ARDOARX", "highlight");
    ASSERT_EQ(shown, std::vector<std::string>{programFolder + "hilfe/ArdoArx.chm::/Hervorheben.htm"});
    EXPECT_TRUE(host.alerts.empty());

    // A key the map lacks is named in the alert, and the viewer is not started.
    showHelp(kHelpSection, "Fehlt");
    EXPECT_EQ(shown.size(), 1u);
    ASSERT_EQ(host.alerts.size(), 1u);
    EXPECT_EQ(host.alerts[0], "Hilfestichwort Fehlt fehlt");

    // A viewer that cannot show the file names the help file.
    viewerSucceeds = false;
    showHelp(kHelpSection, "Highlight");
    ASSERT_EQ(host.alerts.size(), 2u);
    EXPECT_EQ(host.alerts[1], "Hilfedatei " + programFolder + "hilfe/ArdoArx.chm fehlt");
}

TEST_F(ShowHelp, WithoutAPathEntryTheTopicMapIsLookedForInTheProgramFolder) {
    folder.write("prog/ArdoArx.top", "[ArdoArx]\r\nLayerOptions=::/Konfiguration.htm\r\n");
    start("");
    EXPECT_EQ(topicMapPath(), programFolder + "ArdoArx.top");
    showHelp(kHelpSection, "LayerOptions");
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0], programFolder + "::/Konfiguration.htm");
}

TEST(HelpLibrary, TheRegisteredLibraryIsReadWithVariablesExpanded) {
    TempFolder home;
    const char* old = std::getenv("XDG_CONFIG_HOME");
    const std::string saved = old ? old : "";
    ::setenv("XDG_CONFIG_HOME", home.path().c_str(), 1);
    ::setenv("ARDO_TEST_LIBS", "/opt/libs", 1);
    EXPECT_EQ(registeredHelpLibrary(), "");
    {
        CRegistry reg;
        ASSERT_TRUE(reg.create(RegRoot::ClassesRoot, kHelpControlServerKey));
        ASSERT_TRUE(reg.setText("", "%ARDO_TEST_LIBS%/libchm.so.1 %UNSET_NAME_X%" + std::string(300, 'x')));
    }
    const std::string found = registeredHelpLibrary();
    EXPECT_EQ(found.size(), 260u);
    EXPECT_TRUE(found.starts_with("/opt/libs/libchm.so.1 %UNSET_NAME_X%xx")) << found;
    if (old) ::setenv("XDG_CONFIG_HOME", saved.c_str(), 1);
    else ::unsetenv("XDG_CONFIG_HOME");
}

}  // namespace
}  // namespace ardo
