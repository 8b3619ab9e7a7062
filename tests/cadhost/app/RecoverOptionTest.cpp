// ardo-cad --recover on a damaged drawing, and drawings that are no regular files, run as
// a user runs them.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <string>

#include "cadhost/drawing/Drawing.h"
#include "support/ChildProcess.h"
#include "support/TempFolder.h"

namespace cadhost::test {
namespace {

const std::string kDamaged =
    "  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n  8\n0\n 10\n1.0\n  0\nENDSEC\n  0\nENDSEC\n"
    "  0\nSECTION\n  2\nENTITIES\n  0\nCIRCLE\n  8\n0\n 40\n2.0\n";

TEST(RecoverOption, RepairsAreListedAndTheSavedDrawingIsWhole) {
    ardo::test::TempFolder dir;
    const std::string in = dir.write("damaged.dxf", kDamaged), out = dir.file("whole.dxf");
    const auto refused = ardo::test::runProcess({ARDO_CAD_EXE, "--no-module", in, "-o", out});
    EXPECT_EQ(refused.exitCode, 1) << refused.output;
    EXPECT_NE(refused.output.find("--recover"), std::string::npos) << refused.output;

    const auto r = ardo::test::runProcess({ARDO_CAD_EXE, "--no-module", "--recover", in, "-o", out});
    EXPECT_EQ(r.exitCode, 0) << r.output;
    EXPECT_NE(r.output.find("Line 13: ENDSEC outside any section was left out."), std::string::npos) << r.output;
    EXPECT_NE(r.output.find("Line 24: The file ends at line 24 without 0 EOF"), std::string::npos) << r.output;
    EXPECT_NE(r.output.find("3 repairs made."), std::string::npos) << r.output;
    auto saved = Drawing::open(out);
    ASSERT_TRUE(saved) << saved.error();
    EXPECT_EQ(saved->entityCount(), 2u);
}

TEST(RecoverOption, NamedPipesAndDevicesAreRefusedAtOnce) {
    ardo::test::TempFolder dir;
    const std::string fifo = dir.file("pipe.dxf");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    for (const std::string& path : {fifo, std::string("/dev/zero")}) {
        // A child that blocked or read for ever would be stopped by the time limit.
        const auto r = ardo::test::runProcess({ARDO_CAD_EXE, "--no-module", path}, 20);
        EXPECT_EQ(r.exitCode, 1) << r.output;
        EXPECT_NE(r.output.find("not a drawing file"), std::string::npos) << r.output;
    }
}

}  // namespace
}  // namespace cadhost::test
