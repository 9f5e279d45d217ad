#include <gtest/gtest.h>

#include <algorithm>

#include "PreferencesPreview.h"

namespace vtr {
namespace {

constexpr std::array<std::int32_t Preferences::*, 6> layers{
    &Preferences::FrontlineColour, &Preferences::RailwayColour, &Preferences::RoadIntColour,
    &Preferences::RailIntColour,   &Preferences::TargetColour,  &Preferences::AirfieldColour};

TEST(PreferencesPreview, EveryLayerIsSeenInItsColourInEveryPartOfThePiece) {
    Preferences preferences;
    std::int32_t red = 0;
    for (const auto layer : layers)
        preferences.*layer = ++red;
    PreferencesPreview preview;
    const Picture &shown = preview.Draw(preferences);
    ASSERT_EQ(shown.pixels.size(), static_cast<std::size_t>(shown.width * shown.height));
    for (int part = 0; part < 8; ++part) {
        for (std::uint32_t layer = 1; layer <= layers.size(); ++layer) {
            int pixels = 0;
            for (int y = 0; y < shown.height; ++y)
                for (int x = part * shown.width / 8; x < (part + 1) * shown.width / 8; ++x)
                    pixels += shown.pixels[static_cast<std::size_t>(y * shown.width + x)] ==
                                      (0xFF000000U | layer << 16)
                                  ? 1
                                  : 0;
            EXPECT_GT(pixels, 20) << "layer " << layer << " in part " << part;
        }
    }
}

TEST(PreferencesPreview, NothingOfOtherColoursStays) {
    PreferencesPreview preview;
    Preferences preferences = ShippedPreferences();
    const Picture first = preview.Draw(preferences);
    preferences.RailIntColour = 0x123456;
    EXPECT_NE(preview.Draw(preferences).pixels, first.pixels);
    EXPECT_EQ(preview.Draw(ShippedPreferences()).pixels, first.pixels);
}

}  // namespace
}  // namespace vtr
