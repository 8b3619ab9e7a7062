#pragma once
// The drawing database of ardo-cad: one DXF drawing in memory, with the layer and linetype
// tables, the named-object dictionary, the entities of model space, paper space and blocks,
// and the system variables. Records the host does not change keep their original bytes, so
// saving an unchanged drawing writes the file as it was read.
//
// Text going in and out of this API is UTF-8; the file's encoding is handled inside.
// Names of layers, linetypes, dictionaries and their entries compare without regard to case.
// Entities are named by their DXF handle (the hexadecimal group 5 as a number); the LISP side
// uses that number as the entity name's id.
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

#include "cadhost/drawing/DrawingListener.h"
#include "cadhost/drawing/Geometry.h"
#include "cadhost/drawing/HandleIndex.h"
#include "cadhost/dxf/DxfDocument.h"
#include "cadhost/dxf/DxfText.h"
#include "base/Result.h"
#include "boundary/HostDrawing.h"
#include "boundary/ResBuf.h"

namespace cadhost {

using Handle = std::uint64_t;

enum class Space { Model, Paper, Block };

// What the host knows of one entity without reading all its tags.
struct EntityInfo {
    Handle handle = 0;
    std::string type;     // "LINE", "INSERT", ... as in the file
    std::string layer;
    Space space = Space::Model;
    std::string block;    // owning block's name when space is Block
};

// One tag of an entity as text, decoded to UTF-8.
struct EntityTag {
    int code = 0;
    std::string value;
    bool operator==(const EntityTag&) const = default;
};

struct RecoveredDrawing;

// An area of a layout's sheet in paper-space units.
struct SheetArea {
    double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
    bool empty() const { return !(x1 > x0 && y1 > y0); }
};

// A paper-space layout (a LAYOUT object other than the model's).
struct Layout {
    std::string name;
    int tabOrder = 0;
    // The block record holding its entities: "*Paper_Space" for the layout the ENTITIES
    // section holds, "*Paper_Space0", ... for the others.
    std::string block;
    SheetArea paper;       // the sheet, turned as it is plotted; empty when the layout gives none
    SheetArea printable;   // the sheet without its margins
};

// What the drawing keeps beside its records and an undo step must restore too: the next
// handle (written to $HANDSEED on saving) and a current colour beyond the index colours.
struct DrawingSession {
    std::uint64_t nextHandle = 0;
    bool handSeedChanged = false;
    std::string currentColorBeyondIndex;
};

// The changes of one undo step, as the drawing records them.
struct DrawingChanges {
    DxfDocument::Edits edits;
    DrawingSession before, after;
    bool empty() const { return edits.empty(); }
    std::size_t bytes() const { return sizeof(DrawingChanges) + edits.bytes(); }
};

class Drawing final : public ardo::HostDrawing {
public:
    // A new, empty drawing made from the built-in template (AutoCAD 2018 format, named plot
    // styles off, layer "0" and linetypes ByBlock, ByLayer, Continuous).
    Drawing();
    ~Drawing() override;
    Drawing(Drawing&&) noexcept;
    Drawing& operator=(Drawing&&) noexcept;

    // Reads a DXF file (ASCII or binary). Only regular files are read. On failure the
    // message for the user names the file, the line and what to do.
    static ardo::Result<Drawing> open(const std::string& path);
    // Reads DXF bytes; `path` only sets DWGNAME and DWGPREFIX.
    static ardo::Result<Drawing> fromBytes(std::string bytes, const std::string& path = {});
    // Reads a damaged or truncated file as far as it can, mending its structure; the
    // result lists every repair, and layer numbers out of range as an audit reports them.
    // What cannot be read at all (no DXF, not a regular file) is still refused.
    static ardo::Result<RecoveredDrawing> recover(const std::string& path);
    static ardo::Result<RecoveredDrawing> recoverFromBytes(std::string bytes, const std::string& path = {});

    // Writes the drawing as DXF in the form it was read or last saved in (ASCII or
    // binary), replacing the file atomically (temporary file beside it, then rename). The
    // path becomes the drawing's DWGNAME/DWGPREFIX.
    ardo::Status save(const std::string& path);
    // The same in the given form, which later saves keep.
    ardo::Status save(const std::string& path, DxfForm form);
    // The file as save() writes it.
    std::string toDxf();
    DxfForm form() const { return form_; }
    // Whether anything was changed since the drawing was read or last saved.
    bool hasUnsavedChanges() const { return restored_ || doc_.changeCount() != savedChanges_; }
    // A drawing restored from a recovery file holds changes its own file does not have,
    // until it is saved.
    void markRestored() { restored_ = true; }

    std::string_view acadVersion() const { return version_; }

    // Listeners hear of every change to layers, linetypes, entities and system variables.
    // A listener stays registered until it is removed; it must outlive that.
    void addListener(DrawingListener& listener) { listeners_.push_back(&listener); }
    void removeListener(DrawingListener& listener) { std::erase(listeners_, &listener); }
    const DxfDocument& document() const { return doc_; }

    // --- ardo::HostDrawing -------------------------------------------------------------
    ardo::DbStatus forEachLayer(const std::function<bool(const ardo::LayerRecord&)>& visit) const override;
    std::optional<ardo::LayerRecord> findLayer(const std::string& name) const override;
    ardo::DbStatus addLayer(const ardo::LayerRecord& record) override;
    // Tags the record does not own (extended data, reactors, other applications' groups)
    // are kept.
    ardo::DbStatus updateLayer(const ardo::LayerRecord& record) override;
    ardo::DbStatus mergeLayer(const std::string& from, const std::string& into) override;
    // The plot style must be a place-holder of "ACAD_PLOTSTYLENAME" (KeyNotFound otherwise).
    ardo::DbStatus setLayerPlotStyleName(const std::string& layer, const std::string& plotStyle) override;
    bool hasLinetype(const std::string& name) const override;
    // FileNotFound when the file cannot be read, KeyNotFound when it lacks the linetype,
    // DuplicateRecordName when the drawing has it already.
    ardo::DbStatus loadLinetype(const std::string& name, const std::string& linFile) override;
    bool isContinuousLinetype(const std::string& name) const override;
    bool usesNamedPlotStyles() const override;
    bool hasDictionary(const std::string& name) const override;
    ardo::DbStatus addDictionary(const std::string& name) override;
    // An entry that exists already is kept (layers may refer to it); the result is Ok.
    ardo::DbStatus addPlaceHolder(const std::string& dictionary, const std::string& entry) override;
    bool hasDictionaryEntry(const std::string& dictionary, const std::string& entry) const override;
    std::optional<std::string> layerOfEntity(std::int64_t entity) const override;

    // --- more layer work for the host's commands --------------------------------------
    // Layer "0", "Defpoints", the current layer and layers that entities are on stay
    // (InvalidInput), as PURGE leaves them.
    ardo::DbStatus eraseLayer(const std::string& name);
    std::vector<std::string> linetypeNames() const;
    // The tags of a table's record ("DIMSTYLE", "STYLE", ...) by name, decoded; empty when
    // there is none.
    std::vector<EntityTag> tableRecordTags(std::string_view table, std::string_view name) const;
    // The tags of the record with the handle (an IMAGEDEF an IMAGE names, ...), decoded;
    // empty when there is none.
    std::vector<EntityTag> recordTags(std::string_view handle) const;
    // ByBlock, ByLayer, Continuous and linetypes that layers or entities use stay (InvalidInput).
    ardo::DbStatus eraseLinetype(const std::string& name);

    // --- system variables -------------------------------------------------------------
    // "CLAYER", "TILEMODE", "CMDECHO", "CDATE", "LWUNITS", "LWDEFAULT", "LWDISPLAY", "LASTPOINT",
    // "PROGRAM", "CMDACTIVE", "FILEDIA", "DWGNAME", "DWGPREFIX", "CTAB" (the tab shown: "Model"
    // or a layout's name), and every variable of the
    // drawing's header by its name without "$". Nothing for unknown names. CECOLOR is
    // text, as the common hosts give it: "BYLAYER", "BYBLOCK", "1" to "255",
    // "RGB:255,128,0" or "BOOK$COLOR".
    std::optional<ardo::ResBuf> getVar(std::string_view name) const;
    // CLAYER, which every layer function of the module reads: decoded once per header edit.
    const std::string& currentLayerName() const;
    // Header variables are written back into the header. CDATE, DWGNAME, DWGPREFIX,
    // PROGRAM and CMDACTIVE are read-only (InvalidInput); CLAYER must name a layer, CTAB
    // "Model" or a layout (it sets TILEMODE).
    // CECOLOR takes the texts getVar gives (any case; "255,128,0" for a true colour too)
    // and an index from 0 (BYBLOCK) to 256 (BYLAYER).
    ardo::DbStatus setVar(std::string_view name, const ardo::ResBuf& value);
    // The colour groups a new entity takes from CECOLOR: none for BYLAYER, 62 for BYBLOCK
    // and index colours, 420 for a true colour, 430 for a colour-book colour.
    std::vector<EntityTag> currentColorTags() const;
    // For the command processor, which alone knows whether a command runs.
    void setCommandActive(int bits) { cmdActive_ = bits; }

    // --- entities ---------------------------------------------------------------------
    // Appends an entity to the space shown (model space, or the current layout while TILEMODE
    // is 0), as entmake does: `tags` start with its type (group
    // 0) and give its layer (group 8, an existing layer) and data in UTF-8; the handle and
    // owner are added here. The new entity's handle, or nothing when the tags are refused.
    std::optional<Handle> makeEntity(const std::vector<EntityTag>& tags);
    // Erases the entity with what belongs to it (vertices, attributes); KeyNotFound when
    // there is none.
    ardo::DbStatus eraseEntity(Handle handle);
    // Erases each entity named that exists, in one pass over the entity lists; how many.
    std::size_t eraseEntities(const std::vector<Handle>& handles);
    // Entities of model and paper space in file order (block contents and the vertices
    // and attributes that belong to a POLYLINE or INSERT are not visited).
    std::optional<Handle> firstEntity() const;
    std::optional<Handle> nextEntity(Handle handle) const;
    void forEachEntity(const std::function<bool(const EntityInfo&)>& visit) const;
    std::size_t entityCount() const;
    std::optional<EntityInfo> entity(Handle handle) const;
    // The drawing has the entity (not erased); reads none of its data.
    bool hasEntity(Handle handle) const { return findEntity(handle) != nullptr; }
    // The entity's type ("LINE", ...) as in the file, without reading its other tags; empty
    // when there is none.
    std::string_view entityType(Handle handle) const;
    // The entity's own tags as in the file (extended data included), decoded to UTF-8.
    std::vector<EntityTag> entityTags(Handle handle) const;
    // The entity list as entget returns it: (-1 . name) first, points joined, values typed
    // by group code; handles of other objects as entity names; extended data only when
    // asked for (each application's name as a 1001 group).
    ardo::ResBufChain entityList(Handle handle, bool withExtendedData = false) const;
    // Extended data names its application, which the APPID table must list; adds the
    // record when it is missing.
    void registerApplication(std::string_view name);
    // Geometric extents for LINE, LWPOLYLINE, POLYLINE, CIRCLE, ARC, ELLIPSE, POINT, TEXT,
    // MTEXT, INSERT, HATCH, SOLID and SPLINE; nothing for other types. Texts are estimated
    // from height and character count. Coordinates of 2D entities are taken as world
    // coordinates (extrusion (0,0,1)).
    std::optional<Extents> extents(Handle handle) const;
    // The records that belong to the entity after it (a POLYLINE's vertices, an INSERT's
    // attributes), each as its tags, without the closing SEQEND.
    std::vector<std::vector<EntityTag>> entityParts(Handle handle) const;
    // Replaces the data of those records, as modifyEntity does for the entity: one list for
    // each in order, of the same type; their handles and owner stay. InvalidInput when the
    // lists do not match the records, KeyNotFound for an unknown entity or layer.
    ardo::DbStatus modifyEntityParts(Handle handle, const std::vector<std::vector<EntityTag>>& parts);
    // A block's base point and its entities in file order; nothing for an unknown name.
    struct BlockContents {
        ardo::Point3 base{};
        std::vector<Handle> entities;
    };
    std::optional<BlockContents> blockContents(std::string_view name) const;
    // Replaces the entity's data, as entmod does: `tags` in UTF-8 start with its type
    // (group 0, which cannot change); the handle and owner stay; extended data stays unless
    // the tags give some. KeyNotFound for an unknown entity or layer, InvalidInput for
    // another type.
    ardo::DbStatus modifyEntity(Handle handle, const std::vector<EntityTag>& tags);
    // An entity erased in this session can be brought back (entdel's toggle) until undo
    // or another change made it gone for good.
    bool isErasedEntity(Handle handle) const;
    ardo::DbStatus restoreEntity(Handle handle);
    // Moves the entity to an existing layer (the layers toolbar with objects selected);
    // KeyNotFound for an unknown entity or layer.
    ardo::DbStatus setEntityLayer(Handle handle, const std::string& layer);
    // --- blocks -----------------------------------------------------------------------
    // Entity records for a block or for model space, each starting with its type (group 0).
    // Handles, owners, reactors and extension dictionaries given are left out: the drawing
    // gives its own. A POLYLINE's VERTEX records and an INSERT's ATTRIB records follow it;
    // the closing SEQEND is added.
    using EntityRecords = std::vector<std::vector<EntityTag>>;
    bool hasBlock(std::string_view name) const;
    // Defines the block, or gives an existing one the new base point and entities, so that
    // its inserts show the new definition. An anonymous name ("*D3", "*U7": a star, a letter,
    // digits) makes an anonymous block, as a dimension's picture is. InvalidInput for a layout
    // block ("*Model_Space") or a name the drawing cannot hold; KeyNotFound when a record
    // names an unknown layer.
    ardo::DbStatus defineBlock(const std::string& name, const ardo::Point3& base, const EntityRecords& entities);
    // Copies another drawing's record of a linetype or text style ("LTYPE", "STYLE") by
    // name; a record the drawing has already is kept, as inserting a drawing keeps it.
    // False when `from` has none of that name.
    bool copyTableRecord(const Drawing& from, std::string_view table, const std::string& name);
    // Appends an entity as makeEntity does, its ATTRIB or VERTEX records after it and a SEQEND.
    std::optional<Handle> makeEntity(const std::vector<EntityTag>& tags, const EntityRecords& parts);

    // Viewports (VIEWPORT entities) and the layers frozen in them (group 341; some writers
    // use 331).
    std::vector<Handle> viewports() const;
    std::vector<std::string> viewportFrozenLayers(Handle viewport) const;
    // Replaces the viewport's frozen layer list. The entity keeps the group code it uses
    // (331 or 341); a viewport without a list gets 331, as the DXF reference writes it.
    // KeyNotFound for an unknown viewport or layer; nothing is changed then.
    ardo::DbStatus setViewportFrozenLayers(Handle viewport, const std::vector<std::string>& layers);

    // --- layouts ----------------------------------------------------------------------
    // The paper-space layouts in tab order.
    std::vector<Layout> layouts() const;
    // The layout shown while TILEMODE is 0, which CTAB names and new entities go to.
    std::optional<Layout> currentLayout() const;

    // --- undo -------------------------------------------------------------------------
    // While recording, every change, whoever makes it, is kept until taken as one step.
    void recordChanges(bool on);
    // The changes since the last call.
    DrawingChanges takeChanges();
    // Takes the step back or makes it again; listeners hear of every layer, linetype,
    // entity and header variable that the step touched.
    void undo(DrawingChanges& changes);
    void redo(DrawingChanges& changes);

private:
    struct Table {
        RecordId head = kNoRecord, end = kNoRecord;
        std::vector<RecordId> records;
    };
    struct Entity {
        RecordId record = kNoRecord;
        RecordId last = kNoRecord;   // last of the VERTEX/ATTRIB/SEQEND records that belong to it
        Handle handle = 0;
        std::int32_t block = -1;     // index into blocks_, -1 for model and paper space
    };
    struct Block {
        std::string name;
        RecordId record = kNoRecord;
        std::vector<std::uint32_t> entities;
        // Extents are worked out once; a block that inserts itself has none.
        enum class Extent { Unknown, Working, Known } extentState = Extent::Unknown;
        std::optional<Extents> extents;
    };

    explicit Drawing(DxfDocument doc);
    static ardo::Result<Drawing> load(std::string bytes, const std::string& path, DxfReadMode mode);
    void index();
    // Indexes again after undo or redo changed records underneath the indexes.
    void reindex();
    DrawingSession session() const;
    void restoreSession(const DrawingSession& session);
    struct Touched;
    std::vector<Touched> touched(const std::vector<RecordId>& records) const;
    std::unordered_map<std::string, std::string> headerValues() const;
    void announceSwitch(const std::vector<Touched>& before, const std::vector<Touched>& after);
    void applyStep(DrawingChanges& changes, bool forward);
    void setPath(const std::string& path);   // kept absolute, for DWGPREFIX
    void indexHeader();
    RecordId indexTables(RecordId first);
    RecordId indexBlocks(RecordId first);
    RecordId indexEntities(RecordId first);
    RecordId indexObjects(RecordId first);
    void indexHandle(RecordId id);
    void indexHandle(RecordId id, const DxfDocument::Head& head);
    std::uint32_t addEntity(RecordId record, std::int32_t block, RecordId& cursor);

    // Text and tags
    std::string text(std::string_view fileText) const { return codec_.decode(fileText); }
    std::string fileText(std::string_view utf8) const { return codec_.encode(utf8); }
    static std::optional<std::string_view> tagValue(std::span<const DxfTag> tags, int code);
    std::string handleText(Handle h) const;
    Handle takeHandle();
    bool hasHandles() const { return nextHandle_ != 0; }
    bool isR12() const { return version_ < "AC1012"; }

    // Header
    std::optional<std::span<const DxfTag>> headerVar(std::string_view name) const;
    bool setHeaderVar(std::string_view name, std::vector<OwnedTag> values);

    // Tables
    const Table* table(std::string_view name) const;
    // A minimal drawing is completed when a record needs what it lacks: the TABLES
    // section, a table, the Continuous linetype.
    Table& ensureTable(std::string_view name);
    RecordId ensureTablesSection();
    void addContinuousLinetype();
    std::optional<RecordId> findTableRecord(std::string_view table, std::string_view name) const;
    RecordId addTableRecord(std::string_view table, std::vector<OwnedTag> tags);
    std::string tableHandle(std::string_view table) const;
    ardo::LayerRecord layerFromTags(std::span<const DxfTag> tags) const;
    // The layer record at `id` as layerFromTags reads it, decoded once and again only after
    // the record or the plot style names it refers to were edited.
    const ardo::LayerRecord& decodedLayer(RecordId id) const;
    // Numbers of a layer record that are out of range are noted as an audit reports them.
    void auditLayerNumbers(std::span<const DxfTag> tags);
    ardo::DbStatus rewriteLayer(const ardo::LayerRecord& record);
    ardo::DbStatus announceLayerEdit(const std::string& layer, const std::function<ardo::DbStatus()>& edit);
    ardo::DbStatus storeLayerPlotStyle(const std::string& layer, const std::string& plotStyle);
    void dropTableRecord(std::string_view table, RecordId id);
    // Takes the layer out of every viewport's frozen list, putting `into` in its place
    // when given (once per list).
    void replaceFrozenLayer(const std::string& layer, const std::optional<std::string>& into);
    bool entityUses(int code, std::string_view name) const;
    ardo::DbStatus storeVar(std::string_view name, const ardo::ResBuf& value);
    ardo::DbStatus storeCurrentColor(const ardo::ResBuf& value);
    ardo::DbStatus storeCurrentTab(const ardo::ResBuf& value);
    std::optional<std::string> currentTabName() const;
    // TILEMODE 0: new entities go to the current layout's paper space.
    bool paperSpaceShown() const;
    // Where a new entity goes: a block's index and the record it is put before (-1 and the
    // end of the ENTITIES section for model and the active paper space).
    std::pair<std::int32_t, RecordId> newEntityPlace() const;
    template <class Announce>
    void announce(Announce announce) const {
        for (DrawingListener* listener : listeners_) announce(*listener);
    }
    std::vector<OwnedTag> layerTags(const ardo::LayerRecord& record) const;
    // A record's tags replaced by `given` (entmod's list) but for its handle and owner, and
    // for the extended data of applications the list does not name.
    std::vector<OwnedTag> modifiedTags(RecordId record, const std::vector<EntityTag>& given) const;
    // Refuses a lineweight or linetype a layer may not have (InvalidInput; KeyNotFound for a
    // linetype the drawing lacks) and gives the linetype the spelling of its record. Values
    // the layer had before are left as they are.
    ardo::DbStatus acceptLayerValues(ardo::LayerRecord& record, const ardo::LayerRecord* before) const;
    RecordId ensureTextStyle(std::string_view name, std::string_view font, bool shapeFile);

    // Objects
    std::optional<RecordId> rootDictionary() const;
    std::optional<RecordId> dictionaryEntry(RecordId dictionary, std::string_view name) const;
    std::optional<std::string> dictionaryEntryName(RecordId dictionary, std::string_view handle) const;
    std::optional<RecordId> namedDictionary(std::string_view name) const;
    // "ACAD_PLOTSTYLENAME", which every layer read consults: looked up once until the
    // objects change.
    std::optional<RecordId> plotStyleDictionary() const;
    RecordId addObject(std::vector<OwnedTag> tags);
    void addDictionaryEntry(RecordId dictionary, std::string_view name, std::string_view handle);
    std::optional<RecordId> recordByHandle(std::string_view handleText) const;

    // Blocks
    // The record of an entity as the file holds it: type, the given handle and owner, then
    // the given tags without handles, owners, reactors and extension dictionaries.
    std::vector<OwnedTag> entityRecord(const std::vector<EntityTag>& given, Handle handle, std::string_view owner) const;
    // Inserts the records before `before`, owned by `owner` (parts by their entity); the
    // first record inserted.
    RecordId insertEntityRecords(RecordId before, const EntityRecords& records, std::string_view owner);
    RecordId blocksSectionEnd();
    void announceInserts(std::string_view block);

    // Entities
    // Entities the file left without a usable handle are named from here on, by record.
    static constexpr Handle kUnnamedEntities = Handle{0x7FFF} << 48;
    const Entity* findEntity(Handle handle) const;
    bool isNamedEntity(std::uint32_t index) const;
    std::optional<Extents> entityExtents(const Entity& e, int depth) const;
    std::optional<Extents> blockExtents(std::int32_t block, int depth) const;

    DxfDocument doc_;
    DxfTextCodec codec_;
    std::string version_;
    std::string path_;
    RecordId header_ = kNoRecord, entitiesEnd_ = kNoRecord, objectsEnd_ = kNoRecord, tablesEnd_ = kNoRecord;
    std::vector<DrawingListener*> listeners_;
    std::unordered_map<std::string, std::size_t> headerIndex_;   // "$NAME" -> index of its 9 tag
    mutable std::optional<std::optional<RecordId>> plotStyleDictionary_;
    std::unordered_map<std::string, Table> tables_;
    std::unordered_map<std::string, RecordId> layerByName_;      // folded name
    struct DecodedLayer {
        std::uint32_t revision = 0;          // of the layer record
        RecordId styles = kNoRecord;         // the plot style dictionary read from
        std::uint32_t stylesRevision = 0;
        ardo::LayerRecord record;
    };
    mutable std::unordered_map<RecordId, DecodedLayer> decodedLayers_;
    HandleIndex<RecordId> byHandle_;
    std::vector<Entity> entities_;
    std::vector<std::uint32_t> spaceEntities_;                   // model and paper space, file order
    HandleIndex<std::uint32_t> entityByHandle_;
    // First and last record of entities erased in this session, for restoreEntity.
    std::unordered_map<Handle, std::pair<RecordId, RecordId>> erasedEntities_;
    mutable std::vector<Block> blocks_;
    std::unordered_map<std::string, std::int32_t> blockByName_;  // folded name
    std::vector<RecordId> objects_;
    Handle nextHandle_ = 0;
    bool handSeedChanged_ = false;
    std::vector<DxfRepair> findings_;   // values read differently from the file, with their lines
    DxfForm form_ = DxfForm::Ascii;
    // ATTREQ: whether INSERT asks for attribute values; the session's, as the file does not keep it.
    int cmdEcho_ = 1, fileDia_ = 1, cmdActive_ = 0, lwUnits_ = 1, lwDefault_ = 25, attReq_ = 1;
    // The last point given at a prompt ("@"); the session's, as the file does not keep it.
    ardo::Point3 lastPoint_{};
    // A true or colour-book current colour; the header's $CECOLOR holds only an index.
    std::string currentColorBeyondIndex_;
    // The block of the layout CTAB chose; empty for the file's active layout.
    std::string currentLayoutBlock_;
    std::uint64_t savedChanges_ = 0;   // the document's change count when read or saved
    bool restored_ = false;
    DrawingSession stepStart_;         // the session when the changes being recorded began
    struct CurrentLayer {
        std::uint32_t headerRevision = 0;
        std::string name;
    };
    mutable std::optional<CurrentLayer> currentLayer_;
};

// A drawing read in recover mode and the repairs that made it readable.
struct RecoveredDrawing {
    Drawing drawing;
    std::vector<DxfRepair> repairs;
};

// Names compared without regard to case fold to this key (the host's case folding).
std::string foldName(std::string_view utf8);

// A name of an anonymous block: a star, a letter and digits ("*D3", "*U12").
bool isAnonymousBlockName(std::string_view name);

}  // namespace cadhost
