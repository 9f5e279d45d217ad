#include <gtest/gtest.h>

#include <array>

#include "Text.h"

namespace vtr {
namespace {

std::string ShownAs(int byte) {
    return Utf8OfWindows1252(std::string(1, static_cast<char>(byte)));
}

TEST(Text, ShowsAsciiAsItStandsNulIncluded) {
    for (int byte = 0; byte < 128; ++byte)
        EXPECT_EQ(ShownAs(byte), std::string(1, static_cast<char>(byte))) << byte;
}

TEST(Text, ShowsTheBytesFrom128To159AsWindows1252Does) {
    const std::array<const char *, 32> shown{
        "€", "\xC2\x81", "‚",        "ƒ", "„",        "…",        "†", "‡",        "ˆ", "‰", "Š",
        "‹", "Œ",        "\xC2\x8D", "Ž", "\xC2\x8F", "\xC2\x90", "‘", "’",        "“", "”", "•",
        "–", "—",        "˜",        "™", "š",        "›",        "œ", "\xC2\x9D", "ž", "Ÿ"};
    for (int i = 0; i < 32; ++i)
        EXPECT_EQ(ShownAs(128 + i), shown[static_cast<std::size_t>(i)]) << 128 + i;
}

TEST(Text, ShowsTheBytesFrom160To255AsLatin1Does) {
    for (int byte = 160; byte < 192; ++byte)
        EXPECT_EQ(ShownAs(byte), std::string("\xC2") + static_cast<char>(byte)) << byte;
    for (int byte = 192; byte < 256; ++byte)
        EXPECT_EQ(ShownAs(byte), std::string("\xC3") + static_cast<char>(byte - 64)) << byte;
    EXPECT_EQ(ShownAs(0xE4), "ä");
    EXPECT_EQ(ShownAs(0xFF), "ÿ");
}

TEST(Text, ShowsNoTwoBytesAlike) {
    for (int a = 0; a < 256; ++a)
        for (int b = 0; b < a; ++b)
            EXPECT_NE(ShownAs(a), ShownAs(b)) << a << " and " << b;
}

TEST(Text, KnowsWellFormedUtf8) {
    for (const std::string_view text :
         {"", "plain", "ä€", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
          "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF", "a\xC3\xA4z"})
        EXPECT_TRUE(IsUtf8(text)) << text;
    EXPECT_TRUE(IsUtf8(std::string_view("\0", 1)));
}

TEST(Text, KnowsMalformedUtf8) {
    const std::array<std::string_view, 22> malformed{
        "\x80",              // a following byte with nothing before it
        "\xBF",              //
        "\xC3",              // ends within a character
        "\xE2\x82",          //
        "\xF0\x9F\x98",      //
        "\xC3z",             // a letter where a following byte is due
        "\xE2\x82z",         //
        "\xC3\xC3\xA4",      // a lead byte where a following byte is due
        "\xC0\x80",          // overlong: two bytes for one
        "\xC1\xBF",          //
        "\xE0\x80\x80",      // three bytes for two
        "\xE0\x9F\xBF",      //
        "\xF0\x80\x80\x80",  // four bytes for three
        "\xF0\x8F\xBF\xBF",  //
        "\xED\xA0\x80",      // surrogates
        "\xED\xBF\xBF",      //
        "\xF4\x90\x80\x80",  // beyond U+10FFFF
        "\xF5\x80\x80\x80",  // lead bytes that there are not
        "\xF8\x88\x80\x80\x80",
        "\xFE",
        "\xFF",
        "M\xFCnchen",  // single-byte text
    };
    for (const std::string_view text : malformed)
        EXPECT_FALSE(IsUtf8(text)) << testing::PrintToString(text);
}

TEST(Text, TakesAFileNameAsUtf8WhenItIsAndAsWindows1252WhenItIsNot) {
    EXPECT_EQ(Utf8OfProjectText("M\xC3\xBCnchen.bmp"), "München.bmp");
    EXPECT_EQ(Utf8OfProjectText("M\xFCnchen.bmp"), "München.bmp");
    EXPECT_EQ(Utf8OfProjectText("VTR.TM"), "VTR.TM");
}

TEST(Text, IsWrittenInSingleBytesWhereTheyAreReadBackAsItAndInUtf8Elsewhere) {
    EXPECT_EQ(ProjectTextOfUtf8("VTR.TM"), "VTR.TM");
    EXPECT_EQ(ProjectTextOfUtf8("München \xE2\x82\xAC"), "M\xFCnchen \x80");
    EXPECT_EQ(ProjectTextOfUtf8("\xD0\xA4 ü"), "\xD0\xA4 ü");
    EXPECT_EQ(ProjectTextOfUtf8("Ã©"), "Ã©") << "its single bytes are another letter's UTF-8";
    EXPECT_EQ(ProjectTextOfUtf8(""), "");
    for (int value = 0; value < 256; ++value) {
        const std::string byte(1, static_cast<char>(value));
        EXPECT_EQ(ProjectTextOfUtf8(Utf8OfWindows1252(byte)), byte);
    }
}

TEST(Text, RaisesOnlyAsciiLetters) {
    EXPECT_EQ(UpperAscii("az AZ09@[`{ \xE4\xFF"), "AZ AZ09@[`{ \xE4\xFF");
}

TEST(Text, EverySingleByteCharacterComesBackFromUtf8AndOthersHaveNone) {
    for (int value = 0; value < 256; ++value) {
        const std::string byte(1, static_cast<char>(value));
        EXPECT_EQ(SingleByteProjectText("a" + Utf8OfWindows1252(byte) + "b"), "a" + byte + "b") << value;
    }
    for (const char *text : {"\u041C", "a\u0100", "\U0001F600"})
        EXPECT_EQ(SingleByteProjectText(text), std::nullopt) << text;
}

TEST(Text, ALongTextIsCutBetweenItsCharacters) {
    EXPECT_EQ(Shortened("abc", 3), "abc");
    EXPECT_EQ(Shortened("abcd", 3), "abc...");
    EXPECT_EQ(Shortened("ab\u20ACd", 4), "ab...");
    EXPECT_EQ(Shortened("ab\u20ACd", 5), "ab\u20AC...");
    EXPECT_EQ(Shortened("\x80\x80\x80\x80\x80\x80", 4).size(), 4U) << "no UTF-8 at all";
}

}  // namespace
}  // namespace vtr
