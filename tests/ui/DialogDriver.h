#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QString>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <stdexcept>

namespace vtr {

/// The control of window with that object name; the test fails here when there is none of that kind.
template <typename Control>
Control &Find(const QWidget &window, const QString &name) {
    Control *const control = window.findChild<Control *>(name);
    if (control == nullptr)
        throw std::runtime_error("no control " + name.toStdString());
    return *control;
}

/// Presses the button of that name with the mouse.
template <typename Button>
void Press(const QWidget &window, const QString &name) {
    QTest::mouseClick(&Find<Button>(window, name), Qt::LeftButton);
}

/// Shows dialog and closes it, once with the button of that name and once with the Escape key.
inline void ExpectClosedBy(QWidget &dialog, const QString &button) {
    dialog.show();
    Press<QPushButton>(dialog, button);
    EXPECT_FALSE(dialog.isVisible());
    dialog.show();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

/// Runs answer on the modal window that opens next, whenever that is.
inline void WhenModalOpens(const std::function<void(QWidget &)> &answer, int triesLeft = 500) {
    QTimer::singleShot(5, qApp, [answer, triesLeft] {
        if (QWidget *const window = QApplication::activeModalWidget(); window != nullptr)
            answer(*window);
        else if (triesLeft > 0)
            WhenModalOpens(answer, triesLeft - 1);
    });
}

/// What a message box showed.
struct ShownBox {
    int count = 0;
    QString title;
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons buttons;
};

/// Notes what the next message box shows and presses button in it.
inline void AnswerNextBox(ShownBox &shown, QMessageBox::StandardButton button) {
    WhenModalOpens([&shown, button](QWidget &window) {
        auto *const box = qobject_cast<QMessageBox *>(&window);
        ASSERT_NE(box, nullptr);
        ++shown.count;
        shown.title = box->windowTitle();
        shown.text = box->text();
        shown.icon = box->icon();
        shown.buttons = box->standardButtons();
        ASSERT_NE(box->button(button), nullptr) << shown.text.toStdString();
        box->button(button)->click();
    });
}

/// Notes what the next message box shows and accepts it.
inline void AcceptNextBox(ShownBox &shown) {
    AnswerNextBox(shown, QMessageBox::Ok);
}

/// Does action and gives the one message box that it shows.
inline ShownBox BoxShownBy(const std::function<void()> &action) {
    ShownBox shown;
    AcceptNextBox(shown);
    action();
    EXPECT_EQ(shown.count, 1);
    return shown;
}

}  // namespace vtr
