#include <gmock/gmock.h>
#include <sys/stat.h>

#include <cerrno>

#include "ErrorThrownBy.h"
#include "SystemCalls.h"
#include "TemporaryFolder.h"
#include "WholeFile.h"

namespace vtr {
namespace {

Error ErrorOfReading(const std::string &path) {
    return ErrorThrownBy([&path] { ReadWholeFile(path); });
}

TEST(WholeFile, GivesEveryByteOfTheFile) {
    const TemporaryFolder folder;
    const std::string_view content("\0\r\n\x1A\xFFz", 6);
    EXPECT_EQ(ReadWholeFile(folder.Make("a.dat", content)), Bytes({0, 13, 10, 26, 255, 'z'}));
    EXPECT_TRUE(ReadWholeFile(folder.Make("empty.dat", "")).empty());
}

TEST(WholeFile, IsFoundInAnotherLetterCaseAndWithBackslashes) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.Path() + "Maps");
    folder.Make("Maps/VTR.TM", "x");
    EXPECT_EQ(ReadWholeFile(folder.Path() + "mAPS\\vtr.tm"), Bytes{'x'});
}

TEST(WholeFile, ThatIsMissingIsReportedAsMissingUnderTheNameThatWasAskedFor) {
    const TemporaryFolder folder;
    folder.Make("file", "");
    for (const std::string name : {"no.dat", "no/such.dat", "file/inside.dat"}) {
        const Error error = ErrorOfReading(folder.Path() + name);
        EXPECT_EQ(error.Kind(), ErrorKind::FileMissing) << name;
        EXPECT_EQ(error.File(), folder.Path() + name);
        EXPECT_EQ(error.Step(), "opening the file");
    }
    EXPECT_EQ(ErrorOfReading("").Kind(), ErrorKind::FileMissing);
    EXPECT_EQ(ErrorOfReading(folder.Path() + "no.dat").Reason(), "No such file or directory");
}

TEST(WholeFile, ThatNeedNotBeThereIsEmptyWhenItIsMissingAndElseReadAsAlways) {
    const TemporaryFolder folder;
    EXPECT_EQ(ReadWholeFileIfThere(folder.Make("A.DAT", "old")), Bytes({'o', 'l', 'd'}));
    EXPECT_EQ(ReadWholeFileIfThere(folder.Path() + "a.dat"), Bytes({'o', 'l', 'd'}));
    EXPECT_EQ(ReadWholeFileIfThere(folder.Path() + "no.dat"), Bytes());
    EXPECT_EQ(ReadWholeFileIfThere(folder.Path() + "no/such.dat"), Bytes());
    EXPECT_THROW(ReadWholeFileIfThere(folder.Path()), Error);
    const SystemCalls calls({{"open", 1, EACCES}});
    EXPECT_THROW(ReadWholeFileIfThere(folder.Path() + "A.DAT"), Error);
}

TEST(WholeFile, MustBeARegularFile) {
    const TemporaryFolder folder;
    const std::string pipe = folder.Path() + "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(ErrorOfReading(folder.Path()).Found(), "a folder");
    EXPECT_EQ(ErrorOfReading("/dev/zero").Found(), "a device or a pipe");
    EXPECT_EQ(ErrorOfReading(pipe).Found(), "a device or a pipe");
    EXPECT_EQ(ErrorOfReading(pipe).Kind(), ErrorKind::FileAccess);
}

TEST(WholeFile, IsReadInOneCall) {
    const TemporaryFolder folder;
    const std::string path = folder.Make("a.dat", std::string(300000, 'x'));
    const SystemCalls calls;
    EXPECT_EQ(ReadWholeFile(path), Bytes(300000, 'x'));
    EXPECT_THAT(calls.Made(), testing::ElementsAre("open", "fstat", "read", "close"));
}

TEST(WholeFile, IsReadNoFurtherThanAskedFor) {
    const TemporaryFolder folder;
    const std::string path = folder.Make("a.dat", "the start");
    std::filesystem::resize_file(path, std::uintmax_t{4} << 30);
    const SystemCalls calls;
    EXPECT_EQ(ReadStartOfFile(path, 5), Bytes({'t', 'h', 'e', ' ', 's'}));
    EXPECT_EQ(ReadStartOfFileIfThere(path, 3), Bytes({'t', 'h', 'e'}));
    EXPECT_EQ(calls.BytesRead(), 8U);
    EXPECT_EQ(ReadStartOfFile(folder.Make("b.dat", "ab"), 5), Bytes({'a', 'b'}));
}

TEST(WholeFile, ThatIsToBeSmallIsAnErrorAboveOneMiB) {
    const TemporaryFolder folder;
    const std::string path = folder.Make("a.dat", std::string(1 << 20, 'x'));
    EXPECT_EQ(ReadSmallFile(path), Bytes(1 << 20, 'x'));
    std::filesystem::resize_file(path, std::uintmax_t{4} << 30);
    const SystemCalls calls;
    const Error error = ErrorThrownBy([&path] { ReadSmallFile(path); });
    EXPECT_EQ(error.Kind(), ErrorKind::FileTooLarge);
    EXPECT_EQ(error.File(), path);
    EXPECT_EQ(calls.BytesRead(), 0U);
    std::filesystem::resize_file(path, (1 << 20) + 1);
    EXPECT_EQ(KindThrownBy([&path] { ReadSmallFile(path); }), ErrorKind::FileTooLarge);
}

TEST(WholeFile, IsReadOnAfterShortReadsAndInterruptions) {
    const TemporaryFolder folder;
    const std::string path = folder.Make("a.dat", "whole");
    const SystemCalls calls({{"read", 1, 0, 2}, {"read", 2, EINTR}, {"read", 3, 0, 1}});
    EXPECT_EQ(ReadWholeFile(path), Bytes({'w', 'h', 'o', 'l', 'e'}));
}

TEST(WholeFile, ThatHasBecomeShorterMeanwhileGivesTheBytesItHas) {
    const TemporaryFolder folder;
    const std::string path = folder.Make("a.dat", "whole");
    const SystemCalls calls({{"read", 1, 0, 2}, {"read", 2, 0, 0}});
    EXPECT_EQ(ReadWholeFile(path), Bytes({'w', 'h'}));
}

TEST(WholeFile, NamesTheStepThatFails) {
    const TemporaryFolder folder;
    const std::string path = folder.Make("a.dat", "whole");
    const std::vector<std::pair<Fault, const char *>> cases{
        {{"open", 1, EACCES}, "opening the file"},
        {{"fstat", 1, EIO}, "asking for the file's size"},
        {{"read", 1, EIO}, "reading the file"},
    };
    for (const auto &[fault, step] : cases) {
        const SystemCalls calls({fault});
        const Error error = ErrorOfReading(path);
        EXPECT_EQ(error.Kind(), ErrorKind::FileAccess);
        EXPECT_EQ(error.File(), path);
        EXPECT_EQ(error.Step(), step);
    }
}

}  // namespace
}  // namespace vtr
