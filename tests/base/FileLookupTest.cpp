#include "base/FileLookup.h"

#include <gtest/gtest.h>

#include "support/TempFolder.h"

namespace ardo {
namespace {

using test::TempFolder;

// An installation copied from Windows: the names on disk are spelled otherwise than the
// entries that refer to them.
TEST(FileLookup, FindsFilesInAnyCaseAndWithBackslashes) {
    TempFolder dir;
    std::filesystem::create_directories(dir.file("Objektarten/Wände"));
    const auto typ = dir.write("Objektarten/Typ.ini", "[Layer]\n");
    const auto lin = dir.write("ARDO.LIN", "*X,x\n");
    const auto umlaut = dir.write("Objektarten/Wände/TÜR.INI", "");
    const std::string root = dir.path().string();

    EXPECT_EQ(findOnDisk(lin), lin);
    EXPECT_EQ(findOnDisk(root + "/ardo.lin"), lin);
    EXPECT_EQ(findOnDisk(root + "/objektarten\\typ.ini"), typ);
    EXPECT_EQ(findOnDisk(root + "\\OBJEKTARTEN\\\\Typ.ini"), typ);
    EXPECT_EQ(findOnDisk(root + "/objektarten/wÄnde/tür.ini"), umlaut);
    EXPECT_EQ(findOnDisk(root + "/objektarten\\", true), root + "/Objektarten");

    EXPECT_FALSE(findOnDisk(root + "/objektarten/fehlt.ini"));
    EXPECT_FALSE(findOnDisk(root + "/objektarten")) << "a folder is not a file";
    EXPECT_FALSE(findOnDisk(root + "/ardo.lin", true)) << "a file is not a folder";
    EXPECT_FALSE(findOnDisk(""));
}

}  // namespace
}  // namespace ardo
