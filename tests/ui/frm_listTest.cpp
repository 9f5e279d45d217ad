#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QSignalSpy>
#include <memory>
#include <utility>
#include <vector>

#include "DialogDriver.h"
#include "frm_list.h"

namespace vtr {
namespace {

class ListDialog : public ::testing::Test {
  protected:
    void SetUp() override {
        for (std::size_t i = 0; i < targetTotal; ++i) {
            campaign->TargetTable[i].name = i % 2 == 0 ? "Even" : "Odd";
            campaign->TargetTable[i].x = static_cast<std::int16_t>(1000 - i);
        }
        campaign->TargetTable[12].name = "Wexlinmere Bridge";
        campaign->TargetTable[100].name = "K\xF6ln, \"west\"";
        for (Frontline &frontline : campaign->FrontlineTable)
            for (FrontlinePoint &point : frontline.points)
                point.y = 1760;
        campaign->FrontlineTable[3].points[5] = {.x = 17, .y = 18};
        dialog.show();
        QObject::connect(&dialog, &frm_list::ItemChosen,
                         [this](ItemKind kind, int row) { chosen.emplace_back(kind, row); });
    }

    QTableView &Table() { return Find<QTableView>(dialog, "tbl_items"); }
    QString Text(int row, int column) { return Table().model()->index(row, column).data().toString(); }
    QStringList Column(int column) {
        QStringList texts;
        for (int row = 0; row < Table().model()->rowCount(); ++row)
            texts << Text(row, column);
        return texts;
    }
    void ShowKind(ItemKind kind) {
        Find<QTabBar>(dialog, "tab_kinds").setCurrentIndex(static_cast<int>(kind));
    }
    void Filter(const QString &text) { Find<QLineEdit>(dialog, "txt_filter").setText(text); }
    QString Line() { return Find<QLabel>(dialog, "lbl_items").text(); }
    QString Copied() { return QApplication::clipboard()->text(); }
    void Click(int row) {
        const QRect cell = Table().visualRect(Table().model()->index(row, 1));
        QTest::mouseClick(Table().viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    }

    std::unique_ptr<Campaign> campaign = std::make_unique<Campaign>();
    frm_list dialog{*campaign};
    std::vector<std::pair<ItemKind, int>> chosen;
};

TEST_F(ListDialog, OpensWithTheTargetsInTheOrderOfTheirNumbers) {
    EXPECT_EQ(dialog.objectName(), "frm_list");
    EXPECT_FALSE(dialog.isModal());
    EXPECT_EQ(Table().model()->rowCount(), 302);
    EXPECT_EQ(Table().model()->headerData(1, Qt::Horizontal).toString(), "Name");
    EXPECT_EQ(Text(12, 0), "12");
    EXPECT_EQ(Text(12, 1), "Wexlinmere Bridge");
    EXPECT_EQ(Text(100, 1), QStringLiteral("K\u00F6ln, \"west\""));
    EXPECT_EQ(Line(), "302 rows");
}

TEST_F(ListDialog, EachKindHasATab) {
    auto &tabs = Find<QTabBar>(dialog, "tab_kinds");
    QStringList captions;
    for (int i = 0; i < tabs.count(); ++i)
        captions << tabs.tabText(i);
    EXPECT_EQ(captions, (QStringList{"&Targets", "&Airfields", "&Frontlines", "&Railways",
                                     "Roa&d Interdiction", "Ra&il Interdiction"}));
    ShowKind(ItemKind::Airfield);
    EXPECT_EQ(Table().model()->rowCount(), 162);
    EXPECT_EQ(Table().model()->columnCount(), 12);
    Table().sortByColumn(11, Qt::DescendingOrder);
    ShowKind(ItemKind::FrontlinePoint);
    EXPECT_EQ(Column(2), QStringList{"17"});
    EXPECT_EQ(Line(), "1 row");
    ShowKind(ItemKind::Target);
    EXPECT_EQ(Text(0, 0), "0");
    EXPECT_EQ(Text(301, 0), "301");
    EXPECT_EQ(Table().horizontalHeader()->sortIndicatorSection(), 0);
}

TEST_F(ListDialog, IsSortedByANumberAsANumberAndByATextWithoutRegardToCase) {
    Table().sortByColumn(2, Qt::AscendingOrder);
    EXPECT_EQ(Text(0, 2), "699");
    EXPECT_EQ(Text(301, 2), "1000");
    campaign->TargetTable[200].name = "aachen";
    dialog.TablesChanged();
    Table().sortByColumn(1, Qt::AscendingOrder);
    EXPECT_EQ(Text(0, 1), "aachen");
    Table().sortByColumn(1, Qt::DescendingOrder);
    EXPECT_EQ(Text(0, 1), "Wexlinmere Bridge");
}

TEST_F(ListDialog, ShowsOnlyTheRowsThatContainTheTextOfTheFilterSomewhere) {
    Filter("MERE br");
    EXPECT_EQ(Column(0), QStringList{"12"});
    EXPECT_EQ(Line(), "1 of 302 rows");
    Filter(".*");
    EXPECT_EQ(Column(0), QStringList());
    Filter("988");  // the column of target 12
    EXPECT_EQ(Column(1), QStringList{"Wexlinmere Bridge"});
    Filter("");
    EXPECT_EQ(Line(), "302 rows");
}

TEST_F(ListDialog, FollowsAChangeInItsOrderAndFilter) {
    Table().sortByColumn(2, Qt::AscendingOrder);
    campaign->TargetTable[12].x = -5;
    dialog.TablesChanged();
    EXPECT_EQ(Text(0, 0), "12");
    Filter("bridge");
    campaign->TargetTable[13].name = "Bridge";
    dialog.TablesChanged();
    EXPECT_EQ(Column(0), (QStringList{"12", "13"}));
    EXPECT_EQ(Line(), "2 of 302 rows");
    ShowKind(ItemKind::FrontlinePoint);
    Filter("");
    campaign->FrontlineTable[3].points[6] = {.x = 20, .y = 21};
    campaign->FrontlineTable[3].points[5].y = 1759;
    dialog.TablesChanged();
    EXPECT_EQ(Column(2), QStringList{"20"});
}

TEST_F(ListDialog, ShowsWhatChangedWhileItWasHidden) {
    dialog.hide();
    campaign->TargetTable[12].name = "Emden";
    dialog.TablesChanged();
    dialog.show();
    EXPECT_EQ(Text(12, 1), "Emden");
}

TEST_F(ListDialog, AClickChoosesTheItemOfTheRowAlsoWhenItIsSorted) {
    Click(3);
    Table().sortByColumn(0, Qt::DescendingOrder);
    Click(0);
    ShowKind(ItemKind::FrontlinePoint);
    Click(0);
    EXPECT_EQ(chosen, (std::vector<std::pair<ItemKind, int>>{
                          {ItemKind::Target, 3}, {ItemKind::Target, 301}, {ItemKind::FrontlinePoint, 95}}));
}

TEST_F(ListDialog, TheArrowKeysMoveAndEnterChooses) {
    Table().setFocus();
    Table().setCurrentIndex(Table().model()->index(0, 0));
    QTest::keyClick(&Table(), Qt::Key_Down);
    EXPECT_TRUE(chosen.empty());
    QTest::keyClick(&Table(), Qt::Key_Return);
    QTest::keyClick(&Table(), Qt::Key_Down);
    QTest::keyClick(&Table(), Qt::Key_Enter);
    EXPECT_EQ(chosen, (std::vector<std::pair<ItemKind, int>>{{ItemKind::Target, 1}, {ItemKind::Target, 2}}));
}

TEST_F(ListDialog, EnterInTheFilterPressesNoButton) {
    QApplication::clipboard()->setText("before");
    auto &filter = Find<QLineEdit>(dialog, "txt_filter");
    filter.setFocus();
    QTest::keyClick(&filter, Qt::Key_Return);
    EXPECT_EQ(Copied(), "before");
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(ListDialog, CopyTakesTheSelectedRowsInTheirOrderAndAllWithoutASelection) {
    Filter("bridge");
    Press<QPushButton>(dialog, "cmd_copy");
    EXPECT_EQ(Copied(), "12\tWexlinmere Bridge\t988\t0\t0\t0\t0\t\n");
    Filter("");
    Table().sortByColumn(0, Qt::DescendingOrder);
    Click(0);
    QTest::mouseClick(Table().viewport(), Qt::LeftButton, Qt::ControlModifier,
                      Table().visualRect(Table().model()->index(2, 1)).center());
    QTest::keyClick(&Table(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Copied(), "301\tOdd\t699\t0\t0\t0\t0\t\n299\tOdd\t701\t0\t0\t0\t0\t\n");
}

TEST_F(ListDialog, TheRowsToSaveAreThoseShownBelowTheirCaptions) {
    Filter("west");
    EXPECT_EQ(dialog.FileName(), "targets.csv");
    EXPECT_EQ(dialog.ShownRows(),
              (TextRows{{"Number", "Name", "X", "Y", "X m", "Y m", "Objects", "Airfield"},
                        {"100", "K\xC3\xB6ln, \"west\"", "900", "0", "0", "0", "0", ""}}));
    ShowKind(ItemKind::RailPath);
    EXPECT_EQ(dialog.FileName(), "rail-interdiction.csv");
}

TEST_F(ListDialog, MetresAreShownAsInThePanelAndSavedAsTheyAre) {
    campaign->TargetTable[0].fineOffsets[0] = 2024.75;
    dialog.TablesChanged();
    EXPECT_EQ(Text(0, 4), "2025");
    EXPECT_EQ(dialog.ShownRows()[1][4], "2024.75");
}

TEST_F(ListDialog, ALongNameIsShownInPartAndSavedWhole) {
    campaign->TargetTable[0].name = std::string(30'000, 'x');
    dialog.TablesChanged();
    EXPECT_EQ(Text(0, 1).size(), 203);
    EXPECT_EQ(dialog.ShownRows()[1][1].size(), 30'000U);
}

TEST_F(ListDialog, NoMnemonicStandsForTwoControls) {
    QStringList texts;
    auto &tabs = Find<QTabBar>(dialog, "tab_kinds");
    for (int i = 0; i < tabs.count(); ++i)
        texts << tabs.tabText(i);
    for (const QPushButton *button : dialog.findChildren<QPushButton *>())
        texts << button->text();
    for (const QLabel *label : dialog.findChildren<QLabel *>())
        if (label->buddy() != nullptr)
            texts << label->text();
    EXPECT_EQ(texts.size(), 10);
    QSet<QKeySequence> keys;
    for (const QString &text : texts) {
        EXPECT_FALSE(QKeySequence::mnemonic(text).isEmpty()) << text.toStdString();
        EXPECT_FALSE(keys.contains(QKeySequence::mnemonic(text))) << text.toStdString();
        keys.insert(QKeySequence::mnemonic(text));
    }
}

TEST_F(ListDialog, IsClosedByItsButtonAndByEscape) {
    ExpectClosedBy(dialog, "cmd_close");
}

}  // namespace
}  // namespace vtr
