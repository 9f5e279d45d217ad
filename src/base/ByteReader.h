#pragma once

#include <algorithm>
#include <array>

#include "Bytes.h"

namespace vtr {

/// Reads a file's bytes from front to back. Bytes past the end count as zero, so that a short file loads as
/// far as it goes. Then Position() lies beyond the end and tells how long the file should have been.
class ByteReader {
  public:
    explicit ByteReader(ConstByteSpan bytes) : bytes_(bytes) {}

    std::size_t Position() const { return position_; }
    bool RanPastEnd() const { return position_ > bytes_.size(); }

    std::uint8_t Next() {
        const std::size_t at = position_++;
        return at < bytes_.size() ? bytes_[at] : std::uint8_t{0};
    }

    void Skip(std::size_t count) { position_ += count; }

    template <std::size_t Size>
    std::array<std::uint8_t, Size> Take() {
        std::array<std::uint8_t, Size> record{};
        const std::size_t start = std::min(position_, bytes_.size());
        const std::size_t held = std::min(Size, bytes_.size() - start);
        std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(start), held, record.begin());
        position_ += Size;
        return record;
    }

  private:
    ConstByteSpan bytes_;
    std::size_t position_ = 0;
};

}  // namespace vtr
