#pragma once

#include <random>

#include "Campaign.h"

namespace vtr {

/// Fills the targets, their fine offsets and names, and the airfields with values that are all allowed and
/// that the game's files can hold.
void FillWithRandomTables(Campaign &campaign, std::mt19937 &random);

/// Fills the railway lines, their fine offsets and the frontlines, all of them to the last point.
void FillWithRandomLines(Campaign &campaign, std::mt19937 &random);
/// Fills the road and railway paths, which are only read.
void FillWithRandomPaths(Campaign &campaign, std::mt19937 &random);

/// What a slot's points behind its real ones read as: the end marker, then zero bytes.
constexpr FrontlinePoint markerPoint{159, 1759, 0};
constexpr FrontlinePoint zeroPoint{160, 1760, 0};
/// Puts those behind the first count points.
void EndFrontline(Frontline &frontline, std::size_t count);
/// Ends the railway lines and the frontlines so that they survive being written and read: no slot but the
/// last is full.
void EndLinesAtRandom(Campaign &campaign, std::mt19937 &random);

}  // namespace vtr
