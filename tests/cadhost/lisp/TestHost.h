#pragma once
// A small host for the interpreter tests: a list of entities with their DXF groups, a
// layer table, system variables, the commands it was given and the text it printed.
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "cadhost/lisp/Interpreter.h"

namespace cadhost::lisp::test {

struct TestEntity {
    std::int64_t id;
    ardo::ResBufChain groups;
};

inline ardo::ResBuf group(short code, std::string text) {
    ardo::ResBuf r = ardo::ResBuf::str(std::move(text));
    r.restype = code;
    return r;
}
inline ardo::ResBuf group(short code, int value) {
    ardo::ResBuf r = ardo::ResBuf::shortInt(value);
    r.restype = code;
    return r;
}
inline ardo::ResBuf group(short code, ardo::Point3 p) {
    ardo::ResBuf r = ardo::ResBuf::point3(p);
    r.restype = code;
    return r;
}

class TestHost : public LispHost {
public:
    std::string output;
    std::map<std::string, ardo::ResBuf> vars;
    std::vector<ardo::ResBufChain> commands;
    int commandStatus = ardo::RTNORM;
    std::vector<TestEntity> entities;
    std::vector<ardo::ResBufChain> layers;
    std::vector<std::int64_t> previous;
    std::size_t tableCursor = 0;
    std::vector<std::filesystem::path> support;

    void print(std::string_view text) override { output += text; }
    bool getVar(const std::string& name, ardo::ResBuf& value) override {
        auto it = vars.find(name);
        if (it == vars.end()) return false;
        value = it->second;
        return true;
    }
    bool setVar(const std::string& name, const ardo::ResBuf& value) override {
        auto it = vars.find(name);
        if (it == vars.end() || it->second.restype != value.restype) return false;
        it->second = value;
        return true;
    }
    int command(const ardo::ResBufChain& tokens) override {
        commands.push_back(tokens);
        return commandStatus;
    }
    std::int64_t entNext(std::int64_t after) override {
        if (after == 0) return entities.empty() ? 0 : entities.front().id;
        for (std::size_t i = 0; i + 1 < entities.size(); ++i)
            if (entities[i].id == after) return entities[i + 1].id;
        return 0;
    }
    std::int64_t entLast() override { return entities.empty() ? 0 : entities.back().id; }
    bool entGet(std::int64_t entity, ardo::ResBufChain& groups) override {
        for (const TestEntity& e : entities)
            if (e.id == entity) {
                groups = e.groups;
                return true;
            }
        return false;
    }
    bool tblSearch(const std::string& table, const std::string& name, ardo::ResBufChain& record) override {
        if (table != "LAYER") return false;
        for (const auto& layer : layers)
            if (toUpperName(layer[1].text) == toUpperName(name)) {
                record = layer;
                return true;
            }
        return false;
    }
    bool tblNext(const std::string& table, bool rewind, ardo::ResBufChain& record) override {
        if (table != "LAYER") return false;
        if (rewind) tableCursor = 0;
        if (tableCursor >= layers.size()) return false;
        record = layers[tableCursor++];
        return true;
    }
    std::vector<std::int64_t> previousSelection() override { return previous; }
    // Made entities get ids from 0x100 on; a list without a type is refused.
    std::int64_t entMake(const ardo::ResBufChain& groups) override {
        if (groups.empty() || groups.front().restype != 0) return 0;
        const std::int64_t id = 0x100 + static_cast<std::int64_t>(entities.size());
        entities.push_back({id, groups});
        return id;
    }
    std::optional<std::vector<std::int64_t>> selectEntities(const std::string& mode,
                                                            const std::vector<ardo::Point3>& points) override {
        selectMode = mode;
        selectPoints = points;
        return selected;
    }
    const std::vector<std::filesystem::path>& supportPath() const override { return support; }

    // What the last geometric or interactive ssget asked for, and what it finds.
    std::string selectMode;
    std::vector<ardo::Point3> selectPoints;
    std::optional<std::vector<std::int64_t>> selected;

private:
    static std::string toUpperName(std::string s) {
        for (char& c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        return s;
    }
};

// Evaluates source text; the printed value, or "ERR:" and the error message.
class LispTest : public ::testing::Test {
protected:
    TestHost host;
    Interpreter lisp{host};

    std::string run(std::string_view source) {
        const EvalResult r = lisp.evaluate(source);
        return r.ok ? r.printed : "ERR:" + r.error;
    }
};

}  // namespace cadhost::lisp::test
