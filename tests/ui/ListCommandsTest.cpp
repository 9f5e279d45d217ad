#include <gmock/gmock.h>

#include <QScrollBar>
#include <QStatusBar>
#include <random>

#include "EditCampaign.h"
#include "EditorWindow.h"
#include "ListCommands.h"
#include "MapFrame.h"
#include "RandomCampaign.h"
#include "RedrawCounter.h"
#include "frm_list.h"

namespace vtr {
namespace {

class ListCommandsTest : public EditorWindow {
  protected:
    frm_list &Open() {
        Entry("mnu_e_list").trigger();
        return Find<frm_list>(window(), "frm_list");
    }
    frm_list &List() { return Find<frm_list>(window(), "frm_list"); }
    void ShowKind(ItemKind kind) {
        Find<QTabBar>(List(), "tab_kinds").setCurrentIndex(static_cast<int>(kind));
    }
    /// Clicks the row of the table that begins with these numbers.
    void Click(const QStringList &numbers) {
        auto &table = Find<QTableView>(List(), "tbl_items");
        for (int row = 0; row < table.model()->rowCount(); ++row) {
            bool isIt = true;
            for (int column = 0; column < numbers.size(); ++column)
                isIt = isIt && table.model()->index(row, column).data().toString() == numbers[column];
            if (!isIt)
                continue;
            const QModelIndex cell = table.model()->index(row, 0);
            table.scrollTo(cell);
            QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::NoModifier,
                              table.visualRect(cell).center());
            return;
        }
        ADD_FAILURE() << "no row " << numbers.join(", ").toStdString();
    }
    /// The rows that the table shows, without their captions.
    TextRows Rows() {
        TextRows rows = List().ShownRows();
        rows.erase(rows.begin());
        return rows;
    }
    Campaign &campaign() { return session->campaign; }
};

TEST_F(ListCommandsTest, NeedsAProject) {
    window().Start(QString());
    EXPECT_FALSE(Entry("mnu_e_list").isEnabled());
}

TEST_F(ListCommandsTest, TheListOpensBesideTheWindowOnceAndIsNotModal) {
    StartWithSample();
    Open();
    EXPECT_TRUE(List().isVisible());
    EXPECT_FALSE(List().isModal());
    EXPECT_EQ(List().parentWidget(), &window());
    List().close();
    Open();
    EXPECT_TRUE(List().isVisible());
    EXPECT_EQ(window().findChildren<frm_list *>().size(), 1);
}

TEST_F(ListCommandsTest, AClickSelectsEachKindInItsModeInViewAndRedrawsOnce) {
    StartWithSample();
    Entry("mnu_m_z_400").trigger();
    for (const char *bar : {"h_scroll", "v_scroll"})
        Find<QScrollBar>(window(), QLatin1String(bar)).setValue(0);
    campaign().TargetTable[300].x = 600;
    campaign().TargetTable[300].y = 300;
    Entry("mnu_v_roadint").setChecked(false);
    Open();
    RedrawCounter redraws;
    Click({"300"});
    EXPECT_EQ(redraws.count, 1);
    EXPECT_EQ(Number("upd_tar_code").value(), 300);
    EXPECT_EQ(Number("upd_tar_x").value(), 600);
    EXPECT_EQ(Find<QScrollBar>(window(), "h_scroll").value(), 480);
    ShowKind(ItemKind::FrontlinePoint);
    Click({"3", "5"});
    EXPECT_TRUE(Entry("mnu_e_frontline").isChecked());
    EXPECT_EQ(Number("upd_frnt_num").value(), 3);
    EXPECT_EQ(Number("upd_frnt_pointnum").value(), 5);
    ShowKind(ItemKind::RailwayLine);
    Click({"7"});
    EXPECT_TRUE(Entry("mnu_e_railway").isChecked());
    EXPECT_EQ(Number("upd_rail_linenum").value(), 7);
    EXPECT_EQ(Number("upd_rail_x2").value(), campaign().RailwayTable[7].x2);
    redraws.count = 0;
    ShowKind(ItemKind::RoadPath);
    Click({"20"});
    EXPECT_EQ(redraws.count, 1);
    EXPECT_TRUE(Entry("mnu_e_roadint").isChecked());
    EXPECT_TRUE(Entry("mnu_v_roadint").isChecked());
    EXPECT_EQ(Number("upd_roi_x").value(), campaign().RoadWaypointTable[20].waypoints[0].x);
    ShowKind(ItemKind::RailPath);
    Click({"9"});
    EXPECT_TRUE(Entry("mnu_e_railint").isChecked());
    EXPECT_TRUE(Find<QWidget>(window(), "fra_railint").isEnabled());
    EXPECT_EQ(Number("upd_rai_x").value(), campaign().RailWaypointTable[9].waypoints[0].x);
    EXPECT_EQ(redraws.count, 2);
}

TEST_F(ListCommandsTest, AClickBringsTheFrameOfTheModeIntoViewInASmallWindow) {
    StartWithSample();
    window().resize(800, 600);
    QCoreApplication::processEvents();
    Open();
    for (const auto &[kind, frame] : {std::pair(ItemKind::RailPath, "fra_railint"),
                                      {ItemKind::RailwayLine, "fra_railway"},
                                      {ItemKind::Target, "fra_target"}}) {
        ShowKind(kind);
        Click({"9"});
        EXPECT_FALSE(Find<QWidget>(window(), QLatin1String(frame)).visibleRegion().isEmpty()) << frame;
    }
}

TEST_F(ListCommandsTest, AnAirfieldSelectsItsFirstTargetAndOneWithoutSaysSo) {
    StartWithSample();
    for (TargetRecord &target : campaign().TargetTable)
        target.airfield_ref = 9;
    campaign().TargetTable[250].airfield_ref = 30;
    campaign().TargetTable[250].airfield_mark = flagSet;
    Entry("mnu_e_railway").trigger();
    Open();
    ShowKind(ItemKind::Airfield);
    RedrawCounter redraws;
    Click({"29"});
    EXPECT_TRUE(Entry("mnu_e_railway").isChecked());
    EXPECT_EQ(redraws.count, 0);
    EXPECT_EQ(Find<QLabel>(List(), "lbl_items").text(),
              "No target uses airfield 29, so it is not on the map.");
    Click({"30"});
    EXPECT_TRUE(Entry("mnu_e_target").isChecked());
    EXPECT_EQ(Number("upd_tar_code").value(), 250);
    EXPECT_TRUE(Find<QWidget>(window(), "fra_airfield").isEnabled());
    EXPECT_EQ(Find<QLabel>(List(), "lbl_items").text(), "162 rows");
}

TEST_F(ListCommandsTest, FollowsPanelsUndoAndLoad) {
    StartWithSample();
    Open();
    Find<QLineEdit>(List(), "txt_filter").setText("zzyzx");
    EXPECT_EQ(Rows().size(), 0U);
    Find<QLineEdit>(window(), "txt_tar_name").setText("Zzyzx");
    EXPECT_EQ(Rows().size(), 1U);
    Entry("mnu_e_undo").trigger();
    EXPECT_EQ(Rows().size(), 0U);
    campaign().TargetTable[0].name = "Zzyzx";  // what is no edit is no unsaved work to be asked about
    List().TablesChanged();
    ASSERT_EQ(Rows().size(), 1U);
    ShownBox question;
    AnswerNextBox(question, QMessageBox::No);
    Entry("mnu_p_last1").trigger();
    ASSERT_EQ(question.count, 1);
    EXPECT_EQ(Rows().size(), 0U);
}

TEST_F(ListCommandsTest, UndoAndRedoHaveTheirKeysInTheListToo) {
    StartWithSample();
    const int before = campaign().TargetTable[0].x;
    Number("upd_tar_x").SetNumber(321);
    QApplication::setActiveWindow(&Open());
    Find<QTableView>(List(), "tbl_items").setFocus();
    QTest::keyClick(&List(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(campaign().TargetTable[0].x, before);
}

TEST_F(ListCommandsTest, SavesWhatTheTableShowsAsCsv) {
    StartWithSample();
    campaign().TargetTable[5].name = "Low, \"high\" K\xF6ln";
    Open();
    Find<QLineEdit>(List(), "txt_filter").setText("\"high\"");
    ShownChooser shown;
    ChooseNextFile(shown, folder.Path() + "out");
    Press<QPushButton>(List(), "cmd_savecsv");
    EXPECT_EQ(shown.title, "Save as CSV");
    EXPECT_EQ(shown.file, "targets.csv");
    EXPECT_EQ(shown.filters, QStringList{"Comma-separated values (*.csv)"});
    const TargetRecord &target = campaign().TargetTable[5];
    EXPECT_THAT(
        folder.Content("out.csv"),
        ::testing::StartsWith(
            "\xEF\xBB\xBFNumber,Name,X,Y,X m,Y m,Objects,Airfield\r\n5,\"Low, \"\"high\"\" K\xC3\xB6ln\"," +
            std::to_string(target.x) + "," + std::to_string(target.y) + ","));
    EXPECT_EQ(Find<QLabel>(List(), "lbl_items").text(), "Saved as out.csv");
    ChooseNextFile(shown, "");
    Press<QPushButton>(List(), "cmd_savecsv");
    EXPECT_EQ(shown.count, 2);
}

TEST_F(ListCommandsTest, ACsvThatCannotBeWrittenIsToldWithItsFile) {
    StartWithSample();
    Open();
    ShownChooser chooser;
    ChooseNextFile(chooser, folder.Path() + "gone/out.csv");
    const ShownBox box = BoxShownBy([this] { Press<QPushButton>(List(), "cmd_savecsv"); });
    EXPECT_TRUE(box.text.startsWith("Saving the list failed.")) << box.text.toStdString();
    EXPECT_TRUE(box.text.contains("out.csv"));
    EXPECT_TRUE(box.text.contains("Your edits are as they were."));
}

/// Edits a random item of a random table, or takes edits back.
void EditAtRandom(Session &session, std::mt19937 &random) {
    const auto upTo = [&random](std::size_t highest) { return static_cast<int>(random() % (highest + 1)); };
    const auto axis = random() % 2 == 0 ? Axis::X : Axis::Y;
    const int target = upTo(targetTotal - 1);
    const int slot = upTo(frontlineTotal - 1);
    const int point = upTo(frontlinePointTotal - 1);
    const int line = upTo(railwayLineTotal - 1);
    const int airfield = upTo(airfieldTotal - 1);
    const int pixel = upTo(319);
    const auto edit = [&](const std::vector<TableRows> &rows, const std::function<void(Campaign &)> &how) {
        session.Do("Edit", rows, how);
    };
    switch (random() % 10) {
        case 0:
            return edit({RowOf(Table::Targets, target)},
                        [&](Campaign &campaign) { SetTargetPixel(campaign, target, axis, pixel); });
        case 1:
            return edit({RowOf(Table::Targets, target)},
                        [&](Campaign &campaign) { SetTargetFineOffset(campaign, target, axis, pixel); });
        case 2:
            return edit(RowsOfTargetName(session.campaign, target), [&](Campaign &campaign) {
                RenameTarget(campaign, target, "Name " + std::to_string(pixel % 7));
            });
        case 3:
            return edit({RowOf(Table::Targets, target)},
                        [&](Campaign &campaign) { SetTargetIsAirfield(campaign, target, pixel % 2 == 0); });
        case 4:
            return edit({RowOf(Table::Airfields, airfield)},
                        [&](Campaign &campaign) { SetAirfieldExtraWord(campaign, airfield, pixel); });
        case 5:
            return edit({RowOf(Table::FrontlinePoints, slot * static_cast<int>(frontlinePointTotal) + point)},
                        [&](Campaign &campaign) { SetFrontlinePixel(campaign, slot, point, axis, pixel); });
        case 6:
            return edit({RowOf(Table::RailwayLines, line)},
                        [&](Campaign &campaign) { SetRailwayPixel(campaign, line, Y2, pixel); });
        case 7:
            if (line < 600)
                return;
            return edit({{Table::RailwayLines}, {Table::RailwayCounts}},
                        [&](Campaign &campaign) { DisableRailwayFrom(campaign, line); });
        case 8:
            if (session.history.ToUndo() != nullptr)
                session.Undo();
            return;
        default:
            if (session.history.ToRedo() != nullptr)
                session.Redo();
    }
}

TEST_F(ListCommandsTest, ListAndMapAgreeAfterAThousandRandomEdits) {
    StartWithSample();
    Open();
    std::mt19937 random(20);
    for (int i = 0; i < 1000; ++i) {
        // In any order and with a filter: what was shown before must not stay.
        if (i % 50 == 0) {
            ShowKind(static_cast<ItemKind>(random() % itemKindTotal));
            Find<QLineEdit>(List(), "txt_filter").setText(random() % 2 == 0 ? "1" : "");
            Find<QTableView>(List(), "tbl_items")
                .sortByColumn(static_cast<int>(random() % 5), Qt::DescendingOrder);
        }
        EditAtRandom(*session, random);
        if (i % 50 < 49)
            continue;
        TextRows followed = Rows();
        List().hide();
        const int kind = Find<QTabBar>(List(), "tab_kinds").currentIndex();
        frm_list fresh(campaign());
        Find<QTabBar>(fresh, "tab_kinds").setCurrentIndex(kind);
        Find<QLineEdit>(fresh, "txt_filter").setText(Find<QLineEdit>(List(), "txt_filter").text());
        fresh.show();
        TextRows expected = fresh.ShownRows();
        expected.erase(expected.begin());
        std::ranges::sort(followed);
        std::ranges::sort(expected);
        ASSERT_EQ(followed, expected) << "edit " << i << ", kind " << kind;
        List().show();
    }
    ASSERT_NE(session->history.ToUndo(), nullptr);

    // Where the list has a target, a click on the map selects it, or another one at the same place.
    Find<QLineEdit>(List(), "txt_filter").clear();
    ShowKind(ItemKind::Target);
    window().Redraw();
    const TextRows targets = Rows();
    ASSERT_EQ(targets.size(), targetTotal);
    for (const std::vector<std::string> &row : targets) {
        const QPoint place(std::stoi(row[2]), std::stoi(row[3]));
        SwitchMode(*session, EditMode::Target);
        QTest::mouseClick(&Find<MapSurface>(window(), "Img_Map"), Qt::LeftButton, Qt::NoModifier, place);
        const auto selected = static_cast<std::size_t>(Number("upd_tar_code").value());
        EXPECT_EQ(targets[selected][2], row[2]);
        EXPECT_EQ(targets[selected][3], row[3]);
        EXPECT_LE(selected, static_cast<std::size_t>(std::stoi(row[0])));
    }
    // What the list calls used is what the map draws of frontlines and lines.
    ShowKind(ItemKind::FrontlinePoint);
    std::size_t points = 0;
    for (const Frontline &frontline : campaign().FrontlineTable)
        points += static_cast<std::size_t>(frontline.point_count());
    EXPECT_EQ(Rows().size(), points);
}

}  // namespace
}  // namespace vtr
