#include "cadhost/drawing/DxfTestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace cadhost::test {

namespace fs = std::filesystem;

std::string fixture(const std::string& name) { return std::string(ARDO_TEST_DATA) + "/dxf/" + name; }

fs::path corpusDir() { return fs::path(ARDO_SOURCE_DIR) / ".." / "shared" / "dxf-corpus"; }

std::vector<fs::path> corpusFiles() {
    std::vector<fs::path> files;
    std::error_code ec;
    for (const auto& e : fs::directory_iterator(corpusDir(), ec))
        if (e.path().extension() == ".dxf") files.push_back(e.path());
    std::sort(files.begin(), files.end());
    return files;
}

Drawing openOrFail(const std::string& path) {
    auto r = Drawing::open(path);
    if (!r) {
        ADD_FAILURE() << r.error();
        return Drawing();
    }
    return std::move(r).value();
}

Drawing parseOrFail(const std::string& bytes) {
    auto r = Drawing::fromBytes(bytes);
    if (!r) {
        ADD_FAILURE() << r.error();
        return Drawing();
    }
    return std::move(r).value();
}

bool hasLibreCad() { return ardo::test::runProcess({"sh", "-c", "command -v librecad"}).exitCode == 0; }

std::string ezdxfAuditErrors(const std::string& python, const fs::path& dxf) {
    const char* script =
        "import sys, ezdxf\n"
        "doc = ezdxf.readfile(sys.argv[1])\n"
        "a = doc.audit()\n"
        "for e in a.errors: print('ERROR', e.code, e.message)\n"
        "for f in a.fixes: print('FIXED', f.code, f.message)\n"
        "sys.exit(1 if a.has_errors or a.has_fixes else 0)\n";
    const auto r = runPython(python, script, {dxf.string()});
    return r.exitCode == 0 ? std::string() : "exit " + std::to_string(r.exitCode) + ": " + r.output;
}

bool libreCadRenders(const fs::path& dxf, std::string& log) {
    const fs::path pdf = fs::path(dxf).replace_extension(".pdf");
    std::error_code ec;
    fs::remove(pdf, ec);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const auto r = ardo::test::runProcess({"librecad", "dxf2pdf", "-o", pdf.string(), dxf.string()}, 60);
    log = r.output;
    return r.exitCode == 0 && fs::exists(pdf) && fs::file_size(pdf) > 0;
}

}  // namespace cadhost::test
