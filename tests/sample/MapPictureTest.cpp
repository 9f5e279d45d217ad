#include <gmock/gmock.h>

#include "MapPicture.h"
#include "SharedSample.h"

namespace vtr {
namespace {

TEST(MapPicture, BitmapHoldsItsRowsFromTheBottomUpAsBlueGreenRed) {
    const Picture picture{1, 2, {0xFF112233, 0xFF445566}};
    const Bytes file = EncodeBmp(picture);
    ASSERT_EQ(file.size(), 54U + 2 * 4);
    EXPECT_EQ(file[0], 'B');
    EXPECT_EQ(file[1], 'M');
    EXPECT_EQ(GetUint16(file, 2), 62);
    EXPECT_EQ(GetUint16(file, 10), 54);
    EXPECT_EQ(GetUint16(file, 14), 40);
    EXPECT_EQ(GetUint16(file, 18), 1);
    EXPECT_EQ(GetUint16(file, 22), 2);
    EXPECT_EQ(GetUint16(file, 26), 1);
    EXPECT_EQ(GetUint16(file, 28), 24);
    const Bytes rows(file.begin() + 54, file.end());
    EXPECT_THAT(rows, testing::ElementsAre(0x66, 0x55, 0x44, 0, 0x33, 0x22, 0x11, 0));
}

TEST(MapPicture, ShowsTheSeaBlueAndTheLandNot) {
    const Bytes file = SampleMapPicture().bytes;
    ASSERT_EQ(file.size(), 54U + 640 * 320 * 3);
    int blueSea = 0;
    int sea = 0;
    int blueLand = 0;
    int land = 0;
    for (int y = 0; y < 320; ++y)
        for (int x = 0; x < 640; ++x) {
            const auto at = static_cast<std::size_t>(54 + ((319 - y) * 640 + x) * 3);
            const bool blue = file[at] > file[at + 2] + 20;
            if (IsLandTile(x, y)) {
                ++land;
                blueLand += blue ? 1 : 0;
            } else {
                ++sea;
                blueSea += blue ? 1 : 0;
            }
        }
    EXPECT_EQ(blueSea, sea);
    EXPECT_LT(blueLand, land / 20);
}

}  // namespace
}  // namespace vtr
