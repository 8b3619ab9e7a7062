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
    if (selection.size() == 1) {
        state.singleInDrawing = selection.front()->has(entryflag::kInDrawing);
        state.singleFromFile = selection.front()->has(entryflag::kFromFile);
    }
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
        case LayerCommand::LayerNew: return true;
        case LayerCommand::LayerBased: return s.singleInDrawing;
        case LayerCommand::LayerFromCentral: return s.singleFromFile;
        case LayerCommand::LayerPick: return s.hasDrawing;
        // Properties shares the test of Delete: a drawing layer's properties are shown.
        case LayerCommand::LayerChange: return s.selected > 0;
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
        case LayerCommand::HelpHelp:
        case LayerCommand::HelpInfo: return true;
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

int commandIdOf(LayerCommand command) {
    switch (command) {
        case LayerCommand::FileNew: return 40001;
        case LayerCommand::FileOpen: return 40002;
        case LayerCommand::FileSave: return 40004;
        case LayerCommand::FileSaveAs: return 40005;
        case LayerCommand::ViewObjects: return 40006;
        case LayerCommand::ViewDrawing: return 40007;
        case LayerCommand::ViewCentral: return 40008;
        case LayerCommand::ViewObjectType: return 40009;
        case LayerCommand::LayerNew: return 40010;
        case LayerCommand::LayerBased: return 40015;
        case LayerCommand::LayerFromCentral: return 40016;
        case LayerCommand::LayerChange: return 40060;
        case LayerCommand::LayerDelete: return 40061;
        case LayerCommand::LayerColor: return 40071;
        case LayerCommand::LayerLinetype: return 40072;
        case LayerCommand::LayerPick: return 113;
        case LayerCommand::LayerRegen: return 114;
        case LayerCommand::OptsConfig: return 123;
        case LayerCommand::OptsDwg: return 129;
        case LayerCommand::OptsIni: return 130;
        // Without an icon in the menus.
        case LayerCommand::FileQuit: return 40003;
        case LayerCommand::HelpHelp: return 57670;
        case LayerCommand::HelpInfo: return 57664;
    }
    return 0;
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
        case LayerCommand::LayerNew: return MsgKey::MiLayrNew;
        case LayerCommand::LayerBased: return MsgKey::MiLayrBas;
        case LayerCommand::LayerFromCentral: return MsgKey::MiLayrFrLc;
        case LayerCommand::LayerPick: return MsgKey::MiLayrPck;
        case LayerCommand::LayerChange: return MsgKey::MiLayrChg;
        case LayerCommand::LayerColor: return MsgKey::MiLayrClr;
        case LayerCommand::LayerLinetype: return MsgKey::MiLayrLin;
        case LayerCommand::LayerRegen: return MsgKey::MiLayrReg;
        case LayerCommand::LayerDelete: return MsgKey::MiLayrDel;
        case LayerCommand::OptsConfig: return MsgKey::MiOptsConfig;
        case LayerCommand::OptsDwg: return MsgKey::MiOptsDwg;
        case LayerCommand::OptsIni: return MsgKey::MiOptsIni;
        case LayerCommand::HelpHelp: return MsgKey::MnHelpHelp;
        case LayerCommand::HelpInfo: return MsgKey::MnHelpInfo;
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
        case LayerCommand::LayerNew: key = MsgKey::TtLayrNew; return true;
        case LayerCommand::LayerBased: key = MsgKey::TtLayrBased; return true;
        case LayerCommand::LayerFromCentral: key = MsgKey::TtLayrFromLc; return true;
        case LayerCommand::LayerPick: key = MsgKey::TtLayrPick; return true;
        case LayerCommand::LayerChange: key = MsgKey::TtLayrChange; return true;
        case LayerCommand::LayerColor: key = MsgKey::TtLayrColor; return true;
        case LayerCommand::LayerLinetype: key = MsgKey::TtLayrLinTyp; return true;
        case LayerCommand::LayerRegen: key = MsgKey::TtLayrRegen; return true;
        case LayerCommand::LayerDelete: key = MsgKey::TtLayrDelete; return true;
        case LayerCommand::OptsConfig: key = MsgKey::TtOptsConfig; return true;
        case LayerCommand::OptsDwg: key = MsgKey::TtOptsPriDwg; return true;
        case LayerCommand::OptsIni: key = MsgKey::TtOptsPriIni; return true;
        case LayerCommand::FileQuit:
        case LayerCommand::HelpHelp:
        case LayerCommand::HelpInfo: return false;
    }
    return false;
}

}  // namespace ardo
