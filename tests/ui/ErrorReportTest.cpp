#include <gtest/gtest.h>

#include "ErrorReport.h"

namespace vtr {
namespace {

std::string ReportOf(const Error &error) {
    return ErrorReport(QStringLiteral("Saving the files"), error, QStringLiteral("All is well."))
        .toStdString();
}

std::string ReportOfFailedFlush(FileAfterwards file) {
    return ReportOf({ErrorKind::FileAccess,
                     {.file = "/c/TARGET.DAT"},
                     {"flushing the folder to disk", "Input/output error", file}});
}

TEST(ErrorReport, TellsAFailedStepAsAStepWithTheSystemsReason) {
    EXPECT_EQ(ReportOfFailedFlush(FileAfterwards::AsBefore),
              "Saving the files failed.\n\nFlushing the folder to disk failed: Input/output error\n"
              "File: /c/TARGET.DAT\n\nAll is well.");
}

TEST(ErrorReport, TellsWhatWasExpectedAndFoundInAFile) {
    EXPECT_EQ(ReportOf({ErrorKind::Overflow, {.file = "/c/TARGET.DAT", .offset = 12}, "a byte", "256"}),
              "Saving the files failed.\n\nSomething does not fit where it is to go.\nFile: "
              "/c/TARGET.DAT\nPlace: offset 12\n"
              "Expected: a byte\nFound: 256\n\nAll is well.");
}

TEST(ErrorReport, TellsWhatIsWrongInAPlayersWords) {
    const auto isSaid = [](ErrorKind kind, const std::string &sentence) {
        EXPECT_EQ(ReportOf({kind, {}, "a", "b"}),
                  "Saving the files failed.\n\n" + sentence + "\nExpected: a\nFound: b\n\nAll is well.");
    };
    isSaid(ErrorKind::FileTooShort, "File too short.");
    isSaid(ErrorKind::FileTooLarge, "File too large.");
    isSaid(ErrorKind::Overflow, "Something does not fit where it is to go.");
    isSaid(ErrorKind::IndexOutOfRange, "A number stands for something that does not exist.");
    isSaid(ErrorKind::TypeMismatch, "The file does not hold what is expected there.");
}

TEST(ErrorReport, SaysOfAFileThatIsNotThereThatItIsNotFound) {
    EXPECT_EQ(ReportOf({ErrorKind::FileMissing, {.file = "/c/x"}, {"opening the file", "Not a directory"}}),
              "Saving the files failed.\n\nFile not found: Not a directory\nFile: /c/x\n\nAll is well.");
}

TEST(ErrorReport, SaysWhatAFailedWriteHasMadeOfTheFileUnlessItIsAsBefore) {
    const std::string start =
        "Saving the files failed.\n\nFlushing the folder to disk failed: Input/output error\n"
        "File: /c/TARGET.DAT\n";
    EXPECT_EQ(
        ReportOfFailedFlush(FileAfterwards::Replaced),
        start + "The file is written all the same, but may not be safely on the disk yet.\n\nAll is well.");
    EXPECT_EQ(ReportOfFailedFlush(FileAfterwards::MayBeDamaged),
              start + "The file may be damaged now.\n\nAll is well.");
}

TEST(ErrorReport, ShowsOnlyTheBeginningOfAVeryLongText) {
    const std::string report =
        ReportOf(Error(ErrorKind::TypeMismatch, {.file = "F"}, "a number", std::string(1000000, '7')));
    EXPECT_LT(report.size(), 1000U);
    EXPECT_NE(report.find("Found: " + std::string(600, '7') + "...\n"), std::string::npos);
}

}  // namespace
}  // namespace vtr
