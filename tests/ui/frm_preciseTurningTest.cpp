#include <QCursor>
#include <vector>

#include "Arithmetic.h"
#include "PreciseDialog.h"
#include "TileTypes.h"

namespace vtr {
namespace {

TEST_F(PreciseDialog, TerrainByteC1OpensGrassWithWestSelectedAndTheTileTurned) {
    WriteTile("BNGrass.pcx");
    dialog->SetPosition(0, 4100);
    dialog->ShowTile(ToByte(TileTypeOf(0xC1)), TileOrientationOf(0xC1));
    EXPECT_EQ(Find<QListWidget>(*dialog, "lst_tiles").currentRow(), 1);
    EXPECT_EQ(CheckedOption(), "Opt_W");
    EXPECT_EQ(Reason(), "");
    // Half a half turn: what lies at offset (-b, a) from the source's middle comes to (a, b).
    for (int b = -100; b <= 100; b += 20)
        for (int a = -100; a <= 100; a += 20)
            EXPECT_EQ(Pixel(128 + a, 128 + b), ColourOf(Pattern(128 - b, 128 + a))) << a << ", " << b;
    EXPECT_EQ(Find<PictureWidget>(*dialog, "pic_hidden").Shown().pixels.at(0), ColourOf(Pattern(0, 0)));
    EXPECT_FALSE(Find<PictureWidget>(*dialog, "pic_hidden").isVisible());
}

TEST_F(PreciseDialog, EachOrientationSelectsItsOption) {
    WriteTile("BNGrass.pcx");
    for (const auto &[orientation, option] :
         std::vector<std::pair<Orientation, QString>>{{Orientation::North, "opt_N"},
                                                      {Orientation::East, "Opt_E"},
                                                      {Orientation::South, "Opt_S"},
                                                      {Orientation::West, "Opt_W"}}) {
        dialog->ShowTile(1, orientation);
        EXPECT_EQ(CheckedOption(), option);
    }
}

TEST_F(PreciseDialog, PickingAnotherTileShowsItInTheSameOrientation) {
    WriteTile("BNGrass.pcx");
    Write("BNWater.pcx", PcxFile(256, 256, [](int x, int) { return x / 2; }));
    dialog->SetPosition(0, 0);
    dialog->ShowTile(1, Orientation::East);
    dialog->show();
    Find<QListWidget>(*dialog, "lst_tiles").setCurrentRow(2);
    EXPECT_EQ(CheckedOption(), "Opt_E");
    // A quarter turn the other way: what lies at offset (b, -a) comes to (a, b).
    EXPECT_EQ(Pixel(128 + 50, 128 + 20), ColourOf((128 + 20) / 2));
    EXPECT_EQ(Pixel(128 - 50, 128 - 90), ColourOf((128 - 90) / 2));
}

TEST_F(PreciseDialog, PickingAnOrientationTurnsTheTile) {
    WriteTile("BNGrass.pcx");
    dialog->ShowTile(1, Orientation::North);
    dialog->show();
    Find<QRadioButton>(*dialog, "Opt_S").click();
    EXPECT_EQ(Pixel(128 + 50, 128 + 20), ColourOf(Pattern(128 - 50, 128 - 20)));
    Find<QRadioButton>(*dialog, "Opt_W").click();
    EXPECT_EQ(Pixel(128 + 50, 128 + 20), ColourOf(Pattern(128 - 20, 128 + 50)));
    Find<QRadioButton>(*dialog, "Opt_E").click();
    EXPECT_EQ(Pixel(128 + 50, 128 + 20), ColourOf(Pattern(128 + 20, 128 - 50)));
    Find<QRadioButton>(*dialog, "opt_N").click();
    EXPECT_EQ(Pixel(128 + 50, 128 + 20), ColourOf(Pattern(128 + 50, 128 + 20)));
    Click(20, 30);
    EXPECT_EQ(CheckedOption(), "opt_N");
    ExpectCross(20, 30);
}

TEST_F(PreciseDialog, TheUserCanActAfterEachColumnWhileATileTurns) {
    WriteTile("BNGrass.pcx");
    dialog->show();
    int events = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&events] { ++events; });
    timer.start(0);
    dialog->ShowTile(1, Orientation::North);
    EXPECT_EQ(events, 0);
    dialog->ShowTile(1, Orientation::East);
    EXPECT_GE(events, 128);
}

TEST_F(PreciseDialog, BeforeItIsOpenWhatTheUserDoesWaitsUntilTheTileIsTurned) {
    struct Window : QWidget {
        int moves = 0;
        void mouseMoveEvent(QMouseEvent *) override { ++moves; }
    };
    WriteTile("BNGrass.pcx");
    Window behind;
    behind.setMouseTracking(true);
    behind.resize(100, 100);
    behind.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&behind));
    // Unlike QTest's mouse, the cursor's moves wait in the queue of the window system. The first ones bring
    // it over the window, wherever it was.
    const auto moveTo = [&behind](int x) { QCursor::setPos(behind.mapToGlobal(QPoint(x, 50))); };
    moveTo(30);
    moveTo(40);
    ASSERT_TRUE(QTest::qWaitFor([&behind] { return behind.moves > 0; }, 2000));
    behind.moves = 0;
    moveTo(50);
    dialog->ShowTile(1, Orientation::West);
    EXPECT_EQ(behind.moves, 0);
    moveTo(60);
    EXPECT_TRUE(QTest::qWaitFor([&behind] { return behind.moves == 2; }, 2000)) << behind.moves;
}

TEST_F(PreciseDialog, ASecondRotationAskedForMeanwhileWaitsForTheFirst) {
    WriteTile("BNGrass.pcx");
    Write("BNWater.pcx", PcxFile(128, 64, Pattern));
    dialog->show();
    int calls = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [this, &calls] {
        if (++calls > 3)
            return;
        dialog->ShowTile(2, calls < 3 ? Orientation::West : Orientation::South);
        EXPECT_EQ(Tile().Shown().width, 256);  // still the first
    });
    timer.start(0);
    dialog->SetPosition(0, 0);
    dialog->ShowTile(1, Orientation::East);
    ASSERT_GE(calls, 3);
    ASSERT_EQ(Tile().Shown().width, 128);
    EXPECT_EQ(Find<QListWidget>(*dialog, "lst_tiles").currentRow(), 2);
    EXPECT_EQ(CheckedOption(), "Opt_S");
    EXPECT_EQ(Pixel(64 + 10, 32 + 20), ColourOf(Pattern(64 - 10, 32 - 20)));
}

TEST_F(PreciseDialog, AClickOnTheTileWhileItTurnsCounts) {
    WriteTile("BNGrass.pcx");
    dialog->show();
    QTimer::singleShot(0, dialog.get(), [this] { Click(192, 64); });
    dialog->ShowTile(1, Orientation::West);
    ExpectCross(192, 64);
    EXPECT_EQ(CheckedOption(), "Opt_W");
}

TEST_F(PreciseDialog, TheListAndTheOptionsAreDeafWhileATileTurns) {
    WriteTile("BNGrass.pcx");
    WriteTile("BNWater.pcx", 32, 32);
    dialog->show();
    QTimer::singleShot(0, dialog.get(), [this] {
        Find<QListWidget>(*dialog, "lst_tiles").setCurrentRow(2);
        Find<QRadioButton>(*dialog, "opt_N").click();
    });
    dialog->ShowTile(1, Orientation::West);
    EXPECT_EQ(Tile().Shown().width, 256);
    EXPECT_EQ(Find<QListWidget>(*dialog, "lst_tiles").currentRow(), 1);
    EXPECT_EQ(CheckedOption(), "Opt_W");
}

TEST_F(PreciseDialog, ClosingItWhileATileTurnsLetsTheTurnEnd) {
    WriteTile("BNGrass.pcx");
    dialog->SetPosition(100, 200);
    dialog->show();
    QTimer::singleShot(0, dialog.get(), [this] { dialog->reject(); });
    dialog->ShowTile(1, Orientation::West);
    EXPECT_FALSE(dialog->isVisible());
    ExpectMetres(100, 200);
}

}  // namespace
}  // namespace vtr
