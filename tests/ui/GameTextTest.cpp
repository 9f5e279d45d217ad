#include <gtest/gtest.h>

#include "GameText.h"

namespace vtr {
namespace {

TEST(GameText, EveryByteSurvivesBeingShownAndTypedAgain) {
    std::string all;
    for (int value = 1; value < 256; ++value)
        all.push_back(static_cast<char>(value));
    EXPECT_EQ(GameTextOf(ShownText(all)), all);
}

TEST(GameText, ShowsTheEuroSignAndUmlautsAsPlayersExpect) {
    EXPECT_EQ(ShownText("K\xF6ln \x80"), QStringLiteral("K\u00F6ln \u20AC"));
}

TEST(GameText, ACharacterThatTheGameHasNoByteForIsNoGameText) {
    EXPECT_EQ(GameTextOf(QStringLiteral("\u0416")), std::nullopt);
    EXPECT_EQ(GameTextOf(QStringLiteral("\u0080")), std::nullopt);
}

}  // namespace
}  // namespace vtr
