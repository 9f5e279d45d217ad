#include "MapOverlay.h"

#include <QEvent>

namespace vtr {

MapOverlay::MapOverlay(const QString &name, MapSurface *map) : QWidget(map->parentWidget()), map_(map) {
    setObjectName(name);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(map->geometry());
    map->installEventFilter(this);
    hide();
}

bool MapOverlay::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize)
        setGeometry(map_->geometry());
    return QWidget::eventFilter(watched, event);
}

}  // namespace vtr
