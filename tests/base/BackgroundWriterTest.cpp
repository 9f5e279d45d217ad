#include <gmock/gmock.h>

#include <future>

#include "BackgroundWriter.h"
#include "BytesOf.h"
#include "SystemCalls.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BackgroundWriterTest : public ::testing::Test {
  protected:
    /// Keeps the thread in its next write until the test lets it go.
    void HoldWriter() {
        writer.Write(folder.Path() + "holding", {});
        started.get_future().wait();
    }

    const TemporaryFolder folder;
    const std::string path = folder.Path() + "work";
    std::promise<void> started;
    std::promise<void> go;
    std::vector<std::string> failures;
    int writes = 0;
    BackgroundWriter writer{[this](const std::optional<Error> &failure) {
        if (++writes == 1 && std::filesystem::exists(folder.Path() + "holding")) {
            started.set_value();
            go.get_future().wait();
        }
        if (failure)
            failures.push_back(failure->Step() + ": " + failure->Reason());
    }};
};

TEST_F(BackgroundWriterTest, WritesAndRemoves) {
    writer.Write(path, BytesOf("edits"));
    writer.Wait();
    EXPECT_EQ(folder.Content("work"), "edits");
    EXPECT_EQ(writes, 1);
    writer.Remove(path);
    writer.Wait();
    EXPECT_THAT(folder.Names(), IsEmpty());
    writer.Remove(path);  // is gone already
    writer.Wait();
    EXPECT_THAT(failures, IsEmpty());
}

TEST_F(BackgroundWriterTest, NobodyWaitsForAWriteAndOnlyTheNewestBytesAreWritten) {
    HoldWriter();
    for (const char *bytes : {"1", "2", "3"})
        writer.Write(path, BytesOf(bytes));
    writer.Write(folder.Path() + "other", BytesOf("o"));
    EXPECT_FALSE(std::filesystem::exists(path));
    go.set_value();
    writer.Wait();
    EXPECT_EQ(folder.Content("work"), "3");
    EXPECT_EQ(folder.Content("other"), "o");
    EXPECT_EQ(writes, 3);
}

TEST_F(BackgroundWriterTest, ARemovalTakesBackAWriteThatWaitsAndAWriteARemoval) {
    HoldWriter();
    writer.Write(path, BytesOf("1"));
    writer.Remove(path);
    writer.Remove(folder.Path() + "other");
    writer.Write(folder.Path() + "other", BytesOf("o"));
    go.set_value();
    writer.Wait();
    EXPECT_THAT(folder.Names(), ElementsAre("holding", "other"));
}

TEST_F(BackgroundWriterTest, WhatIsOutdatedGoesWhenTheWriteIsDone) {
    folder.Make("old", "");
    folder.Make("older", "");
    HoldWriter();
    writer.Write(path, BytesOf("1"), {folder.Path() + "old"});
    writer.Write(path, BytesOf("2"), {folder.Path() + "older"});
    EXPECT_THAT(folder.Names(), ElementsAre("holding", "old", "older"));
    go.set_value();
    writer.Wait();
    EXPECT_THAT(folder.Names(), ElementsAre("holding", "work"));
}

TEST_F(BackgroundWriterTest, OnAFullDiskItTellsTheFailureAndWhatIsOutdatedStays) {
    folder.Make("old", "");
    const SystemCalls full({{.call = "write", .nth = 1, .error = ENOSPC}});
    writer.Write(path, BytesOf("1"), {folder.Path() + "old"});
    writer.Wait();
    EXPECT_THAT(failures, ElementsAre("writing the temporary file: No space left on device"));
    EXPECT_THAT(folder.Names(), ElementsAre("old"));
    writer.Write(path, BytesOf("2"));
    writer.Wait();
    EXPECT_EQ(folder.Content("work"), "2");
    EXPECT_THAT(failures, testing::SizeIs(1));
}

TEST_F(BackgroundWriterTest, FlushesWhatItWrites) {
    const SystemCalls calls;
    writer.Write(path, BytesOf("1"));
    writer.Wait();
    EXPECT_THAT(calls.Made(), testing::Contains("fsync"));
}

TEST(BackgroundWriter, WritesAllBeforeItEnds) {
    const TemporaryFolder folder;
    {
        BackgroundWriter writer([](const std::optional<Error> &) {});
        for (int i = 0; i < 20; ++i)
            writer.Write(folder.Path() + std::to_string(i), BytesOf("x"));
    }
    EXPECT_THAT(folder.Names(), testing::SizeIs(20));
}

}  // namespace
}  // namespace vtr
