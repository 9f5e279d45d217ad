#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>

#include "Arithmetic.h"
#include "ErrorThrownBy.h"

namespace vtr {
namespace {

TEST(Arithmetic, RoundsHalvesToTheEvenNeighbour) {
    const std::array<std::pair<double, double>, 11> table{{{0.5, 0},
                                                           {1.5, 2},
                                                           {2.5, 2},
                                                           {-0.5, 0},
                                                           {-1.5, -2},
                                                           {-2.5, -2},
                                                           {213.333, 213},
                                                           {426.667, 427},
                                                           {255.5, 256},
                                                           {-0.51, -1},
                                                           {3, 3}}};
    for (const auto &[value, rounded] : table)
        EXPECT_EQ(RoundHalfEven(value), rounded) << value;
}

TEST(Arithmetic, RoundingTo16BitsTrapsJustOutsideTheRange) {
    EXPECT_EQ(RoundToInt16(32767.4), 32767);
    EXPECT_EQ(RoundToInt16(-32768.5), -32768);
    for (const double value : {32767.5, -32768.51, 1e300, std::nan("")})
        EXPECT_EQ(KindThrownBy([value] { RoundToInt16(value); }), ErrorKind::Overflow) << value;
}

TEST(Arithmetic, BytesTrapOutside0To255) {
    EXPECT_EQ(ToByte(0), 0);
    EXPECT_EQ(ToByte(255), 255);
    EXPECT_EQ(KindThrownBy([] { ToByte(256); }), ErrorKind::Overflow);
    EXPECT_EQ(KindThrownBy([] { ToByte(-1); }), ErrorKind::Overflow);
    EXPECT_EQ(ToUint16(0), 0);
    EXPECT_EQ(ToUint16(65535), 65535);
    EXPECT_EQ(KindThrownBy([] { ToUint16(65536); }), ErrorKind::Overflow);
    EXPECT_EQ(KindThrownBy([] { ToUint16(-1); }), ErrorKind::Overflow);
}

TEST(Arithmetic, FloorDivisionGoesTowardsMinusInfinityAndItsRemainderIsNeverNegative) {
    for (int a = -9; a <= 9; ++a) {
        EXPECT_EQ(FloorDiv(a, 4), static_cast<std::int64_t>(std::floor(a / 4.0))) << a;
        EXPECT_EQ(FloorMod(a, 4), a - 4 * static_cast<std::int64_t>(std::floor(a / 4.0))) << a;
    }
}

TEST(Arithmetic, AnIndexOutsideItsTableNamesPlaceExpectedAndFound) {
    EXPECT_EQ(CheckIndex(301, 302), 301U);
    try {
        CheckIndex(308, 308, {.file = "T.DAT", .offset = 20, .item = "target", .index = 5});
        FAIL();
    } catch (const Error &error) {
        EXPECT_EQ(error.Kind(), ErrorKind::IndexOutOfRange);
        EXPECT_STREQ(error.what(),
                     "index out of range in \"T.DAT\" (offset 20, target 5): expected an index from 0 to "
                     "307, found 308");
    }
    EXPECT_EQ(KindThrownBy([] { CheckIndex(-1, 302); }), ErrorKind::IndexOutOfRange);
}

TEST(Arithmetic, ShortestTextReadsBackToTheSameNumber) {
    EXPECT_EQ(ShortestText(0), "0");
    EXPECT_EQ(ShortestText(1025), "1025");
    EXPECT_EQ(ShortestText(4.00390625), "4.00390625");
    EXPECT_EQ(FindNumber(" 255"), 255);
    EXPECT_EQ(FindNumber("-1.5"), -1.5);
    for (const char *text : {"", "12x", "1,5", "nan", "inf", "0x10"})
        EXPECT_EQ(FindNumber(text), std::nullopt) << text;
}

TEST(Arithmetic, ReadsEveryDecimalNumberAsTheStandardLibraryDoes) {
    std::mt19937_64 random(1990);
    for (int run = 0; run < 200'000; ++run) {
        std::string text = std::to_string(random() >> (random() % 64));
        if (random() % 4 != 0)
            text.insert(text.begin() + static_cast<std::ptrdiff_t>(1 + random() % text.size()), '.');
        char *end = nullptr;
        const double expected = std::strtod(text.c_str(), &end);
        ASSERT_EQ(*end, '\0');
        ASSERT_EQ(FindNumber(text), expected) << text;
    }
}

TEST(Arithmetic, APointNeedsDigitsAroundItAndThereIsOnlyOne) {
    for (const char *text : {"1.2.3", ".", "1..2", "12a", "1 2"})
        EXPECT_EQ(FindNumber(text), std::nullopt) << text;
    EXPECT_EQ(FindNumber("9007199254740993"), 9007199254740992.0) << "2^53 + 1 rounds to even";
    EXPECT_EQ(FindNumber("0000000000000000000001.5"), 1.5);
}

TEST(Arithmetic, SquareRootsAreRoundedDown) {
    EXPECT_EQ(SquareRoot(0), 0);
    EXPECT_EQ(SquareRoot(15), 3);
    EXPECT_EQ(SquareRoot(16), 4);
    EXPECT_EQ(SquareRoot(130050), 360);
}

}  // namespace
}  // namespace vtr
