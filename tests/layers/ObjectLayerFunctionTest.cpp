// kemb_getObjektLayer: the object's active layer from its object-type layer file, against
// the real drawing.
#include <gtest/gtest.h>

#include <filesystem>

#include "layers/ActiveKeyMap.h"
#include "layers/LayerFunctions.h"
#include "LayerFunctionsTestFiles.h"
#include "settings/LayerDialogSettings.h"

namespace ardo::test {

namespace {

const ResBufChain kNil{ResBuf::marker(RTNIL)};

ResBufChain answer(const char* key, const char* name, int current, int inDrawing) {
    return {ResBuf::marker(RTLB), S(key), S(name), I(current), I(inDrawing), ResBuf::marker(RTLE)};
}

}  // namespace

class ObjektLayer : public LayerCoreTest {
protected:
    void SetUp() override {
        LayerCoreTest::SetUp();
        useCentralFile("[LAYER]\nK1=WALL,1,Continuous,,0\nK2=Mauer,3,Continuous,,0\nK4=Wall,5,Continuous,,0\n");
        std::filesystem::create_directories(folder() + "/Objektarten");
        writeFile("Objektarten/Typ.ini", "[Layer]\nMauer=K1\nMauer=K2,1\nStuetze=K4\n:Mauer=K4,1\n");
        setupPath = writeFile("ArdoSetup.ini", "[CONFIG]\n");
        moduleSettings().setup.bind(setupPath, "", "ArdoSetup", "CONFIG", false, true);
    }
    void TearDown() override {
        moduleSettings().setup.bind("", "", "", "", false, false);
        LayerCoreTest::TearDown();
    }
    std::string folder() const { return folder_.path().string(); }
    const ResBufChain& ask(const std::string& object, const std::string& type, const std::string& where) {
        host.call(handlers::kemb_getObjektLayer, {S("CMD"), S(object), S(type), S(where)});
        return host.result;
    }

    std::string setupPath;
};

TEST_F(ObjektLayer, RefusesBadTypesAndAnEmptyFolder) {
    const std::string objects = folder() + "/Objektarten";
    EXPECT_EQ(ask("Mauer", "Typ", objects), answer("K2", "Mauer", 0, 0)) << "the same call with good arguments";
    EXPECT_EQ(ask("Mauer", "Typ.alt", objects), kNil);
    EXPECT_EQ(ask("Mauer", "", objects), kNil);
    EXPECT_EQ(ask("Mauer", "Typ", ""), kNil);
    EXPECT_EQ(ask("Fenster", "Typ", objects), kNil) << "no line for the object";
    EXPECT_EQ(ask("Mauer", "Fehlt", objects), kNil) << "no such file";
    EXPECT_EQ(host.printed, "");
}

// A folder written the Windows way, with a trailing backslash, and the type in other case
// than the file: both found.
TEST_F(ObjektLayer, FindsTheFileAsAWindowsInstallationNamesIt) {
    EXPECT_EQ(ask("mauer", "typ", folder() + "/objektarten\\"), answer("K2", "Mauer", 0, 0));
}

// The key the user chose last for the object, kept in the settings, wins over the file's flag.
TEST_F(ObjektLayer, TheRememberedKeyOfTheSettingsWins) {
    ActiveKeyMap remembered;
    remembered.set("Mauer", "K1");
    SetupFileActiveKeys(setupPath).write(activeKeyValueName("Typ.ini"), remembered.encode());
    EXPECT_EQ(ask("Mauer", "Typ", folder() + "/Objektarten"), answer("K1", "WALL", 0, 0));
}

TEST_F(ObjektLayer, CurrentFlagIgnoresCaseAndTheDrawingFlagTellsWhetherTheLayerExists) {
    addLayer("WALL");
    ASSERT_EQ(host.setVar("CLAYER", S("WALL")), RTNORM);
    // The entry's name is "Wall", the drawing's current layer "WALL".
    EXPECT_EQ(ask("Stuetze", "Typ", folder() + "/Objektarten"), answer("K4", "Wall", 1, 1));
    EXPECT_EQ(ask("Mauer", "Typ", folder() + "/Objektarten"), answer("K2", "Mauer", 0, 0));
}

}  // namespace ardo::test
