#pragma once
// A small in-memory drawing for the layer core's tests until the host's drawing database
// can be used: layer and linetype tables, the named-object dictionary, plot style mode.
// Linetypes load from real ".lin" files.
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "host/CaseFold.h"
#include "host/HostDrawing.h"

namespace ardo::test {

class TestDrawing : public HostDrawing {
public:
    std::vector<LayerRecord> layers;
    std::vector<std::string> linetypes{"Continuous"};
    bool namedPlotStyles = false;
    std::map<std::string, std::set<std::string>> dictionaries;
    DbStatus plotStyleNameStatus = DbStatus::Ok;

    DbStatus forEachLayer(const std::function<bool(const LayerRecord&)>& visit) const override {
        for (const auto& l : layers)
            if (!visit(l)) break;
        return DbStatus::Ok;
    }
    std::optional<LayerRecord> findLayer(const std::string& name) const override {
        for (const auto& l : layers)
            if (equalsNoCase(l.name, name)) return l;
        return std::nullopt;
    }
    DbStatus addLayer(const LayerRecord& record) override {
        if (findLayer(record.name)) return DbStatus::DuplicateRecordName;
        layers.push_back(record);
        return DbStatus::Ok;
    }
    DbStatus setLayerPlotStyleName(const std::string& layer, const std::string& plotStyle) override {
        if (plotStyleNameStatus != DbStatus::Ok) return plotStyleNameStatus;
        for (auto& l : layers)
            if (equalsNoCase(l.name, layer)) {
                l.plotStyleName = plotStyle;
                return DbStatus::Ok;
            }
        return DbStatus::KeyNotFound;
    }
    bool hasLinetype(const std::string& name) const override {
        for (const auto& t : linetypes)
            if (equalsNoCase(t, name)) return true;
        return false;
    }
    // Finds "*NAME," in the file, as a linetype definition begins.
    DbStatus loadLinetype(const std::string& name, const std::string& linFile) override {
        std::ifstream in(linFile);
        if (linFile.empty() || !in) return DbStatus::FileNotFound;
        std::string line;
        while (std::getline(in, line)) {
            if (line.size() > name.size() + 1 && line[0] == '*' && line[name.size() + 1] == ',' &&
                equalsNoCase(line.substr(1, name.size()), name)) {
                linetypes.push_back(line.substr(1, name.size()));
                return DbStatus::Ok;
            }
        }
        return DbStatus::KeyNotFound;
    }
    bool isContinuousLinetype(const std::string& name) const override { return equalsNoCase(name, "Continuous"); }
    bool usesNamedPlotStyles() const override { return namedPlotStyles; }
    bool hasDictionary(const std::string& name) const override { return dictionaries.count(name) > 0; }
    DbStatus addDictionary(const std::string& name) override {
        dictionaries[name];
        return DbStatus::Ok;
    }
    DbStatus addPlaceHolder(const std::string& dictionary, const std::string& entry) override {
        auto it = dictionaries.find(dictionary);
        if (it == dictionaries.end()) return DbStatus::KeyNotFound;
        it->second.insert(entry);
        return DbStatus::Ok;
    }
    bool hasDictionaryEntry(const std::string& dictionary, const std::string& entry) const override {
        auto it = dictionaries.find(dictionary);
        return it != dictionaries.end() && it->second.count(entry) > 0;
    }
};

}  // namespace ardo::test
