#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QPainter>
#include <QRadioButton>
#include <QSlider>
#include <QStyleFactory>

#include "OutlineStyle.h"

namespace vtr {
namespace {

TEST(OutlineStyle, TheContrastIsTheOneOfTheRules) {
    EXPECT_NEAR(ContrastOf(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(ContrastOf(Qt::white, QColor(0x77, 0x77, 0x77)), 4.48, 0.01);
    EXPECT_DOUBLE_EQ(ContrastOf(Qt::red, Qt::red), 1);
}

TEST(OutlineStyle, AnOutlineIsSeenOnEveryDarkBackgroundOnWhichTheTextIs) {
    for (int grey = 0; grey < 100; ++grey) {
        const QColor background(grey, grey, grey);
        for (const QColor &text : {QColor(255, 255, 255), QColor(200, 210, 255), QColor(63, 242, 63)}) {
            ASSERT_GE(ContrastOf(text, background), 3) << grey;
            EXPECT_GE(ContrastOf(OutlineOn(background, text), background), 3) << grey;
        }
    }
    EXPECT_EQ(OutlineOn(QColor(60, 60, 60), QColor(80, 80, 80)), QColor(80, 80, 80));
}

QPalette PaletteOf(const QColor &background, const QColor &text) {
    QPalette palette(background, background);
    palette.setColor(QPalette::Base, background);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, text);
    return palette;
}

class OutlineStyleOn : public ::testing::TestWithParam<const char *> {
  protected:
    /// The picture of a control in the style, with or without our outlines.
    template <typename Control>
    QImage PictureOf(const QPalette &palette, bool outlined) {
        QStyle *base = QStyleFactory::create(QLatin1String(GetParam()));
        const std::unique_ptr<QStyle> style(outlined ? new OutlineStyle(base) : base);
        Control control;
        control.setStyle(style.get());
        control.setPalette(palette);
        control.resize(80, 30);
        return control.grab().toImage();
    }
    /// How many pixels have a contrast of 3 to the background.
    static int SeenPixels(const QImage &picture, const QColor &background) {
        int seen = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                seen += ContrastOf(picture.pixelColor(x, y), background) >= 3 ? 1 : 0;
        return seen;
    }
    template <typename Control>
    void ExpectSeenInTheDark() {
        for (const QColor &background : {QColor(0, 0, 0), QColor(45, 45, 45)})
            EXPECT_GT(SeenPixels(PictureOf<Control>(PaletteOf(background, Qt::white), true), background), 24);
        const QPalette light = PaletteOf(QColor(239, 239, 239), Qt::black);
        EXPECT_EQ(PictureOf<Control>(light, true), PictureOf<Control>(light, false));
    }
};

TEST_P(OutlineStyleOn, EveryKindOfControlIsSeenInTheDarkAndUnchangedInTheLight) {
    ExpectSeenInTheDark<QCheckBox>();
    ExpectSeenInTheDark<QRadioButton>();
    ExpectSeenInTheDark<QLineEdit>();
    ExpectSeenInTheDark<QSlider>();
}

INSTANTIATE_TEST_SUITE_P(Style, OutlineStyleOn, ::testing::Values("fusion", "windows"),
                         [](const auto &style) { return std::string(style.param); });

}  // namespace
}  // namespace vtr
