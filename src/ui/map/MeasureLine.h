#pragma once

#include <QWidget>

namespace vtr {

class MapSurface;

/// A line over the map with a text at its end. It lies over the map and is no part of it: the mouse goes
/// through it.
class MeasureLine : public QWidget {
    Q_OBJECT

  public:
    explicit MeasureLine(MapSurface *map);

    /// Shows the line between two points of the map's viewport.
    void ShowLine(QPointF from, QPointF to, const QString &text);
    const QString &Text() const { return text_; }

  protected:
    void paintEvent(QPaintEvent *event) override;

  private:
    MapSurface *map_;
    QPointF from_;
    QPointF to_;
    QString text_;
};

}  // namespace vtr
