#include "base/Result.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

ardo::Result<int> half(int n) {
    if (n % 2) return ardo::Error{std::to_string(n) + " is odd"};
    return n / 2;
}

ardo::Status saved(bool fail) {
    if (fail) return ardo::Error{"disk full"};
    return {};
}

TEST(Result, ValueAndFailureAreTold) {
    const auto even = half(8);
    ASSERT_TRUE(even.ok());
    EXPECT_EQ(*even, 4);
    const auto odd = half(7);
    ASSERT_FALSE(odd);
    EXPECT_EQ(odd.error(), "7 is odd");
}

TEST(Result, SuccessWithoutValueReadsAsSuccess) {
    EXPECT_TRUE(saved(false).ok());
    const auto failed = saved(true);
    EXPECT_FALSE(failed.ok());
    EXPECT_EQ(failed.error(), "disk full");
}

TEST(Result, MoveOnlyValuesComeOut) {
    ardo::Result<std::unique_ptr<int>> r(std::make_unique<int>(5));
    std::unique_ptr<int> taken = std::move(r).value();
    ASSERT_TRUE(taken);
    EXPECT_EQ(*taken, 5);
}

}  // namespace
