#pragma once

#include "PictureWidget.h"

namespace vtr {

/// Img_Map: shows the surface that the last redraw left, 640 x 320 pixels, and passes the mouse on. Painting
/// it is no redraw. An arrow key asks that the current item move by map pixels.
class MapSurface : public PictureWidget {
    Q_OBJECT

  public:
    explicit MapSurface(QWidget *parent);

  Q_SIGNALS:
    void MouseMoved(QMouseEvent *event);
    void MousePressed(QMouseEvent *event);
    void MouseReleased(QMouseEvent *event);
    /// The map got the keyboard focus or lost it.
    void FocusChanged();

  protected:
    void mouseMoveEvent(QMouseEvent *event) override { Q_EMIT MouseMoved(event); }
    void mousePressEvent(QMouseEvent *event) override { Q_EMIT MousePressed(event); }
    void mouseReleaseEvent(QMouseEvent *event) override { Q_EMIT MouseReleased(event); }
    void focusInEvent(QFocusEvent * /*event*/) override { Q_EMIT FocusChanged(); }
    void focusOutEvent(QFocusEvent * /*event*/) override { Q_EMIT FocusChanged(); }
};

}  // namespace vtr
