#pragma once

#include <QWidget>

#include "MapSurface.h"

namespace vtr {

/// Something that lies over the whole map and is no part of it: the mouse goes through it, and a picture of
/// the map does not have it. It follows the map's place and size.
class MapOverlay : public QWidget {
    Q_OBJECT

  protected:
    MapOverlay(const QString &name, MapSurface *map);

    bool eventFilter(QObject *watched, QEvent *event) override;

    const MapSurface &Map() const { return *map_; }

  private:
    MapSurface *map_;
};

}  // namespace vtr
