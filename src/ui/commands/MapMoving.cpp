#include "MapMoving.h"

#include <algorithm>
#include <utility>

#include "Arithmetic.h"
#include "MapFrame.h"
#include "MeasureLine.h"
#include "Measurement.h"
#include "Overview.h"
#include "StatusBar.h"

namespace vtr {

namespace {

/// A step of a usual wheel, in the units of QWheelEvent.
constexpr int wheelStep = QWheelEvent::DefaultDeltasPerStep;

/// How many map pixels a step scrolls, of so many that the viewport shows.
int PixelsOfStep(int shown) {
    return std::max(1, shown / 8);
}

/// Takes the whole parts out of units.
int TakeWhole(int &units, int part) {
    const int whole = units / part;
    units %= part;
    return whole;
}

}  // namespace

MapMoving::MapMoving(Session &session, MainWidgets &widgets, std::function<void()> redraw)
    : session_(session),
      widgets_(widgets),
      redraw_(std::move(redraw)),
      measureLine_(new MeasureLine(widgets.mapFrame->Img_Map)) {
    WireZoomMenu();
    WireMap();
    connect(widgets.Img_SmallMap, &Overview::ViewDragged, this, [this](int x, int y) {
        if (!session_.campaign.ProjectLoaded)
            return;
        widgets_.mapFrame->Centre(std::clamp(x, 0, mapWidth - 1), std::clamp(y, 0, mapHeight - 1));
        RedrawIfBehind();
    });
}

void MapMoving::WireZoomMenu() {
    const MainMenu &menu = widgets_.menu;
    using Command = std::pair<QAction *, void (*)(MapView & view, ScrollBars bars)>;
    for (const auto &[entry, command] :
         {Command(menu.mnu_m_z_100, ZoomTo100), Command(menu.mnu_m_z_200, ZoomTo200),
          Command(menu.mnu_m_z_400, ZoomTo400), Command(menu.mnu_m_z_in, ZoomIn),
          Command(menu.mnu_m_z_out, ZoomOut)})
        connect(entry, &QAction::triggered, this, [this, command = command] {
            widgets_.mapFrame->Zoom(command);
            ShowZoom();
        });
}

void MapMoving::WireMap() {
    MapSurface *map = widgets_.mapFrame->Img_Map;
    connect(map, &MapSurface::WheelTurned, this, [this](const QWheelEvent *event) { TurnWheel(*event); });
    connect(map, &MapSurface::MousePressed, this, [this](const QMouseEvent *event) { PressMiddle(*event); });
    connect(map, &MapSurface::MouseMoved, this, [this](const QMouseEvent *event) { Drag(*event); });
    connect(map, &MapSurface::MouseReleased, this, [this](const QMouseEvent *event) {
        if (event->button() == Qt::MiddleButton)
            EndDrag();
    });
    connect(map, &MapSurface::ScrollRequested, this, [this](int right, int down) {
        if (session_.campaign.ProjectLoaded)
            ScrollBy(QPoint(right, down) * wheelStep);
    });
    // Home belongs to the fields and the scroll bars too.
    widgets_.menu.mnu_v_goto->setShortcutContext(Qt::WidgetShortcut);
    map->addAction(widgets_.menu.mnu_v_goto);
    connect(widgets_.menu.mnu_v_goto, &QAction::triggered, this, &MapMoving::GoToSelectedItem);
}

void MapMoving::ShowZoom() {
    widgets_.ShowState();
    widgets_.sb_status->zoom->setText(QString::fromStdString(ZoomText(session_.view)));
    redraw_();
}

void MapMoving::TurnWheel(const QWheelEvent &event) {
    if (!session_.campaign.ProjectLoaded || measuredFrom_)
        return;
    const QPoint turn = event.angleDelta();
    if (!event.modifiers().testFlag(Qt::ControlModifier))
        return ScrollBy(
            -(event.modifiers().testFlag(Qt::ShiftModifier) && turn.x() == 0 ? turn.transposed() : turn));
    zoomTurn_ += turn.y();
    const int steps = TakeWhole(zoomTurn_, wheelStep);
    const QPoint at = widgets_.mapFrame->Img_Map->PixelUnder(event);
    bool zoomed = false;
    widgets_.mapFrame->Zoom(
        [&](MapView &view, ScrollBars bars) { zoomed = ZoomAt(view, bars, steps, at.x(), at.y()); });
    if (zoomed)
        ShowZoom();
}

void MapMoving::ScrollBy(QPoint turn) {
    const MapView &view = session_.view;
    scrollTurn_ += {turn.x() * PixelsOfStep(view.h_scroll.LargeChange),
                    turn.y() * PixelsOfStep(view.v_scroll.LargeChange)};
    const int right = TakeWhole(scrollTurn_.rx(), wheelStep);
    const int down = TakeWhole(scrollTurn_.ry(), wheelStep);
    widgets_.mapFrame->ScrollTo(view.h_scroll.Value + right, view.v_scroll.Value + down);
    RedrawIfBehind();
}

void MapMoving::RedrawIfBehind() {
    if (widgets_.mapFrame->IsBehind())
        redraw_();
}

void MapMoving::GoToSelectedItem() {
    const MapPixel item = SelectedPixel(session_);
    if (widgets_.mapFrame->Centre(item.x, item.y))
        redraw_();
    else
        widgets_.sb_status->showMessage(tr("The selected item does not lie on the map."), 5000);
}

void MapMoving::PressMiddle(const QMouseEvent &event) {
    if (event.button() != Qt::MiddleButton || !session_.campaign.ProjectLoaded)
        return;
    MapSurface *map = widgets_.mapFrame->Img_Map;
    const QPoint at = map->PixelUnder(event);
    const MapPlace place = PlaceUnder(session_.view, at.x(), at.y());
    if (event.modifiers() == Qt::ControlModifier) {
        measuredFrom_ = place;
        return MeasureTo(at);
    }
    dragged_ = place;
    map->setCursor(Qt::ClosedHandCursor);
}

void MapMoving::Drag(const QMouseEvent &event) {
    if (!event.buttons().testFlag(Qt::MiddleButton))  // it was let go where nobody told the map of it
        return EndDrag();
    const QPoint at = widgets_.mapFrame->Img_Map->PixelUnder(event);
    if (measuredFrom_)
        return MeasureTo(at);
    if (!dragged_)
        return;
    const MapView &view = session_.view;
    const MapPlace under = PlaceUnder(view, at.x(), at.y());
    widgets_.mapFrame->ScrollTo(RoundToInt32(view.h_scroll.Value + dragged_->x - under.x),
                                RoundToInt32(view.v_scroll.Value + dragged_->y - under.y));
    RedrawIfBehind();
}

void MapMoving::EndDrag() {
    if (dragged_)
        widgets_.mapFrame->Img_Map->setCursor(Qt::CrossCursor);
    dragged_.reset();
    measuredFrom_.reset();
    measureLine_->hide();
}

void MapMoving::MeasureTo(QPoint at) {
    const MapView &view = session_.view;
    const MapPlace to = PlaceUnder(view, at.x(), at.y());
    const QPointF from((measuredFrom_->x - view.h_scroll.Value) * view.MapZoom,
                       (measuredFrom_->y - view.v_scroll.Value) * view.MapZoom);
    measureLine_->ShowLine(from, at + QPointF(0.5, 0.5),
                           QString::fromStdString(MeasurementText(Measure(*measuredFrom_, to))));
}

}  // namespace vtr
