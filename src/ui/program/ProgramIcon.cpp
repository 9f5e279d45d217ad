#include "ProgramIcon.h"

#include <QPainter>
#include <QPainterPath>
#include <array>

namespace vtr {

namespace {

/// A coast with a target cross in its ring, on a field of 64 x 64.
QPixmap DrawIcon(int size) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / 64.0, size / 64.0);

    QPainterPath map;
    map.addRoundedRect(2, 2, 60, 60, 10, 10);
    painter.fillPath(map, QColor(0x2f, 0x6d, 0x9e));
    QPainterPath land(QPointF(2, 40));
    land.cubicTo(16, 28, 20, 48, 34, 34);
    land.cubicTo(44, 24, 48, 22, 62, 14);
    land.lineTo(62, 62);
    land.lineTo(2, 62);
    painter.fillPath(land.intersected(map), QColor(0x7f, 0xa6, 0x50));
    painter.setPen(QPen(QColor(0x1d, 0x2b, 0x38), 2));
    painter.drawPath(map);

    const std::array<QLineF, 4> arms{{{32, 8, 32, 22}, {32, 42, 32, 56}, {8, 32, 22, 32}, {42, 32, 56, 32}}};
    for (const auto &[colour, width] : {std::pair{QColor(Qt::white), 7.0}, {QColor(0xc6, 0x28, 0x28), 3.5}}) {
        painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap));
        painter.drawEllipse(QPointF(32, 32), 16, 16);
        painter.drawLines(arms.data(), static_cast<int>(arms.size()));
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawEllipse(QPointF(32, 32), width, width);
        painter.setBrush(Qt::NoBrush);
    }
    return picture;
}

}  // namespace

QIcon ProgramIcon() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        icon.addPixmap(DrawIcon(size));
    return icon;
}

}  // namespace vtr
