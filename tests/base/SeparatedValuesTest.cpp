#include <gtest/gtest.h>

#include "SeparatedValues.h"

namespace vtr {
namespace {

TEST(CommaSeparated, EndsEachRowInCRLF) {
    EXPECT_EQ(CommaSeparated({{"Number", "Name"}, {"7", "Emden"}}), "Number,Name\r\n7,Emden\r\n");
    EXPECT_EQ(CommaSeparated({}), "");
}

TEST(CommaSeparated, QuotesOnlyATextThatNeedsIt) {
    EXPECT_EQ(CommaSeparated({{"a,b", "say \"no\"", "two\nlines", "a\rb", " blank ", ""}}),
              "\"a,b\",\"say \"\"no\"\"\",\"two\nlines\",\"a\rb\", blank ,\r\n");
}

TEST(CommaSeparated, BeginsWithTheMarkOfUtf8OnlyWhenATextIsNotAscii) {
    EXPECT_EQ(CommaSeparated({{"K\xC3\xB6ln"}}), "\xEF\xBB\xBFK\xC3\xB6ln\r\n");
    EXPECT_EQ(CommaSeparated({{"Koeln\x7F"}}), "Koeln\x7F\r\n");
}

TEST(TabSeparated, PutsTabsBetweenTheTextsAndALineFeedBehindEachRow) {
    EXPECT_EQ(TabSeparated({{"7", "Emden", ""}, {"8", "K\xC3\xB6ln, \"west\"", "x"}}),
              "7\tEmden\t\n8\tK\xC3\xB6ln, \"west\"\tx\n");
}

TEST(TabSeparated, MakesTabsAndLineBreaksInATextBlanks) {
    EXPECT_EQ(TabSeparated({{"a\tb\rc\nd"}}), "a b c d\n");
}

}  // namespace
}  // namespace vtr
