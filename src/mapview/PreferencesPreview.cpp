#include "PreferencesPreview.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "MapRedraw.h"

namespace vtr {

namespace {

/// The piece in map pixels. Its corner lies away from (0, 0), where the unused rows of the tables are drawn.
constexpr int left = 20;
constexpr int top = 20;
constexpr int width = 248;
constexpr int height = 56;
constexpr int zoom = 2;

/// Sea, coast, fields, grass, forest, mountains, a city and fields again, from left to right.
constexpr std::array<std::uint32_t, 8> grounds{0xFF24508C, 0xFFCEC08C, 0xFFA2B25E, 0xFF78A04C,
                                               0xFF2C5C30, 0xFF867464, 0xFFA04038, 0xFFA2B25E};

Picture Ground() {
    Picture ground{left + width, top + height, {}};
    constexpr int stripe = width / static_cast<int>(grounds.size());
    for (int y = 0; y < ground.height; ++y) {
        // Borders between kinds of ground are not straight.
        const int bend = std::abs(y % 24 - 12) / 2 + std::abs(y % 10 - 5) / 2;
        for (int x = 0; x < ground.width; ++x) {
            const int kind = (x - left + bend - 4) / stripe;
            ground.pixels.push_back(
                grounds[static_cast<std::size_t>(kind < 0 ? 0 : std::min<int>(kind, grounds.size() - 1))]);
        }
    }
    return ground;
}

template <typename Item>
void Place(Item &item, int x, int y) {
    item.x = static_cast<std::int16_t>(left + x);
    item.y = static_cast<std::int16_t>(top + y);
}

/// Waypoints from the left to the right of the piece, up and down around row y.
void FillPath(WaypointPath &path, int y) {
    path.count = waypointTotal;
    for (std::size_t i = 0; i < waypointTotal; ++i)
        Place(path.waypoints[i], static_cast<int>(i) * 22 + 2, y + (i % 2 == 0 ? 3 : -3));
}

void FillFrontline(Frontline &frontline) {
    for (FrontlinePoint &point : frontline.points)
        point.y = 1760;
    for (std::size_t i = 0; i < 9; ++i)
        Place(frontline.points[i], static_cast<int>(i) * 30 + 4, i % 2 == 0 ? 4 : 10);
}

void FillRailway(Campaign &campaign) {
    for (std::size_t i = 0; i < 8; ++i) {
        RailwayLine &line = campaign.RailwayTable[i + 1];
        const int x = static_cast<int>(i) * 30 + 4;
        line.x1 = static_cast<std::int16_t>(left + x);
        line.x2 = static_cast<std::int16_t>(left + x + 30);
        line.y1 = static_cast<std::int16_t>(top + (i % 2 == 0 ? 18 : 22));
        line.y2 = static_cast<std::int16_t>(top + (i % 2 == 0 ? 22 : 18));
    }
}

void FillTargets(Campaign &campaign) {
    for (std::size_t i = 0; i < 16; ++i) {
        TargetRecord &target = campaign.TargetTable[i];
        Place(target, static_cast<int>(i / 2) * 30 + (i % 2 == 0 ? 12 : 26), 50);
        target.airfield_mark = i % 2 == 0 ? std::uint16_t{0} : flagSet;
    }
}

}  // namespace

PreferencesPreview::PreferencesPreview()
    : campaign_(std::make_unique<Campaign>()),
      ground_(Ground()),
      surface_{width * zoom, height * zoom,
               std::vector<std::uint32_t>(std::size_t{width} * zoom * height * zoom)} {
    FillFrontline(campaign_->FrontlineTable[0]);
    FillRailway(*campaign_);
    FillPath(campaign_->RoadWaypointTable[0], 30);
    FillPath(campaign_->RailWaypointTable[0], 40);
    FillTargets(*campaign_);
    view_.MapZoom = zoom;
    view_.h_scroll.Value = left;
    view_.v_scroll.Value = top;
}

const Picture &PreferencesPreview::Draw(const Preferences &preferences) {
    MapDisplay display;
    display.mnu_v_roadint = true;
    display.mnu_v_railint = true;
    Redraw(surface_, ground_, *campaign_, preferences, display, view_, true);
    return surface_;
}

}  // namespace vtr
