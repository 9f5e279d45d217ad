#pragma once

#include <QWidget>

#include "Picture.h"

namespace vtr {

/// Img_Map: shows the surface that the last redraw left and passes the mouse on. Painting it is no redraw.
class MapSurface : public QWidget {
    Q_OBJECT

  public:
    explicit MapSurface(QWidget *parent);

    /// What redraws draw on: 640 x 320 pixels, black at first. Call update() after drawing.
    Picture &Surface();

  Q_SIGNALS:
    void MouseMoved(QMouseEvent *event);
    void MousePressed(QMouseEvent *event);
    void MouseReleased(QMouseEvent *event);
    /// An arrow key: the current item is to move by (dx, dy) map pixels.
    void NudgeRequested(int dx, int dy);
    /// The map got the keyboard focus or lost it.
    void FocusChanged();

  protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override { Q_EMIT MouseMoved(event); }
    void mousePressEvent(QMouseEvent *event) override { Q_EMIT MousePressed(event); }
    void mouseReleaseEvent(QMouseEvent *event) override { Q_EMIT MouseReleased(event); }
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent * /*event*/) override { Q_EMIT FocusChanged(); }
    void focusOutEvent(QFocusEvent * /*event*/) override { Q_EMIT FocusChanged(); }
    void contextMenuEvent(QContextMenuEvent *event) override;

  private:
    Picture surface_;  ///< empty until it is asked for: the window opens sooner without 800 KB of black
};

}  // namespace vtr
