#include <QScrollBar>

#include "EditorWindow.h"
#include "MapFrame.h"
#include "MapMovingTesting.h"
#include "MapSigns.h"
#include "QuietLine.h"
#include "RedrawCounter.h"
#include "SelectionMark.h"
#include "UnderPointer.h"

namespace vtr {
namespace {

class MapSignsTest : public EditorWindow {
  protected:
    void SetUp() override {
        StartWithSample();
        PutTarget(50, 320, 160);
    }
    void PutTarget(std::size_t index, int x, int y) {
        session->campaign.TargetTable.at(index).x = static_cast<std::int16_t>(x);
        session->campaign.TargetTable.at(index).y = static_cast<std::int16_t>(y);
    }
    MapSurface &Map() { return Find<MapSurface>(window(), QStringLiteral("Img_Map")); }
    QWidget &Mark() { return Find<QWidget>(window(), QStringLiteral("shp_mark")); }
    QString Told() { return Find<QuietLine>(window(), QStringLiteral("lbl_under")).Text(); }
    void MoveTo(int x, int y) { MoveMouse(Map(), Qt::NoButton, {x, y}); }
    /// The pixels that the mark covers.
    QImage Marked() {
        QImage image(Mark().size(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        Mark().render(&image, {}, {}, QWidget::RenderFlags());
        return image;
    }
    /// True when the mark is what the geometry gives for a map pixel, as far as its first corner shows.
    bool IsMarkedAt(int x, int y) {
        const auto corners = MarkOf(session->view, x, y).corners;
        return corners && Mark().isVisible() &&
               Marked().pixelColor(corners->left, corners->top) == QColor(Qt::black) &&
               Marked().pixelColor(corners->left + 1, corners->top + 1) == QColor(Qt::white);
    }
};

TEST_F(MapSignsTest, TheLineTellsWhatIsUnderThePointerInEveryMode) {
    for (const char *mode :
         {"mnu_e_target", "mnu_e_frontline", "mnu_e_railway", "mnu_e_roadint", "mnu_e_railint"}) {
        Entry(mode).trigger();
        MoveTo(320, 160);
        EXPECT_TRUE(Told().startsWith(QStringLiteral("Target 50 "))) << mode;
        EXPECT_EQ(Told().toStdString(), WhatIsUnder(*session, 320, 160).text);
        MoveTo(3, 3);
        EXPECT_EQ(Told().toStdString(), WhatIsUnder(*session, 3, 3).text);
        EXPECT_TRUE(Told().endsWith(QStringLiteral("12.3 km / 12.3 km"))) << Told().toStdString();
    }
}

TEST_F(MapSignsTest, TheLineIsEmptyBesideTheMap) {
    EXPECT_EQ(Told(), "");
    MoveTo(320, 160);
    EXPECT_NE(Told(), "");
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&Map(), &leave);
    EXPECT_EQ(Told(), "");
    window().Redraw();
    EXPECT_EQ(Told(), "");
}

TEST_F(MapSignsTest, TheLineFollowsEditsAndZoomsUnderAPointerThatRests) {
    MoveTo(320, 160);
    Number("upd_tar_code").SetNumber(50);
    Number("upd_tar_numtargets").SetNumber(17);
    EXPECT_TRUE(Told().contains(QStringLiteral(", 17 objects,"))) << Told().toStdString();
    Number("upd_tar_x").SetNumber(200);
    EXPECT_FALSE(Told().contains(QStringLiteral("Target 50")));
    Number("upd_tar_x").SetNumber(320);
    EXPECT_TRUE(Told().contains(QStringLiteral("Target 50")));
    Entry("mnu_m_z_400").trigger();
    EXPECT_EQ(Told().toStdString(), WhatIsUnder(*session, 320, 160).text);
}

TEST_F(MapSignsTest, AHandShowsWhereAClickSelects) {
    MoveTo(320, 160);
    EXPECT_EQ(Map().cursor().shape(), Qt::PointingHandCursor);
    QTest::mouseClick(&Map(), Qt::LeftButton, {}, QPoint(320, 160));
    EXPECT_EQ(Number("upd_tar_code").value(), 50);
    MoveTo(321, 160);
    EXPECT_EQ(Map().cursor().shape(), Qt::CrossCursor);
    Entry("mnu_e_frontline").trigger();
    MoveTo(320, 160);
    EXPECT_EQ(Map().cursor().shape(), Qt::CrossCursor) << "a click there places the frontline point";
    Entry("mnu_e_target").trigger();
    EXPECT_EQ(Map().cursor().shape(), Qt::PointingHandCursor) << "also under a pointer that rests";
    Entry("mnu_e_railway").trigger();
    EXPECT_EQ(Map().cursor().shape(), Qt::CrossCursor);
}

TEST_F(MapSignsTest, ADragKeepsItsHandAndTheLineFollowsThePointer) {
    Entry("mnu_m_z_400").trigger();
    MoveTo(300, 100);
    PressMouse(Map(), Qt::MiddleButton, {300, 100});
    for (const QPoint at : {QPoint(280, 90), QPoint(200, 60)}) {
        MoveMouse(Map(), Qt::MiddleButton, at);
        EXPECT_EQ(Map().cursor().shape(), Qt::ClosedHandCursor);
        EXPECT_EQ(Told().toStdString(), WhatIsUnder(*session, at.x(), at.y()).text);
    }
    ReleaseMouse(Map(), Qt::MiddleButton, {200, 60});
    EXPECT_EQ(Map().cursor().shape(), Qt::CrossCursor);
    EXPECT_EQ(Told().toStdString(), WhatIsUnder(*session, 200, 60).text);
    window().Redraw();
    EXPECT_EQ(Told().toStdString(), WhatIsUnder(*session, 200, 60).text);
}

TEST_F(MapSignsTest, TheSelectedItemOfTheModeIsMarkedAlsoWhileNothingFlashes) {
    session->preferences.FlashTarget = 0;
    Number("upd_tar_code").SetNumber(50);
    EXPECT_TRUE(IsMarkedAt(320, 160));
    Number("upd_tar_x").SetNumber(300);
    EXPECT_TRUE(IsMarkedAt(300, 160));
    session->campaign.FrontlineTable[0].points[0] = {100, 90, 0};
    Entry("mnu_e_frontline").trigger();
    EXPECT_TRUE(IsMarkedAt(100, 90));
    const RailwayLine &line = session->campaign.RailwayTable[7];
    Entry("mnu_e_railway").trigger();
    Number("upd_rail_linenum").SetNumber(7);
    EXPECT_TRUE(IsMarkedAt(line.x1, line.y1));
    Entry("mnu_e_roadint").trigger();
    session->campaign.RoadWaypointTable[3].waypoints[1] = {200, 120, 0};
    Number("upd_roi_num").SetNumber(3);
    Number("upd_roi_wptnum").SetNumber(1);
    EXPECT_TRUE(IsMarkedAt(200, 120)) << "without a redraw";
    Number("upd_roi_wptnum").SetNumber(11);
    ASSERT_LT(session->campaign.RoadWaypointTable[3].count, 12);
    EXPECT_FALSE(Mark().isVisible()) << "the path is not so long";
    Find<QToolButton>(window(), QStringLiteral("curredit")).click();
    Find<QToolButton>(window(), QStringLiteral("curredit")).click();
    EXPECT_TRUE(IsMarkedAt(300, 160));
}

TEST_F(MapSignsTest, TheMarkStaysWithThePictureWhileTheScrollBarsAreAhead) {
    Number("upd_tar_code").SetNumber(50);
    Entry("mnu_m_z_200").trigger();
    const QImage before = Marked();
    Find<QScrollBar>(window(), QStringLiteral("h_scroll")).setValue(100);
    EXPECT_EQ(Marked(), before);
    window().Redraw();
    EXPECT_NE(Marked(), before);
    EXPECT_TRUE(IsMarkedAt(320, 160));
}

TEST_F(MapSignsTest, AnArrowAtTheEdgePointsToAnItemOutOfView) {
    Number("upd_tar_code").SetNumber(50);
    Entry("mnu_m_z_400").trigger();
    Find<QScrollBar>(window(), QStringLiteral("h_scroll")).setValue(480);
    window().Redraw();
    const QImage marked = Marked();
    int covered = 0;
    for (int y = 0; y < marked.height(); ++y)
        for (int x = 0; x < marked.width(); ++x)
            if (qAlpha(marked.pixel(x, y)) != 0) {
                ++covered;
                EXPECT_LT(x, 20);
                EXPECT_NEAR(y, 160, 12);
            }
    EXPECT_GT(covered, 40);
    EXPECT_LT(covered, 200);
}

TEST_F(MapSignsTest, TheMarkIsNoPartOfTheMap) {
    EXPECT_TRUE(Map().findChildren<QWidget *>().isEmpty());
    Number("upd_tar_code").SetNumber(50);
    ASSERT_TRUE(IsMarkedAt(320, 160));
    const QImage shown = Map().grab().toImage().convertToFormat(QImage::Format_RGB32);
    const auto &pixels = Map().Surface().pixels;
    for (int y = 0; y < 320; ++y)
        for (int x = 0; x < 640; ++x)
            ASSERT_EQ(shown.pixel(x, y), pixels[static_cast<std::size_t>(y * 640 + x)]) << x << ", " << y;
    EXPECT_EQ(Mark().geometry(), Map().geometry());
    EXPECT_EQ(window().childAt(Map().mapTo(&window(), QPoint(313, 153))), &Map()) << "the mouse goes through";
}

TEST_F(MapSignsTest, TheMarkIsEnlargedWithTheMap) {
    Number("upd_tar_code").SetNumber(50);
    const QImage single = Marked();
    window().resize(1920, 1080);
    QCoreApplication::processEvents();
    ASSERT_EQ(Map().Factor(), 2);
    const QImage twice = Marked();
    ASSERT_EQ(twice.size(), single.size() * 2);
    for (int y = 0; y < twice.height(); ++y)
        for (int x = 0; x < twice.width(); ++x)
            ASSERT_EQ(twice.pixel(x, y), single.pixel(x / 2, y / 2)) << x << ", " << y;
}

TEST_F(MapSignsTest, ALoadMarksTheFirstTarget) {
    Number("upd_tar_code").SetNumber(50);
    window().Start(QString::fromStdString(SamplePath()));
    const TargetRecord &first = session->campaign.TargetTable[0];
    EXPECT_TRUE(IsMarkedAt(first.x, first.y));
}

TEST_F(MapSignsTest, NeitherTheLineNorTheMarkRedraws) {
    const RedrawCounter counter;
    for (int i = 0; i < 40; ++i)
        MoveTo(300 + i, 160);
    Entry("mnu_e_frontline").trigger();
    QCoreApplication::processEvents();
    EXPECT_EQ(counter.count, 0);
}

TEST(MapSignsWithoutProject, NothingIsToldOrMarked) {
    auto session = std::make_unique<Session>();
    frm_main window(*session);
    window.show();
    MoveMouse(Find<QWidget>(window, QStringLiteral("Img_Map")), Qt::NoButton, {5, 5});
    EXPECT_EQ(Find<QuietLine>(window, QStringLiteral("lbl_under")).Text(), "");
    EXPECT_FALSE(Find<QWidget>(window, QStringLiteral("shp_mark")).isVisible());
    EXPECT_EQ(Find<QWidget>(window, QStringLiteral("Img_Map")).cursor().shape(), Qt::CrossCursor);
}

}  // namespace
}  // namespace vtr
