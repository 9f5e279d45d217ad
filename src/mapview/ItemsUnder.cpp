#include "ItemsUnder.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "Arithmetic.h"
#include "MapCoordinates.h"
#include "MapLayers.h"

namespace vtr {

namespace {

constexpr float reachPixels = 2;

/// Finds the nearest of the segments that it is shown, in map pixels.
class NearestSegment {
  public:
    NearestSegment(const MapView &view, int x, int y)
        : view_(view),
          x_(OnMap(view, view.h_scroll, x)),
          y_(OnMap(view, view.v_scroll, y)),
          // A line is as wide as a map pixel.
          nearest_((reachPixels + static_cast<float>(view.MapZoom - 1) / 2) /
                   static_cast<float>(view.MapZoom)),
          left_(FloorToInt32(double{x_} - nearest_)),
          top_(FloorToInt32(double{y_} - nearest_)),
          right_(FloorToInt32(double{x_} + nearest_) + 1),
          bottom_(FloorToInt32(double{y_} + nearest_) + 1) {}

    /// On which sides of all that is in reach a point lies, a bit for each. A segment whose ends both lie on
    /// the same side is out of reach; most are, and that is seen soon.
    unsigned SidesOf(std::int16_t x, std::int16_t y) const {
        return unsigned{x < left_} | unsigned{x > right_} << 1 | unsigned{y < top_} << 2 |
               unsigned{y > bottom_} << 3;
    }

    /// True when the segment is drawn and nearer than all before it, or the first one that is near enough.
    template <typename Point>
    bool IsNearer(const Point &from, const Point &to) {
        const float distance = DistanceTo(from.x, from.y, to.x, to.y);
        if (distance > nearest_ || (found_ && distance == nearest_) || !IsDrawn(from, to))
            return false;
        nearest_ = distance;
        found_ = true;
        return true;
    }

    /// The same for a point on the very map pixel: at a large zoom its corners are out of reach.
    bool IsNearerOnPoint() {
        if (found_ && nearest_ == 0)
            return false;
        nearest_ = 0;
        found_ = true;
        return true;
    }

  private:
    /// Where the middle of a pixel of the viewport lies between the middles of map pixels.
    static float OnMap(const MapView &view, const ScrollState &scroll, int pixel) {
        const auto zoom = static_cast<float>(view.MapZoom);
        return (static_cast<float>(pixel) + 0.5F) / zoom - 0.5F + static_cast<float>(scroll.Value);
    }

    float DistanceTo(float x1, float y1, float x2, float y2) const {
        const float dx = x2 - x1;
        const float dy = y2 - y1;
        const float length = dx * dx + dy * dy;
        const float along =
            length == 0 ? 0 : std::clamp(((x_ - x1) * dx + (y_ - y1) * dy) / length, 0.0F, 1.0F);
        return std::hypot(x1 + along * dx - x_, y1 + along * dy - y_);
    }

    template <typename Point>
    bool IsDrawn(const Point &from, const Point &to) const {
        return MapToScreen(view_, from.x, from.y).visible || MapToScreen(view_, to.x, to.y).visible;
    }

    const MapView &view_;
    float x_;
    float y_;
    float nearest_;
    int left_;
    int top_;
    int right_;
    int bottom_;
    bool found_ = false;
};

template <typename Point>
bool IsAt(const Point &point, const MapPoint &at) {
    return point.x == at.x && point.y == at.y;
}

/// True when one of the points lies at the map pixel, or one of the segments between them is the nearest up
/// to now.
template <typename Point>
bool IsNearer(NearestSegment &nearest, std::span<const Point> points, const MapPoint &at) {
    if (points.size() > 1 &&
        std::ranges::any_of(points, [&at](const Point &point) { return IsAt(point, at); }))
        return nearest.IsNearerOnPoint();
    bool isNearer = false;
    unsigned before = 0;
    for (std::size_t k = 0; k < points.size(); ++k) {
        const unsigned here = nearest.SidesOf(points[k].x, points[k].y);
        if (k > 0 && (before & here) == 0)
            isNearer |= nearest.IsNearer(points[k - 1], points[k]);
        before = here;
    }
    return isNearer;
}

template <typename Point>
ItemsUnderPixel::Course CourseOf(std::size_t number, std::span<const Point> points, const MapPoint &at) {
    ItemsUnderPixel::Course course{static_cast<int>(number), {}};
    for (std::size_t k = 0; k < points.size(); ++k)
        if (IsAt(points[k], at))
            course.points.push_back(static_cast<int>(k));
    return course;
}

std::span<const FrontlinePoint> DrawnPoints(const Frontline &frontline) {
    return std::span(frontline.points).first(static_cast<std::size_t>(frontline.point_count()));
}

std::span<const Waypoint> DrawnPoints(const WaypointPath &path) {
    return std::span(path.waypoints).first(std::min(static_cast<std::size_t>(path.count), waypointTotal));
}

/// The nearest of the items from first on, until end.
template <typename Table>
std::optional<ItemsUnderPixel::Course> NearestOf(const Table &table, std::size_t first, std::size_t end,
                                                 NearestSegment nearest, const MapPoint &at) {
    std::optional<std::size_t> found;
    for (std::size_t i = first; i < end; ++i)
        if (IsNearer(nearest, DrawnPoints(table[i]), at))
            found = i;
    if (!found)
        return std::nullopt;
    return CourseOf(*found, DrawnPoints(table[*found]), at);
}

/// Of all paths, or of path viewNumber - 1 alone when viewNumber is not 0.
template <std::size_t Paths>
std::optional<ItemsUnderPixel::Course> NearestPath(const std::array<WaypointPath, Paths> &paths,
                                                   std::int16_t viewNumber, const NearestSegment &nearest,
                                                   const MapPoint &at) {
    if (viewNumber == 0)
        return NearestOf(paths, 0, Paths, nearest, at);
    const std::size_t only = CheckIndex(viewNumber - 1, Paths);
    return NearestOf(paths, only, only + 1, nearest, at);
}

std::optional<int> NearestLine(const Campaign &campaign, const MapDisplay &display, NearestSegment nearest) {
    struct End {
        std::int16_t x;
        std::int16_t y;
    };
    const auto middle = LineWithNeighbours(display);
    const LineRange shown = middle ? NeighboursOf(*middle) : LineRange{0, int{railwayLineTotal} - 1};
    std::optional<int> found;
    for (int i = shown.first; i <= shown.last; ++i) {
        const RailwayLine &line = campaign.RailwayTable[static_cast<std::size_t>(i)];
        if ((nearest.SidesOf(line.x1, line.y1) & nearest.SidesOf(line.x2, line.y2)) == 0 &&
            !line.IsUnused() && nearest.IsNearer(End{line.x1, line.y1}, End{line.x2, line.y2}))
            found = i;
    }
    return found;
}

}  // namespace

ItemsUnderPixel ItemsUnder(const Campaign &campaign, const MapView &view, const MapDisplay &display, int x,
                           int y) {
    const MapPoint at = ScreenToMap(view, static_cast<float>(x), static_cast<float>(y));
    const NearestSegment nearest(view, x, y);
    ItemsUnderPixel items;
    const std::int32_t mapX = RoundToInt32(at.x);
    const std::int32_t mapY = RoundToInt32(at.y);
    for (std::size_t i = 0; i < targetTotal; ++i)
        if (campaign.TargetTable[i].x == mapX && campaign.TargetTable[i].y == mapY)
            items.targets.push_back(static_cast<int>(i));
    if (display.mnu_v_frontlines) {
        const std::size_t shown =
            CheckIndex(display.mnu_e_frontline ? display.upd_frnt_num : view.ViewFrontline, frontlineTotal);
        items.frontline = NearestOf(campaign.FrontlineTable, shown, shown + 1, nearest, at);
    }
    if (display.mnu_v_railways)
        items.railwayLine = NearestLine(campaign, display, nearest);
    if (display.mnu_v_roadint)
        items.roadPath = NearestPath(campaign.RoadWaypointTable, display.upd_view_roadint, nearest, at);
    if (display.mnu_v_railint)
        items.railPath = NearestPath(campaign.RailWaypointTable, display.upd_view_railint, nearest, at);
    return items;
}

}  // namespace vtr
