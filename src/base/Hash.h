#pragma once

#include "Bytes.h"

namespace vtr {

/// The 64-bit FNV-1a hash of bytes (Fowler, Noll and Vo): tells whether bytes have changed by accident; it
/// keeps out nobody who wants to deceive.
constexpr std::uint64_t HashOf(ConstByteSpan bytes) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const std::uint8_t byte : bytes)
        hash = (hash ^ byte) * 0x100000001b3;
    return hash;
}

}  // namespace vtr
