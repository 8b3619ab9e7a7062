#pragma once
// The commands of the layer dialog's menus, toolbar and context menu, and when each is
// enabled: by the mode, the view and what is selected.
#include <vector>

#include "layers/LayerEntry.h"
#include "messages/MsgKey.h"

namespace ardo {

enum class LayerCommand {
    FileNew, FileOpen, FileSave, FileSaveAs, FileQuit,
    ViewObjects, ViewObjectType, ViewDrawing, ViewCentral,
    LayerNew, LayerBased, LayerFromCentral, LayerPick, LayerChange,
    LayerColor, LayerLinetype, LayerRegen, LayerDelete,
    OptsConfig, OptsDwg, OptsIni,
    HelpHelp, HelpInfo,
};

// What the enabling of a command depends on.
struct LayerCommandState {
    int mode = 3;
    int view = 3;
    bool changed = false;              // the central file has unsaved changes
    int selected = 0;                  // selected rows
    bool selectionFromFile = false;    // at least one selected entry of the central file
    bool singleInDrawing = false;      // one row selected, a layer of the drawing
    bool singleFromFile = false;       // one row selected, an entry of the central file
    bool hasDrawing = true;
};

LayerCommandState commandStateOf(int mode, int view, bool changed, const std::vector<LayerEntry*>& selection,
                                 bool hasDrawing);

bool commandEnabled(LayerCommand command, const LayerCommandState& state);
// The view a view command switches to; 0 for other commands.
int viewOfCommand(LayerCommand command);

// The command's id, by which the icon menu finds its icon.
int commandIdOf(LayerCommand command);
// The ids of the properties dialog's take-over menu.
namespace takeoverid {
constexpr int kIdentification = 40089;
constexpr int kProperties = 40090;
constexpr int kAll = 40091;
}  // namespace takeoverid

// Menu text and tooltip of a command; false when it has no tooltip.
MsgKey menuTextKey(LayerCommand command);
bool tooltipKey(LayerCommand command, MsgKey& key);

}  // namespace ardo
