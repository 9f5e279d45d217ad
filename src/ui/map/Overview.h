#pragma once

#include "MapView.h"
#include "PictureWidget.h"

namespace vtr {

/// Img_SmallMap: the whole map at a quarter of its size, with the rectangle shp_area over it. The middle
/// button drags the view.
class Overview : public PictureWidget {
    Q_OBJECT

  public:
    explicit Overview(QWidget *parent);

    /// Shows the map picture, which may have any size. An empty one shows as black.
    void ShowPicture(const Picture &map);
    void ShowArea(const OverviewRectangle &area);

  Q_SIGNALS:
    void Clicked();
    /// The middle button asks to show that map pixel, which may lie beside the map, in the middle.
    void ViewDragged(int x, int y);

  protected:
    void mousePressEvent(QMouseEvent *event) override { Drag(*event); }
    void mouseMoveEvent(QMouseEvent *event) override { Drag(*event); }
    void mouseReleaseEvent(QMouseEvent *event) override;

  private:
    void Drag(const QMouseEvent &event);

    QWidget *area_;
    QWidget *aroundArea_;  ///< makes a small one visible
};

}  // namespace vtr
