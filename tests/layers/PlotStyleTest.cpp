#include <gtest/gtest.h>

#include <cstdio>

#include "layers/PlotStyle.h"
#include "DrawingLayersTestDrawing.h"
#include "support/ScriptedHost.h"

namespace ardo::test {

TEST(PlotStyle, NormalInAnyCaseChangesNothing) {
    ScriptedHost host;
    TestDrawing drawing;
    host.drawing = &drawing;
    preparePlotStyle("nORMAL");
    preparePlotStyle("Normal");
    EXPECT_TRUE(drawing.dictionaries.empty());
}

TEST(PlotStyle, DictionaryIsCreatedAndThePlaceHolderAdded) {
    ScriptedHost host;
    TestDrawing drawing;
    host.drawing = &drawing;
    preparePlotStyle("Stil 1");
    EXPECT_TRUE(drawing.hasDictionaryEntry("ACAD_PLOTSTYLENAME", "Stil 1"));
    preparePlotStyle("Stil 2");
    EXPECT_EQ(drawing.dictionaries["ACAD_PLOTSTYLENAME"], (std::set<std::string>{"Stil 1", "Stil 2"}));
    EXPECT_EQ(host.printed, "");
}

TEST(PlotStyle, UnlockableDocumentIsReportedAndLeftAlone) {
    ScriptedHost host;
    TestDrawing drawing;
    host.drawing = &drawing;
    host.lockFails = true;
    preparePlotStyle("Stil 1");
    char address[32];
    std::snprintf(address, sizeof address, "pDoc:%08lx\n", static_cast<unsigned long>(
                                                                 reinterpret_cast<std::uintptr_t>(&host)));
    EXPECT_EQ(host.printed, std::string("cannot lock the document") + address);
    EXPECT_TRUE(drawing.dictionaries.empty());
}

}  // namespace ardo::test
