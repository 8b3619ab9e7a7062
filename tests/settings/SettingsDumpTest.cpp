#include "settings/SettingsDump.h"

#include <gtest/gtest.h>

#include "support/ScriptedHost.h"

namespace ardo {
namespace {

TEST(SettingsDump, TraceLinesOnTheCommandLine) {
    test::ScriptedHost host;
    traceString("Setup", "Pfad", "C:\\Ardo");
    traceInt("Setup", "Spalten", -3);
    traceReal("Setup", "Faktor", 2.0 / 3.0);
    traceKey("Setup", "Leer");
    traceBits("Setup", "Flags", 0x2AUL);
    tracePoint("Setup", "Punkt", Point3{1.0, -2.5, 1e-4});
    EXPECT_EQ(host.printed,
              "Setup:'Pfad=C:\\Ardo'\n"
              "Setup:'Spalten=-3'\n"
              "Setup:'Faktor=0.667'\n"
              "Setup:'Leer'\n"
              "Setup:'Flags=0x0000002a'\n"
              "Setup:'Punkt=(1.000|-2.500|0.000)'\n");
}

TEST(SettingsDump, IniText) {
    IniDump dump;
    dump.section("CONFIG");
    dump.string("Datei", "Ardo.ini");
    dump.real("Faktor", 1.23456);
    dump.integer("Breite", -1);
    dump.unsignedInteger("Farbe", 4294967295u);
    EXPECT_EQ(dump.text(), "[CONFIG]\nDatei=Ardo.ini\nFaktor=1.2346\nBreite=-1\nFarbe=4294967295\n");
}

}  // namespace
}  // namespace ardo
