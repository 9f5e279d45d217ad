#include "MapSurface.h"

#include <QKeyEvent>
#include <QWheelEvent>

#include "MapView.h"

namespace vtr {

MapSurface::MapSurface(QWidget *parent) : PictureWidget(QStringLiteral("Img_Map"), parent) {
    setAccessibleName(tr("Campaign map"));
    setFixedSize(mapWidth, mapHeight);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setContextMenuPolicy(Qt::PreventContextMenu);
}

void MapSurface::wheelEvent(QWheelEvent *event) {
    Q_EMIT WheelTurned(event);
    event->accept();
}

void MapSurface::keyPressEvent(QKeyEvent *event) {
    if (event->modifiers().testFlag(Qt::AltModifier)) {
        switch (event->key()) {
            case Qt::Key_Left:
                return Q_EMIT ScrollRequested(-1, 0);
            case Qt::Key_Right:
                return Q_EMIT ScrollRequested(1, 0);
            case Qt::Key_Up:
                return Q_EMIT ScrollRequested(0, -1);
            case Qt::Key_Down:
                return Q_EMIT ScrollRequested(0, 1);
            default:
                break;
        }
    }
    PictureWidget::keyPressEvent(event);
}

}  // namespace vtr
