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

TEST(GameText, AProjectsNameMarksNoKeyInItsCaption) {
    EXPECT_EQ(ProjectCaption("Land & Sea && Air"), QStringLiteral("Land && Sea &&&& Air"));
    EXPECT_EQ(ProjectCaption("K\xF6ln"), QStringLiteral("K\u00F6ln"));
    EXPECT_EQ(ProjectCaption("\u041C\u0438\u0440"), QStringLiteral("\u041C\u0438\u0440"));
}

TEST(GameText, AVeryLongProjectNameIsShownShortened) {
    EXPECT_EQ(ProjectCaption(std::string(1000000, 'n')), QString(200, QLatin1Char('n')) + "...");
}

}  // namespace
}  // namespace vtr
