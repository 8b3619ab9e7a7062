#pragma once
// What the interpreter asks of the CAD host it runs in. The host plugs in its command
// line, system variables, command processor and drawing database here.
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "boundary/ResBuf.h"

namespace cadhost::lisp {

class LispHost {
public:
    virtual ~LispHost() = default;

    // Text for the command line, exactly as princ and friends produce it.
    virtual void print(std::string_view text) = 0;

    // System variables; false for an unknown name or a rejected value.
    virtual bool getVar(const std::string& name, ardo::ResBuf& value) = 0;
    virtual bool setVar(const std::string& name, const ardo::ResBuf& value) = 0;

    // Runs command-line input: strings, numbers, points (RTPOINT, RT3DPOINT), entity
    // names and selection sets; "" answers a prompt with Enter. RTCAN cancels the
    // calling LISP expression; any other status lets it go on.
    virtual int command(const ardo::ResBufChain& tokens) = 0;

    // Entity names are the host's ids; 0 means none. entNext(0) is the first entity.
    virtual std::int64_t entNext(std::int64_t after) = 0;
    virtual std::int64_t entLast() = 0;
    // The entity's DXF groups, each node's restype being its group code (without -1).
    virtual bool entGet(std::int64_t entity, ardo::ResBufChain& groups) = 0;
    // The same with the extended data after it (each application's name as a 1001 group).
    virtual bool entGetWithExtendedData(std::int64_t entity, ardo::ResBufChain& groups) { return entGet(entity, groups); }

    // Adds an entity from DXF groups (points as one node each), as entmake does; its id,
    // or 0 when the drawing refuses the groups.
    virtual std::int64_t entMake(const ardo::ResBufChain& groups) = 0;

    // entmod: replaces the entity's groups (as entget gives them, without -1); false when
    // the drawing refuses them. entdel: erases the entity, or brings back one erased in
    // this session; false when there is neither. handEnt: the entity with the handle, or 0.
    virtual bool entMod(std::int64_t /*entity*/, const ardo::ResBufChain& /*groups*/) { return false; }
    virtual bool entDel(std::int64_t /*entity*/) { return false; }
    virtual std::int64_t handEnt(const std::string& /*handle*/) { return 0; }
    // Symbol table records ("LAYER", "LTYPE", ...) as DXF groups.
    virtual bool tblSearch(const std::string& table, const std::string& name, ardo::ResBufChain& record) = 0;
    virtual bool tblNext(const std::string& table, bool rewind, ardo::ResBufChain& record) = 0;

    // The entities of the previous selection, for (ssget "P").
    virtual std::vector<std::int64_t> previousSelection() = 0;
    // The entities an ssget mode chooses by geometry or by asking: "W" and "C" with two
    // corners, "F", "WP" and "CP" with the points of a fence or polygon, "." with one point
    // to pick at, "" asking at "Select objects:" until Enter, ":S" the same for a single
    // pick. Nothing when the user cancelled.
    virtual std::optional<std::vector<std::int64_t>> selectEntities(const std::string& mode,
                                                                    const std::vector<ardo::Point3>& points) = 0;

    // The support folders that findfile and load search after the current folder.
    virtual const std::vector<std::filesystem::path>& supportPath() const = 0;
};

}  // namespace cadhost::lisp
