#pragma once

#include <optional>
#include <string>

#include "Campaign.h"

namespace vtr {

// What a player would like to know of an item beside its fields, in a few words for the user (UTF-8, without
// a full stop). Empty when there is nothing to say.

/// "Name shared with targets 5, 299"
std::string NoteOfTarget(const Campaign &campaign, int target);
/// Of the airfield that the target refers to: "Airfield record 44, also used by target 200".
std::string NoteOfAirfield(const Campaign &campaign, int target);
/// "Point 5 of 26 in use"
std::string NoteOfFrontlinePoint(const Frontline &frontline, int point);
/// "Line 12 of 850 in use"
std::string NoteOfRailwayLine(const Campaign &campaign, int line);
/// "Path has 4 waypoints; interdiction paths are shown, not edited"
std::string NoteOfPath(const WaypointPath &path);

/// The first point of the frontline that is not used.
std::optional<int> FirstFreePoint(const Frontline &frontline);

/// False when the line was disabled, or when its record holds nothing: no end of it lies on the map.
bool IsUsed(const RailwayLine &line);

/// One of the game's names for the user, on one line and not too long.
std::string ShownName(const std::string &name);

}  // namespace vtr
