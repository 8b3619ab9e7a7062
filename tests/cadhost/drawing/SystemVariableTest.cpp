// System variables from the header and from memory.
#include <gtest/gtest.h>

#include <cmath>

#include "cadhost/drawing/DxfTestSupport.h"

namespace cadhost {
namespace {

using ardo::DbStatus;
using ardo::ResBuf;

TEST(SystemVariables, HeaderVariablesAreReadAndWrittenBack) {
    Drawing d;
    EXPECT_EQ(*d.getVar("CLAYER"), ResBuf::str("0"));
    EXPECT_EQ(*d.getVar("tilemode"), ResBuf::shortInt(1));
    EXPECT_EQ(*d.getVar("LWDISPLAY"), ResBuf::shortInt(0));
    EXPECT_EQ(d.getVar("INSBASE")->restype, ardo::RT3DPOINT);
    EXPECT_FALSE(d.getVar("NOSUCHVAR"));

    EXPECT_EQ(d.setVar("CLAYER", ResBuf::str("missing")), DbStatus::InvalidInput);
    ASSERT_EQ(d.setVar("TILEMODE", ResBuf::shortInt(0)), DbStatus::Ok);
    ASSERT_EQ(d.setVar("LWDISPLAY", ResBuf::shortInt(1)), DbStatus::Ok);
    ASSERT_EQ(d.setVar("INSBASE", ResBuf::point3({1, 2, 3})), DbStatus::Ok);
    EXPECT_EQ(d.setVar("TILEMODE", ResBuf::str("x")), DbStatus::InvalidInput);
    Drawing back = test::parseOrFail(d.toDxf());
    EXPECT_EQ(*back.getVar("TILEMODE"), ResBuf::shortInt(0));
    EXPECT_EQ(*back.getVar("LWDISPLAY"), ResBuf::shortInt(1));
    EXPECT_EQ(back.getVar("INSBASE")->point, (ardo::Point3{1, 2, 3}));
}

TEST(SystemVariables, SnapModesHaveDefaultsAndAreKeptInTheHeaderOnceSet) {
    // A drawing from a program that does not write them.
    Drawing bare = test::parseOrFail("  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1015\n  0\nENDSEC\n  0\nEOF\n");
    EXPECT_EQ(*bare.getVar("OSMODE"), ResBuf::shortInt(37));
    EXPECT_EQ(*bare.getVar("ORTHOMODE"), ResBuf::shortInt(0));
    ASSERT_EQ(bare.setVar("OSMODE", ResBuf::shortInt(16384 + 512 + 1)), DbStatus::Ok);
    ASSERT_EQ(bare.setVar("orthomode", ResBuf::shortInt(1)), DbStatus::Ok);
    EXPECT_EQ(bare.setVar("OSMODE", ResBuf::str("END")), DbStatus::InvalidInput);
    const std::string saved = bare.toDxf();
    EXPECT_NE(saved.find("$OSMODE"), std::string::npos);
    Drawing back = test::parseOrFail(saved);
    EXPECT_EQ(*back.getVar("OSMODE"), ResBuf::shortInt(16384 + 512 + 1));
    EXPECT_EQ(*back.getVar("ORTHOMODE"), ResBuf::shortInt(1));
    // Setting it again replaces the value instead of adding a second one.
    ASSERT_EQ(back.setVar("OSMODE", ResBuf::shortInt(2)), DbStatus::Ok);
    const std::string again = back.toDxf();
    EXPECT_EQ(again.find("$OSMODE"), again.rfind("$OSMODE"));
    EXPECT_EQ(*test::parseOrFail(again).getVar("OSMODE"), ResBuf::shortInt(2));
    // A new drawing has them in its header from the start.
    Drawing fresh;
    EXPECT_NE(fresh.toDxf().find("$ORTHOMODE"), std::string::npos);
}

TEST(SystemVariables, SessionVariablesAndReadOnlyOnes) {
    Drawing d;
    EXPECT_EQ(*d.getVar("CMDECHO"), ResBuf::shortInt(1));
    ASSERT_EQ(d.setVar("CMDECHO", ResBuf::shortInt(0)), DbStatus::Ok);
    EXPECT_EQ(*d.getVar("CMDECHO"), ResBuf::shortInt(0));
    EXPECT_EQ(*d.getVar("LWUNITS"), ResBuf::shortInt(1));
    EXPECT_EQ(*d.getVar("FILEDIA"), ResBuf::shortInt(1));
    EXPECT_EQ(*d.getVar("PROGRAM"), ResBuf::str("ardo-cad"));
    d.setCommandActive(1);
    EXPECT_EQ(*d.getVar("CMDACTIVE"), ResBuf::shortInt(1));
    for (const char* readOnly : {"CDATE", "DWGNAME", "DWGPREFIX", "PROGRAM", "CMDACTIVE"})
        EXPECT_EQ(d.setVar(readOnly, ResBuf::str("x")), DbStatus::InvalidInput) << readOnly;
}

TEST(SystemVariables, CdateIsTheClockAsYYYYMMDDdotHHMMSSmmm) {
    Drawing d;
    const double cdate = d.getVar("CDATE")->real;
    const std::time_t now = std::time(nullptr);
    std::tm tm{};
    localtime_r(&now, &tm);
    const double day = (tm.tm_year + 1900) * 10000.0 + (tm.tm_mon + 1) * 100.0 + tm.tm_mday;
    EXPECT_EQ(std::floor(cdate), day);
    const double hhmmss = std::floor((cdate - day) * 1e6 + 1e-6);
    EXPECT_LT(hhmmss, 240000);
    EXPECT_LT(std::fmod(hhmmss, 100.0), 60);
}

TEST(SystemVariables, DrawingNameAndFolderFollowTheFile) {
    test::TempFolder dir;
    Drawing d;
    EXPECT_EQ(d.getVar("DWGNAME")->text, "Drawing1.dxf");
    const auto path = dir.file("plan.dxf");
    ASSERT_TRUE(d.save(path));
    EXPECT_EQ(d.getVar("DWGNAME")->text, "plan.dxf");
    EXPECT_EQ(d.getVar("DWGPREFIX")->text, dir.file(""));
    Drawing back = test::openOrFail(path);
    EXPECT_EQ(back.getVar("DWGNAME")->text, "plan.dxf");
    // A relative name is taken from the working folder, as the prefix must be absolute.
    const auto previous = std::filesystem::current_path();
    std::filesystem::current_path(dir.path());
    Drawing relative = test::openOrFail("plan.dxf");
    std::filesystem::current_path(previous);
    EXPECT_EQ(relative.getVar("DWGPREFIX")->text, dir.file(""));
}

TEST(Saving, ReplacesTheFileAndReportsFailures) {
    test::TempFolder dir;
    const auto path = dir.file("a.dxf");
    Drawing d;
    ASSERT_TRUE(d.save(path));
    const std::string first = test::readBytes(path);
    ardo::LayerRecord r;
    r.name = "SECOND";
    ASSERT_EQ(d.addLayer(r), DbStatus::Ok);
    ASSERT_TRUE(d.save(path));
    EXPECT_NE(test::readBytes(path), first);
    std::size_t files = 0;
    for (const auto& e : std::filesystem::directory_iterator(dir.path())) files += e.is_regular_file();
    EXPECT_EQ(files, 1u) << "a temporary file was left behind";
    const ardo::Status failed = d.save(dir.file("no/such/folder/a.dxf"));
    ASSERT_FALSE(failed);
    EXPECT_NE(failed.error().find("Cannot save"), std::string::npos);
    const auto openError = Drawing::open(dir.file("missing.dxf"));
    ASSERT_FALSE(openError);
    EXPECT_NE(openError.error().find("missing.dxf"), std::string::npos);
}

// CECOLOR as the common hosts keep it: text in, text out, an index in the file's header.
TEST(SystemVariables, CurrentColourTakesTheTextsOfTheCommonHosts) {
    Drawing d;
    EXPECT_EQ(*d.getVar("CECOLOR"), ResBuf::str("BYLAYER"));
    const std::vector<std::pair<ResBuf, std::string>> accepted{
        {ResBuf::str("1"), "1"},
        {ResBuf::str("byblock"), "BYBLOCK"},
        {ResBuf::str(" 255 "), "255"},
        {ResBuf::str("255,128,0"), "RGB:255,128,0"},
        {ResBuf::str("rgb:0, 0 ,7"), "RGB:0,0,7"},
        {ResBuf::str("RAL CLASSIC$RAL 1000"), "RAL CLASSIC$RAL 1000"},
        {ResBuf::shortInt(7), "7"},
        {ResBuf::shortInt(0), "BYBLOCK"},
        {ResBuf::str("0"), "BYBLOCK"},
        {ResBuf::str("256"), "BYLAYER"},
        {ResBuf::str("5"), "5"},
        {ResBuf::str("ByLayer"), "BYLAYER"},
    };
    for (const auto& [given, expected] : accepted) {
        EXPECT_EQ(d.setVar("CECOLOR", given), DbStatus::Ok) << expected;
        EXPECT_EQ(*d.getVar("cecolor"), ResBuf::str(expected));
    }
    for (const ResBuf& refused : {ResBuf::str("257"), ResBuf::str("-1"), ResBuf::str("1.5"), ResBuf::str("red"),
                                  ResBuf::str("256,0,0"), ResBuf::str("1,2"), ResBuf::str("1,2,3,4"),
                                  ResBuf::str("$RAL 1000"), ResBuf::str(""), ResBuf::shortInt(257),
                                  ResBuf::realNum(1.0)}) {
        EXPECT_EQ(d.setVar("CECOLOR", refused), DbStatus::InvalidInput) << refused.text;
        EXPECT_EQ(*d.getVar("CECOLOR"), ResBuf::str("BYLAYER"));
    }

    // An index goes into the header; a true colour replaces it for the session.
    ASSERT_EQ(d.setVar("CECOLOR", ResBuf::str("3")), DbStatus::Ok);
    EXPECT_EQ(*test::parseOrFail(d.toDxf()).getVar("CECOLOR"), ResBuf::str("3"));
    ASSERT_EQ(d.setVar("CECOLOR", ResBuf::str("10,20,30")), DbStatus::Ok);
    EXPECT_EQ(*d.getVar("CECOLOR"), ResBuf::str("RGB:10,20,30"));
    ASSERT_EQ(d.setVar("CECOLOR", ResBuf::str("BYBLOCK")), DbStatus::Ok);
    EXPECT_EQ(*test::parseOrFail(d.toDxf()).getVar("CECOLOR"), ResBuf::str("BYBLOCK"));
}

}  // namespace
}  // namespace cadhost
