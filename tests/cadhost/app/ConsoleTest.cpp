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
              // The prompt starts a line of its own after output without a line end.
              "Command: twice\n2\n"
              "Command: (car nil nil)\n; error: too many arguments\n"
              "Command: !n\n2\n"
              "Command: (setvar \"CLAYER\" \"Wand\")\n\"Wand\"\n");
    ASSERT_TRUE(fs::exists(saved));
    auto reread = Drawing::open(saved.string());
    ASSERT_TRUE(reread) << reread.error();
    EXPECT_EQ(reread->getVar("CLAYER")->text, "Wand");
    EXPECT_EQ(reread->entityCount(), 2u);
    // An independent reader where the machine has one.
    if (auto read = ezdxf(saved, "d.header['$CLAYER'], d.header['$USERI1'], len(d.modelspace())")) {
        EXPECT_EQ(*read, "Wand 42 2\n");
    }
}

// A start-up step that fails leaves the output file alone, skips what follows, and the
// exit status says so.
TEST_F(Console, FailedStartUpStepsSaveNothing) {
    const fs::path previous = write("prev.dxf", "the previous drawing\n");
    const fs::path folder = dir / "scripts";
    fs::create_directories(folder);
    const fs::path failing = write("failing.lsp", "(setq a 1)\n(car 1)\n(setq b 2)\n");
    struct Case {
        std::vector<std::string> steps;
        std::string message;
    };
    for (const Case& c : {Case{{"-s", (dir / "missing.lsp").string()}, "cannot read script"},
                          Case{{"-s", folder.string()}, "it is a folder"},
                          Case{{"-e", "(car 1)"}, "the expression \"(car 1)\" failed"},
                          Case{{"-e", "(princ \"open\""}, "failed"},
                          Case{{"-e", "NOSUCHCOMMAND"}, "failed"},
                          Case{{"-s", failing.string()}, "the script"}}) {
        std::vector<std::string> args{ARDO_TEST_DATA "/app/two-lines.dxf", "--no-module"};
        args.insert(args.end(), c.steps.begin(), c.steps.end());
        args.insert(args.end(), {"-e", "(princ \"later\")", "-o", previous.string()});
        const Outcome r = run(args, "(princ \"stdin\")\n");
        EXPECT_EQ(r.exitCode, 1) << c.steps.back();
        EXPECT_NE(r.err.find(c.message), std::string::npos) << r.err;
        EXPECT_NE(r.err.find("nothing was saved"), std::string::npos) << r.err;
        EXPECT_EQ(r.out.find("later"), std::string::npos) << r.out;
        EXPECT_EQ(r.out.find("stdin"), std::string::npos) << r.out;
        EXPECT_EQ(ardo::test::readBytes(previous), "the previous drawing\n") << c.steps.back();
    }
}

// Two drawings in one run: each has its own LISP namespace; the last one given is current
// and is the one -o saves; DRAWINGS and SWITCH list and change the current one.
TEST_F(Console, SeveralDrawingsEachWithItsOwnNamespace) {
    const fs::path second = write("second.dxf", ardo::test::readBytes(ARDO_TEST_DATA "/app/two-lines.dxf"));
    const fs::path saved = dir / "saved.dxf";
    const Outcome r = run({ARDO_TEST_DATA "/app/two-lines.dxf", second.string(), "--no-module", "-e",
                           "(setq where \"second\")", "-o", saved.string()},
                          "DRAWINGS\n"
                          "SWITCH 1\n"
                          "(list where (getvar \"DWGNAME\") (drawings))\n"
                          "(setq where \"first\")\n"
                          "(command \"_.LAYER\" \"_NEW\" \"NurEins\" \"\")\n"
                          "SWITCH\n"
                          "second.DXF\n"
                          "(list where (tblsearch \"LAYER\" \"NurEins\"))\n"
                          "(switchdrawing 1) (getvar \"DWGNAME\")\n"
                          "(getvar \"DWGNAME\")\n"
                          "(switchdrawing \"nowhere.dxf\")\n"
                          "(switchdrawing 2)\n");
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.err, "");
    const std::string first = fs::absolute(ARDO_TEST_DATA "/app/two-lines.dxf").string();
    EXPECT_NE(r.out.find("Command: DRAWINGS\n  1  two-lines.dxf  (" + first + ")\n* 2  second.dxf  (" +
                         second.string() + ")\n"),
              std::string::npos)
        << r.out;
    EXPECT_NE(r.out.find("Command: SWITCH 1\nCurrent drawing: two-lines.dxf\n"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("(nil \"two-lines.dxf\" (\"two-lines.dxf\" \"second.dxf\"))"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("Drawing to make current (number or name): second.DXF\nCurrent drawing: second.dxf\n"),
              std::string::npos)
        << r.out;
    EXPECT_NE(r.out.find("(list where (tblsearch \"LAYER\" \"NurEins\"))\n(\"second\" nil)\n"), std::string::npos)
        << r.out;
    // A switch asked for in LISP takes effect when the expression is done.
    EXPECT_NE(r.out.find("(switchdrawing 1) (getvar \"DWGNAME\")\n\"two-lines.dxf\"\n\"second.dxf\"\n"),
              std::string::npos)
        << r.out;
    EXPECT_NE(r.out.find("Command: (getvar \"DWGNAME\")\n\"two-lines.dxf\"\n"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("(switchdrawing \"nowhere.dxf\")\nnil\n"), std::string::npos) << r.out;
    // -o saves the current drawing: the second, without the first one's layer.
    auto reread = Drawing::open(saved.string());
    ASSERT_TRUE(reread) << reread.error();
    EXPECT_FALSE(reread->findLayer("NurEins"));
    EXPECT_EQ(reread->entityCount(), 2u);
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
