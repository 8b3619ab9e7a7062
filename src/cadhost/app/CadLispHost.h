#pragma once
// The interpreter's side of one document: command line, system variables, commands,
// entities and symbol tables of the document's drawing, and the application's support
// path. LISP code works on the drawing it runs in, whichever document is current.
#include <map>
#include <string>
#include <vector>

#include "cadhost/lisp/LispHost.h"

namespace cadhost::lisp {
class Interpreter;
}

namespace cadhost {

class Application;
class Document;

class CadLispHost final : public lisp::LispHost {
public:
    CadLispHost(Application& app, Document& document) : app_(app), document_(document) {}
    Application& application() { return app_; }
    Document& document() { return document_; }

    void print(std::string_view text) override;
    bool getVar(const std::string& name, ardo::ResBuf& value) override;
    bool setVar(const std::string& name, const ardo::ResBuf& value) override;
    int command(const ardo::ResBufChain& tokens) override;
    std::int64_t entNext(std::int64_t after) override;
    std::int64_t entLast() override;
    std::int64_t entMake(const ardo::ResBufChain& groups) override;
    bool entGet(std::int64_t entity, ardo::ResBufChain& groups) override;
    bool entGetWithExtendedData(std::int64_t entity, ardo::ResBufChain& groups) override;
    bool entMod(std::int64_t entity, const ardo::ResBufChain& groups) override;
    bool entDel(std::int64_t entity) override;
    std::int64_t handEnt(const std::string& handle) override;
    // LAYER records carry name, flags, colour (negative when off), linetype, lineweight
    // and plottable; LTYPE records name and flags. Other tables have no records here.
    bool tblSearch(const std::string& table, const std::string& name, ardo::ResBufChain& record) override;
    bool tblNext(const std::string& table, bool rewind, ardo::ResBufChain& record) override;
    std::vector<std::int64_t> previousSelection() override;
    std::optional<std::vector<std::int64_t>> selectEntities(const std::string& mode,
                                                            const std::vector<ardo::Point3>& points) override;
    const std::vector<std::filesystem::path>& supportPath() const override;

private:
    std::vector<std::string> recordNames(const std::string& table) const;
    // entget's list without the (-1 . name), angles in radians.
    bool entityGroups(std::int64_t entity, bool withExtendedData, ardo::ResBufChain& groups);

    struct TableWalk {
        std::vector<std::string> names;
        std::size_t cursor = 0;
    };

    Application& app_;
    Document& document_;
    std::map<std::string, TableWalk> tableWalks_;
};

// The application and the document of an interpreter of this host, for its built-ins.
Application& applicationOf(lisp::Interpreter& in);
Document& documentOf(lisp::Interpreter& in);

}  // namespace cadhost
