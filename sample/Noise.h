#pragma once

#include <cstdint>

namespace vtr {

/// A number that depends only on the arguments and is the same on every machine.
std::uint32_t Hash(int x, int y, std::uint32_t seed);

/// Value noise, -1024 to 1024, with hills and hollows about size pixels wide. x and y are not negative. When
/// period is not 0, the noise repeats after period pixels, a multiple of size.
int Noise(int x, int y, int size, std::uint32_t seed, int period = 0);

/// Noise of size plus half as much of half the size and so on: -2048 to 2048. x is at most 1000.
int FractalNoise(int x, int y, int size, int octaves, std::uint32_t seed);

/// A sequence of numbers that is the same on every run and every machine.
class Random {
  public:
    explicit Random(std::uint32_t seed) : seed_(seed) {}

    /// 0 to count - 1.
    int Below(int count);
    int Between(int lowest, int highest) { return lowest + Below(highest - lowest + 1); }

  private:
    std::uint32_t seed_;
    int calls_ = 0;
};

}  // namespace vtr
