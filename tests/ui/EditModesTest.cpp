#include <gtest/gtest.h>

#include "EditModes.h"
#include "EditorWindow.h"
#include "MapSurface.h"

namespace vtr {
namespace {

struct ModeOfTable {
    const char *entry;
    const char *frame;
    const char *selector;  ///< disabled; empty for none
    const char *text;
    const char *layer;
};
constexpr std::array<ModeOfTable, 5> modes{{
    {"mnu_e_target", "fra_target", "", "  TARGETS  ", "mnu_v_targets"},
    {"mnu_e_frontline", "fra_frontline", "upd_viewfrontline", "  FRONTLINES  ", "mnu_v_frontlines"},
    {"mnu_e_railway", "fra_railway", "upd_view_railway", "  RAILWAYS  ", "mnu_v_railways"},
    {"mnu_e_roadint", "fra_roadint", "upd_view_roadint", "  ROAD INTERDICTION WAYPOINTS  ", "mnu_v_roadint"},
    {"mnu_e_railint", "fra_railint", "upd_view_railint", "  RAIL INTERDICTION WAYPOINTS  ", "mnu_v_railint"},
}};

/// Closes every dialog that comes up and counts them, so that one nobody wants does not stay.
class DialogCount : public QTimer {
  public:
    DialogCount() {
        callOnTimeout([this] {
            if (QWidget *const dialog = QApplication::activeModalWidget(); dialog != nullptr) {
                ++count;
                dialog->close();
            }
        });
        start(1);
    }
    int count = 0;
};

class EditModesTest : public EditorWindow {
  protected:
    void SetUp() override { StartWithSample(); }
    bool Enabled(const char *name) { return Find<QWidget>(window(), QLatin1String(name)).isEnabled(); }
    void ExpectMode(const ModeOfTable &current) {
        EXPECT_EQ(PanelText("curredit"), current.text);
        for (const ModeOfTable &mode : modes) {
            const bool isCurrent = &mode == &current;
            EXPECT_EQ(Entry(mode.entry).isChecked(), isCurrent) << mode.entry;
            EXPECT_EQ(Enabled(mode.frame), isCurrent) << mode.frame;
            if (*mode.selector != '\0') {
                EXPECT_EQ(Enabled(mode.selector), !isCurrent) << mode.selector;
                const QString textBox = QString::fromLatin1(mode.selector).replace("upd_", "txt_");
                EXPECT_EQ(Find<QWidget>(window(), textBox).isEnabled(), !isCurrent) << mode.selector;
            }
        }
        EXPECT_TRUE(Entry(current.layer).isChecked());
    }
    const TargetRecord &Target(int index) {
        return session->campaign.TargetTable[static_cast<std::size_t>(index)];
    }
    int IndexOfTarget(bool airfield) {
        for (int i = 0; i < 302; ++i)
            if ((Target(i).airfield_mark != 0) == airfield && i != 81)
                return i;
        return -1;
    }
};

TEST_F(EditModesTest, EachEntryEnablesItsFrameAndDisablesTheSelectorOfItsLayer) {
    ExpectMode(modes[0]);
    for (const std::size_t index : {1U, 2U, 3U, 4U, 0U, 3U}) {
        Entry(modes[index].entry).trigger();
        ExpectMode(modes[index]);
    }
}

TEST_F(EditModesTest, AClickOnTheModePanelGoesThroughTheCycle) {
    for (const std::size_t index : {1U, 2U, 3U, 4U, 0U}) {
        QTest::mouseClick(&Find<QToolButton>(window(), QStringLiteral("curredit")), Qt::LeftButton);
        ExpectMode(modes[index]);
    }
}

TEST_F(EditModesTest, AClickOnAnyOtherPanelDoesNothing) {
    for (const char *panel : {"project", "zoom", "xypos", "version"}) {
        QTest::mouseClick(&Find<QToolButton>(window(), QLatin1String(panel)), Qt::LeftButton);
        ExpectMode(modes[0]);
    }
}

TEST_F(EditModesTest, ChoosingTheModeThatIsOnLeavesItOn) {
    Entry("mnu_e_target").trigger();
    ExpectMode(modes[0]);
}

TEST_F(EditModesTest, AHiddenLayerIsSwitchedOnWhenItsModeIsChosen) {
    for (const ModeOfTable &mode : modes) {
        if (Entry(mode.layer).isChecked())
            Entry(mode.layer).trigger();
        Entry(mode.entry).trigger();
        EXPECT_TRUE(Entry(mode.layer).isChecked()) << mode.layer;
    }
}

TEST_F(EditModesTest, SwitchingAwayDisablesTheAirfieldFrameAndSwitchingBackLeavesItDisabled) {
    Number("upd_tar_code").SetNumber(IndexOfTarget(true));
    EXPECT_TRUE(Enabled("fra_airfield"));
    Entry("mnu_e_frontline").trigger();
    EXPECT_FALSE(Enabled("fra_airfield"));
    Entry("mnu_e_target").trigger();
    EXPECT_FALSE(Enabled("fra_airfield"));
    Press<QPushButton>(window(), QStringLiteral("cmd_reorder"));
    EXPECT_FALSE(Enabled("fra_airfield")) << "the same target is still selected";
    Number("upd_tar_code").SetNumber(IndexOfTarget(false));
    Number("upd_tar_code").SetNumber(IndexOfTarget(true));
    EXPECT_TRUE(Enabled("fra_airfield"));
}

TEST_F(EditModesTest, ADoubleClickOnTheVersionOpensTheAboutBox) {
    auto &version = Find<QToolButton>(window(), QStringLiteral("version"));
    EXPECT_TRUE(InDialog(
        "frm_about", [&] { QTest::mouseDClick(&version, Qt::LeftButton); },
        [](QWidget &dialog) { dialog.close(); }));
}

TEST_F(EditModesTest, ADoubleClickOnAnyOtherPanelAndASingleClickOnTheVersionOpenNothing) {
    const DialogCount dialogs;
    for (const char *panel : {"project", "curredit", "zoom", "xypos"})
        QTest::mouseDClick(&Find<QToolButton>(window(), QLatin1String(panel)), Qt::LeftButton);
    auto &version = Find<QToolButton>(window(), QStringLiteral("version"));
    QTest::mouseClick(&version, Qt::LeftButton);
    QTest::qWait(20);
    EXPECT_EQ(dialogs.count, 0);
    QTest::mouseDClick(&version, Qt::LeftButton);
    EXPECT_EQ(dialogs.count, 1);
}

TEST_F(EditModesTest, AHiddenLayerThatItsModeSwitchesOnIsDrawnAtOnce) {
    const auto &pixels = Find<MapSurface>(window(), QStringLiteral("Img_Map")).Surface().pixels;
    for (const std::size_t index : {1U, 2U, 3U, 4U, 0U}) {
        if (Entry(modes[index].layer).isChecked())
            Entry(modes[index].layer).trigger();
        const auto without = pixels;
        Entry(modes[index].entry).trigger();
        EXPECT_NE(pixels, without) << modes[index].layer;
    }
}

TEST_F(EditModesTest, TheEditedRailwayLineIsDrawnInYellow) {
    Entry("mnu_e_railway").trigger();
    Number("upd_rail_linenum").SetNumber(10);
    const RailwayLine &line = session->campaign.RailwayTable[10];
    const auto &pixels = Find<MapSurface>(window(), QStringLiteral("Img_Map")).Surface().pixels;
    int yellow = 0;
    for (int y = std::min(line.y1, line.y2); y <= std::max(line.y1, line.y2); ++y)
        for (int x = std::min(line.x1, line.x2); x <= std::max(line.x1, line.x2); ++x)
            yellow += pixels[static_cast<std::size_t>(y * 640 + x)] == 0xFFFFFF00U ? 1 : 0;
    EXPECT_GT(yellow, 0);
}

}  // namespace
}  // namespace vtr
