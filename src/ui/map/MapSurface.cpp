#include "MapSurface.h"

#include <QAccessibleWidget>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>

#include "MapView.h"

namespace vtr {

namespace {

/// Tells assistive tools that the map is a picture.
QAccessibleInterface *AccessibleMap(const QString & /*className*/, QObject *object) {
    auto *map = qobject_cast<MapSurface *>(object);
    return map == nullptr ? nullptr : new QAccessibleWidget(map, QAccessible::Graphic);
}

}  // namespace

MapSurface::MapSurface(QWidget *parent) : QWidget(parent) {
    QAccessible::installFactory(AccessibleMap);
    setObjectName(QStringLiteral("Img_Map"));
    setAccessibleName(tr("Campaign map"));
    setFixedSize(mapWidth, mapHeight);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
}

Picture &MapSurface::Surface() {
    if (surface_.Empty())
        surface_ = {mapWidth, mapHeight,
                    std::vector<std::uint32_t>(std::size_t{mapWidth} * mapHeight, 0xFF000000U)};
    return surface_;
}

void MapSurface::paintEvent(QPaintEvent *event) {
    QPainter painter(this);
    if (surface_.Empty()) {
        painter.fillRect(event->rect(), Qt::black);
        return;
    }
    const QImage image(reinterpret_cast<const uchar *>(surface_.pixels.data()), mapWidth, mapHeight,
                       QImage::Format_RGB32);
    painter.drawImage(event->rect(), image, event->rect());
}

void MapSurface::keyPressEvent(QKeyEvent *event) {
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

void MapSurface::contextMenuEvent(QContextMenuEvent *event) {
    event->accept();
}

}  // namespace vtr
