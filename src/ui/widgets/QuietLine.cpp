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

bool QuietLine::LayOut(QTextLayout &layout, QString &shortened) const {
    const int lineHeight = fontMetrics().height();
    const int most = std::max(1, height() / lineHeight);
    QString paragraphs = text_;
    layout.setText(paragraphs.replace(QLatin1Char('\n'), QChar::LineSeparator));
    layout.setFont(font());
    layout.beginLayout();
    for (int number = 0; number < most; ++number) {
        QTextLine line = layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(width());
        line.setPosition(QPointF(0, number * lineHeight));
        const bool isLast = number + 1 == most;
        if ((isLast && line.textStart() + line.textLength() < paragraphs.size()) ||
            line.naturalTextWidth() > width()) {
            shortened = paragraphs.mid(line.textStart()).replace(QChar::LineSeparator, QLatin1Char(' '));
            break;
        }
    }
    layout.endLayout();
    return shortened.isEmpty();
}

bool QuietLine::event(QEvent *event) {
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    QTextLayout layout;
    QString shortened;
    if (LayOut(layout, shortened))
        return QWidget::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), text_, this);
    return true;
}

void QuietLine::paintEvent(QPaintEvent * /*event*/) {
    if (text_.isEmpty())
        return;
    QTextLayout layout;
    QString shortened;
    LayOut(layout, shortened);
    const int lineHeight = fontMetrics().height();
    const int whole = layout.lineCount() - (shortened.isEmpty() ? 0 : 1);
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    // A single line stands beside a title, where some styles draw the frame's line.
    if (lines_ == 1)
        painter.fillRect(layout.boundingRect().toAlignedRect(), palette().window());
    for (int number = 0; number < whole; ++number)
        layout.lineAt(number).draw(&painter, QPointF());
    if (!shortened.isEmpty())
        painter.drawText(QRect(0, whole * lineHeight, width(), lineHeight), 0,
                         fontMetrics().elidedText(shortened, Qt::ElideRight, width()));
}

}  // namespace vtr
