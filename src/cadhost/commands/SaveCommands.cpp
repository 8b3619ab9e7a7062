// QSAVE and SAVEAS: the drawing is written as DXF, replacing the file atomically.
#include <filesystem>

#include "cadhost/commands/Command.h"
#include "cadhost/commands/CommandInput.h"
#include "cadhost/drawing/Drawing.h"
#include "base/CaseFold.h"

namespace cadhost::commands {

namespace {

using ardo::ResBuf;

// Empty for a drawing that was never read or saved: its DWGNAME is only a default name.
std::string drawingPath(const Drawing& drawing) {
    const auto name = drawing.getVar("DWGNAME");
    const auto prefix = drawing.getVar("DWGPREFIX");
    if (!name || !prefix || prefix->text.empty()) return {};
    return prefix->text + name->text;
}

Step saveTo(Context& context, const std::string& path) {
    if (const ardo::Status saved = context.drawing->save(path); !saved) {
        context.message(saved.error() + "\n");
        return Step::Refused;
    }
    return Step::Done;
}

class QsaveCommand final : public Command {
public:
    explicit QsaveCommand(Context& context) : context_(context) {}

    Step start() override {
        const std::string path = drawingPath(*context_.drawing);
        if (path.empty()) {
            context_.message("The drawing has no file name yet.  Use SAVEAS to give it one.\n");
            return Step::Refused;
        }
        return saveTo(context_, path);
    }
    std::string prompt() const override { return {}; }
    Step take(const ResBuf&) override { return Step::Done; }

private:
    Context& context_;
};

class SaveasCommand final : public Command {
public:
    explicit SaveasCommand(Context& context) : context_(context) {}

    std::string prompt() const override {
        switch (ask_) {
            case Ask::Format: return "Current file format: DXF\nEnter file format [DXF] <DXF>: ";
            case Ask::Path: return "Save drawing as <" + drawingPath(*context_.drawing) + ">: ";
            case Ask::Replace: return "A drawing with this name already exists.\nDo you want to replace it? <N> ";
        }
        return {};
    }

    Step take(const ResBuf& input) override {
        switch (ask_) {
            case Ask::Format:
                ask_ = Ask::Path;
                // The file type may be left out: then this is the file name already.
                if (isEnter(input) || matchKeyword(input, {"DXF"})) return Step::More;
                return takePath(input);
            case Ask::Path: return takePath(input);
            case Ask::Replace: {
                const auto answer = matchKeyword(input, {"Yes", "No"});
                if (!isEnter(input) && !answer) return refuse(kInvalidKeyword);
                if (answer && *answer == 0) return saveTo(context_, path_);
                context_.echo("The drawing was not saved.\n");
                return Step::Done;
            }
        }
        return Step::Refused;
    }

private:
    enum class Ask { Format, Path, Replace };

    Step refuse(const std::string& message) {
        context_.message(message);
        return Step::Refused;
    }

    Step takePath(const ResBuf& input) {
        if (input.restype != ardo::RTSTR) return refuse("Give the file name as text.\n");
        std::filesystem::path path = isEnter(input) ? drawingPath(*context_.drawing) : input.text;
        if (path.empty()) return refuse("Give a file name for the drawing.\n");
        if (!path.has_extension()) path += ".dxf";
        if (ardo::upperCase(path.extension().string()) != ".DXF")
            return refuse("ardo-cad saves DXF only.  Give a file name ending in \".dxf\".\n");
        path_ = path.string();
        std::error_code ec;
        if (path_ != drawingPath(*context_.drawing) && std::filesystem::exists(path, ec)) {
            ask_ = Ask::Replace;
            return Step::More;
        }
        return saveTo(context_, path_);
    }

    Context& context_;
    Ask ask_ = Ask::Format;
    std::string path_;
};

}  // namespace

std::unique_ptr<Command> makeQsaveCommand(Context& context) { return std::make_unique<QsaveCommand>(context); }
std::unique_ptr<Command> makeSaveasCommand(Context& context) { return std::make_unique<SaveasCommand>(context); }

}  // namespace cadhost::commands
