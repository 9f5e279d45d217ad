#include <gtest/gtest.h>

#include <filesystem>

#include "BytesOf.h"
#include "FileStamp.h"
#include "SystemCalls.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

namespace fs = std::filesystem;

class FileStampTest : public ::testing::Test {
  protected:
    void WriteAnew(std::string_view content) { folder.Make("a.dat", content); }
    void Touch() { fs::last_write_time(path, fs::last_write_time(path) + std::chrono::seconds(7)); }

    TemporaryFolder folder;
    const std::string path = folder.Make("a.dat", "the content");
};

TEST_F(FileStampTest, HoldsSizeTimeAndTheHashOfTheBytesThatWereRead) {
    fs::last_write_time(
        path, std::chrono::file_clock::from_sys(std::chrono::sys_seconds(std::chrono::seconds(1700000000))));
    const FileStamp stamp = StampOf(path, BytesOf("the"));
    EXPECT_EQ(stamp.size, 11U);
    EXPECT_EQ(stamp.modified, 1700000000'000000000);
    EXPECT_EQ(stamp.known, 3U);
    EXPECT_EQ(stamp.hash, 0xCA40D080998498DBU);
    EXPECT_EQ(StampOf(folder.Path() + "none.dat", {}).size, 0U);
}

TEST_F(FileStampTest, AFileOfOtherBytesOrAnotherSizeHasChanged) {
    const FileStamp stamp = StampOf(path, BytesOf("the content"));
    EXPECT_FALSE(HasChanged(stamp, path));
    WriteAnew("the CONTENT");
    EXPECT_TRUE(HasChanged(stamp, path));
    WriteAnew("the content!");
    EXPECT_TRUE(HasChanged(stamp, path));
    WriteAnew("the content");
    EXPECT_FALSE(HasChanged(stamp, path));
}

TEST_F(FileStampTest, AFileThatIsOnlyTouchedHasNotChanged) {
    const FileStamp stamp = StampOf(path, BytesOf("the content"));
    Touch();
    EXPECT_FALSE(HasChanged(stamp, path));
}

TEST_F(FileStampTest, WhatLiesBehindTheBytesThatWereReadCountsByItsSizeOnly) {
    const FileStamp stamp = StampOf(path, BytesOf("the"));
    WriteAnew("the CONTENT");
    EXPECT_FALSE(HasChanged(stamp, path));
    WriteAnew("tHe content");
    EXPECT_TRUE(HasChanged(stamp, path));
}

TEST_F(FileStampTest, OfAFileThatNobodyReadSizeAndTimeTell) {
    const FileStamp stamp = StampBySizeAndTime(path);
    EXPECT_FALSE(HasChanged(stamp, path));
    Touch();
    EXPECT_TRUE(HasChanged(stamp, path));
}

TEST_F(FileStampTest, AFileThatWasNotThereHasChangedWhenItIsAndOneThatIsGoneHasNot) {
    const FileStamp none = StampBySizeAndTime(folder.Path() + "b.dat");
    EXPECT_FALSE(HasChanged(none, folder.Path() + "b.dat"));
    folder.Make("b.dat", "new");
    EXPECT_TRUE(HasChanged(none, folder.Path() + "b.dat"));
    const FileStamp stamp = StampOf(path, BytesOf("the content"));
    fs::remove(path);
    EXPECT_FALSE(HasChanged(stamp, path));
    fs::create_directory(path);
    EXPECT_FALSE(HasChanged(stamp, path));
}

TEST_F(FileStampTest, AFileThatCannotBeReadHasNotChanged) {
    const FileStamp stamp = StampOf(path, BytesOf("another one"));
    EXPECT_TRUE(HasChanged(stamp, path));
    const SystemCalls calls({{"read", 1, EIO}});
    EXPECT_FALSE(HasChanged(stamp, path));
}

}  // namespace
}  // namespace vtr
