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

TEST_F(GridDataSave, ATableThatWasReorderedBuilds) {
    // Against the grain of the map: as they lie, these do not fit.
    for (std::size_t t = 0; t < targetTotal; ++t)
        Place(t, static_cast<int>(t * 277 % 640), static_cast<int>(t * 131 % 320));
    Press<QPushButton>(window(), "cmd_reorder");
    Save();
    EXPECT_TRUE(saved);
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
