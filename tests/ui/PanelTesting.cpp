#include "PanelTesting.h"

#include <cmath>

namespace vtr {

std::string RoundedMetres(double value) {
    const double low = std::floor(value);
    const bool up = value - low > 0.5 || (value - low == 0.5 && std::fmod(low, 2) == 1);
    return std::to_string(static_cast<int>(low) + (up ? 1 : 0));
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
