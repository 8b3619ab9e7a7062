#pragma once
// A small furniture drawing to insert as a block file, and reading what an insert holds.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "cadhost/drawing/Drawing.h"

namespace cadhost::test {

inline void addColouredLayer(Drawing& d, const std::string& name, int color) {
    ardo::LayerRecord record;
    record.name = name;
    record.color = ardo::HostColor::fromIndex(color);
    ASSERT_EQ(d.addLayer(record), ardo::DbStatus::Ok) << name;
}

// "Tisch": a line on "Moebel" (green), a nested block "Bein" (a circle on "Bein-Layer",
// blue), an attribute "NR" asked as "Nummer" with default "1", a constant attribute, and
// INSBASE 5,0.
inline void writeTableDrawing(const std::string& path) {
    Drawing d;
    addColouredLayer(d, "Moebel", 3);
    addColouredLayer(d, "Bein-Layer", 5);
    ASSERT_EQ(d.defineBlock("Bein", {0, 0, 0},
                            {{{0, "CIRCLE"}, {100, "AcDbEntity"}, {8, "Bein-Layer"}, {100, "AcDbCircle"},
                              {10, "0"}, {20, "0"}, {30, "0"}, {40, "1"}}}),
              ardo::DbStatus::Ok);
    ASSERT_TRUE(d.makeEntity({{0, "LINE"}, {100, "AcDbEntity"}, {8, "Moebel"}, {100, "AcDbLine"}, {10, "0"},
                              {20, "0"}, {30, "0"}, {11, "10"}, {21, "0"}, {31, "0"}}));
    ASSERT_TRUE(d.makeEntity({{0, "INSERT"}, {100, "AcDbEntity"}, {8, "Moebel"}, {100, "AcDbBlockReference"},
                              {2, "Bein"}, {10, "2"}, {20, "2"}, {30, "0"}}));
    const auto attdef = [&](const std::string& tag, const std::string& prompt, const std::string& value,
                            const std::string& flags, const std::string& y) {
        ASSERT_TRUE(d.makeEntity({{0, "ATTDEF"}, {100, "AcDbEntity"}, {8, "0"}, {100, "AcDbText"}, {10, "1"},
                                  {20, y}, {30, "0"}, {40, "0.5"}, {1, value}, {100, "AcDbAttributeDefinition"},
                                  {3, prompt}, {2, tag}, {70, flags}}));
    };
    attdef("NR", "Nummer", "1", "0", "1");
    attdef("HERSTELLER", "", "Ardo", "2", "3");
    attdef("RAUM", "Raum", "Kueche", "0", "5");
    ASSERT_EQ(d.setVar("INSBASE", ardo::ResBuf::point3({5, 0, 0})), ardo::DbStatus::Ok);
    ASSERT_TRUE(d.save(path)) << path;
}

// The newest entity of model space.
inline Handle newestEntity(const Drawing& d) {
    Handle newest = 0;
    d.forEachEntity([&](const EntityInfo& e) { return newest = e.handle, true; });
    return newest;
}

inline std::string tagOf(const std::vector<EntityTag>& tags, int code) {
    for (const EntityTag& t : tags)
        if (t.code == code) return t.value;
    return "-";
}

// "x,y" of a point group, rounded to 1e-6.
inline std::string pointOf(const std::vector<EntityTag>& tags, int code) {
    const auto round = [](const std::string& v) {
        double x = std::round(std::stod(v) * 1e6) / 1e6;
        if (x == 0) x = 0;
        char text[40];
        std::snprintf(text, sizeof text, "%g", x);
        return std::string(text);
    };
    return round(tagOf(tags, code)) + "," + round(tagOf(tags, code + 10));
}

}  // namespace cadhost::test
