#include <gtest/gtest.h>

#include "Errors.h"
#include "MapPictureFile.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

using namespace std::string_literals;

TEST(MapPictureFile, ReadsABitmapOfAnySizePixelForPixel) {
    // 3 x 2 pixels of 24 bits: rows from the bottom up, blue first, each row filled up to 4 bytes.
    const std::string bitmap =
        "BM\x4E\0\0\0\0\0\0\0\x36\0\0\0"
        "\x28\0\0\0\3\0\0\0\2\0\0\0\1\0\x18\0\0\0\0\0\x18\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
        "\1\2\3\4\5\6\7\x08\x09\0\0\0"
        "\xFF\0\0\0\xFF\0\0\0\xFF\0\0\0"s;
    const TemporaryFolder folder;
    const Picture picture = ReadMapPicture(folder.Make("map.bmp", bitmap));
    EXPECT_EQ(picture.width, 3);
    EXPECT_EQ(picture.height, 2);
    EXPECT_EQ(picture.pixels, (std::vector<std::uint32_t>{0xFF0000FF, 0xFF00FF00, 0xFFFF0000, 0xFF030201,
                                                          0xFF060504, 0xFF090807}));
}

TEST(MapPictureFile, KnowsThePictureByItsContentNotByItsName) {
    const TemporaryFolder folder;
    const Picture picture =
        ReadMapPicture(folder.Make("map.bmp", "P6\n700 1\n255\n" + std::string(2100, 'A')));
    EXPECT_EQ(picture.width, 700);
    EXPECT_EQ(picture.height, 1);
    EXPECT_EQ(picture.pixels, std::vector<std::uint32_t>(700, 0xFF414141));
}

TEST(MapPictureFile, AMissingFileIsAFileMissingErrorThatNamesIt) {
    const TemporaryFolder folder;
    try {
        ReadMapPicture(folder.Path() + "none.bmp");
        ADD_FAILURE() << "read a picture that is not there";
    } catch (const Error &error) {
        EXPECT_EQ(error.Kind(), ErrorKind::FileMissing);
        EXPECT_EQ(error.File(), folder.Path() + "none.bmp");
    }
}

TEST(MapPictureFile, ABrokenFileIsAnErrorThatNamesItAndWhatWasExpected) {
    const TemporaryFolder folder;
    for (const std::string &content : {""s, "BM"s, "no picture at all"s, "BM\x4E\0\0\0\0\0\0\0\x36\0\0\0"s}) {
        const std::string path = folder.Make("broken.bmp", content);
        try {
            ReadMapPicture(path);
            ADD_FAILURE() << "read a picture from \"" << content << '"';
        } catch (const Error &error) {
            EXPECT_EQ(error.Kind(), ErrorKind::FileAccess);
            EXPECT_EQ(error.File(), path);
            EXPECT_EQ(error.Expected(), "a picture (a bitmap file, *.bmp)");
            EXPECT_FALSE(error.Found().empty());
        }
    }
}

}  // namespace
}  // namespace vtr
