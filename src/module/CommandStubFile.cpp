#include "module/CommandStubFile.h"

#include "base/CaseFold.h"
#include "module/HostBinding.h"
#include "base/Printf.h"
#include "base/TextFile.h"
#include "module/paths/Platform.h"
#include "module/paths/UserPaths.h"
#include "settings/ModuleFiles.h"

namespace ardo {

namespace {

constexpr const char* kArxStub =
    "(if (not C:%s)(if(=(kemb_xloaded \"%s\")1)(defun C:%s()(kemb_xload \"%s\")(C:%s))))";
constexpr const char* kLtStub = "(defun C:%s()(kemb_ltload \"%s\" \"C:%s\"))";
constexpr const char* kLispStub = "(defun C:%s()(load \"%s\")(C:%s))";

enum class ProgramKind { Arx, Lisp, Vba, Invalid };

ProgramKind kindOf(const std::string& file) {
    size_t dot = file.rfind('.');
    if (dot == std::string::npos || dot == 0) return ProgramKind::Invalid;
    const std::string ext = upperCase(file.substr(dot));
    if (ext == ".ARX" || ext == ".DBX") return ProgramKind::Arx;
    if (ext == ".LSP" || ext == ".VLX" || ext == ".FAS") return ProgramKind::Lisp;
    if (ext == ".DVB") return ProgramKind::Vba;
    return ProgramKind::Invalid;
}

// LISP strings double the backslash; paths with forward slashes pass unchanged.
std::string lispPath(const std::string& path) {
    std::string out;
    for (char c : path) {
        if (c == '\\') out += '\\';
        out += c;
    }
    return out;
}

std::string programPath(const std::string& file) {
    if (!file.empty() && (file[0] == '/' || file[0] == '\\' || file.find(':') != std::string::npos))
        return file;
    return moduleFiles().programFolder + file;
}

}  // namespace

std::string commandStubPath() {
    std::string computer;
    getComputerName(computer);
    return platform::tempFolder() + computer + "_Cmd.lsp";
}

std::string stubLoadExpression(const std::string& path) { return "(load \"" + lispPath(path) + "\")\n"; }

int writeCommandStubFile(const std::string& path, const SettingsStore* definition, bool ltHost) {
    std::string text;
    if (definition) {
        auto header = definition->findSection("BEFEHLE");
        for (auto it = header == definition->end() ? header : std::next(header);
             it != definition->end() && !it->isSection(); ++it) {
            const std::string& command = it->key;
            const std::string file = std::string(trimWhite(it->value));
            const ProgramKind kind = kindOf(file);
            if (kind == ProgramKind::Invalid || command.empty()) {
                host().print(format("\nArdo.arx: Error '%s': invalid file name '%s'", command, file));
                continue;
            }
            const std::string program = lispPath(programPath(file));
            if (ltHost) {
                text += format(kLtStub, command, program, command);
            } else if (kind == ProgramKind::Arx) {
                text += format(kArxStub, command, program, command, program, command);
            } else if (kind == ProgramKind::Lisp) {
                text += format(kLispStub, command, program, command);
            } else {
                host().print(format("skipped command line for '%s'\n", command));
                continue;
            }
            text += '\n';
        }
    }
    text += "(setq kemb_cmd_lsp_loaded T)\n";
    if (!writeTextFile(path, text, kNewFileLineEnd)) {
        host().print(format("Cant open file '%s' for write\n", path));
        return RTERROR;
    }
    return RTNORM;
}

}  // namespace ardo
