#pragma once
// The 16 x 16 icons of the dialogs' toolbars and menus, drawn here for this project.
#include <QIcon>

#include "dialog/LayerCommands.h"
#include "ui/cIconMenu.h"

namespace ardo {

enum class DialogIcon {
    FileNew, FileOpen, FileSave, FileSaveAs,
    ViewObjects, ViewObjectType, ViewDrawing, ViewCentral,
    LayerNew, LayerBased, LayerFromFile, Pick, Properties,
    Color, Linetype, Regen, Delete, Options, PrioDrawing, PrioFile, Filter,
    ShowAll, ShowOne, HideOne, HideAll,
    // The layer state toggles, each in its two states.
    LayerOn, LayerOff, Thawed, Frozen, Unlocked, Locked, ThawedInNewViewports, FrozenInNewViewports,
};

QIcon dialogIcon(DialogIcon icon);
// The images of the icon menu in the order of its icon numbers, enabled or greyed.
IconList iconMenuImages(bool disabled);
DialogIcon iconOfCommand(LayerCommand command);

}  // namespace ardo
