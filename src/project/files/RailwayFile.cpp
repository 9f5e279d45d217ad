#include "RailwayFile.h"

#include "Arithmetic.h"
#include "GamePosition.h"
#include "RecordFile.h"
#include "WholeFile.h"

namespace vtr {

namespace {

enum RailwayOffset : std::size_t {
    x1Position = 0,
    x2Position = 4,
    y1Position = 8,
    y2Position = 12,
    unused16 = 16,
    lineEnd = 24
};
static_assert(y2Position + gamePositionSize == unused16);
static_assert(lineEnd == railwayRecordSize);

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

constexpr RecordFile<railwayRecordSize> railwayFile{"railway line", railwayLineTotal, 8};

}  // namespace

void DecodeRailwayLine(std::span<const std::uint8_t, railwayRecordSize> record, RailwayLine &line,
                       const Place &place) {
    for (std::size_t i = 0; i < lineFields.size(); ++i) {
        const LineField &field = lineFields[i];
        const auto position = record.subspan(field.offset).first<gamePositionSize>();
        line.*field.pixel = PixelOfGamePosition(field.axis, position, place.Plus(field.offset));
        line.fineOffsets[i] = FineOffsetOfGamePosition(field.axis, position);
    }
}

void EncodeRailwayLine(const RailwayLine &line, std::span<std::uint8_t, railwayRecordSize> record,
                       const Place &place) {
    for (std::size_t i = 0; i < lineFields.size(); ++i) {
        const LineField &field = lineFields[i];
        EncodeGamePosition(field.axis, line.*field.pixel, line.fineOffsets[i],
                           record.subspan(field.offset).first<gamePositionSize>(), place.Plus(field.offset));
    }
}

void DecodeRailway(ConstByteSpan bytes, const std::string &path, Campaign &campaign, LoadListener &listener) {
    bool metUnusedLine = false;
    railwayFile.Decode(bytes, path, listener, [&](std::size_t i, const auto &record, const Place &place) {
        RailwayLine &line = campaign.RailwayTable[i];
        DecodeRailwayLine(record, line, place);
        if (line.IsUnused()) {
            // Where the unused lines all stand last, the second of them is the number of lines in use plus 1.
            if (metUnusedLine && campaign.RailwayLineCount == 0)
                campaign.RailwayLineCount = ToInt16(static_cast<std::int64_t>(i) - 1);
            metUnusedLine = true;
        }
    });
}

void ReadRailway(const std::string &path, Campaign &campaign, LoadListener &listener) {
    if (!path.empty())
        DecodeRailway(ReadStartOfFile(path, railwayFile.Size()), path, campaign, listener);
}

Bytes EncodeRailway(const Campaign &campaign, const std::string &path) {
    return railwayFile.Encode(path, [&](std::size_t i, auto record, const Place &place) {
        EncodeRailwayLine(campaign.RailwayTable[i], record, place);
    });
}

void WriteRailway(const std::string &path, const Campaign &campaign, const FileWrite &write) {
    if (!path.empty())
        write(path, EncodeRailway(campaign, path));
}

}  // namespace vtr
