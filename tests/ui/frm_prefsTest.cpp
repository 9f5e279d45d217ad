#include <gtest/gtest.h>

#include <QColorDialog>
#include <QGroupBox>
#include <QLabel>
#include <memory>
#include <utility>
#include <vector>

#include "DialogDriver.h"
#include "PictureWidget.h"
#include "frm_prefs.h"

namespace vtr {
namespace {

class PrefsDialog : public ::testing::Test {
  protected:
    frm_prefs &Open() {
        dialog = std::make_unique<frm_prefs>(preferences);
        dialog->show();
        return *dialog;
    }
    QSlider &Slider(const QString &colour, int component) {
        return Find<QSlider>(*dialog, QStringLiteral("sld_%1(%2)").arg(colour).arg(component));
    }
    std::vector<int> Sliders(const QString &colour) {
        return {Slider(colour, 0).value(), Slider(colour, 1).value(), Slider(colour, 2).value()};
    }
    QColor Swatch(const QString &colour) {
        auto &swatch = Find<QFrame>(*dialog, "pic_" + colour);
        const QColor shown = swatch.grab().toImage().pixelColor(swatch.width() / 2, swatch.height() / 2);
        EXPECT_EQ(swatch.palette().color(QPalette::Window), shown);
        return shown;
    }

    QStringList Numbers(const QString &colour) {
        QStringList numbers;
        for (int component = 0; component < 3; ++component)
            numbers << Find<QLabel>(*dialog, QStringLiteral("lbl_%1(%2)").arg(colour).arg(component)).text();
        return numbers;
    }
    /// True when the preview has pixels of the colour.
    bool PreviewHas(const QColor &colour) {
        const std::vector<std::uint32_t> &pixels = Find<PictureWidget>(*dialog, "pic_preview").Shown().pixels;
        return std::ranges::count(pixels, colour.rgb()) > 0;
    }
    /// Does open and answers the colour chooser that it must open.
    QColor ChooseColour(const QColor &colour, const std::function<void()> &open) {
        QColor offered;
        WhenModalOpens<QColorDialog>([&](QColorDialog &chooser) {
            offered = chooser.currentColor();
            EXPECT_EQ(chooser.windowTitle(), "Railways Colour");
            if (!colour.isValid())
                return chooser.reject();
            chooser.setCurrentColor(colour);
            chooser.accept();
        });
        open();
        EXPECT_TRUE(offered.isValid());
        return offered;
    }

    Preferences preferences;
    std::unique_ptr<frm_prefs> dialog;
};

const std::vector<std::pair<QString, std::int32_t Preferences::*>> layers{
    {"frnt", &Preferences::FrontlineColour},  {"railway", &Preferences::RailwayColour},
    {"roadint", &Preferences::RoadIntColour}, {"railint", &Preferences::RailIntColour},
    {"target", &Preferences::TargetColour},   {"airfield", &Preferences::AirfieldColour}};

TEST_F(PrefsDialog, HasThreeSlidersAndASwatchForEachColourInOneFrame) {
    Open();
    EXPECT_EQ(dialog->objectName(), "frm_prefs");
    const auto &frame = Find<QGroupBox>(*dialog, "fra_colours");
    for (const auto &[name, colour] : layers) {
        EXPECT_NE(frame.findChild<QFrame *>("pic_" + name), nullptr);
        for (int component = 0; component < 3; ++component) {
            EXPECT_EQ(Slider(name, component).minimum(), 0);
            EXPECT_EQ(Slider(name, component).maximum(), 255);
            EXPECT_FALSE(Slider(name, component).accessibleName().isEmpty());
        }
    }
}

TEST_F(PrefsDialog, EachColourIsEditedInItsOwnRowAndStoredByOK) {
    std::int32_t value = 0;
    for (const auto &[name, colour] : layers)
        preferences.*colour = (value += 10) + 256 * 100 + 65536 * 60;
    Open();
    value = 0;
    for (const auto &[name, colour] : layers) {
        value += 10;
        EXPECT_EQ(Sliders(name), (std::vector<int>{value, 100, 60})) << name.toStdString();
        EXPECT_EQ(Swatch(name), QColor(value, 100, 60));
        Slider(name, 0).setValue(value + 1);
        Slider(name, 1).setValue(value + 2);
        Slider(name, 2).setValue(value + 3);
        EXPECT_EQ(Swatch(name), QColor(value + 1, value + 2, value + 3));
    }
    Press<QPushButton>(*dialog, "cmd_OK");
    EXPECT_FALSE(dialog->isVisible());
    value = 0;
    for (const auto &[name, colour] : layers) {
        value += 10;
        EXPECT_EQ(preferences.*colour, value + 1 + 256 * (value + 2) + 65536 * (value + 3));
    }
}

TEST_F(PrefsDialog, AColourOfWhiteOpensWithItsBlueSliderHeldAt255) {
    preferences.TargetColour = 16777215;
    Open();
    EXPECT_EQ(Swatch("target"), QColor(255, 255, 255));
    // 16777215 / 256 = 65535.996, which rounds to 65536, and that leaves no green.
    EXPECT_EQ(Sliders("target"), (std::vector<int>{255, 0, 255}));
}

TEST_F(PrefsDialog, GreenCanOpenAStepHighAndWrapsWhileTheSwatchShowsTheColourItself) {
    preferences.RailwayColour = 128 + 256 * 255;
    Open();
    EXPECT_EQ(Sliders("railway"), (std::vector<int>{128, 0, 1}));
    EXPECT_EQ(Swatch("railway"), QColor(128, 255, 0));
    Press<QPushButton>(*dialog, "cmd_OK");
    EXPECT_EQ(preferences.RailwayColour, 128 + 65536);
}

TEST_F(PrefsDialog, ANegativeColourOpensWithItsSlidersHeldAtZero) {
    preferences.RoadIntColour = -5000000;
    Open();
    EXPECT_EQ(Sliders("roadint"), (std::vector<int>{0, 0, 0}));
    Press<QPushButton>(*dialog, "cmd_OK");
    EXPECT_EQ(preferences.RoadIntColour, 0);
}

TEST_F(PrefsDialog, TheSwatchOfANegativeColourShowsItsThreeLowBytes) {
    preferences.RoadIntColour = -5000000;  // 0xFFB3B4C0
    Open();
    EXPECT_EQ(Swatch("roadint"), QColor(0xC0, 0xB4, 0xB3));
}

TEST_F(PrefsDialog, AColourAbove24BitsShowsItsThreeLowBytesAndOpensWithItsBlueSliderHeldAt255) {
    preferences.RailIntColour = 0x01020304;
    Open();
    EXPECT_EQ(Swatch("railint"), QColor(4, 3, 2));
    EXPECT_EQ(Sliders("railint"), (std::vector<int>{4, 3, 255}));  // 258 before it is held
    Press<QPushButton>(*dialog, "cmd_OK");
    EXPECT_EQ(preferences.RailIntColour, 4 + 256 * 3 + 65536 * 255);
}

TEST_F(PrefsDialog, EscapeAloneChangesNothingThatTheSlidersAndTheSwitchShow) {
    preferences.FrontlineColour = 0x0A141E;
    preferences.FlashTarget = 1;
    const Preferences before = preferences;
    Open();
    Slider("frnt", 2).setValue(200);
    Find<QCheckBox>(*dialog, "chk_targetflash").setChecked(false);
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(preferences, before);
}

TEST_F(PrefsDialog, TheFlashSwitchIsOneOrZero) {
    preferences.FlashTarget = 1;
    Open();
    auto &flash = Find<QCheckBox>(*dialog, "chk_targetflash");
    EXPECT_TRUE(flash.isChecked());
    QTest::keyClick(&flash, Qt::Key_Space);
    EXPECT_EQ(preferences.FlashTarget, 1);
    Press<QPushButton>(*dialog, "cmd_OK");
    EXPECT_EQ(preferences.FlashTarget, 0);
    Open();
    EXPECT_FALSE(Find<QCheckBox>(*dialog, "chk_targetflash").isChecked());
    Find<QCheckBox>(*dialog, "chk_targetflash").setChecked(true);
    Press<QPushButton>(*dialog, "cmd_OK");
    EXPECT_EQ(preferences.FlashTarget, 1);
}

TEST_F(PrefsDialog, CancelAndEscapeChangeNothing) {
    preferences.TargetColour = 16777215;
    preferences.RecentProjectNames[0] = "North front";
    const Preferences before = preferences;
    Open();
    Slider("target", 0).setValue(3);
    Find<QCheckBox>(*dialog, "chk_targetflash").setChecked(true);
    ExpectClosedBy(*dialog, "cmd_cancel");
    EXPECT_EQ(preferences, before);
}

TEST_F(PrefsDialog, EachSliderHasItsNumberBesideIt) {
    preferences.RailwayColour = 128 + 256 * 255;
    Open();
    EXPECT_EQ(Numbers("railway"), (QStringList{"128", "0", "1"}));
    Slider("railway", 1).setValue(77);
    EXPECT_EQ(Numbers("railway"), (QStringList{"128", "77", "1"}));
    EXPECT_EQ(Numbers("frnt"), (QStringList{"0", "0", "0"}));
}

TEST_F(PrefsDialog, AClickOnASwatchOpensTheColourChooserWhichSetsTheSliders) {
    preferences.RailwayColour = 128 + 256 * 255;
    Open();
    auto &swatch = Find<QFrame>(*dialog, "pic_railway");
    const auto click = [&] { QTest::mouseClick(&swatch, Qt::LeftButton); };
    EXPECT_EQ(ChooseColour(QColor(1, 200, 255), click), QColor(128, 255, 0));
    EXPECT_EQ(Sliders("railway"), (std::vector<int>{1, 200, 255}));
    EXPECT_EQ(Swatch("railway"), QColor(1, 200, 255));
    EXPECT_EQ(ChooseColour({}, click), QColor(1, 200, 255));
    EXPECT_EQ(Swatch("railway"), QColor(1, 200, 255));
    EXPECT_EQ(preferences.RailwayColour, 128 + 256 * 255);
    Press<QPushButton>(*dialog, "cmd_OK");
    EXPECT_EQ(preferences.RailwayColour, 1 + 256 * 200 + 65536 * 255);
}

TEST_F(PrefsDialog, TheKeysOfAButtonOpenTheColourChooserToo) {
    Open();
    auto &swatch = Find<QFrame>(*dialog, "pic_railway");
    EXPECT_EQ(swatch.focusPolicy(), Qt::StrongFocus);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return})
        ChooseColour({}, [&] { QTest::keyClick(&swatch, key); });
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(PrefsDialog, ChoosingTheColourThatTheSlidersHaveShowsIt) {
    preferences.RailwayColour = 128 + 256 * 255;
    Open();
    ChooseColour(QColor(128, 0, 1),
                 [&] { QTest::mouseClick(&Find<QFrame>(*dialog, "pic_railway"), Qt::LeftButton); });
    EXPECT_EQ(Swatch("railway"), QColor(128, 0, 1));
}

TEST_F(PrefsDialog, DefaultsAreTheShippedValuesToTheLastStepOnceOKKeepsThem) {
    preferences.RecentProjectNames[0] = "North front";
    Open();
    Press<QPushButton>(*dialog, "cmd_defaults");
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(preferences.TargetColour, 0);
    EXPECT_TRUE(PreviewHas(Swatch("target")));
    Press<QPushButton>(*dialog, "cmd_OK");
    Preferences expected = ShippedPreferences();
    expected.RecentProjectNames[0] = "North front";
    EXPECT_EQ(preferences, expected);
}

TEST_F(PrefsDialog, ThePreviewShowsWhatTheSwatchesShow) {
    std::int32_t value = 0;
    for (const auto &[name, colour] : layers)
        preferences.*colour = (value += 10) + 256 * 255;  // opens with other sliders
    Open();
    for (const auto &[name, colour] : layers)
        EXPECT_TRUE(PreviewHas(Swatch(name))) << name.toStdString();
    const QColor before = Swatch("airfield");
    Slider("airfield", 2).setValue(99);
    EXPECT_FALSE(PreviewHas(before));
    EXPECT_TRUE(PreviewHas(Swatch("airfield")));
}

}  // namespace
}  // namespace vtr
