#pragma once
// The 16 x 16 icons of the dialogs' toolbars and menus, drawn here for this project.
#include <QIcon>

#include "dialog/LayerCommands.h"

namespace ardo {

enum class DialogIcon {
    FileNew, FileOpen, FileSave, FileSaveAs,
    ViewObjects, ViewObjectType, ViewDrawing, ViewCentral,
    Color, Linetype, Regen, Delete, Options, PrioDrawing, PrioFile, Filter,
    ShowAll, ShowOne, HideOne, HideAll,
};

QIcon dialogIcon(DialogIcon icon);
DialogIcon iconOfCommand(LayerCommand command);

}  // namespace ardo
