#include "MapPictureFile.h"

#include <QImageReader>
#include <algorithm>
#include <cstdlib>

#include "BitmapHeader.h"
#include "Errors.h"
#include "WholeFile.h"

namespace vtr {

namespace {

constexpr std::int64_t mostPixels = 256'000'000;
/// The size of the largest picture without compression, headers included.
constexpr std::size_t mostBytes = std::size_t{4} * mostPixels + (1U << 16);
/// The start of a file that tells its format and, in nearly every format, its size.
constexpr std::size_t headSize = 1U << 16;

/// Where the pixels of an uncompressed bitmap start and end according to its header. 0 for other files.
struct PixelRange {
    std::size_t start = 0;
    std::size_t end = 0;
};

PixelRange PixelsOfBitmap(ConstByteSpan head) {
    constexpr int plain = 0;
    constexpr int plainWithMasks = 3;
    const std::optional<BitmapHeader> header = ReadBitmapHeader(head);
    if (!header)
        return {};
    const std::int64_t kind = header->compression;
    const std::int64_t bits = header->bits;
    const std::int64_t height = std::abs(header->rows);
    if ((kind != plain && kind != plainWithMasks) || bits > 32 || header->columns <= 0 || height == 0 ||
        header->columns > mostPixels / height)
        return {};
    const std::int64_t named = header->coloursUsed;
    const std::int64_t colours = bits > 8     ? 0
                                 : named != 0 ? std::clamp<std::int64_t>(named, 0, 256)
                                              : 1 << bits;
    const std::int64_t bytesPerColour = header->size == 12 ? 3 : 4;
    const std::int64_t masks = kind == plainWithMasks && header->size == 40 ? 12 : 0;
    // Qt's reader never takes the pixels from before the end of the colour table.
    const std::int64_t tableEnd = bitmapInfoStart + header->size + bytesPerColour * colours + masks;
    const std::int64_t start = std::max(header->pixelStart, tableEnd);
    if (start > std::int64_t{headSize})
        return {};
    return {static_cast<std::size_t>(start),
            static_cast<std::size_t>(start + height * header->BytesPerRow())};
}

/// The bytes of a picture. It notes when the reader asks for more bytes than there are.
class PictureBytes : public QIODevice {
  public:
    explicit PictureBytes(const Bytes &bytes) : bytes_(bytes) { open(ReadOnly | Unbuffered); }

    qint64 size() const override { return static_cast<qint64>(bytes_.size()); }
    bool seek(qint64 position) override {
        position_ = position;
        return QIODevice::seek(position);
    }
    bool MoreWasWanted() const { return moreWasWanted_; }

  protected:
    qint64 readData(char *data, qint64 most) override {
        const qint64 count = std::clamp<qint64>(size() - position_, 0, most);
        moreWasWanted_ = moreWasWanted_ || (count == 0 && most > 0);
        std::copy_n(bytes_.data() + position_, count, data);
        position_ += count;
        return count;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

  private:
    const Bytes &bytes_;
    qint64 position_ = 0;
    bool moreWasWanted_ = false;
};

/// Reads the picture in bytes, which must outlive it.
struct PictureReader {
    explicit PictureReader(const Bytes &bytes) : device(bytes) {
        qt.setDecideFormatFromContent(true);
        QImageReader::setAllocationLimit(0);  // the number of pixels is limited here
    }

    PictureBytes device;
    QImageReader qt{&device};
};

void RefuseTooManyPixels(QSize size, const std::string &path) {
    if (std::int64_t{size.width()} * size.height() > mostPixels)
        throw Error(ErrorKind::FileTooLarge, {.file = path}, "a picture of at most 256 megapixels",
                    std::to_string(size.width()) + " x " + std::to_string(size.height()) + " pixels");
}

/// The bytes of the file that its picture can need.
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
        // Qt would not clear the missing pixels.
        bytes.resize(pixels.end);
    }
    return bytes;
}

}  // namespace

Picture ReadMapPicture(const std::string &path, std::optional<ShortFile> *shortFile) {
    const Bytes bytes = ReadPictureBytes(path, shortFile);
    PictureReader reader(bytes);
    RefuseTooManyPixels(reader.qt.size(), path);
    // The reader of XPM asks for more bytes even when the picture is complete.
    const bool refusesShortFiles = reader.qt.format() == "xpm";
    // Some readers do not write the missing pixels.
    QImage image(reader.qt.size(), reader.qt.imageFormat());
    image.fill(0);
    if (!reader.qt.read(&image))
        throw Error(ErrorKind::FileAccess, {.file = path}, "a picture (a bitmap file, *.bmp)",
                    reader.qt.errorString().toStdString());
    if (shortFile != nullptr && !*shortFile && reader.device.MoreWasWanted() && !refusesShortFiles)
        *shortFile = {path, bytes.size(), 0};
    image.convertTo(QImage::Format_RGB32);

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
