#include "cadhost/gui/CommandMenus.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

namespace cadhost::gui {

const std::vector<MenuCommand>& menuCommands() {
    static const std::vector<MenuCommand> items{
        {"&Edit", "&Undo", "_U", "Ctrl+Z"},
        {"&Edit", "&Redo", "_REDO", "Ctrl+Y"},
        {"&Draw", "&Line", "_LINE", ""},
        {"&Draw", "&Polyline", "_PLINE", ""},
        {"&Draw", "&Circle", "_CIRCLE", ""},
        {"&Draw", "&Arc", "_ARC", ""},
        {"&Draw", "&Rectangle", "_RECTANG", ""},
        {"&Draw", "P&oint", "_POINT", ""},
        {"&Draw", "&Text", "_TEXT", ""},
        {"&Draw", "&Multiline Text", "_MTEXT", ""},
        {"&Draw", "&Hatch", "_HATCH", ""},
        {"&Draw", "&Block", "_BLOCK", ""},
        {"&Draw", "&Insert Block", "_INSERT", ""},
        {"&Modify", "&Erase", "_ERASE", ""},
        {"&Modify", "&Move", "_MOVE", ""},
        {"&Modify", "&Copy", "_COPY", ""},
        {"&Modify", "&Rotate", "_ROTATE", ""},
        {"&Modify", "&Scale", "_SCALE", ""},
        {"&Modify", "M&irror", "_MIRROR", ""},
        {"&Modify", "O&ffset", "_OFFSET", ""},
        {"&Modify", "S&tretch", "_STRETCH", ""},
        {"&Modify", "&Trim", "_TRIM", ""},
        {"&Modify", "E&xtend", "_EXTEND", ""},
        {"&Modify", "Exp&lode", "_EXPLODE", ""},
        {"&Modify", "Pr&operties...", "_PROPERTIES", ""},
        {"&Modify", "C&hange Properties", "_CHPROP", ""},
        {"&Modify", "Match &Properties", "_MATCHPROP", ""},
    };
    return items;
}

void addCommandMenu(QMenuBar& bar, std::string_view menu, const std::function<void(const std::string&)>& run) {
    QMenu* added = bar.addMenu(QCoreApplication::translate("CadWindow", std::string(menu).c_str()));
    for (const MenuCommand& item : menuCommands()) {
        if (item.menu != menu) continue;
        QAction* action = added->addAction(QCoreApplication::translate("CadWindow", item.text));
        action->setShortcut(QKeySequence(QString::fromLatin1(item.shortcut)));
        const std::string line = item.command;
        QObject::connect(action, &QAction::triggered, added, [run, line] { run(line); });
    }
}

}  // namespace cadhost::gui
