#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace vtr {

using ColourVector = std::array<double, 3>;
using ColourMatrix = std::array<ColourVector, 3>;

constexpr ColourVector operator*(const ColourMatrix &matrix, const ColourVector &vector) {
    ColourVector product{};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            product[i] += matrix[i][j] * vector[j];
    return product;
}

/// Who sees: everybody, and those who lack the long, the middle or the short cones (protanopia, deuteranopia,
/// tritanopia). The matrices act on linear RGB. They are those of severity 1.0 in G. M. Machado,
/// M. M. Oliveira, L. A. F. Fernandes, "A Physiologically-based Model for Simulation of Color Vision
/// Deficiency", IEEE Transactions on Visualization and Computer Graphics 15 (6), 2009.
constexpr std::array<ColourMatrix, 4> eyes{
    {{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},
     {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}},
     {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}},
     {{{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}}}};

/// A colour (red + 256 * green + 65536 * blue, sRGB of IEC 61966-2-1) as those eyes see it, in CIE XYZ for
/// the white of D65, whose Y is 1.
inline ColourVector SeenColour(std::int32_t colour, const ColourMatrix &eye) {
    const auto linear = [](int part) {
        const double value = part / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    ColourVector rgb =
        eye * ColourVector{linear(colour & 255), linear(colour >> 8 & 255), linear(colour >> 16)};
    for (double &part : rgb)
        part = std::clamp(part, 0.0, 1.0);
    constexpr ColourMatrix xyz{{{0.4124564, 0.3575761, 0.1804375},
                                {0.2126729, 0.7151522, 0.0721750},
                                {0.0193339, 0.1191920, 0.9503041}}};
    return xyz * rgb;
}

/// The same in CIE 1976 L*a*b*.
inline ColourVector Lab(std::int32_t colour, const ColourMatrix &eye) {
    const ColourVector xyz = SeenColour(colour, eye);
    const auto f = [](double t) { return t > 216.0 / 24389 ? std::cbrt(t) : (24389.0 / 27 * t + 16) / 116; };
    const double y = f(xyz[1]);
    return {116 * y - 16, 500 * (f(xyz[0] / 0.95047) - y), 200 * (y - f(xyz[2] / 1.08883))};
}

/// How far apart two colours are to those eyes (CIE 1976). About 2.3 is the least that is noticed at all.
inline double Difference(std::int32_t a, std::int32_t b, const ColourMatrix &eye) {
    const ColourVector p = Lab(a, eye);
    const ColourVector q = Lab(b, eye);
    return std::hypot(p[0] - q[0], p[1] - q[1], p[2] - q[2]);
}

/// How much lighter the lighter of two colours is to those eyes: 1 (equally light) to 21 (black and white).
/// The formula is that of the Web Content Accessibility Guidelines 2.1.
inline double LuminanceContrast(std::int32_t a, std::int32_t b, const ColourMatrix &eye) {
    const double p = SeenColour(a, eye)[1];
    const double q = SeenColour(b, eye)[1];
    return (std::max(p, q) + 0.05) / (std::min(p, q) + 0.05);
}

/// What figure is at least for nineteen colours in twenty.
template <typename Figure>
double FigureOfMost(const std::vector<std::int32_t> &colours, Figure figure) {
    std::vector<double> figures;
    figures.reserve(colours.size());
    for (const std::int32_t colour : colours)
        figures.push_back(figure(colour));
    const auto twentieth = figures.begin() + static_cast<std::ptrdiff_t>(figures.size() / 20);
    std::nth_element(figures.begin(), twentieth, figures.end());
    return *twentieth;
}

/// The difference of a colour from all of the ground's but the twentieth of them that is most like it.
inline double DifferenceFromMost(const std::vector<std::int32_t> &ground, std::int32_t colour,
                                 const ColourMatrix &eye) {
    return FigureOfMost(ground, [&](std::int32_t kind) { return Difference(kind, colour, eye); });
}

/// The contrast of a colour to all of the ground's but the twentieth of them that is as light as it is.
inline double ContrastToMost(const std::vector<std::int32_t> &ground, std::int32_t colour,
                             const ColourMatrix &eye) {
    return FigureOfMost(ground, [&](std::int32_t kind) { return LuminanceContrast(kind, colour, eye); });
}

}  // namespace vtr
