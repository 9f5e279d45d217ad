#include <gtest/gtest.h>

#include <memory>
#include <random>

#include "EditCampaign.h"
#include "RandomCampaign.h"
#include "ReorderTargets.h"
#include "Session.h"

namespace vtr {

namespace {

using namespace std::chrono_literals;

}  // namespace

class SessionTest : public ::testing::Test {
  protected:
    SessionTest() {
        std::mt19937 random(1);
        FillWithRandomTables(session->campaign, random);
        FillWithRandomLines(session->campaign, random);
        session->now = [this] { return time; };
        session->tablesChanged = [this] { ++changes; };
        session->CampaignLoaded();
        changes = 0;
    }

    void MoveTarget(int target, int column) {
        session->selection.target = target;
        session->Do(
            "Move Target " + std::to_string(target), {RowOf(Table::Targets, target)},
            [&](Campaign &campaign) { SetTargetPixel(campaign, target, Axis::X, column); }, "upd_tar_x");
    }

    std::unique_ptr<Session> session = std::make_unique<Session>();
    History::Time time{};
    int changes = 0;
};

TEST_F(SessionTest, AnEditIsUndoneAndRedone) {
    session->campaign.TargetTable[12].x = 110;
    MoveTarget(12, 111);
    EXPECT_EQ(session->history.ToUndo()->name, "Move Target 12");
    session->Undo();
    EXPECT_EQ(session->campaign.TargetTable[12].x, 110);
    session->Redo();
    EXPECT_EQ(session->campaign.TargetTable[12].x, 111);
}

TEST_F(SessionTest, AnEditThatChangesNothingLeavesNoTrace) {
    session->campaign.TargetTable[12].x = 110;
    MoveTarget(12, 110);
    EXPECT_EQ(session->history.ToUndo(), nullptr);
    EXPECT_EQ(changes, 0);
}

TEST_F(SessionTest, AnEditThatThrowsLeavesTheTablesAsTheyWere) {
    const auto before = std::make_unique<Campaign>(session->campaign);
    const auto half = [](Campaign &campaign) {
        SetTargetPixel(campaign, 12, Axis::X, 100);
        SetTargetPixel(campaign, 12, Axis::Y, 100'000);
    };
    EXPECT_THROW(session->Do("Move Target 12", {RowOf(Table::Targets, 12)}, half), Error);
    EXPECT_TRUE(session->campaign == *before);
    EXPECT_EQ(session->history.ToUndo(), nullptr);
    EXPECT_FALSE(session->HasUnsavedEdits());
}

TEST_F(SessionTest, ListenersAreToldOnceOfEachEditUndoRedoLoadAndSave) {
    MoveTarget(12, 1);
    EXPECT_EQ(changes, 1);
    session->Undo();
    EXPECT_EQ(changes, 2);
    session->Redo();
    EXPECT_EQ(changes, 3);
    session->FilesSaved({"TARGET.DAT"});
    EXPECT_EQ(changes, 4);
    session->CampaignLoaded();
    EXPECT_EQ(changes, 5);
}

TEST_F(SessionTest, UndoAndRedoSelectTheItemInItsModeWithItsLayerShown) {
    session->selection.frontline = 3;
    session->selection.frontlinePoint = 5;
    session->Do("Move Point 5 of Frontline 3",
                {RowOf(Table::FrontlinePoints, 3 * static_cast<int>(frontlinePointTotal) + 5)},
                [](Campaign &campaign) { SetFrontlinePixel(campaign, 3, 5, Axis::X, 7); });
    session->selection = {};
    session->layers.mnu_v_frontlines = false;
    session->Undo();
    EXPECT_EQ(session->mode, EditMode::Frontline);
    EXPECT_EQ(session->selection.frontline, 3);
    EXPECT_EQ(session->selection.frontlinePoint, 5);
    EXPECT_TRUE(session->layers.mnu_v_frontlines);
    session->selection = {};
    SwitchMode(*session, EditMode::RailInt);
    session->Redo();
    EXPECT_EQ(session->mode, EditMode::Frontline);
    EXPECT_EQ(session->selection.frontline, 3);
}

TEST_F(SessionTest, ALoadClearsTheHistoryAndWhatIsUnsaved) {
    MoveTarget(12, 1);
    MoveTarget(13, 1);
    session->Undo();
    session->CampaignLoaded();
    EXPECT_EQ(session->history.ToUndo(), nullptr);
    EXPECT_EQ(session->history.ToRedo(), nullptr);
    EXPECT_FALSE(session->HasUnsavedEdits());
}

TEST_F(SessionTest, ASaveEndsAnEdit) {
    session->campaign.TargetTable[12].x = 110;
    MoveTarget(12, 111);
    session->FilesSaved({"TARGET.DAT"});
    MoveTarget(12, 112);
    session->Undo();
    EXPECT_EQ(session->campaign.TargetTable[12].x, 111);
}

TEST_F(SessionTest, TheGridFileCountsOnlyWhereTheProjectNamesOne) {
    MoveTarget(12, 700);
    EXPECT_EQ(session->EditedFiles(), (std::vector<std::string_view>{"TARGET.DAT"}));
    session->campaign.paths.GridData = "GRIDDATA.DAT";
    EXPECT_EQ(session->EditedFiles(), (std::vector<std::string_view>{"TARGET.DAT", "GRIDDATA.DAT"}));
}

TEST_F(SessionTest, WhatIsTakenOverIsOneEdit) {
    const auto other = std::make_unique<Campaign>(session->campaign);
    other->TargetTable[3].count = 200;
    other->RailwayTable[4].x1 = -1;
    const auto before = std::make_unique<Campaign>(session->campaign);
    session->TakeOver("Take Back Earlier Version", DifferencesOf(*before, *other));
    EXPECT_TRUE(session->campaign == *other);
    EXPECT_EQ(session->history.ToUndo()->name, "Take Back Earlier Version");
    session->Undo();
    EXPECT_TRUE(session->campaign == *before);
    EXPECT_EQ(session->history.ToUndo(), nullptr);
}

TEST_F(SessionTest, TheSelectedPixelIsThatOfTheItemOfTheMode) {
    Campaign &campaign = session->campaign;
    session->selection = {
        .target = 2, .frontline = 3, .frontlinePoint = 4, .railwayLine = 5, .road = {6, 7}, .rail = {8, 9}};
    campaign.TargetTable[2].x = 10;
    campaign.TargetTable[2].y = 11;
    campaign.FrontlineTable[3].points[4] = {20, 21, 0};
    campaign.RailwayTable[5] = {.x1 = 30, .x2 = 1, .y1 = 31, .y2 = 2};
    campaign.RoadWaypointTable[6].waypoints[7] = {40, 41, 0};
    campaign.RailWaypointTable[8].waypoints[9] = {50, 51, 0};
    const auto pixelIn = [&](EditMode mode) {
        session->mode = mode;
        const MapPixel pixel = SelectedPixel(*session);
        return std::pair(pixel.x, pixel.y);
    };
    EXPECT_EQ(pixelIn(EditMode::Target), std::pair(10, 11));
    EXPECT_EQ(pixelIn(EditMode::Frontline), std::pair(20, 21));
    EXPECT_EQ(pixelIn(EditMode::Railway), std::pair(30, 31));
    EXPECT_EQ(pixelIn(EditMode::RoadInt), std::pair(40, 41));
    EXPECT_EQ(pixelIn(EditMode::RailInt), std::pair(50, 51));
}

TEST_F(SessionTest, AnUnusedItemIsNotMarked) {
    Campaign &campaign = session->campaign;
    session->selection = {.target = 2, .railwayLine = 5, .road = {6, 3}, .rail = {8, 3}};
    const auto isMarkedIn = [&](EditMode mode) {
        session->mode = mode;
        return PixelToMark(*session).has_value();
    };
    const std::array modes{EditMode::Target, EditMode::Frontline, EditMode::Railway, EditMode::RoadInt,
                           EditMode::RailInt};
    campaign.RailwayTable[5] = {.x1 = 30, .x2 = 1, .y1 = 31, .y2 = 2};
    campaign.RoadWaypointTable[6].count = campaign.RailWaypointTable[8].count = 4;
    for (const EditMode mode : modes)
        EXPECT_FALSE(isMarkedIn(mode)) << "no project is loaded";
    campaign.ProjectLoaded = true;
    for (const EditMode mode : modes)
        EXPECT_TRUE(isMarkedIn(mode)) << static_cast<int>(mode);
    campaign.RailwayTable[5] = {};
    campaign.RoadWaypointTable[6].count = campaign.RailWaypointTable[8].count = 3;
    EXPECT_FALSE(isMarkedIn(EditMode::Railway));
    EXPECT_FALSE(isMarkedIn(EditMode::RoadInt));
    EXPECT_FALSE(isMarkedIn(EditMode::RailInt));
    session->mode = EditMode::Railway;
    campaign.RailwayTable[5] = {.x1 = 30, .x2 = 1, .y1 = 31, .y2 = 2};
    EXPECT_EQ(PixelToMark(*session)->x, 30);
}

namespace {

/// All that a session's tables can go through, kept as whole campaigns: every state that undo and redo can
/// come to, and what each file was last saved as.
class WholeCampaigns {
  public:
    explicit WholeCampaigns(const Campaign &campaign)
        : states_{campaign}, saved_(campaign), grid_(campaign) {}

    /// key names what the edit merges with; empty: nothing.
    void Do(const Campaign &after, const std::string &key, History::Time now) {
        if (after == Now())
            return;
        const bool joins =
            merges_ && !key.empty() && key == lastKey_ && now - lastTime_ < std::chrono::seconds(2);
        lastTime_ = now;
        lastKey_ = key;
        states_.resize(at_ + 1, after);
        if (!joins) {
            states_.push_back(after);
            ++at_;
        }
        states_[at_] = after;
        merges_ = true;
        if (at_ > 0 && states_[at_] == states_[at_ - 1])
            Forget();
    }
    /// Two edits that are one.
    void DoTogether(const Campaign &halfWay, const Campaign &after, History::Time now) {
        merges_ = false;
        Do(halfWay, "together", now);
        if (merges_)
            Do(after, "together", now);
        else
            Do(after, "", now);
        merges_ = false;
    }
    bool CanUndo() const { return at_ > 0; }
    bool CanRedo() const { return at_ + 1 < states_.size(); }
    void Undo() {
        --at_;
        merges_ = false;
    }
    void Redo() {
        ++at_;
        merges_ = false;
    }
    const Campaign &Now() const { return states_[at_]; }

    void Save(std::string_view file) {
        merges_ = false;
        const Campaign &now = Now();
        if (file == "TARGET.DAT")
            saved_.TargetTable = now.TargetTable;
        else if (file == "TARNAMES.STR")
            saved_.TargetNameTable = now.TargetNameTable;
        else if (file == "GRIDDATA.DAT")
            grid_.TargetTable = now.TargetTable;
        else if (file == "FRNTLINE.DAT")
            saved_.FrontlineTable = now.FrontlineTable;
        else if (file == "AIRFIELD.DAT")
            saved_.AirfieldTable = now.AirfieldTable;
        else if (file == "VTR_RRD.DAT")
            saved_.RailwayTable = now.RailwayTable;
    }

    std::vector<std::string_view> EditedFiles() const {
        const Campaign &now = Now();
        std::vector<std::string_view> files;
        const auto addIf = [&](bool edited, std::string_view file) {
            if (edited)
                files.push_back(file);
        };
        bool targetsDiffer = false;
        bool positionsDiffer = false;
        // Neither the name nor the airfield's mark is in the file.
        const auto stored = [](const TargetRecord &target) {
            return std::tie(target.x, target.y, target.code, target.count, target.extra_word,
                            target.airfield_ref, target.fineOffsets, target.unknown);
        };
        for (std::size_t t = 0; t < targetTotal; ++t) {
            const TargetRecord &is = now.TargetTable[t];
            targetsDiffer |= stored(is) != stored(saved_.TargetTable[t]);
            positionsDiffer |= is.x != grid_.TargetTable[t].x || is.y != grid_.TargetTable[t].y;
        }
        addIf(targetsDiffer, "TARGET.DAT");
        addIf(now.TargetNameTable != saved_.TargetNameTable, "TARNAMES.STR");
        addIf(positionsDiffer, "GRIDDATA.DAT");
        addIf(now.FrontlineTable != saved_.FrontlineTable, "FRNTLINE.DAT");
        addIf(now.AirfieldTable != saved_.AirfieldTable, "AIRFIELD.DAT");
        addIf(now.RailwayTable != saved_.RailwayTable, "VTR_RRD.DAT");
        return files;
    }

  private:
    void Forget() {
        states_.pop_back();
        --at_;
        merges_ = false;
    }

    std::vector<Campaign> states_;
    std::size_t at_ = 0;
    bool merges_ = false;
    std::string lastKey_;
    History::Time lastTime_{};
    Campaign saved_;
    Campaign grid_;
};

int Below(std::mt19937 &random, std::size_t limit) {
    return static_cast<int>(random() % limit);
}

/// One edit of any kind, with small numbers so that values come back now and then. What it merges with;
/// empty: nothing.
std::string EditAtRandom(Session &session, std::mt19937 &random) {
    const auto number = [&random] { return Below(random, 3); };
    const int target = Below(random, 4);
    const int line = Below(random, 4);
    const int slot = Below(random, 3);
    const int point = Below(random, 3);
    const int airfield = Below(random, 3);
    const auto axis = random() % 2 == 0 ? Axis::X : Axis::Y;
    const auto coordinate = static_cast<RailwayCoordinate>(random() % 4);
    const int value = number();
    const TableRows targetRow = RowOf(Table::Targets, target);
    const TableRows pointRow =
        RowOf(Table::FrontlinePoints, slot * static_cast<int>(frontlinePointTotal) + point);
    using Edited = Campaign &;
    const auto numbered = [](const char *name, int item) { return name + std::to_string(item); };
    const auto doIt = [&session](std::string name, const std::vector<TableRows> &rows,
                                 const std::function<void(Edited)> &edit, const std::string &field = {}) {
        session.Do(name, rows, edit, field);
        return field.empty() ? field : name + field;
    };
    switch (random() % 15) {
        case 0:
        case 1:
            return doIt(
                numbered("1 ", target), {targetRow},
                [&](Edited c) { SetTargetPixel(c, target, axis, value); }, axis == Axis::X ? "x" : "y");
        case 2:
            return doIt(
                numbered("2 ", target), {targetRow},
                [&](Edited c) { SetTargetFineOffset(c, target, Axis::X, value); }, "xm");
        case 3:
            return doIt("3", {targetRow}, [&](Edited c) { SetTargetCount(c, target, value); });
        case 4:
            return doIt("4", {targetRow}, [&](Edited c) { SetTargetIsAirfield(c, target, value > 0); });
        case 5:
            return doIt("5", RowsOfTargetName(session.campaign, target),
                        [&](Edited c) { RenameTarget(c, target, std::string(1, char('a' + value))); });
        case 6:
            return doIt("6", {{Table::Targets}}, [&](Edited c) { ReorderTargets(c, [](double) {}); });
        case 7:
            return doIt("7", {RowOf(Table::Airfields, airfield)},
                        [&](Edited c) { SetAirfieldModel(c, airfield, 1, value); });
        case 8:
            return doIt(
                numbered("8 ", airfield), {RowOf(Table::Airfields, airfield)},
                [&](Edited c) { SetAirfieldExtraWord(c, airfield, value); }, "orientation");
        case 9:
            return doIt("9", {pointRow}, [&](Edited c) { SetFrontlinePixel(c, slot, point, axis, value); });
        case 10:
            return doIt("10", {pointRow},
                        [&](Edited c) { SetFrontlinePointOnMap(c, slot, point, value > 0); });
        case 11:
            return doIt("11", {{Table::FrontlinePoints}},
                        [&](Edited c) { CopyFrontlineIntoAllSlots(c, slot); });
        case 12:
            return doIt("12", {RowOf(Table::RailwayLines, line)},
                        [&](Edited c) { SetRailwayPixel(c, line, coordinate, value); });
        case 13: {
            const auto other = std::make_unique<Campaign>(session.campaign);
            SetTargetCount(*other, target, value);
            SetRailwayPixel(*other, line, coordinate, value);
            session.TakeOver("14", DifferencesOf(session.campaign, *other));
            return {};
        }
        default:
            return doIt("13",
                        {{Table::RailwayLines, railwayLineTotal - 2 + static_cast<std::size_t>(value % 2)},
                         {Table::RailwayCounts}},
                        [&](Edited c) { DisableRailwayFrom(c, int(railwayLineTotal) - 2 + value % 2); });
    }
}

}  // namespace

TEST_F(SessionTest, RandomEditsUndosRedosAndSavesAgreeWithWholeCampaignsThatAreKept) {
    constexpr std::array<std::string_view, 6> files{"TARGET.DAT",   "TARNAMES.STR", "GRIDDATA.DAT",
                                                    "FRNTLINE.DAT", "AIRFIELD.DAT", "VTR_RRD.DAT"};
    session->campaign.paths.GridData = "GRIDDATA.DAT";
    // Half a million copies are made: without the terrain and long names they need no memory of their own.
    session->campaign.terrain.clear();
    session->campaign.TargetNameTable.fill("a");
    for (TargetRecord &target : session->campaign.TargetTable)
        target.name = "a";
#ifdef __SANITIZE_ADDRESS__
    constexpr unsigned sequences = 100;  // all take four minutes; the build for players runs them
#else
    constexpr unsigned sequences = 1000;
#endif
    for (unsigned seed = 0; seed < sequences; ++seed) {
        std::mt19937 random(seed);
        session->CampaignLoaded();
        const auto model = std::make_unique<WholeCampaigns>(session->campaign);
        for (int step = 0; step < 200; ++step) {
            const auto what = random() % 10;
            bool cameBack = false;
            time += std::chrono::milliseconds(random() % 3000);
            if (what == 0) {
                const auto halfWay = [&] {
                    const OneEdit together(session->history);
                    EditAtRandom(*session, random);
                    auto kept = std::make_unique<Campaign>(session->campaign);
                    EditAtRandom(*session, random);
                    return kept;
                }();
                model->DoTogether(*halfWay, session->campaign, time);
            } else if (what < 5) {
                const std::string key = EditAtRandom(*session, random);
                model->Do(session->campaign, key, time);
            } else if (what < 7 && model->CanUndo()) {
                session->Undo();
                model->Undo();
                cameBack = true;
            } else if (what < 9 && model->CanRedo()) {
                session->Redo();
                model->Redo();
                cameBack = true;
            } else if (what == 9) {
                const std::string_view file = files[random() % files.size()];
                session->FilesSaved({file});
                model->Save(file);
            }
            ASSERT_EQ(session->history.ToUndo() != nullptr, model->CanUndo()) << seed << " " << step;
            ASSERT_EQ(session->history.ToRedo() != nullptr, model->CanRedo()) << seed << " " << step;
            ASSERT_TRUE(!cameBack || session->campaign == model->Now()) << seed << " " << step;
            if (step % 5 == 0) {
                ASSERT_EQ(session->EditedFiles(), model->EditedFiles()) << seed << " " << step;
            }
        }
    }
}

}  // namespace vtr
