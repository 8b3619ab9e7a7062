#include "module/AreaShape.h"

#include <filesystem>

#include "cadhost/commands/CommandProcessor.h"
#include "cadhost/drawing/Drawing.h"
#include "module/ModuleFixture.h"

namespace ardo {
namespace {

namespace fs = std::filesystem;

// The module on a real drawing: its command calls go through the host's command processor.
class AreaShapeTest : public test::ModuleFixture {
protected:
    cadhost::Drawing drawing;
    cadhost::CommandProcessor processor{{&drawing, [this](const std::string& text) { host.print(text); }, {}, {}, &host.colors}};
    std::int64_t room = 0;

    void SetUp() override {
        ModuleFixture::SetUp();
        ASSERT_EQ(moduleEntryPoint(kInitAppMsg, &host), kRetOK);
        host.useDrawing(drawing, processor);
        room = static_cast<std::int64_t>(
            drawing
                .makeEntity({{0, "LWPOLYLINE"}, {8, "0"}, {90, "3"}, {70, "1"}, {10, "0"}, {20, "0"}, {10, "4"},
                             {20, "0"}, {10, "0"}, {20, "3"}})
                .value_or(0));
        ASSERT_NE(room, 0);
        host.clearOutput();
    }
    int call(ResBufChain args) { return host.call(handlers::kemb_MakeAreaShape, std::move(args)); }
};

TEST_F(AreaShapeTest, AnAreaGoesThroughTheMapExportIntoTheShapefile) {
    const std::string shp = folder / "room";
    EXPECT_EQ(call({ResBuf::str(shp), ResBuf::entityName(room)}), RSRSLT);
    EXPECT_TRUE(isT(host.result)) << host.printed;
    ASSERT_FALSE(host.commands.empty());
    EXPECT_EQ(host.commands.front().front().text, "_.-MAPEXPORT");
    EXPECT_TRUE(fs::exists(shp + ".shp") && fs::exists(shp + ".shx") && fs::exists(shp + ".dbf"));
    // The .shp file's length (16-bit words, big-endian at byte 24) matches the file: a
    // header of 100 bytes and one polygon record of 4 points (8 + 44 + 4 + 64 bytes).
    const std::string bytes = test::readBytes(shp + ".shp");
    ASSERT_EQ(bytes.size(), 100u + 8 + 44 + 4 + 4 * 16);
    const auto word = [&](std::size_t at) {
        return (static_cast<unsigned char>(bytes[at]) << 24) | (static_cast<unsigned char>(bytes[at + 1]) << 16) |
               (static_cast<unsigned char>(bytes[at + 2]) << 8) | static_cast<unsigned char>(bytes[at + 3]);
    };
    EXPECT_EQ(word(0), 9994) << "the shapefile's file code";
    EXPECT_EQ(static_cast<std::size_t>(word(24)) * 2, bytes.size());
    EXPECT_EQ(static_cast<unsigned char>(bytes[32]), 5) << "polygon shapes";
}

TEST_F(AreaShapeTest, WithABlockTheHostInsertsItAtThePoint) {
    ASSERT_EQ(drawing.defineBlock("Raumstempel", {0, 0, 0},
                                  {{{0, "CIRCLE"}, {8, "0"}, {10, "0"}, {20, "0"}, {30, "0"}, {40, "0.5"}}}),
              DbStatus::Ok);
    EXPECT_EQ(call({ResBuf::str(folder / "stamped"), ResBuf::entityName(room), ResBuf::str("Raumstempel"),
                    ResBuf::point3({1.5, 1, 0})}),
              RSRSLT);
    EXPECT_TRUE(isT(host.result)) << host.printed;
    EXPECT_FALSE(processor.active()) << processor.prompt();
    std::vector<std::string> inserts;
    drawing.forEachEntity([&](const cadhost::EntityInfo& e) {
        if (e.type != "INSERT") return true;
        std::string groups;
        for (const cadhost::EntityTag& t : drawing.entityTags(e.handle))
            if (t.code == 2 || t.code == 10 || t.code == 20 || t.code == 41 || t.code == 50) groups += t.value + " ";
        inserts.push_back(e.layer + " " + groups);
        return true;
    });
    EXPECT_EQ(inserts, std::vector<std::string>{"0 Raumstempel 1.5 1.0 "});
}

TEST_F(AreaShapeTest, AnUnknownBlockInsertsNothing) {
    call({ResBuf::str(folder / "unstamped"), ResBuf::entityName(room), ResBuf::str("KeinBlock"), ResBuf::point3({1, 1, 0})});
    EXPECT_NE(host.printed.find("\"KeinBlock.dxf\": Can't find file in search path."), std::string::npos) << host.printed;
    std::size_t inserts = 0;
    drawing.forEachEntity([&](const cadhost::EntityInfo& e) { return inserts += e.type == "INSERT", true; });
    EXPECT_EQ(inserts, 0u);
    EXPECT_TRUE(fs::exists(folder / "unstamped.shp")) << "the export before it stays";
}

TEST_F(AreaShapeTest, ArgumentsAreCheckedBeforeAnythingRuns) {
    const std::string shp = folder / "room.shp";
    call({ResBuf::str(shp)});
    EXPECT_EQ(host.printed, kBadNum);
    host.clearOutput();
    call({ResBuf::str(shp), ResBuf::entityName(room), ResBuf::str("Blk"), ResBuf::point3({1, 2, 0}), ResBuf::str("x")});
    EXPECT_EQ(host.printed, kBadNum);
    for (const ResBufChain& bad : std::vector<ResBufChain>{
             {ResBuf::str(""), ResBuf::entityName(room)},
             {ResBuf::str(shp), ResBuf::str("not an entity")},
             {ResBuf::str(shp), ResBuf::entityName(room), ResBuf::str("Blk")},
             {ResBuf::str(shp), ResBuf::entityName(room), ResBuf::str("Blk"), ResBuf::str("1,2")},
         }) {
        host.clearOutput();
        call(bad);
        EXPECT_EQ(host.printed, "\nArgumentwert falsch");
        EXPECT_TRUE(isNil(host.result));
    }
    call({ResBuf::shortInt(1), ResBuf::entityName(room)});
    EXPECT_NE(host.printed.find(kBadTyp), std::string::npos);
    EXPECT_TRUE(host.commands.empty()) << "no command ran";
    EXPECT_FALSE(fs::exists(shp));
}

TEST_F(AreaShapeTest, NoAreaIsNilWithTheHostsReason) {
    const auto line = drawing.makeEntity({{0, "LINE"}, {8, "0"}, {10, "0"}, {20, "0"}, {11, "5"}, {21, "5"}});
    ASSERT_TRUE(line);
    call({ResBuf::str(folder / "line.shp"), ResBuf::entityName(static_cast<std::int64_t>(*line))});
    EXPECT_TRUE(isNil(host.result));
    EXPECT_NE(host.printed.find("No closed areas selected"), std::string::npos) << host.printed;
    EXPECT_FALSE(fs::exists(folder / "line.shp"));
}

}  // namespace
}  // namespace ardo
