#include <gtest/gtest.h>

#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>

#include "DialogDriver.h"
#include "frm_tutorial.h"

namespace vtr {
namespace {

TEST(frm_tutorial, ShowsItsTextLineByLine) {
    const QStringList expected{
        "TARGET EDITOR FOR VELTRAINE",
        "Version 0.5",
        "November 2026",
        "USAGE",
        "=====",
        "  Targets:",
        "    - To select a target, click on the cross on the map with the left mouse button",
        "      Alternatively, select it using the target box below the map",
        "    - To place a target, select it, then SHIFT-Click on the map with the left mouse button",
        "      Alternatively, use the X & Y coordinate boxes to move the target",
        "  Frontlines:",
        "    - Select the frontline using the frontline box",
        "    - Move a frontline either with the X & Y coordinate boxes, or simply click on the map",
        "  Railways:",
        "    - Select your railway segment to move using the railway line number box",
        "    - Move the start and end points either with the X & Y coordinate boxes",
        "      OR:",
        "        SHIFT+LEFT Click to place the start point,",
        "        SHIFT+RIGHT Click to place the end point",
        "PROJECTS",
        "========",
        "  To make a new project, assemble all the required files into a directory.  If they are not all",
        "  in the same directory they will be copied to the project directory.",
        "  If you have a map, you can use it, however if you do not, the target editor will generate",
        "  one from the VTR.TM file.",
        "  NOTE: this map will be upside down when it is created, and you will need to mirror it to get",
        "  the correct image.",
        "  When choosing the directory that contains the tiles, simply select any file in that directory.",
        "The use of this program is at your own risk.",
    };
    const frm_tutorial dialog;
    QStringList shown = Find<QPlainTextEdit>(dialog, "txt_tutorial").toPlainText().split('\n');
    shown.removeAll(QString());
    ASSERT_EQ(shown.size(), expected.size());
    for (int line = 0; line < expected.size(); ++line)
        EXPECT_EQ(shown[line].toStdString(), expected[line].toStdString()) << "line " << line;
}

TEST(frm_tutorial, CanBeReadButNotWritten) {
    frm_tutorial dialog;
    dialog.show();
    EXPECT_EQ(dialog.objectName(), "frm_tutorial");
    EXPECT_EQ(dialog.windowTitle(), "Tutorial");
    auto &text = Find<QPlainTextEdit>(dialog, "txt_tutorial");
    const QString before = text.toPlainText();
    QTest::keyClicks(&text, "x");
    EXPECT_EQ(text.toPlainText(), before);
    EXPECT_EQ(text.horizontalScrollBar()->maximum(), 0);
}

TEST(frm_tutorial, ClosesByItsButton) {
    frm_tutorial dialog;
    dialog.show();
    EXPECT_EQ(Find<QPushButton>(dialog, "cmd_close").text(), "&Close");
    Press<QPushButton>(dialog, "cmd_close");
    EXPECT_FALSE(dialog.isVisible());
}

}  // namespace
}  // namespace vtr
