#include <gtest/gtest.h>

#include <QComboBox>
#include <QHelpEvent>
#include <QStyleOptionComboBox>
#include <QToolTip>

#include "AirfieldLists.h"
#include "AirfieldPanel.h"
#include "PanelTesting.h"

namespace vtr {
namespace {

const char *const modelNames[] = {"cbo_air_1940", "cbo_air_1943", "cbo_air_1944", "cbo_air_1945"};
const char *const sideNames[] = {"cbo_side_1940", "cbo_side_1943", "cbo_side_1944", "cbo_side_1945"};

class AirfieldPanelTest : public ::testing::Test {
  protected:
    AirfieldPanelTest() {
        session->targetFrameEnabled = true;
        panel.setEnabled(true);
        panel.ShowAirfield(std::nullopt);
    }

    QComboBox &Combo(const char *name) { return Find<QComboBox>(panel, name); }
    AirfieldRecord &Record(std::size_t airfield) { return campaign->AirfieldTable[airfield]; }

    std::unique_ptr<Session> session = FilledSession();
    Campaign *campaign = &session->campaign;
    AirfieldPanel panel{*session, nullptr};
    QSignalSpy changed{&panel, &Panel::Changed};
};

TEST_F(AirfieldPanelTest, ShowsEveryAirfieldAsTheTableHoldsItAndChangesNothing) {
    const auto before = std::make_unique<Campaign>(*campaign);
    for (int airfield = 0; airfield < 162; ++airfield) {
        panel.ShowAirfield(airfield);
        const AirfieldRecord &record = Record(static_cast<std::size_t>(airfield));
        EXPECT_TRUE(session->airfieldFrameEnabled);
        EXPECT_EQ(ShownIn(panel, "txt_air_code"), std::to_string(airfield));
        EXPECT_EQ(ShownIn(panel, "txt_air_orientation"), std::to_string(record.airfield_extra_word));
        EXPECT_EQ(Combo("cbo_air_country").currentIndex(), std::min<int>(record.country, 5));
        EXPECT_EQ(Combo("cbo_air_1940").currentIndex(), record.base_1940);
        EXPECT_EQ(Combo("cbo_air_1943").currentIndex(), record.base_1943);
        EXPECT_EQ(Combo("cbo_air_1944").currentIndex(), record.base_1944);
        EXPECT_EQ(Combo("cbo_air_1945").currentIndex(), record.base_1945);
        for (std::size_t year = 0; year < 4; ++year)
            EXPECT_EQ(Combo(sideNames[year]).currentIndex(), EntryOfYearSlot(record.yearSlots[year]));
    }
    EXPECT_TRUE(*campaign == *before);
    EXPECT_EQ(changed.size(), 0);
}

TEST_F(AirfieldPanelTest, TheListsBearTheGamesCaptions) {
    EXPECT_EQ(Combo("cbo_air_country").count(), 6);
    EXPECT_EQ(Combo("cbo_air_country").itemText(5), QStringLiteral("(Czech. Rep.)"));
    EXPECT_EQ(Combo("cbo_air_1944").count(), 11);
    EXPECT_EQ(Combo("cbo_air_1944").itemText(0), QStringLiteral("NONE"));
    EXPECT_EQ(Combo("cbo_side_1944").count(), 33);
    EXPECT_EQ(Combo("cbo_side_1944").itemText(30), QStringLiteral("Allied (No Plane)"));
    EXPECT_EQ(Combo("cbo_side_1944").itemText(31), QStringLiteral("Allied (No Plane)"));
    EXPECT_TRUE(Find<QLineEdit>(panel, "txt_air_code").isReadOnly());
}

TEST_F(AirfieldPanelTest, EveryCaptionFitsIntoItsList) {
    panel.show();
    for (const QComboBox *list : panel.findChildren<QComboBox *>()) {
        QStyleOptionComboBox option;
        option.initFrom(list);
        const int room =
            list->style()
                ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, list)
                .width();
        for (int entry = 0; entry < list->count(); ++entry)
            EXPECT_LE(list->fontMetrics().horizontalAdvance(list->itemText(entry)), room)
                << list->objectName().toStdString() << ": " << list->itemText(entry).toStdString();
    }
}

TEST_F(AirfieldPanelTest, EveryFieldChangesJustItsField) {
    panel.ShowAirfield(161);
    AirfieldRecord expected = Record(161);
    const auto expectOne = [&](const char *name) {
        EXPECT_EQ(Record(161), expected) << name;
        EXPECT_EQ(changed.size(), 1) << name;
        changed.clear();
    };
    expected.airfield_extra_word = 65535;
    TypeInto(panel, "txt_air_orientation", "65535");
    EXPECT_EQ(Record(161), expected);
    changed.clear();
    std::uint8_t *const models[] = {&expected.base_1940, &expected.base_1943, &expected.base_1944,
                                    &expected.base_1945};
    for (std::size_t year = 0; year < 4; ++year) {
        const int model = (*models[year] + 1) % 11;
        *models[year] = static_cast<std::uint8_t>(model);
        Combo(modelNames[year]).setCurrentIndex(model);
        expectOne(modelNames[year]);
    }
    for (std::size_t year = 0; year < 4; ++year) {
        expected.yearSlots[year] = {.german_no_plane = 65535};
        Combo(sideNames[year]).setCurrentIndex(32);
        expectOne(sideNames[year]);
    }
    EXPECT_EQ(Record(160), FilledCampaign()->AirfieldTable[160]);
}

TEST_F(AirfieldPanelTest, ChoosingCountryEntry5Stores6) {
    panel.ShowAirfield(3);
    Combo("cbo_air_country").setCurrentIndex(5);
    EXPECT_EQ(Record(3).country, 6);
    panel.ShowAirfield(4);
    panel.ShowAirfield(3);
    EXPECT_EQ(Combo("cbo_air_country").currentIndex(), 5);
}

TEST_F(AirfieldPanelTest, WhatIsNotInItsListShowsNoChoiceAndStaysUntilOneIsPicked) {
    Record(3).country = 5;
    Record(3).base_1943 = 11;
    Record(3).yearSlots[3] = {.aircraft = 200};
    const AirfieldRecord before = Record(3);
    panel.ShowAirfield(3);
    EXPECT_EQ(Combo("cbo_air_country").currentIndex(), -1);
    EXPECT_EQ(Combo("cbo_air_1943").currentIndex(), -1);
    EXPECT_EQ(Combo("cbo_side_1945").currentIndex(), -1);
    EXPECT_EQ(Record(3), before);
    Combo("cbo_air_1943").setCurrentIndex(0);
    EXPECT_EQ(Record(3).base_1943, 0);
    EXPECT_EQ(Record(3).country, 5);
    EXPECT_EQ(Record(3).yearSlots[3], before.yearSlots[3]);
}

TEST_F(AirfieldPanelTest, WithoutAnAirfieldThePanelIsDisabledAndStoresNothing) {
    EXPECT_FALSE(session->airfieldFrameEnabled);
    panel.ShowAirfield(3);
    panel.ShowAirfield(std::nullopt);
    EXPECT_FALSE(session->airfieldFrameEnabled);
    const auto before = std::make_unique<Campaign>(*campaign);
    Combo("cbo_air_1940").setCurrentIndex((Record(3).base_1940 + 1) % 11);
    Field(panel, "upd_air_orientation").SetNumber(1);
    EXPECT_TRUE(*campaign == *before);
}

TEST_F(AirfieldPanelTest, WithoutAnAirfieldThePanelShowsNothingAndSaysWhy) {
    const auto expectNothing = [this] {
        EXPECT_EQ(ShownIn(panel, "txt_air_code"), "");
        EXPECT_EQ(ShownIn(panel, "txt_air_orientation"), "");
        for (const QComboBox *list : panel.findChildren<QComboBox *>())
            EXPECT_EQ(list->currentIndex(), -1) << list->objectName().toStdString();
        EXPECT_EQ(panel.toolTip(), "The selected target is no airfield; its box \"Airfield\" makes it one");
    };
    expectNothing();
    Record(3).airfield_extra_word = 0;
    panel.ShowAirfield(3);
    EXPECT_EQ(ShownIn(panel, "txt_air_orientation"), "0");
    EXPECT_EQ(panel.toolTip(), "The airfield of the selected target");
    const auto before = std::make_unique<Campaign>(*campaign);
    panel.ShowAirfield(std::nullopt);
    expectNothing();
    panel.ShowAirfield(162);
    panel.ShowAirfield(std::nullopt);
    expectNothing();
    EXPECT_TRUE(*campaign == *before);
    EXPECT_EQ(changed.size(), 0);
}

TEST_F(AirfieldPanelTest, DisabledByAnotherEditModeItKeepsItsRecordAndSaysWhy) {
    panel.ShowAirfield(3);
    panel.setEnabled(false);
    EXPECT_EQ(ShownIn(panel, "txt_air_code"), "3");
    EXPECT_EQ(panel.toolTip(),
              "Airfields are edited in the target mode (F2), once their target is selected there");
    panel.setEnabled(true);
    EXPECT_EQ(panel.toolTip(), "The airfield of the selected target");
}

TEST_F(AirfieldPanelTest, WhileDisabledItsFieldsShowItsToolTip) {
    panel.show();
    const auto toolTipOver = [](QWidget &widget) {
        QToolTip::hideText();
        const QPoint at = widget.rect().center();
        QHelpEvent event(QEvent::ToolTip, at, widget.mapToGlobal(at));
        QApplication::sendEvent(&widget, &event);
        return QToolTip::text();
    };
    panel.ShowAirfield(3);
    EXPECT_EQ(toolTipOver(Combo("cbo_side_1943")), "Aircraft based here in 1943");
    panel.setEnabled(false);
    for (const char *name : {"cbo_side_1943", "cbo_air_country", "upd_air_orientation", "txt_air_code"})
        EXPECT_EQ(toolTipOver(Find<QWidget>(panel, name)),
                  "Airfields are edited in the target mode (F2), once their target is selected there")
            << name;
}

TEST_F(AirfieldPanelTest, ItSaysNothingOfTheTargetsBoxWhileThatIsDisabledToo) {
    session->targetFrameEnabled = false;
    panel.ShowAirfield(std::nullopt);
    EXPECT_EQ(panel.toolTip(), "No project is loaded");
    campaign->ProjectLoaded = true;
    panel.ShowAirfield(std::nullopt);
    EXPECT_EQ(panel.toolTip(), "The selected target is no airfield");
}

TEST_F(AirfieldPanelTest, AnAirfieldAbove161IsShownDisabledWithItsNumberAndTheReason) {
    panel.ShowAirfield(3);
    panel.ShowAirfield(162);
    EXPECT_FALSE(session->airfieldFrameEnabled);
    EXPECT_EQ(ShownIn(panel, "txt_air_code"), "162");
    EXPECT_EQ(Combo("cbo_air_1940").currentIndex(), -1);
    EXPECT_EQ(ShownIn(panel, "txt_air_orientation"), "");
    EXPECT_TRUE(panel.toolTip().contains(QStringLiteral("162"))) << panel.toolTip().toStdString();
    EXPECT_EQ(Find<QLineEdit>(panel, "txt_air_code").toolTip(), panel.toolTip());
    panel.ShowAirfield(161);
    EXPECT_TRUE(session->airfieldFrameEnabled);
    EXPECT_FALSE(panel.toolTip().contains(QStringLiteral("162")));
    EXPECT_EQ(Combo("cbo_air_1940").currentIndex(), Record(161).base_1940);
}

}  // namespace
}  // namespace vtr
