#include <gmock/gmock.h>

#include <memory>

#include "RandomCampaign.h"
#include "ReaderTesting.h"
#include "TargetFile.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

using TargetBytes = std::array<std::uint8_t, 32>;

constexpr std::size_t fileSize = 4 + 32 * 302;

/// Where each record holds what the editor does not know.
constexpr std::array<std::size_t, 17> keptOffsets{8,  9,  10, 11, 12, 13, 14, 15, 18,
                                                  22, 23, 26, 27, 28, 29, 30, 31};

class TargetFile : public testing::Test {
  protected:
    std::unique_ptr<Campaign> campaign = std::make_unique<Campaign>();
    RecordingListener listener;

    TargetFile() {
        for (std::size_t i = 0; i < targetNameTotal; ++i)
            campaign->TargetNameTable[i] = "Name " + std::to_string(i);
    }

    void Decode(const Bytes &bytes) { DecodeTargets(bytes, "TARGET.DAT", *campaign, listener); }
    Bytes Encode() const { return EncodeTargets(*campaign, {}, {}); }
    TargetRecord &Target(std::size_t i) { return campaign->TargetTable[i]; }

    Bytes RandomFile() {
        std::mt19937 random(302);
        FillWithRandomTables(*campaign, random);
        return Encode();
    }
};

TargetBytes RecordOf(const Bytes &file, std::size_t i) {
    TargetBytes record{};
    std::copy_n(file.begin() + static_cast<std::ptrdiff_t>(4 + 32 * i), 32, record.begin());
    return record;
}

Bytes FileOf(std::uint8_t value) {
    return Bytes(fileSize, value);
}

// Bytes that no writer of ours makes stand where the editor does not know the record.
constexpr TargetBytes targetBytesByHand{0x00, 0x80, 0x81, 0xFD,  // 0: X quarter 1 and a half of pixel 0
                                        0x40, 0x01, 0x7C, 0xE9,  // 4: Y 320 fractions into pixel 319
                                        0x11, 0x12, 0x13, 0x14, 0x15, 0x16, 0x17, 0x18,  // 8
                                        0x33, 0x01, 0x21, 200,                // 16: code 307, 18, count 200
                                        0x34, 0x12, 0x31, 0x32,               // 20: extra_word, 22
                                        0xA1, 0x00,                           // 24: airfield_ref 161
                                        0x41, 0x42, 0x43, 0x44, 0x45, 0x46};  // 26

TEST_F(TargetFile, ReadsARecordByteByByte) {
    Target(5).spare = 77;
    DecodeTarget(targetBytesByHand, 5, *campaign);
    const TargetRecord expected{.x = 0,
                                .y = 319,
                                .code = 307,
                                .spare = 77,
                                .name = "Name 307",
                                .count = 200,
                                .extra_word = 0x1234,
                                .airfield_mark = 65535,
                                .airfield_ref = 161,
                                // 1025 + 1025 / 2 and 320 / 262144 * 4100
                                .fineOffsets = {1537.5, 5.0048828125},
                                .unknown = {0x11, 0x12, 0x13, 0x14, 0x15, 0x16, 0x17, 0x18, 0x21, 0x31, 0x32,
                                            0x41, 0x42, 0x43, 0x44, 0x45, 0x46}};
    EXPECT_EQ(Target(5), expected);
}

TEST_F(TargetFile, WritesARecordByteByByte) {
    DecodeTarget(targetBytesByHand, 5, *campaign);
    TargetBytes record{};
    EncodeTarget(*campaign, 5, record);
    EXPECT_EQ(record, targetBytesByHand);
}

TEST_F(TargetFile, StandsInTheFileWithAHeaderOf302) {
    DecodeTarget(targetBytesByHand, 301, *campaign);
    Bytes file = Encode();
    ASSERT_EQ(file.size(), 9668U);
    EXPECT_EQ((Bytes(file.begin(), file.begin() + 4)), (Bytes{46, 1, 0, 0}));
    EXPECT_EQ(RecordOf(file, 301)[16], 0x33);
    EXPECT_EQ(file[9668 - 32 + 19], 200);

    const TargetRecord before = Target(301);
    std::fill_n(file.begin(), 4, std::uint8_t{99});  // the header is not looked at
    Target(301) = {};
    Decode(file);
    EXPECT_EQ(Target(301), before);
}

TEST_F(TargetFile, UpperHalfMinus640OnXIsPixel0AndMinus644IsStoredAs0Too) {
    Bytes file(fileSize, 0);
    file[4 + 2] = 0x80;
    file[4 + 3] = 0xFD;
    file[4 + 32 + 1] = 0x80;
    file[4 + 32 + 2] = 0x7C;
    file[4 + 32 + 3] = 0xFD;
    file[4 + 64 + 6] = 0x7F;  // -7041 on Y
    file[4 + 64 + 7] = 0xE4;
    Decode(file);
    EXPECT_EQ(Target(0).x, 0);
    EXPECT_EQ(Target(1).x, 0);
    EXPECT_EQ(campaign->TargetTable[1].fineOffsets[0], 512.5);
    EXPECT_EQ(Target(2).y, 0);
    EXPECT_EQ(campaign->TargetTable[2].fineOffsets[1], 3075);
}

TEST_F(TargetFile, ATwoByteFieldOf255And255ReadsAs0) {
    Bytes file(fileSize, 0);
    for (const std::size_t field : std::initializer_list<std::size_t>{16, 20, 24})
        file[4 + field] = file[4 + field + 1] = 255;
    Decode(file);
    EXPECT_EQ(Target(0).code, 0);
    EXPECT_EQ(Target(0).name, "Name 0");
    EXPECT_EQ(Target(0).extra_word, 0);
    EXPECT_EQ(Target(0).airfield_ref, 0);
    EXPECT_EQ(Target(0).airfield_mark, 0);
}

TEST_F(TargetFile, ATargetWithAirfieldRef0AtIndex81IsStillMarkedAsAnAirfield) {
    for (std::size_t i = 0; i < targetTotal; ++i)
        Target(i).airfield_mark = 65535;
    Bytes file(fileSize, 0);
    file[4 + 32 * 5 + 24] = 1;
    file[4 + 32 * 6 + 25] = 1;
    Decode(file);
    for (std::size_t i = 0; i < targetTotal; ++i)
        EXPECT_EQ(Target(i).airfield_mark, i == 5 || i == 6 || i == 81 ? 65535 : 0) << i;
}

TEST_F(TargetFile, TheAirfieldMarkIsNotStored) {
    Target(9).airfield_mark = 65535;
    const Bytes file = Encode();
    Target(9).airfield_mark = 0;
    EXPECT_EQ(Encode(), file);
}

TEST_F(TargetFile, ACodeOf308IsAnIndexErrorThatNamesItsPlace) {
    Bytes file(fileSize, 0);
    file[4 + 32 * 7 + 16] = 0x34;
    file[4 + 32 * 7 + 17] = 0x01;
    const Error error = ErrorThrownBy([&] { Decode(file); });
    EXPECT_EQ(error.Kind(), ErrorKind::IndexOutOfRange);
    EXPECT_EQ(error.File(), "TARGET.DAT");
    EXPECT_EQ(error.PlaceText(), "offset 244, target 7");
    EXPECT_EQ(error.Expected(), "an index from 0 to 307");
    EXPECT_EQ(error.Found(), "308");
    EXPECT_EQ(listener.steps.size(), 7U);
}

TEST_F(TargetFile, APositionBeyond16BitsIsAnOverflowThatNamesItsPlace) {
    Bytes file(fileSize, 0);
    file[4 + 32 * 300 + 7] = 0x7F;
    const Error error = ErrorThrownBy([&] { Decode(file); });
    EXPECT_EQ(error.Kind(), ErrorKind::Overflow);
    EXPECT_EQ(error.File(), "TARGET.DAT");
    EXPECT_EQ(error.PlaceText(), "offset 9608, target 300");
}

TEST_F(TargetFile, ValuesThatTheFileCannotHoldAreErrorsThatNameTheirPlace) {
    const auto expect = [this](ErrorKind kind, const std::string &place) {
        const Error error = ErrorThrownBy([this] { EncodeTargets(*campaign, {}, {}, "T.DAT"); });
        EXPECT_EQ(error.Kind(), kind);
        EXPECT_EQ(error.File(), "T.DAT");
        EXPECT_EQ(error.PlaceText(), place);
        Target(2) = {};
    };
    Target(2).count = 256;
    expect(ErrorKind::Overflow, "offset 87, target 2");
    Target(2).x = 8192;
    expect(ErrorKind::Overflow, "offset 68, target 2");
    Target(2).y = 8512;
    expect(ErrorKind::Overflow, "offset 72, target 2");
    Target(2).x = 223;
    Target(2).fineOffsets[0] = 4100;
    expect(ErrorKind::Overflow, "offset 68, target 2");
}

TEST_F(TargetFile, AChangedFieldChangesOnlyItsOwnBytes) {
    const Bytes before = RandomFile();
    TargetRecord &target = Target(150);
    auto &fine = target.fineOffsets;
    target.x = 100;
    target.y = 100;
    fine = {1025, 1025};
    const Bytes start = Encode();
    const TargetRecord kept = target;
    const auto expectOnly = [&](std::size_t offset, std::size_t size) {
        ExpectChangeOnlyWithin(start, Encode(), 4 + 32 * 150 + offset, size);
        target = kept;
    };
    target.x = 639;
    expectOnly(2, 2);
    target.y = 5;
    expectOnly(6, 2);
    fine[0] = 2000;
    expectOnly(0, 3);
    fine[1] = 3333.25;
    expectOnly(4, 3);
    target.code = kept.code == 300 ? 7 : 300;
    expectOnly(16, 2);
    target.count = kept.count == 255 ? 0 : 255;
    expectOnly(19, 1);
    target.extra_word ^= 0x0101;
    expectOnly(20, 2);
    target.airfield_ref = kept.airfield_ref == 161 ? 1 : 161;
    expectOnly(24, 2);
    target.name = "is only a copy";
    target.spare = 5;
    EXPECT_EQ(Encode(), start);
}

TEST_F(TargetFile, LoadingAndSavingChangesNoByteOfAPosition) {
    std::mt19937 random(7);
    for (int run = 0; run < 200; ++run) {
        Bytes file(fileSize, 0);
        for (std::size_t i = 0; i < targetTotal; ++i) {
            const std::size_t record = 4 + 32 * i;
            PutUint16(file, record, static_cast<std::uint16_t>(random()));
            PutUint16(file, record + 4, static_cast<std::uint16_t>(random()));
            // Quarter tiles of the pixels 0 to 639 and 0 to 319.
            PutUint16(file, record + 2, static_cast<std::uint16_t>(random() % 2560 + 65536 - 640));
            PutUint16(file, record + 6, static_cast<std::uint16_t>(random() % 1280 + 65536 - 7040));
        }
        file[0] = 46;
        file[1] = 1;
        Decode(file);
        ASSERT_EQ(Encode(), file);
    }
}

TEST_F(TargetFile, RaisesTheProgressBy1In302ForEveryRecord) {
    Decode(RandomFile());
    EXPECT_EQ(listener.steps, std::vector<double>(302, 1.0 / 302));
}

TEST_F(TargetFile, MissingBytesCountAsZeroAtEveryLengthAndTheShortFileIsReported) {
    const auto decode = [](const Bytes &bytes, Campaign &into, LoadListener &to) {
        DecodeTargets(bytes, "T.DAT", into, to);
    };
    ExpectMissingBytesToCountAsZero(RandomFile(), decode,
                                    [](const Campaign &from) { return std::tie(from.TargetTable); });
}

TEST_F(TargetFile, BytesBeyondTheLastRecordAreLeftAlone) {
    Bytes file = RandomFile();
    const auto targets = campaign->TargetTable;
    file.resize(12000, 255);
    Decode(file);
    EXPECT_EQ(campaign->TargetTable, targets);
    EXPECT_TRUE(listener.shortFiles.empty());
}

TEST_F(TargetFile, DamageNeverDoesMoreThanThrowAnErrorWithItsPlace) {
    ExpectDamageToBeSurvived(RandomFile(), [this](const Bytes &bytes) { Decode(bytes); });
}

TEST_F(TargetFile, AThousandRandomTablesComeBackAndAreWrittenAsTheSameBytes) {
    std::mt19937 random(42);
    for (int run = 0; run < 1000; ++run) {
        FillWithRandomTables(*campaign, random);
        const auto targets = campaign->TargetTable;
        const Bytes written = Encode();
        campaign->TargetTable = {};
        Decode(written);
        ASSERT_EQ(campaign->TargetTable, targets);
        ASSERT_EQ(Encode(), written);
    }
}

TEST_F(TargetFile, TheTemplatesRecordsStartAtItsFirstByte) {
    Bytes templateBytes(32 * 302);
    for (std::size_t i = 0; i < templateBytes.size(); ++i)
        templateBytes[i] = static_cast<std::uint8_t>(i * 7 + i / 256);
    const Bytes bare = Encode();
    const Bytes file = EncodeTargets(*campaign, templateBytes, FileOf(99));
    for (std::size_t i = 0; i < targetTotal; ++i) {
        TargetBytes expected = RecordOf(bare, i);
        for (const std::size_t kept : keptOffsets)
            expected[kept] = templateBytes[32 * i + kept];
        ASSERT_EQ(RecordOf(file, i), expected) << i;
    }
}

TEST_F(TargetFile, RecordsThatTheTemplateDoesNotHoldWholeKeepTheReplacedFilesBytes) {
    const Bytes file = EncodeTargets(*campaign, Bytes(32 * 10 + 31, 0x22), FileOf(0x99));
    for (std::size_t i = 0; i < targetTotal; ++i)
        for (const std::size_t kept : keptOffsets)
            ASSERT_EQ(RecordOf(file, i)[kept], i < 10 ? 0x22 : 0x99) << i << " " << kept;
}

TEST_F(TargetFile, TheReplacedFilesRecordsStartBehindItsHeader) {
    Bytes replaced(fileSize);
    for (std::size_t i = 0; i < fileSize; ++i)
        replaced[i] = static_cast<std::uint8_t>(i * 5 + i / 256);
    const Bytes file = EncodeTargets(*campaign, Bytes(1), replaced);
    for (std::size_t i = 0; i < targetTotal; ++i)
        for (const std::size_t kept : keptOffsets)
            ASSERT_EQ(file[4 + 32 * i + kept], replaced[4 + 32 * i + kept]) << i << " " << kept;
}

TEST_F(TargetFile, WhatTheReplacedFileHasNotIsZero) {
    // It ends behind byte 22 of record 2.
    const Bytes file = EncodeTargets(*campaign, Bytes(1), Bytes(4 + 32 * 2 + 23, 0x99));
    EXPECT_EQ(RecordOf(file, 1)[31], 0x99);
    EXPECT_EQ(RecordOf(file, 2)[22], 0x99);
    EXPECT_EQ(RecordOf(file, 2)[23], 0);
    EXPECT_EQ(RecordOf(file, 2)[26], 0);
    EXPECT_EQ(RecordOf(file, 3)[8], 0);
}

TEST_F(TargetFile, WritingTakesTheTemplateOfTheProgramsFolder) {
    const TemporaryFolder folder;
    const TemporaryFolder program;
    program.Make("targetbase.dat", std::string(32 * 302, '\x22'));
    const std::string path = folder.Make("TARGET.DAT", std::string(fileSize, '\x55'));
    WriteTargets(path, *campaign, program.Path());
    const std::string content = folder.Content("TARGET.DAT");
    ASSERT_EQ(content.size(), fileSize);
    EXPECT_EQ(content[4 + 32 * 301 + 31], '\x22');
    EXPECT_THAT(program.Names(), testing::ElementsAre("targetbase.dat"));
}

TEST_F(TargetFile, WritingWithAShortTemplateKeepsTheFilesOwnBytesBehindIt) {
    const TemporaryFolder folder;
    const TemporaryFolder program;
    program.Make("targetbase.dat", std::string(32 * 2, '\x22'));
    const std::string path = folder.Make("TARGET.DAT", std::string(fileSize, '\x55'));
    WriteTargets(path, *campaign, program.Path());
    const std::string content = folder.Content("TARGET.DAT");
    EXPECT_EQ(content.at(4 + 32 * 1 + 31), '\x22');
    EXPECT_EQ(content.at(4 + 32 * 2 + 31), '\x55');
    EXPECT_EQ(content.at(4 + 32 * 301 + 31), '\x55');
}

TEST_F(TargetFile, WithoutATemplateEachTargetKeepsItsOwnBytesWhereverItGoes) {
    const TemporaryFolder folder;
    const TemporaryFolder program;
    Bytes loaded(fileSize);
    for (std::size_t i = 0; i < targetTotal; ++i)
        for (const std::size_t kept : keptOffsets)
            loaded[4 + 32 * i + kept] = static_cast<std::uint8_t>(i * 3 + kept);
    Decode(loaded);
    std::swap(Target(5), Target(290));
    const std::string path = folder.Make("TARGET.DAT", std::string(fileSize, '\x55'));
    WriteTargets(path, *campaign, program.Path());
    const std::string content = folder.Content("TARGET.DAT");
    for (const auto &[now, before] : {std::pair<std::size_t, std::size_t>{5, 290}, {290, 5}, {6, 6}})
        for (const std::size_t kept : keptOffsets)
            ASSERT_EQ(static_cast<std::uint8_t>(content[4 + 32 * now + kept]), loaded[4 + 32 * before + kept])
                << now << " " << kept;
}

TEST_F(TargetFile, WhatAShortFileHasNotOfATargetsOwnBytesIsZero) {
    Target(2).unknown.fill(7);
    Target(3).unknown.fill(7);
    Bytes loaded(4 + 32 * 2 + 23);  // it ends behind byte 22 of record 2
    for (const std::size_t record : std::initializer_list<std::size_t>{1, 2})
        for (const std::size_t kept : keptOffsets)
            if (4 + 32 * record + kept < loaded.size())
                loaded[4 + 32 * record + kept] = 0x99;
    Decode(loaded);
    EXPECT_EQ(Target(1).unknown.back(), 0x99);
    EXPECT_EQ(Target(2).unknown,
              (decltype(TargetRecord::unknown){0x99, 0x99, 0x99, 0x99, 0x99, 0x99, 0x99, 0x99, 0x99, 0x99}));
    EXPECT_EQ(Target(3).unknown, decltype(TargetRecord::unknown){});
}

TEST_F(TargetFile, WritingANewFileWithoutATemplateFillsUpWithZeros) {
    const TemporaryFolder folder;
    WriteTargets(folder.Path() + "NEW.DAT", *campaign, folder.Path() + "nowhere/");
    const Bytes expected = Encode();
    EXPECT_EQ(folder.Content("NEW.DAT"), std::string(expected.begin(), expected.end()));
}

TEST_F(TargetFile, AFailedWriteLeavesTheFileAsItWas) {
    const TemporaryFolder folder;
    const std::string path = folder.Make("TARGET.DAT", "old");
    Target(301).count = 256;
    EXPECT_EQ(ErrorThrownBy([&] { WriteTargets(path, *campaign, folder.Path()); }).File(), path);
    EXPECT_EQ(folder.Content("TARGET.DAT"), "old");
}

TEST_F(TargetFile, ATemplateThatCannotBeReadIsAnErrorAndNothingIsWritten) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.Path() + "targetbase.dat");
    const std::string path = folder.Make("TARGET.DAT", "old");
    const Error error = ErrorThrownBy([&] { WriteTargets(path, *campaign, folder.Path()); });
    EXPECT_EQ(error.Kind(), ErrorKind::FileAccess);
    EXPECT_EQ(error.File(), folder.Path() + "targetbase.dat");
    EXPECT_EQ(folder.Content("TARGET.DAT"), "old");
}

TEST_F(TargetFile, IsReadFromItsPath) {
    const TemporaryFolder folder;
    const Bytes file = RandomFile();
    const auto targets = campaign->TargetTable;
    folder.Make("TARGET.DAT", std::string(file.begin(), file.end()));
    campaign->TargetTable = {};
    ReadTargets(folder.Path() + "TARGET.DAT", *campaign, listener);
    EXPECT_EQ(campaign->TargetTable, targets);
    EXPECT_EQ(ErrorThrownBy([&] { ReadTargets(folder.Path() + "none.dat", *campaign, listener); }).Kind(),
              ErrorKind::FileMissing);
}

TEST_F(TargetFile, AnEmptyPathReadsAndWritesNothing) {
    RandomFile();
    const auto targets = campaign->TargetTable;
    const TemporaryFolder program;
    ReadTargets("", *campaign, listener);
    WriteTargets("", *campaign, program.Path());
    EXPECT_EQ(campaign->TargetTable, targets);
    EXPECT_TRUE(listener.steps.empty());
    EXPECT_THAT(program.Names(), testing::IsEmpty());
}

}  // namespace
}  // namespace vtr
