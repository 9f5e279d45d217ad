#include <QLabel>

#include "EditorWindow.h"
#include "MapMovingTesting.h"
#include "PanelTesting.h"
#include "QuietLine.h"

namespace vtr {
namespace {

/// The words about the shown items in their frames, and the one about the grid.
class NotesTest : public EditorWindow {
  protected:
    void SetUp() override { StartWithSample(); }

    TargetRecord &Target(std::size_t index) { return session->campaign.TargetTable.at(index); }
    QString Note(const char *name) { return Find<QuietLine>(window(), QLatin1String(name)).Text(); }
    QLabel &Grid() { return Find<QLabel>(window(), QStringLiteral("lbl_grid")); }
    QString GridNote() { return Grid().accessibleName(); }
    QTimer &GridTimer() { return Find<QTimer>(window(), QStringLiteral("tmr_grid")); }
    void WaitForGrid() {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !GridTimer().isActive(); }, 3000));
    }
};

TEST_F(NotesTest, EachFrameTellsOfItsItem) {
    Target(5).code = Target(299).code = Target(50).code;
    Target(50).airfield_mark = Target(200).airfield_mark = flagSet;
    Target(50).airfield_ref = Target(200).airfield_ref = 44;
    for (TargetRecord &target : session->campaign.TargetTable)
        if (target.airfield_ref == 44 && &target != &Target(50) && &target != &Target(200))
            target.airfield_mark = 0;
    Number("upd_tar_code").SetNumber(50);
    EXPECT_EQ(Note("lbl_tar_note"), "Name shared with targets 5, 299");
    EXPECT_EQ(Note("lbl_air_note"), "Airfield record 44, also used by target 200");
    Target(51).airfield_mark = 0;
    Target(51).code = 307;
    Number("upd_tar_code").SetNumber(51);
    EXPECT_EQ(Note("lbl_tar_note"), "");
    EXPECT_EQ(Note("lbl_air_note"), "");

    Entry("mnu_e_railway").trigger();
    session->campaign.RailwayTable.fill({});
    for (std::size_t line = 0; line < 850; ++line)
        session->campaign.RailwayTable.at(line).x1 = 1;
    Number("upd_rail_linenum").SetNumber(12);
    EXPECT_EQ(Note("lbl_rail_note"), "Line 12 of 850 in use");
    session->campaign.RoadWaypointTable[7].count = 4;
    session->campaign.RailWaypointTable[8].count = 1;
    Number("upd_roi_num").SetNumber(7);
    Number("upd_rai_num").SetNumber(8);
    EXPECT_EQ(Note("lbl_roi_note"), "Path has 4 waypoints; interdiction paths are shown, not edited");
    EXPECT_EQ(Note("lbl_rai_note"), "Path has 1 waypoint; interdiction paths are shown, not edited");
}

TEST_F(NotesTest, ANoteFollowsEditsAndUndo) {
    Entry("mnu_e_frontline").trigger();
    Frontline &frontline = session->campaign.FrontlineTable[0];
    for (std::size_t point = 0; point < 30; ++point)
        frontline.points.at(point) = {10, static_cast<std::int16_t>(point < 26 ? 10 : 1760), 0};
    Number("upd_frnt_pointnum").SetNumber(26);
    EXPECT_EQ(Note("lbl_frnt_note"), "This point is unused");
    Number("upd_frnt_y").SetNumber(20);
    EXPECT_EQ(Note("lbl_frnt_note"), "Point 26 of 27 in use");
    Entry("mnu_e_undo").trigger();
    EXPECT_EQ(Note("lbl_frnt_note"), "This point is unused");
}

TEST_F(NotesTest, TheButtonSelectsTheNextFreePoint) {
    Entry("mnu_e_frontline").trigger();
    Frontline &frontline = session->campaign.FrontlineTable[0];
    for (std::size_t point = 0; point < 30; ++point)
        frontline.points.at(point) = {10, static_cast<std::int16_t>(point < 29 ? 10 : 1760), 0};
    auto &next = Find<QPushButton>(window(), QStringLiteral("cmd_frnt_next"));
    EXPECT_EQ(next.text(), "Next Free Point");
    const auto press = [&next] { QTest::mouseClick(&next, Qt::LeftButton); };
    press();
    EXPECT_EQ(Number("upd_frnt_pointnum").value(), 29);
    EXPECT_EQ(session->selection.frontlinePoint, 29);
    Number("upd_frnt_y").SetNumber(20);
    Number("upd_frnt_pointnum").SetNumber(3);
    press();
    EXPECT_EQ(Number("upd_frnt_pointnum").value(), 3) << "none is free";
    EXPECT_EQ(window().statusBar()->currentMessage(), "All 30 points of this slot are in use.");
}

TEST_F(NotesTest, FieldsThatStoreNothingSaySo) {
    for (const char *field : {"roi_x", "roi_xm", "roi_y", "roi_ym", "rai_x", "rai_xm", "rai_y", "rai_ym"})
        EXPECT_TRUE(Number((std::string("upd_") + field).c_str())
                        .toolTip()
                        .endsWith(QStringLiteral("; what is entered here is not stored")))
            << field;
    for (const char *field : {"upd_roi_num", "upd_rai_wptnum", "upd_tar_x"})
        EXPECT_FALSE(Number(field).toolTip().contains(QStringLiteral("not stored"))) << field;
}

TEST_F(NotesTest, TheGridIsTold300MillisecondsAfterTheLastChange) {
    EXPECT_EQ(GridTimer().interval(), 300);
    WaitForGrid();
    EXPECT_EQ(GridNote(), "Grid: every target fits");
    EXPECT_EQ(Grid().text(), "Grid: every target fits");
    Target(18).y = 1760;
    Number("upd_tar_numtargets").SetNumber(9);
    EXPECT_EQ(GridNote(), "Grid: every target fits");
    ASSERT_TRUE(GridTimer().isActive());
    QTest::qWait(200);
    Number("upd_tar_numtargets").SetNumber(10);
    EXPECT_GT(GridTimer().remainingTime(), 250);
    WaitForGrid();
    EXPECT_EQ(GridNote(), "Grid: target 18 does not fit");
}

TEST_F(NotesTest, TheGridNoteIsALinkToTheTargetThatDoesNotFit) {
    Target(18).y = 1760;
    Number("upd_tar_numtargets").SetNumber(9);
    WaitForGrid();
    EXPECT_EQ(Grid().text(), "<a href=\"#\">Grid: target 18 does not fit</a>");
    EXPECT_EQ(Number("upd_tar_code").value(), 0);
    QTest::mouseClick(&Grid(), Qt::LeftButton, {}, Grid().rect().center());
    EXPECT_EQ(Number("upd_tar_code").value(), 18);
    Number("upd_tar_y").SetNumber(Target(17).y);
    Number("upd_tar_x").SetNumber(Target(17).x);
    WaitForGrid();
    EXPECT_EQ(GridNote(), "Grid: every target fits");
}

TEST_F(NotesTest, AGridThatCannotBeBuiltIsASentence) {
    for (TargetRecord &target : session->campaign.TargetTable)
        target.x = target.y = 8;
    Number("upd_tar_numtargets").SetNumber(9);
    WaitForGrid();
    EXPECT_EQ(GridNote(), "Grid: too many targets in one place");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(NotesTest, NoNoteMovesAnything) {
    WaitForGrid();
    const auto placesOf = [this] {
        QCoreApplication::processEvents();
        std::map<std::string, QRect> places;
        for (const QWidget *widget : window().findChildren<QWidget *>())
            if (!widget->objectName().isEmpty() && widget != &Grid() &&
                widget->objectName() != "lbl_tar_note")  // it gives room to the word about the grid
                places[widget->objectName().toStdString()] = widget->geometry();
        return places;
    };
    const auto before = placesOf();
    for (TargetRecord &target : session->campaign.TargetTable)
        target.code = 7;
    Target(18).y = 1760;
    Number("upd_tar_code").SetNumber(5);
    Number("upd_tar_x").SetNumber(5);
    WaitForGrid();
    MoveMouse(Find<QWidget>(window(), QStringLiteral("Img_Map")), Qt::NoButton, {320, 160});
    EXPECT_NE(Note("lbl_tar_note"), "");
    EXPECT_NE(Note("lbl_under"), "");
    for (const auto &[name, place] : placesOf())
        EXPECT_EQ(place, before.at(name)) << name;
}

TEST(NotesWithoutProject, NothingIsTold) {
    auto session = std::make_unique<Session>();
    frm_main window(*session);
    window.show();
    QTest::qWait(1);
    for (const QuietLine *note : window.findChildren<QuietLine *>())
        EXPECT_EQ(note->Text(), "") << note->objectName().toStdString();
    EXPECT_EQ(Find<QLabel>(window, QStringLiteral("lbl_grid")).text(), "");
}

}  // namespace
}  // namespace vtr
