#include <gmock/gmock.h>

#include <string_view>

#include "BytesOf.h"
#include "KeyValueLines.h"

namespace vtr {
namespace {

std::vector<KeyValueLine> Split(std::string_view text) {
    return SplitKeyValueLines(BytesOf(text));
}

TEST(KeyValueLines, EndInCrLfOrLfAndTheLastOneMayEndWithTheFile) {
    for (const std::string_view text : {"a=1\r\nb=2\r\n", "a=1\nb=2\n", "a=1\nb=2", "a=1\r\nb=2\r"}) {
        const auto lines = Split(text);
        ASSERT_EQ(lines.size(), 2U) << text;
        EXPECT_EQ(lines[0].value, "1");
        EXPECT_EQ(lines[1].key, "B");
        EXPECT_EQ(lines[1].value, "2");
        EXPECT_EQ(lines[1].text, "b=2");
        EXPECT_EQ(lines[1].number, 2);
    }
}

TEST(KeyValueLines, AnEmptyFileHasNoLinesAndAnEmptyLineIsOne) {
    EXPECT_TRUE(Split("").empty());
    const auto lines = Split("\r\n\nA=\n");
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_FALSE(lines[0].hasEquals);
    EXPECT_FALSE(lines[1].hasEquals);
    EXPECT_EQ(lines[2].number, 3);
    EXPECT_TRUE(lines[2].hasEquals);
    EXPECT_EQ(lines[2].value, "");
}

TEST(KeyValueLines, SplitAtTheFirstEqualsAndKeepBlanksOnBothSides) {
    const auto lines = Split(" Name = a=b \nnothing here\n=x\n");
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0].key, " NAME ");
    EXPECT_EQ(lines[0].value, " a=b ");
    EXPECT_FALSE(lines[1].hasEquals);
    EXPECT_EQ(lines[1].text, "nothing here");
    EXPECT_TRUE(lines[2].hasEquals);
    EXPECT_EQ(lines[2].key, "");
    EXPECT_EQ(lines[2].value, "x");
}

TEST(KeyValueLines, OnlyAsciiLettersOfTheKeyAreRaisedAndEveryOtherByteStays) {
    const auto lines = Split(std::string_view("a\xE4\0z\r=\xFF\0\r\r\n", 11));
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].key, std::string_view("A\xE4\0Z\r", 5));
    EXPECT_EQ(lines[0].value, std::string_view("\xFF\0\r", 3));
}

}  // namespace
}  // namespace vtr
