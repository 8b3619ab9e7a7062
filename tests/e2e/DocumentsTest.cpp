// Two drawings open in one session with the real module: each gets its own command stubs
// and LISP namespace, the module works on the current one, and the drawing's listeners hear
// what the module changed through the host boundary.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>

#include "cadhost/app/Application.h"
#include "cadhost/app/ConsoleInterface.h"
#include "e2e/E2eSupport.h"

namespace ardo::e2e {
namespace {

std::size_t count(const std::string& text, const std::string& part) {
    std::size_t n = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++n;
    return n;
}

TEST(Documents, TwoDrawingsEachWithItsOwnStubsAndNamespace) {
    const Installation install;
    const fs::path second = install.scratch("zweiter.dxf");
    fs::copy_file(corpusDrawing(), second);
    const fs::path saved = install.scratch("saved.dxf");
    // Which of the two layers the drawing has; defined in both drawings.
    const std::string layersMade =
        "(defun layers-made () (list (and (tblsearch \"LAYER\" \"A-Achsen\") T)"
        " (and (tblsearch \"LAYER\" \"A-Wand-Neubau\") T)))";
    const RunResult r = install.run({officeDrawing().string(), second.string(), "-e", "(setq nur \"zweiter\")", "-o",
                                     saved.string()},
                                    layersMade + "\n"
                                    "(list kemb_cmd_lsp_loaded (type C:WANDNEU) nur)\n"
                                    "(kemb_newlayer \"T\" \"A_ACHSE\")\n"
                                    "SWITCH office.dxf\n"
                                    "(type layers-made)\n" + layersMade + "\n"
                                    "(list kemb_cmd_lsp_loaded (type C:WANDNEU) nur)\n"
                                    "(kemb_newlayer \"T\" \"A_WAND_NEU\")\n"
                                    "(list (getvar \"DWGNAME\") (layers-made))\n"
                                    "WANDNEU\n"
                                    "SWITCH 2\n"
                                    "(list (getvar \"DWGNAME\") (layers-made))\n");
    EXPECT_EQ(r.exitCode, 0) << r.output;
    const std::string& out = r.output;
    for (const char* bad : {"; error", "Unknown command"}) EXPECT_EQ(out.find(bad), std::string::npos) << bad << out;
    // Each drawing loaded the command stubs the module wrote for it.
    EXPECT_EQ(count(out, "(list kemb_cmd_lsp_loaded (type C:WANDNEU) nur)\n(T USUBR \"zweiter\")\n"), 1u) << out;
    EXPECT_EQ(count(out, "(list kemb_cmd_lsp_loaded (type C:WANDNEU) nur)\n(T USUBR nil)\n"), 1u) << out;
    // A function defined in one drawing is not there in the other.
    EXPECT_NE(out.find("Command: (type layers-made)\nnil\n"), std::string::npos) << out;
    EXPECT_NE(out.find("(\"office.dxf\" (nil T))"), std::string::npos) << out;
    EXPECT_NE(out.find("(\"zweiter.dxf\" (T nil))"), std::string::npos) << out;
    EXPECT_NE(out.find("Wandlayer bereit: EG_A-Wand-nichttragend"), std::string::npos) << out;
    // -o saved the current drawing: the second one, with the layer made there only.
    const cadhost::Drawing d = openSaved(saved);
    EXPECT_TRUE(d.findLayer("A-Achsen"));
    EXPECT_FALSE(d.findLayer("A-Wand-Neubau"));
    EXPECT_FALSE(d.findLayer("EG_A-Wand-nichttragend"));
}

std::string mark(cadhost::Change c) {
    return c == cadhost::Change::Created ? "+ " : c == cadhost::Change::Modified ? "~ " : "- ";
}

// Hears the drawing's changes by kind and name.
struct Tally final : cadhost::DrawingListener {
    std::map<std::string, int> heard;
    void layerChanged(cadhost::Change c, const std::string& name) override { ++heard["layer" + mark(c) + name]; }
    void linetypeChanged(cadhost::Change c, const std::string& name) override { ++heard["linetype" + mark(c) + name]; }
    void variableChanged(const std::string& name) override { ++heard["setvar " + name]; }
};

TEST(Documents, ListenersHearWhatTheModuleChangedInTheirDrawing) {
    const Installation install;
    const TemporaryFolderOf temporary(install);
    std::string printed;
    cadhost::ConsoleInterface ui([&](std::string_view text) { printed += text; });
    cadhost::Application app(ui);
    app.setSupportPath({install.folder()});
    auto office = app.openDocument(officeDrawing().string());
    ASSERT_TRUE(office) << office.error();
    auto other = app.openDocument(corpusDrawing().string());
    ASSERT_TRUE(other) << other.error();
    Tally inOffice, inOther;
    (*office)->drawing().addListener(inOffice);
    (*other)->drawing().addListener(inOther);
    ASSERT_TRUE(app.modules().load(install.file("ardo.arx").string()));
    app.idle();
    app.activate(**office);
    inOffice.heard.clear();
    inOther.heard.clear();

    EXPECT_EQ(app.lisp().evaluate("(kemb_newlayer \"T\" \"A_ACHSE\")").printed, "0") << printed;
    EXPECT_EQ(inOffice.heard["layer+ A-Achsen"], 1);
    EXPECT_EQ(inOffice.heard["linetype+ ARDO_STRICHPUNKT"], 1);
    EXPECT_EQ(app.lisp().evaluate("(kemb_setlayer \"T\" \"A_ACHSE\" 4)").printed, "4") << printed;
    EXPECT_EQ(inOffice.heard["layer~ A-Achsen"], 1);
    EXPECT_EQ(app.lisp().evaluate("(setvar \"CLAYER\" \"A-Achsen\")").printed, "\"A-Achsen\"");
    EXPECT_EQ(inOffice.heard["setvar CLAYER"], 1);
    // The other drawing heard nothing of it.
    EXPECT_TRUE(inOther.heard.empty());
    (*office)->drawing().removeListener(inOffice);
    (*other)->drawing().removeListener(inOther);
    app.modules().quit();
}

}  // namespace
}  // namespace ardo::e2e
