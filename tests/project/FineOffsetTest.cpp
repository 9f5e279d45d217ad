#include <gtest/gtest.h>

#include "FineOffset.h"

namespace vtr {
namespace {

TEST(FineOffset, OfANumberHasItsShortestText) {
    EXPECT_EQ(FineOffset(0.0).Text(), "0");
    EXPECT_EQ(FineOffset(4100.0).Text(), "4100");
    EXPECT_EQ(FineOffset(1025.0 / 65536).Text(), "0.0156402587890625");
    EXPECT_EQ(FineOffset(4100 - 1025.0 / 65536).Text(), "4099.984359741211");
}

TEST(FineOffset, KeepsAnyTextAsItStands) {
    for (const char *text : {"", "0", "4100", "4099.984359741211", "7.50", "007", " 5", "-3", "1e3", "1e300",
                             "12 m", "nan", "inf", "1,5"})
        EXPECT_EQ(FineOffset(text).Text(), text);
}

TEST(FineOffset, IsEmptyOnlyWithoutAnyText) {
    EXPECT_TRUE(FineOffset().Empty());
    EXPECT_TRUE(FineOffset("").Empty());
    for (const char *text : {"0", " ", "12 m"})
        EXPECT_FALSE(FineOffset(text).Empty()) << text;
    EXPECT_FALSE(FineOffset(0.0).Empty());
}

TEST(FineOffset, ReadsTheNumberOfItsText) {
    EXPECT_EQ(FineOffset("4100").Metres(), 4100);
    EXPECT_EQ(FineOffset("7.50").Metres(), 7.5);
    EXPECT_EQ(FineOffset(" 5").Metres(), 5);
    EXPECT_EQ(FineOffset("1e3").Metres(), 1000);
    EXPECT_EQ(FineOffset(0.1).Metres(), 0.1);
}

TEST(FineOffset, OfATextThatIsNoNumberCannotBeReadAndSaysWhere) {
    for (const char *text : {"", "12 m", "nan", "inf", "1,5", "-"})
        try {
            FineOffset(text).Metres({.file = "TARGET.DAT", .item = "target", .index = 7});
            ADD_FAILURE() << text;
        } catch (const Error &error) {
            EXPECT_EQ(error.Kind(), ErrorKind::TypeMismatch);
            EXPECT_EQ(error.File(), "TARGET.DAT");
            EXPECT_EQ(error.Found(), '"' + std::string(text) + '"');
        }
}

TEST(FineOffset, IsEqualWhenItsTextIs) {
    EXPECT_EQ(FineOffset(7.5), FineOffset("7.5"));
    EXPECT_NE(FineOffset(7.5), FineOffset("7.50"));
    EXPECT_NE(FineOffset(), FineOffset(0.0));
    EXPECT_EQ(FineOffset("12 m"), "12 m");
}

}  // namespace
}  // namespace vtr
