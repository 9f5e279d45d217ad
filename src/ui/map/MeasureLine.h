#pragma once

#include "MapOverlay.h"

namespace vtr {

/// A line over the map with a text at its end.
class MeasureLine : public MapOverlay {
    Q_OBJECT

  public:
    explicit MeasureLine(MapSurface *map);

    /// Shows the line between two points of the map's viewport.
    void ShowLine(QPointF from, QPointF to, const QString &text);
    const QString &Text() const { return text_; }

  protected:
    void paintEvent(QPaintEvent *event) override;

  private:
    QPointF from_;
    QPointF to_;
    QString text_;
};

}  // namespace vtr
