#include <gtest/gtest.h>

#include "Bytes.h"
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

/// The head of a bitmap of 24 bits: its pixels, three bytes each, rows from the bottom up, start at 54.
std::string BitmapHead(int width, int height) {
    Bytes head(54);
    head[0] = 'B';
    head[1] = 'M';
    PutUint32(head, 10, 54);
    PutUint32(head, 14, 40);
    PutUint32(head, 18, static_cast<std::uint32_t>(width));
    PutUint32(head, 22, static_cast<std::uint32_t>(height));
    PutUint16(head, 26, 1);
    PutUint16(head, 28, 24);
    return {head.begin(), head.end()};
}

TEST(MapPictureFile, ThatEndsTooEarlyIsToldAndWhatIsMissingCountsAsZero) {
    const TemporaryFolder folder;
    const std::string path = folder.Make("map.bmp", BitmapHead(400, 200) + std::string(1200 * 50, '\x7F'));
    std::optional<ShortFile> shortFile;
    const Picture picture = ReadMapPicture(path, &shortFile);
    ASSERT_TRUE(shortFile);
    EXPECT_EQ(shortFile->path, path);
    EXPECT_EQ(shortFile->found, 54U + 1200 * 50);
    EXPECT_EQ(shortFile->expected, 54U + 1200 * 200);
    ASSERT_EQ(picture.pixels.size(), 400U * 200);
    EXPECT_TRUE(std::all_of(picture.pixels.begin(), picture.pixels.begin() + 400 * 150,
                            [](std::uint32_t pixel) { return pixel == 0xFF000000; }));
    EXPECT_EQ(picture.pixels.back(), 0xFF7F7F7F);
}

TEST(MapPictureFile, ThatIsWholeIsNotToldWhateverStandsBehindIt) {
    const TemporaryFolder folder;
    for (const std::size_t behind : {0U, 1U, 70000U}) {
        std::optional<ShortFile> shortFile;
        ReadMapPicture(folder.Make("map.bmp", BitmapHead(40, 20) + std::string(120 * 20 + behind, 'x')),
                       &shortFile);
        EXPECT_FALSE(shortFile) << behind;
    }
}

TEST(MapPictureFile, AsQtWritesItIsNeverShort) {
    const TemporaryFolder folder;
    for (const QImage::Format format :
         {QImage::Format_Mono, QImage::Format_Indexed8, QImage::Format_Grayscale8, QImage::Format_RGB888,
          QImage::Format_ARGB32}) {
        QImage image(101, 7, format);
        if (format == QImage::Format_Indexed8)
            image.setColorCount(256);
        image.fill(0);
        const std::string path = folder.Path() + "map.bmp";
        ASSERT_TRUE(image.save(QString::fromStdString(path), "BMP"));
        std::optional<ShortFile> shortFile;
        EXPECT_EQ(ReadMapPicture(path, &shortFile).width, 101);
        EXPECT_FALSE(shortFile) << format;
        std::filesystem::resize_file(path, std::filesystem::file_size(path) - 1);
        ReadMapPicture(path, &shortFile);
        EXPECT_TRUE(shortFile) << format;
    }
}

TEST(MapPictureFile, Above256MegapixelsIsRefusedBeforeItIsDecoded) {
    const TemporaryFolder folder;
    for (const auto &[width, height] : {std::pair(16001, 16000), std::pair(1, 256000001)}) {
        const std::string path = folder.Make("map.bmp", BitmapHead(width, height));
        try {
            ReadMapPicture(path);
            ADD_FAILURE() << width;
        } catch (const Error &error) {
            EXPECT_EQ(error.Kind(), ErrorKind::FileTooLarge);
            EXPECT_EQ(error.File(), path);
            EXPECT_EQ(error.Expected(), "a picture of at most 256 megapixels");
            EXPECT_EQ(error.Found(), std::to_string(width) + " x " + std::to_string(height) + " pixels");
        }
    }
}

/// The bytes that this process has read since it started.
std::uint64_t BytesReadSoFar() {
    std::ifstream counters("/proc/self/io");
    std::string name;
    std::uint64_t count = 0;
    EXPECT_TRUE(counters >> name >> count);
    EXPECT_EQ(name, "rchar:");
    return count;
}

TEST(MapPictureFile, IsReadOnlyAsFarAsItsPictureGoes) {
    const TemporaryFolder folder;
    const std::string bitmap = folder.Make("map.bmp", BitmapHead(40, 20));
    const std::string rubbish = folder.Make("rubbish.bmp", "");
    for (const std::string &path : {bitmap, rubbish})
        std::filesystem::resize_file(path, std::uintmax_t{4} << 30);
    const std::uint64_t before = BytesReadSoFar();
    ReadMapPicture(bitmap);
    EXPECT_THROW(ReadMapPicture(rubbish), Error);
    EXPECT_LT(BytesReadSoFar() - before, 1000000U);
}

}  // namespace
}  // namespace vtr
