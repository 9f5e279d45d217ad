#pragma once

#include <gtest/gtest.h>

#include <algorithm>

#include "modPcxReader.h"

// PCX files made byte by byte, and the results of decoding them.

namespace vtr {

struct Head {
    int xMin = 0;
    int yMin = 0;
    int xMax = 0;
    int yMax = 0;
    int planes = 1;
    int bytesPerLine = 0;
    int bitsPerPixel = 8;
};

/// A header of 128 bytes with data behind it.
inline Bytes Pcx(const Head &head, const Bytes &data) {
    Bytes file(128 + data.size());
    const auto put = [&file](std::size_t at, int value) {
        file[at] = static_cast<std::uint8_t>(value & 0xFF);
        file[at + 1] = static_cast<std::uint8_t>((value >> 8) & 0xFF);
    };
    file[0] = 10;
    file[1] = 5;
    file[2] = 1;
    file[3] = static_cast<std::uint8_t>(head.bitsPerPixel);
    put(4, head.xMin);
    put(6, head.yMin);
    put(8, head.xMax);
    put(10, head.yMax);
    file[65] = static_cast<std::uint8_t>(head.planes);
    put(66, head.bytesPerLine);
    std::copy(data.begin(), data.end(), file.begin() + 128);
    return file;
}

/// The same with a palette behind the data in which entry i is (i, 2 i, 255 - i).
inline Bytes PcxOf256Colours(const Head &head, const Bytes &data) {
    Bytes file = Pcx(head, data);
    file.push_back(12);
    for (int i = 0; i < 256; ++i)
        for (const int part : {i, 2 * i, 255 - i})
            file.push_back(static_cast<std::uint8_t>(part & 0xFF));
    return file;
}

/// Which palette entry a pixel shows.
inline int Entry(std::uint32_t pixel) {
    return static_cast<int>((pixel >> 16) & 0xFF);
}

inline std::vector<int> Entries(const PcxResult &result) {
    std::vector<int> entries;
    for (const std::uint32_t pixel : std::get<PcxPicture>(result).picture.pixels)
        entries.push_back(Entry(pixel));
    return entries;
}

inline void ExpectError(const Bytes &file, ErrorKind kind, std::int64_t offset) {
    try {
        DecodePcx(file, {.file = "tile.pcx"});
        FAIL() << "no error";
    } catch (const Error &error) {
        EXPECT_EQ(error.Kind(), kind) << error.what();
        EXPECT_EQ(error.Offset(), offset) << error.what();
        EXPECT_EQ(error.File(), "tile.pcx");
    }
}

inline void ExpectRefusal(const Bytes &file, std::string_view message, PcxIcon icon) {
    const PcxResult result = DecodePcx(file);
    ASSERT_TRUE(std::holds_alternative<PcxRefusal>(result));
    EXPECT_EQ(std::get<PcxRefusal>(result).message, message);
    EXPECT_EQ(std::get<PcxRefusal>(result).icon, icon);
}

constexpr Head fourByTwo{.xMax = 3, .yMax = 1, .bytesPerLine = 4};

}  // namespace vtr
