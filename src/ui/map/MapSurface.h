#pragma once

#include "PictureWidget.h"

namespace vtr {

/// Img_Map: shows the surface of 640 x 320 pixels that the last redraw has drawn, and passes the mouse on.
/// PixelUnder is the surface's pixel that an event is on. Painting the widget does not redraw the map.
class MapSurface : public PictureWidget {
    Q_OBJECT

  public:
    explicit MapSurface(QWidget *parent);

  Q_SIGNALS:
    void MouseMoved(QMouseEvent *event);
    void MousePressed(QMouseEvent *event);
    void MouseReleased(QMouseEvent *event);
    void MouseLeft();
    void WheelTurned(QWheelEvent *event);
    /// An arrow key with Alt asks to scroll the map by a step to the right or left, or down or up.
    void ScrollRequested(int right, int down);
    /// The map got the keyboard focus or lost it.
    void FocusChanged();

  protected:
    void mouseMoveEvent(QMouseEvent *event) override { Q_EMIT MouseMoved(event); }
    void mousePressEvent(QMouseEvent *event) override { Q_EMIT MousePressed(event); }
    void mouseReleaseEvent(QMouseEvent *event) override { Q_EMIT MouseReleased(event); }
    void leaveEvent(QEvent * /*event*/) override { Q_EMIT MouseLeft(); }
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent * /*event*/) override { Q_EMIT FocusChanged(); }
    void focusOutEvent(QFocusEvent * /*event*/) override { Q_EMIT FocusChanged(); }
};

}  // namespace vtr
