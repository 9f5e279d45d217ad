#include <gmock/gmock.h>

#include <QCheckBox>
#include <array>

#include "EditorWindow.h"

namespace vtr {
namespace {

/// The grid data file as the window's commands make it, looked at byte by byte.
class GridDataSave : public EditorWindow {
  protected:
    /// Targets in every second column of the grid's cells, row by row: a table that fits.
    void SetUp() override {
        StartWithSample();
        for (std::size_t t = 0; t < targetTotal; ++t)
            Place(t, 8 + 32 * static_cast<int>(t % 20), 8 + 16 * static_cast<int>(t / 20));
    }

    void Place(std::size_t target, int x, int y) {
        session->campaign.TargetTable[target].x = static_cast<std::int16_t>(x);
        session->campaign.TargetTable[target].y = static_cast<std::int16_t>(y);
    }
    void Save() {
        Entry("mnu_p_export").trigger();
        QWidget &dialog = Find<QWidget>(window(), "frm_save");
        Find<QCheckBox>(dialog, "chk_save(2)").setChecked(true);
        Press<QPushButton>(dialog, "cmd_save");
        saved = !dialog.isVisible();
    }
    /// The eight bytes of a cell, rows and columns counted from 1.
    std::array<int, 8> Cell(int row, int column) const {
        const std::string file = folder.Content("GRIDDATA.DAT");
        std::array<int, 8> cell{};
        for (std::size_t i = 0; i < cell.size(); ++i)
            cell[i] = static_cast<unsigned char>(
                file.at(8 * static_cast<std::size_t>((row - 1) * 40 + column - 1) + i));
        return cell;
    }
    static std::array<int, 8> Run(int first, int count) {
        return {count, 0, 0, 0, first % 256, first / 256, 0, 0};
    }

    bool saved = false;
};

TEST_F(GridDataSave, Target0At0And0OpensCell1And1) {
    Place(0, 0, 0);
    Save();
    EXPECT_TRUE(saved);
    EXPECT_EQ(Cell(1, 1), Run(0, 1));
    EXPECT_EQ(Cell(20, 40), Run(0, 0));
}

TEST_F(GridDataSave, Targets0And1At100And100ShareACellAndTarget2At300And200OpensAnother) {
    Place(0, 100, 100);
    Place(1, 100, 100);
    Place(2, 300, 200);
    Save();
    EXPECT_EQ(Cell(6, 6), Run(0, 2));
    EXPECT_EQ(Cell(12, 18), Run(2, 1));
}

TEST_F(GridDataSave, ATargetAtColumn48IsFiledInColumns2And3And4ButNotIn5) {
    // Each is followed by one far away, so that it needs a cell of its own.
    for (std::size_t i = 0; i < 6; ++i) {
        Place(2 * i, 48, 8);
        Place(2 * i + 1, 600, 20 + 40 * static_cast<int>(i));
    }
    Save();
    EXPECT_TRUE(saved);
    for (const auto &[row, column, first] :
         {std::array{1, 2, 0}, {1, 3, 2}, {1, 4, 4}, {2, 2, 6}, {2, 3, 8}, {2, 4, 10}})
        EXPECT_EQ(Cell(row, column), Run(first, 1)) << row << ", " << column;
    Place(12, 48, 8);
    Place(13, 600, 260);
    const ShownBox box = BoxShownBy([this] { Save(); });
    EXPECT_THAT(box.text.toStdString(), ::testing::HasSubstr("Target #12 did not fit."));
}

TEST_F(GridDataSave, ATargetAtRow320BuildsAndItsIndexAbove255TakesTwoBytes) {
    Place(301, 640, 320);
    Save();
    EXPECT_TRUE(saved);
    EXPECT_EQ(Cell(19, 39), Run(301, 1));
}

TEST_F(GridDataSave, ATableThatWasReorderedBuilds) {
    // Against the grain of the map: as they lie, these do not fit.
    for (std::size_t t = 0; t < targetTotal; ++t)
        Place(t, static_cast<int>(t * 277 % 640), static_cast<int>(t * 131 % 320));
    Press<QPushButton>(window(), "cmd_reorder");
    Save();
    EXPECT_TRUE(saved);
}

TEST_F(GridDataSave, AReorderKeepsTargetsAtColumns1And3OfOneRowInTheirOldOrder) {
    for (std::size_t t = 0; t < targetTotal; ++t)
        Place(t, 300 + static_cast<int>(t), 50);
    Place(10, 3, 50);
    Place(20, 1, 50);
    Press<QPushButton>(window(), "cmd_reorder");
    EXPECT_EQ(session->campaign.TargetTable[0].x, 3);
    EXPECT_EQ(session->campaign.TargetTable[1].x, 1);
}

TEST_F(GridDataSave, A256thTargetInOneCellIsToldAsAnOverflowAndTheFileStays) {
    for (std::size_t t = 0; t < targetTotal; ++t)
        Place(t, 8, 8);
    const std::string before = folder.Content("GRIDDATA.DAT");
    const ShownBox box = BoxShownBy([this] { Save(); });
    EXPECT_EQ(box.icon, QMessageBox::Warning);
    EXPECT_THAT(box.text.toStdString(), ::testing::HasSubstr("File: " + folder.Path() + "GRIDDATA.DAT"));
    EXPECT_THAT(box.text.toStdString(), ::testing::HasSubstr("Found: 256"));
    EXPECT_FALSE(saved);
    EXPECT_EQ(folder.Content("GRIDDATA.DAT"), before);
}

}  // namespace
}  // namespace vtr
