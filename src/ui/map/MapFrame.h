#pragma once

#include <QScrollBar>
#include <QWidget>

#include "MapSurface.h"
#include "ZoomCommands.h"

namespace vtr {

/// Img_Map between its scroll bars h_scroll and v_scroll, whose changes move the view. A frame around it
/// shows that it has the keyboard focus.
class MapFrame : public QWidget {
    Q_OBJECT

  public:
    MapFrame(MapView &view, QWidget *parent);

    MapSurface *Img_Map;
    /// Runs a command of the zoom menu on the view and the scroll bars.
    void Zoom(void (*command)(MapView &view, ScrollBars bars));
    /// Scrolls so that the map pixel comes to the middle, as far as the map goes, unless it is seen already
    /// or lies beside the map.
    void BringIntoView(int x, int y);

  Q_SIGNALS:
    /// The part that the viewport shows has moved; the map itself waits for the next redraw.
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
