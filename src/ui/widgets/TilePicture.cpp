#include "TilePicture.h"

#include <QAccessibleWidget>
#include <QImage>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <utility>

namespace vtr {

namespace {

QAccessibleInterface *AccessiblePicture(const QString & /*className*/, QObject *object) {
    auto *picture = qobject_cast<TilePicture *>(object);
    return picture == nullptr ? nullptr : new QAccessibleWidget(picture, QAccessible::Graphic);
}

}  // namespace

TilePicture::TilePicture(const QString &name, QWidget *parent) : QWidget(parent) {
    QAccessible::installFactory(AccessiblePicture);
    setObjectName(name);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
}

void TilePicture::SetPicture(Picture picture) {
    picture_ = std::move(picture);
    setFixedSize(picture_.width, picture_.height);
    update();
}

void TilePicture::keyPressEvent(QKeyEvent *event) {
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

void TilePicture::paintEvent(QPaintEvent *event) {
    const QImage image(reinterpret_cast<const uchar *>(picture_.pixels.data()), picture_.width,
                       picture_.height, QImage::Format_RGB32);
    QPainter(this).drawImage(event->rect(), image, event->rect());
}

}  // namespace vtr
