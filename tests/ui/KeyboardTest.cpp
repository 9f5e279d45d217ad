#include <gtest/gtest.h>

#include <QAccessible>
#include <QLineEdit>
#include <algorithm>
#include <stdexcept>

#include "EditorWindow.h"
#include "MapSurface.h"
#include "PanelTesting.h"
#include "frm_about.h"
#include "frm_findtarget.h"
#include "frm_tutorial.h"

namespace vtr {
namespace {

struct ModeKey {
    Qt::Key key;
    const char *entry;
    const char *frame;
};
constexpr std::array<ModeKey, 5> modeKeys{{
    {Qt::Key_F2, "mnu_e_target", "fra_target"},
    {Qt::Key_F3, "mnu_e_frontline", "fra_frontline"},
    {Qt::Key_F4, "mnu_e_railway", "fra_railway"},
    {Qt::Key_F5, "mnu_e_roadint", "fra_roadint"},
    {Qt::Key_F6, "mnu_e_railint", "fra_railint"},
}};

/// Whether Tab is to stop at widget: what hands its focus on is another one's part.
bool IsTabStop(const QWidget &widget) {
    return widget.isEnabled() && widget.isVisible() && (widget.focusPolicy() & Qt::TabFocus) != 0 &&
           widget.focusProxy() == nullptr;
}

/// Counts how often a widget is painted.
class PaintCount : public QObject {
  public:
    explicit PaintCount(QWidget &widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject * /*watched*/, QEvent *event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int count = 0;
};

class KeyboardTest : public EditorWindow {
  protected:
    void SetUp() override {
        StartWithSample();
        // Off-screen no window system makes it the active one.
        QApplication::setActiveWindow(&window());
        ASSERT_TRUE(window().isActiveWindow());
    }

    Campaign &campaign() { return session->campaign; }
    QWidget &Map() { return Find<QWidget>(window(), QStringLiteral("Img_Map")); }
    void ExpectKeysSwitchModesFrom(QWidget &widget) {
        for (const std::size_t index : {2U, 4U, 1U, 3U, 0U}) {
            const ModeKey &mode = modeKeys[index];
            QTest::keyClick(&widget, mode.key);
            for (const ModeKey &other : modeKeys) {
                EXPECT_EQ(Entry(other.entry).isChecked(), &other == &mode) << mode.entry << other.entry;
                EXPECT_EQ(Find<QWidget>(window(), other.frame).isEnabled(), &other == &mode)
                    << mode.entry << other.frame;
            }
        }
    }
    /// The names of what has the focus as Tab is pressed, from the map on until it is back there.
    QStringList TabWalk() {
        QStringList names;
        Map().setFocus();
        if (!Map().hasFocus())
            throw std::runtime_error("the map cannot get the focus");
        do {
            names << QApplication::focusWidget()->objectName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        } while (QApplication::focusWidget() != &Map() && names.size() < 200);
        return names;
    }
    QStringList TabStops() {
        QStringList names;
        for (const QWidget *widget : window().findChildren<QWidget *>())
            if (IsTabStop(*widget))
                names << widget->objectName();
        return names;
    }
    /// Tab goes through the map, the view box and the frame's own controls, line by line, and the mode panel.
    void ExpectTabWalk(QStringList viewSelectors, const QStringList &frame) {
        const QStringList walk = TabWalk();
        EXPECT_EQ(walk, QStringList({"Img_Map", "h_scroll", "v_scroll"}) + viewSelectors + frame +
                            QStringList{"curredit"});
        QStringList visited = walk;
        QStringList stops = TabStops();
        visited.sort();
        stops.sort();
        EXPECT_EQ(visited, stops);
    }
    void PlacePoint(int x, int y) {
        Number("upd_frnt_x").SetNumber(x);
        Number("upd_frnt_y").SetNumber(y);
    }
    void Arrow(Qt::Key key) { QTest::keyClick(&Map(), key); }
    /// The map, its scroll bars and what lies between them, as the window shows them.
    QImage ShownMapFrame() {
        const QWidget &frame = *Map().parentWidget();
        const QRect place(frame.mapTo(&window(), QPoint()), frame.size());
        return window().grab().toImage().copy(place).convertToFormat(QImage::Format_RGB32);
    }
};

TEST_F(KeyboardTest, TheKeysF2ToF6SwitchTheMode) {
    ExpectKeysSwitchModesFrom(window());
}

TEST_F(KeyboardTest, TheModeKeysWorkAlsoInANumberFieldAndLeaveItsNumber) {
    NumberField &field = Number("upd_view_railway");
    field.setFocus();
    Entry("mnu_e_frontline").trigger();
    ASSERT_TRUE(field.hasFocus());
    const auto before = std::make_unique<Campaign>(campaign());
    QTest::keyClick(&field, Qt::Key_F5);
    EXPECT_TRUE(Entry("mnu_e_roadint").isChecked());
    ExpectKeysSwitchModesFrom(field);
    EXPECT_EQ(field.value(), 0);
    Number("upd_tar_x").setFocus();
    QTest::keyClick(&Number("upd_tar_x"), Qt::Key_F3);
    EXPECT_TRUE(Entry("mnu_e_frontline").isChecked());
    EXPECT_TRUE(campaign() == *before);
}

TEST_F(KeyboardTest, TheArrowKeysMoveTheCurrentFrontlinePointByOnePixel) {
    Entry("mnu_e_frontline").trigger();
    Number("upd_frnt_num").SetNumber(3);
    Number("upd_frnt_pointnum").SetNumber(4);
    PlacePoint(300, 150);
    const auto expected = std::make_unique<Campaign>(campaign());
    Arrow(Qt::Key_Right);
    Arrow(Qt::Key_Right);
    Arrow(Qt::Key_Left);
    Arrow(Qt::Key_Down);
    Arrow(Qt::Key_Down);
    Arrow(Qt::Key_Down);
    Arrow(Qt::Key_Up);
    expected->FrontlineTable[3].points[4].x = 301;
    expected->FrontlineTable[3].points[4].y = 152;
    EXPECT_TRUE(campaign() == *expected);
}

TEST_F(KeyboardTest, TheArrowKeysStopAtTheEdgesOfTheMap) {
    Entry("mnu_e_frontline").trigger();
    Number("upd_frnt_num").SetNumber(3);
    const FrontlinePoint &point = campaign().FrontlineTable[3].points[0];
    PlacePoint(0, 0);
    Arrow(Qt::Key_Left);
    Arrow(Qt::Key_Up);
    EXPECT_EQ(point.x, 0);
    EXPECT_EQ(point.y, 0);
    PlacePoint(639, 319);
    Arrow(Qt::Key_Right);
    Arrow(Qt::Key_Down);
    EXPECT_EQ(point.x, 639);
    EXPECT_EQ(point.y, 319);
    Arrow(Qt::Key_Left);
    Arrow(Qt::Key_Up);
    EXPECT_EQ(point.x, 638);
    EXPECT_EQ(point.y, 318);
}

TEST_F(KeyboardTest, TheArrowKeysDoNothingInTheInterdictionModes) {
    const auto before = std::make_unique<Campaign>(campaign());
    const int roadX = Number("upd_roi_x").value();
    for (const char *mode : {"mnu_e_roadint", "mnu_e_railint"}) {
        Entry(mode).trigger();
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_Right, Qt::Key_Right, Qt::Key_Down})
            Arrow(key);
    }
    EXPECT_TRUE(campaign() == *before);
    EXPECT_EQ(Number("upd_roi_x").value(), roadX);
}

using KeyboardWithoutAProject = EditorWindow;

TEST_F(KeyboardWithoutAProject, TheArrowKeysDoNothing) {
    window().Start(QString());
    const auto before = std::make_unique<Campaign>(session->campaign);
    for (const ModeKey &mode : modeKeys) {
        Entry(mode.entry).trigger();
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down})
            QTest::keyClick(&Find<QWidget>(window(), "Img_Map"), key);
    }
    EXPECT_TRUE(session->campaign == *before);
    EXPECT_EQ(Number("upd_tar_x").value(), 0);
}

TEST_F(KeyboardTest, TabGoesThroughEveryControlOfATargetAndItsAirfieldInReadingOrder) {
    const auto airfield = std::ranges::find_if(
        campaign().TargetTable, [](const TargetRecord &target) { return target.airfield_mark != 0; });
    Number("upd_tar_code").SetNumber(static_cast<int>(airfield - campaign().TargetTable.begin()));
    ExpectTabWalk({"upd_viewfrontline", "upd_view_railway", "upd_view_railint", "upd_view_roadint"},
                  {"upd_tar_code",  "txt_tar_name",        "cmd_target_search", "upd_tar_x",
                   "upd_tar_xm",    "upd_tar_numtargets",  "chk_tar_airfield",  "upd_tar_y",
                   "upd_tar_ym",    "cmd_tar_precise",     "cmd_tar_tile",      "cmd_reorder",
                   "txt_air_code",  "upd_air_orientation", "cbo_air_country",   "cbo_air_1940",
                   "cbo_side_1940", "cbo_air_1943",        "cbo_side_1943",     "cbo_air_1944",
                   "cbo_side_1944", "cbo_air_1945",        "cbo_side_1945"});
}

TEST_F(KeyboardTest, TabGoesThroughEveryControlOfAFrontlineInReadingOrder) {
    Entry("mnu_e_frontline").trigger();
    ExpectTabWalk({"upd_view_railway", "upd_view_railint", "upd_view_roadint"},
                  {"upd_frnt_num", "upd_frnt_pointnum", "upd_frnt_x", "upd_frnt_y", "chk_frnt_map",
                   "cmd_frnt_copy", "cmd_frnt_next"});
}

TEST_F(KeyboardTest, TabGoesThroughEveryControlOfARailwayLineInReadingOrder) {
    Entry("mnu_e_railway").trigger();
    ExpectTabWalk({"upd_viewfrontline", "upd_view_railint", "upd_view_roadint"},
                  {"upd_rail_linenum", "chk_rail_auto", "upd_rail_x1", "upd_rail_xm1", "cmd_rail_precise1",
                   "upd_rail_y1", "upd_rail_ym1", "upd_rail_x2", "upd_rail_xm2", "cmd_rail_precise2",
                   "upd_rail_y2", "upd_rail_ym2", "cmd_Enable", "cmd_rail_disable"});
}

TEST_F(KeyboardTest, TabGoesThroughEveryControlOfAnInterdictionPathInReadingOrder) {
    Entry("mnu_e_roadint").trigger();
    ExpectTabWalk({"upd_viewfrontline", "upd_view_railway", "upd_view_railint"},
                  {"upd_roi_num", "upd_roi_wptnum", "upd_roi_x", "upd_roi_xm", "upd_roi_y", "upd_roi_ym"});
    Entry("mnu_e_railint").trigger();
    ExpectTabWalk({"upd_viewfrontline", "upd_view_railway", "upd_view_roadint"},
                  {"upd_rai_num", "upd_rai_wptnum", "upd_rai_x", "upd_rai_xm", "upd_rai_y", "upd_rai_ym"});
}

TEST_F(KeyboardTest, AFrameAroundTheMapComesAndGoesWithTheFocusAndMovesNothing) {
    // Then nothing marks it over the map.
    campaign().TargetTable[0].y = 1760;
    window().Redraw();
    const QColor frameColour = window().palette().color(QPalette::Highlight);
    const QColor between = window().palette().color(QPalette::Window);
    const QRect map = Map().geometry();
    const QRect frame = map.adjusted(-2, -2, 2, 2);
    for (const char *zoom : {"mnu_m_z_100", "mnu_m_z_400"}) {
        Entry(zoom).trigger();
        Number("upd_tar_x").setFocus();
        const QImage without = ShownMapFrame();
        Map().setFocus();
        const QImage with = ShownMapFrame();
        const std::vector<std::uint32_t> &pixels =
            Find<MapSurface>(window(), QStringLiteral("Img_Map")).Surface().pixels;
        ASSERT_EQ(with.size(), without.size());
        ASSERT_TRUE(with.rect().contains(frame));
        for (int y = 0; y < with.height(); ++y)
            for (int x = 0; x < with.width(); ++x) {
                SCOPED_TRACE(std::to_string(x) + ", " + std::to_string(y));
                if (map.contains(x, y)) {
                    const auto index = static_cast<std::size_t>((y - map.top()) * 640 + x - map.left());
                    ASSERT_EQ(with.pixel(x, y), pixels[index]);
                    ASSERT_EQ(without.pixel(x, y), pixels[index]);
                } else if (frame.contains(x, y)) {
                    ASSERT_EQ(with.pixelColor(x, y), frameColour);
                    ASSERT_EQ(without.pixelColor(x, y), between);
                } else {
                    ASSERT_EQ(with.pixel(x, y), without.pixel(x, y));
                }
            }
        Number("upd_tar_x").setFocus();
        EXPECT_EQ(ShownMapFrame(), without);
    }
}

TEST_F(KeyboardTest, TheFocusFrameLeavesTheWindowItsSize) {
    for (QWidget *focus : std::initializer_list<QWidget *>{&Map(), &Number("upd_tar_x")}) {
        focus->setFocus();
        QCoreApplication::processEvents();
        EXPECT_EQ(window().frameGeometry().size(), QSize(888, 742));
        EXPECT_EQ(window().minimumSizeHint().boundedTo(QSize(888, 742)), window().minimumSizeHint());
        EXPECT_EQ(Map().size(), QSize(640, 320));
    }
}

TEST_F(KeyboardTest, TheFocusFrameIsPaintedWithoutBeingAskedForAndIsNoRedraw) {
    Number("upd_tar_x").setFocus();
    QCoreApplication::processEvents();
    const bool phase = session->view.TargetFlashPhase;
    PaintCount paints(*Map().parentWidget());
    Map().setFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(paints.count, 1);
    Number("upd_tar_x").setFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(paints.count, 2);
    EXPECT_EQ(session->view.TargetFlashPhase, phase);
}

TEST_F(KeyboardTest, TheMapIsAPictureForAssistiveTools) {
    QAccessibleInterface *const accessible = QAccessible::queryAccessibleInterface(&Map());
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Graphic);
    EXPECT_EQ(accessible->text(QAccessible::Name), "Campaign map");
    EXPECT_TRUE(accessible->state().focusable);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(Map().parentWidget())->role(), QAccessible::Client);
}

TEST_F(KeyboardTest, EveryControlThatTakesTheFocusHasANameForAssistiveTools) {
    frm_findtarget find(
        campaign().TargetTable, [](int) {}, &window());
    frm_about about(&window());
    frm_tutorial tutorial(&window());
    for (QWidget *top : std::initializer_list<QWidget *>{&window(), &find, &about, &tutorial}) {
        int controls = 0;
        for (QWidget *widget : top->findChildren<QWidget *>()) {
            if (widget->window() != top || widget->focusPolicy() == Qt::NoFocus ||
                widget->focusProxy() != nullptr)
                continue;
            ++controls;
            QAccessibleInterface *const accessible = QAccessible::queryAccessibleInterface(widget);
            ASSERT_NE(accessible, nullptr) << widget->objectName().toStdString();
            EXPECT_FALSE(accessible->text(QAccessible::Name).trimmed().isEmpty())
                << top->objectName().toStdString() << ": " << widget->objectName().toStdString() << ", a "
                << widget->metaObject()->className();
        }
        EXPECT_GE(controls, top == &window() ? 60 : 2) << top->objectName().toStdString();
    }
}

}  // namespace
}  // namespace vtr
