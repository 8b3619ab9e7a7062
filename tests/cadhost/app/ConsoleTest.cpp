// ardo-cad run as a child process on real files, as users and scripts run it.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "cadhost/drawing/Drawing.h"
#include "support/Ezdxf.h"
#include "support/TempFolder.h"

namespace cadhost::test {
namespace {

namespace fs = std::filesystem;

std::string quoted(const std::string& s) {
    std::string q = "'";
    for (char c : s) q += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return q + "'";
}

struct Outcome {
    int exitCode = -1;
    std::string out;
    std::string err;
};

class Console : public ::testing::Test {
protected:
    ardo::test::TempFolder folder;
    const fs::path& dir = folder.path();

    fs::path write(const std::string& name, const std::string& text) { return folder.write(name, text); }

    // Runs ardo-cad with the arguments and the text on standard input (script mode).
    Outcome run(const std::vector<std::string>& args, const std::string& input = "") {
        std::string cmd = quoted(ARDO_CAD_EXE);
        for (const std::string& a : args) cmd += " " + quoted(a);
        cmd += " < " + quoted(write("stdin.txt", input).string()) + " > " + quoted((dir / "out.txt").string()) +
               " 2> " + quoted((dir / "err.txt").string());
        const int status = std::system(cmd.c_str());
        Outcome r;
        r.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        r.out = ardo::test::readBytes(dir / "out.txt");
        r.err = ardo::test::readBytes(dir / "err.txt");
        return r;
    }

    // What ezdxf reads from a saved drawing, or nothing when ezdxf is not there.
    std::optional<std::string> ezdxf(const fs::path& dxf, const std::string& expression) {
        const auto python = ardo::test::pythonWithEzdxf();
        if (!python) return std::nullopt;
        const auto r = ardo::test::runPython(
            *python, "import sys, ezdxf\nd = ezdxf.readfile(sys.argv[1])\nprint(" + expression + ")\n", {dxf.string()});
        if (r.exitCode != 0) return "ezdxf failed: " + r.output;
        return r.output;
    }
};

TEST_F(Console, ExpressionsScriptsAndStandardInputRunInOrderAndTheDrawingIsSaved) {
    const fs::path script = write("setup.lsp",
                                  "(setq n 1)\n"
                                  "(defun c:twice ()\n"
                                  "  (setq n (* n 2))\n"
                                  "  (princ n) (princ))\n");
    const fs::path saved = dir / "saved.dxf";
    const Outcome r = run({ARDO_TEST_DATA "/app/two-lines.dxf", "--no-module", "-e", "(setq n 0)", "-s", script.string(),
                       "-e", "(setvar \"USERI1\" 42)", "-o", saved.string()},
                      "twice\n(car nil nil)\n!n\n(setvar \"CLAYER\" \"Wand\")\n");
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(r.out,
              "0\n"
              "Command: (setq n 1)\n1\n"
              "Command: (defun c:twice ()\n  (setq n (* n 2))\n  (princ n) (princ))\nC:TWICE\n"
              "42\n"
              "Command: twice\n2"
              "Command: (car nil nil)\n; error: too many arguments\n"
              "Command: !n\n2\n"
              "Command: (setvar \"CLAYER\" \"Wand\")\n\"Wand\"\n");
    ASSERT_TRUE(fs::exists(saved));
    auto reread = Drawing::open(saved.string());
    ASSERT_TRUE(std::holds_alternative<Drawing>(reread)) << std::get<std::string>(reread);
    EXPECT_EQ(std::get<Drawing>(reread).getVar("CLAYER")->text, "Wand");
    EXPECT_EQ(std::get<Drawing>(reread).entityCount(), 2u);
    // An independent reader where the machine has one.
    if (auto read = ezdxf(saved, "d.header['$CLAYER'], d.header['$USERI1'], len(d.modelspace())")) {
        EXPECT_EQ(*read, "Wand 42 2\n");
    }
}

TEST_F(Console, QuitEndsTheSessionAndLaterInputIsNotRun) {
    const Outcome r = run({"--no-module", "-e", "(princ \"a\")", "-e", "(quit)", "-e", "(princ \"b\")"}, "(princ \"c\")\n");
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, "a\"a\"\n");
}

TEST_F(Console, UnreadableFilesAreReportedWithExitCodeOne) {
    Outcome r = run({(dir / "missing.dxf").string(), "--no-module"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("missing.dxf"), std::string::npos) << r.err;

    r = run({"--no-module", "-s", (dir / "missing.lsp").string(), "-e", "(princ \"not run\")"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("cannot read script"), std::string::npos) << r.err;
    EXPECT_EQ(r.out.find("not run"), std::string::npos);

    r = run({"--no-module", "-o", (dir / "no-folder" / "x.dxf").string()});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("x.dxf"), std::string::npos) << r.err;

    r = run({"--module", (dir / "none.arx").string()});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("none.arx"), std::string::npos) << r.err;

    r = run({"--answer", "perhaps"});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_NE(r.err.find("--answer takes yes, no, ok or cancel"), std::string::npos) << r.err;
}

TEST_F(Console, ModuleIsLoadedAndMessageBoxesTakeTheGivenAnswers) {
    const Outcome r = run({"--module", ARDO_TEST_MODULE, "--answer", "no"},
                      "testmod-ready\n(tm_result \"ask\")\n(tm_result \"ask\")\n(tm_add 1 2)\n");
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out,
              "testmod: init\ntestmod: load drawing\n"
              "Command: testmod-ready\nUnknown command \"TESTMOD-READY\".  Press F1 for help.\n"
              "Command: (tm_result \"ask\")\n\n+-- testmod (Question) --\n| Continue?\n+-- [Yes] No\nAnswer: No\n\"No\"\n"
              "Command: (tm_result \"ask\")\n\n+-- testmod (Question) --\n| Continue?\n+-- [Yes] No\nAnswer: Yes\n\"Yes\"\n"
              "Command: (tm_add 1 2)\n3\n"
              "testmod: pre-quit\ntestmod: unload drawing\ntestmod: quit\n");
}

}  // namespace
}  // namespace cadhost::test
