#include "MapPictureFile.h"

#include <QBuffer>
#include <QImageReader>
#include <algorithm>
#include <cstdlib>

#include "Errors.h"
#include "WholeFile.h"

namespace vtr {

namespace {

constexpr std::int64_t mostPixels = 256'000'000;
/// The largest picture, uncompressed, and what may stand before it.
constexpr std::size_t mostBytes = std::size_t{4} * mostPixels + (1U << 16);
/// Enough to tell what picture it is, and in nearly every format its size.
constexpr std::size_t headSize = 1U << 16;

enum BitmapOffset : std::size_t {
    pixelsAt = 10,
    infoSize = 14,  // of the header that starts here
    imageWidth = 18,
    imageHeight = 22,  // below 0 when the top row comes first
    bitsPerPixel = 28,
    compression = 30,
    coloursUsed = 46,
    infoEnd = 54
};

std::int64_t Int32At(ConstByteSpan bytes, std::size_t offset) {
    return static_cast<std::int32_t>(GetUint16(bytes, offset) |
                                     (std::uint32_t{GetUint16(bytes, offset + 2)} << 16));
}

/// Where the pixels of an uncompressed bitmap start and end, as its header says; 0 for anything else.
struct PixelRange {
    std::size_t start = 0;
    std::size_t end = 0;
};

PixelRange PixelsOfBitmap(ConstByteSpan head) {
    constexpr int plain = 0;
    constexpr int plainWithMasks = 3;
    if (head.size() < infoEnd || head[0] != 'B' || head[1] != 'M' || Int32At(head, infoSize) < 40)
        return {};
    const std::int64_t kind = Int32At(head, compression);
    const std::int64_t width = Int32At(head, imageWidth);
    const std::int64_t height = std::abs(Int32At(head, imageHeight));
    const std::int64_t bits = GetUint16(head, bitsPerPixel);
    if ((kind != plain && kind != plainWithMasks) || bits > 32 || width <= 0 || height == 0 ||
        width > mostPixels / height)
        return {};
    const std::int64_t info = Int32At(head, infoSize);
    const std::int64_t named = Int32At(head, coloursUsed);
    const std::int64_t colours = bits > 8     ? 0
                                 : named != 0 ? std::clamp<std::int64_t>(named, 0, 256)
                                              : 1 << bits;
    const std::int64_t masks = kind == plainWithMasks && info == 40 ? 12 : 0;
    // The reader does not believe in pixels that start before the colour table ends.
    const std::int64_t tableEnd = static_cast<std::int64_t>(infoSize) + info + 4 * colours + masks;
    const std::int64_t start = std::max(Int32At(head, pixelsAt), tableEnd);
    if (start > std::int64_t{headSize})
        return {};
    const std::int64_t bytesPerRow = (width * bits + 31) / 32 * 4;
    return {static_cast<std::size_t>(start), static_cast<std::size_t>(start + height * bytesPerRow)};
}

/// A reader of the picture in bytes, which must live as long.
struct PictureReader {
    explicit PictureReader(const Bytes &bytes)
        : held(QByteArray::fromRawData(reinterpret_cast<const char *>(bytes.data()),
                                       static_cast<qsizetype>(bytes.size()))) {
        qt.setDecideFormatFromContent(true);
        QImageReader::setAllocationLimit(0);  // the number of pixels is limited here
    }

    QByteArray held;
    QBuffer buffer{&held};
    QImageReader qt{&buffer};
};

void RefuseTooManyPixels(QSize size, const std::string &path) {
    if (std::int64_t{size.width()} * size.height() > mostPixels)
        throw Error(ErrorKind::FileTooLarge, {.file = path}, "a picture of at most 256 megapixels",
                    std::to_string(size.width()) + " x " + std::to_string(size.height()) + " pixels");
}

/// As much of the file as its picture can need.
Bytes ReadPictureBytes(const std::string &path, std::optional<ShortFile> *shortFile) {
    Bytes head = ReadStartOfFile(path, headSize);
    const PictureReader reader(head);
    if (!reader.qt.canRead())
        return head;
    RefuseTooManyPixels(reader.qt.size(), path);
    const PixelRange pixels = PixelsOfBitmap(head);
    Bytes bytes = ReadStartOfFile(path, pixels.end != 0 ? pixels.end : mostBytes);
    if (bytes.size() >= pixels.start && bytes.size() < pixels.end) {
        if (shortFile != nullptr)
            *shortFile = {path, bytes.size(), pixels.end};
        // Qt would show whatever lay in memory.
        bytes.resize(pixels.end);
    }
    return bytes;
}

}  // namespace

Picture ReadMapPicture(const std::string &path, std::optional<ShortFile> *shortFile) {
    const Bytes bytes = ReadPictureBytes(path, shortFile);
    PictureReader reader(bytes);
    RefuseTooManyPixels(reader.qt.size(), path);
    const QImage image = reader.qt.read().convertToFormat(QImage::Format_RGB32);
    if (image.isNull())
        throw Error(ErrorKind::FileAccess, {.file = path}, "a picture (a bitmap file, *.bmp)",
                    reader.qt.errorString().toStdString());

    Picture picture{image.width(), image.height(), {}};
    picture.pixels.reserve(static_cast<std::size_t>(image.width()) *
                           static_cast<std::size_t>(image.height()));
    for (int row = 0; row < image.height(); ++row) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(row));
        picture.pixels.insert(picture.pixels.end(), line, line + image.width());
    }
    return picture;
}

}  // namespace vtr
