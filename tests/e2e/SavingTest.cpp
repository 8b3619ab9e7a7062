// Saving with -o onto what is not a plain file, and names that no drawing may hold.
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include "e2e/E2eSupport.h"

namespace ardo::e2e {
namespace {

TEST(Saving, APipeIsRefusedWithAMessageAndALinkIsWrittenThrough) {
    const Installation install;
    const fs::path fifo = install.scratch("pipe.dxf");
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    const RunResult refused = install.run({officeDrawing().string(), "-o", fifo.string()});
    EXPECT_NE(refused.exitCode, 0) << refused.output;
    EXPECT_NE(refused.output.find("not a regular file"), std::string::npos) << refused.output;
    EXPECT_TRUE(fs::is_fifo(fifo));

    const fs::path target = install.scratch("shared.dxf");
    const fs::path link = install.scratch("link.dxf");
    fs::create_symlink(target.filename(), link);
    const RunResult saved = install.run({officeDrawing().string(), "-o", link.string()});
    EXPECT_EQ(saved.exitCode, 0) << saved.output;
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_TRUE(openSaved(target).findLayer("Raumtext"));
}

// A line break in a layer name or a system variable is refused at the prompt, so the saved
// drawing reads back.
TEST(Saving, NamesWithLineBreaksNeverReachTheDrawing) {
    const Installation install;
    const fs::path saved = install.scratch("saved.dxf");
    const RunResult r = install.run({officeDrawing().string(), "-e", "(command \"-LAYER\" \"N\" \"a\\nb\" \"\")",
                                     "-e", "(kemb_newlayer \"T\" \"A_ACHSE\" (strcat \"a\" (chr 10) \"b\"))", "-o",
                                     saved.string()});
    EXPECT_NE(r.output.find("Invalid layer name"), std::string::npos) << r.output;
    // A refused system variable is an error of the start-up expression: nothing is saved.
    const fs::path refused = install.scratch("refused.dxf");
    const RunResult v = install.run({officeDrawing().string(), "-e", "(setvar \"CLAYER\" (strcat \"0\" (chr 10)))",
                                     "-o", refused.string()});
    EXPECT_EQ(v.exitCode, 1) << v.output;
    EXPECT_FALSE(fs::exists(refused));
    const cadhost::Drawing d = openSaved(saved);
    d.forEachLayer([](const LayerRecord& layer) {
        EXPECT_EQ(layer.name.find_first_of("\r\n"), std::string::npos) << layer.name;
        return true;
    });
    if (auto read = ezdxfEval(saved, "len(d.audit().errors)")) {
        EXPECT_EQ(*read, "0\n");
    }
}

}  // namespace
}  // namespace ardo::e2e
