#pragma once

#include "MapOverlay.h"
#include "SelectionMark.h"

namespace vtr {

/// shp_mark: the mark on the selected item, over the map.
class MarkOverlay : public MapOverlay {
    Q_OBJECT

  public:
    explicit MarkOverlay(MapSurface *map) : MapOverlay(QStringLiteral("shp_mark"), map) {}

    void ShowMark(const SelectionMark &mark);

  protected:
    void paintEvent(QPaintEvent *event) override;

  private:
    SelectionMark mark_;
};

}  // namespace vtr
