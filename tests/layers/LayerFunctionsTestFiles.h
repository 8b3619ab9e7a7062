#pragma once
// Module files for the layer core's tests, written into a fresh temp folder: a message
// file with section "LCINIT" and a central layer control file loaded as the module's own.
// The tests work on the CAD host's real drawing, and the host's command processor runs
// the commands the module sends.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "messages/MessageFile.h"
#include "settings/ModuleFiles.h"
#include "settings/SettingsStore.h"
#include "cadhost/commands/CommandProcessor.h"
#include "cadhost/drawing/Drawing.h"
#include "support/ScriptedHost.h"
#include "support/TempFolder.h"

namespace ardo {
// Readable failure messages for argument and result chains.
inline void PrintTo(const ResBuf& r, std::ostream* os) {
    *os << "{" << r.restype;
    if (r.restype == RTSTR) *os << " \"" << r.text << "\"";
    if (r.restype == RTSHORT || r.restype == RTLONG) *os << " " << r.integer;
    *os << "}";
}
}  // namespace ardo

namespace ardo::test {

inline const char* kTestMessages =
    "[LCINIT]\n"
    "BadNumOfArg=\\nWrong number of arguments\n"
    "BadTypOfArg=\\nWrong type of argument\n"
    "BadValueOfArg=\\nBad value\n"
    "MsgNotFound=\\nMessage %s in %s not found\n"
    "LnNoDataBase=No drawing\n"
    "TxUsingContinuous=Using Continuous\n"
    "LnMemoryShortage=Out of memory\n"
    "EsOpenLinetypeTable=Linetype table\n"
    "EsCloseLinetypeTable=Linetype table closing\n"
    "EsOpenLayerTable=Layer table\n"
    "EsLayerOperation=Layer operation\n";

class LayerCoreTest : public ::testing::Test {
protected:
    void SetUp() override {
        MessageFile::instance().attach(SettingsStore::load(writeFile("ardo.msg", kTestMessages)));
        host.useDrawing(drawing, processor);
    }
    void TearDown() override {
        MessageFile::instance().release();
        moduleFiles().centralLayerFile.reset();
        moduleFiles().centralLayerFilePath.clear();
    }

    std::string writeFile(const std::string& name, const std::string& text) {
        return folder_.write(name, text);
    }

    // Loads the text as the module's central layer control file.
    void useCentralFile(const std::string& text) {
        const auto path = writeFile("Ardo.ini", text);
        moduleFiles().centralLayerFile = SettingsStore::load(path);
        moduleFiles().centralLayerFilePath = path;
    }

    // Adds a layer with colour 7 and the given states.
    void addLayer(const std::string& name, bool off = false, bool frozen = false) {
        LayerRecord r;
        r.name = name;
        r.color = HostColor::fromIndex(7);
        r.isOff = off;
        r.isFrozen = frozen;
        ASSERT_EQ(drawing.addLayer(r), DbStatus::Ok) << name;
    }
    std::vector<std::string> layerNames() const {
        std::vector<std::string> names;
        drawing.forEachLayer([&](const LayerRecord& l) { return names.push_back(l.name), true; });
        return names;
    }
    int variable(const std::string& name) const {
        ResBuf value;
        EXPECT_EQ(host.getVar(name, value), RTNORM) << name;
        return static_cast<int>(value.integer);
    }

    ardo::test::TempFolder folder_;
    ScriptedHost host;
    cadhost::Drawing drawing;
    cadhost::CommandProcessor processor{{&drawing, [this](const std::string& text) { host.print(text); }, {}, {}, &host.colors}};
};

inline ResBuf S(const std::string& s) { return ResBuf::str(s); }
inline ResBuf I(int v) { return ResBuf::shortInt(v); }

}  // namespace ardo::test
