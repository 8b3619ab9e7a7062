#include "cadhost/commands/DrawingAsBlock.h"

#include <filesystem>
#include <unordered_map>
#include <unordered_set>

namespace cadhost::commands {

namespace {

// Copies what entities of one drawing need into another, each record once.
class BlockCopier {
public:
    BlockCopier(Drawing& into, const Drawing& from) : into_(into), from_(from) {}

    // The records of the entities, after the records they name were copied; an insert or a
    // dimension names its block as this drawing has it.
    ardo::Result<Drawing::EntityRecords> records(const std::vector<Handle>& entities) {
        Drawing::EntityRecords out;
        for (Handle h : entities) {
            out.push_back(from_.entityTags(h));
            for (auto& part : from_.entityParts(h)) out.push_back(std::move(part));
        }
        for (auto& record : out) {
            const std::string type = record.empty() ? std::string() : record.front().value;
            for (EntityTag& t : record) {
                if (t.code == 8) needLayer(t.value);
                if (t.code == 6) into_.copyTableRecord(from_, "LTYPE", t.value);
                if (t.code == 7) into_.copyTableRecord(from_, "STYLE", t.value);
                if (t.code == 2 && (type == "INSERT" || type == "DIMENSION")) {
                    auto nested = block(t.value);
                    if (!nested) return ardo::Error{nested.error()};
                    t.value = *nested;
                }
            }
        }
        return out;
    }

    // The name the block has here once copied. A named block this drawing has already is
    // kept; an anonymous one (a dimension's picture) is numbered anew when its name is taken.
    ardo::Result<std::string> block(const std::string& name) {
        const std::string key = foldName(name);
        if (const auto it = copied_.find(key); it != copied_.end()) return it->second;
        const bool anonymous = isAnonymousBlockName(name);
        if (!anonymous && into_.hasBlock(name)) return name;
        const auto contents = from_.blockContents(name);
        if (!contents) return ardo::Error{"The drawing has no block \"" + name + "\"."};
        std::string target = name;
        for (int n = 1; anonymous && (into_.hasBlock(target) || taken_.count(foldName(target))); ++n)
            target = name.substr(0, 2) + std::to_string(n);
        // Known before its entities are copied, so that a block inserting itself ends.
        copied_[key] = target;
        taken_.insert(foldName(target));
        auto entities = records(contents->entities);
        if (!entities) return ardo::Error{entities.error()};
        if (auto defined = define(target, contents->base, *entities); !defined) return ardo::Error{defined.error()};
        return target;
    }

    ardo::Status define(const std::string& name, const ardo::Point3& base, const Drawing::EntityRecords& entities) {
        switch (into_.defineBlock(name, base, entities)) {
            case ardo::DbStatus::Ok: return {};
            case ardo::DbStatus::KeyNotFound:
                return ardo::Error{"Block \"" + name + "\" names a layer that could not be added to the drawing."};
            default: return ardo::Error{"\"" + name + "\" is no name a block can have in this drawing."};
        }
    }

private:
    void needLayer(const std::string& name) {
        if (into_.findLayer(name)) return;
        auto layer = from_.findLayer(name);
        if (!layer) return;
        into_.copyTableRecord(from_, "LTYPE", layer->linetype);
        if (into_.addLayer(*layer) == ardo::DbStatus::Ok) return;
        // A plot style this drawing does not have: the layer plots with the default one.
        layer->plotStyleName = "Normal";
        into_.addLayer(*layer);
    }

    Drawing& into_;
    const Drawing& from_;
    std::unordered_map<std::string, std::string> copied_;   // folded names there, names here
    std::unordered_set<std::string> taken_;                  // folded names given here
};

}  // namespace

ardo::Status copyBlock(Drawing& into, const Drawing& from, const std::string& name) {
    const auto copied = BlockCopier(into, from).block(name);
    if (!copied) return ardo::Error{copied.error()};
    return {};
}

ardo::Result<std::string> defineBlockFromFile(Drawing& into, const std::string& path) {
    const std::string name = std::filesystem::path(path).stem().string();
    if (into.hasBlock(name)) return name;
    auto opened = Drawing::open(path);
    if (!opened) return ardo::Error{opened.error()};
    const Drawing& from = *opened;
    std::vector<Handle> model;
    from.forEachEntity([&](const EntityInfo& e) {
        if (e.space == Space::Model) model.push_back(e.handle);
        return true;
    });
    BlockCopier copier(into, from);
    auto entities = copier.records(model);
    if (!entities) return ardo::Error{entities.error()};
    const auto base = from.getVar("INSBASE");
    if (auto defined = copier.define(name, base ? base->point : ardo::Point3{}, *entities); !defined)
        return ardo::Error{defined.error()};
    return name;
}

}  // namespace cadhost::commands
