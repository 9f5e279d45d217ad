#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "Noise.h"

namespace vtr {
namespace {

TEST(Noise, StaysWithinItsRangeAndMakesNoJumps) {
    int lowest = 0;
    int highest = 0;
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 256; ++x) {
            const int value = Noise(x, y, 16, 1);
            lowest = std::min(lowest, value);
            highest = std::max(highest, value);
            EXPECT_LT(std::abs(value - Noise(x + 1, y, 16, 1)), 260);
        }
    EXPECT_GE(lowest, -1024);
    EXPECT_LE(highest, 1024);
    EXPECT_LT(lowest, -800);
    EXPECT_GT(highest, 800);
}

TEST(Noise, WithAPeriodRunsOnWithoutASeam) {
    for (int y = 0; y < 64; ++y)
        EXPECT_LT(std::abs(Noise(63, y, 16, 1, 64) - Noise(0, y, 16, 1, 64)), 260);
}

TEST(Noise, RandomNumbersAreTheSameForTheSameSeedAndCoverTheirRange) {
    Random first(5);
    Random second(5);
    std::array<int, 6> counts{};
    for (int i = 0; i < 600; ++i) {
        const int number = first.Between(3, 8);
        EXPECT_EQ(number, second.Between(3, 8));
        ++counts.at(static_cast<std::size_t>(number - 3));
    }
    for (const int count : counts)
        EXPECT_GT(count, 60);
}

}  // namespace
}  // namespace vtr
