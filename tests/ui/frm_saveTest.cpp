#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "DialogDriver.h"
#include "frm_save.h"

namespace vtr {
namespace {

class SaveDialog : public ::testing::Test {
  protected:
    void SetUp() override { dialog.show(); }

    QCheckBox &Box(int index) const {
        return Find<QCheckBox>(dialog, QStringLiteral("chk_save(%1)").arg(index));
    }

    bool succeeds = true;
    std::vector<SaveBoxes> asked;
    frm_save dialog{[this](const SaveBoxes &ticked) {
        asked.push_back(ticked);
        return succeeds;
    }};
};

TEST_F(SaveDialog, ShowsTenBoxesInTheOrderOfTheGamesFilesAndNoneWithIndexThree) {
    const std::vector<std::pair<int, QString>> expected{
        {0, "TARGET.DAT"},   {1, "TARNAMES.STR"}, {2, "GRIDDATA.DAT"}, {4, "FRNTLINE.DAT"},
        {5, "AIRFIELD.DAT"}, {6, "VTR_RRD.DAT"},  {7, "ROADLIST.DAT"}, {8, "ROADWPT.DAT"},
        {9, "RAILLIST.DAT"}, {10, "RAILWPT.DAT"}};
    int above = -1;
    for (const auto &[index, caption] : expected) {
        EXPECT_EQ(Box(index).text(), caption);
        EXPECT_FALSE(Box(index).isChecked());
        EXPECT_GT(Box(index).y(), above);
        above = Box(index).y();
    }
    EXPECT_EQ(dialog.findChild<QCheckBox *>("chk_save(3)"), nullptr);
    EXPECT_EQ(dialog.findChildren<QCheckBox *>().size(), 11);
    EXPECT_EQ(dialog.objectName(), "frm_save");
    EXPECT_EQ(dialog.windowTitle(), "Save Files");
    EXPECT_EQ(Find<QCheckBox>(dialog, "chk_saveall").text(), "SAVE ALL");
    EXPECT_EQ(Find<QPushButton>(dialog, "cmd_save").text(), "&Save");
    EXPECT_EQ(Find<QPushButton>(dialog, "cmd_close").text(), "&Cancel");
}

TEST_F(SaveDialog, SavingWithNoBoxTickedAsksForNoFile) {
    Press<QPushButton>(dialog, "cmd_save");
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_THAT(asked[0], ::testing::Each(false));
}

TEST_F(SaveDialog, EachBoxIsHandedOverUnderItsOwnIndex) {
    succeeds = false;
    for (const int index : {0, 1, 2, 4, 5, 6, 7, 8, 9, 10}) {
        Box(index).setChecked(true);
        Press<QPushButton>(dialog, "cmd_save");
        SaveBoxes expected{};
        expected.at(static_cast<std::size_t>(index)) = true;
        EXPECT_EQ(asked.back(), expected);
        Box(index).setChecked(false);
    }
}

TEST_F(SaveDialog, SaveAllTicksEveryBoxAndNeverUnticksOne) {
    auto &all = Find<QCheckBox>(dialog, "chk_saveall");
    QTest::keyClick(&all, Qt::Key_Space);
    for (const int index : {0, 1, 2, 4, 5, 6, 7, 8, 9, 10})
        EXPECT_TRUE(Box(index).isChecked());
    Box(4).setChecked(false);
    EXPECT_TRUE(all.isChecked());
    QTest::keyClick(&all, Qt::Key_Space);
    EXPECT_FALSE(all.isChecked());
    for (const int index : {0, 1, 2, 4, 5, 6, 7, 8, 9, 10})
        EXPECT_TRUE(Box(index).isChecked());
    Press<QPushButton>(dialog, "cmd_save");
    EXPECT_EQ(asked.at(0), (SaveBoxes{true, true, true, false, true, true, true, true, true, true, true}));
}

TEST_F(SaveDialog, ClosesAfterASaveThatSucceededAndStaysAfterOneThatFailed) {
    succeeds = false;
    Box(0).setChecked(true);
    Press<QPushButton>(dialog, "cmd_save");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(Box(0).isChecked());
    succeeds = true;
    Press<QPushButton>(dialog, "cmd_save");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(asked.size(), 2U);
}

TEST_F(SaveDialog, CancelAndEscapeCloseItWithoutSaving) {
    Box(0).setChecked(true);
    ExpectClosedBy(dialog, "cmd_close");
    EXPECT_TRUE(asked.empty());
}

TEST_F(SaveDialog, EnterSaves) {
    QTest::keyClick(&Box(0), Qt::Key_Return);
    EXPECT_EQ(asked.size(), 1U);
}

TEST_F(SaveDialog, CanBeWaitedFor) {
    dialog.hide();
    WhenModalOpens([](QWidget &window) {
        EXPECT_EQ(window.objectName(), "frm_save");
        Press<QPushButton>(window, "cmd_save");
    });
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);
    EXPECT_EQ(asked.size(), 1U);
}

}  // namespace
}  // namespace vtr
