#pragma once
// The Edit, Draw and Modify menus: each item runs its command as if typed at the command
// line, as the common hosts' menu macros do.
#include <functional>
#include <string>
#include <string_view>
#include <vector>

class QMenuBar;

namespace cadhost::gui {

struct MenuCommand {
    const char* menu;      // "&Edit", "&Draw", "&Modify"
    const char* text;      // the item, with its mnemonic
    const char* command;   // the command line typed, with the global-name prefix
    const char* shortcut;  // in portable text ("Ctrl+Z"), empty for none
};

// Every command item, menu by menu, in menu order.
const std::vector<MenuCommand>& menuCommands();

// Adds the menu of that title ("&Draw") with its items at the end of `bar`; `run` gets the
// item's command line.
void addCommandMenu(QMenuBar& bar, std::string_view menu, const std::function<void(const std::string&)>& run);

}  // namespace cadhost::gui
