#include "Noise.h"

namespace vtr {

namespace {

int LatticeValue(int x, int y, std::uint32_t seed) {
    return static_cast<int>(Hash(x, y, seed) & 0x7FF) - 1024;
}

int Blend(int from, int to, int share) {
    return from + (to - from) * share / 1024;
}

// 0 to 1024 along a cell of the lattice, without a kink at its ends: 3t^2 - 2t^3.
int Smooth(int position, int size) {
    const int t = position * 1024 / size;
    return t * t / 1024 * (3072 - 2 * t) / 1024;
}

}  // namespace

std::uint32_t Hash(int x, int y, std::uint32_t seed) {
    std::uint32_t hash = static_cast<std::uint32_t>(x) * 0x8DA6B343U ^
                         static_cast<std::uint32_t>(y) * 0xD8163841U ^ seed * 0xCB1AB31FU;
    hash = (hash ^ (hash >> 15)) * 0x2C1B3C6DU;
    hash = (hash ^ (hash >> 12)) * 0x297A2D39U;
    return hash ^ (hash >> 15);
}

int Noise(int x, int y, int size, std::uint32_t seed, int period) {
    const int column = x / size;
    const int row = y / size;
    const int nextColumn = period != 0 ? (column + 1) % (period / size) : column + 1;
    const int nextRow = period != 0 ? (row + 1) % (period / size) : row + 1;
    const int across = Smooth(x % size, size);
    const int down = Smooth(y % size, size);
    const int above = Blend(LatticeValue(column, row, seed), LatticeValue(nextColumn, row, seed), across);
    const int below =
        Blend(LatticeValue(column, nextRow, seed), LatticeValue(nextColumn, nextRow, seed), across);
    return Blend(above, below, down);
}

int FractalNoise(int x, int y, int size, int octaves, std::uint32_t seed) {
    // Turns the noise by the angle of the 3-4-5 triangle, so that no hill or coast follows rows or columns.
    const int across = 4 * x + 3 * y;
    const int down = 4 * y - 3 * x + 5000;
    int sum = 0;
    for (int octave = 0; octave < octaves; ++octave)
        sum += Noise(across, down, 5 * size >> octave, seed + static_cast<std::uint32_t>(octave)) /
               (1 << octave);
    return sum;
}

int Random::Below(int count) {
    return static_cast<int>(Hash(calls_++, 0, seed_) % static_cast<std::uint32_t>(count));
}

}  // namespace vtr
