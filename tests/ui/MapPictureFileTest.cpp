#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>

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

std::string EncodedAs(const char *format, const QImage &image) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format));
    return buffer.data().toStdString();
}

/// Columns and rows of different colours.
QImage Chequered(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(x * 7 % 256, y * 5 % 256, x * y % 256));
    return image;
}

TEST(MapPictureFile, OfAnotherFormatThatIsWholeIsNotToldWhateverStandsBehindIt) {
    const TemporaryFolder folder;
    for (const char *format : {"jpg", "png", "ppm", "xbm", "xpm"}) {
        for (const int width : {1, 8, 40, 333, 640}) {
            const std::string whole = EncodedAs(format, Chequered(width, 100));
            for (const std::size_t behind : {0U, 1U, 70000U}) {
                std::optional<ShortFile> shortFile;
                ReadMapPicture(folder.Make("map.bmp", whole + std::string(behind, 'x')), &shortFile);
                EXPECT_FALSE(shortFile) << format << ' ' << width << ' ' << behind;
            }
        }
    }
}

TEST(MapPictureFile, OfAnotherFormatThatEndsTooEarlyIsToldOrRefused) {
    const TemporaryFolder folder;
    for (const char *format : {"jpg", "png", "ppm", "xbm", "xpm"}) {
        const std::string whole = EncodedAs(format, Chequered(640, 200));
        for (const std::size_t part : {3U, 5U, 9U}) {
            const std::string path = folder.Make("map.bmp", whole.substr(0, whole.size() * part / 10));
            std::optional<ShortFile> shortFile;
            try {
                ReadMapPicture(path, &shortFile);
                ASSERT_TRUE(shortFile) << format << ' ' << part;
                EXPECT_EQ(shortFile->path, path);
                EXPECT_EQ(shortFile->found, whole.size() * part / 10);
                EXPECT_EQ(shortFile->expected, 0);
            } catch (const Error &error) {
                EXPECT_EQ(error.Kind(), ErrorKind::FileAccess);
            }
        }
    }
}

/// A bitmap of 8 bits a pixel, with two colours and pixels in the compression 1.
std::string RunLengthBitmap(int width, int height, const std::string &pixels) {
    std::string bitmap = BitmapHead(width, height);
    bitmap[10] = 62;
    bitmap[28] = 8;
    bitmap[30] = 1;
    bitmap[46] = 2;
    return bitmap + "\x10\x20\x30\0\x7F\x7F\x7F\0"s + pixels;
}

TEST(MapPictureFile, ThatIsCompressedAndEndsTooEarlyIsToldAndWhatIsMissingCountsAsZero) {
    const TemporaryFolder folder;
    std::string rows;
    for (int row = 0; row < 20; ++row)
        rows += "\x28\1\0\0"s;  // 40 times colour 1, end of the row
    for (const std::string &end : {""s, "\0\1"s, "\0\1 and more"s}) {
        std::optional<ShortFile> shortFile;
        const Picture picture =
            ReadMapPicture(folder.Make("map.bmp", RunLengthBitmap(40, 20, rows + end)), &shortFile);
        EXPECT_FALSE(shortFile) << end;
        EXPECT_EQ(picture.pixels, std::vector<std::uint32_t>(40 * 20, 0xFF7F7F7F));
    }
    for (const std::size_t held : {1U, 20U, 30U, 79U}) {
        const std::string path = folder.Make("map.bmp", RunLengthBitmap(40, 20, rows.substr(0, held)));
        std::optional<ShortFile> shortFile;
        const Picture picture = ReadMapPicture(path, &shortFile);
        ASSERT_TRUE(shortFile) << held;
        EXPECT_EQ(shortFile->found, 62 + held);
        EXPECT_EQ(picture.pixels.front(), held < 78 ? 0xFF302010 : 0xFF7F7F7F) << held;
    }
}

TEST(MapPictureFile, WithTheOldestHeaderThatEndsTooEarlyIsTold) {
    // Two rows of 4 pixels, of 24 bits; then the same of 8 bits with a table of 256 colours.
    for (const auto &[bits, start, row] : {std::tuple(24, 26U, 12U), {8, 26U + 256 * 3, 4U}}) {
        std::string bitmap = "BM\0\0\0\0\0\0\0\0"s + static_cast<char>(start & 255) +
                             static_cast<char>(start >> 8) + "\0\0\x0C\0\0\0\4\0\2\0\1\0"s +
                             static_cast<char>(bits) + '\0';
        bitmap.resize(start, '\x55');
        for (const unsigned held : {2 * row, 2 * row - 1, row, 0U}) {
            const TemporaryFolder folder;
            std::optional<ShortFile> shortFile;
            const Picture picture =
                ReadMapPicture(folder.Make("map.bmp", bitmap + std::string(held, '\x55')), &shortFile);
            EXPECT_EQ(picture.pixels.size(), 8U);
            ASSERT_EQ(shortFile.has_value(), held < 2 * row) << bits << ' ' << held;
            if (shortFile) {
                EXPECT_EQ(shortFile->found, start + held);
                EXPECT_EQ(shortFile->expected, start + 2 * row);
            }
        }
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
