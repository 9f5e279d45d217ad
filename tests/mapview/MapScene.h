#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <span>

#include "MapRedraw.h"

namespace vtr {

/// A map without any item. Every layer is off and has a colour of its own.
class MapScene {
  public:
    static constexpr std::uint32_t ground = 0xFF202020;
    static constexpr std::uint32_t frontline = 0xFFC80000;
    static constexpr std::uint32_t railway = 0xFF009600;
    static constexpr std::uint32_t roadInt = 0xFF0000FA;
    static constexpr std::uint32_t railInt = 0xFFC800C9;
    static constexpr std::uint32_t target = 0xFFFF8000;
    static constexpr std::uint32_t airfield = 0xFF00FFFE;
    static constexpr std::uint32_t yellow = 0xFFFFFF00;
    /// The position of items that a test does not place: off the map, and off-screen above 100%.
    static constexpr std::int16_t nowhere = -500;

    MapScene() {
        preferences.FrontlineColour = 200;
        preferences.RailwayColour = 256 * 150;
        preferences.RoadIntColour = 65536 * 250;
        preferences.RailIntColour = 200 + 65536 * 201;
        preferences.TargetColour = 255 + 256 * 128;
        preferences.AirfieldColour = 256 * 255 + 65536 * 254;
        display.mnu_v_targets = display.mnu_v_frontlines = display.mnu_v_railways = false;
        worldMap = {mapWidth, mapHeight, std::vector<std::uint32_t>(640U * 320U, ground)};
        surface = {mapWidth, mapHeight, std::vector<std::uint32_t>(640U * 320U)};
        view.MapZoom = 1;
        for (TargetRecord &record : campaign->TargetTable)
            record.x = record.y = nowhere;
        for (RailwayLine &line : campaign->RailwayTable)
            line = {.x1 = nowhere, .x2 = nowhere, .y1 = nowhere, .y2 = nowhere};
        for (Frontline &line : campaign->FrontlineTable)
            for (FrontlinePoint &point : line.points)
                point.y = 1760;
    }

    /// The viewport at a factor with the map pixel (left, top) in its corner.
    void Show(int zoom, int left, int top) {
        view.MapZoom = static_cast<std::int16_t>(zoom);
        view.h_scroll.Value = static_cast<std::int16_t>(left);
        view.v_scroll.Value = static_cast<std::int16_t>(top);
    }

    std::optional<std::string> Redraw(bool showNow = false) {
        return vtr::Redraw(surface, worldMap, *campaign, preferences, display, view, showNow);
    }

    std::uint32_t At(int x, int y) const {
        return surface.pixels.at(static_cast<std::size_t>(y) * 640U + static_cast<std::size_t>(x));
    }
    long Count(std::uint32_t colour) const {
        return std::count(surface.pixels.begin(), surface.pixels.end(), colour);
    }

    struct Probe {
        int x;
        int y;
        std::uint32_t colour;
    };
    void ExpectPixels(std::initializer_list<Probe> probes) const {
        for (const Probe &probe : probes)
            EXPECT_EQ(At(probe.x, probe.y), probe.colour)
                << std::hex << probe.colour << std::dec << " at " << probe.x << "," << probe.y
                << " at factor " << view.MapZoom;
    }

    void SetPath(WaypointPath &path, std::initializer_list<std::pair<int, int>> points) {
        path.count = 0;
        for (const auto &[x, y] : points) {
            Waypoint &waypoint = path.waypoints.at(static_cast<std::size_t>(path.count++));
            waypoint.x = static_cast<std::int16_t>(x);
            waypoint.y = static_cast<std::int16_t>(y);
        }
    }
    void SetFrontline(std::size_t slot, std::initializer_list<std::pair<int, int>> points) {
        std::size_t k = 0;
        for (const auto &[x, y] : points) {
            FrontlinePoint &point = campaign->FrontlineTable.at(slot).points.at(k++);
            point.x = static_cast<std::int16_t>(x);
            point.y = static_cast<std::int16_t>(y);
        }
    }
    void SetTarget(std::size_t index, int x, int y, bool isAirfield = false) {
        TargetRecord &record = campaign->TargetTable.at(index);
        record.x = static_cast<std::int16_t>(x);
        record.y = static_cast<std::int16_t>(y);
        record.airfield_mark = isAirfield ? flagSet : std::uint16_t{0};
    }

    std::unique_ptr<Campaign> campaign = std::make_unique<Campaign>();
    Preferences preferences;
    MapDisplay display;
    MapView view;
    Picture worldMap;
    Picture surface;
};

/// Expects an index Error whose item is what.
inline void ExpectIndexError(MapScene &scene, const std::string &what) {
    try {
        scene.Redraw();
        ADD_FAILURE() << "nothing was thrown";
    } catch (const Error &error) {
        EXPECT_EQ(error.Kind(), ErrorKind::IndexOutOfRange);
        EXPECT_EQ(error.Item(), what);
    }
}

}  // namespace vtr
