#include "MapPictureFile.h"

#include <QBuffer>
#include <QImageReader>

#include "Errors.h"
#include "WholeFile.h"

namespace vtr {

Picture ReadMapPicture(const std::string &path) {
    const Bytes bytes = ReadWholeFile(path);
    QByteArray held = QByteArray::fromRawData(reinterpret_cast<const char *>(bytes.data()),
                                              static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&held);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    const QImage image = reader.read().convertToFormat(QImage::Format_RGB32);
    if (image.isNull())
        throw Error(ErrorKind::FileAccess, {.file = path}, "a picture (a bitmap file, *.bmp)",
                    reader.errorString().toStdString());

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
