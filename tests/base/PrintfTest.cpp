#include "base/Printf.h"

#include <gtest/gtest.h>

#include <climits>

namespace ardo {
namespace {

TEST(Printf, TheSystemsTextForms) {
    EXPECT_EQ(format("%.5lf", 1.5), "1.50000");
    EXPECT_EQ(format("%.3lf|%.4lf", -2.0, 0.125), "-2.000|0.1250");
    EXPECT_EQ(format("%d %u %ld %lu", -7, 4000000000u, -5L, ULONG_MAX),
              "-7 4000000000 -5 18446744073709551615");
    EXPECT_EQ(format("0x%08lx", 255UL), "0x000000ff");
    EXPECT_EQ(format("%s:'%s=%s'\n", "T", "Key", "Wert"), "T:'Key=Wert'\n");
    EXPECT_EQ(format("100%% %c", 'x'), "100% x");
}

TEST(Printf, TooManyConversionsFormatMissingArgumentsAsEmptyOrZero) {
    EXPECT_EQ(format("\nIch kann die Datei %s nicht schreiben %s %d %.2f"),
              "\nIch kann die Datei  nicht schreiben  0 0.00");
    EXPECT_EQ(format("%s %s %s %s %s %s %s %s %s %s", "one"), "one         ");
}

TEST(Printf, ArgumentsOfOtherTypesAreConverted) {
    EXPECT_EQ(format("%d|%s|%f", "text", 12, 3), "0|12|3.000000");
}

TEST(Printf, DangerousOrBrokenConversionsStandAsWritten) {
    EXPECT_EQ(format("%n%p%*d", 1, 2), "%n%p%*d");
    EXPECT_EQ(format("end %"), "end %");
    EXPECT_EQ(format("%l"), "%l");
    // Widths and precisions are bounded, so a template cannot ask for huge output.
    EXPECT_LT(format("%99999999d", 1).size(), 1100u);
    EXPECT_LT(format("%.99999999f", 1.0).size(), 1100u);
}

}  // namespace
}  // namespace ardo
