#include <gmock/gmock.h>

#include <QCheckBox>

#include "EditorWindow.h"
#include "frm_save.h"

namespace vtr {
namespace {

/// "&Save Files..." on the main window.
class SaveCommand : public EditorWindow {
  protected:
    frm_save *SaveDialog() { return window().findChild<frm_save *>(); }
    void OpenSaveDialog() { Entry("mnu_p_export").trigger(); }
    void PressSave() { Press<QPushButton>(*SaveDialog(), QStringLiteral("cmd_save")); }
    bool DialogIsOpen() { return SaveDialog() != nullptr && SaveDialog()->isVisible(); }
};

TEST_F(SaveCommand, ChosenTwiceTheCommandShowsOneDialog) {
    StartWithSample();
    OpenSaveDialog();
    const frm_save *const first = SaveDialog();
    OpenSaveDialog();
    EXPECT_EQ(window().findChildren<frm_save *>().size(), 1);
    EXPECT_EQ(SaveDialog(), first);
    EXPECT_TRUE(DialogIsOpen());
}

TEST_F(SaveCommand, ChosenAgainAfterTheDialogWasClosedItOpensAnewWithNothingTicked) {
    StartWithSample();
    OpenSaveDialog();
    Find<QCheckBox>(*SaveDialog(), QStringLiteral("chk_saveall")).click();
    Press<QPushButton>(*SaveDialog(), QStringLiteral("cmd_close"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    OpenSaveDialog();
    EXPECT_TRUE(DialogIsOpen());
    for (const QCheckBox *const box : SaveDialog()->findChildren<QCheckBox *>())
        EXPECT_FALSE(box->isChecked()) << box->objectName().toStdString();
}

TEST_F(SaveCommand, AMovedTargetIsInTheFileAfterASave) {
    StartWithSample();
    Number("upd_tar_code").SetNumber(100);
    Number("upd_tar_x").SetNumber(321);
    OpenSaveDialog();
    EXPECT_FALSE(SaveDialog()->isModal());
    Find<QCheckBox>(*SaveDialog(), QStringLiteral("chk_save(0)")).click();
    PressSave();
    EXPECT_FALSE(DialogIsOpen());
    const std::string bytes = folder.Content("TARGET.DAT");
    const auto byte = [&bytes](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
    // 4 * 321 - 640 = 644 = 2 * 256 + 132; the offset within the tile may add up to 3 quarters to the low
    // byte.
    EXPECT_EQ(byte(4 + 32 * 100 + 3), 2);
    EXPECT_EQ(byte(4 + 32 * 100 + 2) & ~3, 132);
}

TEST_F(SaveCommand, AFailedSaveSaysWhatWasWrittenAndWhatNotAndStaysOpenWithAllEdits) {
    StartWithSample();
    Number("upd_tar_code").SetNumber(100);
    Number("upd_tar_x").SetNumber(321);
    std::filesystem::remove(folder.Path() + "TARNAMES.STR");
    std::filesystem::create_directory(folder.Path() + "TARNAMES.STR");
    OpenSaveDialog();
    Find<QCheckBox>(*SaveDialog(), QStringLiteral("chk_saveall")).click();
    ShownBox warning;
    AcceptNextBox(warning);
    PressSave();
    const std::string text = warning.text.toStdString();
    EXPECT_THAT(text, ::testing::HasSubstr("Saving the files failed."));
    EXPECT_THAT(text, ::testing::HasSubstr(folder.Path() + "TARNAMES.STR"));
    EXPECT_THAT(text, ::testing::HasSubstr("\nWritten: TARGET.DAT."));
    EXPECT_THAT(text,
                ::testing::HasSubstr(
                    "Not written: TARNAMES.STR, GRIDDATA.DAT, FRNTLINE.DAT, AIRFIELD.DAT, VTR_RRD.DAT."));
    EXPECT_TRUE(DialogIsOpen());
    EXPECT_EQ(session->campaign.TargetTable[100].x, 321);
}

TEST_F(SaveCommand, ATargetThatFitsNoCellIsNamedAndTheDialogStays) {
    StartWithSample();
    session->campaign.TargetTable[7].y = 1759;
    const std::string before = folder.Content("GRIDDATA.DAT");
    OpenSaveDialog();
    Find<QCheckBox>(*SaveDialog(), QStringLiteral("chk_save(2)")).click();
    ShownBox message;
    AcceptNextBox(message);
    PressSave();
    EXPECT_EQ(
        message.text,
        "Failed to create GRIDDATA.DAT.  Target #7 did not fit.  Please try a different arrangement and try "
        "again.");
    EXPECT_EQ(message.title, "VTR Target Editor");
    EXPECT_EQ(folder.Content("GRIDDATA.DAT"), before);
    EXPECT_TRUE(DialogIsOpen());
}

TEST_F(SaveCommand, ATargetThatFitsNoCellKeepsTheDialogOpenAlsoWhereTheProjectHasNoGridFile) {
    StartWithSample();
    session->campaign.TargetTable[7].y = 1759;
    session->campaign.paths.GridData.clear();
    OpenSaveDialog();
    Find<QCheckBox>(*SaveDialog(), QStringLiteral("chk_save(2)")).click();
    ShownBox message;
    AcceptNextBox(message);
    PressSave();
    EXPECT_THAT(message.text.toStdString(), ::testing::HasSubstr("Target #7 did not fit."));
    EXPECT_TRUE(DialogIsOpen());
}

TEST_F(SaveCommand, CancelUnloadsTheDialogWithoutWriting) {
    StartWithSample();
    session->campaign.TargetTable[7].x = 1;
    const std::string before = folder.Content("TARGET.DAT");
    OpenSaveDialog();
    Find<QCheckBox>(*SaveDialog(), QStringLiteral("chk_saveall")).click();
    Press<QPushButton>(*SaveDialog(), QStringLiteral("cmd_close"));
    EXPECT_FALSE(DialogIsOpen());
    EXPECT_EQ(folder.Content("TARGET.DAT"), before);
}

}  // namespace
}  // namespace vtr
