// A full redraw of the map with all layers, compared with QPainter drawing the same primitives (raster, no
// smoothing, one pen and one call a layer, an explicit clip rectangle) and with copying the surface. The
// three take turns and the fastest turn of each counts, so that other load on the machine does not matter.
// "items" is the number of campaigns on top of each other. It shows how the time grows.

#include <QImage>
#include <QList>
#include <QPainter>
#include <algorithm>
#include <chrono>
#include <cstring>
#include <memory>
#include <random>
#include <string>

#include "Arithmetic.h"
#include "Comparison.h"
#include "MapCoordinates.h"
#include "MapLayers.h"
#include "MapPen.h"
#include "MapRedraw.h"
#include "SampleCampaign.h"

namespace {

using namespace vtr;

constexpr std::int16_t everything = 0;

/// What both sides draw: the sample campaign, one or more times.
struct Scene {
    Scene(std::int16_t zoom, unsigned items) {
        for (unsigned i = 0; i < items; ++i)
            campaigns.push_back(MakeSampleCampaign());
        std::mt19937 random(5);
        worldMap = {mapWidth, mapHeight, std::vector<std::uint32_t>(terrainSize)};
        for (std::uint32_t &pixel : worldMap.pixels)
            pixel = 0xFF000000U | (random() & 0xFFFFFFU);
        view.MapZoom = zoom;
        view.h_scroll.Value = RoundToInt16(320 - 320.0 / zoom);
        view.v_scroll.Value = RoundToInt16(160 - 160.0 / zoom);
        display.mnu_v_roadint = display.mnu_v_railint = true;
        preferences = ShippedPreferences();
    }

    std::vector<std::unique_ptr<Campaign>> campaigns;
    Picture worldMap;
    MapView view;
    MapDisplay display;
    Preferences preferences;
};

void DrawWithEditor(Scene &scene, Picture &surface) {
    scene.view.TargetFlashPhase = true;
    Redraw(surface, scene.worldMap, *scene.campaigns.front(), scene.preferences, scene.display, scene.view);
    Canvas canvas(surface);
    for (std::size_t i = 1; i < scene.campaigns.size(); ++i) {
        const Campaign &campaign = *scene.campaigns[i];
        DrawFrontlineLayer(canvas, scene.view, campaign, scene.preferences, 0, -1);
        DrawRailwayLayer(canvas, scene.view, campaign, scene.preferences);
        DrawRoadIntLayer(canvas, scene.view, campaign, scene.preferences, everything);
        DrawRailIntLayer(canvas, scene.view, campaign, scene.preferences, everything);
        DrawTargetLayer(canvas, scene.view, campaign, scene.preferences, 0, true);
    }
}

/// The segments of one layer that the editor draws, for one QPainter call.
class LineBatch {
  public:
    LineBatch(QPainter &painter, const MapView &view, std::int32_t colour, double width)
        : painter_(painter), view_(view), pen_(QColor(QRgb(CanvasColour(colour))), width) {
        pen_.setCapStyle(Qt::RoundCap);
    }
    ~LineBatch() {
        painter_.setPen(pen_);
        painter_.drawLines(lines_);
    }
    LineBatch(const LineBatch &) = delete;
    LineBatch &operator=(const LineBatch &) = delete;

    void Segment(std::int16_t x1, std::int16_t y1, std::int16_t x2, std::int16_t y2) {
        const ScreenPoint from = MapToScreen(view_, x1, y1);
        const ScreenPoint to = MapToScreen(view_, x2, y2);
        if (from.visible || to.visible)
            Line(from.x, from.y, to.x, to.y);
    }
    void Line(float x1, float y1, float x2, float y2) {
        lines_.append(QLine(qRound(x1), qRound(y1), qRound(x2), qRound(y2)));
    }

  private:
    QPainter &painter_;
    const MapView &view_;
    QPen pen_;
    QList<QLine> lines_;
};

void PaintPaths(QPainter &painter, const MapView &view, std::int32_t colour,
                std::span<const WaypointPath> paths) {
    LineBatch batch(painter, view, colour, view.MapZoom);
    for (const WaypointPath &path : paths)
        for (std::size_t k = 0; k + 1 < static_cast<std::size_t>(path.count); ++k)
            batch.Segment(path.waypoints[k].x, path.waypoints[k].y, path.waypoints[k + 1].x,
                          path.waypoints[k + 1].y);
}

void PaintTargets(QPainter &painter, const MapView &view, const Preferences &preferences,
                  const Campaign &campaign) {
    const float arm = view.MapZoom;
    LineBatch targets(painter, view, preferences.TargetColour, 2);
    LineBatch airfields(painter, view, preferences.AirfieldColour, 2);
    for (const TargetRecord &target : campaign.TargetTable) {
        const auto [x, y, visible] = MapToScreen(view, target.x, target.y);
        if (IsMarkerRow(target.y) || !visible)
            continue;
        LineBatch &batch = target.airfield_mark != 0 ? airfields : targets;
        batch.Line(x - arm, y - arm, x + arm, y + arm);
        batch.Line(x + arm, y - arm, x - arm, y + arm);
    }
}

void PaintCampaign(QPainter &painter, const MapView &view, const Preferences &preferences,
                   const Campaign &campaign) {
    {
        LineBatch batch(painter, view, preferences.FrontlineColour, view.MapZoom);
        const auto &points = campaign.FrontlineTable[0].points;
        const auto count = static_cast<std::size_t>(campaign.FrontlineTable[0].point_count());
        for (std::size_t k = 0; k + 1 < count; ++k)
            batch.Segment(points[k].x, points[k].y, points[k + 1].x, points[k + 1].y);
    }
    {
        LineBatch batch(painter, view, preferences.RailwayColour, view.MapZoom);
        for (const RailwayLine &line : campaign.RailwayTable)
            batch.Segment(line.x1, line.y1, line.x2, line.y2);
    }
    PaintPaths(painter, view, preferences.RoadIntColour, campaign.RoadWaypointTable);
    PaintPaths(painter, view, preferences.RailIntColour, campaign.RailWaypointTable);
    PaintTargets(painter, view, preferences, campaign);
    const TargetRecord &selected = campaign.TargetTable[0];
    const ScreenPoint centre = MapToScreen(view, selected.x, selected.y);
    if (!centre.visible)
        return;
    const std::int32_t colour =
        selected.airfield_mark != 0 ? preferences.AirfieldColour : preferences.TargetColour;
    painter.setPen(QPen(QColor(QRgb(CanvasColour(colour))), 2));
    painter.drawEllipse(QPointF(centre.x, centre.y), 4 * view.MapZoom, 4 * view.MapZoom);
}

void DrawWithQPainter(const Scene &scene, const QImage &worldMap, QImage &surface) {
    const QRectF source(scene.view.h_scroll.Value, scene.view.v_scroll.Value, ViewWidth(scene.view),
                        ViewHeight(scene.view));
    QPainter painter(&surface);
    painter.setClipRect(0, 0, mapWidth, mapHeight);
    painter.drawImage(QRectF(0, 0, mapWidth, mapHeight), worldMap, source);
    for (const auto &campaign : scene.campaigns)
        PaintCampaign(painter, scene.view, scene.preferences, *campaign);
}

/// Prints how a redraw at zoom compares with QPainter and with copying its surface. The bounds apply to the
/// sample alone (atMostCopies 0: no bound). More items only show how the time grows.
void CompareAt(std::int16_t zoom, unsigned items, double atLeast, double atMostCopies) {
    Scene scene(zoom, items);
    Picture surface{mapWidth, mapHeight, std::vector<std::uint32_t>(std::size_t{mapWidth} * mapHeight)};
    QImage qtSurface(mapWidth, mapHeight, QImage::Format_RGB32);
    const QImage worldMap(reinterpret_cast<const uchar *>(scene.worldMap.pixels.data()), mapWidth, mapHeight,
                          QImage::Format_RGB32);
    std::vector<std::uint32_t> copy(scene.worldMap.pixels.size());
    const auto copySurface = [&] {
        std::memcpy(copy.data(), surface.pixels.data(), copy.size() * sizeof copy[0]);
        asm volatile("" : : "r"(copy.data()) : "memory");
    };
    Comparison besidePainter;
    Comparison besideCopying;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(1);
    for (int turn = 0; turn < 5 || std::chrono::steady_clock::now() < end; ++turn) {
        besidePainter.ours = std::min(besidePainter.ours, SecondsOf([&] { DrawWithEditor(scene, surface); }));
        besidePainter.baseline = std::min(besidePainter.baseline,
                                          SecondsOf([&] { DrawWithQPainter(scene, worldMap, qtSurface); }));
        // The first copy only brings the two pictures into the cache.
        for (int i = 0; i < 2; ++i)
            besideCopying.baseline = std::min(besideCopying.baseline, SecondsOf(copySurface));
    }
    besideCopying.ours = besidePainter.ours;
    const std::string what = std::to_string(zoom * 100) + "%, items x" + std::to_string(items);
    ReportAtLeast(what.c_str(), besidePainter, "QPainter", atLeast);
    if (atMostCopies > 0)
        ReportAtMost(what.c_str(), besideCopying, "memcpy", atMostCopies);
}

}  // namespace

int main() {
    for (const int zoom : {1, 2, 3, 4, 10, 30, 100})
        for (const unsigned items : {1U, 4U, 16U}) {
            const double atLeast = items > 1 ? 1 : zoom == 1 ? 1.7 : zoom == 100 ? 2 : 1;
            CompareAt(ToInt16(zoom), items, atLeast, zoom == 1 && items == 1 ? 15 : 0);
        }
}
