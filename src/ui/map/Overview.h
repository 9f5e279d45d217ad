#pragma once

#include <QImage>
#include <QWidget>

#include "MapView.h"
#include "Picture.h"

namespace vtr {

/// Img_SmallMap: the whole map at a quarter of its size, with the rectangle shp_area over it.
class Overview : public QWidget {
    Q_OBJECT

  public:
    explicit Overview(QWidget *parent);

    /// Shows the map picture, of any size; without one it is black.
    void ShowPicture(const Picture &map);
    void ShowArea(const OverviewRectangle &area);

  Q_SIGNALS:
    void Clicked();

  protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

  private:
    QImage picture_;
    QWidget *area_;
};

}  // namespace vtr
