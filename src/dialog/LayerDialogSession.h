#pragma once
// One run of the layer dialog without its widgets: the mode and view, the merged entries of
// the central file and the drawing, the unsaved-changes flag and the work of the commands
// that change entries or the drawing. The widgets of cDlgLayer only show it.
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "boundary/HostColor.h"
#include "layers/CentralLayerFile.h"
#include "layers/ObjectLayerFile.h"
#include "settings/LayerDialogSettings.h"

namespace ardo {

namespace layermode {
constexpr int kCentralSelection = 1;   // kemb_ArdoIniDialog
constexpr int kEditor = 3;             // Kemb_EditLayers
constexpr int kObject = 7;             // kemb_layerDialog
}  // namespace layermode

// The view a mode starts with, from its view setting and its rule.
int startViewOfMode(const LayerDialogSettings& settings, int mode);
// Stores the view into the mode's setting.
void storeViewOfMode(LayerDialogSettings& settings, int mode, int view);
// Mode 7 offers all four views, mode 3 the drawing and the central file, mode 1 the file.
bool viewOffered(int mode, int view);

// What Regenerate did, for its message.
struct RegenerateCount {
    int changed = 0;
    int needed = 0;
    int colours = 0;
    int linetypes = 0;
};

class LayerDialogSession {
public:
    LayerDialogSession(int mode, LayerDialogSettings& settings);

    // The object of the object dialog and its object-type layer file in the directory: read
    // when the directory exists and the object type is a usable file name (a missing file
    // starts an empty list); neither read nor written otherwise. `activeKeys` keeps the
    // objects' active keys and may be none.
    void setObject(const std::string& objectName, const std::string& objectType, const std::string& directory,
                   ActiveKeySettings* activeKeys);
    // Loads the central file named in the settings and merges the drawing's layers; a
    // missing file or section is told on the command line and leaves the list with the
    // drawing's layers only.
    void load();
    // Starts an empty central layer control file without a path.
    void startNewFile();
    // Loads another central file; it becomes the settings' file.
    void open(const std::string& path);
    // Writes the central file to the path and reloads it there; the module's image of the
    // central file follows. False when writing failed (the user was told).
    bool save(const std::string& path);

    // Adds an accepted new entry: a layer of that name only in the drawing takes its key
    // and file half, else a new entry is added to the list, which is sorted again.
    LayerEntry& addEntry(const LayerEntry& edited);
    // Takes key, name and file half of the edited copy over into the entry.
    void changeEntry(LayerEntry& entry, const LayerEntry& edited);

    // Queues the rename of a drawing layer whose entry was renamed; it is carried out when
    // the central file is saved, and dropped with the other changes.
    void queueRename(const std::string& from, const std::string& to);
    const std::vector<std::pair<std::string, std::string>>& pendingRenames() const { return renames_; }

    // Sets the file colour of the selected central-file entries. False when none had one.
    bool setColour(const std::vector<LayerEntry*>& selection, const HostColor& colour);
    // Sets linetype and linetype file of the selected central-file entries; a file the host
    // finds by its name alone is kept by that name. False when none was set.
    bool setLinetype(const std::vector<LayerEntry*>& selection, const std::string& linetype, const std::string& file);
    // The selected entries that can be deleted: those of the central file.
    static std::vector<LayerEntry*> deletable(const std::vector<LayerEntry*>& selection);
    // Asks the delete question and marks the deletable entries deleted on Yes; says so when
    // the selection holds none. True when entries were deleted.
    bool deleteEntries(const std::vector<LayerEntry*>& selection);
    // Brings the colours and linetypes of the drawing's layers in line with the central
    // file, tells the user what changed and updates the display.
    RegenerateCount regenerate();
    // The closing questions, for the central file and then for the object-type layer
    // file; false when the user cancelled and the dialog stays open. Yes saves, asking for a
    // path through askPath when the central file has none. The chosen entry, if it is one
    // of the object's, becomes the object's active key.
    bool confirmClose(const std::function<std::string()>& askPath, const LayerEntry* chosen);
    // Writes the object-type layer file with the object's lines from the list.
    bool saveObjectFile(const LayerEntry* chosen);

    // Called after a save has read the entries anew, so that views drop the old ones.
    void setReloaded(std::function<void()> reloaded) { reloaded_ = std::move(reloaded); }

    int mode() const { return mode_; }
    int view() const { return view_; }
    void setView(int view) { view_ = view; }
    CentralLayerFile& list() { return list_; }
    const std::string& path() const { return path_; }
    bool changed() const { return changed_; }
    void setChanged() { changed_ = true; }
    LayerDialogSettings& settings() { return settings_; }
    const std::string& objectFilePath() const { return objectFilePath_; }
    bool objectsChanged() const { return objectsChanged_; }

private:
    void mergeDrawing();
    // Reads the entries from the file image, marks the object's keys and merges the drawing.
    void readEntries();
    bool confirmObjectsClose(const LayerEntry* chosen);
    // Renames the queued drawing layers; a layer that cannot be renamed is told.
    void applyRenames();
    // Changes the central-file entries of the selection and marks them changed.
    bool changeFileEntries(const std::vector<LayerEntry*>& selection, const std::function<void(LayerEntry&)>& change);
    bool setDrawingLayer(LayerEntry& entry, bool colour, bool linetype);

    int mode_;
    int view_;
    LayerDialogSettings& settings_;
    CentralLayerFile list_;
    std::string path_;
    bool changed_ = false;
    std::string objectName_;
    std::string objectFilePath_;
    std::unique_ptr<ObjectLayerFile> objectFile_;
    bool objectsChanged_ = false;
    std::function<void()> reloaded_;
    std::vector<std::pair<std::string, std::string>> renames_;
};

}  // namespace ardo
