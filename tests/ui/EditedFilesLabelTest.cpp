#include <gtest/gtest.h>

#include <QCheckBox>
#include <QToolButton>

#include "EditedFilesLabel.h"
#include "EditorWindow.h"

namespace vtr {
namespace {

class EditedFilesLabelTest : public EditorWindow {
  protected:
    void SetUp() override { StartWithSample(); }

    QString Edited() { return Find<QLabel>(window(), "lbl_edited").text(); }
};

TEST_F(EditedFilesLabelTest, TheEditedFilesAreNamedBesideThePanels) {
    EXPECT_EQ(Edited(), "");
    Entry("mnu_e_railway").trigger();
    Number("upd_rail_x1").SetNumber(333);
    EXPECT_EQ(Edited(), "Edited: VTR_RRD.DAT");
    Number("upd_tar_x").SetNumber(333);
    EXPECT_EQ(Find<QLabel>(window(), "lbl_edited").toolTip(),
              "Edited: TARGET.DAT, GRIDDATA.DAT, VTR_RRD.DAT");
    Entry("mnu_e_undo").trigger();
    EXPECT_EQ(Edited(), "Edited: VTR_RRD.DAT");
    Entry("mnu_e_undo").trigger();
    EXPECT_EQ(Edited(), "");
    EXPECT_EQ(Find<QLabel>(window(), "lbl_edited").toolTip(), "");
}

TEST_F(EditedFilesLabelTest, WhereThereIsNoRoomOnlyTheNumberOfEditedFilesIsShown) {
    auto &label = Find<QLabel>(window(), "lbl_edited");
    QCoreApplication::processEvents();
    const QRect panel = Find<QToolButton>(window(), "project").geometry();
    Number("upd_tar_x").SetNumber(333);
    label.resize(600, label.height());
    EXPECT_EQ(Edited(), "Edited: TARGET.DAT, GRIDDATA.DAT");
    label.resize(60, label.height());
    EXPECT_EQ(Edited(), "Edited: 2 files");
    QCoreApplication::processEvents();
    EXPECT_EQ(Find<QToolButton>(window(), "project").geometry(), panel);
}

TEST_F(EditedFilesLabelTest, ASaveMakesItsFilesCleanAndIsNotUndone) {
    Number("upd_tar_x").SetNumber(333);
    Entry("mnu_p_export").trigger();
    auto &dialog = Find<QWidget>(window(), "frm_save");
    Find<QCheckBox>(dialog, "chk_save(0)").setChecked(true);
    Press<QPushButton>(dialog, QStringLiteral("cmd_save"));
    EXPECT_EQ(Edited(), "Edited: GRIDDATA.DAT");
    Entry("mnu_e_undo").trigger();
    EXPECT_NE(session->campaign.TargetTable[0].x, 333);
    EXPECT_EQ(Edited(), "Edited: TARGET.DAT");
}

}  // namespace
}  // namespace vtr
