#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QRadioButton>
#include <memory>
#include <numeric>

#include "EditorWindow.h"
#include "MapSurface.h"
#include "PanelTesting.h"
#include "PictureWidget.h"
#include "PreciseDialog.h"

namespace vtr {
namespace {

/// Notes what frm_progress shows from when it comes up until it goes away.
class ProgressWatch : public QObject {
  public:
    ProgressWatch() { qApp->installEventFilter(this); }
    QStringList captions;
    std::vector<int> values;
    int hidden = 0;

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override {
        if (watched->objectName() != "frm_progress" || !watched->isWidgetType())
            return false;
        const auto &window = *static_cast<QWidget *>(watched);
        if (event->type() == QEvent::Show) {
            captions << window.windowTitle();
            connect(&Find<QProgressBar>(window, "prg_load"), &QProgressBar::valueChanged, this,
                    [this](int value) { values.push_back(value); });
        }
        hidden += event->type() == QEvent::Hide ? 1 : 0;
        return false;
    }
};

class ItemCommandsTest : public EditorWindow {
  protected:
    void SetUp() override { StartWithSample(); }

    Campaign &campaign() { return session->campaign; }
    void PressButton(const char *name) { Press<QPushButton>(window(), QString::fromLatin1(name)); }
    QString Text(const char *name) { return Find<QLineEdit>(window(), name).text(); }

    /// The targets from right to left, so that a reorder turns them round: target t becomes 301 - t.
    void PlaceFromRightToLeft() {
        for (std::size_t t = 0; t < targetTotal; ++t) {
            campaign().TargetTable[t].x = static_cast<std::int16_t>(600 - t);
            campaign().TargetTable[t].y = 100;
            campaign().TargetTable[t].fineOffsets = {static_cast<double>(t) + .25,
                                                     static_cast<double>(t) + .75};
        }
    }

    /// A colour that no map has, which the next redraw paints over.
    void SpoilSurface() { Pixels().front() = 0x12345678; }
    bool Redrawn() { return Pixels().front() != 0x12345678; }
    std::vector<std::uint32_t> &Pixels() { return Find<MapSurface>(window(), "Img_Map").Surface().pixels; }

    void SetTerrain(int x, int y, std::uint8_t byte) {
        campaign().terrain[static_cast<std::size_t>(y) * 640 + static_cast<std::size_t>(x)] = byte;
    }

    bool InPreciseDialog(const char *button, const std::function<void(QWidget &)> &act) {
        return InDialog(
            "frm_precise", [&] { PressButton(button); }, act);
    }
    /// A click that, where nobody says another place, is in the middle of the tile's left half and lower
    /// half: 1025 m and 3075 m.
    static void ClickTile(QWidget &dialog, QPoint at = {64, 192}) {
        auto &tile = Find<PictureWidget>(dialog, "pic_tile");
        ASSERT_EQ(tile.size(), QSize(256, 256));
        QTest::mouseClick(&tile, Qt::LeftButton, Qt::NoModifier, at);
    }
    static void ClickTileAndPressOk(QWidget &dialog) {
        ClickTile(dialog);
        Press<QPushButton>(dialog, QStringLiteral("cmd_OK"));
    }
    static void ClickTileAndPressCancel(QWidget &dialog) {
        ClickTile(dialog);
        Press<QPushButton>(dialog, QStringLiteral("cmd_cancel"));
    }
};

TEST_F(ItemCommandsTest, ReorderShowsItsProgressUnderItsCaptionFromZeroToAHundredAndThenNoMore) {
    const auto windows = window().findChildren<QWidget *>("frm_progress");
    const ProgressWatch progress;
    PressButton("cmd_reorder");
    EXPECT_EQ(progress.captions, QStringList{"Reorder Targets..."});
    std::vector<int> everyPercent(100);
    std::iota(everyPercent.begin(), everyPercent.end(), 1);
    EXPECT_EQ(progress.values, everyPercent);
    EXPECT_EQ(progress.hidden, 1);
    EXPECT_EQ(window().findChildren<QWidget *>("frm_progress"), windows);
}

TEST_F(ItemCommandsTest, ReorderMovesRecordsAndFineOffsetsFollowsTheSelectionAndRedraws) {
    PlaceFromRightToLeft();
    Number("upd_tar_code").SetNumber(20);
    const auto before = std::make_unique<Campaign>(campaign());
    SpoilSurface();
    PressButton("cmd_reorder");
    for (std::size_t t = 0; t < targetTotal; ++t) {
        ASSERT_EQ(campaign().TargetTable[t], before->TargetTable[301 - t]) << t;
        ASSERT_EQ(campaign().TargetTable[t].fineOffsets, before->TargetTable[301 - t].fineOffsets) << t;
    }
    EXPECT_EQ(Number("upd_tar_code").value(), 281);
    EXPECT_EQ(Text("txt_tar_code"), "281");
    EXPECT_EQ(Text("txt_tar_x"), "580");
    EXPECT_EQ(Text("txt_tar_y"), "100");
    EXPECT_EQ(Text("txt_tar_xm"), "20");
    EXPECT_EQ(Text("txt_tar_ym"), "21");
    EXPECT_EQ(Text("txt_tar_name"), QString::fromLatin1(before->TargetTable[20].name));
    EXPECT_TRUE(Redrawn());
}

TEST_F(ItemCommandsTest, AfterAReorderTheOldIndexSelectsTheTargetThatIsThereNow) {
    PlaceFromRightToLeft();
    Number("upd_tar_code").SetNumber(20);
    PressButton("cmd_reorder");
    Number("upd_tar_code").SetNumber(20);
    EXPECT_EQ(Text("txt_tar_x"), "319");
    EXPECT_EQ(Text("txt_tar_xm"), "281");
    Number("upd_tar_x").SetNumber(5);
    EXPECT_EQ(campaign().TargetTable[20].x, 5);
    EXPECT_EQ(campaign().TargetTable[281].x, 580);
}

TEST_F(ItemCommandsTest, AReorderThatFailsSaysSoAndLeavesTheTables) {
    PlaceFromRightToLeft();
    campaign().TargetTable[7].y = 320;
    Number("upd_tar_code").SetNumber(20);
    const auto before = std::make_unique<Campaign>(campaign());
    const ShownBox box = BoxShownBy([this] { PressButton("cmd_reorder"); });
    EXPECT_EQ(box.text, "GRIDDATA reordering failed somewhere.  BUGGER!");
    EXPECT_EQ(box.title, "VTR Target Editor");
    EXPECT_EQ(box.buttons, QMessageBox::Ok);
    EXPECT_TRUE(campaign() == *before);
    EXPECT_EQ(Number("upd_tar_code").value(), 20);
}

TEST_F(ItemCommandsTest, TheProgressOfAReorderThatFailsStaysUntilTheMessageIsRead) {
    campaign().TargetTable[7].y = 320;
    const ProgressWatch progress;
    int hiddenBefore = -1;
    WhenModalOpens<QMessageBox>([&](QMessageBox &box) {
        hiddenBefore = progress.hidden;
        box.accept();
    });
    PressButton("cmd_reorder");
    EXPECT_EQ(hiddenBefore, 0);
    EXPECT_EQ(progress.hidden, 1);
}

TEST_F(ItemCommandsTest, ANameInSmallLettersFindsTheFirstTargetOfThatNameAndShowsIt) {
    campaign().TargetTable[77].name = campaign().TargetTable[200].name = "BERLIN";
    bool closed = false;
    EXPECT_TRUE(InDialog(
        "frm_findtarget", [this] { PressButton("cmd_target_search"); },
        [&closed](QWidget &dialog) {
            QTest::keyClicks(&Find<QLineEdit>(dialog, "txt_name"), "berlin");
            Press<QPushButton>(dialog, QStringLiteral("cmd_find"));
            closed = !dialog.isVisible();
        }));
    EXPECT_TRUE(closed);
    EXPECT_EQ(Number("upd_tar_code").value(), 77);
    EXPECT_EQ(Text("txt_tar_name"), "BERLIN");
    EXPECT_EQ(Number("upd_tar_x").value(), campaign().TargetTable[77].x);
}

TEST_F(ItemCommandsTest, APreciseTargetGetsJustItsTwoFineOffsets) {
    campaign().TargetTable[20].fineOffsets = {7.5, 8.5};
    Number("upd_tar_code").SetNumber(20);
    const auto expected = std::make_unique<Campaign>(campaign());
    ASSERT_TRUE(InPreciseDialog("cmd_tar_precise", ClickTileAndPressOk));
    expected->TargetTable[20].fineOffsets = {1025, 3075};
    EXPECT_TRUE(campaign() == *expected);
    EXPECT_EQ(Text("txt_tar_xm"), "1025");
    EXPECT_EQ(Text("txt_tar_ym"), "3075");
}

TEST_F(ItemCommandsTest, APrecisePositionIsRoundedToTheNearestMetreAndAHalfToTheEvenOne) {
    struct Row {
        QPoint click;
        double x;
        double y;
    };
    Number("upd_tar_code").SetNumber(20);
    // A pixel is 16.015625 metres wide.
    for (const Row &row : {Row{{255, 65}, 4084, 1041},
                           {{65, 255}, 1041, 4084},
                           {{32, 96}, 512, 1538},
                           {{96, 32}, 1538, 512}}) {
        EXPECT_TRUE(InPreciseDialog("cmd_tar_precise", [&row](QWidget &dialog) {
            ClickTile(dialog, row.click);
            Press<QPushButton>(dialog, QStringLiteral("cmd_OK"));
        }));
        EXPECT_EQ(campaign().TargetTable[20].fineOffsets, (std::array{row.x, row.y}));
    }
}

TEST_F(ItemCommandsTest, TheTilesAreThoseOfTheProjectsTilesFolder) {
    std::filesystem::create_directory(folder.Path() + "own tiles");
    folder.Make("own tiles/BNGrass.pcx", PcxFile(256, 256, Pattern).toStdString());
    campaign().paths.TilesDir = folder.Path() + "own tiles";
    SetTerrain(Number("upd_tar_x").value(), Number("upd_tar_y").value(), 1);
    SetTerrain(Number("upd_rail_x1").value(), Number("upd_rail_y1").value(), 1);
    const auto showsTheTile = [](QWidget &dialog) {
        EXPECT_FALSE(Find<QLabel>(dialog, "lbl_reason").isVisible());
        EXPECT_EQ(Find<PictureWidget>(dialog, "pic_tile").Shown().pixels.at(200 * 256 + 100),
                  ColourOf(Pattern(100, 200)));
        dialog.close();
    };
    EXPECT_TRUE(InPreciseDialog("cmd_tar_precise", showsTheTile));
    EXPECT_TRUE(InPreciseDialog("cmd_tar_tile", showsTheTile));
    Entry("mnu_e_railway").trigger();
    EXPECT_TRUE(InPreciseDialog("cmd_rail_precise1", showsTheTile));
}

TEST_F(ItemCommandsTest, EachPreciseEndOfARailwayLineGetsJustItsTwoFineOffsets) {
    Entry("mnu_e_railway").trigger();
    campaign().RailwayTable[12].fineOffsets = {1.5, 2.5, 3.5, 4.5};
    Number("upd_rail_linenum").SetNumber(12);
    const auto expected = std::make_unique<Campaign>(campaign());
    ASSERT_TRUE(InPreciseDialog("cmd_rail_precise1", ClickTileAndPressOk));
    expected->RailwayTable[12].fineOffsets = {1025, 2.5, 3075, 4.5};
    EXPECT_TRUE(campaign() == *expected);
    EXPECT_EQ(Text("txt_rail_xm1"), "1025");
    EXPECT_EQ(Text("txt_rail_ym1"), "3075");

    campaign().RailwayTable[13].fineOffsets = {1.5, 2.5, 3.5, 4.5};
    Number("upd_rail_linenum").SetNumber(13);
    ASSERT_TRUE(InPreciseDialog("cmd_rail_precise2", ClickTileAndPressOk));
    expected->RailwayTable[13].fineOffsets = {1.5, 1025, 3.5, 3075};
    EXPECT_TRUE(campaign() == *expected);
    EXPECT_EQ(Text("txt_rail_xm2"), "1025");
    EXPECT_EQ(Text("txt_rail_ym2"), "3075");
}

TEST_F(ItemCommandsTest, CancelAfterAClickLeavesAllAsItWasAlsoTheFractions) {
    campaign().TargetTable[20].fineOffsets = {7.25, 8.5};
    campaign().RailwayTable[12].fineOffsets = {1.25, 2.5, 3.75, 4.5};
    Number("upd_tar_code").SetNumber(20);
    Number("upd_rail_linenum").SetNumber(12);
    const auto before = std::make_unique<Campaign>(campaign());
    EXPECT_TRUE(InPreciseDialog("cmd_tar_precise", ClickTileAndPressCancel));
    EXPECT_EQ(Text("txt_tar_xm"), "7");
    EXPECT_EQ(Text("txt_tar_ym"), "8");
    Entry("mnu_e_railway").trigger();
    EXPECT_TRUE(InPreciseDialog("cmd_rail_precise1", ClickTileAndPressCancel));
    EXPECT_TRUE(InPreciseDialog("cmd_rail_precise2", ClickTileAndPressCancel));
    EXPECT_TRUE(campaign() == *before);
}

TEST_F(ItemCommandsTest, TheTileAndItsOrientationAreThoseOfTheTerrainUnderThePosition) {
    struct Row {
        std::uint8_t byte;
        int listRow;
        const char *option;
    };
    Entry("mnu_e_railway").trigger();
    Number("upd_rail_linenum").SetNumber(12);
    Number("upd_rail_x1").SetNumber(639);
    Number("upd_rail_y1").SetNumber(319);
    Number("upd_rail_x2").SetNumber(0);
    Number("upd_rail_y2").SetNumber(0);
    Entry("mnu_e_target").trigger();
    Number("upd_tar_code").SetNumber(20);
    Number("upd_tar_x").SetNumber(123);
    Number("upd_tar_y").SetNumber(45);
    const auto expectShown = [](QWidget &dialog, const Row &row) {
        EXPECT_EQ(Find<QListWidget>(dialog, "lst_tiles").currentRow(), row.listRow);
        EXPECT_TRUE(Find<QRadioButton>(dialog, row.option).isChecked()) << row.option;
        Press<QPushButton>(dialog, QStringLiteral("cmd_cancel"));
    };
    for (const Row &row :
         {Row{0xC1, 1, "Opt_W"}, Row{0x8A, 10, "Opt_S"}, Row{0x7A, 58, "Opt_E"}, Row{0x00, 0, "opt_N"}}) {
        // Every other tile is another one.
        campaign().terrain.assign(terrainSize, static_cast<std::uint8_t>(row.byte ^ 0x45));
        SetTerrain(123, 45, row.byte);
        const auto check = [&](QWidget &dialog) { expectShown(dialog, row); };
        EXPECT_TRUE(InPreciseDialog("cmd_tar_precise", check));
        EXPECT_TRUE(InPreciseDialog("cmd_tar_tile", check));
    }
    Entry("mnu_e_railway").trigger();
    SetTerrain(639, 319, 0xC1);
    SetTerrain(0, 0, 0x8A);
    const auto checkStart = [&](QWidget &dialog) { expectShown(dialog, {0xC1, 1, "Opt_W"}); };
    const auto checkEnd = [&](QWidget &dialog) { expectShown(dialog, {0x8A, 10, "Opt_S"}); };
    EXPECT_TRUE(InPreciseDialog("cmd_rail_precise1", checkStart));
    EXPECT_TRUE(InPreciseDialog("cmd_rail_precise2", checkEnd));
}

TEST_F(ItemCommandsTest, ViewingTheTileOfATargetWritesNothing) {
    EXPECT_TRUE(Find<QPushButton>(window(), "cmd_tar_tile").isEnabled());
    campaign().TargetTable[20].fineOffsets = {7.25, 8.5};
    Number("upd_tar_code").SetNumber(20);
    const auto before = std::make_unique<Campaign>(campaign());
    EXPECT_TRUE(InPreciseDialog("cmd_tar_tile", [](QWidget &dialog) {
        // No position is marked: the cross is in the corner where every tile begins.
        ExpectCrossIn(Find<PictureWidget>(dialog, "pic_tile").Shown(), 0, 0);
        EXPECT_FALSE(Find<QLabel>(dialog, "lbl_position").isVisible());
        ClickTileAndPressOk(dialog);
    }));
    EXPECT_TRUE(campaign() == *before);
    EXPECT_TRUE(InPreciseDialog("cmd_tar_precise", [](QWidget &dialog) {
        const auto &stored = Find<QLabel>(dialog, "lbl_position");
        EXPECT_TRUE(stored.isVisible());
        EXPECT_EQ(stored.text(), "Stored: 7 m, 8 m");
        Press<QPushButton>(dialog, QStringLiteral("cmd_cancel"));
    }));
    EXPECT_EQ(Text("txt_tar_xm"), "7");
    EXPECT_EQ(Text("txt_tar_ym"), "8");
}

TEST_F(ItemCommandsTest, APositionThatLiesOnNoTileBringsAWarningAndNoDialog) {
    campaign().TargetTable[20].y = 1760;
    Number("upd_tar_code").SetNumber(20);
    const auto before = std::make_unique<Campaign>(campaign());
    for (const char *button : {"cmd_tar_precise", "cmd_tar_tile"}) {
        const ShownBox box = BoxShownBy([&] { PressButton(button); });
        EXPECT_EQ(box.icon, QMessageBox::Warning) << button;
        EXPECT_TRUE(box.text.contains("VTR.TM")) << box.text.toStdString();
        EXPECT_TRUE(box.text.contains("Nothing was changed.")) << box.text.toStdString();
        EXPECT_EQ(window().findChild<QWidget *>("frm_precise"), nullptr);
    }
    EXPECT_TRUE(campaign() == *before);
    EXPECT_EQ(Text("txt_tar_y"), "1760");
}

using WithoutATerrainMap = EditorWindow;

TEST_F(WithoutATerrainMap, EveryPositionLiesOnTypeZeroFacingNorth) {
    WriteSample();
    std::string project = folder.Content("sample.prj");
    const std::size_t name = project.find("MapTM=") + 6;
    project.erase(name, project.find('\r', name) - name);
    folder.Make("sample.prj", project);
    window().Start(QString::fromStdString(SamplePath()));
    ASSERT_TRUE(session->campaign.ProjectLoaded);
    for (const char *button : {"cmd_tar_precise", "cmd_tar_tile"}) {
        int shown = 0;
        WhenModalOpens([&shown](QWidget &dialog) {
            ++shown;
            EXPECT_EQ(Find<QListWidget>(dialog, "lst_tiles").currentRow(), 0);
            EXPECT_TRUE(Find<QRadioButton>(dialog, "opt_N").isChecked());
            Press<QPushButton>(dialog, QStringLiteral("cmd_cancel"));
        });
        Press<QPushButton>(window(), QString::fromLatin1(button));
        EXPECT_EQ(shown, 1);
    }
}

using WithoutATilesFolder = EditorWindow;

TEST_F(WithoutATilesFolder, TheEmptyTileSaysWhatSetsIt) {
    WriteSample();
    std::string project = folder.Content("sample.prj");
    project.erase(project.find("TILESDIR="));
    folder.Make("sample.prj", project);
    window().Start(QString::fromStdString(SamplePath()));
    ASSERT_TRUE(session->campaign.ProjectLoaded);
    int shown = 0;
    WhenModalOpens([&shown](QWidget &dialog) {
        ++shown;
        const auto &advice = Find<QLabel>(dialog, "lbl_advice");
        EXPECT_TRUE(advice.isVisible());
        EXPECT_EQ(advice.text(), "\"Tiles Folder...\" in the menu \"Project\" sets that folder.");
        dialog.close();
    });
    Press<QPushButton>(window(), QStringLiteral("cmd_tar_precise"));
    EXPECT_EQ(shown, 1);
}

}  // namespace
}  // namespace vtr
