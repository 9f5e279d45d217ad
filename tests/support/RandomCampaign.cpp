#include "RandomCampaign.h"

#include <algorithm>

#include "AirfieldLists.h"

namespace vtr {

namespace {

/// A number from 0 to highest.
template <typename Number>
Number UpTo(Number highest, std::mt19937 &random) {
    return static_cast<Number>(random() % (static_cast<unsigned>(highest) + 1));
}

/// A word that is not the file's "none".
std::uint16_t RandomWord(std::mt19937 &random) {
    return UpTo(std::uint16_t{65534}, random);
}

/// Metres that a file can hold; of the multiples of 512.5 every second one ends in a half.
double RandomFineOffset(std::mt19937 &random) {
    switch (random() % 3) {
        case 0:
            return 0;
        case 1:
            return UpTo(7, random) * 512.5;
        default:
            return UpTo(262143, random) / 262144.0 * 4100;
    }
}

std::int16_t RandomX(std::mt19937 &random) {
    return UpTo(std::int16_t{639}, random);
}

std::int16_t RandomY(std::mt19937 &random) {
    return UpTo(std::int16_t{319}, random);
}

std::string RandomName(std::size_t longest, std::mt19937 &random) {
    std::string name(UpTo(longest, random), ' ');
    for (char &character : name)
        character = static_cast<char>(1 + UpTo(254, random));
    return name;
}

void FillTarget(TargetRecord &target, std::mt19937 &random) {
    target.x = RandomX(random);
    target.y = RandomY(random);
    for (std::uint8_t &byte : target.unknown)
        byte = UpTo(std::uint8_t{255}, random);
    target.fineOffsets = {RandomFineOffset(random), RandomFineOffset(random)};
    target.code = UpTo(std::uint16_t{targetNameTotal - 1}, random);
    target.count = UpTo(std::uint16_t{255}, random);
    target.extra_word = RandomWord(random);
    target.airfield_ref =
        random() % 2 == 0 ? UpTo(std::uint16_t{airfieldTotal - 1}, random) : std::uint16_t{0};
}

void FillAirfield(AirfieldRecord &airfield, std::mt19937 &random) {
    const auto model = [&random] {
        return static_cast<std::uint8_t>(random() % airfieldModelCaptions.size());
    };
    airfield.index_byte = UpTo(std::uint8_t{255}, random);
    airfield.base_1940 = model();
    airfield.base_1943 = model();
    airfield.base_1944 = model();
    airfield.base_1945 = model();
    for (AirfieldYearSlot &slot : airfield.yearSlots)
        slot = YearSlotOfEntry(UpTo(32, random));
    airfield.airfield_extra_word = RandomWord(random);
    airfield.country = countryEntries[random() % countryEntries.size()].code;
}

}  // namespace

void FillWithRandomTables(Campaign &campaign, std::mt19937 &random) {
    // 308 names of up to 101 characters stay below the most that the file can hold.
    const std::size_t longestName = random() % 10 == 0 ? 101 : 24;
    for (std::string &name : campaign.TargetNameTable)
        name = RandomName(longestName, random);
    for (std::size_t i = 0; i < targetTotal; ++i) {
        TargetRecord &target = campaign.TargetTable[i];
        FillTarget(target, random);
        target.name = campaign.TargetNameTable[target.code];
        target.airfield_mark = target.airfield_ref != 0 || i == 81 ? flagSet : std::uint16_t{0};
    }
    for (AirfieldRecord &airfield : campaign.AirfieldTable)
        FillAirfield(airfield, random);
}

void FillWithRandomLines(Campaign &campaign, std::mt19937 &random) {
    for (RailwayLine &line : campaign.RailwayTable) {
        line = {RandomX(random), RandomX(random), RandomY(random), RandomY(random)};
        for (double &fineOffset : line.fineOffsets)
            fineOffset = RandomFineOffset(random);
    }
    for (Frontline &frontline : campaign.FrontlineTable)
        for (FrontlinePoint &point : frontline.points)
            point = {RandomX(random), RandomY(random), random() % 2 == 0 ? flagSet : std::uint16_t{0}};
}

void FillWithRandomPaths(Campaign &campaign, std::mt19937 &random) {
    const auto fill = [&random](auto &paths) {
        for (WaypointPath &path : paths) {
            for (Waypoint &waypoint : path.waypoints)
                waypoint = {RandomX(random), RandomY(random)};
            path.count = waypointTotal;
        }
    };
    fill(campaign.RoadWaypointTable);
    fill(campaign.RailWaypointTable);
}

void EndFrontline(Frontline &frontline, std::size_t count) {
    for (std::size_t p = count; p < frontlinePointTotal; ++p)
        frontline.points[p] = p == count && count > 0 ? markerPoint : zeroPoint;
}

void EndLinesAtRandom(Campaign &campaign, std::mt19937 &random) {
    // More often few than many, which take long to write as text.
    const std::size_t used = random() % (1 + random() % (railwayLineTotal + 1));
    std::fill(campaign.RailwayTable.begin() + static_cast<std::ptrdiff_t>(used), campaign.RailwayTable.end(),
              RailwayLine{});
    for (std::size_t slot = 0; slot < frontlineTotal; ++slot)
        EndFrontline(campaign.FrontlineTable[slot], random() % (slot + 1 < frontlineTotal ? 30 : 31));
}

}  // namespace vtr
