#include <gmock/gmock.h>

#include <QStatusBar>

#include "EarlierVersions.h"
#include "SaveCommandTesting.h"
#include "StoppedSave.h"

namespace vtr {
namespace {

/// What "&Save Files..." asks and tells of files that others changed, of earlier versions and of a save that
/// stopped half way.
class SaveQuestionsTest : public SaveCommand {};

TEST_F(SaveQuestionsTest, AFileThatAnotherProgramChangedIsOverwrittenOnlyAfterAQuestion) {
    StartWithSample();
    Number("upd_tar_x").SetNumber(321);
    folder.Make("TARGET.DAT", "theirs");
    OpenSaveDialog();
    Tick(0);
    Tick(4);
    ShownBox question;
    AnswerNextBox(question, QMessageBox::No);
    PressSave();
    EXPECT_EQ(question.text,
              "TARGET.DAT has been changed by another program since it was loaded. Overwrite it?");
    EXPECT_EQ(question.title, "VTR Target Editor");
    EXPECT_EQ(question.buttons, QMessageBox::Yes | QMessageBox::No);
    EXPECT_EQ(folder.Content("TARGET.DAT"), "theirs");
    EXPECT_TRUE(DialogIsOpen());
    EXPECT_TRUE(Box(0).isChecked());
    EXPECT_EQ(Line().text(), "Nothing was written. All your edits are still in the editor.");
    EXPECT_EQ(session->campaign.TargetTable[0].x, 321);

    AnswerNextBox(question, QMessageBox::Yes);
    PressSave();
    EXPECT_EQ(question.count, 2);
    EXPECT_EQ(folder.Content("TARGET.DAT").size(), 9668U);
    EXPECT_FALSE(DialogIsOpen());
}

TEST_F(SaveQuestionsTest, SeveralFilesThatAnotherProgramChangedAreOneQuestionWhichNoAnswersByDefault) {
    StartWithSample();
    for (const char *name : {"VTR_RRD.DAT", "TARGET.DAT", "AIRFIELD.DAT"})
        folder.Make(name, "theirs");
    OpenSaveDialog();
    Find<QCheckBox>(*SaveDialog(), QStringLiteral("chk_saveall")).click();
    QString text;
    WhenModalOpens<QMessageBox>([&text](QMessageBox &box) {
        text = box.text();
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
        QTest::keyClick(&box, Qt::Key_Return);
    });
    PressSave();
    EXPECT_EQ(text,
              "TARGET.DAT, AIRFIELD.DAT and VTR_RRD.DAT have been changed by another program since they were "
              "loaded. Overwrite them?");
    EXPECT_TRUE(DialogIsOpen());
    EXPECT_EQ(folder.Content("AIRFIELD.DAT"), "theirs");
}

TEST_F(SaveQuestionsTest, WithoutUnsavedEditsNothingIsSaidOfThem) {
    StartWithSample();
    folder.Make("TARGET.DAT", "theirs");
    OpenSaveDialog();
    Tick(0);
    ShownBox box;
    AnswerNextBox(box, QMessageBox::No);
    PressSave();
    EXPECT_EQ(Line().text(), "Nothing was written.");
    std::filesystem::remove(folder.Path() + "TARGET.DAT");
    std::filesystem::create_directory(folder.Path() + "TARGET.DAT");
    EXPECT_THAT(BoxShownBy([this] { PressSave(); }).text.toStdString(),
                ::testing::EndsWith("\nWritten: none.\nNot written: TARGET.DAT.\n"
                                    "Put right what is said above, then save again."));
}

TEST_F(SaveQuestionsTest, AnEarlierVersionThatCannotBeKeptIsAQuestionWhichNoAnswersByDefault) {
    StartWithSample();
    Number("upd_tar_x").SetNumber(321);
    const std::string before = folder.Content("TARGET.DAT");
    folder.Make("data", "no folder can be made in a file");
    OpenSaveDialog();
    Tick(0);
    QString text;
    WhenModalOpens<QMessageBox>([&text](QMessageBox &box) {
        text = box.text();
        EXPECT_EQ(box.windowTitle(), "VTR Target Editor");
        EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
        QTest::keyClick(&box, Qt::Key_Return);
    });
    PressSave();
    EXPECT_THAT(text.toStdString(), ::testing::StartsWith("Keeping the earlier version failed.\n\nMaking the "
                                                          "folder failed: "));
    EXPECT_THAT(text.toStdString(), ::testing::EndsWith("\n\nSave without keeping the earlier version?"));
    EXPECT_EQ(folder.Content("TARGET.DAT"), before);
    EXPECT_TRUE(DialogIsOpen());
    EXPECT_EQ(Line().text(), "Nothing was written. All your edits are still in the editor.");

    ShownBox question;
    AnswerNextBox(question, QMessageBox::Yes);
    PressSave();
    EXPECT_NE(folder.Content("TARGET.DAT"), before);
    EXPECT_FALSE(DialogIsOpen());
}

TEST_F(SaveQuestionsTest, ASaveThatStopsHalfWaySaysThatTheFilesDoNotBelongTogetherAndOffersTheWayBack) {
    StartWithSample();
    std::filesystem::remove(folder.Path() + "AIRFIELD.DAT");
    std::filesystem::create_directory(folder.Path() + "AIRFIELD.DAT");
    OpenSaveDialog();
    Find<QCheckBox>(*SaveDialog(), QStringLiteral("chk_saveall")).click();
    std::string text;
    bool shown = false;
    WhenModalOpens<QMessageBox>([&](QMessageBox &box) {
        text = box.text().toStdString();
        for (QAbstractButton *button : box.buttons())
            if (button->text() == "&Earlier Versions...") {
                WhenModalOpens([&shown](QWidget &dialog) {
                    shown = dialog.objectName() == "frm_versions";
                    dialog.close();
                });
                button->click();
            }
    });
    PressSave();
    EXPECT_THAT(text, ::testing::HasSubstr("Written: TARGET.DAT, TARNAMES.STR, GRIDDATA.DAT, FRNTLINE.DAT."));
    EXPECT_THAT(text, ::testing::HasSubstr("the campaign's files do not belong together"));
    EXPECT_TRUE(shown);
    EXPECT_TRUE(DialogIsOpen());
}

TEST_F(SaveQuestionsTest, ASaveThatFailsAtItsFirstFileLeavesNoMixture) {
    StartWithSample();
    std::filesystem::remove(folder.Path() + "TARGET.DAT");
    std::filesystem::create_directory(folder.Path() + "TARGET.DAT");
    OpenSaveDialog();
    Tick(0);
    Tick(4);
    const ShownBox warning = BoxShownBy([this] { PressSave(); });
    EXPECT_FALSE(warning.text.contains("belong together"));
    std::filesystem::remove(folder.Path() + "TARGET.DAT");
    PressSave();
    EXPECT_FALSE(DialogIsOpen());
}

TEST_F(SaveQuestionsTest, ALoadTellsThatTheLastSaveStoppedHalfWayUntilItsFilesAreSaved) {
    StartWithSample();
    const std::string versions = VersionsFolderOf(session->dataFolder, session->campaign.paths);
    MakeVersionsFolder(session->dataFolder, session->campaign.paths);
    NoteSave(versions, {"FRNTLINE.DAT", "AIRFIELD.DAT"});
    for (int load = 0; load < 2; ++load) {
        const ShownBox box = BoxShownBy([this] { window().Start(QString::fromStdString(SamplePath())); });
        EXPECT_EQ(box.icon, QMessageBox::Warning);
        EXPECT_THAT(box.text.toStdString(),
                    ::testing::HasSubstr("stopped half way, so the campaign's files do not belong together"));
        EXPECT_THAT(box.text.toStdString(),
                    ::testing::HasSubstr("Perhaps not written: FRNTLINE.DAT, AIRFIELD.DAT."));
    }
    OpenSaveDialog();
    Tick(4);
    Tick(5);
    PressSave();
    EXPECT_FALSE(DialogIsOpen());
    EXPECT_EQ(FilesOfStoppedSave(versions), std::nullopt);
}

}  // namespace
}  // namespace vtr
