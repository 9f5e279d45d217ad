#include <gtest/gtest.h>

#include <memory>

#include "SavedTables.h"

namespace vtr {

namespace {

using Files = std::vector<std::string_view>;

}  // namespace

class SavedTablesTest : public ::testing::Test {
  protected:
    SavedTablesTest() { saved.Load(*campaign); }

    /// Changes the campaign and tells of it.
    template <typename Edit>
    Differences Change(Edit edit) {
        const auto before = std::make_unique<Campaign>(*campaign);
        edit(*campaign);
        const Differences differences = DifferencesOf(*before, *campaign);
        saved.Change(differences, Direction::Forwards);
        return differences;
    }
    void Undo(const Differences &differences) {
        Apply(differences, Direction::Backwards, *campaign);
        saved.Change(differences, Direction::Backwards);
    }

    std::unique_ptr<Campaign> campaign = std::make_unique<Campaign>();
    SavedTables saved;
};

TEST_F(SavedTablesTest, NothingIsEditedAfterALoad) {
    EXPECT_EQ(saved.EditedFiles(), Files{});
}

TEST_F(SavedTablesTest, AMovedTargetIsInTheTargetsAndInTheGrid) {
    Change([](Campaign &edited) { edited.TargetTable[12].x = 100; });
    EXPECT_EQ(saved.EditedFiles(), (Files{"TARGET.DAT", "GRIDDATA.DAT"}));
}

TEST_F(SavedTablesTest, WhatATargetHoldsBesidesItsPositionIsNotInTheGrid) {
    Change([](Campaign &edited) { edited.TargetTable[12].count = 7; });
    EXPECT_EQ(saved.EditedFiles(), Files{"TARGET.DAT"});
}

TEST_F(SavedTablesTest, EveryOtherTableIsInItsOwnFile) {
    Change([](Campaign &edited) { edited.RailwayTable[3].x1 = 5; });
    EXPECT_EQ(saved.EditedFiles(), Files{"VTR_RRD.DAT"});
    Change([](Campaign &edited) { edited.AirfieldTable[3].country = 1; });
    EXPECT_EQ(saved.EditedFiles(), (Files{"AIRFIELD.DAT", "VTR_RRD.DAT"}));
    Change([](Campaign &edited) { edited.FrontlineTable[3].points[4].x = 5; });
    EXPECT_EQ(saved.EditedFiles(), (Files{"FRNTLINE.DAT", "AIRFIELD.DAT", "VTR_RRD.DAT"}));
    Change([](Campaign &edited) { edited.TargetNameTable[3] = "Wexlinmere"; });
    EXPECT_EQ(saved.EditedFiles(), (Files{"TARNAMES.STR", "FRNTLINE.DAT", "AIRFIELD.DAT", "VTR_RRD.DAT"}));
}

TEST_F(SavedTablesTest, ARenamingIsInTheNamesAlone) {
    Change([](Campaign &edited) {
        edited.TargetNameTable[0] = "Wexlinmere";
        edited.TargetTable[5].name = "Wexlinmere";
    });
    EXPECT_EQ(saved.EditedFiles(), Files{"TARNAMES.STR"});
}

TEST_F(SavedTablesTest, TheFirstDisabledLineIsInNoFile) {
    Change([](Campaign &edited) { edited.firstDisabledRailwayLine = 12; });
    EXPECT_EQ(saved.EditedFiles(), Files{});
}

TEST_F(SavedTablesTest, UndoingBackToTheLoadMakesClean) {
    const Differences first = Change([](Campaign &edited) { edited.TargetTable[12].x = 100; });
    const Differences second = Change([](Campaign &edited) { edited.TargetTable[12].x = 101; });
    Undo(second);
    EXPECT_EQ(saved.EditedFiles(), (Files{"TARGET.DAT", "GRIDDATA.DAT"}));
    Undo(first);
    EXPECT_EQ(saved.EditedFiles(), Files{});
}

TEST_F(SavedTablesTest, EditingBackByHandMakesCleanToo) {
    Change([](Campaign &edited) { edited.TargetTable[12].x = 100; });
    Change([](Campaign &edited) { edited.TargetTable[12].x = 0; });
    EXPECT_EQ(saved.EditedFiles(), Files{});
}

TEST_F(SavedTablesTest, ASaveMakesTheSavedFilesCleanAndNoOther) {
    Change([](Campaign &edited) {
        edited.TargetTable[12].x = 100;
        edited.RailwayTable[3].x1 = 5;
    });
    saved.Save(*campaign, {"TARGET.DAT"});
    EXPECT_EQ(saved.EditedFiles(), (Files{"GRIDDATA.DAT", "VTR_RRD.DAT"}));
    saved.Save(*campaign, {"GRIDDATA.DAT", "VTR_RRD.DAT"});
    EXPECT_EQ(saved.EditedFiles(), Files{});
}

TEST_F(SavedTablesTest, UndoingBehindASaveIsAnEdit) {
    const Differences move = Change([](Campaign &edited) { edited.TargetTable[12].x = 100; });
    saved.Save(*campaign, {"TARGET.DAT", "GRIDDATA.DAT"});
    Undo(move);
    EXPECT_EQ(saved.EditedFiles(), (Files{"TARGET.DAT", "GRIDDATA.DAT"}));
    saved.Change(move, Direction::Forwards);
    EXPECT_EQ(saved.EditedFiles(), Files{});
}

TEST_F(SavedTablesTest, TargetsThatChangeTheirOrderAreInTheGrid) {
    Change([](Campaign &edited) {
        edited.TargetTable[0].x = 1;
        edited.TargetTable[1].x = 2;
    });
    saved.Save(*campaign, {"TARGET.DAT", "GRIDDATA.DAT"});
    Change([](Campaign &edited) { std::swap(edited.TargetTable[0], edited.TargetTable[1]); });
    EXPECT_EQ(saved.EditedFiles(), (Files{"TARGET.DAT", "GRIDDATA.DAT"}));
}

}  // namespace vtr
