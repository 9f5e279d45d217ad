#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QString>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <stdexcept>
#include <string>
#include <type_traits>

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

/// Runs answer on the modal window of that kind that opens next in this test, whenever that is and whatever
/// others open before it.
template <typename Window = QWidget>
void WhenModalOpens(const std::type_identity_t<std::function<void(Window &)>> &answer) {
    const testing::TestInfo *const test = testing::UnitTest::GetInstance()->current_test_info();
    QTimer::singleShot(5, qApp, [answer, test] {
        // What a finished test waited for is not answered in the next one.
        if (testing::UnitTest::GetInstance()->current_test_info() != test)
            return;
        if (auto *const window = qobject_cast<Window *>(QApplication::activeModalWidget()); window != nullptr)
            answer(*window);
        else
            WhenModalOpens<Window>(answer);
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
    WhenModalOpens<QMessageBox>([&shown, button](QMessageBox &box) {
        ++shown.count;
        shown.title = box.windowTitle();
        shown.text = box.text();
        shown.icon = box.icon();
        shown.buttons = box.standardButtons();
        ASSERT_NE(box.button(button), nullptr) << shown.text.toStdString();
        box.button(button)->click();
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

/// What a file chooser looked like when it opened.
struct ShownChooser {
    int count = 0;
    QString title;
    QStringList filters;
    QString file;
    QString folder;
    QFileDialog::AcceptMode mode = QFileDialog::AcceptOpen;
    QFileDialog::FileMode files = QFileDialog::Directory;
};

/// Notes what the next file chooser looks like and chooses path in it; cancels it when path is empty.
inline void ChooseNextFile(ShownChooser &shown, const std::string &path) {
    WhenModalOpens<QFileDialog>([&shown, path](QFileDialog &chooser) {
        EXPECT_EQ(chooser.objectName(), "cmdiag");
        auto &file = Find<QLineEdit>(chooser, QStringLiteral("fileNameEdit"));
        ++shown.count;
        shown.title = chooser.windowTitle();
        shown.filters = chooser.nameFilters();
        shown.file = file.text();
        shown.folder = chooser.directory().absolutePath();
        shown.mode = chooser.acceptMode();
        shown.files = chooser.fileMode();
        if (path.empty())
            return chooser.reject();
        file.setText(QString::fromStdString(path));
        static_cast<QDialog &>(chooser).accept();
    });
}

}  // namespace vtr
