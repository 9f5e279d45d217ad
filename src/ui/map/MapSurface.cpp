#include "MapSurface.h"

#include "MapView.h"

namespace vtr {

MapSurface::MapSurface(QWidget *parent) : PictureWidget(QStringLiteral("Img_Map"), parent) {
    setAccessibleName(tr("Campaign map"));
    setFixedSize(mapWidth, mapHeight);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setContextMenuPolicy(Qt::PreventContextMenu);
}

}  // namespace vtr
