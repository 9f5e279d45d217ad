#include "PictureWidget.h"

#include <QAccessibleWidget>
#include <QImage>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <utility>

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
        setFixedSize(picture_.width, picture_.height);
    update();
}

Picture &PictureWidget::Surface() {
    if (picture_.Empty())
        picture_ = {width(), height(),
                    std::vector<std::uint32_t>(
                        static_cast<std::size_t>(width()) * static_cast<std::size_t>(height()), 0xFF000000U)};
    return picture_;
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
    const QImage image(reinterpret_cast<const uchar *>(picture_.pixels.data()), picture_.width,
                       picture_.height, QImage::Format_RGB32);
    painter.drawImage(event->rect(), image, event->rect());
}

}  // namespace vtr
