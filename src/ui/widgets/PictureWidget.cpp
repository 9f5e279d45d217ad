#include "PictureWidget.h"

#include <QAccessibleWidget>
#include <QImage>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <utility>

#include "Arithmetic.h"

namespace vtr {

namespace {

QAccessibleInterface *AccessiblePicture(const QString & /*className*/, QObject *object) {
    auto *picture = qobject_cast<PictureWidget *>(object);
    return picture == nullptr ? nullptr : new QAccessibleWidget(picture, QAccessible::Graphic);
}

}  // namespace

PictureWidget::PictureWidget(const QString &name, QWidget *parent) : QWidget(parent) {
    QAccessible::installFactory(AccessiblePicture);
    setObjectName(name);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
}

void PictureWidget::SetPicture(Picture picture) {
    picture_ = std::move(picture);
    if (!picture_.Empty())
        setFixedSize(QSize(picture_.width, picture_.height) * factor_);
    update();
}

void PictureWidget::SetFactor(int factor) {
    setFixedSize(size() / factor_ * factor);
    factor_ = factor;
}

Picture &PictureWidget::Surface() {
    const int columns = width() / factor_;
    const int rows = height() / factor_;
    if (picture_.Empty())
        picture_ = {columns, rows,
                    std::vector<std::uint32_t>(
                        static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows), 0xFF000000U)};
    return picture_;
}

std::pair<EnlargedAxis, EnlargedAxis> PictureWidget::AxesOn(QPointF origin, qreal ratio) const {
    return {{origin.x() * ratio, factor_ * ratio}, {origin.y() * ratio, factor_ * ratio}};
}

QPoint PictureWidget::PixelUnder(const QSinglePointEvent &event) const {
    // Qt rounds the place on the widget; that on the window still has what was rounded away.
    const QPointF roundedAway = event.scenePosition() - event.scenePosition().toPoint();
    const QPointF origin = mapTo(window(), QPointF());
    const qreal ratio = devicePixelRatio();
    const QPointF at = (origin + event.position() + roundedAway) * ratio;
    const auto [columns, rows] = AxesOn(origin, ratio);
    constexpr double rounding = 1e-6;
    return {columns.PixelAt(FloorToInt32(at.x() + rounding)), rows.PixelAt(FloorToInt32(at.y() + rounding))};
}

void PictureWidget::keyPressEvent(QKeyEvent *event) {
    switch (event->key()) {
        case Qt::Key_Left:
            return Q_EMIT NudgeRequested(-1, 0);
        case Qt::Key_Right:
            return Q_EMIT NudgeRequested(1, 0);
        case Qt::Key_Up:
            return Q_EMIT NudgeRequested(0, -1);
        case Qt::Key_Down:
            return Q_EMIT NudgeRequested(0, 1);
        default:
            QWidget::keyPressEvent(event);
    }
}

void PictureWidget::paintEvent(QPaintEvent *event) {
    QPainter painter(this);
    if (picture_.Empty())
        return painter.fillRect(event->rect(), Qt::black);
    const QTransform toDisplay = painter.deviceTransform();
    const qreal ratio = toDisplay.m11();
    const auto [columns, rows] = AxesOn(QPointF(toDisplay.dx(), toDisplay.dy()) / ratio, ratio);
    if (columns.size == 1) {
        const QImage image(reinterpret_cast<const uchar *>(picture_.pixels.data()), picture_.width,
                           picture_.height, QImage::Format_RGB32);
        return painter.drawImage(event->rect(), image, event->rect());
    }
    // Qt's own enlargement takes many times as long, and its uneven pixels are not those that PixelUnder
    // finds.
    const QRect part = toDisplay.mapRect(QRectF(event->rect())).toAlignedRect();
    QImage enlarged(part.size(), QImage::Format_RGB32);
    EnlargePicture(picture_, columns.PixelsFrom(part.left(), part.width(), picture_.width),
                   rows.PixelsFrom(part.top(), part.height(), picture_.height),
                   {reinterpret_cast<std::uint32_t *>(enlarged.bits()),
                    static_cast<std::size_t>(part.width()) * static_cast<std::size_t>(part.height())});
    painter.setWorldTransform(toDisplay.inverted());
    painter.drawImage(part.topLeft(), enlarged);
}

}  // namespace vtr
