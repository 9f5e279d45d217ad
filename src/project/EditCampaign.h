#pragma once

#include "Campaign.h"
#include "Differences.h"
#include "GamePosition.h"

namespace vtr {

// The user's changes to one item. Each throws an index Error for an item that does not exist and an overflow
// Error for a number that the field cannot hold. Then it changes nothing.

void SetTargetPixel(Campaign &campaign, int target, Axis axis, int pixel);
void SetTargetFineOffset(Campaign &campaign, int target, Axis axis, int metres);
void SetTargetCount(Campaign &campaign, int target, int count);
void SetTargetIsAirfield(Campaign &campaign, int target, bool isAirfield);

/// True when the target may get the name: the names file has room for it, or it is no longer than the old
/// one.
bool TargetNameFits(const Campaign &campaign, int target, std::string_view name);
/// Renames the name entry of the target, and with it every target that refers to the same entry.
void RenameTarget(Campaign &campaign, int target, const std::string &name);
/// The rows that renaming the target changes.
std::vector<TableRows> RowsOfTargetName(const Campaign &campaign, int target);

/// year counts 0 to 3 as in airfieldYears.
void SetAirfieldModel(Campaign &campaign, int airfield, std::size_t year, int model);
void SetAirfieldYearSlot(Campaign &campaign, int airfield, std::size_t year, const AirfieldYearSlot &slot);
void SetAirfieldExtraWord(Campaign &campaign, int airfield, int word);
void SetAirfieldCountry(Campaign &campaign, int airfield, std::uint8_t country);

void SetFrontlinePixel(Campaign &campaign, int slot, int point, Axis axis, int pixel);
void SetFrontlinePointOnMap(Campaign &campaign, int slot, int point, bool onMap);
/// Copies all points of a slot into every slot.
void CopyFrontlineIntoAllSlots(Campaign &campaign, int slot);

/// The four coordinates of a railway line: indexes in the order of the file and of a line's fineOffsets.
enum RailwayCoordinate : std::size_t { X1, X2, Y1, Y2 };
constexpr std::array<std::int16_t RailwayLine::*, 4> railwayPixels{&RailwayLine::x1, &RailwayLine::x2,
                                                                   &RailwayLine::y1, &RailwayLine::y2};

void SetRailwayPixel(Campaign &campaign, int line, RailwayCoordinate coordinate, int pixel);
void SetRailwayFineOffset(Campaign &campaign, int line, RailwayCoordinate coordinate, int metres);
/// Sets both ends of line and every later line to 0 and remembers line as the first disabled one. The fine
/// offsets stay.
void DisableRailwayFrom(Campaign &campaign, int line);
/// Forgets which line was the first disabled one. The lines stay at 0.
void EnableRailway(Campaign &campaign);

}  // namespace vtr
