#include "dialog/LayerDialogSession.h"

#include <algorithm>
#include <filesystem>
#include <optional>

#include "base/CaseFold.h"
#include "base/Printf.h"
#include "dialog/EntryProposal.h"
#include "dialog/LayerViews.h"
#include "dialog/LinetypeList.h"
#include "layers/ColourCode.h"
#include "layers/DrawingLayers.h"
#include "layers/LayerKeyRules.h"
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

void LayerDialogSession::setObject(const std::string& objectName, const std::string& objectType,
                                   const std::string& directory, ActiveKeySettings* activeKeys) {
    objectName_ = objectName;
    objectFilePath_.clear();
    objectFile_.reset();
    objectsChanged_ = false;
    std::error_code error;
    if (directory.empty() || !std::filesystem::is_directory(directory, error) || !isValidObjectTypeName(objectType))
        return;
    objectFilePath_ = objectLayerFilePath(directory, objectType);
    objectFile_ = std::make_unique<ObjectLayerFile>(activeKeys);
    objectFile_->read(objectFilePath_);
}

void LayerDialogSession::readEntries() {
    if (list_.hasLayerSection()) list_.loadEntries();
    if (objectFile_) objectFile_->markReferences(list_, objectName_);
    mergeDrawing();
}

void LayerDialogSession::load() {
    path_ = settings_.ardoLayerFile;
    renames_.clear();
    list_.clear();
    if (!path_.empty()) list_.loadFileImage(path_);
    readEntries();
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

void LayerDialogSession::queueRename(const std::string& from, const std::string& to) {
    // A layer renamed twice is renamed once, from its drawing name to the last.
    for (auto& [drawingName, newName] : renames_)
        if (equalsNoCase(newName, from)) {
            newName = to;
            return;
        }
    renames_.emplace_back(from, to);
}

void LayerDialogSession::applyRenames() {
    HostDrawing* drawing = host().workingDrawing();
    const bool locked = host().lockDocument();
    for (const auto& [from, to] : renames_) {
        if (equalsNoCase(from, to)) continue;
        std::optional<LayerRecord> record = drawing && !equalsNoCase(from, "0") ? drawing->findLayer(from) : std::nullopt;
        bool done = false;
        if (record) {
            // The layer under its new name takes everything of the old one.
            record->name = to;
            done = drawing->addLayer(*record) == DbStatus::Ok && drawing->mergeLayer(from, to) == DbStatus::Ok;
        }
        if (!done)
            host().print(format("\n%s '%s' %s\n", catalogText(MsgKey::TxCantRenameDwgLayer1), from,
                                catalogText(MsgKey::TxCantRenameDwgLayer2)));
    }
    if (locked) host().unlockDocument();
    renames_.clear();
}

bool LayerDialogSession::save(const std::string& path) {
    // A new file has nothing marked yet: everything in it is to be written.
    if (path != path_) list_.setChanged();
    if (!list_.save(path)) return false;
    applyRenames();
    path_ = path;
    settings_.ardoLayerFile = path;
    // Keys given to the object since the object file was written stay the object's.
    std::vector<std::string> objectKeys;
    for (const auto& e : list_.entries())
        if (e->has(entryflag::kCurrentObject) && !e->key.empty() && !e->isDeleted()) objectKeys.push_back(e->key);
    list_.releaseFileImage();
    list_.clear();
    list_.loadFileImage(path_);
    readEntries();
    for (const std::string& key : objectKeys)
        if (const FoundEntry found = list_.findByKey(key))
            found.entry->flags |= entryflag::kCurrentObject | entryflag::kInObjectFile;
    changed_ = false;
    // The LISP functions read the central file from the module's image.
    ModuleFiles& files = moduleFiles();
    files.centralLayerFilePath = path_;
    files.centralLayerFile = SettingsStore::load(path_);
    if (reloaded_) reloaded_();
    return true;
}

LayerEntry& LayerDialogSession::addEntry(const LayerEntry& edited) {
    LayerEntry* entry = entryTakingNew(list_, edited.name);
    if (!entry) {
        entry = &list_.append(LayerEntry{});
        entry->name = edited.name;
    }
    changeEntry(*entry, edited);
    const std::uint32_t objectFlags = edited.flags & (entryflag::kCurrentObject | entryflag::kInObjectFile);
    entry->flags |= entryflag::kFromFile | objectFlags;
    if (objectFlags & entryflag::kCurrentObject) objectsChanged_ = true;
    list_.sortByName();
    return *entry;
}

void LayerDialogSession::changeEntry(LayerEntry& entry, const LayerEntry& edited) {
    copyIdentification(edited, entry);
    copyFileProperties(edited, entry);
    entry.sortName = upperCase(entry.name);
    if (entry.state == 0) entry.state = kStateChanged;
    changed_ = true;
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
    const std::string fileName = linetypeFileReference(file);
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
    for (LayerEntry* e : entries) {
        e->state = kStateDeleted;
        if (e->has(entryflag::kCurrentObject)) objectsChanged_ = true;
    }
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

bool LayerDialogSession::confirmClose(const std::function<std::string()>& askPath, const LayerEntry* chosen) {
    if (changed_ || std::any_of(list_.entries().begin(), list_.entries().end(),
                                [](const auto& e) { return e->state != 0; })) {
        const std::string question = catalogText(MsgKey::QuLayerDlgChgLayer1) + "\n" +
                                     catalogText(MsgKey::QuLayerDlgChgLayer2) + "\n\n" +
                                     catalogText(MsgKey::QuLayerDlgChgLayer3) + "\n    " + path_ + "\n" +
                                     catalogText(MsgKey::QuLayerDlgChgLayer4);
        switch (host().messageBox(question, catalogText(MsgKey::TiMsgBoxQuestion), MbButtons::YesNoCancel,
                                  MbIcon::Question)) {
            case MbAnswer::Cancel: return false;
            case MbAnswer::Yes: {
                // Saving reads the entries anew: the chosen one is found again by its key.
                const std::string chosenKey = chosen ? chosen->key : std::string();
                const std::string path = path_.empty() ? askPath() : path_;
                if (path.empty() || !save(path)) return false;
                chosen = chosenKey.empty() ? nullptr : list_.findByKey(chosenKey).entry;
                break;
            }
            default:
                changed_ = false;
                renames_.clear();
                break;
        }
    }
    return confirmObjectsClose(chosen);
}

bool LayerDialogSession::confirmObjectsClose(const LayerEntry* chosen) {
    if (mode_ != layermode::kObject || path_.empty() || !objectsChanged_ || !objectFile_) return true;
    const std::string question = catalogText(MsgKey::QuLayerDlgChgObjects1) + "\n" +
                                 catalogText(MsgKey::QuLayerDlgChgObjects2) + "\n    " + objectFilePath_ + "\n" +
                                 catalogText(MsgKey::QuLayerDlgChgObjects3) + "\n\n" +
                                 catalogText(MsgKey::QuLayerDlgChgObjects4);
    switch (host().messageBox(question, catalogText(MsgKey::TiMsgBoxQuestion), MbButtons::YesNoCancel,
                              MbIcon::Question)) {
        case MbAnswer::Cancel: return false;
        case MbAnswer::Yes: return saveObjectFile(chosen);
        default: objectsChanged_ = false; return true;
    }
}

bool LayerDialogSession::saveObjectFile(const LayerEntry* chosen) {
    if (!objectFile_) return false;
    // The chosen layer of the object becomes its active one; otherwise the active one stays.
    std::string activeKey;
    if (chosen && chosen->has(entryflag::kCurrentObject)) activeKey = chosen->key;
    else if (const ObjectLayerLine* line = objectFile_->findLine(objectName_)) activeKey = line->key;
    if (!objectFile_->write(list_, objectFilePath_, objectName_, activeKey)) return false;
    objectsChanged_ = false;
    return true;
}

}  // namespace ardo
