#include <gmock/gmock.h>

#include <QComboBox>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QStatusBar>

#include "EarlierVersions.h"
#include "EditorWindow.h"
#include "Paths.h"
#include "RedrawCounter.h"
#include "SaveCampaign.h"

namespace vtr {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

struct NoQuestions : SaveQuestions {
    bool MayOverwrite(const std::vector<std::string_view> &) override { return false; }
    bool MaySaveWithoutEarlierVersion(const Error &) override { return false; }
};

/// "&Earlier Versions..." on the main window.
class VersionsCommand : public EditorWindow {
  protected:
    void Save(const SaveBoxes &ticked) {
        NoQuestions questions;
        ASSERT_TRUE(SaveCampaign(*session, ticked, questions)->Succeeded());
    }
    void InVersions(const std::function<void(QWidget &)> &act) {
        EXPECT_TRUE(InDialog(
            "frm_versions", [this] { Entry("mnu_p_versions").trigger(); }, act));
    }
    static QListWidget &List(QWidget &dialog) { return Find<QListWidget>(dialog, "lst_versions"); }
    static QComboBox &Files(QWidget &dialog) { return Find<QComboBox>(dialog, "cbo_versionfiles"); }
    static std::string Pane(QWidget &dialog) {
        return Find<QPlainTextEdit>(dialog, "txt_versiondifferences").toPlainText().toStdString();
    }
    static QPushButton &TakeBack(QWidget &dialog) { return Find<QPushButton>(dialog, "cmd_takeback"); }
    std::string NewestSet() const {
        return VersionSetsIn(VersionsFolderOf(session->dataFolder, session->campaign.paths)).at(0).folder;
    }
};

TEST_F(VersionsCommand, IsEnabledWithAProjectAndSaysWhenNothingIsKept) {
    EXPECT_FALSE(Entry("mnu_p_versions").isEnabled());
    StartWithSample();
    EXPECT_TRUE(Entry("mnu_p_versions").isEnabled());
    InVersions([](QWidget &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Earlier Versions");
        EXPECT_EQ(List(dialog).count(), 0);
        EXPECT_THAT(Pane(dialog), StartsWith("Nothing has been kept of this project yet."));
        EXPECT_FALSE(TakeBack(dialog).isEnabled());
        Press<QPushButton>(dialog, "cmd_close");
    });
}

TEST_F(VersionsCommand, ListsTheSetsNewestFirstAndTellsInSentencesWhatTakingThemBackChanges) {
    StartWithSample();
    const int x = session->campaign.TargetTable[0].x;
    Number("upd_tar_x").SetNumber(321);
    Save({true});
    const std::string set = NewestSet();
    std::filesystem::rename(
        set, std::string(FolderOf(set.substr(0, set.size() - 1))) + std::string("20260102-120000-000"));
    session->keptVersions = {};
    Save({true, true});
    Number("upd_tar_x").SetNumber(322);
    InVersions([x](QWidget &dialog) {
        ASSERT_EQ(List(dialog).count(), 2);
        EXPECT_THAT(List(dialog).item(0)->text().toStdString(), EndsWith("\nTARGET.DAT, TARNAMES.STR"));
        EXPECT_THAT(List(dialog).item(1)->text().toStdString(),
                    ::testing::MatchesRegex("[12] January 2026, ..:00\nTARGET.DAT"));
        EXPECT_EQ(List(dialog).currentRow(), 0);
        EXPECT_THAT(Pane(dialog), StartsWith("1 difference in TARGET.DAT:\n\nTarget 0 "));
        EXPECT_THAT(Pane(dialog), EndsWith("column 322 to 321"));
        List(dialog).setCurrentRow(1);
        EXPECT_THAT(Pane(dialog), EndsWith("column 322 to " + std::to_string(x)));
        dialog.close();
    });
    EXPECT_EQ(session->campaign.TargetTable[0].x, 322);
}

TEST_F(VersionsCommand, TakesTheChosenFileBackShowsItByOneRedrawAndWritesNoFile) {
    StartWithSample();
    const auto before = std::make_unique<Campaign>(session->campaign);
    Number("upd_tar_x").SetNumber(321);
    session->campaign.FrontlineTable[0].points[0].x = 33;
    Save({true, true, true, false, true});
    const std::string saved = folder.Content("TARGET.DAT");
    InVersions([](QWidget &dialog) {
        ASSERT_EQ(Files(dialog).count(), 5);
        EXPECT_EQ(Files(dialog).itemText(0), "All files of the set");
        EXPECT_THAT(Pane(dialog), StartsWith("2 differences in TARGET.DAT and FRNTLINE.DAT:"));
        Files(dialog).setCurrentIndex(3);
        EXPECT_EQ(Files(dialog).currentText(), "GRIDDATA.DAT");
        EXPECT_EQ(Pane(dialog), "Nothing: the tables in the editor are the same.");
        EXPECT_TRUE(Find<QLabel>(dialog, "lbl_griddata").isVisible());
        EXPECT_FALSE(TakeBack(dialog).isEnabled());
        Files(dialog).setCurrentIndex(1);
        EXPECT_FALSE(Find<QLabel>(dialog, "lbl_griddata").isVisible());
        TakeBack(dialog).click();
    });
    EXPECT_EQ(session->campaign.TargetTable, before->TargetTable);
    EXPECT_EQ(session->campaign.FrontlineTable[0].points[0].x, 33);
    EXPECT_EQ(Number("upd_tar_x").value(), before->TargetTable[0].x);
    EXPECT_EQ(folder.Content("TARGET.DAT"), saved);
    EXPECT_THAT(session->EditedFiles(), ::testing::Contains("TARGET.DAT"));
    EXPECT_EQ(Entry("mnu_e_undo").text(), "&Undo Take Back Earlier Version");
    Entry("mnu_e_undo").trigger();
    EXPECT_EQ(session->campaign.TargetTable[0].x, 321);
    EXPECT_THAT(session->EditedFiles(), ::testing::Not(::testing::Contains("TARGET.DAT")));
}

TEST_F(VersionsCommand, TakingBackRedrawsOnce) {
    StartWithSample();
    Number("upd_tar_x").SetNumber(321);
    Save({true});
    RedrawCounter counter;
    InVersions([](QWidget &dialog) { TakeBack(dialog).click(); });
    QCoreApplication::processEvents();
    EXPECT_EQ(counter.count, 1);
}

TEST_F(VersionsCommand, WhatWasTakenBackIsNamedInTheStatusBar) {
    StartWithSample();
    Number("upd_tar_x").SetNumber(321);
    Save({true});
    InVersions([](QWidget &dialog) { TakeBack(dialog).click(); });
    EXPECT_EQ(window().statusBar()->currentMessage(),
              "Taken back: TARGET.DAT. Save the files to write them.");
}

TEST_F(VersionsCommand, ADamagedKeptFileIsToldInThePaneAndTheOthersCanBeTakenBack) {
    StartWithSample();
    Number("upd_tar_x").SetNumber(321);
    Save({true, true, false, false, false, true});
    std::filesystem::resize_file(NewestSet() + "TARNAMES.STR", (1 << 20) + 1);
    std::filesystem::resize_file(NewestSet() + "AIRFIELD.DAT", 100);
    InVersions([](QWidget &dialog) {
        EXPECT_THAT(Pane(dialog), HasSubstr("Reading an earlier version failed."));
        EXPECT_THAT(Pane(dialog), HasSubstr("TARNAMES.STR"));
        EXPECT_THAT(Pane(dialog), HasSubstr("The tables of this file stay as they are."));
        EXPECT_THAT(Pane(dialog), HasSubstr("The kept AIRFIELD.DAT ends too early (100 of "));
        EXPECT_THAT(Pane(dialog), HasSubstr("column 321 to "));
        EXPECT_TRUE(TakeBack(dialog).isEnabled());
        dialog.close();
    });
}

}  // namespace
}  // namespace vtr
