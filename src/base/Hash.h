#pragma once

#include "Bytes.h"

namespace vtr {

/// A 64-bit hash of bytes: tells whether they have changed by accident; it keeps out nobody who wants to
/// deceive. Like FNV-1a (Fowler, Noll and Vo), but eight bytes at a time, and each step folds the upper half,
/// which a multiplication never carries downwards, into the lower.
constexpr std::uint64_t HashOf(ConstByteSpan bytes) {
    std::uint64_t hash = 0xcbf29ce484222325 ^ bytes.size();
    const auto add = [&hash](std::uint64_t word) {
        hash = (hash ^ word) * 0x100000001b3;
        hash ^= hash >> 32;
    };
    for (; bytes.size() >= 8; bytes = bytes.subspan(8))
        add(GetUint64(bytes, 0));
    for (const std::uint8_t byte : bytes)
        add(byte);
    return hash;
}

}  // namespace vtr
