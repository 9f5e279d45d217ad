#pragma once

#include <QScrollBar>
#include <QWidget>
#include <functional>

#include "MapSurface.h"
#include "ZoomCommands.h"

class QLabel;

namespace vtr {

/// Img_Map with its scroll bars h_scroll and v_scroll, which move the view. A frame shows that the map has
/// the keyboard focus, a sign that the scroll bars have moved on since the map was drawn.
class MapFrame : public QWidget {
    Q_OBJECT

  public:
    MapFrame(MapView &view, QWidget *parent);

    MapSurface *Img_Map;
    /// Runs a zoom command on the view and the scroll bars.
    void Zoom(const std::function<void(MapView &view, ScrollBars bars)> &command);
    /// Scrolls the map pixel to the top left corner, as far as the map goes.
    void ScrollTo(int left, int top);
    /// Scrolls the map pixel to the middle, as far as the map goes. False when the pixel lies beside the map.
    bool Centre(int x, int y);
    /// Lays out over the middle of the map what are children of this frame.
    void LayOver(QLayout *layout);
    /// Scrolls the map pixel to the middle, as far as the map goes. Does nothing when the pixel is in view or
    /// lies beside the map.
    void BringIntoView(int x, int y);
    /// The map has just been drawn as the scroll bars are.
    void MapDrawn();
    /// Whether the scroll bars have moved since.
    bool IsBehind() const;

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
    QLabel *lbl_behind_;
    QPoint drawn_;  ///< the values of the scroll bars when the map was drawn
};

}  // namespace vtr
