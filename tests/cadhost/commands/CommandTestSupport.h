#pragma once
// A real drawing with the command processor on it, and what the command line printed.
#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>
#include <utility>

#include "cadhost/colors/ColorServices.h"
#include "cadhost/commands/CommandProcessor.h"
#include "cadhost/drawing/Drawing.h"

namespace cadhost::test {

inline ardo::ResBuf S(std::string text) { return ardo::ResBuf::str(std::move(text)); }

inline std::string fixturePath(const std::string& name) { return std::string(ARDO_TEST_DATA) + "/commands/" + name; }

inline Drawing openFixture(const std::string& name) {
    auto opened = Drawing::open(fixturePath(name));
    if (!opened) {
        ADD_FAILURE() << opened.error();
        return Drawing();
    }
    return std::move(opened).value();
}

class CommandLine {
public:
    explicit CommandLine(Drawing d = Drawing()) : drawing(std::move(d)) {}

    int feed(ardo::ResBufChain tokens) { return processor.feed(tokens); }
    ardo::LayerRecord layer(const std::string& name) const {
        const auto found = drawing.findLayer(name);
        EXPECT_TRUE(found) << name;
        return found.value_or(ardo::LayerRecord{});
    }
    void addLayer(const std::string& name) {
        ardo::LayerRecord record;
        record.name = name;
        record.color = ardo::HostColor::fromIndex(7);
        ASSERT_EQ(drawing.addLayer(record), ardo::DbStatus::Ok) << name;
    }
    std::string clayer() const { return drawing.getVar("CLAYER")->text; }
    int cmdactive() const { return static_cast<int>(drawing.getVar("CMDACTIVE")->integer); }
    void echo(int on) { drawing.setVar("CMDECHO", ardo::ResBuf::shortInt(on)); }

    Drawing drawing;
    std::string printed;
    std::map<std::int64_t, std::vector<std::int64_t>> selectionSets;
    int regenerations = 0;
    ColorServices colors;
    CommandProcessor processor{{&drawing, [this](const std::string& text) { printed += text; },
                                [this](std::int64_t set) { return selectionSets[set]; },
                                [this] { ++regenerations; }, &colors}};
};

}  // namespace cadhost::test
