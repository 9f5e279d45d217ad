#include "ChoiceField.h"

#include <QSignalBlocker>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

namespace vtr {

ChoiceField::ChoiceField(const QString &name, int letters, QWidget *parent)
    : QComboBox(parent), letters_(letters) {
    setObjectName(name);
    setFocusPolicy(Qt::StrongFocus);
    setMaxVisibleItems(33);
}

void ChoiceField::ShowEntry(int entry) {
    const QSignalBlocker blocker(this);
    setCurrentIndex(entry < count() ? entry : -1);
}

/// Left to itself the list measures all of its captions, or makes its drop-down at once: a tenth of the time
/// in which the program starts.
QSize ChoiceField::sizeHint() const {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QFontMetrics metrics = fontMetrics();
    // A pixel above and below the letters, as lists have everywhere.
    const QSize contents(letters_ * metrics.horizontalAdvance(u'X'), metrics.height() + 2);
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, contents, this);
}

void ChoiceField::wheelEvent(QWheelEvent *event) {
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

}  // namespace vtr
