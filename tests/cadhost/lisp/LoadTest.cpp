#include <filesystem>

#include "TestHost.h"
#include "support/TempFolder.h"

namespace cadhost::lisp::test {
namespace {

namespace fs = std::filesystem;

class Loading : public LispTest {
protected:
    ardo::test::TempFolder folder;
    const fs::path& dir = folder.path();

    void SetUp() override {
        fs::create_directories(dir / "sub");
        folder.write("sub/tools.lsp", "(defun twice (x) (* 2 x))\n(setq loaded \"tools\")\n");
        folder.write("broken.lsp", "(setq half 1)\n(defun oops (\n");
        host.support = {dir / "sub", dir};
    }
};

TEST_F(Loading, LoadFindsFilesAlongTheSearchPath) {
    EXPECT_EQ(run("(load \"tools\")"), "\"tools\"");
    EXPECT_EQ(run("(twice 21)"), "42");
    EXPECT_EQ(run("(findfile \"tools.lsp\")"), "\"" + (dir / "sub" / "tools.lsp").generic_string() + "\"");
    EXPECT_EQ(run("(findfile \"missing.lsp\")"), "nil");
    const std::string absolute = (dir / "sub" / "tools.lsp").generic_string();
    EXPECT_EQ(run("(load \"" + absolute + "\")"), "\"tools\"");
}

TEST_F(Loading, FailuresNameTheFile) {
    EXPECT_EQ(run("(load \"nothere\")"), "ERR:LOAD failed: \"nothere\"");
    EXPECT_EQ(run("(load \"nothere\" 'fallback)"), "FALLBACK");
    const EvalResult r = lisp.loadFile("nothere.lsp");
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(host.output, "; error: LOAD failed: \"nothere\"\n; error: LOAD failed: \"nothere.lsp\"\n");
    // Forms before a malformed one have run.
    EXPECT_EQ(run("(load \"broken\")"), "ERR:malformed list on input");
    EXPECT_EQ(run("half"), "1");
}

TEST_F(Loading, FilesOpenWriteAndRead) {
    const std::string name = (dir / "out.txt").generic_string();
    EXPECT_EQ(run("(setq f (open \"" + name + "\" \"w\")) (write-line \"erste\" f) (princ 42 f) (close f)"), "nil");
    EXPECT_EQ(run("(setq f (open \"" + name + "\" \"r\")) (type f)"), "FILE");
    EXPECT_EQ(run("(list (read-line f) (read-line f) (read-line f))"), "(\"erste\" \"42\" nil)");
    EXPECT_EQ(run("(close f) (open \"" + (dir / "no" / "x").generic_string() + "\" \"r\")"), "nil");
}

TEST_F(Loading, GetenvReadsTheEnvironment) {
    ::setenv("ARDO_LISP_TEST_VALUE", "Zeichnung", 1);
    ::unsetenv("ARDO_LISP_TEST_UNSET");
    EXPECT_EQ(run("(list (getenv \"ARDO_LISP_TEST_VALUE\") (getenv \"ARDO_LISP_TEST_UNSET\"))"), "(\"Zeichnung\" nil)");
}

}  // namespace
}  // namespace cadhost::lisp::test
