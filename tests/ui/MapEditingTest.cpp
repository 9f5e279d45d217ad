#include <gtest/gtest.h>

#include <QCheckBox>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>

#include "EditorWindow.h"
#include "MapEditing.h"
#include "PanelTesting.h"

namespace vtr {
namespace {

constexpr auto plain = Qt::NoModifier;
constexpr auto shift = Qt::ShiftModifier;
constexpr auto ctrl = Qt::ControlModifier;
constexpr auto alt = Qt::AltModifier;

/// Every set of the three keys, in the order of the columns of the tables below.
constexpr std::array<Qt::KeyboardModifiers, 8> keySets{plain, shift,       ctrl,       ctrl | shift,
                                                       alt,   alt | shift, ctrl | alt, ctrl | shift | alt};

struct ButtonRow {
    Qt::MouseButton button;
    const char *effects;  ///< a character for each of keySets
};
struct ModeRows {
    const char *mode;
    std::array<ButtonRow, 3> rows;
};
/// s selects target 5, p places the target, f the frontline point, 1 and 2 the ends of the railway line.
constexpr std::array<ModeRows, 5> editsOfClicks{{
    {"mnu_e_target",
     {{{Qt::LeftButton, "sp......"}, {Qt::RightButton, "........"}, {Qt::MiddleButton, "........"}}}},
    {"mnu_e_frontline",
     {{{Qt::LeftButton, "ffffffff"}, {Qt::RightButton, "........"}, {Qt::MiddleButton, "........"}}}},
    {"mnu_e_railway",
     {{{Qt::LeftButton, ".1......"}, {Qt::RightButton, ".2......"}, {Qt::MiddleButton, "........"}}}},
    {"mnu_e_roadint",
     {{{Qt::LeftButton, "........"}, {Qt::RightButton, "........"}, {Qt::MiddleButton, "........"}}}},
    {"mnu_e_railint",
     {{{Qt::LeftButton, "........"}, {Qt::RightButton, "........"}, {Qt::MiddleButton, "........"}}}},
}};
/// m opens the zoom menu, in every mode.
constexpr std::array<ButtonRow, 3> menusOfPresses{
    {{Qt::LeftButton, "........"}, {Qt::RightButton, "m.mmmmmm"}, {Qt::MiddleButton, "........"}}};

/// Puts the position that a click at (320, 160) gives into the item that effect names.
void Apply(char effect, Campaign &campaign) {
    RailwayLine &line = campaign.RailwayTable[12];
    FrontlinePoint &point = campaign.FrontlineTable[3].points[4];
    TargetRecord &target = campaign.TargetTable[20];
    if (effect == 'p') {
        target.x = 320;
        target.y = 160;
    } else if (effect == 'f') {
        point.x = 320;
        point.y = 160;
    } else if (effect == '1') {
        line.x1 = 320;
        line.y1 = 160;
    } else if (effect == '2') {
        line.x2 = 320;
        line.y2 = 160;
    }
}

/// The menu that opens, at the cursor, when the button goes down on map; closes it again.
QString MenuOfPress(QWidget &map, Qt::MouseButton button, Qt::KeyboardModifiers keys) {
    QTest::mousePress(&map, button, keys, QPoint(50, 50));
    QWidget *popup = QApplication::activePopupWidget();
    const QString name = popup == nullptr ? QString() : popup->objectName();
    if (popup != nullptr) {
        EXPECT_EQ(popup->pos(), map.mapToGlobal(QPoint(50, 50)));
        popup->close();
    }
    return name;
}

/// A left button with Shift that is let go at a place that may lie outside the map's viewport.
void ReleaseAt(QWidget &map, double x, double y) {
    // As the system's releases come: only the place on the window has its fraction.
    const QPoint at = QPointF(x, y).toPoint();
    QMouseEvent event(QEvent::MouseButtonRelease, at, map.mapTo(map.window(), QPointF(x, y)),
                      map.mapToGlobal(at), Qt::LeftButton, Qt::NoButton, Qt::ShiftModifier);
    QCoreApplication::sendEvent(&map, &event);
}

class MapEditingTest : public EditorWindow {
  protected:
    void SetUp() override {
        StartWithSample();
        // A pixel of their own that is in the viewport at every zoom: at 10000% that shows columns 317 to 323
        // and rows 158 to 161.
        for (const std::size_t target : {5U, 9U}) {
            session->campaign.TargetTable[target].x = 320;
            session->campaign.TargetTable[target].y = 160;
        }
    }
    QWidget &Map() { return Find<QWidget>(window(), QStringLiteral("Img_Map")); }
    void Click(Qt::MouseButton button, Qt::KeyboardModifiers keys, int x, int y) {
        QTest::mouseClick(&Map(), button, keys, QPoint(x, y));
        if (auto *popup = QApplication::activePopupWidget(); popup != nullptr)
            popup->close();
    }
    void ZoomTo(int factor) {
        Entry("mnu_m_z_100").trigger();
        for (int i = 1; i < factor; ++i)
            Entry("mnu_m_z_in").trigger();
    }
    /// The viewport's pixel in the middle of the magnified map pixel.
    QPoint ScreenOf(int x, int y) {
        const int zoom = session->view.MapZoom;
        return {(x - session->view.h_scroll.Value) * zoom + zoom / 2,
                (y - session->view.v_scroll.Value) * zoom + zoom / 2};
    }
    void ClickMap(Qt::MouseButton button, Qt::KeyboardModifiers keys, int x, int y) {
        const QPoint at = ScreenOf(x, y);
        Click(button, keys, at.x(), at.y());
    }
    Campaign &campaign() { return session->campaign; }
    /// Selects target 20, point 4 of slot 3 and line 12, and places them all at (100, 50).
    void PlaceCurrentItemsElsewhere() {
        Number("upd_tar_code").SetNumber(20);
        Number("upd_frnt_num").SetNumber(3);
        Number("upd_frnt_pointnum").SetNumber(4);
        Number("upd_rail_linenum").SetNumber(12);
        for (const char *column : {"upd_tar_x", "upd_frnt_x", "upd_rail_x1", "upd_rail_x2"})
            Number(column).SetNumber(100);
        for (const char *row : {"upd_tar_y", "upd_frnt_y", "upd_rail_y1", "upd_rail_y2"})
            Number(row).SetNumber(50);
    }
    void ExpectEdit(const ModeRows &mode, const ButtonRow &row, std::size_t keySet) {
        PlaceCurrentItemsElsewhere();
        const auto expected = std::make_unique<Campaign>(campaign());
        const char effect = row.effects[keySet];
        Apply(effect, *expected);
        ClickMap(row.button, keySets[keySet], 320, 160);
        const std::string what = std::string(mode.mode) + ", button " + std::to_string(row.button) +
                                 ", key set " + std::to_string(keySet) + ", zoom " +
                                 std::to_string(session->view.MapZoom);
        EXPECT_TRUE(campaign() == *expected) << what;
        EXPECT_EQ(Number("upd_tar_code").value(), effect == 's' ? 5 : 20) << what;
        EXPECT_EQ(Number("upd_frnt_num").value(), 3) << what;
        EXPECT_EQ(Number("upd_frnt_pointnum").value(), 4) << what;
        EXPECT_EQ(Number("upd_rail_linenum").value(), 12) << what;
    }
    TargetRecord &Selected() {
        return campaign().TargetTable[static_cast<std::size_t>(Number("upd_tar_code").value())];
    }
};

TEST_F(MapEditingTest, ALeftClickOnATargetsPixelSelectsItAndOneBesideSelectsNothing) {
    for (const int zoom : {1, 2, 100}) {
        ZoomTo(zoom);
        Number("upd_tar_code").SetNumber(20);
        ClickMap(Qt::LeftButton, plain, 321, 160);
        EXPECT_EQ(Number("upd_tar_code").value(), 20) << zoom;
        ClickMap(Qt::LeftButton, plain, 320, 159);
        EXPECT_EQ(Number("upd_tar_code").value(), 20) << zoom;
        ClickMap(Qt::LeftButton, plain, 320, 160);
        EXPECT_EQ(Number("upd_tar_code").value(), 5) << "of two on one pixel the lower, at zoom " << zoom;
    }
}

TEST_F(MapEditingTest, AnyScreenPixelInsideTheMagnifiedPixelSelects) {
    ZoomTo(100);
    const QPoint middle = ScreenOf(320, 160);
    for (const QPoint offset : {QPoint(-50, -50), QPoint(49, 49)}) {
        Number("upd_tar_code").SetNumber(20);
        Click(Qt::LeftButton, plain, middle.x() + offset.x(), middle.y() + offset.y());
        EXPECT_EQ(Number("upd_tar_code").value(), 5);
    }
}

TEST_F(MapEditingTest, AShiftClickPlacesTheSelectedTarget) {
    Number("upd_tar_code").SetNumber(20);
    int x = 318;
    for (const int zoom : {1, 2, 100}) {
        ZoomTo(zoom);
        ClickMap(Qt::LeftButton, shift, ++x, 159);
        EXPECT_EQ(campaign().TargetTable[20].x, x) << zoom;
        EXPECT_EQ(campaign().TargetTable[20].y, 159) << zoom;
    }
}

TEST_F(MapEditingTest, OnlyShiftAloneIsShiftAndOnlyNoKeyIsPlain) {
    const TargetRecord before = campaign().TargetTable[20];
    Number("upd_tar_code").SetNumber(20);
    for (const auto keys : {ctrl | shift, shift | alt, Qt::KeyboardModifiers(ctrl),
                            Qt::KeyboardModifiers(alt), ctrl | alt, ctrl | shift | alt}) {
        ClickMap(Qt::LeftButton, keys, 320, 160);
        EXPECT_EQ(Number("upd_tar_code").value(), 20) << keys;
        EXPECT_EQ(campaign().TargetTable[20], before) << keys;
    }
    for (const auto keys : {Qt::KeyboardModifiers(plain), Qt::KeyboardModifiers(shift)})
        for (const auto button : {Qt::RightButton, Qt::MiddleButton}) {
            ClickMap(button, keys, 320, 160);
            EXPECT_EQ(Number("upd_tar_code").value(), 20);
            EXPECT_EQ(campaign().TargetTable[20], before);
        }
}

TEST_F(MapEditingTest, InFrontlineModeALeftClickMovesTheCurrentPointWhateverKeyIsHeld) {
    Entry("mnu_e_frontline").trigger();
    Number("upd_frnt_num").SetNumber(3);
    Number("upd_frnt_pointnum").SetNumber(4);
    int x = 300;
    for (const int zoom : {1, 2, 100})
        for (const auto keys : {Qt::KeyboardModifiers(plain), Qt::KeyboardModifiers(shift), ctrl | shift,
                                Qt::KeyboardModifiers(alt)}) {
            ZoomTo(zoom);
            x = x == 320 ? 318 : 320;
            ClickMap(Qt::LeftButton, keys, x, 160);
            EXPECT_EQ(campaign().FrontlineTable[3].points[4].x, x) << zoom << ", " << keys;
            EXPECT_EQ(campaign().FrontlineTable[3].points[4].y, 160);
        }
    const FrontlinePoint before = campaign().FrontlineTable[3].points[4];
    ClickMap(Qt::RightButton, shift, 317, 159);
    EXPECT_EQ(campaign().FrontlineTable[3].points[4], before);
}

TEST_F(MapEditingTest, InRailwayModeShiftLeftPlacesTheStartAndShiftRightTheEnd) {
    Entry("mnu_e_railway").trigger();
    Number("upd_rail_linenum").SetNumber(12);
    RailwayLine placed = campaign().RailwayTable[12];
    placed.x1 = 300;
    placed.y1 = 150;
    placed.x2 = 310;
    placed.y2 = 155;
    ClickMap(Qt::LeftButton, shift, 300, 150);
    ClickMap(Qt::RightButton, shift, 310, 155);
    EXPECT_EQ(campaign().RailwayTable[12], placed);
    EXPECT_EQ(Number("upd_rail_linenum").value(), 12);
    for (const auto keys : {Qt::KeyboardModifiers(plain), ctrl | shift})
        for (const auto button : {Qt::LeftButton, Qt::RightButton})
            ClickMap(button, keys, 320, 160);
    EXPECT_EQ(campaign().RailwayTable[12], placed);
}

TEST_F(MapEditingTest, WithAutomaticIncrementTheEndOfALineGoesOnToTheNext) {
    Entry("mnu_e_railway").trigger();
    Find<QCheckBox>(window(), QStringLiteral("chk_rail_auto")).setChecked(true);
    int x = 318;
    for (const int zoom : {1, 2, 100}) {
        ZoomTo(zoom);
        Number("upd_rail_linenum").SetNumber(12);
        const RailwayLine next = campaign().RailwayTable[13];
        ClickMap(Qt::RightButton, shift, ++x, 159);
        EXPECT_EQ(campaign().RailwayTable[12].x2, x) << zoom;
        EXPECT_EQ(Number("upd_rail_linenum").value(), 13) << zoom;
        EXPECT_EQ(campaign().RailwayTable[13], next) << "its start is not filled in";
        ClickMap(Qt::LeftButton, shift, x, 159);
        EXPECT_EQ(Number("upd_rail_linenum").value(), 13) << "a start does not go on";
        Number("upd_rail_linenum").SetNumber(893);
        ClickMap(Qt::RightButton, shift, x, 159);
        EXPECT_EQ(Number("upd_rail_linenum").value(), 893) << "there is no line behind the last";
    }
}

TEST_F(MapEditingTest, InTheInterdictionModesClicksEditNothing) {
    const auto targets = campaign().TargetTable;
    const auto roads = campaign().RoadWaypointTable;
    const auto rails = campaign().RailWaypointTable;
    for (const char *mode : {"mnu_e_roadint", "mnu_e_railint"}) {
        Entry(mode).trigger();
        for (const auto button : {Qt::LeftButton, Qt::RightButton})
            for (const auto keys : {Qt::KeyboardModifiers(plain), Qt::KeyboardModifiers(shift)})
                ClickMap(button, keys, 320, 160);
    }
    EXPECT_EQ(campaign().TargetTable, targets);
    EXPECT_EQ(campaign().RoadWaypointTable, roads);
    EXPECT_EQ(campaign().RailWaypointTable, rails);
}

TEST_F(MapEditingTest, ARightPressOpensTheZoomMenuUnlessShiftAloneIsHeld) {
    const auto menuOfClick = [this](Qt::MouseButton button, Qt::KeyboardModifiers keys) {
        const QString menu = MenuOfPress(Map(), button, keys);
        QTest::mouseRelease(&Map(), button, keys, QPoint(50, 50));
        return menu;
    };
    for (const int zoom : {1, 2, 100}) {
        ZoomTo(zoom);
        for (const ModeRows &mode : editsOfClicks) {
            Entry(mode.mode).trigger();
            for (const auto &[button, effects] : menusOfPresses)
                for (std::size_t i = 0; i < keySets.size(); ++i)
                    EXPECT_EQ(menuOfClick(button, keySets[i]), effects[i] == 'm' ? "mnu_m_zoom" : "")
                        << mode.mode << ", button " << button << ", key set " << i << ", zoom " << zoom;
        }
    }
    Find<QMenu>(window(), QStringLiteral("mnu_m_zoom")).setEnabled(false);
    EXPECT_EQ(menuOfClick(Qt::RightButton, plain), "");
}

TEST_F(MapEditingTest, EveryButtonWithEverySetOfKeysEditsInEveryModeAndZoomJustWhatItShould) {
    for (const int zoom : {1, 2, 100}) {
        ZoomTo(zoom);
        for (const ModeRows &mode : editsOfClicks) {
            Entry(mode.mode).trigger();
            for (const ButtonRow &row : mode.rows)
                for (std::size_t keySet = 0; keySet < keySets.size(); ++keySet)
                    ExpectEdit(mode, row, keySet);
        }
    }
}

TEST_F(MapEditingTest, AClickSetsTheColumnBeforeTheRow) {
    struct Row {
        const char *mode;
        Qt::MouseButton button;
        QStringList fields;
    };
    PlaceCurrentItemsElsewhere();
    QStringList fields;
    for (const char *name : {"upd_tar_x", "upd_tar_y", "upd_frnt_x", "upd_frnt_y", "upd_rail_x1",
                             "upd_rail_y1", "upd_rail_x2", "upd_rail_y2"})
        QObject::connect(&Number(name), &NumberField::NumberChanged, [&fields, name] { fields << name; });
    for (const Row &row : {Row{"mnu_e_target", Qt::LeftButton, {"upd_tar_x", "upd_tar_y"}},
                           {"mnu_e_frontline", Qt::LeftButton, {"upd_frnt_x", "upd_frnt_y"}},
                           {"mnu_e_railway", Qt::LeftButton, {"upd_rail_x1", "upd_rail_y1"}},
                           {"mnu_e_railway", Qt::RightButton, {"upd_rail_x2", "upd_rail_y2"}}}) {
        Entry(row.mode).trigger();
        fields.clear();
        ClickMap(row.button, shift, 320, 160);
        EXPECT_EQ(fields, row.fields);
    }
}

TEST_F(MapEditingTest, AReleaseBesideTheMapIsRefusedForTheAxisThatIsOutsideOnly) {
    Number("upd_tar_code").SetNumber(20);
    PlaceCurrentItemsElsewhere();
    const auto expectTarget = [this](int x, int y) {
        EXPECT_EQ(campaign().TargetTable[20].x, x);
        EXPECT_EQ(campaign().TargetTable[20].y, y);
    };
    ReleaseAt(Map(), 640, 120);
    expectTarget(100, 120);
    ReleaseAt(Map(), -1, 130);
    expectTarget(100, 130);
    ReleaseAt(Map(), 110, 320);
    expectTarget(110, 130);
    ReleaseAt(Map(), 120, -1);
    expectTarget(120, 130);
    ReleaseAt(Map(), 639, 319);
    expectTarget(639, 319);
}

TEST_F(MapEditingTest, OnADisplayWithFinerPixelsTheMapPixelUnderTheMouseCounts) {
    Number("upd_tar_code").SetNumber(20);
    ReleaseAt(Map(), 17.6, 23.9);
    EXPECT_EQ(campaign().TargetTable[20].x, 17);
    EXPECT_EQ(campaign().TargetTable[20].y, 23);
}

using MapEditingWithoutAProject = EditorWindow;

TEST_F(MapEditingWithoutAProject, ClicksEditNothingAndOpenNoMenu) {
    window().Start(QString());
    auto &map = Find<QWidget>(window(), QStringLiteral("Img_Map"));
    session->campaign.TargetTable[5].x = 320;
    session->campaign.TargetTable[5].y = 160;
    Number("upd_tar_code").SetNumber(20);
    const auto before = std::make_unique<Campaign>(session->campaign);
    for (const ModeRows &mode : editsOfClicks) {
        Entry(mode.mode).trigger();
        for (const ButtonRow &row : mode.rows)
            for (const Qt::KeyboardModifiers keys : keySets) {
                EXPECT_EQ(MenuOfPress(map, row.button, keys), "");
                QTest::mouseRelease(&map, row.button, keys, QPoint(320, 160));
            }
    }
    EXPECT_TRUE(session->campaign == *before);
    EXPECT_EQ(Number("upd_tar_code").value(), 20);
}

TEST_F(MapEditingTest, AClickThatRoundsBeyondTheLastColumnIsRefused) {
    // At 300% the last pixels of the viewport lie behind the map: 427 + 639 / 3 is column 640.
    ZoomTo(3);
    Find<QScrollBar>(window(), QStringLiteral("h_scroll")).setValue(427);
    Number("upd_tar_code").SetNumber(20);
    const std::int16_t before = campaign().TargetTable[20].x;
    const int row = session->view.v_scroll.Value + 3;
    Click(Qt::LeftButton, shift, 639, 9);
    EXPECT_EQ(campaign().TargetTable[20].x, before);
    EXPECT_EQ(campaign().TargetTable[20].y, row);
}

TEST_F(MapEditingTest, ArrowKeysMoveTheCurrentItemByOnePixel) {
    Number("upd_tar_code").SetNumber(5);
    QTest::keyClick(&Map(), Qt::Key_Left);
    QTest::keyClick(&Map(), Qt::Key_Down);
    EXPECT_EQ(campaign().TargetTable[5].x, 319);
    EXPECT_EQ(campaign().TargetTable[5].y, 161);
    Entry("mnu_e_railway").trigger();
    Number("upd_rail_linenum").SetNumber(12);
    const RailwayLine line = campaign().RailwayTable[12];
    QTest::keyClick(&Map(), Qt::Key_Right);
    QTest::keyClick(&Map(), Qt::Key_Up);
    EXPECT_EQ(campaign().RailwayTable[12].x1, line.x1 + 1);
    EXPECT_EQ(campaign().RailwayTable[12].y1, line.y1 - 1);
}

}  // namespace
}  // namespace vtr
