#include "modPcxReader.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "Arithmetic.h"
#include "Paths.h"
#include "WholeFile.h"

namespace vtr {

namespace {

constexpr std::size_t pcxHeaderSize = 128;
constexpr std::size_t bitsPerPixelOffset = 3;
constexpr std::size_t xMinOffset = 4;
constexpr std::size_t yMinOffset = 6;
constexpr std::size_t xMaxOffset = 8;
constexpr std::size_t yMaxOffset = 10;
constexpr std::size_t planesOffset = 65;
constexpr std::size_t bytesPerLineOffset = 66;

constexpr std::size_t paletteSize = 768;
constexpr std::uint8_t paletteMarker = 12;

constexpr std::int64_t mostPixels = 64 * 1024 * 1024 / 4;
/// More than the largest picture needs: a pixel has at most 3 bytes, each at most 2 bytes in the file.
constexpr std::uintmax_t mostFileBytes = std::uintmax_t{128} * 1024 * 1024;

// A byte with both high bits set starts a run: its low six bits say how often the next byte is repeated.
constexpr std::uint8_t firstRun = 192;
// Runs are written in whole blocks. What a block writes beyond its run is overwritten by later data or lies
// in the slack behind the buffer.
constexpr int block = 16;
constexpr std::size_t slack = 32;

template <typename Value>
void WriteRun(Value *at, Value value, int count) {
    for (int done = 0; done < count; done += block)
        std::fill_n(at + done, block, value);
}

Place At(const Place &place, std::size_t offset) {
    Place there = place;
    there.offset = static_cast<std::int64_t>(offset);
    return there;
}

[[noreturn]] void ThrowOutside(const Place &place, std::size_t offset, const std::string &expected,
                               const std::string &found) {
    throw Error(ErrorKind::IndexOutOfRange, At(place, offset), expected, found);
}

std::int16_t HeaderNumber(ConstByteSpan file, std::size_t offset) {
    return static_cast<std::int16_t>(GetUint16(file, offset));
}

/// maximum - minimum + 1. The difference and the sum must fit 16 bits.
int Extent(ConstByteSpan file, std::size_t minimum, std::size_t maximum, const Place &place) {
    const Place there = At(place, maximum);
    const int between = ToInt16(HeaderNumber(file, maximum) - HeaderNumber(file, minimum), there);
    return ToInt16(between + 1, there);
}

void CheckPositive(int extent, const char *name, std::size_t offset, const Place &place) {
    if (extent < 1)
        ThrowOutside(place, offset, std::string("a ") + name + " of at least 1", std::to_string(extent));
}

struct Header {
    int width;
    int height;
    int bytesPerLine;
};

Header ReadHeader(ConstByteSpan file, const Place &place) {
    const Header header{Extent(file, xMinOffset, xMaxOffset, place),
                        Extent(file, yMinOffset, yMaxOffset, place), HeaderNumber(file, bytesPerLineOffset)};
    CheckPositive(header.height, "height", yMaxOffset, place);
    return header;
}

std::size_t PixelCount(int width, int height, const Place &place) {
    const std::int64_t count = std::int64_t{width} * height;
    if (count > mostPixels)
        throw Error(ErrorKind::Overflow, At(place, xMaxOffset), "at most 64 MiB of pixels",
                    std::to_string(width) + " x " + std::to_string(height) + " pixels of 4 bytes");
    return static_cast<std::size_t>(count);
}

using ColourTable = std::array<std::uint32_t, 256>;

PcxPalette PaletteOf(ConstByteSpan rgb) {
    PcxPalette palette;
    for (std::size_t i = 0; i < palette.colourTable.size(); ++i) {
        const std::uint8_t red = rgb[3 * i];
        const std::uint8_t green = rgb[3 * i + 1];
        const std::uint8_t blue = rgb[3 * i + 2];
        palette.colourTable[i] = red * 65536U + green * 256U + blue;
        palette.logicalPalette[i] = {.red = blue, .green = green, .blue = red};
    }
    return palette;
}

/// Decodes the rows of a one-plane picture, lineBytes pixels each, from the run-length data behind the
/// header. pixels holds only slack at first and ends in slack.
void DecodeRows(ConstByteSpan file, const Header &header, int lineBytes, const ColourTable &colours,
                std::vector<std::uint32_t> &pixels, const Place &place) {
    const int stride = ToInt16((std::int64_t{lineBytes} + 3) / 4 * 4, At(place, bytesPerLineOffset));
    std::size_t at = pcxHeaderSize;
    const auto rowSize = static_cast<std::size_t>(lineBytes);
    for (int y = 0; y < header.height; ++y) {
        const std::size_t rowStart = pixels.size() - slack;
        pixels.resize(pixels.size() + rowSize);
        std::uint32_t *const row = pixels.data() + rowStart;
        for (int x = 0; x < lineBytes;) {
            if (at >= file.size())
                ThrowOutside(place, at, "data of row " + std::to_string(y), "the end of the file");
            const std::uint8_t first = file[at];
            if (first < firstRun) {
                row[x++] = colours[first];
                ++at;
                continue;
            }
            int count = first % 64;
            // A run beyond the line's end is cut at the picture's width. An x beyond the width goes back to
            // it.
            if (x + count > lineBytes) {
                if (header.width < 0 || header.width > stride)
                    ThrowOutside(place, at, "a run that is cut at a width of 0 to " + std::to_string(stride),
                                 "a width of " + std::to_string(header.width));
                count = header.width - x;
            }
            if (count > 0) {
                if (at + 1 >= file.size())
                    ThrowOutside(place, at + 1, "the value of a run", "the end of the file");
                WriteRun(row + x, colours[file[at + 1]], count);
            }
            x += count;
            at += 2;
        }
    }
}

PcxResult Decode256Colours(ConstByteSpan file, const Place &place) {
    if (file.size() <= paletteSize)
        throw Error(ErrorKind::FileTooShort, At(place, file.size()), "at least 769 bytes",
                    std::to_string(file.size()) + " bytes");
    const std::size_t marker = file.size() - paletteSize - 1;
    if (file[marker] != paletteMarker)
        return PcxRefusal{"The PCX that was passed didn't have a 256 colour palette! Can't read it!",
                          PcxIcon::Exclamation};
    const Header header = ReadHeader(file, place);
    const int lineBytes = header.bytesPerLine;
    CheckPositive(lineBytes, "scan line", bytesPerLineOffset, place);
    const std::size_t count = PixelCount(lineBytes, header.height, place);

    PcxPicture result;
    result.palette = PaletteOf(file.subspan(marker + 1));
    ColourTable opaque = result.palette->colourTable;
    for (std::uint32_t &colour : opaque)
        colour |= 0xFF000000;
    result.picture = {lineBytes, header.height, std::vector<std::uint32_t>(slack)};
    result.picture.pixels.reserve(count + slack);
    DecodeRows(file, header, lineBytes, opaque, result.picture.pixels, place);
    result.picture.pixels.resize(count);
    return result;
}

/// Decodes the run-length data behind the header and one more byte of 0 into size bytes, regardless of scan
/// lines. Bytes that the data does not fill are 0. The result has slack behind it.
Bytes DecodePlanes(ConstByteSpan file, std::size_t size, const Place &place) {
    Bytes decoded(size + slack);
    std::size_t out = 0;
    const auto valueAt = [&file](std::size_t at) { return at < file.size() ? file[at] : std::uint8_t{0}; };
    for (std::size_t at = pcxHeaderSize; at <= file.size(); ++at) {
        std::uint8_t value = valueAt(at);
        int count = 1;
        if (value >= firstRun) {
            count = value % 64;
            value = valueAt(at + 1);
        }
        const std::size_t end = out + static_cast<std::size_t>(count);
        if (end > size)
            ThrowOutside(place, at, "at most " + std::to_string(size) + " bytes of planes",
                         std::to_string(end) + " or more");
        WriteRun(decoded.data() + out, value, count);
        out = end;
        if (valueAt(at) >= firstRun)
            ++at;
    }
    // When the data ends in a run of length 0, what the run before it wrote too far is still there.
    std::fill_n(decoded.data() + out, block, std::uint8_t{0});
    return decoded;
}

PcxResult Decode24Bits(ConstByteSpan file, const Place &place) {
    const Header header = ReadHeader(file, place);
    CheckPositive(header.width, "width", xMaxOffset, place);
    const std::size_t count = PixelCount(header.width, header.height, place);
    const std::size_t planesSize = count * 3 + 1;
    const Bytes planes = DecodePlanes(file, planesSize, place);

    // The largest index that is read or, when row 0 has negative ones, the first of these.
    const std::int64_t line = header.bytesPerLine;
    const std::int64_t last = line < 0 ? line : line * (3 * header.height - 1) + header.width - 1;
    CheckIndex(last, planesSize, At(place, bytesPerLineOffset));

    PcxPicture result;
    result.picture = {header.width, header.height, std::vector<std::uint32_t>(count)};
    const auto plane = static_cast<std::size_t>(line);
    const auto width = static_cast<std::size_t>(header.width);
    const std::uint8_t *red = planes.data();
    for (auto row = result.picture.pixels.begin(); row != result.picture.pixels.end();
         row += header.width, red += 3 * plane) {
        for (std::size_t x = 0; x < width; ++x)
            row[static_cast<std::ptrdiff_t>(x)] =
                0xFF000000 | red[x] * 65536U | red[plane + x] * 256U | red[2 * plane + x];
    }
    return result;
}

}  // namespace

PcxResult DecodePcx(ConstByteSpan file, const Place &place) {
    if (file.size() < pcxHeaderSize)
        throw Error(ErrorKind::FileTooShort, At(place, file.size()), "a header of 128 bytes",
                    std::to_string(file.size()) + " bytes");
    if (file[bitsPerPixelOffset] != 8)
        return PcxRefusal{"Sorry, can't load that pcx file!"};
    switch (file[planesOffset]) {
        case 1:
            return Decode256Colours(file, place);
        case 3:
            return Decode24Bits(file, place);
        default:
            return PcxRefusal{};
    }
}

PcxResult LoadPcx(const std::string &path) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(FilesystemPath(PathOnDisk(path)), error);
    if (!error && size > mostFileBytes)
        throw Error(ErrorKind::Overflow, {.file = path}, "a file of at most 128 MiB",
                    std::to_string(size) + " bytes");
    return DecodePcx(ReadWholeFile(path), {.file = path});
}

}  // namespace vtr
