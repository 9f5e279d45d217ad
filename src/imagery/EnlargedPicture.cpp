#include "EnlargedPicture.h"

#include <algorithm>

#include "Arithmetic.h"

namespace vtr {

int EnlargedAxis::PixelAt(int screenPixel) const {
    // A middle that lies just between two pixels must not fall to one here and to the other there.
    constexpr double rounding = 1e-6;
    return FloorToInt32((screenPixel + 0.5 - start) / size + rounding);
}

std::vector<int> EnlargedAxis::PixelsFrom(int first, int count, int total) const {
    std::vector<int> pixels;
    pixels.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        pixels.push_back(std::clamp(PixelAt(first + i), 0, total - 1));
    return pixels;
}

void EnlargePicture(const Picture &picture, std::span<const int> columns, std::span<const int> rows,
                    std::span<std::uint32_t> enlarged) {
    auto out = enlarged.begin();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto width = static_cast<std::ptrdiff_t>(columns.size());
        if (i > 0 && rows[i] == rows[i - 1]) {
            out = std::copy_n(out - width, width, out);
            continue;
        }
        const std::uint32_t *const row =
            picture.pixels.data() + std::ptrdiff_t{rows[i]} * std::ptrdiff_t{picture.width};
        out = std::ranges::transform(columns, out, [row](int column) { return row[column]; }).out;
    }
}

}  // namespace vtr
