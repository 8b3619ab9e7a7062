#include "dialog/LayerCommands.h"

#include "dialog/LayerDialogSession.h"
#include "dialog/LayerViews.h"

namespace ardo {

LayerCommandState commandStateOf(int mode, int view, bool changed, const std::vector<LayerEntry*>& selection,
                                 bool hasDrawing) {
    LayerCommandState state;
    state.mode = mode;
    state.view = view;
    state.changed = changed;
    state.selected = static_cast<int>(selection.size());
    for (const LayerEntry* e : selection)
        if (e->has(entryflag::kFromFile)) state.selectionFromFile = true;
    state.hasDrawing = hasDrawing;
    return state;
}

bool commandEnabled(LayerCommand command, const LayerCommandState& s) {
    switch (command) {
        // Only the editor changes which central file is used; the selection modes choose
        // from the file the suite is set up with.
        case LayerCommand::FileNew:
        case LayerCommand::FileOpen:
        case LayerCommand::FileSaveAs: return s.mode == layermode::kEditor;
        case LayerCommand::FileSave: return s.changed;
        case LayerCommand::ViewObjects:
        case LayerCommand::ViewObjectType:
        case LayerCommand::ViewDrawing:
        case LayerCommand::ViewCentral: return viewOffered(s.mode, viewOfCommand(command));
        // Colours are set on the central file's entries; drawing layers get them by Regenerate.
        case LayerCommand::LayerColor:
        case LayerCommand::LayerLinetype: return s.selectionFromFile;
        case LayerCommand::LayerRegen: return s.hasDrawing;
        // A selection without deletable entries is told so when Delete is chosen.
        case LayerCommand::LayerDelete: return s.selected > 0;
        case LayerCommand::FileQuit:
        case LayerCommand::OptsConfig:
        case LayerCommand::OptsDwg:
        case LayerCommand::OptsIni:
        case LayerCommand::HelpHelp: return true;
    }
    return false;
}

int viewOfCommand(LayerCommand command) {
    switch (command) {
        case LayerCommand::ViewObjects: return layerview::kObjects;
        case LayerCommand::ViewObjectType: return layerview::kObjectType;
        case LayerCommand::ViewDrawing: return layerview::kDrawing;
        case LayerCommand::ViewCentral: return layerview::kCentral;
        default: return 0;
    }
}

MsgKey menuTextKey(LayerCommand command) {
    switch (command) {
        case LayerCommand::FileNew: return MsgKey::MiFileNew;
        case LayerCommand::FileOpen: return MsgKey::MiFileOpen;
        case LayerCommand::FileSave: return MsgKey::MiFileSave;
        case LayerCommand::FileSaveAs: return MsgKey::MiFileSaveAs;
        case LayerCommand::FileQuit: return MsgKey::MiFileQuit;
        case LayerCommand::ViewObjects: return MsgKey::MiViewObj;
        case LayerCommand::ViewObjectType: return MsgKey::MiViewTyp;
        case LayerCommand::ViewDrawing: return MsgKey::MiViewDwg;
        case LayerCommand::ViewCentral: return MsgKey::MiViewIni;
        case LayerCommand::LayerColor: return MsgKey::MiLayrClr;
        case LayerCommand::LayerLinetype: return MsgKey::MiLayrLin;
        case LayerCommand::LayerRegen: return MsgKey::MiLayrReg;
        case LayerCommand::LayerDelete: return MsgKey::MiLayrDel;
        case LayerCommand::OptsConfig: return MsgKey::MiOptsConfig;
        case LayerCommand::OptsDwg: return MsgKey::MiOptsDwg;
        case LayerCommand::OptsIni: return MsgKey::MiOptsIni;
        case LayerCommand::HelpHelp: return MsgKey::MnHelpHelp;
    }
    return MsgKey::MnHelpHelp;
}

bool tooltipKey(LayerCommand command, MsgKey& key) {
    switch (command) {
        case LayerCommand::FileNew: key = MsgKey::TtFileNew; return true;
        case LayerCommand::FileOpen: key = MsgKey::TtFileOpen; return true;
        case LayerCommand::FileSave: key = MsgKey::TtFileSave; return true;
        case LayerCommand::FileSaveAs: key = MsgKey::TtFileSaveAs; return true;
        case LayerCommand::ViewObjects: key = MsgKey::TtViewObject; return true;
        case LayerCommand::ViewObjectType: key = MsgKey::TtViewObjTyp; return true;
        case LayerCommand::ViewDrawing: key = MsgKey::TtViewDwg; return true;
        case LayerCommand::ViewCentral: key = MsgKey::TtViewArdo; return true;
        case LayerCommand::LayerColor: key = MsgKey::TtLayrColor; return true;
        case LayerCommand::LayerLinetype: key = MsgKey::TtLayrLinTyp; return true;
        case LayerCommand::LayerRegen: key = MsgKey::TtLayrRegen; return true;
        case LayerCommand::LayerDelete: key = MsgKey::TtLayrDelete; return true;
        case LayerCommand::OptsConfig: key = MsgKey::TtOptsConfig; return true;
        case LayerCommand::OptsDwg: key = MsgKey::TtOptsPriDwg; return true;
        case LayerCommand::OptsIni: key = MsgKey::TtOptsPriIni; return true;
        case LayerCommand::FileQuit:
        case LayerCommand::HelpHelp: return false;
    }
    return false;
}

}  // namespace ardo
