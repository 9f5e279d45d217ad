#pragma once

#include <QCoreApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <QWidget>

#include "EditorWindow.h"
#include "MapFrame.h"
#include "RedrawCounter.h"

namespace vtr {

/// Sends the event as the window system does, also while a button is held or at a place outside the widget.
inline void SendMouse(QEvent::Type type, QWidget &widget, Qt::MouseButton button, Qt::MouseButtons held,
                      QPoint at, Qt::KeyboardModifiers keys) {
    QMouseEvent event(type, at, widget.mapTo(widget.window(), QPointF(at)), widget.mapToGlobal(QPointF(at)),
                      button, held, keys);
    QCoreApplication::sendEvent(&widget, &event);
}
inline void PressMouse(QWidget &widget, Qt::MouseButton button, QPoint at,
                       Qt::KeyboardModifiers keys = Qt::NoModifier) {
    SendMouse(QEvent::MouseButtonPress, widget, button, button, at, keys);
}
/// Moves with one button held, or none.
inline void MoveMouse(QWidget &widget, Qt::MouseButton held, QPoint at,
                      Qt::KeyboardModifiers keys = Qt::NoModifier) {
    SendMouse(QEvent::MouseMove, widget, Qt::NoButton, held, at, keys);
}
inline void ReleaseMouse(QWidget &widget, Qt::MouseButton button, QPoint at,
                         Qt::KeyboardModifiers keys = Qt::NoModifier) {
    SendMouse(QEvent::MouseButtonRelease, widget, button, Qt::NoButton, at, keys);
}
/// Turns the wheel; a step of a usual one is 120, away from the user is up.
inline void TurnWheel(QWidget &widget, QPoint turn, Qt::KeyboardModifiers keys = Qt::NoModifier,
                      QPoint at = {320, 160}) {
    QWheelEvent event(QPointF(at), widget.mapToGlobal(QPointF(at)), QPoint(), turn, Qt::NoButton, keys,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
}

/// The main window with the sample loaded, its view and its redraws.
class MapMovingTest : public EditorWindow {
  protected:
    void SetUp() override {
        StartWithSample();
        QApplication::setActiveWindow(&window());
    }
    QScrollBar &Across() { return Find<QScrollBar>(window(), QStringLiteral("h_scroll")); }
    QScrollBar &Down() { return Find<QScrollBar>(window(), QStringLiteral("v_scroll")); }
    MapSurface &Map() { return Find<MapSurface>(window(), QStringLiteral("Img_Map")); }
    void ZoomTo(int factor) {
        Entry("mnu_m_z_100").trigger();
        for (int i = 1; i < factor; ++i)
            Entry("mnu_m_z_in").trigger();
    }
    template <typename Action>
    int RedrawsOf(Action action) {
        counter.count = 0;
        action();
        QCoreApplication::processEvents();
        return counter.count;
    }
    QPoint Shown() { return {Across().value(), Down().value()}; }
    void Show(int left, int top) {
        Across().setValue(left);
        Down().setValue(top);
        window().Redraw();
    }
    QPoint MapPixelUnder(QPoint screen) {
        const MapPoint point =
            ScreenToMap(session->view, static_cast<float>(screen.x()), static_cast<float>(screen.y()));
        return QPointF(point.x, point.y).toPoint();
    }

    RedrawCounter counter;
};

}  // namespace vtr
