#include <gmock/gmock.h>

#include "ColourSliders.h"

namespace vtr {
namespace {

using testing::ElementsAre;

TEST(ColourSliders, WhiteOpensWithItsBlueSliderAt256) {
    // 16777215 / 256 = 65535.996, rounded 65536, and 65536 mod 256 = 0.
    EXPECT_THAT(SliderValues(16777215), ElementsAre(255, 0, 256));
}

TEST(ColourSliders, Red128Green255OpensWithGreen0) {
    EXPECT_THAT(SliderValues(65408), ElementsAre(128, 0, 1));
}

TEST(ColourSliders, OpenAtTheColoursPartsWhereTheLowerOnesAreSmall) {
    EXPECT_THAT(SliderValues(0), ElementsAre(0, 0, 0));
    EXPECT_THAT(SliderValues(255), ElementsAre(255, 1, 0));
    EXPECT_THAT(SliderValues(100 + 256 * 50 + 65536 * 200), ElementsAre(100, 50, 200));
    EXPECT_THAT(SliderValues(127 + 256 * 127 + 65536 * 9), ElementsAre(127, 127, 9));
}

TEST(ColourSliders, RoundHalvesToTheEvenNeighbour) {
    EXPECT_THAT(SliderValues(128), ElementsAre(128, 0, 0));            // 0.5
    EXPECT_THAT(SliderValues(256 + 128), ElementsAre(128, 2, 0));      // 1.5
    EXPECT_THAT(SliderValues(512 + 128), ElementsAre(128, 2, 0));      // 2.5
    EXPECT_THAT(SliderValues(32768), ElementsAre(0, 128, 0));          // blue 0.5
    EXPECT_THAT(SliderValues(65536 + 32768), ElementsAre(0, 128, 2));  // blue 1.5
}

TEST(ColourSliders, TakeTheSignOfANegativeColour) {
    EXPECT_THAT(SliderValues(-1), ElementsAre(-1, 0, 0));
    EXPECT_THAT(SliderValues(-300), ElementsAre(-44, -1, 0));
    EXPECT_THAT(SliderValues(-65536 - 512 - 3), ElementsAre(-3, -2, -1));
    EXPECT_THAT(SliderValues(-2147483647 - 1), ElementsAre(0, 0, -32768));
    EXPECT_THAT(SliderValues(2147483647), ElementsAre(255, 0, 32768));
}

TEST(ColourSliders, GiveRedPlus256GreenPlus65536Blue) {
    EXPECT_EQ(ColourOfSliders({1, 2, 3}), 1 + 512 + 196608);
    EXPECT_EQ(ColourOfSliders({255, 255, 255}), 16777215);
    EXPECT_EQ(ColourOfSliders({255, 255, 0}), 65535);
}

}  // namespace
}  // namespace vtr
