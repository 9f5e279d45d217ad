#include <QDir>
#include <QGroupBox>
#include <QScrollBar>
#include <vector>

#include "Arithmetic.h"
#include "PreciseDialog.h"

namespace vtr {
namespace {

TEST_F(PreciseDialog, HasItsListItsOptionsAndItsTexts) {
    EXPECT_EQ(dialog->objectName(), "frm_precise");
    const auto &tiles = Find<QListWidget>(*dialog, "lst_tiles");
    ASSERT_EQ(tiles.count(), 59);
    EXPECT_EQ(tiles.item(0)->text(), "00 - Field8");
    EXPECT_EQ(tiles.item(58)->text(), "58 - CostTR");
    EXPECT_EQ(Find<QLabel>(*dialog, "lbl_x").text(), "0.00 m");
    EXPECT_EQ(Find<QLabel>(*dialog, "lbl_y").text(), "0.00 m");
    EXPECT_EQ(Find<QLabel>(*dialog, "lbl_tiles").text(), "Tile Types:");
    EXPECT_EQ(Find<QPushButton>(*dialog, "cmd_OK").text(), "&OK");
    EXPECT_EQ(Find<QPushButton>(*dialog, "cmd_cancel").text(), "&Cancel");
    QStringList texts;
    for (const QLabel *label : dialog->findChildren<QLabel *>())
        texts << label->text();
    EXPECT_TRUE(texts.contains("Click X/Y for SUPER Accurate:"));
    EXPECT_TRUE(
        texts.contains(QString::fromUtf8("The measurements are based on a tile of 4.1 km \xC3\x97 4.1 km.")));
    EXPECT_EQ(dialog->findChild<QGroupBox *>()->title(), "Orientation:");
    EXPECT_TRUE(texts.contains(
        "Precise Positions are given in metres from the top left corner of the tile. Tiles are "
        "4100x4100 metres."));
}

TEST_F(PreciseDialog, AClickAtTheFarRightOrBottomEdgeGives4100MetresAndAtTheTopLeftZero) {
    WriteTile("BNGrass.pcx");
    dialog->ShowTile(1, Orientation::North);
    dialog->show();
    Click(256, 256);
    ClickOk();
    ExpectMetres(4100, 4100);
    dialog->show();
    Click(0, 0);
    ClickOk();
    ExpectMetres(0, 0);
    dialog->show();
    Click(128, 64);
    ClickOk();
    ExpectMetres(2050, 1025);
}

TEST_F(PreciseDialog, ClicksAtTheCentreTheOtherCornersTheEdgesAndOnTheLastPixelGiveTheirMetres) {
    struct Expected {
        int x;
        int y;
        double metresX;
        double metresY;
    };
    WriteTile("BNGrass.pcx");
    dialog->ShowTile(1, Orientation::North);
    // 255 / 256 of 4100 metres is 4083.984375.
    for (const Expected &click : std::vector<Expected>{{256, 0, 4100, 0},
                                                       {128, 128, 2050, 2050},
                                                       {0, 128, 0, 2050},
                                                       {128, 0, 2050, 0},
                                                       {256, 128, 4100, 2050},
                                                       {128, 256, 2050, 4100},
                                                       {0, 256, 0, 4100},
                                                       {255, 255, 4083.984375, 4083.984375},
                                                       {255, 0, 4083.984375, 0},
                                                       {0, 255, 0, 4083.984375}}) {
        dialog->show();
        Click(click.x, click.y);
        ClickOk();
        ExpectMetres(click.metresX, click.metresY);
    }
}

TEST_F(PreciseDialog, AClickInAScrolledPictureCountsFromThePicturesCorner) {
    WriteTile("BNGrass.pcx", 1024, 800);
    dialog->SetPosition(0, 0);
    dialog->ShowTile(1, Orientation::North);
    dialog->show();
    const auto &scroll = *dialog->findChild<QScrollArea *>();
    scroll.horizontalScrollBar()->setValue(scroll.horizontalScrollBar()->maximum());
    scroll.verticalScrollBar()->setValue(scroll.verticalScrollBar()->maximum());
    QCoreApplication::processEvents();
    // The view's lower right part shows the picture's, less the edge beside it.
    const QPoint inView(scroll.viewport()->width() - 100, scroll.viewport()->height() - 60);
    const QPoint at = Tile().mapFrom(scroll.viewport(), inView);
    EXPECT_GT(at.x(), 512);
    EXPECT_GT(at.y(), 512);
    ASSERT_EQ(dialog->childAt(Tile().mapTo(dialog.get(), at)), &Tile());
    QTest::mouseClick(dialog->childAt(Tile().mapTo(dialog.get(), at)), Qt::LeftButton, {}, at);
    ExpectCross(at.x(), at.y());
    ClickOk();
    ExpectMetres(at.x() / 1024.0 * 4100, at.y() / 800.0 * 4100);
    dialog->show();
    Click(1024, 800);
    ClickOk();
    ExpectMetres(4100, 4100);
}

TEST_F(PreciseDialog, TheUserReachesTheFarEdgesJustBesideTheTile) {
    WriteTile("BNGrass.pcx");
    dialog->ShowTile(1, Orientation::North);
    dialog->show();
    QWidget *const around = Tile().parentWidget();
    QTest::mouseClick(around, Qt::LeftButton, {}, QPoint(around->width() - 1, Tile().y() + 64));
    ClickOk();
    ExpectMetres(4100, 1025);
    dialog->show();
    QTest::mouseClick(around, Qt::LeftButton, {}, QPoint(Tile().x() + 128, 0));
    ClickOk();
    ExpectMetres(2050, 0);
}

TEST_F(PreciseDialog, ADragThatEndsFarOutsideIsHeldAtTheEdge) {
    WriteTile("BNGrass.pcx");
    dialog->ShowTile(1, Orientation::North);
    dialog->show();
    QTest::mousePress(&Tile(), Qt::RightButton, {}, QPoint(10, 10));
    QTest::mouseRelease(&Tile(), Qt::RightButton, {}, QPoint(5000, -70));
    ClickOk();
    ExpectMetres(4100, 0);
}

TEST_F(PreciseDialog, OpeningWithMetres2050And1025PutsTheCrossAtHalfTheWidthAndAQuarterOfTheHeight) {
    WriteTile("BNGrass.pcx");
    dialog->SetPosition(2050, 1025);
    dialog->ShowTile(1, Orientation::North);
    ExpectCross(128, 64);
}

TEST_F(PreciseDialog, TheCrossIsRoundedToTheNearestPixelAndAHalfToTheEvenOne) {
    WriteTile("BNGrass.pcx");
    for (const auto &[metres, pixel] : {std::pair(2058, 128), {2059, 129}, {2042, 128}, {2041, 127}}) {
        const auto other = static_cast<std::int16_t>(4100 - metres);
        dialog->SetPosition(static_cast<std::int16_t>(metres), other);
        dialog->ShowTile(1, Orientation::North);
        ExpectCross(pixel, 256 - pixel);
    }
    WriteTile("BNGrass.pcx", 10, 10);
    dialog->SetPosition(1025, 3075);  // 2.5 and 7.5
    dialog->ShowTile(1, Orientation::North);
    ExpectCross(2, 8);
}

TEST_F(PreciseDialog, TheCrossIsCutOffAtTheEdges) {
    WriteTile("BNGrass.pcx");
    dialog->SetPosition(4100, 4100);
    dialog->ShowTile(1, Orientation::West);
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x)
            ASSERT_NE(Pixel(x, y), red);
    dialog->SetPosition(4090, 0);
    dialog->ShowTile(1, Orientation::North);
    ExpectCross(255, 0);
}

TEST_F(PreciseDialog, OKWithoutClickingReturnsTheMetresUnchangedButForTheRounding) {
    WriteTile("BNGrass.pcx");
    for (std::int16_t metres = 0; metres <= 4100; ++metres) {
        const auto other = static_cast<std::int16_t>(4100 - metres);
        dialog->SetPosition(metres, other);
        dialog->accept();
        ASSERT_EQ(dialog->MetresX(), metres / 4100.0 * 4100.0);
        ASSERT_EQ(dialog->MetresY(), other / 4100.0 * 4100.0);
        ASSERT_EQ(RoundToInt16(dialog->MetresX()), metres);
        ASSERT_EQ(RoundToInt16(dialog->MetresY()), other);
    }
}

TEST_F(PreciseDialog, CancelAfterAClickLeavesTheMetresThatWerePassedIn) {
    WriteTile("BNGrass.pcx");
    dialog->SetPosition(17, 4099);
    dialog->ShowTile(1, Orientation::North);
    dialog->show();
    Click(128, 64);
    ExpectCross(128, 64);
    ExpectClosedBy(*dialog, "cmd_cancel");
    ExpectMetres(17, 4099);
}

TEST_F(PreciseDialog, TheReadOutFollowsTheMouse) {
    WriteTile("BNGrass.pcx");
    dialog->ShowTile(1, Orientation::North);
    dialog->show();
    MoveMouse(64, 100);
    EXPECT_EQ(Find<QLabel>(*dialog, "lbl_x").text(), "1025 m");
    EXPECT_EQ(Find<QLabel>(*dialog, "lbl_y").text(), "1601.5625 m");
    ClickOk();
    ExpectMetres(0, 0);
}

TEST_F(PreciseDialog, ReadOutsThatAreNoWholeFractionAreSinglePrecisionNumbers) {
    Write("BNGrass.pcx", PcxFile(300, 300, Pattern));
    dialog->ShowTile(1, Orientation::North);
    dialog->show();
    MoveMouse(100, 200);
    EXPECT_EQ(Find<QLabel>(*dialog, "lbl_x").text(), "1366.6666 m");
    EXPECT_EQ(Find<QLabel>(*dialog, "lbl_y").text(), "2733.3333 m");
}

TEST_F(PreciseDialog, AMissingTileShowsWhyAndClickAndOKStillWork) {
    dialog->SetPosition(2050, 2050);
    dialog->ShowTile(2, Orientation::West);
    dialog->show();
    EXPECT_TRUE(Reason().contains("BNWater.pcx")) << Reason().toStdString();
    EXPECT_TRUE(Find<QLabel>(*dialog, "lbl_reason").isVisible());
    EXPECT_EQ(Tile().size(), QSize(256, 256));
    ExpectCross(128, 128);
    Click(64, 192);
    ExpectCross(64, 192);
    ClickOk();
    ExpectMetres(1025, 3075);
}

TEST_F(PreciseDialog, AnUnreadableKindIsRefusedWithTheReadersMessageWheneverItIsShownAndClicksCount) {
    QByteArray file = PcxFile(4, 4, Pattern);
    file[3] = 4;
    Write("BNGrass.pcx", file);
    ExpectRefused("Sorry, can't load that pcx file!", QMessageBox::NoIcon);
    EXPECT_EQ(Reason(), "Sorry, can't load that pcx file!");
    dialog->show();
    const QString message = "Sorry, can't load that pcx file!";
    EXPECT_EQ(BoxShownBy([this] { Click(128, 64); }).text, message);
    ExpectCross(128, 64);
    for (int again = 0; again < 2; ++again)
        EXPECT_EQ(BoxShownBy([this] { Press<QRadioButton>(*dialog, "Opt_S"); }).text, message);
    EXPECT_EQ(Reason(), message);
    EXPECT_TRUE(LabelText("lbl_advice").contains(folder.filePath("BNGrass.pcx")));
    ClickOk();
    ExpectMetres(2050, 1025);
}

TEST_F(PreciseDialog, AMissingPaletteIsRefusedWithAnExclamation) {
    QByteArray file = PcxFile(4, 4, Pattern);
    file[file.size() - 769] = 11;
    Write("BNGrass.pcx", file);
    ExpectRefused("The PCX that was passed didn't have a 256 colour palette! Can't read it!",
                  QMessageBox::Warning);
}

TEST_F(PreciseDialog, AnotherNumberOfPlanesIsRefusedWithoutABoxButNotWithoutAReason) {
    QByteArray file = PcxFile(4, 4, Pattern);
    file[65] = 4;
    Write("BNGrass.pcx", file);
    dialog->ShowTile(1, Orientation::North);
    EXPECT_TRUE(Reason().contains("BNGrass.pcx"));
    EXPECT_EQ(Tile().size(), QSize(256, 256));
}

TEST_F(PreciseDialog, ABrokenTileShowsWhyAndAGoodOneAfterItTakesTheReasonAway) {
    Write("BNGrass.pcx", PcxFile(4, 4, Pattern).left(60));
    WriteTile("BNWater.pcx");
    dialog->ShowTile(1, Orientation::North);
    EXPECT_FALSE(Reason().isEmpty());
    dialog->ShowTile(2, Orientation::North);
    EXPECT_TRUE(Reason().isEmpty());
    EXPECT_FALSE(Find<QLabel>(*dialog, "lbl_reason").isVisible());
}

TEST_F(PreciseDialog, AFileOfAnAbsurdLengthShowsWhy) {
    QFile file(folder.filePath("BNGrass.pcx"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.resize(qint64{1} << 40));
    dialog->SetPosition(2050, 2050);
    dialog->ShowTile(1, Orientation::West);
    EXPECT_TRUE(Reason().contains("BNGrass.pcx")) << Reason().toStdString();
    EXPECT_TRUE(Reason().contains("1099511627776 bytes")) << Reason().toStdString();
    EXPECT_EQ(Tile().size(), QSize(256, 256));
    ExpectCross(128, 128);
}

TEST_F(PreciseDialog, ATileTypeThatTheGameDoesNotKnowShowsWhy) {
    dialog->SetPosition(2050, 2050);
    dialog->ShowTile(63, Orientation::North);
    EXPECT_FALSE(Reason().isEmpty());
    EXPECT_EQ(Find<QListWidget>(*dialog, "lst_tiles").currentRow(), -1);
    ExpectCross(128, 128);
    dialog->show();
    Click(10, 10);
    ExpectCross(10, 10);
}

TEST_F(PreciseDialog, WithATileTypeThatTheGameDoesNotKnowNothingIsChosenWhereverTheFocusGoes) {
    WriteTile("BNField8.pcx");
    for (const std::uint8_t type : std::initializer_list<std::uint8_t>{59, 63}) {
        Open();
        dialog->ShowTile(type, Orientation::West);
        ShowActive();
        auto &tiles = Find<QListWidget>(*dialog, "lst_tiles");
        Find<QRadioButton>(*dialog, "Opt_W").setFocus();
        tiles.setFocus();
        ASSERT_TRUE(tiles.hasFocus());
        EXPECT_EQ(tiles.currentRow(), -1);
        EXPECT_TRUE(tiles.selectedItems().isEmpty());
        EXPECT_EQ(Reason(),
                  QStringLiteral("The game has no tile of type %1, so there is no picture of it: its "
                                 "types are 0 to 58.")
                      .arg(type));
        EXPECT_EQ(Pixel(200, 200), Pixel(201, 200)) << "the picture of another tile";
        ExpectCross(0, 0);
        Click(64, 192);
        ExpectCross(64, 192);
        EXPECT_EQ(tiles.currentRow(), -1);
        ClickOk();
        ExpectMetres(1025, 3075);
    }
}

TEST_F(PreciseDialog, WhyATileIsEmptyIsToldWithTheFileAndWithWhatToDo) {
    const auto expect = [this](const QString &reason, const QString &advice) {
        dialog->ShowTile(1, Orientation::North);
        EXPECT_EQ(Reason(), reason);
        EXPECT_EQ(LabelText("lbl_advice"), advice);
        EXPECT_EQ(Tile().size(), QSize(256, 256));
    };
    const QString replaceIt = "Copy the game's own file over it: " + folder.filePath("BNGrass.pcx");
    dialog->show();
    expect("BNGrass.pcx is not in the folder of the tiles, " + folder.path(),
           "\"Tiles Folder...\" in the menu \"Project\" sets that folder.");
    EXPECT_TRUE(Find<QLabel>(*dialog, "lbl_advice").isVisible());
    ASSERT_TRUE(QDir(folder.path()).mkdir("BNGrass.pcx"));
    expect("BNGrass.pcx cannot be read: it may be a folder, or a file that you may not open.", replaceIt);
    ASSERT_TRUE(QDir(folder.path()).rmdir("BNGrass.pcx"));
    Write("BNGrass.pcx", PcxFile(4, 4, Pattern).left(60));
    expect("BNGrass.pcx is damaged: it does not hold a whole picture.", replaceIt);
    Write("BNGrass.pcx", PcxFile(4, 4, Pattern).left(140));
    expect("BNGrass.pcx is damaged: it does not hold a whole picture.", replaceIt);
    QByteArray file = PcxFile(4, 4, Pattern);
    file[65] = 4;
    Write("BNGrass.pcx", file);
    expect("BNGrass.pcx is no picture of one or three colour planes.", replaceIt);
    WriteTile("BNGrass.pcx");
    expect("", "");
    EXPECT_FALSE(Find<QLabel>(*dialog, "lbl_advice").isVisible());
}

TEST_F(PreciseDialog, AVeryLongFolderIsShownShortened) {
    const std::string beginning = "/" + std::string(190, 'm') + "/";
    for (const std::size_t length : {300U, 1U << 20}) {
        dialog = std::make_unique<frm_precise>(beginning + std::string(length, 'W'));
        dialog->ShowTile(1, Orientation::North);
        dialog->show();
        for (const QString &text : {Reason(), LabelText("lbl_advice")})
            EXPECT_LT(text.size(), 300);
        const QString shown = Reason() + LabelText("lbl_advice");
        EXPECT_TRUE(shown.contains(QString::fromStdString(beginning))) << shown.toStdString();
        EXPECT_LE(dialog->width(), 900);
    }
}

TEST_F(PreciseDialog, TheTileTakesThePicturesSizeWithScrollBarsOnlyAbove512) {
    const auto &scroll = *dialog->findChild<QScrollArea *>();
    dialog->show();
    for (const auto &[width, height] : std::vector<std::pair<int, int>>{
             {64, 32}, {256, 256}, {512, 512}, {514, 100}, {100, 520}, {600, 700}}) {
        WriteTile("BNGrass.pcx", width, height);
        dialog->ShowTile(1, Orientation::North);
        QCoreApplication::processEvents();
        EXPECT_EQ(Tile().size(), QSize(width, height));
        EXPECT_EQ(scroll.horizontalScrollBar()->isVisible(), width > 512) << width;
        EXPECT_EQ(scroll.verticalScrollBar()->isVisible(), height > 512) << height;
    }
}

TEST_F(PreciseDialog, ShowsThePictureThatItHolds) {
    WriteTile("BNGrass.pcx", 40, 30);
    dialog->SetPosition(0, 0);
    dialog->ShowTile(1, Orientation::North);
    dialog->show();
    const QImage grabbed = Tile().grab().toImage();
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 40; ++x)
            ASSERT_EQ(grabbed.pixel(x, y), Pixel(x, y));
}

}  // namespace
}  // namespace vtr
