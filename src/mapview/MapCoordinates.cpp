#include "MapCoordinates.h"

#include "Arithmetic.h"

namespace vtr {

namespace {

float MapOrdinate(float screen, std::int16_t zoom, std::int16_t origin) {
    return static_cast<float>(FloorToInt32(static_cast<double>(screen) / zoom + origin));
}

}  // namespace

MapPoint ScreenToMap(const MapView &view, float x, float y) {
    if (view.MapZoom == 1)
        return {x, y};
    return {MapOrdinate(x, view.MapZoom, view.h_scroll.Value),
            MapOrdinate(y, view.MapZoom, view.v_scroll.Value)};
}

MapPlace PlaceUnder(const MapView &view, int x, int y) {
    return {view.h_scroll.Value + (x + 0.5) / view.MapZoom, view.v_scroll.Value + (y + 0.5) / view.MapZoom};
}

double ViewWidth(const MapView &view) {
    return static_cast<double>(mapWidth) / view.MapZoom;
}

double ViewHeight(const MapView &view) {
    return static_cast<double>(mapHeight) / view.MapZoom;
}

}  // namespace vtr
