#include <gtest/gtest.h>

#include "Measurement.h"

namespace vtr {
namespace {

TEST(Measure, APixelIs4100MetresInEveryDirection) {
    EXPECT_DOUBLE_EQ(Measure({10, 20}, {11, 20}).kilometres, 4.1);
    EXPECT_DOUBLE_EQ(Measure({10, 20}, {10, 19}).kilometres, 4.1);
    EXPECT_DOUBLE_EQ(Measure({100.5, 50.5}, {97.5, 46.5}).kilometres, 20.5);  // 3, 4 and 5 pixels
    EXPECT_DOUBLE_EQ(Measure({0, 0}, {0.25, 0}).kilometres, 1.025);
    EXPECT_NEAR(Measure({0, 0}, {640, 320}).kilometres, 2933.73, 0.01);  // 715.542 pixels
}

TEST(Measure, TheBearingGoesClockwiseFromNorthWhichIsUp) {
    EXPECT_EQ(Measure({10, 10}, {10, 3}).bearing, 0);
    EXPECT_EQ(Measure({10, 10}, {17, 3}).bearing, 45);
    EXPECT_EQ(Measure({10, 10}, {17, 10}).bearing, 90);
    EXPECT_EQ(Measure({10, 10}, {17, 17}).bearing, 135);
    EXPECT_EQ(Measure({10, 10}, {10, 17}).bearing, 180);
    EXPECT_EQ(Measure({10, 10}, {3, 17}).bearing, 225);
    EXPECT_EQ(Measure({10, 10}, {3, 10}).bearing, 270);
    EXPECT_EQ(Measure({10, 10}, {3, 3}).bearing, 315);
    EXPECT_EQ(Measure({0, 0}, {3, -4}).bearing, 37);  // 36.87
    EXPECT_EQ(Measure({0, 0}, {1, -3}).bearing, 18);  // 18.43
}

TEST(Measure, NearlyNorthIs0AndNever360) {
    EXPECT_EQ(Measure({0, 0}, {-1, -100}).bearing, 359);  // 359.43
    EXPECT_EQ(Measure({0, 0}, {-1, -120}).bearing, 0);    // 359.52
    EXPECT_EQ(Measure({0, 0}, {1, -120}).bearing, 0);     // 0.48
}

TEST(MeasurementText, HasOneDecimalAndNoBearingForNoDistance) {
    EXPECT_EQ(MeasurementText({57.43, 135}), "57.4 km, 135\u00B0");
    EXPECT_EQ(MeasurementText({2933.7, 0}), "2933.7 km, 0\u00B0");
    EXPECT_EQ(MeasurementText({4.1, 7}), "4.1 km, 7\u00B0");
    EXPECT_EQ(MeasurementText(Measure({3, 4}, {3, 4})), "0.0 km");
}

}  // namespace
}  // namespace vtr
