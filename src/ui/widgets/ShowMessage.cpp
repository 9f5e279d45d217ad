#include "ShowMessage.h"

namespace vtr {

void ShowMessage(QWidget *parent, QMessageBox::Icon icon, const QString &text, const QString &title) {
    QMessageBox box(icon, title, text, QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

}  // namespace vtr
