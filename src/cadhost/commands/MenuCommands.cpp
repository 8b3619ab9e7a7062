// MENULOAD and MENUUNLOAD: the host keeps the list of loaded menu groups. A group is named
// by the "***MENUGROUP=" line of its menu file, else by the file's base name.
#include <algorithm>
#include <filesystem>
#include <fstream>

#include "cadhost/commands/Command.h"
#include "cadhost/commands/CommandInput.h"
#include "base/CaseFold.h"

namespace cadhost::commands {

namespace {

using ardo::ResBuf;

std::string menuGroupName(const std::filesystem::path& file) {
    std::ifstream in(file);
    std::string line;
    const std::string key = "***MENUGROUP=";
    while (std::getline(in, line)) {
        const auto trimmed = ardo::trimWhite(line);
        if (trimmed.size() > key.size() && ardo::upperCase(trimmed.substr(0, key.size())) == key)
            return std::string(ardo::trimWhite(trimmed.substr(key.size())));
    }
    return file.stem().string();
}

auto findGroup(Context& context, const std::string& name) {
    return std::find_if(context.menuGroups.begin(), context.menuGroups.end(),
                        [&](const MenuGroup& g) { return ardo::equalsNoCase(g.name, name); });
}

class MenuloadCommand final : public Command {
public:
    explicit MenuloadCommand(Context& context) : context_(context) {}

    std::string prompt() const override { return "Enter name of customization file to load: "; }

    Step take(const ResBuf& input) override {
        if (isEnter(input)) return Step::Done;
        const std::filesystem::path file = inputText(input);
        std::error_code ec;
        if (!std::filesystem::is_regular_file(file, ec)) {
            context_.message("Menu file \"" + file.string() +
                             "\" not found.  Check the name and the folder and load it again.\n");
            return Step::Refused;
        }
        const std::string name = menuGroupName(file);
        if (findGroup(context_, name) != context_.menuGroups.end()) {
            context_.message("Menu group \"" + name + "\" is loaded already.  Unload it first with MENUUNLOAD.\n");
            return Step::Refused;
        }
        context_.menuGroups.push_back({name, file.string()});
        context_.echo("Menu group \"" + name + "\" loaded.\n");
        return Step::Done;
    }

private:
    Context& context_;
};

class MenuunloadCommand final : public Command {
public:
    explicit MenuunloadCommand(Context& context) : context_(context) {}

    std::string prompt() const override { return "Enter the name of a Menu Group to unload: "; }

    Step take(const ResBuf& input) override {
        if (isEnter(input)) return Step::Done;
        const std::string name = inputText(input);
        const auto group = findGroup(context_, name);
        if (group == context_.menuGroups.end()) {
            context_.message("Menu group \"" + name + "\" is not loaded.\n");
            return Step::Refused;
        }
        context_.menuGroups.erase(group);
        context_.echo("Menu group \"" + name + "\" unloaded.\n");
        return Step::Done;
    }

private:
    Context& context_;
};

}  // namespace

std::unique_ptr<Command> makeMenuloadCommand(Context& context) { return std::make_unique<MenuloadCommand>(context); }
std::unique_ptr<Command> makeMenuunloadCommand(Context& context) {
    return std::make_unique<MenuunloadCommand>(context);
}

}  // namespace cadhost::commands
