#include "settings/SettingsFunctions.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <future>
#include <thread>

#include "support/TempFolder.h"
#include "messages/MessageFile.h"
#include "settings/ModuleFiles.h"
#include "support/ScriptedHost.h"

namespace ardo {
namespace {

using handlers::kemb_iniSchreiben;
using test::readBytes;
using test::TempFolder;

const ResBufChain kNil{ResBuf::marker(RTNIL)};

class IniSchreiben : public ::testing::Test {
protected:
    void SetUp() override {
        auto messages = std::make_unique<SettingsStore>();
        for (const char* line : {"[LCINIT]\n", "BadNumOfArg=\\nZahl\n", "BadTypOfArg=\\nTyp\n"})
            messages->appendLine(line);
        MessageFile::instance().attach(std::move(messages));
        moduleFiles().centralLayerFilePath = path;
        moduleFiles().centralLayerFile = SettingsStore::load(path);
        host.result = {ResBuf::marker(RTT)};
    }
    void TearDown() override {
        moduleFiles().release();
        moduleFiles().centralLayerFilePath.clear();
        MessageFile::instance().release();
    }

    test::ScriptedHost host;
    TempFolder dir;
    std::string path = dir.write("Ardo.ini", "// Ebenen\r\n[LAYER]\r\nWand=1\r\n");
};

TEST_F(IniSchreiben, SetsAnExistingKeyAndWritesTheWholeStore) {
    EXPECT_EQ(host.call(kemb_iniSchreiben, {ResBuf::str("layer"), ResBuf::str("WAND"), ResBuf::str("2")}), RSRSLT);
    EXPECT_EQ(host.result, kNil);
    EXPECT_EQ(readBytes(path), "\r\n[LAYER]\r\nWand=2\r\n");
    EXPECT_EQ(host.printed, "");
}

TEST_F(IniSchreiben, CreatesSectionAndKey) {
    host.call(kemb_iniSchreiben, {ResBuf::str("Wände"), ResBuf::str("Tür"), ResBuf::str("grün")});
    host.call(kemb_iniSchreiben, {ResBuf::str("LAYER"), ResBuf::str("Decke"), ResBuf::str("3")});
    EXPECT_EQ(host.result, kNil);
    EXPECT_EQ(readBytes(path), "\r\n[LAYER]\r\nWand=1\r\nDecke=3\r\n\r\n[W\xE4nde]\r\nT\xFCr=gr\xFCn\r\n");
}

TEST_F(IniSchreiben, ArgumentsAreCheckedOneAfterTheOther) {
    struct Case {
        ResBufChain args;
        const char* printed;
    };
    const Case cases[] = {
        {{}, "\nZahl"},
        {{ResBuf::shortInt(1)}, "\nTyp"},
        {{ResBuf::str("S")}, "\nZahl"},
        {{ResBuf::str("S"), ResBuf::realNum(1)}, "\nTyp"},
        {{ResBuf::str("S"), ResBuf::str("K")}, "\nZahl"},
        {{ResBuf::str("S"), ResBuf::str("K"), ResBuf::marker(RTNIL)}, "\nTyp"},
    };
    for (const auto& c : cases) {
        host.clearOutput();
        host.result = {ResBuf::marker(RTT)};
        EXPECT_EQ(host.call(kemb_iniSchreiben, c.args), RSRSLT);
        EXPECT_EQ(host.printed, c.printed) << c.args.size() << " arguments";
        EXPECT_EQ(host.result, kNil);
    }
    EXPECT_EQ(readBytes(path), "// Ebenen\r\n[LAYER]\r\nWand=1\r\n");
}

TEST_F(IniSchreiben, WithoutALoadedCentralFileNothingIsWritten) {
    moduleFiles().centralLayerFile.reset();
    host.call(kemb_iniSchreiben, {ResBuf::str("LAYER"), ResBuf::str("Wand"), ResBuf::str("2")});
    EXPECT_EQ(host.result, kNil);
    EXPECT_EQ(host.printed, "");
    EXPECT_TRUE(host.alerts.empty());
    EXPECT_EQ(readBytes(path), "// Ebenen\r\n[LAYER]\r\nWand=1\r\n");
}

TEST_F(IniSchreiben, AnUnwritableFileShowsTheAlertAndKeepsItsContent) {
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    host.call(kemb_iniSchreiben, {ResBuf::str("LAYER"), ResBuf::str("Wand"), ResBuf::str("2")});
    EXPECT_EQ(host.result, kNil);
    EXPECT_EQ(host.alerts, std::vector<std::string>{"\nIch kann die Datei " + path + " nicht schreiben"});
    EXPECT_EQ(readBytes(path), "// Ebenen\r\n[LAYER]\r\nWand=1\r\n");
}

// Characters the code page lacks are written as '?'; the user is told which key loses what.
TEST_F(IniSchreiben, CharactersTheCodePageLacksAreNamedInAWarning) {
    host.call(kemb_iniSchreiben, {ResBuf::str("LAYER"), ResBuf::str("Tür"), ResBuf::str("Ω-Wand ≈ ä")});
    EXPECT_EQ(readBytes(path), "\r\n[LAYER]\r\nWand=1\r\nT\xFCr=?-Wand ? \xE4\r\n");
    EXPECT_NE(host.printed.find("'Tür'"), std::string::npos) << host.printed;
    EXPECT_NE(host.printed.find("'Ω≈'"), std::string::npos) << host.printed;
    host.clearOutput();
    host.call(kemb_iniSchreiben, {ResBuf::str("LAYER"), ResBuf::str("Tür"), ResBuf::str("ä")});
    EXPECT_EQ(host.printed, "");
}

// Another workstation's session: reads the central file, sets a key and writes it back
// whole, as this module does.
void otherSessionSets(const std::string& path, const std::string& key, const std::string& value) {
    auto theirs = SettingsStore::load(path);
    ASSERT_TRUE(theirs);
    theirs->findOrCreateKey(theirs->findOrCreateSection("LAYER"), key)->value = value;
    ASSERT_TRUE(theirs->write(path));
}

TEST_F(IniSchreiben, AKeyAnotherSessionWroteMeanwhileIsKept) {
    host.call(kemb_iniSchreiben, {ResBuf::str("LAYER"), ResBuf::str("Mine1"), ResBuf::str("1")});
    otherSessionSets(path, "Theirs", "2");
    host.call(kemb_iniSchreiben, {ResBuf::str("LAYER"), ResBuf::str("Mine2"), ResBuf::str("3")});
    EXPECT_EQ(readBytes(path), "\r\n[LAYER]\r\nWand=1\r\nMine1=1\r\nTheirs=2\r\nMine2=3\r\n");
    // Their change to a key this session also set earlier is theirs to keep too: only the key
    // of this call is this session's.
    otherSessionSets(path, "Mine1", "changed");
    host.call(kemb_iniSchreiben, {ResBuf::str("LAYER"), ResBuf::str("Wand"), ResBuf::str("4")});
    EXPECT_EQ(readBytes(path), "\r\n[LAYER]\r\nWand=4\r\nMine1=changed\r\nTheirs=2\r\nMine2=3\r\n");
    EXPECT_TRUE(host.alerts.empty());
}

// While another session writes, this one waits for it and then builds on what it wrote.
TEST_F(IniSchreiben, WaitsForASessionThatIsWritingTheFile) {
    std::promise<void> locked;
    std::thread other([&] {
        auto lock = FileLock::acquire(path, std::chrono::milliseconds(1000));
        ASSERT_TRUE(lock);
        auto theirs = SettingsStore::load(path);
        locked.set_value();
        std::this_thread::sleep_for(std::chrono::milliseconds(150));
        theirs->findOrCreateKey(theirs->findOrCreateSection("LAYER"), "Theirs")->value = "2";
        theirs->write(path);
    });
    locked.get_future().wait();
    host.call(kemb_iniSchreiben, {ResBuf::str("LAYER"), ResBuf::str("Mine"), ResBuf::str("1")});
    other.join();
    EXPECT_EQ(readBytes(path), "\r\n[LAYER]\r\nWand=1\r\nTheirs=2\r\nMine=1\r\n");
}

}  // namespace
}  // namespace ardo
