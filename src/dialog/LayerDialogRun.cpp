#include "dialog/LayerDialogRun.h"

#include <memory>

#include "base/Printf.h"
#include "dialog/cListControl.h"
#include "layers/DrawingLayers.h"
#include "layers/LayerValue.h"
#include "messages/MessageCatalog.h"
#include "messages/MessageFile.h"
#include "module/DialogHandlers.h"
#include "module/HostBinding.h"
#include "module/lisp/CallFrame.h"
#include "ui/QtApplication.h"

namespace ardo {

namespace {

void createChosenLayer(const LayerEntry& entry, LayerDialogOutcome& outcome) {
    LayerValue value;
    if (parseLayerValue(entryValueLine(entry), value) && createLayer(entry.name, value) == RTNORM) {
        outcome.created = true;
        return;
    }
    const std::string text = format("%s '%s'", catalogText(MsgKey::EtCreateTheLayer), entry.key);
    host().print("\n" + text + "\n");
    host().messageBox(text, catalogText(MsgKey::TiMsgBoxError), MbButtons::Ok, MbIcon::Error);
}

ResBuf integer(int value) { return ResBuf::shortInt(value); }

}  // namespace

bool dialogsCanBeShown(const char* function) {
    if (ensureApplication()) return true;
    host().print(format(MessageFile::instance().text("LCINIT", "NoDisplay"), function));
    return false;
}

LayerDialogOutcome runLayerDialog(const LayerDialogCall& call, bool createChosen) {
    LayerDialogOutcome outcome;
    LayerDialogSettings& settings = moduleSettings().layerDialog;
    LayerDialogSession session(call.mode, settings);
    std::unique_ptr<SetupFileActiveKeys> activeKeys;
    if (call.mode == layermode::kObject) {
        if (!moduleSettings().setup.filePath().empty())
            activeKeys = std::make_unique<SetupFileActiveKeys>(moduleSettings().setup.filePath());
        session.setObject(call.objectName, call.objectType, call.objectDirectory, activeKeys.get());
    }
    session.load();
    {
        cDlgLayer dialog(session, call, host().mainWindow());
        const int result = dialog.exec();
        outcome.ok = result == QDialog::Accepted;
        outcome.status = outcome.ok ? RTNORM : RTCAN;
        if (const LayerEntry* chosen = outcome.ok ? dialog.chosenEntry() : nullptr) {
            outcome.key = chosen->key;
            outcome.name = chosen->name;
            if (call.mode == layermode::kObject && createChosen && !chosen->has(entryflag::kInDrawing))
                createChosenLayer(*chosen, outcome);
        }
    }
    storeViewOfMode(settings, call.mode, session.view());
    settings.save(moduleSettings().setup);
    return outcome;
}

int lispOutcome(int status) {
    if (status == RTNORM) return 1;
    if (status == RTCAN) return 0;
    return -1;
}

namespace {

// (kemb_layerDialog command object type directory [key name] [create]):
// (key name created outcome ok).
int layerDialogHandler() {
    CallFrame frame;
    const auto answer = [](const LayerDialogOutcome& o) {
        host().retList({ResBuf::marker(RTLB), ResBuf::str(o.key), ResBuf::str(o.name), integer(o.created ? 1 : 0),
                        integer(lispOutcome(o.status)), integer(o.ok ? 1 : 0), ResBuf::marker(RTLE)});
        return RSRSLT;
    };
    if (!frame.check({{ArgKind::String}, {ArgKind::String}, {ArgKind::String}, {ArgKind::String},
                      {ArgKind::String, Presence::Optional}, {ArgKind::String, Presence::Optional},
                      {ArgKind::Integer, Presence::Optional}}) ||
        !dialogsCanBeShown("kemb_layerDialog"))
        return answer({});
    LayerDialogCall call;
    call.mode = layermode::kObject;
    call.objectName = frame.text(1);
    call.objectType = frame.text(2);
    call.objectDirectory = frame.text(3);
    // A key preselects its row; without one the object's name is looked for.
    call.defaultKey = frame.has(4) && !frame.text(4).empty() ? frame.text(4) : frame.text(1);
    const bool create = frame.has(6) && frame.integer(6) != 0;
    return answer(runLayerDialog(call, create));
}

// (kemb_ArdoIniDialog command [key name]): (key name outcome).
int ardoIniDialogHandler() {
    CallFrame frame;
    const auto answer = [](const LayerDialogOutcome& o) {
        host().retList({ResBuf::marker(RTLB), ResBuf::str(o.key), ResBuf::str(o.name), integer(lispOutcome(o.status)),
                        ResBuf::marker(RTLE)});
        return RSRSLT;
    };
    if (!frame.check({{ArgKind::String}, {ArgKind::String, Presence::Optional}, {ArgKind::String, Presence::Optional}}) ||
        !dialogsCanBeShown("kemb_ArdoIniDialog"))
        return answer({});
    LayerDialogCall call;
    call.mode = layermode::kCentralSelection;
    if (frame.has(1)) call.defaultKey = frame.text(1);
    return answer(runLayerDialog(call, false));
}

int editLayersHandler() {
    host().retVoid();
    if (!dialogsCanBeShown("Kemb_EditLayers")) return RSRSLT;
    LayerDialogCall call;
    call.mode = layermode::kEditor;
    runLayerDialog(call, true);
    return RSRSLT;
}

}  // namespace

void installLayerDialogHandlers() {
    DialogHandlers& handlers = dialogHandlers();
    handlers.layerDialog = layerDialogHandler;
    handlers.ardoIniDialog = ardoIniDialogHandler;
    handlers.editLayers = editLayersHandler;
}

}  // namespace ardo
