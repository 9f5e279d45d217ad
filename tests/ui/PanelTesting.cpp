#include "PanelTesting.h"

#include <cmath>
#include <iomanip>
#include <sstream>

namespace vtr {

std::string RoundedMetres(double value) {
    const double low = std::floor(value);
    const bool up = value - low > 0.5 || (value - low == 0.5 && std::fmod(low, 2) == 1);
    return std::to_string(static_cast<int>(low) + (up ? 1 : 0));
}

std::string Everything(const Campaign &campaign) {
    std::ostringstream all;
    all << std::setprecision(17);
    for (const TargetRecord &target : campaign.TargetTable)
        all << target.x << ' ' << target.y << ' ' << target.code << ' ' << target.spare << ' ' << target.name
            << ' ' << target.count << ' ' << target.extra_word << ' ' << target.airfield_mark << ' '
            << target.airfield_ref << ' ' << target.fineOffsets[0] << ' ' << target.fineOffsets[1] << '\n';
    for (const std::string &name : campaign.TargetNameTable)
        all << name << '\n';
    for (const AirfieldRecord &airfield : campaign.AirfieldTable) {
        all << +airfield.index_byte << ' ' << +airfield.base_1940 << ' ' << +airfield.base_1943 << ' '
            << +airfield.base_1944 << ' ' << +airfield.base_1945 << ' ' << airfield.airfield_extra_word << ' '
            << +airfield.country;
        for (const AirfieldYearSlot &slot : airfield.yearSlots)
            all << ' ' << slot.aircraft << ' ' << slot.german << ' ' << slot.german_no_plane << ' '
                << slot.allied_no_plane_a << ' ' << slot.allied_no_plane_b;
        all << '\n';
    }
    for (const RailwayLine &line : campaign.RailwayTable) {
        all << line.x1 << ' ' << line.x2 << ' ' << line.y1 << ' ' << line.y2;
        for (const double metres : line.fineOffsets)
            all << ' ' << metres;
        all << '\n';
    }
    all << campaign.firstDisabledRailwayLine << '\n';
    for (const Frontline &frontline : campaign.FrontlineTable) {
        for (const FrontlinePoint &point : frontline.points)
            all << point.x << ' ' << point.y << ' ' << point.on_map << '\n';
    }
    const auto addPaths = [&all](const auto &paths) {
        for (const WaypointPath &path : paths) {
            for (const Waypoint &waypoint : path.waypoints)
                all << waypoint.x << ' ' << waypoint.y << ' ' << waypoint.flag << '\n';
        }
    };
    addPaths(campaign.RoadWaypointTable);
    addPaths(campaign.RailWaypointTable);
    return all.str();
}

std::unique_ptr<Campaign> FilledCampaign() {
    auto campaign = std::make_unique<Campaign>();
    std::mt19937 random(20261101);  // NOLINT: the same on every run
    const auto below = [&random](int count) {
        return static_cast<std::int16_t>(random() % static_cast<unsigned>(count));
    };
    const auto metres = [&below] { return below(4099) + (1 + below(9)) / 10.0; };
    for (std::size_t i = 0; i < targetNameTotal; ++i)
        campaign->TargetNameTable[i] = "Place " + std::to_string(i) + (i % 7 == 0 ? " K\xF6ln" : "");
    for (std::size_t i = 0; i < targetTotal; ++i) {
        TargetRecord &target = campaign->TargetTable[i];
        target.x = below(640);
        target.y = below(320);
        target.code = static_cast<std::uint16_t>(i % 150);
        target.name = campaign->TargetNameTable[target.code];
        target.count = static_cast<std::uint16_t>(below(65));
        target.extra_word = static_cast<std::uint16_t>(below(1000));
        if (i % 2 == 0) {
            target.airfield_ref = static_cast<std::uint16_t>(1 + below(161));
            target.airfield_mark = flagSet;
        }
        target.fineOffsets = {metres(), metres()};
    }
    for (AirfieldRecord &airfield : campaign->AirfieldTable) {
        airfield.index_byte = static_cast<std::uint8_t>(below(256));
        airfield.base_1940 = static_cast<std::uint8_t>(below(11));
        airfield.base_1943 = static_cast<std::uint8_t>(below(11));
        airfield.base_1944 = static_cast<std::uint8_t>(below(11));
        airfield.base_1945 = static_cast<std::uint8_t>(below(11));
        airfield.airfield_extra_word = static_cast<std::uint16_t>(40000 + below(20000));
        airfield.country = static_cast<std::uint8_t>(below(5));
        for (AirfieldYearSlot &slot : airfield.yearSlots) {
            slot.german = below(2) == 0 ? flagSet : 0;
            slot.aircraft = static_cast<std::uint16_t>(below(14));
        }
    }
    for (std::size_t i = 0; i < railwayLineTotal; ++i) {
        campaign->RailwayTable[i] = {.x1 = below(640), .x2 = below(640), .y1 = below(320), .y2 = below(320)};
        campaign->RailwayTable[i].fineOffsets = {metres(), metres(), metres(), metres()};
    }
    for (Frontline &frontline : campaign->FrontlineTable) {
        for (FrontlinePoint &point : frontline.points) {
            point = {.x = below(640), .y = below(320)};
            point.on_map = below(2) == 0 ? flagSet : 0;
        }
    }
    const auto fillPaths = [&below](auto &paths) {
        for (WaypointPath &path : paths) {
            for (Waypoint &waypoint : path.waypoints)
                waypoint = {.x = below(640), .y = below(320)};
            path.count = 12;
        }
    };
    fillPaths(campaign->RoadWaypointTable);
    fillPaths(campaign->RailWaypointTable);
    return campaign;
}

std::unique_ptr<Session> FilledSession() {
    auto session = std::make_unique<Session>();
    session->campaign = *FilledCampaign();
    return session;
}

}  // namespace vtr
