#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

namespace vtr {

/// Presses a button of the next message box, whatever other windows open before it, and keeps what the box
/// said.
class MessageBoxAnswer {
  public:
    explicit MessageBoxAnswer(QMessageBox::StandardButton button) {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this, button] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (box == nullptr)
                return;
            timer_.stop();
            title_ = box->windowTitle();
            text_ = box->text();
            icon_ = box->icon();
            buttons_ = box->standardButtons();
            box->button(button)->click();
        });
        timer_.start(0);
    }

    const QString &Title() const { return title_; }
    const QString &Text() const { return text_; }
    QMessageBox::Icon Icon() const { return icon_; }
    QMessageBox::StandardButtons Buttons() const { return buttons_; }

  private:
    QTimer timer_;
    QString title_;
    QString text_;
    QMessageBox::Icon icon_ = QMessageBox::NoIcon;
    QMessageBox::StandardButtons buttons_;
};

}  // namespace vtr
