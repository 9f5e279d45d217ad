#pragma once

#include <QScrollBar>
#include <QWidget>

#include "MapSurface.h"
#include "ZoomCommands.h"

namespace vtr {

/// Img_Map with its scroll bars h_scroll and v_scroll, which move the view. A frame shows that the map has
/// the keyboard focus.
class MapFrame : public QWidget {
    Q_OBJECT

  public:
    MapFrame(MapView &view, QWidget *parent);

    MapSurface *Img_Map;
    /// Runs a command of the zoom menu on the view and the scroll bars.
    void Zoom(void (*command)(MapView &view, ScrollBars bars));
    /// Scrolls the map pixel to the middle, as far as the map goes. Does nothing when the pixel is in view or
    /// lies beside the map.
    void BringIntoView(int x, int y);

  Q_SIGNALS:
    /// The viewport shows another part of the map. The map has not been redrawn yet.
    void AreaChanged();

  protected:
    void paintEvent(QPaintEvent *event) override;

  private:
    QScrollBar *AddScrollBar(const char *name, Qt::Orientation orientation,
                             void (*changed)(MapView &view, std::int16_t value));

    MapView &view_;
    QScrollBar *h_scroll_;
    QScrollBar *v_scroll_;
};

}  // namespace vtr
