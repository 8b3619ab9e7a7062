#include <gtest/gtest.h>

#include <cstdio>

#include "cadhost/commands/CommandProcessor.h"
#include "cadhost/drawing/Drawing.h"
#include "layers/PlotStyle.h"
#include "support/ScriptedHost.h"

namespace ardo::test {

namespace {

constexpr const char* kDictionary = "ACAD_PLOTSTYLENAME";

// The host on a new drawing from the built-in template.
struct OnDrawing {
    OnDrawing() { host.useDrawing(drawing, processor); }
    ScriptedHost host;
    cadhost::Drawing drawing;
    cadhost::CommandProcessor processor{{&drawing, [this](const std::string& text) { host.print(text); }, {}, {}, &host.colors}};
};

}  // namespace

TEST(PlotStyle, NormalInAnyCaseChangesNothing) {
    OnDrawing on;
    const std::string before = on.drawing.toDxf();
    preparePlotStyle("nORMAL");
    preparePlotStyle("Normal");
    EXPECT_EQ(on.drawing.toDxf(), before);
}

TEST(PlotStyle, PlaceHoldersAreAddedOnce) {
    OnDrawing on;
    ASSERT_TRUE(on.drawing.hasDictionary(kDictionary));   // the template has the dictionary
    preparePlotStyle("Stil 1");
    EXPECT_TRUE(on.drawing.hasDictionaryEntry(kDictionary, "Stil 1"));
    preparePlotStyle("Stil 2");
    EXPECT_TRUE(on.drawing.hasDictionaryEntry(kDictionary, "Stil 2"));
    const std::string both = on.drawing.toDxf();
    preparePlotStyle("stil 1");
    EXPECT_EQ(on.drawing.toDxf(), both);
    EXPECT_EQ(on.host.printed, "");
}

TEST(PlotStyle, UnlockableDocumentIsReportedAndLeftAlone) {
    OnDrawing on;
    on.host.lockFails = true;
    const std::string before = on.drawing.toDxf();
    preparePlotStyle("Stil 1");
    char address[32];
    std::snprintf(address, sizeof address, "pDoc:%08lx\n", static_cast<unsigned long>(
                                                                 reinterpret_cast<std::uintptr_t>(&on.host)));
    EXPECT_EQ(on.host.printed, std::string("cannot lock the document") + address);
    EXPECT_EQ(on.drawing.toDxf(), before);
}

}  // namespace ardo::test
