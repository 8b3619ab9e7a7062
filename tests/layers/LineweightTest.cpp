#include <gtest/gtest.h>

#include "layers/Lineweight.h"
#include "support/ScriptedHost.h"

namespace ardo::test {

TEST(Lineweight, ListTextsFollowLwunits) {
    ScriptedHost host;
    host.variables["LWUNITS"] = ResBuf::shortInt(0);
    auto rows = lineweightListRows(readLineweightState());
    ASSERT_EQ(rows.size(), 25u);
    EXPECT_EQ(rows.front().text, "Vorgabe");
    EXPECT_EQ(rows.back().text, "0.083\"");
    EXPECT_EQ(rows[12].text, "0.020\"");
    host.variables["LWUNITS"] = ResBuf::shortInt(1);
    rows = lineweightListRows(readLineweightState());
    EXPECT_EQ(rows.front().text, "Vorgabe");
    EXPECT_EQ(rows.back().text, "2.11 mm");
    for (size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(rows[i].tableRow, i);
}

TEST(Lineweight, StateReadsTheThreeVariables) {
    ScriptedHost host;
    host.variables["LWUNITS"] = ResBuf::shortInt(0);
    host.variables["LWDEFAULT"] = ResBuf::shortInt(35);
    host.variables["LWDISPLAY"] = ResBuf::shortInt(1);
    const LineweightState s = readLineweightState();
    EXPECT_FALSE(s.millimetres);
    EXPECT_EQ(s.defaultLineweight, 35);
    EXPECT_TRUE(s.display);
}

TEST(Lineweight, TableRowsAndValues) {
    EXPECT_EQ(kLineweights[0].value, -3);
    EXPECT_EQ(lineweightRowOfValue(-3), 0u);
    EXPECT_EQ(lineweightRowOfValue(211), 24u);
    EXPECT_EQ(lineweightRowOfValue(53), 13u);
    EXPECT_FALSE(lineweightRowOfValue(7));
    EXPECT_FALSE(lineweightRowOfValue(-1));
    int previous = -4;
    for (const auto& row : kLineweights) {
        EXPECT_GT(row.value, previous);
        previous = row.value;
        if (row.value < 0) continue;
        const std::string inch = row.inchText;
        EXPECT_EQ(inch.find('"'), inch.size() - 1) << inch;
        char mm[32];
        std::snprintf(mm, sizeof mm, "%d.%02d mm", row.value / 100, row.value % 100);
        EXPECT_STREQ(row.millimetreText, mm);
    }
}

}  // namespace ardo::test
