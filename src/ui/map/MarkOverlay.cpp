#include "MarkOverlay.h"

#include <QPainter>

namespace vtr {

namespace {

/// A corner with its outer pixel at (x, y), two pixels thick: black outside and white inside, so that it
/// shows on any map. inX and inY are 1 or -1: the way to the item.
void DrawCorner(QPainter &painter, int x, int y, int inX, int inY, int arm) {
    const auto fill = [&](int thick, const QColor &colour) {
        const QPoint corner(x + inX * thick, y + inY * thick);
        const QPoint along(inX * (arm - 1 - thick), 0);
        const QPoint upright(0, inY * (arm - 1 - thick));
        for (const QPoint &end : {corner + along, corner + upright})
            painter.fillRect(QRect(QPoint(std::min(corner.x(), end.x()), std::min(corner.y(), end.y())),
                                   QPoint(std::max(corner.x(), end.x()), std::max(corner.y(), end.y()))),
                             colour);
    };
    fill(0, Qt::black);
    fill(1, Qt::white);
}

void DrawCorners(QPainter &painter, const SelectionMark::Corners &corners) {
    DrawCorner(painter, corners.left, corners.top, 1, 1, corners.arm);
    DrawCorner(painter, corners.right, corners.top, -1, 1, corners.arm);
    DrawCorner(painter, corners.left, corners.bottom, 1, -1, corners.arm);
    DrawCorner(painter, corners.right, corners.bottom, -1, -1, corners.arm);
}

void DrawArrow(QPainter &painter, const SelectionMark::Arrow &arrow) {
    constexpr double length = 11;
    constexpr double halfWidth = 5;
    const QPointF tip(arrow.tipX, arrow.tipY);
    const QPointF along(arrow.directionX, arrow.directionY);
    const QPointF aside(-arrow.directionY, arrow.directionX);
    const QPointF back = tip - along * length;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, 1.5));
    painter.setBrush(Qt::white);
    painter.drawPolygon(QPolygonF({tip, back + aside * halfWidth, back - aside * halfWidth}));
}

}  // namespace

void MarkOverlay::ShowMark(const SelectionMark &mark) {
    if (mark == mark_)
        return;
    mark_ = mark;
    setVisible(mark != SelectionMark{});
    update();
}

void MarkOverlay::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    painter.scale(Map().Factor(), Map().Factor());
    if (mark_.corners)
        DrawCorners(painter, *mark_.corners);
    if (mark_.arrow)
        DrawArrow(painter, *mark_.arrow);
}

}  // namespace vtr
