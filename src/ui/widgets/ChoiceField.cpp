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

/// QComboBox would measure all captions or create its drop-down list. That takes a tenth of the program's
/// start.
QSize ChoiceField::sizeHint() const {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QFontMetrics metrics = fontMetrics();
    // One pixel above and below the letters, as in any QComboBox.
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
