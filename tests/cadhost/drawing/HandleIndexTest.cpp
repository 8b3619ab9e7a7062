// The handle table: every sequence of additions and removals leaves it answering as a plain
// map would, also when runs of neighbours wrap around the end of its array.
#include <gtest/gtest.h>

#include <random>
#include <unordered_map>

#include "cadhost/drawing/HandleIndex.h"

namespace cadhost {
namespace {

void expectSame(const HandleIndex<std::uint32_t>& table, const std::unordered_map<std::uint64_t, std::uint32_t>& map,
                std::uint64_t keys, int step) {
    ASSERT_EQ(table.size(), map.size()) << "after step " << step;
    for (std::uint64_t k = 0; k <= keys; ++k) {
        const std::uint32_t* found = table.find(k);
        const auto it = map.find(k);
        ASSERT_EQ(found != nullptr, it != map.end()) << "handle " << k << " after step " << step;
        if (found) {
            ASSERT_EQ(*found, it->second) << "handle " << k << " after step " << step;
        }
    }
}

TEST(HandleIndex, AnswersAsAMapThroughAdditionsAndRemovals) {
    // Few distinct handles in a small table: long runs of collisions, growth and wrap-around.
    for (const std::uint64_t keys : {12u, 40u, 300u}) {
        HandleIndex<std::uint32_t> table;
        std::unordered_map<std::uint64_t, std::uint32_t> map;
        std::mt19937_64 random(keys);
        std::uniform_int_distribution<std::uint64_t> pick(1, keys);
        for (int step = 0; step < 4000; ++step) {
            const std::uint64_t k = pick(random);
            if (random() % 3 == 0) {
                table.erase(k);
                map.erase(k);
            } else {
                const auto value = static_cast<std::uint32_t>(step);
                table.emplace(k, value);
                map.emplace(k, value);   // the first value of a handle stays, in both
            }
            if (step % 50 == 0 || keys == 12) expectSame(table, map, keys, step);
        }
        expectSame(table, map, keys, -1);
    }
}

TEST(HandleIndex, HandleZeroNamesNothing) {
    HandleIndex<std::uint32_t> table;
    EXPECT_EQ(table.find(0), nullptr);
    table.emplace(0, 5);
    table.erase(0);
    EXPECT_EQ(table.size(), 0u);
    EXPECT_EQ(table.find(0), nullptr);
    table.emplace(7, 1);
    table.erase(9);   // not there: nothing changes
    ASSERT_NE(table.find(7), nullptr);
    EXPECT_EQ(*table.find(7), 1u);
}

TEST(HandleIndex, KeepsEveryHandleAcrossGrowthAndClear) {
    HandleIndex<std::uint32_t> table;
    table.reserve(10);
    // Consecutive handles, as drawings number their records.
    for (std::uint32_t i = 1; i <= 100000; ++i) table.emplace(0x20 + i, i);
    ASSERT_EQ(table.size(), 100000u);
    for (std::uint32_t i = 1; i <= 100000; i += 997) {
        ASSERT_NE(table.find(0x20 + i), nullptr) << i;
        EXPECT_EQ(*table.find(0x20 + i), i);
    }
    EXPECT_EQ(table.find(0x20), nullptr);
    table.clear();
    EXPECT_EQ(table.size(), 0u);
    EXPECT_EQ(table.find(0x21), nullptr);
}

}  // namespace
}  // namespace cadhost
