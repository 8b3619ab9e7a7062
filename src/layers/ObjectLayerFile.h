#pragma once
// The object-type layer file: which layer keys belong to which object of an object type, and
// which of them is the object's active key. Lines of its [Layer] section are "object=key" or
// "object=key,1" for the active key; a leading colon on the object name is kept as a mark.
#include <string>
#include <vector>

#include "layers/ActiveKeyMap.h"
#include "layers/CentralLayerFile.h"

namespace ardo {

struct ObjectLayerLine {
    std::string objectName;
    std::string key;
    bool active = false;
    bool deleted = false;     // set by the dialog, never written
    bool colonMark = false;
};

// Directory, a separator unless it ends with one, the object type and ".ini". The object type
// must pass isValidObjectTypeName first.
std::string objectLayerFilePath(const std::string& directory, const std::string& objectType);

class ObjectLayerFile {
public:
    // Lines are read in pieces of at most this many characters.
    static constexpr size_t kLinePiece = 511;

    // The active keys are read from and saved to the given settings; none keeps them in memory only.
    explicit ObjectLayerFile(ActiveKeySettings* settings = nullptr) : settings_(settings) {}

    // False, with nothing changed, when the file cannot be opened.
    bool read(const std::string& path);
    // Flag 8 on every entry whose key a line names, flag 1 when the line is the current object's.
    void markReferences(CentralLayerFile& list, const std::string& currentObject) const;
    // The object's chosen line: the first, else the first active, else the remembered active key's.
    ObjectLayerLine* findLine(const std::string& objectName);
    // Other lines, the [LAYER] header, other objects' lines, then the current object's lines made
    // from the entry list. On failure the user is told and nothing changes.
    bool write(const CentralLayerFile& list, const std::string& path, const std::string& currentObject,
               const std::string& activeKey);
    void reset();

    bool empty() const { return empty_; }
    std::vector<ObjectLayerLine>& lines() { return lines_; }
    const std::vector<ObjectLayerLine>& lines() const { return lines_; }
    const std::vector<std::string>& otherLines() const { return otherLines_; }
    const ActiveKeyMap& activeKeys() const { return activeKeys_; }

private:
    std::string fileText(const CentralLayerFile& list, const std::string& currentObject,
                         const std::string& activeKey, const LayerEntry*& activeEntry) const;

    ActiveKeySettings* settings_;
    bool empty_ = true;
    std::vector<ObjectLayerLine> lines_;
    std::vector<std::string> otherLines_;
    ActiveKeyMap activeKeys_;
};

}  // namespace ardo
