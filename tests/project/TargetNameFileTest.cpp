#include <gmock/gmock.h>

#include <memory>

#include "RandomCampaign.h"
#include "ReaderTesting.h"
#include "TargetNameFile.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

using NameTable = std::array<std::string, targetNameTotal>;

class TargetNameFile : public testing::Test {
  protected:
    std::unique_ptr<Campaign> campaign = std::make_unique<Campaign>();
    RecordingListener listener;

    NameTable &Names() { return campaign->TargetNameTable; }
    void Decode(const Bytes &bytes) { DecodeTargetNames(bytes, "TARNAMES.STR", *campaign, listener); }

    Bytes RandomFile() {
        std::mt19937 random(308);
        FillWithRandomTables(*campaign, random);
        return EncodeTargetNames(*campaign);
    }
};

Bytes NamesPart(const Bytes &file, std::size_t offset, std::size_t size) {
    const auto start = file.begin() + static_cast<std::ptrdiff_t>(offset);
    return {start, start + static_cast<std::ptrdiff_t>(size)};
}

TEST_F(TargetNameFile, Writing308EmptyNamesGivesA1548ByteFileThatReadsBackAs308EmptyNames) {
    const Bytes file = EncodeTargetNames(*campaign);
    ASSERT_EQ(file.size(), 1548U);
    EXPECT_EQ(NamesPart(file, 0, 4), (Bytes{0x04, 0x06, 0, 0}));  // 1540
    EXPECT_EQ(NamesPart(file, 4, 4), (Bytes{52, 1, 0, 0}));
    EXPECT_EQ(NamesPart(file, 8, 4), (Bytes{0xD0, 0x04, 0, 0}));            // 1232
    EXPECT_EQ(NamesPart(file, 8 + 4 * 307, 4), (Bytes{0x03, 0x06, 0, 0}));  // 1539
    EXPECT_EQ(NamesPart(file, 1240, 308), Bytes(308, 0));

    Names().fill("old");
    Decode(file);
    EXPECT_THAT(Names(), testing::Each(""));
    EXPECT_TRUE(listener.shortFiles.empty());
}

TEST_F(TargetNameFile, WritesEachNamesOffsetAndItsCharactersWithAZeroBehind) {
    Names()[0] = "Ab";
    Names()[2] = "\xC4";
    const Bytes file = EncodeTargetNames(*campaign);
    ASSERT_EQ(file.size(), 1551U);
    EXPECT_EQ(NamesPart(file, 0, 20), (Bytes{0x07, 0x06, 0, 0,     // 1543
                                             52,   1,    0, 0,     //
                                             0xD0, 0x04, 0, 0,     // 1232
                                             0xD3, 0x04, 0, 0,     // 1235
                                             0xD4, 0x04, 0, 0}));  // 1236
    EXPECT_EQ(NamesPart(file, 20, 4), (Bytes{0xD6, 0x04, 0, 0}));  // 1238
    EXPECT_EQ(NamesPart(file, 1240, 7), (Bytes{'A', 'b', 0, 0, 0xC4, 0, 0}));
    Names() = {};
    Decode(file);
    EXPECT_EQ(Names()[0], "Ab");
    EXPECT_EQ(Names()[1], "");
    EXPECT_EQ(Names()[2], "\xC4");
    EXPECT_EQ(Names()[3], "");
}

TEST_F(TargetNameFile, ATotalNameLengthAbove31227OverflowsThe16BitSize) {
    Names()[5] = std::string(31227, 'x');
    const Bytes file = EncodeTargetNames(*campaign);
    EXPECT_EQ(NamesPart(file, 0, 4), (Bytes{0xFF, 0x7F, 0, 0}));
    EXPECT_EQ(NamesPart(file, 8 + 4 * 307, 4), (Bytes{0xFE, 0x7F, 0, 0}));
    Names()[300] = "x";
    const Error error = ErrorThrownBy([this] { EncodeTargetNames(*campaign, "N.STR"); });
    EXPECT_EQ(error.Kind(), ErrorKind::Overflow);
    EXPECT_EQ(error.File(), "N.STR");
    EXPECT_EQ(error.Found(), "32768");
}

TEST_F(TargetNameFile, TheFirstOffsetsUpperBytesMoveTheStartBy255Each) {
    // m = 1, k = 3: from byte 11 on 255 + 3 + 1 bytes are passed over.
    Bytes file(11 + 259, 'z');
    const Bytes head{9, 9, 9, 9, 2, 0, 0, 9, 3, 1, 0};
    std::copy(head.begin(), head.end(), file.begin());
    for (const char character : {'o', 'n', 'e', '\0', 't', 'w', 'o', '\0'})
        file.push_back(static_cast<std::uint8_t>(character));
    Names().fill("kept");
    Decode(file);
    EXPECT_EQ(Names()[0], "one");
    EXPECT_EQ(Names()[1], "two");
    EXPECT_EQ(Names()[2], "kept");
    EXPECT_EQ(Names()[307], "kept");
    EXPECT_EQ(listener.steps.size(), 2U);
    EXPECT_TRUE(listener.shortFiles.empty());
}

TEST_F(TargetNameFile, UpperBytesOf255And255CountAsNone) {
    Bytes file = EncodeTargetNames(*campaign);
    file[5] = file[6] = 255;
    file[9] = file[10] = 255;
    file[8] = 0;
    file[12] = 'Q';  // the first byte behind 11 + 0 * 255 + 0 + 1
    file[13] = 0;
    Decode(file);
    EXPECT_EQ(listener.steps.size(), 52U);
    EXPECT_EQ(Names()[0], "Q");
}

TEST_F(TargetNameFile, A309thNameIsAnIndexErrorThatNamesItsPlace) {
    Bytes file = EncodeTargetNames(*campaign);
    file[4] = 53;
    file.insert(file.end(), 10, 'x');
    const Error error = ErrorThrownBy([&] { Decode(file); });
    EXPECT_EQ(error.Kind(), ErrorKind::IndexOutOfRange);
    EXPECT_EQ(error.File(), "TARNAMES.STR");
    EXPECT_EQ(error.PlaceText(), "offset 1548, target name 308");
    EXPECT_EQ(error.Expected(), "an index from 0 to 307");
    EXPECT_EQ(error.Found(), "308");
    EXPECT_EQ(listener.steps.size(), 308U);
}

TEST_F(TargetNameFile, NamesHoldEveryByteFrom1To255) {
    std::string all;
    for (int byte = 1; byte <= 255; ++byte)
        all.push_back(static_cast<char>(byte));
    Names().fill("");
    Names()[7] = all;
    for (std::size_t i = 10; i < 265; ++i)
        Names()[i] = all.substr(i - 10, 1);
    const NameTable before = Names();
    const Bytes file = EncodeTargetNames(*campaign);
    for (std::size_t i = 0; i < 255; ++i)
        ASSERT_EQ(file[1240 + 7 + i], i + 1);
    Names() = {};
    Decode(file);
    EXPECT_EQ(Names(), before);
}

TEST_F(TargetNameFile, AReadNameReplacesTheOldOneWhole) {
    Names()[0] = "short";
    const Bytes file = EncodeTargetNames(*campaign);
    Names()[0] = "a name that was much longer";
    Names()[1] = "and one where none is now";
    Decode(file);
    EXPECT_EQ(Names()[0], "short");
    EXPECT_EQ(Names()[1], "");
}

TEST_F(TargetNameFile, AnotherNameOfTheSameLengthChangesOnlyItsOwnBytes) {
    const Bytes before = RandomFile();
    std::size_t offset = 1240;
    for (std::size_t i = 0; i < targetNameTotal; ++i) {
        const std::size_t length = Names()[i].size();
        if (length > 0) {
            const std::string kept = Names()[i];
            Names()[i].back() = kept.back() == 'e' ? 'f' : 'e';
            ExpectChangeOnlyWithin(before, EncodeTargetNames(*campaign), offset, length);
            Names()[i] = kept;
        }
        offset += length + 1;
    }
    EXPECT_EQ(offset, before.size());
}

TEST_F(TargetNameFile, RaisesTheProgressBy8In308ForEveryName) {
    Decode(RandomFile());
    EXPECT_EQ(listener.steps, std::vector<double>(308, 8.0 / 308));
}

TEST_F(TargetNameFile, AnEmptyFileLoadsAsNoNames) {
    Names().fill("kept");
    Decode({});
    EXPECT_THAT(Names(), testing::Each("kept"));
    ASSERT_EQ(listener.shortFiles.size(), 1U);
    EXPECT_EQ(listener.shortFiles[0].path, "TARNAMES.STR");
    EXPECT_EQ(listener.shortFiles[0].found, 0U);
    EXPECT_EQ(listener.shortFiles[0].expected, 12U);
}

TEST_F(TargetNameFile, MissingBytesCountAsZeroAtEveryLengthAndTheShortFileIsReported) {
    for (std::size_t i = 0; i < targetNameTotal; ++i)
        Names()[i] = "n" + std::to_string(i % 13 * i);
    const Bytes file = EncodeTargetNames(*campaign);
    for (std::size_t length = 0; length < file.size(); ++length) {
        Bytes cut(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length));
        RecordingListener ofCut;
        Names().fill("kept");
        DecodeTargetNames(cut, "N.STR", *campaign, ofCut);
        const NameTable names = Names();

        RecordingListener ofFilled;
        cut.resize(file.size() + 400, 0);
        Names().fill("kept");
        DecodeTargetNames(cut, "N.STR", *campaign, ofFilled);
        ASSERT_EQ(names, Names()) << length;
        ASSERT_EQ(ofCut.steps, ofFilled.steps);

        // Cut within the names, each missing name still takes the zero byte that ends it.
        std::size_t end = length;
        if (length > 1240) {
            std::size_t zeros = 0;
            for (std::size_t i = 1240; i < length; ++i)
                zeros += file[i] == 0 ? 1U : 0U;
            end = length + 308 - zeros;
        } else if (length >= 10) {
            end = 1240 + (length > 5 ? 308 : 52);
        } else {
            const std::size_t count = length > 5 ? 308 : length > 4 ? 52 : 0;
            end = 11 + (length > 8 ? 208 : 0) + 1 + count;
        }
        ASSERT_EQ(ofCut.shortFiles.size(), 1U) << length;
        ASSERT_EQ(ofCut.shortFiles[0].found, length);
        ASSERT_EQ(ofCut.shortFiles[0].expected, end) << length;
    }
}

TEST_F(TargetNameFile, BytesBeyondTheLastNameAreLeftAlone) {
    Bytes file = RandomFile();
    const NameTable before = Names();
    file.resize(file.size() + 100, 'x');
    Decode(file);
    EXPECT_EQ(Names(), before);
    EXPECT_TRUE(listener.shortFiles.empty());
}

TEST_F(TargetNameFile, DamageNeverDoesMoreThanThrowAnErrorWithItsPlace) {
    ExpectDamageToBeSurvived(RandomFile(), [this](const Bytes &bytes) { Decode(bytes); });
}

TEST_F(TargetNameFile, AThousandRandomTablesComeBackAndAreWrittenAsTheSameBytes) {
    std::mt19937 random(41);
    for (int run = 0; run < 1000; ++run) {
        FillWithRandomTables(*campaign, random);
        const NameTable before = Names();
        const Bytes written = EncodeTargetNames(*campaign);
        Names() = {};
        Decode(written);
        ASSERT_EQ(Names(), before);
        ASSERT_EQ(EncodeTargetNames(*campaign), written);
    }
}

TEST_F(TargetNameFile, AnEmptyPathReadsAndWritesNothing) {
    RandomFile();
    const NameTable before = Names();
    ReadTargetNames("", *campaign, listener);
    WriteTargetNames("", *campaign);
    EXPECT_EQ(Names(), before);
    EXPECT_TRUE(listener.steps.empty());
}

TEST_F(TargetNameFile, IsReadFromAndWrittenToItsPath) {
    const TemporaryFolder folder;
    const Bytes file = RandomFile();
    const NameTable before = Names();
    WriteTargetNames(folder.Path() + "TARNAMES.STR", *campaign);
    EXPECT_EQ(folder.Content("TARNAMES.STR"), std::string(file.begin(), file.end()));
    Names() = {};
    ReadTargetNames(folder.Path() + "TARNAMES.STR", *campaign, listener);
    EXPECT_EQ(Names(), before);
}

TEST_F(TargetNameFile, NamesThatAreTooLongLeaveTheFileAsItWas) {
    const TemporaryFolder folder;
    const std::string path = folder.Make("TARNAMES.STR", "old");
    Names()[0] = std::string(31228, 'x');
    EXPECT_THROW(WriteTargetNames(path, *campaign), Error);
    EXPECT_EQ(folder.Content("TARNAMES.STR"), "old");
}

}  // namespace
}  // namespace vtr
