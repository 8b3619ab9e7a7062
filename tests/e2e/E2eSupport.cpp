#include "e2e/E2eSupport.h"

#include <gtest/gtest.h>

#include "support/Ezdxf.h"

#include <cstdlib>
#include <fstream>
#include <variant>

namespace ardo::e2e {

RunResult runProcess(const std::vector<std::string>& argv, const std::map<std::string, std::string>& env,
                     const std::string& input, int timeoutSeconds) {
    return test::runProcess(argv, timeoutSeconds, {env, input});
}

Installation::Installation() : folder_(root_.path() / "ardo") {
    fs::copy(ARDO_BUILD_ARDO_DIR, folder_, fs::copy_options::recursive);
    // Settings folders that a run of the build's own ardo-cad left behind are not the
    // installation's: each test starts as a new user of it.
    for (const auto& entry : fs::directory_iterator(folder_ / "Benutzer"))
        if (entry.is_directory()) fs::remove_all(entry.path());
    fs::create_directories(root_.path() / "tmp");
}

void Installation::addCentralKeys(const std::vector<std::string>& lines) const {
    std::ofstream out(file("DefaultIni/Ardo.ini"), std::ios::binary | std::ios::app);
    for (const std::string& line : lines) out << line << "\r\n";
}

RunResult Installation::run(const std::vector<std::string>& args, const std::string& input,
                            std::map<std::string, std::string> env) const {
    env.try_emplace("TMPDIR", (root_.path() / "tmp").string());
    std::vector<std::string> argv{file("ardo-cad").string()};
    argv.insert(argv.end(), args.begin(), args.end());
    return runProcess(argv, env, input);
}

TemporaryFolderOf::TemporaryFolderOf(const Installation& install) : tmp_("TMPDIR", install.scratch("tmp")) {}

fs::path officeDrawing() { return fs::path(ARDO_SOURCE_DIR) / "examples/drawings/office.dxf"; }
fs::path corpusDrawing() { return fs::path(ARDO_TEST_DATA) / "e2e/colors_r2018.dxf"; }

cadhost::Drawing openSaved(const fs::path& dxf) {
    auto opened = cadhost::Drawing::open(dxf.string());
    if (!opened) {
        ADD_FAILURE() << dxf << ": " << opened.error();
        return cadhost::Drawing();
    }
    return std::move(opened).value();
}

LayerRecord layerOf(const cadhost::Drawing& drawing, const std::string& name) {
    const auto layer = drawing.findLayer(name);
    if (!layer) ADD_FAILURE() << "the saved drawing has no layer \"" << name << "\"";
    return layer.value_or(LayerRecord{});
}

bool hasEzdxf() { return test::pythonWithEzdxf().has_value(); }

bool hasLibreCad() { return runProcess({"sh", "-c", "command -v librecad"}, {}, "").exitCode == 0; }

std::optional<std::string> ezdxfEval(const fs::path& dxf, const std::string& expression) {
    if (!hasEzdxf()) return std::nullopt;
    const std::string script = "import sys, ezdxf\nd = ezdxf.readfile(sys.argv[1])\nprint(" + expression + ")\n";
    const RunResult r = test::runPython(*test::pythonWithEzdxf(), script, {dxf.string()});
    if (r.exitCode != 0) return "ezdxf failed: " + r.output;
    return r.output;
}

}  // namespace ardo::e2e
