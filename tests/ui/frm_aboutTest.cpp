#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>

#include "DialogDriver.h"
#include "ProgramIcon.h"
#include "frm_about.h"

namespace vtr {
namespace {

TEST(frm_about, ShowsTitleVersionAndDisclaimer) {
    const frm_about dialog;
    EXPECT_EQ(dialog.objectName(), "frm_about");
    EXPECT_EQ(dialog.windowTitle(), "About VTR Target Editor");
    EXPECT_EQ(Find<QLabel>(dialog, "lblTitle").text(), "VTR Target Editor");
    EXPECT_EQ(Find<QLabel>(dialog, "lblVersion").text(), "Version 0.5.0");
    EXPECT_FALSE(Find<QLabel>(dialog, "lblDescription").text().isEmpty());
    EXPECT_TRUE(Find<QLabel>(dialog, "lblDisclaimer").text().contains("does not support"));
    EXPECT_TRUE(Find<QLabel>(dialog, "lblDisclaimer").text().contains("not contact"));
    EXPECT_EQ(Find<QLabel>(dialog, "picIcon").pixmap().size(), QSize(64, 64));
    EXPECT_EQ(Find<QPushButton>(dialog, "cmdSysInfo").text(), "&System Info...");
}

TEST(frm_about, ClosesByItsButtonByEnterAndByEscape) {
    frm_about dialog;
    dialog.show();
    Press<QPushButton>(dialog, "cmdOK");
    EXPECT_FALSE(dialog.isVisible());
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        dialog.show();
        QTest::keyClick(&dialog, key);
        EXPECT_FALSE(dialog.isVisible());
    }
}

#ifndef Q_OS_WIN
TEST(frm_about, WithoutARegistryTheSystemInformationButtonOnlyShowsItsMessage) {
    frm_about dialog;
    dialog.show();
    const ShownBox box = BoxShownBy([&dialog] { Press<QPushButton>(dialog, "cmdSysInfo"); });
    EXPECT_EQ(box.text, "System Information Is Unavailable At This Time");
    EXPECT_EQ(box.title, "VTR Target Editor");
    EXPECT_EQ(box.buttons, QMessageBox::Ok);
    EXPECT_TRUE(dialog.isVisible());
}
#endif

TEST(ProgramIcon, HasASharpPictureForEverySize) {
    const QIcon icon = ProgramIcon();
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        EXPECT_EQ(icon.actualSize(QSize(size, size)), QSize(size, size));
    const QImage picture = icon.pixmap(64, 64).toImage();
    EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(picture.pixelColor(32, 32), QColor(0xc6, 0x28, 0x28));
}

}  // namespace
}  // namespace vtr
