#include "layers/ObjectLayerFile.h"

#include <unordered_map>

#include "base/CaseFold.h"
#include "base/FileLookup.h"
#include "module/HostBinding.h"
#include "base/Printf.h"
#include "base/TextFile.h"
#include "layers/LayerValue.h"
#include "messages/MessageCatalog.h"

namespace ardo {

namespace {

bool isKeptAsOther(const std::string& line) {
    return line.empty() || line[0] == ';' || line[0] == '/';
}

// "[Layer]" in any case, with the closing bracket at index 2 or later.
bool isLayerHeader(const std::string& line) {
    const size_t close = line.find(']');
    return close != std::string::npos && close >= 2 && equalsNoCase(line.substr(1, close - 1), "Layer");
}

// A line of the [Layer] section: "object=key" or "object=key,flag". False without an equals sign.
bool parseObjectLine(const std::string& line, ObjectLayerLine& out) {
    const size_t eq = line.find('=');
    if (eq == std::string::npos || eq == 0) return false;
    std::string_view name = trimWhite(std::string_view(line).substr(0, eq));
    // The line's first comma, wherever it stands: an object name with a comma in its first
    // three characters ("A,B=K1,1") keeps the whole text after '=' as its key. A comma inside
    // a longer object name has no key text before it, so it splits nothing either.
    const size_t comma = line.find(',');
    std::string_view key;
    if (comma != std::string::npos && comma >= 3 && comma > eq) {
        key = std::string_view(line).substr(eq + 1, comma - eq - 1);
        std::int32_t flag = 0;
        out.active = readDecimal(line.substr(comma + 1), flag) && flag != 0;
    } else {
        key = std::string_view(line).substr(eq + 1);
    }
    out.key = std::string(trimWhite(key));
    if (!name.empty() && name[0] == ':') {
        out.colonMark = true;
        name.remove_prefix(std::min(name.find_first_not_of(':'), name.size()));
    }
    out.objectName = std::string(name);
    return true;
}

std::string objectLine(const std::string& object, const std::string& key, bool colon, bool active) {
    return (colon ? ":" : "") + object + "=" + key + (active ? ",1" : "") + "\n";
}

void reportCannotWrite(const std::string& path) {
    const std::string message = format("%s\n    '%s'\n%s\n", catalogText(MsgKey::EtCantWriteObjectFile1), path,
                                       catalogText(MsgKey::EtCantWriteObjectFile2));
    host().print(message);
    host().messageBox(message, catalogText(MsgKey::TiMsgBoxError), MbButtons::Ok, MbIcon::Error);
}

constexpr std::uint32_t kOwnLineFlags = entryflag::kCurrentObject | entryflag::kFromFile | entryflag::kInObjectFile;

}  // namespace

std::string objectLayerFilePath(const std::string& directory, const std::string& objectType) {
    std::string path = directory;
    if (!path.empty() && path.back() != '/' && path.back() != '\\') path += '/';
    return path + objectType + ".ini";
}

void ObjectLayerFile::reset() {
    lines_.clear();
    otherLines_.clear();
    activeKeys_.clear();
    empty_ = true;
}

bool ObjectLayerFile::read(const std::string& path) {
    auto file = readTextPieces(findOnDisk(path).value_or(path), kLinePiece);
    if (!file) return false;
    reset();
    bool inLayerSection = false;
    for (const auto& piece : file->pieces) {
        std::string line(trimWhite(piece));
        if (isKeptAsOther(line)) {
            otherLines_.push_back(std::move(line));
        } else if (line[0] == '[') {
            inLayerSection = isLayerHeader(line);
            // The layer section's header is written anew, always last.
            if (!inLayerSection) otherLines_.push_back(std::move(line));
        } else if (!inLayerSection) {
            otherLines_.push_back(std::move(line));
        } else if (ObjectLayerLine parsed; parseObjectLine(line, parsed)) {
            lines_.push_back(std::move(parsed));
        }
    }
    empty_ = false;
    if (settings_) activeKeys_ = ActiveKeyMap::decode(settings_->read(activeKeyValueName(path)));
    return true;
}

void ObjectLayerFile::markReferences(CentralLayerFile& list, const std::string& currentObject) const {
    std::unordered_map<std::string, LayerEntry*> byKey;
    byKey.reserve(list.entries().size());
    for (const auto& e : list.entries()) byKey.emplace(upperCase(e->key), e.get());
    for (const auto& line : lines_) {
        if (line.deleted) continue;
        auto it = byKey.find(upperCase(line.key));
        if (it == byKey.end()) continue;
        it->second->flags |= entryflag::kInObjectFile;
        if (equalsNoCase(line.objectName, currentObject)) it->second->flags |= entryflag::kCurrentObject;
    }
}

ObjectLayerLine* ObjectLayerFile::findLine(const std::string& objectName) {
    ObjectLayerLine* chosen = nullptr;
    for (auto& line : lines_) {
        if (line.deleted || line.colonMark || !equalsNoCase(line.objectName, objectName)) continue;
        if (!chosen) chosen = &line;
        if (line.active) {
            chosen = &line;
            break;
        }
    }
    const std::string remembered = activeKeys_.keyOf(objectName);
    if (!chosen || remembered.empty()) return chosen;
    for (auto& line : lines_) {
        if (line.deleted || line.colonMark || !equalsNoCase(line.objectName, objectName) ||
            !equalsNoCase(line.key, remembered))
            continue;
        chosen->active = false;
        line.active = true;
        return &line;
    }
    return chosen;
}

std::string ObjectLayerFile::fileText(const CentralLayerFile& list, const std::string& currentObject,
                                      const std::string& activeKey, const LayerEntry*& activeEntry) const {
    std::string out;
    for (const auto& line : otherLines_) out += line + "\n";
    out += format("[%s]\n", "LAYER");
    bool currentHasColon = false;
    for (const auto& line : lines_) {
        if (line.deleted) continue;
        if (equalsNoCase(line.objectName, currentObject)) {
            currentHasColon = currentHasColon || line.colonMark;
            continue;
        }
        out += objectLine(line.objectName, line.key, line.colonMark, line.active);
    }
    for (const auto& e : list.entries()) {
        if ((e->flags & kOwnLineFlags) != kOwnLineFlags || e->isDeleted() || e->key.empty()) continue;
        const bool active = equalsNoCase(e->key, activeKey);
        if (active && !activeEntry) activeEntry = e.get();
        out += objectLine(currentObject, e->key, currentHasColon, active);
    }
    return out;
}

bool ObjectLayerFile::write(const CentralLayerFile& list, const std::string& path, const std::string& currentObject,
                            const std::string& activeKey) {
    const LayerEntry* activeEntry = nullptr;
    const std::string text = fileText(list, currentObject, activeKey, activeEntry);
    // The file that was read, however the caller spelled it, not a second one beside it.
    const std::string onDisk = findOnDisk(path).value_or(path);
    if (!writeTextFile(onDisk, text, lineEndOfFile(onDisk))) {
        reportCannotWrite(path);
        return false;
    }
    if (activeEntry) {
        activeKeys_.set(currentObject, activeEntry->key);
        if (settings_) settings_->write(activeKeyValueName(path), activeKeys_.encode());
    }
    return true;
}

}  // namespace ardo
