#pragma once

#include <cmath>

#include "Picture.h"

namespace vtr {

template <typename AnyPicture>
auto &PixelAt(AnyPicture &picture, int x, int y) {
    return picture.pixels[std::size_t(y) * std::size_t(picture.width) + std::size_t(x)];
}

/// Turns a picture pixel by pixel by the trigonometry of the definition. RotatePicture must agree with it.
inline void RotatePlainly(const Picture &source, Picture &destination, double angle) {
    const auto copy = [&](int toX, int toY, int fromX, int fromY) {
        const bool valid = fromX >= 0 && fromY >= 0 && fromX < source.width && fromY < source.height;
        const bool inside = toX >= 0 && toY >= 0 && toX < destination.width && toY < destination.height;
        if (valid && inside)
            PixelAt(destination, toX, toY) = PixelAt(source, fromX, fromY);
    };
    const int scx = source.width / 2;
    const int scy = source.height / 2;
    const int dcx = destination.width / 2;
    const int dcy = destination.height / 2;
    const int half = dcx > dcy ? dcx : dcy;
    for (int a = 0; a < half; ++a) {
        for (int b = 0; b < half; ++b) {
            const double phi = a == 0 ? 3.14159265359 / 2 : std::atan(double(b) / double(a));
            const double r = std::nearbyint(std::sqrt(double(a * a + b * b)));  // ties to even by default
            const int sx = int(std::nearbyint(r * std::cos(phi + angle)));
            const int sy = int(std::nearbyint(r * std::sin(phi + angle)));
            copy(dcx + a, dcy + b, scx + sx, scy + sy);
            copy(dcx - a, dcy - b, scx - sx, scy - sy);
            copy(dcx + b, dcy - a, scx + sy, scy - sx);
            copy(dcx - b, dcy + a, scx - sy, scy + sx);
        }
    }
}

}  // namespace vtr
