#include "QuietLine.h"

#include <QAccessibleWidget>
#include <QHelpEvent>
#include <QPainter>
#include <QTextLayout>
#include <QToolTip>

namespace vtr {

namespace {

QAccessibleInterface *AccessibleLine(const QString & /*className*/, QObject *object) {
    auto *line = qobject_cast<QuietLine *>(object);
    return line == nullptr ? nullptr : new QAccessibleWidget(line, QAccessible::StaticText);
}

}  // namespace

QuietLine::QuietLine(const QString &name, int lines, const QString &widest, QWidget *parent)
    : QWidget(parent), lines_(lines), widest_(widest) {
    QAccessible::installFactory(AccessibleLine);
    setObjectName(name);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void QuietLine::SetText(const QString &text) {
    if (text == text_)
        return;
    text_ = text;
    setAccessibleName(text);
    update();
}

QSize QuietLine::sizeHint() const {
    return {fontMetrics().horizontalAdvance(widest_), lines_ * fontMetrics().height()};
}

QuietLine::Lines QuietLine::Broken() const {
    const int most = std::max(1, height() / fontMetrics().height());
    QString paragraphs = text_;
    QTextLayout layout(paragraphs.replace(QLatin1Char('\n'), QChar::LineSeparator), font());
    Lines broken;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width());
        const bool isLastPlace = broken.lines.size() + 1 == most;
        const QString rest = paragraphs.mid(line.textStart());
        const bool endsHere = line.textLength() == rest.size();
        if (isLastPlace && (!endsHere || line.naturalTextWidth() > width())) {
            const QString oneLine = QString(rest).replace(QChar::LineSeparator, QLatin1Char(' '));
            broken.lines << fontMetrics().elidedText(oneLine + (endsHere ? "" : "..."), Qt::ElideRight,
                                                     width());
            broken.isAll = false;
            break;
        }
        broken.lines << rest.left(line.textLength()).remove(QChar::LineSeparator).trimmed();
    }
    layout.endLayout();
    return broken;
}

bool QuietLine::event(QEvent *event) {
    if (event->type() != QEvent::ToolTip || Broken().isAll)
        return QWidget::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), text_, this);
    return true;
}

void QuietLine::paintEvent(QPaintEvent * /*event*/) {
    if (text_.isEmpty())
        return;
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const QString shown = Broken().lines.join(QLatin1Char('\n'));
    // A single line stands beside a title, where some styles draw the frame's line.
    if (lines_ == 1)
        painter.fillRect(painter.boundingRect(rect(), Qt::AlignLeft | Qt::AlignTop, shown),
                         palette().window());
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignTop, shown);
}

}  // namespace vtr
