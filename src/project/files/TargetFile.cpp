#include "TargetFile.h"

#include <algorithm>

#include "Arithmetic.h"
#include "ByteReader.h"
#include "GamePosition.h"
#include "RecordFile.h"
#include "WholeFile.h"

namespace vtr {

namespace {

constexpr std::size_t templateSize = targetTotal * targetRecordSize;

enum TargetOffset : std::size_t {
    targetX = 0,
    targetY = targetX + gamePositionSize,
    kept8 = targetY + gamePositionSize,
    nameCode = 16,
    kept18 = 18,
    objectCount = 19,
    targetExtraWord = 20,
    kept22 = 22,
    airfieldRef = 24,
    kept26 = 26,
    targetEnd = 32
};
static_assert(kept8 == 8);
static_assert(targetEnd == targetRecordSize);

constexpr RecordFile<targetRecordSize> targetFile{"target", targetTotal, 1};

struct ByteRange {
    TargetOffset offset;
    std::size_t size;
};
/// Where the bytes of TargetRecord::unknown stand.
constexpr std::array<ByteRange, 4> unknownRanges{{{kept8, 8}, {kept18, 1}, {kept22, 2}, {kept26, 6}}};
static_assert(8 + 1 + 2 + 6 == std::tuple_size_v<decltype(TargetRecord::unknown)>);

using UnknownBytes = decltype(TargetRecord::unknown);

UnknownBytes UnknownBytesOf(std::span<const std::uint8_t, targetRecordSize> record) {
    UnknownBytes unknown{};
    auto to = unknown.begin();
    for (const ByteRange &range : unknownRanges)
        to = std::ranges::copy(record.subspan(range.offset, range.size), to).out;
    return unknown;
}

/// The unknown bytes of record i with a template, which may be short: those of the file that is replaced stay
/// where it holds no whole record.
UnknownBytes TemplateBytes(std::size_t i, ConstByteSpan templateBytes, ConstByteSpan replaced) {
    const bool inTemplate = templateBytes.size() >= (i + 1) * targetRecordSize;
    ByteReader source(inTemplate ? templateBytes : replaced);
    source.Skip((inTemplate ? 0 : recordCountSize) + i * targetRecordSize);
    return UnknownBytesOf(source.Take<targetRecordSize>());
}

void PutUnknownBytes(const UnknownBytes &unknown, std::span<std::uint8_t, targetRecordSize> record) {
    auto from = unknown.begin();
    for (const ByteRange &range : unknownRanges)
        from = std::ranges::copy_n(from, static_cast<std::ptrdiff_t>(range.size),
                                   record.subspan(range.offset).begin())
                   .in;
}

}  // namespace

void DecodeTarget(std::span<const std::uint8_t, targetRecordSize> record, std::size_t index,
                  Campaign &campaign, const Place &place) {
    TargetRecord &target = campaign.TargetTable[index];
    const auto word = [&record](std::size_t field) { return TwoByteValue(record[field], record[field + 1]); };
    const auto x = record.subspan<targetX, gamePositionSize>();
    const auto y = record.subspan<targetY, gamePositionSize>();
    target.x = std::max(PixelOfGamePosition(Axis::X, x, place.Plus(targetX)), std::int16_t{0});
    target.y = std::max(PixelOfGamePosition(Axis::Y, y, place.Plus(targetY)), std::int16_t{0});
    target.fineOffsets = {FineOffsetOfGamePosition(Axis::X, x), FineOffsetOfGamePosition(Axis::Y, y)};
    target.code = word(nameCode);
    target.name = campaign.TargetNameTable[CheckIndex(target.code, targetNameTotal, place.Plus(nameCode))];
    target.count = record[objectCount];
    target.extra_word = word(targetExtraWord);
    target.airfield_ref = word(airfieldRef);
    target.unknown = UnknownBytesOf(record);
    const bool airfield = target.airfield_ref != 0 || index == targetThatIsAlwaysAnAirfield;
    target.airfield_mark = airfield ? flagSet : std::uint16_t{0};
}

void EncodeTarget(const Campaign &campaign, std::size_t index,
                  std::span<std::uint8_t, targetRecordSize> record, const Place &place) {
    const TargetRecord &target = campaign.TargetTable[index];
    const auto &[fineX, fineY] = target.fineOffsets;
    EncodeGamePosition(Axis::X, target.x, fineX, record.subspan<targetX, gamePositionSize>(),
                       place.Plus(targetX));
    EncodeGamePosition(Axis::Y, target.y, fineY, record.subspan<targetY, gamePositionSize>(),
                       place.Plus(targetY));
    PutUint16(record, nameCode, target.code);
    record[objectCount] = ToByte(target.count, place.Plus(objectCount));
    PutUint16(record, targetExtraWord, target.extra_word);
    PutUint16(record, airfieldRef, target.airfield_ref);
    PutUnknownBytes(target.unknown, record);
}

void DecodeTargets(ConstByteSpan bytes, const std::string &path, Campaign &campaign, LoadListener &listener) {
    targetFile.Decode(bytes, path, listener, [&](std::size_t i, const auto &record, const Place &place) {
        DecodeTarget(record, i, campaign, place);
    });
}

void ReadTargets(const std::string &path, Campaign &campaign, LoadListener &listener) {
    if (!path.empty())
        DecodeTargets(ReadStartOfFile(path, targetFile.Size()), path, campaign, listener);
}

Bytes EncodeTargets(const Campaign &campaign, ConstByteSpan templateBytes, ConstByteSpan replaced,
                    const std::string &path) {
    return targetFile.Encode(path, [&](std::size_t i, auto record, const Place &place) {
        EncodeTarget(campaign, i, record, place);
        if (!templateBytes.empty())
            PutUnknownBytes(TemplateBytes(i, templateBytes, replaced), record);
    });
}

void WriteTargets(const std::string &path, const Campaign &campaign, const std::string &programFolder,
                  const FileWrite &write) {
    if (path.empty())
        return;
    const Bytes templateBytes = ReadStartOfFileIfThere(programFolder + "targetbase.dat", templateSize);
    const bool needsReplaced = !templateBytes.empty() && templateBytes.size() < templateSize;
    const Bytes replaced = needsReplaced ? ReadStartOfFileIfThere(path, targetFile.Size()) : Bytes();
    write(path, EncodeTargets(campaign, templateBytes, replaced, path));
}

}  // namespace vtr
