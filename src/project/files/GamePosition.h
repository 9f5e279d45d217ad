#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "Bytes.h"
#include "Errors.h"

namespace vtr {

enum class Axis { X, Y };

/// A position on one axis as the game's files hold it: f0, f1, c0, c1, a 32-bit little-endian number whose
/// upper half counts quarter tiles.
constexpr std::size_t gamePositionSize = 4;
/// The edge of a terrain tile, which the map shows as one pixel.
constexpr int tileMetres = 4100;

/// The map pixel of a game position. Throws an overflow Error where the upper half plus the axis's origin
/// leaves 16 bits.
std::int16_t PixelOfGamePosition(Axis axis, std::span<const std::uint8_t, gamePositionSize> bytes,
                                 const Place &place = {});
/// The offset within the tile, 0 to below 4100 metres.
double FineOffsetOfGamePosition(Axis axis, std::span<const std::uint8_t, gamePositionSize> bytes);

/// The upper half that a pixel is stored as. Throws an overflow Error where an intermediate leaves 16 bits.
std::uint16_t StoredUpperHalf(Axis axis, std::int16_t pixel, const Place &place = {});

/// Writes the position of a pixel and its fine offset in metres. Throws overflow Errors.
void EncodeGamePosition(Axis axis, std::int16_t pixel, double fineOffset,
                        std::span<std::uint8_t, gamePositionSize> bytes, const Place &place = {});

/// first + 256 * second, but 0 for the pair 255, 255, which the game reads as "none".
std::uint16_t TwoByteValue(std::uint8_t first, std::uint8_t second);

}  // namespace vtr
