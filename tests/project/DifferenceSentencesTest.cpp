#include <gmock/gmock.h>

#include <functional>
#include <memory>

#include "AirfieldFile.h"
#include "AirfieldLists.h"
#include "DifferenceSentences.h"
#include "FrontlineFile.h"
#include "RailwayFile.h"
#include "RandomCampaign.h"
#include "TargetFile.h"
#include "TargetNameFile.h"

namespace vtr {
namespace {

using ::testing::ElementsAre;

class DifferenceSentencesTest : public ::testing::Test {
  protected:
    DifferenceSentencesTest() {
        TargetRecord &target = campaign->TargetTable[12];
        target = {.x = 110, .y = 40, .code = 7, .name = "Wexlinmere Bridge", .count = 3, .airfield_ref = 4};
        campaign->TargetNameTable[7] = "Wexlinmere Bridge";
        campaign->RailwayTable[12] = {100, 110, 200, 210};
        campaign->RailwayLineCount = 850;
        campaign->FrontlineTable[3].points[5] = {100, 60, flagSet};
        campaign->FrontlineTable[3].points[6] = markerPoint;
    }

    /// The sentences about what an edit changes.
    template <typename Edit>
    std::vector<std::string> After(const Edit &edit) const {
        const auto changed = std::make_unique<Campaign>(*campaign);
        edit(*changed);
        std::vector<std::string> sentences;
        for (const Difference &difference : DifferencesOf(*campaign, *changed))
            sentences.push_back(SentenceOf(difference));
        return sentences;
    }
    std::vector<std::string> AfterTarget(const std::function<void(TargetRecord &)> &edit) const {
        return After([&](Campaign &changed) { edit(changed.TargetTable[12]); });
    }
    std::vector<std::string> AfterAirfield(const std::function<void(AirfieldRecord &)> &edit) const {
        return After([&](Campaign &changed) { edit(changed.AirfieldTable[44]); });
    }
    std::vector<std::string> AfterLine(const std::function<void(RailwayLine &)> &edit) const {
        return After([&](Campaign &changed) { edit(changed.RailwayTable[12]); });
    }
    std::vector<std::string> AfterPoint(std::size_t point, const FrontlinePoint &now) const {
        return After([&](Campaign &changed) { changed.FrontlineTable[3].points[point] = now; });
    }

    std::unique_ptr<Campaign> campaign = std::make_unique<Campaign>();
};

// -- Targets

TEST_F(DifferenceSentencesTest, EachFieldOfATargetHasItsWords) {
    const std::string target = "Target 12 'Wexlinmere Bridge': ";
    EXPECT_THAT(AfterTarget([](auto &row) { row.x = 111; }), ElementsAre(target + "column 110 to 111"));
    EXPECT_THAT(AfterTarget([](auto &row) { row.y = 42; }), ElementsAre(target + "row 40 to 42"));
    EXPECT_THAT(AfterTarget([](auto &row) { row.fineOffsets[0] = 512.5; }),
                ElementsAre(target + "metres from the tile's left edge 0 to 512.5"));
    EXPECT_THAT(AfterTarget([](auto &row) { row.fineOffsets[1] = 4.00390625; }),
                ElementsAre(target + "metres from the tile's top edge 0 to 4.00390625"));
    EXPECT_THAT(AfterTarget([](auto &row) { row.count = 64; }), ElementsAre(target + "objects 3 to 64"));
    EXPECT_THAT(AfterTarget([](auto &row) { row.name = "Old Mill"; }),
                ElementsAre(target + "name 'Wexlinmere Bridge' to 'Old Mill'"));
    EXPECT_THAT(AfterTarget([](auto &row) { row.code = 300; }), ElementsAre(target + "name number 7 to 300"));
    EXPECT_THAT(AfterTarget([](auto &row) { row.airfield_mark = flagSet; }),
                ElementsAre(target + "airfield no to yes"));
    EXPECT_THAT(AfterTarget([](auto &row) { row.airfield_ref = 161; }),
                ElementsAre(target + "airfield record 4 to 161"));
    for (std::uint16_t TargetRecord::*field : {&TargetRecord::spare, &TargetRecord::extra_word})
        EXPECT_THAT(AfterTarget([field](auto &row) { row.*field = 1; }), ElementsAre(target + "other data"));
    EXPECT_THAT(AfterTarget([](auto &row) { row.unknown[16] = 1; }), ElementsAre(target + "other data"));
}

TEST_F(DifferenceSentencesTest, AllThatDiffersInATargetIsOneSentence) {
    EXPECT_THAT(AfterTarget([](auto &row) {
                    row.x = 111;
                    row.y = 42;
                    row.extra_word = 1;
                    row.unknown.fill(7);
                }),
                ElementsAre("Target 12 'Wexlinmere Bridge': column 110 to 111, row 40 to 42, other data"));
}

TEST_F(DifferenceSentencesTest, ATargetWithoutANameIsOnlyNumbered) {
    EXPECT_THAT(After([](Campaign &changed) { changed.TargetTable[0].x = 1; }),
                ElementsAre("Target 0: column 0 to 1"));
}

TEST_F(DifferenceSentencesTest, TargetsThatWereReorderedEachHaveTheirSentence) {
    campaign->TargetTable[0] = {.x = 10, .name = "Old Mill"};
    campaign->TargetTable[1] = {.x = 5, .name = "Mill Bridge"};
    EXPECT_THAT(After([](Campaign &changed) { std::swap(changed.TargetTable[0], changed.TargetTable[1]); }),
                ElementsAre("Target 0 'Old Mill': column 10 to 5, name 'Old Mill' to 'Mill Bridge'",
                            "Target 1 'Mill Bridge': column 5 to 10, name 'Mill Bridge' to 'Old Mill'"));
}

// -- Names

TEST_F(DifferenceSentencesTest, ANameIsShownAsItWasAndIs) {
    EXPECT_THAT(After([](Campaign &changed) { changed.TargetNameTable[7] = "Old Mill"; }),
                ElementsAre("Name 7: 'Wexlinmere Bridge' to 'Old Mill'"));
    EXPECT_THAT(After([](Campaign &changed) { changed.TargetNameTable[8] = "Old Mill"; }),
                ElementsAre("Name 8: '' to 'Old Mill'"));
}

TEST_F(DifferenceSentencesTest, ANameOfTheGamesBytesIsUtf8) {
    EXPECT_THAT(After([](Campaign &changed) { changed.TargetNameTable[7] = "K\xF6ln \x80"; }),
                ElementsAre("Name 7: 'Wexlinmere Bridge' to 'K\u00F6ln \u20AC'"));
}

TEST_F(DifferenceSentencesTest, ANameStaysOnOneLine) {
    EXPECT_THAT(After([](Campaign &changed) { changed.TargetNameTable[7] = "Old\nMill\t\x1B\x7Fx"; }),
                ElementsAre("Name 7: 'Wexlinmere Bridge' to 'Old Mill   x'"));
}

TEST_F(DifferenceSentencesTest, ALongNameIsShortened) {
    campaign->TargetNameTable[7] = std::string(20000, 'n');
    EXPECT_THAT(After([](Campaign &changed) { changed.TargetNameTable[7] = "Old Mill"; }),
                ElementsAre("Name 7: '" + std::string(60, 'n') + "...' to 'Old Mill'"));
    EXPECT_THAT(After([](Campaign &changed) { changed.TargetNameTable[7] += 'x'; }),
                ElementsAre("Name 7: '" + std::string(60, 'n') + "...' to another '" + std::string(60, 'n') +
                            "...'"));
}

// -- Airfields

TEST_F(DifferenceSentencesTest, EachFieldOfAnAirfieldHasItsWords) {
    EXPECT_THAT(AfterAirfield([](auto &row) { row.base_1940 = 1; }),
                ElementsAre("Airfield 44: model of 1940 NONE to airfld10.3dz"));
    EXPECT_THAT(AfterAirfield([](auto &row) { row.base_1943 = 3; }),
                ElementsAre("Airfield 44: model of 1943 NONE to airfld06.3dz"));
    EXPECT_THAT(AfterAirfield([](auto &row) { row.base_1944 = 10; }),
                ElementsAre("Airfield 44: model of 1944 NONE to airfld07.3dz"));
    EXPECT_THAT(AfterAirfield([](auto &row) { row.base_1945 = 11; }),
                ElementsAre("Airfield 44: model of 1945 NONE to 11"));
    EXPECT_THAT(AfterAirfield([](auto &row) { row.yearSlots[0] = YearSlotOfEntry(2); }),
                ElementsAre("Airfield 44: aircraft based here in 1940 P-38H to P-47C"));
    EXPECT_THAT(AfterAirfield([](auto &row) { row.yearSlots[1] = YearSlotOfEntry(32); }),
                ElementsAre("Airfield 44: aircraft based here in 1943 P-38H to German (No Plane)"));
    EXPECT_THAT(AfterAirfield([](auto &row) { row.yearSlots[2] = YearSlotOfEntry(16); }),
                ElementsAre("Airfield 44: aircraft based here in 1944 P-38H to Me-109E"));
    EXPECT_THAT(AfterAirfield([](auto &row) { row.yearSlots[3].aircraft = 16; }),
                ElementsAre("Airfield 44: aircraft based here in 1945 P-38H to unknown"));
    EXPECT_THAT(AfterAirfield([](auto &row) { row.airfield_extra_word = 65535; }),
                ElementsAre("Airfield 44: orientation 0 to 65535"));
    EXPECT_THAT(AfterAirfield([](auto &row) { row.country = 6; }),
                ElementsAre("Airfield 44: country Great Britain to (Czech. Rep.)"));
    EXPECT_THAT(AfterAirfield([](auto &row) { row.country = 5; }),
                ElementsAre("Airfield 44: country Great Britain to 5"));
    for (std::uint8_t AirfieldRecord::*field : {&AirfieldRecord::index_byte, &AirfieldRecord::spare})
        EXPECT_THAT(AfterAirfield([field](auto &row) { row.*field = 1; }),
                    ElementsAre("Airfield 44: other data"));
}

TEST_F(DifferenceSentencesTest, AllThatDiffersInAnAirfieldIsOneSentence) {
    EXPECT_THAT(AfterAirfield([](auto &row) {
                    row.base_1944 = 2;
                    row.yearSlots[2] = YearSlotOfEntry(29);
                    row.country = 1;
                }),
                ElementsAre("Airfield 44: model of 1944 NONE to airfld09.3dz, "
                            "aircraft based here in 1944 P-38H to V-1, country Great Britain to Germany"));
}

TEST_F(DifferenceSentencesTest, AircraftOfOneCaptionAreToldApart) {
    campaign->AirfieldTable[44].yearSlots[0] = YearSlotOfEntry(30);
    EXPECT_THAT(
        AfterAirfield([](auto &row) { row.yearSlots[0] = YearSlotOfEntry(31); }),
        ElementsAre("Airfield 44: aircraft based here in 1940 Allied (No Plane) to another Allied (No "
                    "Plane)"));
}

// -- Railway lines

TEST_F(DifferenceSentencesTest, EachFieldOfARailwayLineHasItsWords) {
    EXPECT_THAT(AfterLine([](auto &row) { row.x1 = 101; }),
                ElementsAre("Railway line 12: start column 100 to 101"));
    EXPECT_THAT(AfterLine([](auto &row) { row.y1 = 201; }),
                ElementsAre("Railway line 12: start row 200 to 201"));
    EXPECT_THAT(AfterLine([](auto &row) { row.x2 = 111; }),
                ElementsAre("Railway line 12: end column 110 to 111"));
    EXPECT_THAT(AfterLine([](auto &row) { row.y2 = 211; }),
                ElementsAre("Railway line 12: end row 210 to 211"));
    EXPECT_THAT(AfterLine([](auto &row) { row.fineOffsets[0] = 0.1; }),
                ElementsAre("Railway line 12: start metres from the tile's left edge 0 to 0.1"));
    EXPECT_THAT(AfterLine([](auto &row) { row.fineOffsets[1] = 2; }),
                ElementsAre("Railway line 12: end metres from the tile's left edge 0 to 2"));
    EXPECT_THAT(AfterLine([](auto &row) { row.fineOffsets[2] = 3; }),
                ElementsAre("Railway line 12: start metres from the tile's top edge 0 to 3"));
    EXPECT_THAT(AfterLine([](auto &row) { row.fineOffsets[3] = 4100; }),
                ElementsAre("Railway line 12: end metres from the tile's top edge 0 to 4100"));
}

TEST_F(DifferenceSentencesTest, AllThatDiffersInARailwayLineIsOneSentence) {
    EXPECT_THAT(AfterLine([](auto &row) {
                    row = {101, 111, 201, 211, {1, 0, 0, 0}};
                }),
                ElementsAre("Railway line 12: start column 100 to 101, start row 200 to 201, end column 110 "
                            "to 111, end row 210 to 211, start metres from the tile's left edge 0 to 1"));
}

TEST_F(DifferenceSentencesTest, ARailwayLineIsClearedOrNew) {
    EXPECT_THAT(AfterLine([](auto &row) { row = {}; }), ElementsAre("Railway line 12: cleared"));
    EXPECT_THAT(After([](Campaign &changed) {
                    changed.RailwayTable[13] = {1, 2, 3, 4};
                }),
                ElementsAre("Railway line 13: now from (1, 3) to (2, 4)"));
    EXPECT_THAT(After([](Campaign &changed) {
                    changed.RailwayTable[13] = {1, 2, 3, 4, {0, 0, 0, 0.5}};
                }),
                ElementsAre("Railway line 13: now from (1, 3) to (2, 4), "
                            "end metres from the tile's top edge 0 to 0.5"));
    EXPECT_THAT(After([](Campaign &changed) { changed.RailwayTable[13].fineOffsets[0] = 5; }),
                ElementsAre("Railway line 13: start metres from the tile's left edge 0 to 5"));
}

TEST_F(DifferenceSentencesTest, TheNumbersOfRailwayLinesHaveTheirWords) {
    EXPECT_THAT(After([](Campaign &changed) { changed.RailwayLineCount = 851; }),
                ElementsAre("Railway lines: 850 to 851"));
    EXPECT_THAT(After([](Campaign &changed) { changed.firstDisabledRailwayLine = 12; }),
                ElementsAre("First disabled line: none to 12"));
    EXPECT_THAT(After([](Campaign &changed) {
                    changed.RailwayLineCount = 0;
                    changed.firstDisabledRailwayLine = 893;
                }),
                ElementsAre("Railway lines: 850 to 0, first disabled line none to 893"));
    campaign->firstDisabledRailwayLine = 12;
    EXPECT_THAT(After([](Campaign &changed) { changed.firstDisabledRailwayLine = 0; }),
                ElementsAre("First disabled line: 12 to none"));
}

// -- Frontlines

TEST_F(DifferenceSentencesTest, EachFieldOfAFrontlinePointHasItsWords) {
    EXPECT_THAT(AfterPoint(5, {101, 60, flagSet}), ElementsAre("Frontline 3, point 5: column 100 to 101"));
    EXPECT_THAT(AfterPoint(5, {100, 61, flagSet}), ElementsAre("Frontline 3, point 5: row 60 to 61"));
    EXPECT_THAT(AfterPoint(5, {100, 60, 0}),
                ElementsAre("Frontline 3, point 5: on the briefing map yes to no"));
    EXPECT_THAT(AfterPoint(5, {101, 60, 0}),
                ElementsAre("Frontline 3, point 5: column 100 to 101, on the briefing map yes to no"));
}

TEST_F(DifferenceSentencesTest, AFrontlinePointOnAMarkerRowIsUnused) {
    EXPECT_THAT(AfterPoint(5, markerPoint), ElementsAre("Frontline 3, point 5: now unused"));
    EXPECT_THAT(AfterPoint(6, zeroPoint), ElementsAre("Frontline 3, point 6: still unused"));
    EXPECT_THAT(AfterPoint(6, {100, 40, 0}), ElementsAre("Frontline 3, point 6: now at (100, 40)"));
    EXPECT_THAT(AfterPoint(6, {100, 40, flagSet}),
                ElementsAre("Frontline 3, point 6: now at (100, 40), on the briefing map no to yes"));
}

// -- Files

/// The files' usual names and what they would hold.
std::vector<std::pair<std::string_view, Bytes>> FilesOf(const Campaign &campaign) {
    return {{"TARGET.DAT", EncodeTargets(campaign, {}, {}, "")},
            {"TARNAMES.STR", EncodeTargetNames(campaign)},
            {"AIRFIELD.DAT", EncodeAirfields(campaign, "")},
            {"VTR_RRD.DAT", EncodeRailway(campaign, "")},
            {"FRNTLINE.DAT", EncodeFrontlines(campaign, "")}};
}

TEST_F(DifferenceSentencesTest, ADifferenceIsWithTheFileThatWouldBeWrittenDifferently) {
    const std::vector<std::pair<const char *, std::function<void(Campaign &)>>> edits{
        {"x", [](Campaign &changed) { changed.TargetTable[12].x = 5; }},
        {"y", [](Campaign &changed) { changed.TargetTable[12].y = 5; }},
        {"fine x", [](Campaign &changed) { changed.TargetTable[12].fineOffsets[0] = 5; }},
        {"fine y", [](Campaign &changed) { changed.TargetTable[12].fineOffsets[1] = 5; }},
        {"code", [](Campaign &changed) { changed.TargetTable[12].code = 5; }},
        {"spare", [](Campaign &changed) { changed.TargetTable[12].spare = 5; }},
        {"name copy", [](Campaign &changed) { changed.TargetTable[12].name = "Old Mill"; }},
        {"count", [](Campaign &changed) { changed.TargetTable[12].count = 5; }},
        {"extra_word", [](Campaign &changed) { changed.TargetTable[12].extra_word = 5; }},
        {"airfield_mark", [](Campaign &changed) { changed.TargetTable[12].airfield_mark = flagSet; }},
        {"airfield_ref", [](Campaign &changed) { changed.TargetTable[12].airfield_ref = 5; }},
        {"unknown", [](Campaign &changed) { changed.TargetTable[12].unknown[9] = 5; }},
        {"name", [](Campaign &changed) { changed.TargetNameTable[7] = "Old Mill"; }},
        {"index_byte", [](Campaign &changed) { changed.AirfieldTable[44].index_byte = 5; }},
        {"model", [](Campaign &changed) { changed.AirfieldTable[44].base_1943 = 5; }},
        {"airfield spare", [](Campaign &changed) { changed.AirfieldTable[44].spare = 5; }},
        {"aircraft", [](Campaign &changed) { changed.AirfieldTable[44].yearSlots[3].aircraft = 5; }},
        {"orientation", [](Campaign &changed) { changed.AirfieldTable[44].airfield_extra_word = 5; }},
        {"country", [](Campaign &changed) { changed.AirfieldTable[44].country = 5; }},
        {"x1", [](Campaign &changed) { changed.RailwayTable[12].x1 = 5; }},
        {"fine y2", [](Campaign &changed) { changed.RailwayTable[12].fineOffsets[3] = 5; }},
        {"first disabled", [](Campaign &changed) { changed.firstDisabledRailwayLine = 5; }},
        {"point", [](Campaign &changed) { changed.FrontlineTable[3].points[5].x = 5; }},
        {"point's flag", [](Campaign &changed) { changed.FrontlineTable[3].points[5].on_map = 0; }},
        {"point ends", [](Campaign &changed) { changed.FrontlineTable[3].points[5] = markerPoint; }},
        {"point begins",
         [](Campaign &changed) {
             changed.FrontlineTable[3].points[6] = {5, 6, 0};
         }},
    };
    const auto before = FilesOf(*campaign);
    for (const auto &[field, edit] : edits) {
        SCOPED_TRACE(field);
        const auto changed = std::make_unique<Campaign>(*campaign);
        edit(*changed);
        const auto after = FilesOf(*changed);
        std::string_view different;
        for (std::size_t i = 0; i < after.size(); ++i)
            if (after[i] != before[i])
                different = after[i].first;
        const Differences differences = DifferencesOf(*campaign, *changed);
        ASSERT_EQ(differences.size(), 1);
        EXPECT_EQ(FileWith(differences[0]), different);
    }
}

TEST_F(DifferenceSentencesTest, TheNumberOfLinesIsReadFromTheRailwayFile) {
    EXPECT_EQ(FileWith({0, RailwayCounts{850, 0}, RailwayCounts{851, 0}}), "VTR_RRD.DAT");
    EXPECT_EQ(FileWith({0, RailwayCounts{850, 0}, RailwayCounts{851, 12}}), "VTR_RRD.DAT");
}

Difference Name(std::size_t row) {
    return {row, std::string("Old Mill"), std::string("Old Bridge")};
}
const Difference changedLine{12, RailwayLine{1, 2, 3, 4}, RailwayLine{}};
const Difference changedPoint{12, FrontlinePoint{1, 2, 0}, FrontlinePoint{1, 3, 0}};
const Difference changedTarget{12, TargetRecord{.name = "Old Mill", .count = 1},
                               TargetRecord{.name = "Old Mill", .count = 2}};
const Difference inNoFile{0, RailwayCounts{850, 0}, RailwayCounts{850, 12}};

TEST(SummaryOfDifferencesTest, CountsTheDifferencesAndNamesTheirFiles) {
    EXPECT_EQ(SummaryOf({Name(7)}), "1 difference in TARNAMES.STR");
    EXPECT_EQ(SummaryOf({Name(7), Name(8)}), "2 differences in TARNAMES.STR");
    EXPECT_EQ(SummaryOf({changedTarget, changedLine, changedLine}),
              "3 differences in TARGET.DAT and VTR_RRD.DAT");
}

TEST(SummaryOfDifferencesTest, NamesTheFilesInTheOrderOfSaving) {
    EXPECT_EQ(SummaryOf({changedLine, changedPoint, Name(7), changedTarget}),
              "4 differences in TARGET.DAT, TARNAMES.STR, FRNTLINE.DAT and VTR_RRD.DAT");
}

TEST(SummaryOfDifferencesTest, LeavesOutWhatNoFileHolds) {
    EXPECT_EQ(SummaryOf({changedLine, inNoFile}), "1 difference in VTR_RRD.DAT");
    EXPECT_EQ(SummaryOf({inNoFile}), "");
    EXPECT_EQ(SummaryOf({}), "");
}

}  // namespace
}  // namespace vtr
