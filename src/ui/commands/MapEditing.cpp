#include "MapEditing.h"

#include <algorithm>

#include "Arithmetic.h"
#include "FrontlinePanel.h"
#include "MapCoordinates.h"
#include "MapFrame.h"
#include "RailwayPanel.h"
#include "StatusBar.h"
#include "TargetPanel.h"

namespace vtr {

namespace {

/// The modifier keys as one value; every test is on the whole of it, so Ctrl+Shift is not Shift.
enum class Keys { None, Shift, Other };

Keys KeysOf(const QMouseEvent &event) {
    const auto held = event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    return held == Qt::NoModifier ? Keys::None : held == Qt::ShiftModifier ? Keys::Shift : Keys::Other;
}

/// The map pixel that the viewport's pixel at shows; it may lie beside the map.
QPoint MapPixelAt(const MapView &view, QPoint at) {
    const MapPoint point = ScreenToMap(view, static_cast<float>(at.x()), static_cast<float>(at.y()));
    return {RoundToInt32(point.x), RoundToInt32(point.y)};
}

}  // namespace

MapEditing::MapEditing(Session &session, MainWidgets &widgets) : session_(session), widgets_(widgets) {
    MapSurface *map = widgets.mapFrame->Img_Map;
    connect(map, &MapSurface::MouseMoved, this, [this](const QMouseEvent *event) { ShowPosition(*event); });
    connect(map, &MapSurface::MousePressed, this, [this](const QMouseEvent *event) { OpenZoomMenu(*event); });
    connect(map, &MapSurface::MouseReleased, this, [this](const QMouseEvent *event) { EditAt(*event); });
    connect(map, &MapSurface::NudgeRequested, this, &MapEditing::Nudge);
}

void MapEditing::ShowPosition(const QMouseEvent &event) {
    if (!session_.campaign.ProjectLoaded)
        return;
    const QPoint at = widgets_.mapFrame->Img_Map->PixelUnder(event);
    widgets_.sb_status->xypos->setText(QString::fromStdString(
        CursorText(session_.view, static_cast<float>(at.x()), static_cast<float>(at.y()))));
}

void MapEditing::OpenZoomMenu(const QMouseEvent &event) {
    if (widgets_.menu.mnu_m_zoom->isEnabled() && event.button() == Qt::RightButton &&
        KeysOf(event) != Keys::Shift)
        widgets_.menu.mnu_m_zoom->popup(event.globalPosition().toPoint());
}

void MapEditing::EditAt(const QMouseEvent &event) {
    if (!session_.campaign.ProjectLoaded)
        return;
    const QPoint at = MapPixelAt(session_.view, widgets_.mapFrame->Img_Map->PixelUnder(event));
    const bool left = event.button() == Qt::LeftButton;
    const bool right = event.button() == Qt::RightButton;
    const Keys keys = KeysOf(event);
    const OneEdit click(session_.history);

    if (session_.mode == EditMode::Target && left && keys == Keys::None)
        SelectTargetAt(at.x(), at.y());
    else if (session_.mode == EditMode::Target && left && keys == Keys::Shift)
        widgets_.fra_target->Position().MoveTo(at.x(), at.y());
    else if (session_.mode == EditMode::Frontline && left)
        widgets_.fra_frontline->Position().MoveTo(at.x(), at.y());
    else if (session_.mode == EditMode::Railway && left && keys == Keys::Shift)
        widgets_.fra_railway->Position(1).MoveTo(at.x(), at.y());
    else if (session_.mode == EditMode::Railway && right && keys == Keys::Shift)
        widgets_.fra_railway->PlaceEnd(at.x(), at.y());
}

void MapEditing::SelectTargetAt(int x, int y) {
    const auto &targets = session_.campaign.TargetTable;
    const auto found = std::ranges::find_if(
        targets, [x, y](const TargetRecord &target) { return target.x == x && target.y == y; });
    if (found != targets.end())
        widgets_.fra_target->Select(static_cast<int>(found - targets.begin()));
}

void MapEditing::Nudge(int dx, int dy) {
    if (!session_.campaign.ProjectLoaded)
        return;
    if (session_.mode == EditMode::Target)
        widgets_.fra_target->Position().MoveBy(dx, dy);
    else if (session_.mode == EditMode::Frontline)
        widgets_.fra_frontline->Position().MoveBy(dx, dy);
    else if (session_.mode == EditMode::Railway)
        widgets_.fra_railway->Position(1).MoveBy(dx, dy);
}

}  // namespace vtr
