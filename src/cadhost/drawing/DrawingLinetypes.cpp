// The linetype table and loading linetypes from ".lin" files.
#include "cadhost/drawing/Drawing.h"
#include "cadhost/drawing/LinetypeFile.h"
#include "base/TextFile.h"
#include "cadhost/dxf/TagValue.h"

namespace cadhost {

using ardo::DbStatus;

bool Drawing::hasLinetype(const std::string& name) const { return findTableRecord("LTYPE", name).has_value(); }

bool Drawing::isContinuousLinetype(const std::string& name) const { return foldName(name) == "CONTINUOUS"; }

std::vector<std::string> Drawing::linetypeNames() const {
    std::vector<std::string> names;
    if (const Table* t = table("LTYPE"))
        for (RecordId id : t->records)
            if (!doc_.isErased(id)) names.push_back(text(tagValue(doc_.tags(id), 2).value_or("")));
    return names;
}

RecordId Drawing::ensureTextStyle(std::string_view name, std::string_view font, bool shapeFile) {
    if (const Table* t = table("STYLE"))
        for (RecordId id : t->records) {
            const auto tags = doc_.tags(id);
            const bool isShapes = toInteger(tagValue(tags, 70).value_or("0")) & 1;
            const std::string key = foldName(text(shapeFile ? tagValue(tags, 3).value_or("") : tagValue(tags, 2).value_or("")));
            if (isShapes == shapeFile && key == foldName(shapeFile ? font : name)) return id;
        }
    std::vector<OwnedTag> tags{{0, "STYLE"}};
    if (const Handle h = takeHandle()) tags.push_back({5, handleText(h)});
    tags.insert(tags.end(), {{330, tableHandle("STYLE")}, {100, "AcDbSymbolTableRecord"}, {100, "AcDbTextStyleTableRecord"},
                             {2, fileText(shapeFile ? "" : name)}, {70, shapeFile ? "1" : "0"}, {40, "0.0"}, {41, "1.0"},
                             {50, "0.0"}, {71, "0"}, {42, "2.5"}, {3, fileText(font)}, {4, ""}});
    return addTableRecord("STYLE", std::move(tags));
}

DbStatus Drawing::loadLinetype(const std::string& name, const std::string& linFile) {
    if (!table("LTYPE")) return DbStatus::NotInDatabase;
    const auto bytes = ardo::readFileBytes(linFile);
    if (!bytes) return DbStatus::FileNotFound;
    // .lin files are Windows-1252 text.
    const auto def = findLinetype(DxfTextCodec::forDrawing("AC1015", "ANSI_1252").decode(*bytes), name);
    if (!def) return DbStatus::KeyNotFound;
    if (hasLinetype(def->name)) return DbStatus::DuplicateRecordName;

    std::vector<OwnedTag> tags{{0, "LTYPE"}};
    if (const Handle h = takeHandle()) tags.push_back({5, handleText(h)});
    if (!isR12())
        tags.insert(tags.end(), {{330, tableHandle("LTYPE")}, {100, "AcDbSymbolTableRecord"}, {100, "AcDbLinetypeTableRecord"}});
    tags.insert(tags.end(), {{2, fileText(def->name)}, {70, "0"}, {3, fileText(def->description)}, {72, "65"},
                             {73, std::to_string(def->elements.size())}, {40, doubleToText(def->patternLength())}});
    for (const LinetypeElement& e : def->elements) {
        tags.push_back({49, doubleToText(e.length)});
        if (isR12()) continue;   // Release 12 knows only dashes and gaps
        int flags = 0;
        if (e.kind == LinetypeElement::Kind::Text) flags = 2;
        if (e.kind == LinetypeElement::Kind::Shape) flags = 4;
        if (flags && e.absoluteRotation) flags |= 1;
        tags.push_back({74, std::to_string(flags)});
        if (!flags) continue;
        const bool shape = e.kind == LinetypeElement::Kind::Shape;
        const RecordId style = ensureTextStyle(shape ? "" : e.styleOrFile, shape ? e.styleOrFile : "txt", shape);
        tags.insert(tags.end(), {{75, "0"}, {340, std::string(tagValue(doc_.tags(style), 5).value_or("0"))},
                                 {46, doubleToText(e.scale)}, {50, doubleToText(e.rotationRadians)},
                                 {44, doubleToText(e.xOffset)}, {45, doubleToText(e.yOffset)}});
        if (!shape) tags.push_back({9, fileText(e.content)});
    }
    addTableRecord("LTYPE", std::move(tags));
    announce([&](DrawingListener& l) { l.linetypeChanged(Change::Created, def->name); });
    return DbStatus::Ok;
}

DbStatus Drawing::eraseLinetype(const std::string& name) {
    const auto id = findTableRecord("LTYPE", name);
    if (!id) return DbStatus::KeyNotFound;
    const std::string held = text(tagValue(doc_.tags(*id), 2).value_or(""));
    const std::string key = foldName(held);
    bool used = key == "BYBLOCK" || key == "BYLAYER" || key == "CONTINUOUS" || entityUses(6, held);
    forEachLayer([&](const ardo::LayerRecord& layer) {
        used = used || foldName(layer.linetype) == key;
        return !used;
    });
    if (used) return DbStatus::InvalidInput;
    dropTableRecord("LTYPE", *id);
    announce([&](DrawingListener& l) { l.linetypeChanged(Change::Erased, held); });
    return DbStatus::Ok;
}

}  // namespace cadhost
