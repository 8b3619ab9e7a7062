#pragma once
// Helpers of the drawing tests: fixture paths, and the independent DXF readers (ezdxf through
// python3, LibreCAD) run as child processes.
#include <filesystem>
#include <string>
#include <vector>

#include "cadhost/drawing/Drawing.h"
#include "support/Ezdxf.h"
#include "support/TempFolder.h"

namespace cadhost::test {

std::string fixture(const std::string& name);
std::filesystem::path corpusDir();
std::vector<std::filesystem::path> corpusFiles();
using ardo::test::readBytes;
using ardo::test::TempFolder;

Drawing openOrFail(const std::string& path);
// The damaged drawings of the corpus ("recover" in the name) are refused by a normal open
// and read through recovery with at least one repair; every other one opens normally.
bool isDamagedCorpusFile(const std::filesystem::path& path);
Drawing openCorpusFile(const std::filesystem::path& path);
Drawing parseOrFail(const std::string& bytes);

using ardo::test::pythonWithEzdxf;
using ardo::test::runPython;

bool hasLibreCad();
// Runs ezdxf's audit on the file; empty when it finds nothing to report (no errors and
// nothing it had to fix), else its report.
std::string ezdxfAuditErrors(const std::string& python, const std::filesystem::path& dxf);
// Prints the file to PDF with LibreCAD headless; true when a non-empty PDF came out.
bool libreCadRenders(const std::filesystem::path& dxf, std::string& log);

}  // namespace cadhost::test
