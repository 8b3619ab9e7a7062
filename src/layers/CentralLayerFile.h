#pragma once
// The central layer control file in memory: the ordered entry list and the image of the file
// as it was read. The caller's order when building layer data: load file image, load entries,
// mark object references, merge drawing layers, sort by name. After changes: save, release the
// file image, load the file image again.
#include <memory>
#include <string>
#include <vector>

#include "boundary/HostDrawing.h"
#include "layers/LayerEntry.h"
#include "settings/SettingsStore.h"

namespace ardo {

// An entry found in the list with its position, counted from 0; entry is null when none.
struct FoundEntry {
    LayerEntry* entry = nullptr;
    int index = -1;
    explicit operator bool() const { return entry != nullptr; }
};

class CentralLayerFile {
public:
    // Entries are held by pointer so that references stay valid while the list grows or is sorted.
    using Entries = std::vector<std::unique_ptr<LayerEntry>>;

    // Reads the file into the image and finds its [LAYER] section. A missing file or section is
    // reported on the command line; false then. Clears changed.
    bool loadFileImage(const std::string& path);
    // Rebuilds the list from the key lines after the [LAYER] header; invalid lines are dropped.
    void loadEntries();
    // Fills the drawing half of the entry of each drawing layer, appending entries for layers
    // the file lacks. False when the layer table could not be read to its end.
    bool mergeDrawingLayers(const HostDrawing& drawing);
    // Stable order by upper-case name, ordinal comparison.
    void sortByName();
    // Writes the image up to and including [LAYER], then the file entries. Nothing is written
    // when nothing changed. On failure the user is told, and the change marks remain.
    bool save(const std::string& path) const;
    void releaseFileImage();

    FoundEntry findByKey(const std::string& key, const LayerEntry* skip = nullptr) const;
    FoundEntry findByName(const std::string& name, const LayerEntry* skip = nullptr) const;
    LayerEntry& append(LayerEntry entry);
    // Empties the list and clears changed.
    void clear();

    const Entries& entries() const { return entries_; }
    bool changed() const { return changed_; }
    void setChanged() { changed_ = true; }
    const SettingsStore* fileImage() const { return image_.get(); }
    bool hasLayerSection() const { return image_ && layerSection_ != image_->end(); }

private:
    bool anythingToSave() const;
    std::string fileText() const;

    Entries entries_;
    bool changed_ = false;
    std::unique_ptr<SettingsStore> image_;
    SettingsStore::Position layerSection_{};
};

// The file half of an entry as a value line of all eleven fields.
std::string entryValueLine(const LayerEntry& entry);

}  // namespace ardo
