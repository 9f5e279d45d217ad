#include "ColourSwatch.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace vtr {

namespace {

constexpr int focusFrameWidth = 2;

QAccessibleInterface *AccessibleSwatch(const QString & /*className*/, QObject *object) {
    auto *swatch = qobject_cast<ColourSwatch *>(object);
    return swatch == nullptr ? nullptr : new QAccessibleWidget(swatch, QAccessible::ColorChooser);
}

/// Black or white, whichever is seen better on colour.
Qt::GlobalColor SeenOn(const QColor &colour) {
    return qGray(colour.rgb()) < 128 ? Qt::white : Qt::black;
}

}  // namespace

ColourSwatch::ColourSwatch(const QString &name, QWidget *parent) : QFrame(parent) {
    QAccessible::installFactory(AccessibleSwatch);
    setObjectName(name);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setAutoFillBackground(true);
    setMinimumSize(48, 20);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
}

void ColourSwatch::ShowColour(const QColor &colour) {
    QPalette changed = palette();
    changed.setColor(QPalette::Window, colour);
    setPalette(changed);
}

void ColourSwatch::mouseReleaseEvent(QMouseEvent *event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        Q_EMIT Clicked();
}

void ColourSwatch::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Q_EMIT Clicked();
    else
        QFrame::keyPressEvent(event);
}

void ColourSwatch::paintEvent(QPaintEvent *event) {
    QFrame::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    painter.setPen(QPen(SeenOn(palette().color(QPalette::Window)), 1, Qt::DotLine));
    painter.drawRect(
        rect().adjusted(focusFrameWidth, focusFrameWidth, -focusFrameWidth - 1, -focusFrameWidth - 1));
}

}  // namespace vtr
