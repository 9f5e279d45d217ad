#include <gtest/gtest.h>

#include "Errors.h"

namespace vtr {
namespace {

TEST(Errors, OfWhatWasFoundSayWhatWasExpected) {
    const Error error(ErrorKind::Overflow, {.file = "a.dat", .offset = 4, .item = "target", .index = 2},
                      "a byte", "256");
    EXPECT_STREQ(error.what(), "overflow in \"a.dat\" (offset 4, target 2): expected a byte, found 256");
    EXPECT_EQ(error.Step(), "");
    EXPECT_EQ(error.Reason(), "");
    EXPECT_FALSE(error.FileReplaced());
}

TEST(Errors, OfAFailedStepSayTheStepAndTheReason) {
    const Error error(ErrorKind::FileAccess, {.file = "a.dat"}, {"closing the file", "Input/output error"});
    EXPECT_STREQ(error.what(),
                 "file access failed in \"a.dat\": closing the file failed: Input/output error");
    EXPECT_EQ(error.Step(), "closing the file");
    EXPECT_EQ(error.Reason(), "Input/output error");
    EXPECT_EQ(error.Expected(), "");
    EXPECT_EQ(error.Found(), "");
    EXPECT_FALSE(error.FileReplaced());
}

}  // namespace
}  // namespace vtr
