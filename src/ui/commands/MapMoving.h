#pragma once

#include <QMouseEvent>
#include <QWheelEvent>
#include <functional>
#include <optional>

#include "MainWidgets.h"
#include "MapCoordinates.h"
#include "ZoomCommands.h"

namespace vtr {

class MeasureLine;

/// What moves the view over the map: the zoom menu, the mouse wheel, the middle button on the map and on the
/// overview, Alt with the arrow keys and "&Go to Selected Item"; and measuring on the map. Where the view
/// has moved the map is redrawn once.
class MapMoving : public QObject {
    Q_OBJECT

  public:
    MapMoving(Session &session, MainWidgets &widgets, std::function<void()> redraw);

  private:
    void WireZoomMenu();
    void WireMap();
    /// Shows what a zoom command has done.
    void ShowZoom();
    void TurnWheel(const QWheelEvent &event);
    /// Scrolls by that many hundred-and-twentieths of a step, of which a small turn of the wheel is one.
    void ScrollBy(QPoint turn);
    void RedrawIfBehind();
    void GoToSelectedItem();

    void PressMiddle(const QMouseEvent &event);
    void Drag(const QMouseEvent &event);
    void EndDrag();
    /// Shows the line from where the measuring began to the viewport's pixel at.
    void MeasureTo(QPoint at);

    Session &session_;
    MainWidgets &widgets_;
    std::function<void()> redraw_;
    MeasureLine *measureLine_;
    int zoomTurn_ = 0;                 ///< what was turned of a step, in the wheel's units
    QPoint scrollTurn_;                ///< what was turned of a map pixel
    std::optional<MapPlace> dragged_;  ///< the place of the map that the middle button holds
    std::optional<MapPlace> measuredFrom_;
};

}  // namespace vtr
