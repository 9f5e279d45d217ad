#pragma once

#include <cstdint>
#include <vector>

namespace vtr {

/// A picture in memory: height rows of width pixels, row 0 on top, each pixel 0xFFRRGGBB.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    bool Empty() const { return pixels.empty(); }
};

}  // namespace vtr
