#include <gtest/gtest.h>

#include <random>

#include "ErrorThrownBy.h"
#include "MirroredBitmap.h"

namespace vtr {
namespace {

/// A bitmap file with an information header of that size and the given pixels, row after row.
Bytes Bitmap(std::uint32_t headerSize, int width, int height, int bits, std::uint32_t compression,
             const Bytes &between, const Bytes &pixels) {
    Bytes bytes(14 + headerSize);
    bytes[0] = 'B';
    bytes[1] = 'M';
    PutUint32(bytes, 10, static_cast<std::uint32_t>(bytes.size() + between.size()));
    PutUint32(bytes, 14, headerSize);
    if (headerSize == 12) {
        PutUint16(bytes, 18, static_cast<std::uint16_t>(width));
        PutUint16(bytes, 20, static_cast<std::uint16_t>(height));
        PutUint16(bytes, 24, static_cast<std::uint16_t>(bits));
    } else {
        PutUint32(bytes, 18, static_cast<std::uint32_t>(width));
        PutUint32(bytes, 22, static_cast<std::uint32_t>(height));
        PutUint16(bytes, 28, static_cast<std::uint16_t>(bits));
        PutUint32(bytes, 30, compression);
    }
    bytes.insert(bytes.end(), between.begin(), between.end());
    bytes.insert(bytes.end(), pixels.begin(), pixels.end());
    return bytes;
}

const Bytes threeRows{1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0};
const Bytes threeRowsTurned{7, 8, 9, 0, 4, 5, 6, 0, 1, 2, 3, 0};
const Bytes table{9, 9, 9, 0, 8, 8, 8, 0};

TEST(MirroredBitmap, ReversesTheRowsAndKeepsHeadersTableAndWhatFollows) {
    Bytes whole = Bitmap(40, 3, 3, 8, 0, table, threeRows);
    Bytes expected = Bitmap(40, 3, 3, 8, 0, table, threeRowsTurned);
    for (const std::uint8_t behind : Bytes{0xAA, 0xBB}) {
        whole.push_back(behind);
        expected.push_back(behind);
    }
    EXPECT_EQ(MirroredBitmap(whole, "map.bmp"), expected);
}

TEST(MirroredBitmap, KnowsEveryHeaderAndTheRowsThatAreStoredFromTheTop) {
    for (const std::uint32_t headerSize : {12U, 40U, 52U, 64U, 108U, 124U})
        EXPECT_EQ(MirroredBitmap(Bitmap(headerSize, 3, 3, 8, 0, table, threeRows), ""),
                  Bitmap(headerSize, 3, 3, 8, 0, table, threeRowsTurned))
            << headerSize;
    EXPECT_EQ(MirroredBitmap(Bitmap(40, 3, -3, 8, 0, table, threeRows), ""),
              Bitmap(40, 3, -3, 8, 0, table, threeRowsTurned));
    EXPECT_EQ(MirroredBitmap(Bitmap(40, 2, 3, 16, 3, table, threeRows), ""),
              Bitmap(40, 2, 3, 16, 3, table, threeRowsTurned));
}

TEST(MirroredBitmap, RowsOfEveryDepthFillFourBytesOrAMultipleOfThem) {
    // A row of four bytes: 32 pixels of one bit, 8 of four, 4 of eight, 2 of sixteen or one of more.
    for (const auto &[bits, width] : {std::pair(1, 32), {4, 8}, {8, 4}, {16, 2}, {24, 1}, {32, 1}})
        EXPECT_EQ(MirroredBitmap(Bitmap(40, width, 3, bits, 0, {}, threeRows), ""),
                  Bitmap(40, width, 3, bits, 0, {}, threeRowsTurned))
            << bits;
    // With one pixel more a row takes eight bytes, so the twelve bytes hold one row.
    EXPECT_EQ(KindThrownBy([] { MirroredBitmap(Bitmap(40, 5, 3, 8, 0, {}, threeRows), ""); }),
              ErrorKind::FileTooShort);
}

TEST(MirroredBitmap, TwiceIsTheSameFile) {
    std::mt19937 random(10);
    for (const int height : {1, 2, 319, 320}) {
        Bytes pixels(static_cast<std::size_t>(640 * height));
        for (std::uint8_t &pixel : pixels)
            pixel = static_cast<std::uint8_t>(random());
        const Bytes whole = Bitmap(40, 640, height, 8, 0, Bytes(1024, 7), pixels);
        const Bytes once = MirroredBitmap(whole, "");
        EXPECT_EQ(once == whole, height == 1);
        EXPECT_EQ(MirroredBitmap(once, ""), whole);
    }
}

TEST(MirroredBitmap, RefusesPicturesOfAnotherKindAndCompressedOnes) {
    const auto found = [](const Bytes &bytes) {
        const Error error = ErrorThrownBy([&] { MirroredBitmap(bytes, "map.bmp"); });
        EXPECT_EQ(error.Kind(), ErrorKind::TypeMismatch);
        EXPECT_EQ(error.File(), "map.bmp");
        return error.Found();
    };
    Bytes png = Bitmap(40, 3, 3, 8, 0, {}, threeRows);
    png[0] = 0x89;
    EXPECT_EQ(found(png), "a picture of another kind");
    EXPECT_EQ(found({}), "a picture of another kind");
    for (const std::uint32_t compression : {1U, 2U, 4U, 5U})
        EXPECT_EQ(found(Bitmap(40, 3, 3, 8, compression, {}, threeRows)), "a compressed bitmap");
    EXPECT_EQ(found(Bitmap(64, 3, 3, 8, 3, {}, threeRows)), "a compressed bitmap");
}

TEST(MirroredBitmap, ADamagedHeaderIsRefusedWithoutTouchingWhatIsNotThere) {
    std::mt19937 random(11);
    const Bytes whole = Bitmap(40, 3, 3, 8, 0, table, threeRows);
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_THROW(
            MirroredBitmap(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)), ""),
            Error)
            << length;
    for (const std::size_t field : {10U, 14U, 18U, 22U, 28U, 30U})
        for (const std::uint32_t value : {0U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
            Bytes damaged = whole;
            PutUint32(damaged, field, value);
            if ((field == 30 && value == 0) || (field == 22 && value == 0xFFFFFFFFU))
                continue;  // not compressed, as it was; a single row from the top
            EXPECT_THROW(MirroredBitmap(damaged, ""), Error) << field << ", " << value;
        }
    for (int i = 0; i < 20000; ++i) {
        Bytes damaged = whole;
        for (int k = 0; k < 3; ++k)
            damaged[random() % 54] = static_cast<std::uint8_t>(random());
        try {
            EXPECT_EQ(MirroredBitmap(damaged, "").size(), whole.size());
        } catch (const Error &) {
        }
    }
}

}  // namespace
}  // namespace vtr
