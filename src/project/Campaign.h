#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "ProjectPaths.h"
#include "TerrainMap.h"

namespace vtr {

constexpr std::size_t targetTotal = 302;
constexpr std::size_t targetNameTotal = 308;
constexpr std::size_t airfieldTotal = 162;
constexpr std::size_t railwayLineTotal = 894;
constexpr std::size_t frontlineTotal = 20;
constexpr std::size_t frontlinePointTotal = 30;
constexpr std::size_t roadPathTotal = 297;
constexpr std::size_t railPathTotal = 99;
constexpr std::size_t waypointTotal = 12;

/// The game treats this target as an airfield in any case.
constexpr std::size_t targetThatIsAlwaysAnAirfield = 81;

/// The value of a set flag in the game's files.
constexpr std::uint16_t flagSet = 65535;

/// The place of a position within its map pixel: metres from the tile's left or upper edge, 0 to 4100.
template <std::size_t Positions>
using FineOffsets = std::array<double, Positions>;

/// True for the two rows without real points. An end marker of 255 bytes and an all-zero position have them.
constexpr bool IsMarkerRow(std::int16_t y) {
    return y == 1759 || y == 1760;
}

struct TargetRecord {
    std::int16_t x = 0;
    std::int16_t y = 0;
    std::uint16_t code = 0;  ///< index into TargetNameTable
    std::uint16_t spare = 0;
    std::string name;         ///< copy of TargetNameTable[code]
    std::uint16_t count = 0;  ///< target objects at this place, a byte in the file
    std::uint16_t extra_word = 0;
    std::uint16_t airfield_mark = 0;  ///< flagSet or 0
    std::uint16_t airfield_ref = 0;   ///< index into AirfieldTable
    FineOffsets<2> fineOffsets{};     ///< of x, y
    /// The record's other bytes in the order of the file. Their meaning is unknown.
    std::array<std::uint8_t, 17> unknown{};

    bool operator==(const TargetRecord &) const = default;
};

/// What is based at an airfield in one year.
struct AirfieldYearSlot {
    std::uint16_t aircraft = 0;  ///< index within its side: 0 to 15 Allied, 0 to 13 German
    std::uint16_t german = 0;
    std::uint16_t german_no_plane = 0;
    std::uint16_t allied_no_plane_a = 0;
    std::uint16_t allied_no_plane_b = 0;

    bool operator==(const AirfieldYearSlot &) const = default;
};

/// The years of an airfield's models and slots, in the order of the file.
constexpr std::array<int, 4> airfieldYears{1940, 1943, 1944, 1945};

struct AirfieldRecord {
    std::uint8_t index_byte = 0;
    std::uint8_t base_1940 = 0;
    std::uint8_t base_1943 = 0;
    std::uint8_t base_1944 = 0;
    std::uint8_t base_1945 = 0;
    std::uint8_t spare = 0;
    std::array<AirfieldYearSlot, 4> yearSlots;
    std::uint16_t airfield_extra_word = 0;
    std::uint8_t country = 0;

    bool operator==(const AirfieldRecord &) const = default;
};

/// The models of the years, in the order of airfieldYears.
constexpr std::array<std::uint8_t AirfieldRecord::*, airfieldYears.size()> airfieldModels{
    &AirfieldRecord::base_1940, &AirfieldRecord::base_1943, &AirfieldRecord::base_1944,
    &AirfieldRecord::base_1945};

/// A line from (x1, y1) to (x2, y2) in map pixels.
struct RailwayLine {
    std::int16_t x1 = 0;
    std::int16_t x2 = 0;
    std::int16_t y1 = 0;
    std::int16_t y2 = 0;
    FineOffsets<4> fineOffsets{};  ///< of x1, x2, y1, y2

    bool IsUnused() const { return x1 == 0 && x2 == 0 && y1 == 0 && y2 == 0; }
    bool operator==(const RailwayLine &) const = default;
};

struct FrontlinePoint {
    std::int16_t x = 0;
    std::int16_t y = 0;
    std::uint16_t on_map = 0;  ///< flagSet: shown on the briefing map

    bool operator==(const FrontlinePoint &) const = default;
};

struct Frontline {
    std::array<FrontlinePoint, frontlinePointTotal> points;

    /// The number of points that are not on a marker row.
    std::int16_t point_count() const {
        std::int16_t count = 0;
        for (const FrontlinePoint &point : points)
            count = static_cast<std::int16_t>(count + (IsMarkerRow(point.y) ? 0 : 1));
        return count;
    }

    bool operator==(const Frontline &) const = default;
};

struct Waypoint {
    std::int16_t x = 0;
    std::int16_t y = 0;
    std::uint16_t flag = 0;  ///< flagSet at the path's last waypoint

    bool operator==(const Waypoint &) const = default;
};

struct WaypointPath {
    std::array<Waypoint, waypointTotal> waypoints;
    std::int16_t count = 0;

    bool operator==(const WaypointPath &) const = default;
};

/// One campaign: its paths and all that its files hold. Positions are map pixels (x 0 to 639, y 0 to 319).
/// The tables have the sizes of the game's files. It is large, so keep it on the heap.
struct Campaign {
    ProjectPaths paths;
    bool ProjectLoaded = false;  ///< true from the first successful load on

    TerrainMap terrain = TerrainMap(terrainSize);
    std::array<TargetRecord, targetTotal> TargetTable;
    std::array<std::string, targetNameTotal> TargetNameTable;
    std::array<AirfieldRecord, airfieldTotal> AirfieldTable;
    std::array<RailwayLine, railwayLineTotal> RailwayTable;
    std::int16_t RailwayLineCount = 0;
    std::int16_t firstDisabledRailwayLine = 0;  ///< 0: none
    std::array<Frontline, frontlineTotal> FrontlineTable;
    std::array<WaypointPath, roadPathTotal> RoadWaypointTable;
    std::array<WaypointPath, railPathTotal> RailWaypointTable;

    bool operator==(const Campaign &) const = default;
};

}  // namespace vtr
