#include "Overview.h"

#include <QImage>
#include <QMouseEvent>
#include <QPainter>

namespace vtr {

namespace {

constexpr int overviewWidth = mapWidth / overviewScale;
constexpr int overviewHeight = mapHeight / overviewScale;

/// A rectangle of fewer pixels each way is hard to see.
constexpr int smallestArea = 7;
/// From the rectangle to the frame around it, the frame included.
constexpr int distanceAround = 3;

/// A frame of one pixel, in two tones so that it shows on any map.
class AreaFrame : public QWidget {
  public:
    AreaFrame(const QString &name, QWidget *parent) : QWidget(parent) {
        setObjectName(name);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

  protected:
    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        const QRegion inside(rect().adjusted(1, 1, -1, -1));
        painter.setClipRegion(QRegion(rect()) - inside);
        painter.fillRect(rect(), Qt::black);
        painter.fillRect(rect(), QBrush(Qt::white, Qt::Dense4Pattern));
    }
};

}  // namespace

Overview::Overview(QWidget *parent)
    : PictureWidget(QStringLiteral("Img_SmallMap"), parent),
      area_(new AreaFrame(QStringLiteral("shp_area"), this)),
      aroundArea_(new AreaFrame(QStringLiteral("shp_around"), this)) {
    setAccessibleName(tr("Overview of the whole map"));
    setToolTip(
        tr("The whole map; the frame marks the part that is shown. "
           "A click redraws the map, the middle button moves the part."));
    setFixedSize(overviewWidth, overviewHeight);
}

void Overview::ShowPicture(const Picture &map) {
    if (map.Empty())
        return SetPicture({});
    // The map is 640 x 320 pixels. A larger picture is cut off, the rest of a smaller one stays black.
    const QImage whole(reinterpret_cast<const uchar *>(map.pixels.data()), map.width, map.height,
                       QImage::Format_RGB32);
    const QImage small =
        whole.copy(0, 0, mapWidth, mapHeight)
            .scaled(overviewWidth, overviewHeight, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const auto *const pixels = reinterpret_cast<const std::uint32_t *>(small.constBits());
    SetPicture(
        {overviewWidth, overviewHeight, {pixels, pixels + std::ptrdiff_t{overviewWidth} * overviewHeight}});
}

void Overview::ShowArea(const OverviewRectangle &area) {
    area_->setGeometry(area.Left, area.Top, area.Width, area.Height);
    area_->setVisible(area.Visible);
    aroundArea_->setGeometry(area_->geometry()
                                 .adjusted(-distanceAround, -distanceAround, distanceAround, distanceAround)
                                 .intersected(rect()));
    aroundArea_->setVisible(area.Visible && (area.Width < smallestArea || area.Height < smallestArea));
}

void Overview::Drag(const QMouseEvent &event) {
    if (!event.buttons().testFlag(Qt::MiddleButton))
        return;
    const QPoint at = PixelUnder(event);
    Q_EMIT ViewDragged(at.x() * overviewScale + overviewScale / 2,
                       at.y() * overviewScale + overviewScale / 2);
}

void Overview::mouseReleaseEvent(QMouseEvent *) {
    Q_EMIT Clicked();
}

}  // namespace vtr
