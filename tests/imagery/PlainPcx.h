#pragma once

#include <cstdint>
#include <stdexcept>
#include <vector>

namespace vtr {

/// A PCX picture decoded in the plainest way, byte by byte into buffers that check each access. DecodePcx
/// must agree with it. Throws std::overflow_error, std::out_of_range and, for a file too short for its header
/// or palette, std::length_error.
class PlainPcx {
  public:
    explicit PlainPcx(std::vector<std::uint8_t> file) : file_(std::move(file)) {
        if (file_.size() < 128)
            throw std::length_error("header");
        if (file_[3] == 8 && file_[65] == 1)
            DecodeOnePlane();
        else if (file_[3] == 8 && file_[65] == 3)
            DecodeThreePlanes();
    }

    /// False when the file was refused.
    bool decoded = false;
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

  private:
    int Signed16(std::size_t at) const {
        const int value = file_[at] + 256 * file_[at + 1];
        return value > 32767 ? value - 65536 : value;
    }

    static int Fits16(int value) {
        if (value < -32768 || value > 32767)
            throw std::overflow_error("16 bits");
        return value;
    }

    static void CheckBuffer(int columns, int rows) {
        if (columns < 1 || rows < 1)
            throw std::out_of_range("an empty buffer");
        if (std::int64_t{columns} * rows * 4 > 67108864)
            throw std::overflow_error("64 MiB");
    }

    int Encoded(std::size_t at) const { return file_.at(128 + at); }

    void DecodeOnePlane() {
        if (file_.size() < 769)
            throw std::length_error("palette");
        if (file_[file_.size() - 769] != 12)
            return;
        const int imageWidth = Fits16(Fits16(Signed16(8) - Signed16(4)) + 1);
        height = Fits16(Fits16(Signed16(10) - Signed16(6)) + 1);
        width = Signed16(66);
        CheckBuffer(width, height);
        int stride = width;
        while (stride % 4 != 0)
            stride = Fits16(stride + 1);
        std::size_t p = 0;
        for (int y = 0; y < height; ++y) {
            std::vector<int> row(static_cast<std::size_t>(stride));
            int x = 0;
            while (x < width) {
                const int b = Encoded(p);
                if ((b & 192) != 192) {
                    row.at(static_cast<std::size_t>(x)) = b;
                    x += 1;
                    p += 1;
                } else {
                    int count = b & 63;
                    if (x + count > width)
                        count = imageWidth - x;
                    for (int i = 0; i < count; ++i)
                        row.at(static_cast<std::size_t>(x + i)) = Encoded(p + 1);
                    x += count;
                    p += 2;
                }
            }
            for (int column = 0; column < width; ++column) {
                const std::size_t entry =
                    file_.size() - 768 + 3 * static_cast<std::size_t>(row[static_cast<std::size_t>(column)]);
                AddPixel(file_[entry], file_[entry + 1], file_[entry + 2]);
            }
        }
        decoded = true;
    }

    void DecodeThreePlanes() {
        width = Fits16(Fits16(Signed16(8) - Signed16(4)) + 1);
        height = Fits16(Fits16(Signed16(10) - Signed16(6)) + 1);
        CheckBuffer(width, height);
        std::vector<int> encoded(file_.begin() + 128, file_.end());
        encoded.push_back(0);
        std::vector<std::uint8_t> planes(
            static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3 + 1);
        std::size_t o = 0;
        for (std::size_t p = 0; p < encoded.size(); ++p) {
            const int b = encoded[p];
            if ((b & 192) == 192) {
                // A run without a byte behind it repeats the zero behind the data.
                const int value = p + 1 < encoded.size() ? encoded[p + 1] : 0;
                for (int i = 0; i < (b & 63); ++i)
                    planes.at(o++) = static_cast<std::uint8_t>(value);
                ++p;
            } else {
                planes.at(o++) = static_cast<std::uint8_t>(b);
            }
        }
        const int line = Signed16(66);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const std::int64_t base = std::int64_t{line} * y * 3 + x;
                const auto part = [&](int plane) {
                    return planes.at(static_cast<std::size_t>(base + std::int64_t{plane} * line));
                };
                const int red = part(0);
                const int green = part(1);
                AddPixel(red, green, part(2));
            }
        decoded = true;
    }

    void AddPixel(int red, int green, int blue) {
        pixels.push_back(0xFF000000U + static_cast<std::uint32_t>(red * 65536 + green * 256 + blue));
    }

    std::vector<std::uint8_t> file_;
};

}  // namespace vtr
