#include "RailwayFile.h"

#include "Arithmetic.h"
#include "AtomicWrite.h"
#include "ByteReader.h"
#include "GamePosition.h"
#include "WholeFile.h"

namespace vtr {

namespace {

constexpr std::size_t headerSize = 4;

enum RailwayOffset : std::size_t {
    x1Position = 0,
    x2Position = 4,
    y1Position = 8,
    y2Position = 12,
    unused16 = 16,
    recordEnd = 24
};
static_assert(y2Position + gamePositionSize == unused16);
static_assert(recordEnd == railwayRecordSize);

struct LineField {
    RailwayOffset offset;
    Axis axis;
    std::int16_t RailwayLine::*pixel;
};

/// In the order of a line's fine offsets.
constexpr std::array<LineField, 4> lineFields{{{x1Position, Axis::X, &RailwayLine::x1},
                                               {x2Position, Axis::X, &RailwayLine::x2},
                                               {y1Position, Axis::Y, &RailwayLine::y1},
                                               {y2Position, Axis::Y, &RailwayLine::y2}}};

Place RecordPlace(const std::string &path, std::size_t i) {
    return {.file = path,
            .offset = static_cast<std::int64_t>(headerSize + i * railwayRecordSize),
            .item = "railway line",
            .index = static_cast<int>(i)};
}

}  // namespace

void DecodeRailwayLine(std::span<const std::uint8_t, railwayRecordSize> record, RailwayLine &line,
                       std::array<FineOffset, 4> &fineOffsets, const Place &place) {
    for (std::size_t i = 0; i < lineFields.size(); ++i) {
        const LineField &field = lineFields[i];
        const auto position = record.subspan(field.offset).first<gamePositionSize>();
        line.*field.pixel = PixelOfGamePosition(field.axis, position, place.Plus(field.offset));
        fineOffsets[i] = FineOffsetOfGamePosition(field.axis, position);
    }
}

void EncodeRailwayLine(const RailwayLine &line, const std::array<FineOffset, 4> &fineOffsets,
                       std::span<std::uint8_t, railwayRecordSize> record, const Place &place) {
    for (std::size_t i = 0; i < lineFields.size(); ++i) {
        const LineField &field = lineFields[i];
        EncodeGamePosition(field.axis, line.*field.pixel, fineOffsets[i],
                           record.subspan(field.offset).first<gamePositionSize>(), place.Plus(field.offset));
    }
}

void DecodeRailway(ConstByteSpan bytes, const std::string &path, Campaign &campaign, LoadListener &listener) {
    ByteReader reader(bytes);
    reader.Skip(headerSize);
    bool metUnusedLine = false;
    for (std::size_t i = 0; i < railwayLineTotal; ++i) {
        const RailwayLine &line = campaign.RailwayTable[i];
        DecodeRailwayLine(reader.Take<railwayRecordSize>(), campaign.RailwayTable[i], campaign.flx_rrd[i],
                          RecordPlace(path, i));
        if (line == RailwayLine{}) {
            // Where the unused lines all stand last, the second of them is the number of lines in use plus 1.
            if (metUnusedLine && campaign.RailwayLineCount == 0)
                campaign.RailwayLineCount = ToInt16(static_cast<std::int64_t>(i) - 1);
            metUnusedLine = true;
        }
        listener.AddProgress(8.0 / railwayLineTotal);
    }
    if (reader.RanPastEnd())
        listener.FoundShortFile({path, bytes.size(), reader.Position()});
}

void ReadRailway(const std::string &path, Campaign &campaign, LoadListener &listener) {
    if (!path.empty())
        DecodeRailway(ReadWholeFile(path), path, campaign, listener);
}

Bytes EncodeRailway(const Campaign &campaign, const std::string &path) {
    Bytes file(headerSize + railwayLineTotal * railwayRecordSize);
    PutUint32(file, 0, railwayLineTotal);
    for (std::size_t i = 0; i < railwayLineTotal; ++i) {
        const Place place = RecordPlace(path, i);
        EncodeRailwayLine(
            campaign.RailwayTable[i], campaign.flx_rrd[i],
            ByteSpan(file).subspan(static_cast<std::size_t>(place.offset)).first<railwayRecordSize>(), place);
    }
    return file;
}

void WriteRailway(const std::string &path, const Campaign &campaign) {
    if (!path.empty())
        AtomicWrite(path, EncodeRailway(campaign, path));
}

}  // namespace vtr
