// Points, distances and angles as typed at a prompt.
#include <gtest/gtest.h>

#include <cmath>

#include "cadhost/commands/TypedInput.h"

namespace cadhost::commands {
namespace {

void expectPoint(std::string_view text, const ardo::Point3& last, const ardo::Point3& expected) {
    const auto p = parsePoint(text, last);
    ASSERT_TRUE(p) << text;
    for (int i = 0; i < 3; ++i) EXPECT_NEAR((*p)[i], expected[i], 1e-12) << text << " coordinate " << i;
}

TEST(TypedPoint, AbsoluteRelativeAndPolarForms) {
    const ardo::Point3 last{10, 20, 5};
    expectPoint("3,4", last, {3, 4, 0});
    expectPoint(" 3 , 4 , 7 ", last, {3, 4, 7});
    expectPoint("-1.5,.5", last, {-1.5, 0.5, 0});
    expectPoint("@1,2", last, {11, 22, 5});
    expectPoint("@1,2,-5", last, {11, 22, 0});
    expectPoint("@", last, last);
    expectPoint("@10<90", last, {10, 30, 5});
    expectPoint("10<90", last, {0, 10, 0});
    expectPoint("@2<180", last, {8, 20, 5});
    expectPoint("5<45d", last, {5 * std::cos(M_PI / 4), 5 * std::sin(M_PI / 4), 0});
    for (std::string_view bad : {"", "3", "3,", ",4", "1,2,3,4", "a,b", "@x", "3<", "<45", "1,,2", "@1<2<3", "1e999,0"})
        EXPECT_FALSE(parsePoint(bad, last)) << bad;
}

TEST(TypedNumber, RealsAndAngles) {
    EXPECT_EQ(parseReal("2.5"), 2.5);
    EXPECT_EQ(parseReal("+3"), 3.0);
    EXPECT_EQ(parseReal("1e3"), 1000.0);
    for (std::string_view bad : {"", "-", "2.5m", "1,5", "nan", "inf"}) EXPECT_FALSE(parseReal(bad)) << bad;
    EXPECT_NEAR(*parseAngle("90"), M_PI / 2, 1e-12);
    EXPECT_NEAR(*parseAngle("<-45"), -M_PI / 4, 1e-12);
    EXPECT_NEAR(*parseAngle("45d30'"), 45.5 * M_PI / 180, 1e-12);
    EXPECT_NEAR(*parseAngle("10d0'36\""), 10.01 * M_PI / 180, 1e-12);
    EXPECT_NEAR(*parseAngle("-10d30'"), -10.5 * M_PI / 180, 1e-12);
    EXPECT_FALSE(parseAngle("45d30"));
    EXPECT_FALSE(parseAngle("north"));
}

TEST(TypedNumber, DistancesAnglesAndPolarPoints) {
    EXPECT_NEAR(distanceBetween({0, 0, 0}, {3, 4, 12}), 13, 1e-12);
    EXPECT_NEAR(distanceBetween({0, 0, 0}, {3, 4, 12}, true), 5, 1e-12);
    EXPECT_NEAR(angleBetween({1, 1, 0}, {1, 0, 0}), 1.5 * M_PI, 1e-12);
    EXPECT_NEAR(angleBetween({0, 0, 0}, {-1, 0, 0}), M_PI, 1e-12);
    const auto p = polarPoint({1, 1, 2}, M_PI, 3);
    EXPECT_NEAR(p[0], -2, 1e-12);
    EXPECT_NEAR(p[1], 1, 1e-12);
    EXPECT_EQ(p[2], 2);
}

}  // namespace
}  // namespace cadhost::commands
