#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vtr {

using Bytes = std::vector<std::uint8_t>;
using ByteSpan = std::span<std::uint8_t>;
using ConstByteSpan = std::span<const std::uint8_t>;

/// The 16-bit little-endian number at offset; the caller knows that both bytes are there.
constexpr std::uint16_t GetUint16(ConstByteSpan bytes, std::size_t offset) {
    return static_cast<std::uint16_t>(bytes[offset] | (bytes[offset + 1] << 8));
}

constexpr std::uint64_t GetUint64(ConstByteSpan bytes, std::size_t offset) {
    const auto part = [&](std::size_t i) {
        return std::uint64_t{GetUint16(bytes, offset + 2 * i)} << 16 * i;
    };
    return part(0) | part(1) | part(2) | part(3);
}

constexpr void PutUint16(ByteSpan bytes, std::size_t offset, std::uint16_t value) {
    bytes[offset] = static_cast<std::uint8_t>(value & 0xFF);
    bytes[offset + 1] = static_cast<std::uint8_t>(value >> 8);
}

constexpr void PutUint32(ByteSpan bytes, std::size_t offset, std::uint32_t value) {
    PutUint16(bytes, offset, static_cast<std::uint16_t>(value & 0xFFFF));
    PutUint16(bytes, offset + 2, static_cast<std::uint16_t>(value >> 16));
}

}  // namespace vtr
