#pragma once
// ardo-cad run as a user runs it: a child process on a copy of the build's installation,
// with the drawing it saved read back by the host's own reader and by ezdxf.
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "cadhost/drawing/Drawing.h"
#include "support/ChildProcess.h"
#include "support/TempFolder.h"
#include "support/EnvironmentOverride.h"

namespace ardo::e2e {

namespace fs = std::filesystem;

using RunResult = test::ProcessResult;

// Runs a program with extra environment variables and the text on its standard input;
// timeout(1) ends a run that hangs.
RunResult runProcess(const std::vector<std::string>& argv, const std::map<std::string, std::string>& env,
                     const std::string& input, int timeoutSeconds = 120);

// A private copy of the build's ardo folder (ardo-cad, ardo.arx, the example installation),
// so that the users' files one test provides never reach another.
class Installation {
public:
    Installation();
    const fs::path& folder() const { return folder_; }
    fs::path file(const std::string& relative) const { return folder_ / relative; }
    fs::path scratch(const std::string& name) const { return fs::path(root_.file(name)); }
    // Appends "key=value" lines to the [LAYER] section (the last section) of the default
    // central file, in its Windows-1252 with CRLF.
    void addCentralKeys(const std::vector<std::string>& lines) const;
    // ardo-cad with the arguments and standard input; TMPDIR is a folder of this copy unless
    // the test gives its own.
    RunResult run(const std::vector<std::string>& args, const std::string& input = "",
                  std::map<std::string, std::string> env = {}) const;

private:
    test::TempFolder root_;
    fs::path folder_;
};

// TMPDIR points into the installation while a test runs (the module writes its command stub
// there) and is given back afterwards.
class TemporaryFolderOf {
public:
    explicit TemporaryFolderOf(const Installation& install);

private:
    ardo::test::EnvironmentOverride tmp_;
};

// The sample drawing of the examples and a corpus drawing copied for these tests.
fs::path officeDrawing();
fs::path corpusDrawing();

// The saved drawing as the host reads it; fails the test when it cannot be read.
cadhost::Drawing openSaved(const fs::path& dxf);
// The layer of the drawing, or a failure naming it.
LayerRecord layerOf(const cadhost::Drawing& drawing, const std::string& name);

// What ezdxf prints for an expression over the drawing `d`, or nothing when Debian's
// python3 with ezdxf is not installed.
std::optional<std::string> ezdxfEval(const fs::path& dxf, const std::string& expression);
bool hasEzdxf();
bool hasLibreCad();

}  // namespace ardo::e2e
