#pragma once

#include <random>

#include "Campaign.h"

namespace vtr {

/// Fills the railway lines, their fine offsets and the frontlines with values that are all allowed and that
/// survive being written and read: no slot but the last is full.
void FillWithRandomLines(Campaign &campaign, std::mt19937 &random);

/// Metres that a file can hold.
double RandomFineOffset(std::mt19937 &random);

/// What a slot's points behind its real ones read as: the end marker, then zero bytes.
constexpr FrontlinePoint markerPoint{159, 1759, 0};
constexpr FrontlinePoint zeroPoint{160, 1760, 0};
/// Puts those behind the first count points.
void EndFrontline(Frontline &frontline, std::size_t count);

}  // namespace vtr
