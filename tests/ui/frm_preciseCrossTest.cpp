#include <QAccessible>
#include <QScrollBar>

#include "PreciseDialog.h"

namespace vtr {
namespace {

class PreciseCross : public PreciseDialog {
  protected:
    /// Opens the dialog on a tile of 256 x 256 pixels, the cross at (128, 64), with the focus on the tile.
    void SetUp() override {
        WriteTile("BNGrass.pcx");
        dialog->SetPosition(2050, 1025);
        dialog->ShowTile(1, Orientation::West);
        ShowActive();
        Tile().setFocus();
        ASSERT_TRUE(Tile().hasFocus());
    }
    QScrollArea &Scroll() { return *dialog->findChild<QScrollArea *>(); }
    /// Whether the whole cross at that pixel of the tile can be seen.
    bool CanBeSeen(QPoint cross) {
        return Tile().visibleRegion().contains(QRect(cross - QPoint(5, 5), cross + QPoint(6, 6)));
    }
};

TEST_F(PreciseCross, TheArrowKeysMoveItByOnePixelOfThePicture) {
    struct Step {
        Qt::Key key;
        int x;
        int y;
    };
    for (const Step &step : {Step{Qt::Key_Right, 129, 64},
                             {Qt::Key_Down, 129, 65},
                             {Qt::Key_Left, 128, 65},
                             {Qt::Key_Left, 127, 65},
                             {Qt::Key_Up, 127, 64}}) {
        QTest::keyClick(&Tile(), step.key);
        ExpectCross(step.x, step.y);
    }
    ClickOk();
    ExpectMetres(127 / 256.0 * 4100, 1025);
}

TEST_F(PreciseCross, TheArrowKeysLeaveTheOtherAxisAndEndAtTheEdges) {
    dialog->SetPosition(4099, 1);
    dialog->ShowTile(1, Orientation::North);
    QTest::keyClick(&Tile(), Qt::Key_Right);
    QTest::keyClick(&Tile(), Qt::Key_Right);
    EXPECT_EQ(Tile().accessibleDescription(), "The cross is at 4100 m, 1 m");
    QTest::keyClick(&Tile(), Qt::Key_Up);
    EXPECT_EQ(Tile().accessibleDescription(), "The cross is at 4100 m, 0 m");
    QTest::keyClick(&Tile(), Qt::Key_Left);
    ExpectCross(255, 0);
    ClickOk();
    ExpectMetres(4083.984375, 0);
}

TEST_F(PreciseCross, TheReadOutFollowsTheArrowKeysAsItFollowsTheMouse) {
    const auto expectReadOut = [this](const char *x, const char *y) {
        EXPECT_EQ(LabelText("lbl_x"), x);
        EXPECT_EQ(LabelText("lbl_y"), y);
    };
    expectReadOut("0.00 m", "0.00 m");
    QTest::keyClick(&Tile(), Qt::Key_Left);
    expectReadOut("2033.9844 m", "1025 m");
    MoveMouse(64, 100);
    expectReadOut("1025 m", "1601.5625 m");
    QTest::keyClick(&Tile(), Qt::Key_Down);
    expectReadOut("2033.9844 m", "1041.0156 m");
}

TEST_F(PreciseCross, TheArrowKeysMoveItOverATurnedTileThatIsNotReadAgain) {
    EXPECT_TRUE(QFile::remove(folder.filePath("BNGrass.pcx")));
    for (int i = 0; i < 20; ++i)
        QTest::keyClick(&Tile(), Qt::Key_Down);
    ExpectCross(128, 84);
    EXPECT_EQ(Reason(), "");
    EXPECT_EQ(CheckedOption(), "Opt_W");
    EXPECT_EQ(Pixel(128 + 50, 128 + 20), ColourOf(Pattern(128 - 20, 128 + 50)));
    // What lay under the cross at first.
    EXPECT_EQ(Pixel(128, 64), ColourOf(Pattern(128 + 64, 128)));
}

TEST_F(PreciseCross, AnArrowKeyWhileTheTileTurnsCounts) {
    QTimer::singleShot(0, dialog.get(), [this] { QTest::keyClick(&Tile(), Qt::Key_Right); });
    dialog->ShowTile(1, Orientation::East);
    ExpectCross(129, 64);
}

TEST_F(PreciseCross, ALineGivesTheStoredPositionWhereverTheCrossGoes) {
    EXPECT_EQ(LabelText("lbl_position"), "Stored: 2050 m, 1025 m");
    Click(255, 65);
    QTest::keyClick(&Tile(), Qt::Key_Left);
    EXPECT_EQ(Tile().accessibleDescription(), "The cross is at 4068 m, 1041 m");
    MoveMouse(32, 90);
    EXPECT_EQ(LabelText("lbl_position"), "Stored: 2050 m, 1025 m");
    EXPECT_EQ(LabelText("lbl_x"), "512.5 m");
}

TEST_F(PreciseCross, TheTileIsAPictureWithANameForAssistiveToolsThatTellsWhereTheCrossIs) {
    QAccessibleInterface *const tile = QAccessible::queryAccessibleInterface(&Tile());
    ASSERT_NE(tile, nullptr);
    EXPECT_EQ(tile->role(), QAccessible::Graphic);
    EXPECT_EQ(tile->text(QAccessible::Name), "Tile");
    EXPECT_TRUE(tile->state().focusable);
    EXPECT_EQ(tile->text(QAccessible::Description), "The cross is at 2050 m, 1025 m");
    QTest::keyClick(&Tile(), Qt::Key_Right);
    EXPECT_EQ(tile->text(QAccessible::Description), "The cross is at 2066 m, 1025 m");
}

TEST_F(PreciseCross, TabReachesTheTileBetweenTheOptionsAndTheButtons) {
    Find<QRadioButton>(*dialog, "Opt_W").setFocus();
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(Tile().hasFocus()) << dialog->focusWidget()->objectName().toStdString();
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(dialog->focusWidget()->objectName(), "cmd_OK");
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Backtab);
    EXPECT_TRUE(Tile().hasFocus());
}

TEST_F(PreciseCross, AnEdgeShowsThatTheTileHasTheFocus) {
    const auto edge = [this] { return Tile().parentWidget()->grab().toImage().pixel(2, 2); };
    const QRgb focused = edge();
    Find<QListWidget>(*dialog, "lst_tiles").setFocus();
    const QRgb other = edge();
    EXPECT_NE(other, focused);
    Open();
    dialog->ShowTile(1, Orientation::North);
    ShowActive();
    EXPECT_TRUE(Find<QListWidget>(*dialog, "lst_tiles").hasFocus());
    EXPECT_EQ(edge(), other);
}

TEST_F(PreciseCross, ItIsScrolledIntoView) {
    WriteTile("BNWater.pcx", 1024, 800);
    dialog->close();
    dialog->SetPosition(3600, 3600);
    dialog->ShowTile(2, Orientation::North);
    EXPECT_EQ(Scroll().horizontalScrollBar()->value(), 0);
    dialog->show();
    const QPoint cross(899, 702);
    ExpectCross(cross.x(), cross.y());
    EXPECT_TRUE(CanBeSeen(cross));

    Scroll().horizontalScrollBar()->setValue(0);
    Scroll().verticalScrollBar()->setValue(0);
    EXPECT_FALSE(CanBeSeen(cross));
    QTest::keyClick(&Tile(), Qt::Key_Left);
    EXPECT_TRUE(CanBeSeen(cross - QPoint(1, 0)));

    // Another tile shown meanwhile is smaller, and this one larger again.
    dialog->ShowTile(1, Orientation::North);
    dialog->ShowTile(2, Orientation::North);
    EXPECT_TRUE(CanBeSeen(cross - QPoint(1, 0)));
}

TEST_F(PreciseCross, AClickScrollsNothing) {
    WriteTile("BNWater.pcx", 1024, 800);
    dialog->SetPosition(0, 0);
    dialog->ShowTile(2, Orientation::North);
    QCoreApplication::processEvents();
    const int right = Scroll().viewport()->width() - 10;  // less the edge: the last pixels that can be seen
    Click(right, 40);
    ExpectCross(right, 40);
    EXPECT_EQ(Scroll().horizontalScrollBar()->value(), 0);
}

}  // namespace
}  // namespace vtr
