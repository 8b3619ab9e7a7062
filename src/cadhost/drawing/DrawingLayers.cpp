// The layer table and the symbol-table plumbing it shares with linetypes and styles.
#include <algorithm>

#include "base/Utf8.h"
#include "cadhost/drawing/Drawing.h"
#include "cadhost/drawing/StandardLineweights.h"
#include "cadhost/dxf/TagEdit.h"
#include "cadhost/dxf/TagValue.h"

namespace cadhost {

using ardo::DbStatus;
using ardo::HostColor;
using ardo::LayerRecord;

namespace {

// As the common hosts judge names: none of their reserved characters (the comma separates
// names in lists), and no control character, which no drawing file could hold in a name.
bool isValidSymbolName(const std::string& name) {
    return !name.empty() && name.find_first_of("<>/\\\":;?*|=`,") == std::string::npos &&
           !ardo::hasControlCharacter(name);
}

// Group 62 of a layer: the colour index, negative while the layer is off.
int colorNumber(const LayerRecord& r) {
    int index = r.color.method == HostColor::Method::Index ? r.color.index : 7;
    if (index < 1 || index > 255) index = 7;
    return r.isOff ? -index : index;
}

int layerFlags(const LayerRecord& r) {
    return (r.isFrozen ? 1 : 0) | (r.frozenInNewViewports ? 2 : 0) | (r.isLocked ? 4 : 0);
}

bool hasRgb(const HostColor& c) {
    return c.method == HostColor::Method::TrueColor || c.method == HostColor::Method::ColorBook;
}

}  // namespace

const Drawing::Table* Drawing::table(std::string_view name) const {
    const auto it = tables_.find(std::string(name));
    return it == tables_.end() ? nullptr : &it->second;
}

std::optional<RecordId> Drawing::findTableRecord(std::string_view tableName, std::string_view name) const {
    const std::string key = foldName(name);
    if (tableName == "LAYER") {
        const auto it = layerByName_.find(key);
        if (it == layerByName_.end() || doc_.isErased(it->second)) return std::nullopt;
        return it->second;
    }
    const Table* t = table(tableName);
    if (!t) return std::nullopt;
    for (RecordId id : t->records) {
        const auto value = tagValue(doc_.tags(id), 2);
        if (!doc_.isErased(id) && value && foldName(text(*value)) == key) return id;
    }
    return std::nullopt;
}

std::string Drawing::tableHandle(std::string_view tableName) const {
    const Table* t = table(tableName);
    if (!t) return "0";
    const auto tags = doc_.tags(t->head);
    return std::string(tagValue(tags, 5).value_or("0"));
}

RecordId Drawing::ensureTablesSection() {
    if (tablesEnd_ != kNoRecord) return tablesEnd_;
    // Tables come after the header and classes, before blocks, entities and objects.
    RecordId before = kNoRecord;
    for (RecordId id = doc_.first(); id != kNoRecord && before == kNoRecord; id = doc_.next(id)) {
        const auto tags = doc_.tags(id);
        if (tags[0].value == "EOF") before = id;
        if (tags[0].value == "SECTION" && tags.size() > 1 &&
            (tags[1].value == "BLOCKS" || tags[1].value == "ENTITIES" || tags[1].value == "OBJECTS"))
            before = id;
    }
    if (before == kNoRecord) {
        doc_.append({{0, "SECTION"}, {2, "TABLES"}});
        tablesEnd_ = doc_.append({{0, "ENDSEC"}});
    } else {
        doc_.insertBefore(before, {{0, "SECTION"}, {2, "TABLES"}});
        tablesEnd_ = doc_.insertBefore(before, {{0, "ENDSEC"}});
    }
    return tablesEnd_;
}

Drawing::Table& Drawing::ensureTable(std::string_view name) {
    if (const auto it = tables_.find(std::string(name)); it != tables_.end()) return it->second;
    RecordId before = ensureTablesSection();
    // Layers name their linetype, so LTYPE stands before LAYER.
    if (name == "LTYPE")
        if (const Table* layers = table("LAYER")) before = layers->head;
    std::vector<OwnedTag> head{{0, "TABLE"}, {2, std::string(name)}};
    if (const Handle h = takeHandle())
        head.insert(head.end(), {{5, handleText(h)}, {330, "0"}, {100, "AcDbSymbolTable"}});
    head.push_back({70, "0"});
    Table t;
    t.head = doc_.insertBefore(before, std::move(head));
    t.end = doc_.insertBefore(before, {{0, "ENDTAB"}});
    indexHandle(t.head);
    return tables_[std::string(name)] = t;
}

void Drawing::addContinuousLinetype() {
    std::vector<OwnedTag> tags{{0, "LTYPE"}};
    if (const Handle h = takeHandle()) tags.push_back({5, handleText(h)});
    if (!isR12())
        tags.insert(tags.end(), {{330, tableHandle("LTYPE")}, {100, "AcDbSymbolTableRecord"}, {100, "AcDbLinetypeTableRecord"}});
    tags.insert(tags.end(), {{2, "Continuous"}, {70, "0"}, {3, "Solid line"}, {72, "65"}, {73, "0"}, {40, "0.0"}});
    addTableRecord("LTYPE", std::move(tags));
}

RecordId Drawing::addTableRecord(std::string_view tableName, std::vector<OwnedTag> tags) {
    Table& t = ensureTable(tableName);
    const RecordId id = doc_.insertBefore(t.end, std::move(tags));
    t.records.push_back(id);
    indexHandle(id);
    // The table head counts its records; keep the count no smaller than the truth.
    std::vector<OwnedTag> head = doc_.copyTags(t.head);
    const auto count = std::find_if(head.begin(), head.end(), [](const OwnedTag& x) { return x.code == 70; });
    if (count != head.end() && toInteger(count->value) < static_cast<long long>(t.records.size())) {
        count->value = std::to_string(t.records.size());
        doc_.replace(t.head, std::move(head));
    }
    return id;
}

void Drawing::auditLayerNumbers(std::span<const DxfTag> tags) {
    const std::string name = text(tagValue(tags, 2).value_or(""));
    for (const DxfTag& t : tags) {
        if (t.code == 1001) break;
        const char* what = nullptr;
        if (t.code == 62 && toIntegerWithin(t.value, -255, 255).value_or(0) == 0) what = "colour; it reads as 7";
        if (t.code == 70 && !toIntegerWithin(t.value, INT16_MIN, INT16_MAX)) what = "flags value; it reads as 0";
        if (t.code == 370 && !toIntegerWithin(t.value, INT16_MIN, INT16_MAX)) what = "lineweight; it reads as by default";
        if (what)
            findings_.push_back({t.line, "Layer \"" + name + "\": \"" + std::string(t.value.substr(0, 40)) + "\" is no valid " + what + "."});
    }
}

LayerRecord Drawing::layerFromTags(std::span<const DxfTag> tags) const {
    LayerRecord r;
    r.plotStyleName = "Normal";
    r.color = HostColor::fromIndex(7);
    std::optional<std::string> book;
    std::optional<std::uint32_t> rgb;
    for (const DxfTag& t : tags) {
        if (t.code == 1001) break;   // extended data follows
        switch (t.code) {
            case 2: r.name = text(t.value); break;
            case 70: {
                const auto flags = toGroupInteger(70, t.value);
                r.isFrozen = flags & 1;
                r.frozenInNewViewports = flags & 2;
                r.isLocked = flags & 4;
                break;
            }
            case 62: {
                // A layer's colour is an index from 1 to 255, negative while the layer is
                // off; anything else is damage and reads as 7, as an audit repairs it.
                const auto n = toIntegerWithin(t.value, -255, 255).value_or(7);
                r.isOff = n < 0;
                r.color = HostColor::fromIndex(n == 0 ? 7 : static_cast<int>(n < 0 ? -n : n));
                break;
            }
            case 420:
                if (const auto v = toIntegerWithin(t.value, 0, 0xFFFFFF)) rgb = static_cast<std::uint32_t>(*v);
                break;
            case 430: book = text(t.value); break;
            case 6: r.linetype = text(t.value); break;
            case 370: r.lineweight = static_cast<int>(toGroupInteger(370, t.value, -3)); break;
            case 290: r.isPlottable = toGroupInteger(290, t.value, 1) != 0; break;
            case 390:
                if (const auto dict = plotStyleDictionary())
                    if (auto name = dictionaryEntryName(*dict, t.value)) r.plotStyleName = *name;
                break;
            default: break;
        }
    }
    if (rgb) {
        const int index = r.color.index;
        r.color = HostColor::fromRgb((*rgb >> 16) & 0xFF, (*rgb >> 8) & 0xFF, *rgb & 0xFF);
        r.color.index = index;
        if (book) {
            // Group 430 is "BOOK$COLOR".
            const auto dollar = book->find('$');
            r.color.method = HostColor::Method::ColorBook;
            r.color.bookName = book->substr(0, dollar);
            r.color.colorName = dollar == std::string::npos ? std::string() : book->substr(dollar + 1);
        }
    }
    return r;
}

const LayerRecord& Drawing::decodedLayer(RecordId id) const {
    // Edits of the record, of the dictionary that names its plot style, or a different
    // dictionary all count; whoever made them, nothing stale is given out.
    const auto styles = plotStyleDictionary();
    const RecordId stylesId = styles.value_or(kNoRecord);
    const std::uint32_t stylesRevision = styles ? doc_.revision(*styles) : 0;
    auto [it, added] = decodedLayers_.try_emplace(id);
    DecodedLayer& d = it->second;
    if (added || d.revision != doc_.revision(id) || d.styles != stylesId || d.stylesRevision != stylesRevision)
        d = {doc_.revision(id), stylesId, stylesRevision, layerFromTags(doc_.tags(id))};
    return d.record;
}

DbStatus Drawing::forEachLayer(const std::function<bool(const LayerRecord&)>& visit) const {
    // A minimal drawing without a layer table has no layers of its own yet; that is an empty
    // walk, not a failure, so audits and lists treat it like any other drawing.
    const Table* t = table("LAYER");
    if (!t) return DbStatus::Ok;
    for (RecordId id : t->records) {
        if (doc_.isErased(id)) continue;
        // A copy: the visitor may change the drawing, and a listener read this layer anew.
        const LayerRecord record = decodedLayer(id);
        if (!visit(record)) break;
    }
    return DbStatus::Ok;
}

std::optional<LayerRecord> Drawing::findLayer(const std::string& name) const {
    const auto id = findTableRecord("LAYER", name);
    if (!id) return std::nullopt;
    return decodedLayer(*id);
}

std::vector<OwnedTag> Drawing::layerTags(const LayerRecord& r) const {
    std::vector<OwnedTag> tags{{0, "LAYER"}};
    if (!isR12()) {
        tags.push_back({330, tableHandle("LAYER")});
        tags.push_back({100, "AcDbSymbolTableRecord"});
        tags.push_back({100, "AcDbLayerTableRecord"});
    }
    tags.push_back({2, fileText(r.name)});
    tags.push_back({70, std::to_string(layerFlags(r))});
    tags.push_back({62, std::to_string(colorNumber(r))});
    if (!isR12() && hasRgb(r.color)) {
        tags.push_back({420, std::to_string(r.color.rgb())});
        if (r.color.method == HostColor::Method::ColorBook)
            tags.push_back({430, fileText(r.color.bookName + "$" + r.color.colorName)});
    }
    tags.push_back({6, fileText(r.linetype)});
    if (!isR12()) {
        if (!r.isPlottable) tags.push_back({290, "0"});
        tags.push_back({370, std::to_string(r.lineweight)});
        if (const auto dict = namedDictionary("ACAD_PLOTSTYLENAME"))
            if (const auto ph = dictionaryEntry(*dict, r.plotStyleName))
                tags.push_back({390, std::string(tagValue(doc_.tags(*ph), 5).value_or("0"))});
    }
    return tags;
}

DbStatus Drawing::acceptLayerValues(LayerRecord& record, const LayerRecord* before) const {
    if (!before || before->lineweight != record.lineweight) {
        const bool standard = std::find(kStandardLineweights.begin(), kStandardLineweights.end(),
                                        record.lineweight) != kStandardLineweights.end();
        if (!standard && record.lineweight != kLineweightDefault) return DbStatus::InvalidInput;
    }
    if (before && foldName(before->linetype) == foldName(record.linetype)) return DbStatus::Ok;
    const std::string folded = foldName(record.linetype);
    if (folded == "BYLAYER" || folded == "BYBLOCK") return DbStatus::InvalidInput;
    const auto linetype = findTableRecord("LTYPE", record.linetype);
    if (!linetype) return DbStatus::KeyNotFound;
    record.linetype = text(tagValue(doc_.tags(*linetype), 2).value_or(""));
    return DbStatus::Ok;
}

DbStatus Drawing::addLayer(const LayerRecord& given) {
    if (!isValidSymbolName(given.name)) return DbStatus::InvalidInput;
    if (findTableRecord("LAYER", given.name)) return DbStatus::DuplicateRecordName;
    LayerRecord record = given;
    DbStatus accepted = acceptLayerValues(record, nullptr);
    // A minimal drawing may lack Continuous; it is made, as hosts complete such drawings.
    if (accepted == DbStatus::KeyNotFound && isContinuousLinetype(given.linetype)) {
        addContinuousLinetype();
        accepted = acceptLayerValues(record, nullptr);
    }
    if (accepted != DbStatus::Ok) return accepted;
    std::vector<OwnedTag> tags = layerTags(record);
    if (const Handle h = takeHandle()) tags.insert(tags.begin() + 1, OwnedTag{5, handleText(h)});
    const RecordId id = addTableRecord("LAYER", std::move(tags));
    layerByName_[foldName(record.name)] = id;
    announce([&](DrawingListener& l) { l.layerChanged(Change::Created, record.name); });
    return DbStatus::Ok;
}

// A layer set to what it is already has not changed, and nobody is told.
DbStatus Drawing::announceLayerEdit(const std::string& layer, const std::function<DbStatus()>& edit) {
    const auto id = findTableRecord("LAYER", layer);
    const std::vector<OwnedTag> before = id ? doc_.copyTags(*id) : std::vector<OwnedTag>{};
    const DbStatus status = edit();
    if (status != DbStatus::Ok || !id || doc_.copyTags(*id) == before) return status;
    const std::string held = text(tagValue(doc_.tags(*id), 2).value_or(""));
    announce([&](DrawingListener& l) { l.layerChanged(Change::Modified, held); });
    return status;
}

DbStatus Drawing::updateLayer(const LayerRecord& record) {
    return announceLayerEdit(record.name, [&] { return rewriteLayer(record); });
}

DbStatus Drawing::rewriteLayer(const LayerRecord& given) {
    const auto id = findTableRecord("LAYER", given.name);
    if (!id) return DbStatus::KeyNotFound;
    const LayerRecord old = decodedLayer(*id);
    LayerRecord record = given;
    if (const DbStatus accepted = acceptLayerValues(record, &old); accepted != DbStatus::Ok) return accepted;
    std::vector<OwnedTag> tags = doc_.copyTags(*id);
    if (layerFlags(old) != layerFlags(record)) {
        // Keep the bits this host does not own (xref dependence and the like).
        const auto flags = toGroupInteger(70, Drawing::tagValue(doc_.tags(*id), 70).value_or("0"));
        setTag(tags, 70, std::to_string((flags & ~7LL) | layerFlags(record)));
    }
    if (old.color != record.color || old.isOff != record.isOff) {
        const int index = record.color.method == HostColor::Method::Index ? record.color.index : std::abs(colorNumber(old));
        setTag(tags, 62, std::to_string(record.isOff ? -index : index));
        removeTags(tags, 420);
        removeTags(tags, 430);
        if (!isR12() && hasRgb(record.color)) {
            std::vector<OwnedTag> more{{420, std::to_string(record.color.rgb())}};
            if (record.color.method == HostColor::Method::ColorBook)
                more.push_back({430, fileText(record.color.bookName + "$" + record.color.colorName)});
            // 420/430 follow 62 in the files AutoCAD writes.
            const auto at = std::find_if(tags.begin(), tags.end(), [](const OwnedTag& t) { return t.code == 62; });
            tags.insert(at + 1, more.begin(), more.end());
        }
    }
    if (foldName(old.linetype) != foldName(record.linetype)) setTag(tags, 6, fileText(record.linetype));
    if (!isR12()) {
        if (old.isPlottable != record.isPlottable) setTag(tags, 290, record.isPlottable ? "1" : "0");
        if (old.lineweight != record.lineweight) setTag(tags, 370, std::to_string(record.lineweight));
    }
    if (tags != doc_.copyTags(*id)) doc_.replace(*id, std::move(tags));
    if (foldName(old.plotStyleName) != foldName(record.plotStyleName))
        return storeLayerPlotStyle(record.name, record.plotStyleName);
    return DbStatus::Ok;
}

DbStatus Drawing::setLayerPlotStyleName(const std::string& layer, const std::string& plotStyle) {
    return announceLayerEdit(layer, [&] { return storeLayerPlotStyle(layer, plotStyle); });
}

DbStatus Drawing::storeLayerPlotStyle(const std::string& layer, const std::string& plotStyle) {
    const auto id = findTableRecord("LAYER", layer);
    if (!id) return DbStatus::KeyNotFound;
    const auto dict = namedDictionary("ACAD_PLOTSTYLENAME");
    if (!dict) return DbStatus::KeyNotFound;
    const auto ph = dictionaryEntry(*dict, plotStyle);
    if (!ph) return DbStatus::KeyNotFound;
    std::vector<OwnedTag> tags = doc_.copyTags(*id);
    setTag(tags, 390, std::string(tagValue(doc_.tags(*ph), 5).value_or("0")));
    doc_.replace(*id, std::move(tags));
    return DbStatus::Ok;
}

void Drawing::dropTableRecord(std::string_view tableName, RecordId id) {
    if (const auto handle = tagValue(doc_.tags(id), 5)) byHandle_.erase(toHandle(*handle));
    std::erase(tables_.at(std::string(tableName)).records, id);
    doc_.erase(id);
}

// Whether an entity anywhere (model space, paper space, blocks) names it in that group.
bool Drawing::entityUses(int code, std::string_view name) const {
    const std::string key = foldName(name);
    for (const Entity& e : entities_) {
        if (doc_.isErased(e.record)) continue;
        const auto value = tagValue(doc_.tags(e.record), code);
        if (value && foldName(text(*value)) == key) return true;
    }
    return false;
}

DbStatus Drawing::eraseLayer(const std::string& name) {
    const auto id = findTableRecord("LAYER", name);
    if (!id) return DbStatus::KeyNotFound;
    const std::string held = text(tagValue(doc_.tags(*id), 2).value_or(""));
    const auto current = getVar("CLAYER");
    const std::string key = foldName(held);
    if (key == "0" || key == "DEFPOINTS" || (current && foldName(current->text) == key) || entityUses(8, held))
        return DbStatus::InvalidInput;
    // No viewport may keep a frozen entry that names no layer.
    replaceFrozenLayer(held, std::nullopt);
    layerByName_.erase(key);
    dropTableRecord("LAYER", *id);
    announce([&](DrawingListener& l) { l.layerChanged(Change::Erased, held); });
    return DbStatus::Ok;
}

}  // namespace cadhost
