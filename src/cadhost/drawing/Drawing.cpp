// Opening, indexing and saving a drawing.
#include "cadhost/drawing/Drawing.h"

#include <cstring>
#include <filesystem>

#include "cadhost/drawing/Template.h"
#include "base/CaseFold.h"
#include "base/FileReplace.h"
#include "cadhost/dxf/DxfFile.h"
#include "cadhost/dxf/TagValue.h"

namespace cadhost {

namespace {
DxfDocument parseTemplate() {
    auto parsed = DxfDocument::parse(templateDxf());
    return std::move(std::get<DxfDocument>(parsed));   // the template is tested to parse
}
}  // namespace

std::string foldName(std::string_view utf8) { return ardo::upperCase(utf8); }

Drawing::Drawing() : Drawing(parseTemplate()) {
    index();
    path_ = "Drawing1.dxf";
    savedChanges_ = doc_.changeCount();
}

Drawing::Drawing(DxfDocument doc) : doc_(std::move(doc)), form_(doc_.form()) {}
Drawing::~Drawing() = default;
Drawing::Drawing(Drawing&&) noexcept = default;
Drawing& Drawing::operator=(Drawing&&) noexcept = default;

ardo::Result<Drawing> Drawing::open(const std::string& path) {
    auto bytes = readDrawingFile(path);
    if (auto* e = std::get_if<DxfError>(&bytes)) return ardo::Error{e->message};
    return load(std::move(std::get<std::string>(bytes)), path, DxfReadMode::Strict);
}

ardo::Result<Drawing> Drawing::fromBytes(std::string bytes, const std::string& path) {
    return load(std::move(bytes), path, DxfReadMode::Strict);
}

ardo::Result<RecoveredDrawing> Drawing::recover(const std::string& path) {
    auto bytes = readDrawingFile(path);
    if (auto* e = std::get_if<DxfError>(&bytes)) return ardo::Error{e->message};
    return recoverFromBytes(std::move(std::get<std::string>(bytes)), path);
}

ardo::Result<RecoveredDrawing> Drawing::recoverFromBytes(std::string bytes, const std::string& path) {
    auto loaded = load(std::move(bytes), path, DxfReadMode::Recover);
    if (!loaded) return ardo::Error{loaded.error()};
    Drawing& d = *loaded;
    std::vector<DxfRepair> repairs = d.doc_.repairs();
    repairs.insert(repairs.end(), d.findings_.begin(), d.findings_.end());
    return RecoveredDrawing{std::move(d), std::move(repairs)};
}

ardo::Result<Drawing> Drawing::load(std::string bytes, const std::string& path, DxfReadMode mode) {
    const std::string where = path.empty() ? std::string("DXF") : "\"" + path + "\"";
    try {
        auto parsed = DxfDocument::parse(std::move(bytes), mode);
        if (auto* e = std::get_if<DxfError>(&parsed)) return ardo::Error{"Cannot open " + where + ". " + e->message};
        Drawing d(std::move(std::get<DxfDocument>(parsed)));
        d.index();
        d.setPath(path);
        d.savedChanges_ = d.doc_.changeCount();
        return d;
    } catch (const std::bad_alloc&) {
        return ardo::Error{"Cannot open " + where + ": there is not enough memory for it. Close other programs and try again."};
    }
}

void Drawing::index() {
    plotStyleDictionary_.reset();
    // At most one entity and one handle per record; reserving spares the rehashing.
    byHandle_.reserve(doc_.recordCapacity());
    entityByHandle_.reserve(doc_.recordCapacity());
    entities_.reserve(doc_.recordCapacity());
    for (RecordId id = doc_.first(); id != kNoRecord; id = doc_.next(id)) {
        if (doc_.type(id) != "SECTION") continue;
        const auto head = doc_.head(id);
        const std::string_view name = head.second->value;   // the structure check made sure of it
        if (name == "HEADER") {
            header_ = id;
            indexHeader();
        } else if (name == "TABLES") {
            id = indexTables(doc_.next(id));
            if (tablesEnd_ == kNoRecord) tablesEnd_ = id;
        } else if (name == "BLOCKS") {
            id = indexBlocks(doc_.next(id));
        } else if (name == "ENTITIES") {
            id = indexEntities(doc_.next(id));
            entitiesEnd_ = id;
        } else if (name == "OBJECTS") {
            id = indexObjects(doc_.next(id));
            objectsEnd_ = id;
        }
    }
    const auto ver = headerVar("$ACADVER");
    version_ = ver && ver->size() > 1 ? std::string((*ver)[1].value) : std::string("AC1009");
    const auto cp = headerVar("$DWGCODEPAGE");
    codec_ = DxfTextCodec::forDrawing(version_, cp && cp->size() > 1 ? (*cp)[1].value : std::string_view());
    if (const auto seed = headerVar("$HANDSEED"); seed && seed->size() > 1)
        nextHandle_ = std::max(nextHandle_, toHandle((*seed)[1].value));
}

void Drawing::setPath(const std::string& path) {
    std::error_code ec;
    const auto absolute = path.empty() ? std::filesystem::path() : std::filesystem::absolute(path, ec);
    path_ = ec ? path : absolute.string();
}

void Drawing::indexHeader() {
    headerIndex_.clear();
    const auto tags = doc_.tags(header_);
    for (std::size_t i = 0; i < tags.size(); ++i)
        if (tags[i].code == 9) headerIndex_.emplace(std::string(tags[i].value), i);
}

void Drawing::indexHandle(RecordId id) { indexHandle(id, doc_.head(id)); }

void Drawing::indexHandle(RecordId id, const DxfDocument::Head& head) {
    if (!head.second || (head.second->code != 5 && head.second->code != 105)) return;
    const Handle h = toHandle(head.second->value);
    if (h == 0) return;
    byHandle_.emplace(h, id);
    nextHandle_ = std::max(nextHandle_, h + 1);
}

RecordId Drawing::indexTables(RecordId id) {
    Table* current = nullptr;
    for (; id != kNoRecord; id = doc_.next(id)) {
        // Erased records stay linked in the document (undo may bring them back).
        if (doc_.isErased(id)) continue;
        const auto tags = doc_.tags(id);
        const std::string_view type = tags[0].value;
        if (type == "ENDSEC") return id;
        indexHandle(id);
        if (type == "TABLE") {
            const auto name = tagValue(tags, 2);
            current = &tables_[std::string(name.value_or(""))];
            current->head = id;
        } else if (type == "ENDTAB") {
            if (current) current->end = id;
            current = nullptr;
        } else if (current) {
            current->records.push_back(id);
            if (type == "LAYER") {
                if (const auto name = tagValue(tags, 2)) layerByName_.emplace(foldName(text(*name)), id);
                auditLayerNumbers(tags);
            }
        }
    }
    return kNoRecord;
}

std::uint32_t Drawing::addEntity(RecordId record, std::int32_t block, RecordId& cursor) {
    Entity e;
    e.record = record;
    e.last = record;
    e.block = block;
    const auto head = doc_.head(record);
    if (head.second && head.second->code == 5) e.handle = toHandle(head.second->value);
    const std::string_view type = head.type.value;
    // Vertices and attributes are part of their POLYLINE or INSERT, up to SEQEND.
    if (type == "POLYLINE" || type == "INSERT") {
        for (RecordId n = doc_.next(record); n != kNoRecord; n = doc_.next(n)) {
            const std::string_view sub = doc_.type(n);
            if (sub != "VERTEX" && sub != "ATTRIB" && sub != "SEQEND") break;
            indexHandle(n);
            e.last = n;
            if (sub == "SEQEND") break;
        }
    }
    cursor = e.last;
    indexHandle(record, head);
    const auto index = static_cast<std::uint32_t>(entities_.size());
    // An entity without a handle (an old R12 file) or with one an earlier entity took (a
    // damaged file) is named after its record, so it is drawn, listed and editable like any
    // other; the file keeps what it had.
    if (e.handle == 0 || entityByHandle_.find(e.handle)) e.handle = kUnnamedEntities + record;
    entityByHandle_.emplace(e.handle, index);
    entities_.push_back(e);
    return index;
}

RecordId Drawing::indexBlocks(RecordId id) {
    std::int32_t current = -1;
    for (; id != kNoRecord; id = doc_.next(id)) {
        if (doc_.isErased(id)) continue;
        const std::string_view type = doc_.type(id);
        if (type == "ENDSEC") return id;
        if (type == "BLOCK") {
            indexHandle(id);
            Block b;
            b.name = text(tagValue(doc_.tags(id), 2).value_or(""));
            b.record = id;
            current = static_cast<std::int32_t>(blocks_.size());
            blockByName_.emplace(foldName(b.name), current);
            blocks_.push_back(std::move(b));
        } else if (type == "ENDBLK") {
            indexHandle(id);
            current = -1;
        } else {
            RecordId cursor = id;
            const std::uint32_t e = addEntity(id, current, cursor);
            if (current >= 0) blocks_[current].entities.push_back(e);
            id = cursor;
        }
    }
    return kNoRecord;
}

RecordId Drawing::indexEntities(RecordId id) {
    spaceEntities_.reserve(spaceEntities_.size() + doc_.recordCapacity() / 2);
    for (; id != kNoRecord; id = doc_.next(id)) {
        if (doc_.isErased(id)) continue;
        if (doc_.type(id) == "ENDSEC") return id;
        RecordId cursor = id;
        spaceEntities_.push_back(addEntity(id, -1, cursor));
        id = cursor;
    }
    return kNoRecord;
}

RecordId Drawing::indexObjects(RecordId id) {
    for (; id != kNoRecord; id = doc_.next(id)) {
        if (doc_.isErased(id)) continue;
        if (doc_.type(id) == "ENDSEC") return id;
        indexHandle(id);
        objects_.push_back(id);
    }
    return kNoRecord;
}

std::optional<std::string_view> Drawing::tagValue(std::span<const DxfTag> tags, int code) {
    for (const DxfTag& t : tags)
        if (t.code == code) return t.value;
    return std::nullopt;
}

std::string Drawing::handleText(Handle h) const { return handleToText(h); }

Handle Drawing::takeHandle() {
    if (!hasHandles()) return 0;
    handSeedChanged_ = true;
    return nextHandle_++;
}

std::optional<RecordId> Drawing::recordByHandle(std::string_view text) const {
    const RecordId* id = byHandle_.find(toHandle(text));
    if (!id) return std::nullopt;
    return *id;
}

std::string Drawing::toDxf() {
    // The next handle is written into the saved header without changing the drawing, so
    // saving is no change that undo would have to take back.
    if (!handSeedChanged_ || header_ == kNoRecord || !headerVar("$HANDSEED")) return doc_.serialize(form_, isR12());
    std::vector<OwnedTag> header = doc_.copyTags(header_);
    const std::size_t at = headerIndex_.at("$HANDSEED") + 1;
    if (at < header.size() && header[at].code == 5) header[at].value = handleText(nextHandle_);
    return doc_.serialize(form_, isR12(), {header_, &header});
}

ardo::Status Drawing::save(const std::string& path) { return save(path, form_); }

ardo::Status Drawing::save(const std::string& path, DxfForm form) {
    const DxfForm before = form_;
    form_ = form;
    if (auto saved = ardo::replaceFile(path, toDxf()); !saved) {
        form_ = before;
        return saved;
    }
    setPath(path);
    savedChanges_ = doc_.changeCount();
    restored_ = false;
    return {};
}

}  // namespace cadhost
