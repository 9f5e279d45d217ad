#include <gtest/gtest.h>

#include "History.h"

namespace vtr {

namespace {

using namespace std::chrono_literals;

/// An edit that sets a name of the table of names, typed in a field.
Edit Naming(std::size_t row, const std::string &before, const std::string &after,
            const std::string &field = "txt_tar_name") {
    return {"Rename " + std::to_string(row), field, {{row, before, after}}, {}, {}};
}

History::Time At(std::chrono::milliseconds time) {
    return History::Time(time);
}

std::size_t CountOfEdits(History &history) {
    std::size_t count = 0;
    for (; history.ToUndo() != nullptr; ++count)
        history.Undo();
    return count;
}

}  // namespace

TEST(History, HasNothingToUndoOrRedoAtFirst) {
    const History history;
    EXPECT_EQ(history.ToUndo(), nullptr);
    EXPECT_EQ(history.ToRedo(), nullptr);
}

TEST(History, EditsAreUndoneFromTheLastOneAndRedoneInTheirOrder) {
    History history;
    history.Add(Naming(1, "a", "b"), At(0ms));
    history.Add(Naming(2, "c", "d"), At(0ms));
    EXPECT_EQ(history.Undo().name, "Rename 2");
    EXPECT_EQ(history.Undo().name, "Rename 1");
    EXPECT_EQ(history.ToUndo(), nullptr);
    EXPECT_EQ(history.Redo().name, "Rename 1");
    EXPECT_EQ(history.Redo().name, "Rename 2");
    EXPECT_EQ(history.ToRedo(), nullptr);
}

TEST(History, ANewEditForgetsWhatWasUndone) {
    History history;
    history.Add(Naming(1, "a", "b"), At(0ms));
    history.Undo();
    history.Add(Naming(2, "c", "d"), At(0ms));
    EXPECT_EQ(history.ToRedo(), nullptr);
    EXPECT_EQ(CountOfEdits(history), 1u);
}

TEST(History, EditsOfOneFieldThatFollowEachOtherAreOne) {
    History history;
    history.Add(Naming(1, "a", "b"), At(0ms));
    history.Add(Naming(1, "b", "bc"), At(1999ms));
    history.Add(Naming(1, "bc", "bcd"), At(3998ms));
    const Edit &edit = history.Undo();
    EXPECT_EQ(edit.differences, (Differences{{1, std::string("a"), std::string("bcd")}}));
    EXPECT_EQ(history.ToUndo(), nullptr);
}

TEST(History, AMergedEditSelectsWhatItsFirstPartFoundAndItsLastPartLeft) {
    History history;
    Edit first = Naming(1, "a", "b");
    first.before.target = 5;
    first.after.target = 6;
    Edit last = Naming(1, "b", "c");
    last.before.target = 7;
    last.after.target = 8;
    history.Add(first, At(0ms));
    history.Add(last, At(0ms));
    EXPECT_EQ(history.ToUndo()->before.target, 5);
    EXPECT_EQ(history.ToUndo()->after.target, 8);
}

TEST(History, TwoSecondsLaterAnotherEditBegins) {
    History history;
    history.Add(Naming(1, "a", "b"), At(0ms));
    history.Add(Naming(1, "b", "c"), At(2000ms));
    EXPECT_EQ(CountOfEdits(history), 2u);
}

TEST(History, AnotherFieldOfTheItemBeginsAnotherEdit) {
    History history;
    history.Add(Naming(1, "a", "b", "upd_tar_x"), At(0ms));
    history.Add(Naming(1, "b", "c", "upd_tar_y"), At(0ms));
    EXPECT_EQ(CountOfEdits(history), 2u);
}

TEST(History, TheSameFieldOfAnotherItemBeginsAnotherEdit) {
    History history;
    history.Add(Naming(1, "a", "b"), At(0ms));
    history.Add(Naming(2, "a", "b"), At(0ms));
    EXPECT_EQ(CountOfEdits(history), 2u);
}

TEST(History, AnEditWithoutAFieldStandsForItself) {
    History history;
    history.Add(Naming(1, "a", "b", ""), At(0ms));
    history.Add(Naming(1, "b", "c", ""), At(0ms));
    EXPECT_EQ(CountOfEdits(history), 2u);
}

TEST(History, OnceSomethingElseWasTouchedAnotherEditBegins) {
    History history;
    history.Add(Naming(1, "a", "b"), At(0ms));
    history.EndMerging();
    history.Add(Naming(1, "b", "c"), At(0ms));
    EXPECT_EQ(CountOfEdits(history), 2u);
}

TEST(History, AfterAnUndoOrARedoAnotherEditBegins) {
    History history;
    history.Add(Naming(1, "a", "b"), At(0ms));
    history.EndMerging();
    history.Add(Naming(1, "b", "c"), At(0ms));
    history.Undo();
    history.Add(Naming(1, "b", "d"), At(0ms));
    history.Undo();
    history.Redo();
    history.Add(Naming(1, "d", "e"), At(0ms));
    EXPECT_EQ(CountOfEdits(history), 3u);
}

TEST(History, TypingThatEndsWhereItBeganLeavesNoEdit) {
    History history;
    history.Add(Naming(1, "a", "b"), At(0ms));
    history.Add(Naming(1, "b", "a"), At(0ms));
    EXPECT_EQ(history.ToUndo(), nullptr);
    history.Add(Naming(1, "a", "c"), At(0ms));
    EXPECT_EQ(history.Undo().differences, (Differences{{1, std::string("a"), std::string("c")}}));
}

TEST(History, TheEditBeforeOneThatCameToNothingIsNotJoined) {
    History history;
    history.Add(Naming(1, "a", "b"), At(0ms));
    history.EndMerging();
    history.Add(Naming(1, "b", "c"), At(0ms));
    history.Add(Naming(1, "c", "b"), At(0ms));
    history.Add(Naming(1, "b", "d"), At(0ms));
    EXPECT_EQ(CountOfEdits(history), 2u);
}

TEST(History, WhatAFieldTakesBackJoinsItsEditHoweverLongAgoThatWas) {
    History history;
    history.Add(Naming(1, "a", "b"), At(0ms));
    history.EndMerging();
    history.MergeNext();
    history.Add(Naming(1, "b", "a"), At(60'000ms));
    EXPECT_EQ(history.ToUndo(), nullptr);
}

TEST(History, WhatAFieldTakesBackDoesNotJoinTheEditOfAnother) {
    History history;
    history.Add(Naming(1, "a", "b", "upd_tar_x"), At(0ms));
    history.MergeNext();
    history.Add(Naming(1, "b", "a"), At(0ms));
    history.EndMerging();
    history.Add(Naming(1, "a", "b"), At(0ms));
    EXPECT_EQ(CountOfEdits(history), 3u);
}

TEST(History, WhatIsDoneTogetherIsOneEditWithTheNameOfTheFirst) {
    History history;
    history.Add(Naming(1, "a", "b"), At(0ms));
    history.BeginTogether();
    history.Add(Naming(1, "b", "c", "upd_tar_x"), At(0ms));
    history.Add(Naming(2, "x", "y", "upd_tar_y"), At(5000ms));
    history.EndTogether();
    history.Add(Naming(2, "y", "z", "upd_tar_y"), At(5000ms));
    EXPECT_EQ(history.Undo().name, "Rename 2");
    const Edit &together = history.Undo();
    EXPECT_EQ(together.name, "Rename 1");
    EXPECT_EQ(together.differences, (Differences{{1, std::string("b"), std::string("c")},
                                                 {2, std::string("x"), std::string("y")}}));
    EXPECT_EQ(CountOfEdits(history), 1u);
}

TEST(History, ATogetherInWhichNothingWasDoneStillEndsTheEditBefore) {
    History history;
    history.Add(Naming(1, "a", "b"), At(0ms));
    history.BeginTogether();
    history.EndTogether();
    history.Add(Naming(1, "b", "c"), At(0ms));
    EXPECT_EQ(CountOfEdits(history), 2u);
}

TEST(History, TenThousandEditsOfSingleFieldsAreKept) {
    History history;
    TargetRecord before;
    before.name = "A name that needs memory of its own, as long ones do";
    TargetRecord after = before;
    after.x = 1;
    for (std::size_t i = 0; i < 10'000; ++i)
        history.Add({"Move Target " + std::to_string(i), "upd_tar_x", {{i % 302, before, after}}, {}, {}},
                    At(0ms));
    EXPECT_EQ(CountOfEdits(history), 10'000u);
}

TEST(History, AboveTenMegabytesTheOldestEditsGo) {
    History history;
    const std::string long1(500'000, 'a');
    const std::string long2(500'000, 'b');
    for (std::size_t i = 0; i < 15; ++i)
        history.Add(Naming(i, long1, long2), At(0ms));
    std::vector<std::string> names;
    while (history.ToUndo() != nullptr)
        names.push_back(history.Undo().name);
    ASSERT_EQ(names.size(), 9u);  // ten would be a little more than 10 MB
    EXPECT_EQ(names.front(), "Rename 14");
    EXPECT_EQ(names.back(), "Rename 6");
}

TEST(History, OneEditAboveTenMegabytesIsKeptAlone) {
    History history;
    history.Add(Naming(1, "a", "b"), At(0ms));
    history.Add(Naming(2, std::string(6'000'000, 'a'), std::string(6'000'000, 'b')), At(0ms));
    EXPECT_EQ(history.ToUndo()->name, "Rename 2");
    EXPECT_EQ(CountOfEdits(history), 1u);
}

TEST(History, ClearForgetsEverything) {
    History history;
    history.Add(Naming(1, "a", "b"), At(0ms));
    history.Add(Naming(2, "a", "b"), At(0ms));
    history.Undo();
    history.Clear();
    EXPECT_EQ(history.ToUndo(), nullptr);
    EXPECT_EQ(history.ToRedo(), nullptr);
    history.Add(Naming(1, "b", "c"), At(0ms));
    EXPECT_EQ(CountOfEdits(history), 1u);
}

}  // namespace vtr
