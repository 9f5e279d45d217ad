#pragma once

#include "MapView.h"
#include "PictureWidget.h"

namespace vtr {

/// Img_SmallMap: the whole map at a quarter of its size, with the rectangle shp_area over it.
class Overview : public PictureWidget {
    Q_OBJECT

  public:
    explicit Overview(QWidget *parent);

    /// Shows the map picture, which may have any size. An empty one shows as black.
    void ShowPicture(const Picture &map);
    void ShowArea(const OverviewRectangle &area);

  Q_SIGNALS:
    void Clicked();

  protected:
    void mouseReleaseEvent(QMouseEvent *event) override;

  private:
    QWidget *area_;
};

}  // namespace vtr
