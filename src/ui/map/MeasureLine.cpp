#include "MeasureLine.h"

#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "MapSurface.h"
#include "MapView.h"

namespace vtr {

namespace {

/// From the line's end to the text, and from the text to the edge of its box.
constexpr int textDistance = 12;
constexpr int textMargin = 3;

}  // namespace

MeasureLine::MeasureLine(MapSurface *map) : MapOverlay(QStringLiteral("lin_measure"), map) {
    setPalette(QToolTip::palette());
}

void MeasureLine::ShowLine(QPointF from, QPointF to, const QString &text) {
    from_ = from;
    to_ = to;
    text_ = text;
    raise();
    show();
    update();
}

void MeasureLine::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double scale = Map().Factor();
    const QLineF line(from_ * scale, to_ * scale);
    // Black around white shows on any map.
    for (const auto &[colour, penWidth] : {std::pair(Qt::black, 3.5), {Qt::white, 1.5}}) {
        painter.setPen(QPen(colour, penWidth, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(line);
        painter.drawEllipse(line.p1(), textMargin, textMargin);
    }
    QRect box =
        fontMetrics().boundingRect(text_).marginsAdded({textMargin, textMargin, textMargin, textMargin});
    box.moveTopLeft(line.p2().toPoint() + QPoint(textDistance, textDistance));
    box.moveLeft(std::clamp(box.left(), 0, std::max(0, width() - box.width())));
    if (box.bottom() >= height())
        box.moveBottom(line.p2().toPoint().y() - textDistance);
    box.moveTop(std::clamp(box.top(), 0, std::max(0, height() - box.height())));
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(palette().color(QPalette::ToolTipText));
    painter.setBrush(palette().toolTipBase());
    painter.drawRect(box.adjusted(0, 0, -1, -1));
    painter.drawText(box, Qt::AlignCenter, text_);
}

}  // namespace vtr
