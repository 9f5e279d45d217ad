#include <gtest/gtest.h>

#include "EnlargedPicture.h"

namespace vtr {
namespace {

using Pixels = std::vector<std::uint32_t>;

/// 1 2 3
/// 4 5 6
const Picture picture{3, 2, {1, 2, 3, 4, 5, 6}};

Pixels Enlarged(const std::vector<int> &columns, const std::vector<int> &rows) {
    Pixels enlarged(columns.size() * rows.size());
    EnlargePicture(picture, columns, rows, enlarged);
    return enlarged;
}

Pixels EnlargedBy(int factor) {
    const EnlargedAxis axis{0, static_cast<double>(factor)};
    return Enlarged(axis.PixelsFrom(0, 3 * factor, 3), axis.PixelsFrom(0, 2 * factor, 2));
}

TEST(EnlargedPicture, EachPixelBecomesASquareOfAsManyPixelsAsTheFactor) {
    EXPECT_EQ(EnlargedBy(1), picture.pixels);
    EXPECT_EQ(EnlargedBy(2), (Pixels{1, 1, 2, 2, 3, 3,  //
                                     1, 1, 2, 2, 3, 3,  //
                                     4, 4, 5, 5, 6, 6,  //
                                     4, 4, 5, 5, 6, 6}));
    EXPECT_EQ(EnlargedBy(3), (Pixels{1, 1, 1, 2, 2, 2, 3, 3, 3,  //
                                     1, 1, 1, 2, 2, 2, 3, 3, 3,  //
                                     1, 1, 1, 2, 2, 2, 3, 3, 3,  //
                                     4, 4, 4, 5, 5, 5, 6, 6, 6,  //
                                     4, 4, 4, 5, 5, 5, 6, 6, 6,  //
                                     4, 4, 4, 5, 5, 5, 6, 6, 6}));
    EXPECT_EQ(EnlargedBy(4), (Pixels{1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3,  //
                                     1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3,  //
                                     1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3,  //
                                     1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3,  //
                                     4, 4, 4, 4, 5, 5, 5, 5, 6, 6, 6, 6,  //
                                     4, 4, 4, 4, 5, 5, 5, 5, 6, 6, 6, 6,  //
                                     4, 4, 4, 4, 5, 5, 5, 5, 6, 6, 6, 6,  //
                                     4, 4, 4, 4, 5, 5, 5, 5, 6, 6, 6, 6}));
}

TEST(EnlargedPicture, APartOfItIsWhatStandsThereInTheWhole) {
    EXPECT_EQ(Enlarged({0, 1, 1}, {1}), (Pixels{4, 5, 5}));
    EXPECT_EQ(Enlarged({2}, {0, 0, 1}), (Pixels{3, 3, 6}));
    EXPECT_EQ(Enlarged({}, {}), Pixels());
}

TEST(EnlargedAxis, AtAFractionAScreenPixelShowsThePixelThatItsMiddleLiesIn) {
    // Middles of the screen pixels: 0.4, 1.2, 2.0, 2.8, 3.6 pixels of the picture.
    EXPECT_EQ((EnlargedAxis{0, 1.25}.PixelsFrom(0, 5, 4)), (std::vector{0, 1, 2, 2, 3}));
    EXPECT_EQ((EnlargedAxis{0, 1.5}.PixelsFrom(0, 6, 4)), (std::vector{0, 1, 1, 2, 3, 3}));
    EXPECT_EQ((EnlargedAxis{0, 2.5}.PixelsFrom(0, 5, 4)), (std::vector{0, 0, 1, 1, 1}));
}

TEST(EnlargedAxis, ItMayBeginBetweenScreenPixels) {
    EXPECT_EQ((EnlargedAxis{11.25, 1.25}.PixelAt(10)), -1);
    EXPECT_EQ((EnlargedAxis{11.25, 1.25}.PixelAt(11)), 0);
    EXPECT_EQ((EnlargedAxis{11.25, 1.25}.PixelAt(12)), 1);
    EXPECT_EQ((EnlargedAxis{-3, 2}.PixelAt(0)), 1);
}

TEST(EnlargedAxis, AMiddleBetweenTwoPixelsFallsToTheSecondHoweverTheStartWasRounded) {
    for (const double error : {-1e-9, 0.0, 1e-9})
        EXPECT_EQ((EnlargedAxis{12.5 + error, 1.25}.PixelAt(12)), 0) << error;
}

TEST(EnlargedAxis, BesideThePictureItsNearestPixelIsShown) {
    EXPECT_EQ((EnlargedAxis{4, 2}.PixelsFrom(2, 8, 2)), (std::vector{0, 0, 0, 0, 1, 1, 1, 1}));
    EXPECT_EQ((EnlargedAxis{4, 2}.PixelAt(9)), 2);
}

}  // namespace
}  // namespace vtr
