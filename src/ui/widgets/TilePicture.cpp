#include "TilePicture.h"

#include <QImage>
#include <QPaintEvent>
#include <QPainter>
#include <utility>

namespace vtr {

TilePicture::TilePicture(const QString &name, QWidget *parent) : QWidget(parent) {
    setObjectName(name);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
}

void TilePicture::SetPicture(Picture picture) {
    picture_ = std::move(picture);
    setFixedSize(picture_.width, picture_.height);
    update();
}

void TilePicture::paintEvent(QPaintEvent *event) {
    const QImage image(reinterpret_cast<const uchar *>(picture_.pixels.data()), picture_.width,
                       picture_.height, QImage::Format_RGB32);
    QPainter(this).drawImage(event->rect(), image, event->rect());
}

}  // namespace vtr
