#pragma once
// The interpreter's side of the CAD host: command line, system variables, commands,
// entities and symbol tables of the host's drawing. A part of CadHost of its own, since
// the interpreter's hooks and the module's boundary name some calls alike with other
// result types.
#include <map>
#include <string>
#include <vector>

#include "cadhost/lisp/LispHost.h"

namespace cadhost {

class CadHost;

class CadLispHost final : public lisp::LispHost {
public:
    explicit CadLispHost(CadHost& host) : host_(host) {}
    CadHost& cadHost() { return host_; }

    void print(std::string_view text) override;
    bool getVar(const std::string& name, ardo::ResBuf& value) override;
    bool setVar(const std::string& name, const ardo::ResBuf& value) override;
    int command(const ardo::ResBufChain& tokens) override;
    std::int64_t entNext(std::int64_t after) override;
    std::int64_t entLast() override;
    bool entGet(std::int64_t entity, ardo::ResBufChain& groups) override;
    // LAYER records carry name, flags, colour (negative when off), linetype, lineweight
    // and plottable; LTYPE records name and flags. Other tables have no records here.
    bool tblSearch(const std::string& table, const std::string& name, ardo::ResBufChain& record) override;
    bool tblNext(const std::string& table, bool rewind, ardo::ResBufChain& record) override;
    std::vector<std::int64_t> previousSelection() override;

private:
    std::vector<std::string> recordNames(const std::string& table) const;

    struct TableWalk {
        std::vector<std::string> names;
        std::size_t cursor = 0;
    };

    CadHost& host_;
    std::map<std::string, TableWalk> tableWalks_;
};

}  // namespace cadhost
