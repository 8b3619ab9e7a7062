#include "dialog/LayerDialogSession.h"

#include <algorithm>
#include <filesystem>
#include <optional>

#include "base/CaseFold.h"
#include "base/Printf.h"
#include "dialog/LayerViews.h"
#include "layers/ColourCode.h"
#include "layers/DrawingLayers.h"
#include "messages/MessageCatalog.h"
#include "module/HostBinding.h"
#include "settings/ModuleFiles.h"

namespace ardo {

namespace {

constexpr std::int32_t kStateChanged = 1;

bool inBoth(const LayerEntry& e) { return e.has(entryflag::kFromFile) && e.has(entryflag::kInDrawing); }

bool coloursDiffer(const LayerEntry& e) {
    return e.dwgColor != e.fileColor || !equalsNoCase(e.dwgColorBookName, e.fileColorBookName) ||
           !equalsNoCase(e.dwgColorName, e.fileColorName);
}

}  // namespace

int startViewOfMode(const LayerDialogSettings& settings, int mode) {
    switch (mode) {
        case layermode::kEditor: return settings.viewModeEdit;
        case layermode::kCentralSelection: return settings.viewModeArdo;
        case layermode::kObject:
            return settings.viewModeObjs >= 1 && settings.viewModeObjs <= 4 ? settings.viewModeObjs : 4;
        default: return 4;
    }
}

void storeViewOfMode(LayerDialogSettings& settings, int mode, int view) {
    if (mode == layermode::kEditor) settings.viewModeEdit = view;
    else if (mode == layermode::kCentralSelection) settings.viewModeArdo = view;
    else if (mode == layermode::kObject) settings.viewModeObjs = view;
}

bool viewOffered(int mode, int view) {
    switch (mode) {
        case layermode::kObject: return view >= 1 && view <= 4;
        case layermode::kEditor: return view == layerview::kDrawing || view == layerview::kCentral;
        case layermode::kCentralSelection: return view == layerview::kCentral;
        default: return false;
    }
}

LayerDialogSession::LayerDialogSession(int mode, LayerDialogSettings& settings)
    : mode_(mode), view_(startViewOfMode(settings, mode)), settings_(settings) {
    settings_.currentMode = mode;
    settings_.currentPrio = settings_.dataPrio;
    // A stored view the mode does not offer would show a list the user cannot leave for it.
    if (!viewOffered(mode_, view_)) view_ = layerview::kCentral;
}

void LayerDialogSession::mergeDrawing() {
    if (HostDrawing* drawing = host().workingDrawing()) list_.mergeDrawingLayers(*drawing);
    list_.sortByName();
}

void LayerDialogSession::load() {
    path_ = settings_.ardoLayerFile;
    list_.clear();
    if (!path_.empty() && list_.loadFileImage(path_)) list_.loadEntries();
    mergeDrawing();
    changed_ = false;
}

void LayerDialogSession::startNewFile() {
    list_.releaseFileImage();
    list_.clear();
    path_.clear();
    mergeDrawing();
    changed_ = false;
}

void LayerDialogSession::open(const std::string& path) {
    settings_.ardoLayerFile = path;
    load();
}

bool LayerDialogSession::save(const std::string& path) {
    // A new file has nothing marked yet: everything in it is to be written.
    if (path != path_) list_.setChanged();
    if (!list_.save(path)) return false;
    path_ = path;
    settings_.ardoLayerFile = path;
    list_.releaseFileImage();
    list_.clear();
    if (list_.loadFileImage(path_)) list_.loadEntries();
    mergeDrawing();
    changed_ = false;
    // The LISP functions read the central file from the module's image.
    ModuleFiles& files = moduleFiles();
    files.centralLayerFilePath = path_;
    files.centralLayerFile = SettingsStore::load(path_);
    return true;
}

bool LayerDialogSession::changeFileEntries(const std::vector<LayerEntry*>& selection,
                                           const std::function<void(LayerEntry&)>& change) {
    bool any = false;
    for (LayerEntry* e : selection) {
        if (!e->has(entryflag::kFromFile)) continue;
        change(*e);
        if (e->state == 0) e->state = kStateChanged;
        any = true;
    }
    if (any) changed_ = true;
    return any;
}

bool LayerDialogSession::setColour(const std::vector<LayerEntry*>& selection, const HostColor& colour) {
    const ColourCode code = encodeColour(colour);
    return changeFileEntries(selection, [&](LayerEntry& e) {
        e.fileColor = code.code;
        e.fileColorBookName = code.bookName;
        e.fileColorName = code.colourName;
    });
}

bool LayerDialogSession::setLinetype(const std::vector<LayerEntry*>& selection, const std::string& linetype,
                                     const std::string& file) {
    // Entries name their file as the suite's installations do: by name when the host finds it.
    std::string fileName = std::filesystem::path(file).filename().string();
    std::string found;
    if (!host().findFile(fileName, found) || std::filesystem::path(found) != std::filesystem::path(file))
        fileName = file;
    return changeFileEntries(selection, [&](LayerEntry& e) {
        e.fileLinetype = linetype;
        e.fileLinetypeFile = fileName;
    });
}

std::vector<LayerEntry*> LayerDialogSession::deletable(const std::vector<LayerEntry*>& selection) {
    std::vector<LayerEntry*> result;
    for (LayerEntry* e : selection)
        if (e->has(entryflag::kFromFile) && !e->isDeleted()) result.push_back(e);
    return result;
}

bool LayerDialogSession::deleteEntries(const std::vector<LayerEntry*>& selection) {
    const std::vector<LayerEntry*> entries = deletable(selection);
    if (entries.empty()) {
        host().messageBox(catalogText(MsgKey::TxNoDeletableEntries), catalogText(MsgKey::TiMsgBoxInfo),
                          MbButtons::Ok, MbIcon::Information);
        return false;
    }
    const std::string question = catalogText(MsgKey::QuDeleteLayer1) + "\n\n" + catalogText(MsgKey::QuDeleteLayer2) +
                                 "\n\n" +
                                 catalogText(entries.size() == 1 ? MsgKey::QuDeleteLayer3singular
                                                                 : MsgKey::QuDeleteLayer3plural);
    if (host().messageBox(question, catalogText(MsgKey::TiMsgBoxQuestion), MbButtons::YesNo, MbIcon::Exclamation) !=
        MbAnswer::Yes)
        return false;
    for (LayerEntry* e : entries) e->state = kStateDeleted;
    changed_ = true;
    return true;
}

bool LayerDialogSession::setDrawingLayer(LayerEntry& e, bool colour, bool linetype) {
    HostDrawing* drawing = host().workingDrawing();
    if (!drawing) return false;
    std::optional<LayerRecord> record = drawing->findLayer(e.name);
    if (!record) return false;
    if (colour) {
        const std::optional<HostColor> fileColour = colorFromCode(e.fileColor, e.fileColorBookName, e.fileColorName);
        if (!fileColour) return false;
        record->color = *fileColour;
    }
    if (linetype) {
        ensureLinetype(e.fileLinetype, e.fileLinetypeFile);
        record->linetype = e.fileLinetype;
    }
    if (drawing->updateLayer(*record) != DbStatus::Ok) return false;
    if (colour) {
        e.dwgColor = e.fileColor;
        e.dwgColorBookName = e.fileColorBookName;
        e.dwgColorName = e.fileColorName;
    }
    if (linetype) e.dwgLinetype = e.fileLinetype;
    return true;
}

RegenerateCount LayerDialogSession::regenerate() {
    RegenerateCount count;
    const bool locked = host().lockDocument();
    for (const auto& entry : list_.entries()) {
        LayerEntry& e = *entry;
        if (!inBoth(e) || e.isDeleted()) continue;
        const bool colour = coloursDiffer(e);
        const bool linetype = !equalsNoCase(e.dwgLinetype, e.fileLinetype);
        if (!colour && !linetype) continue;
        ++count.needed;
        bool ok = true;
        if (colour) {
            if (setDrawingLayer(e, true, false)) ++count.colours;
            else {
                host().print(format("\n%s '%s'\n", catalogText(MsgKey::EtChangeLayerColor), e.name));
                ok = false;
            }
        }
        if (linetype) {
            if (setDrawingLayer(e, false, true)) ++count.linetypes;
            else {
                host().print(format("\n%s '%s'\n", catalogText(MsgKey::EtChangeLayerLineType), e.name));
                ok = false;
            }
        }
        if (ok) ++count.changed;
    }
    if (locked) host().unlockDocument();

    std::string text = format("%d (%d) %s", count.changed, count.needed, catalogText(MsgKey::TxLayersChanged));
    host().print(format("\n%s\n", text));
    if (count.linetypes > 0 && mode_ != layermode::kEditor)
        text += "\n\n" + catalogText(MsgKey::TxLayersChanged1) + "\n" + catalogText(MsgKey::TxLayersChanged2);
    host().messageBox(text, catalogText(MsgKey::TiMsgBoxInfo), MbButtons::Ok, MbIcon::Information);
    if (count.linetypes > 0 && mode_ == layermode::kEditor) host().command({ResBuf::str("_regenall")});
    if (count.colours > 0 || count.linetypes > 0) host().updateDisplay();
    return count;
}

bool LayerDialogSession::confirmClose(const std::function<std::string()>& askPath) {
    if (!changed_ && !std::any_of(list_.entries().begin(), list_.entries().end(),
                                  [](const auto& e) { return e->state != 0; }))
        return true;
    const std::string question = catalogText(MsgKey::QuLayerDlgChgLayer1) + "\n" +
                                 catalogText(MsgKey::QuLayerDlgChgLayer2) + "\n\n" +
                                 catalogText(MsgKey::QuLayerDlgChgLayer3) + "\n    " + path_ + "\n" +
                                 catalogText(MsgKey::QuLayerDlgChgLayer4);
    switch (host().messageBox(question, catalogText(MsgKey::TiMsgBoxQuestion), MbButtons::YesNoCancel,
                              MbIcon::Question)) {
        case MbAnswer::Cancel: return false;
        case MbAnswer::Yes: {
            const std::string path = path_.empty() ? askPath() : path_;
            return !path.empty() && save(path);
        }
        default: changed_ = false; return true;
    }
}

}  // namespace ardo
