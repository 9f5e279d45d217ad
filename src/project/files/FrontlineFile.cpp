#include "FrontlineFile.h"

#include <algorithm>

#include "ByteReader.h"
#include "GamePosition.h"
#include "WholeFile.h"

namespace vtr {

namespace {

enum FrontlineOffset : std::size_t {
    pointX = 0,
    pointY = 4,
    filling = 8,  // eight bytes of 255
    flagByte = 16,
    unused17 = 17,
    pointEnd = 20
};
static_assert(pointY + gamePositionSize == filling);
static_assert(pointEnd == frontlinePointSize);

constexpr std::size_t slotSize = frontlinePointTotal * frontlinePointSize;
static_assert(slotSize == 600);
constexpr std::size_t endMarkerSize = 16;

std::string ItemOfPointsOf(std::size_t slot) {
    return "frontline " + std::to_string(slot) + ", point";
}

Place PointPlace(const std::string &path, std::size_t offset, const std::string &item, std::size_t point) {
    return {.file = path,
            .offset = static_cast<std::int64_t>(offset),
            .item = item,
            .index = static_cast<int>(point)};
}

/// Positions of points have no fine part.
void PutPosition(Axis axis, std::int16_t pixel, ByteSpan position, const Place &place) {
    PutUint16(position, 0, 0);
    PutUint16(position, 2, StoredUpperHalf(axis, pixel, place));
}

}  // namespace

void DecodeFrontlinePoint(std::span<const std::uint8_t, frontlinePointSize> record, FrontlinePoint &point,
                          const Place &place) {
    point.x = PixelOfGamePosition(Axis::X, record.subspan<pointX, gamePositionSize>(), place.Plus(pointX));
    point.y = PixelOfGamePosition(Axis::Y, record.subspan<pointY, gamePositionSize>(), place.Plus(pointY));
    if (record[flagByte] <= 1)
        point.on_map = record[flagByte] == 1 ? flagSet : std::uint16_t{0};
}

void EncodeFrontlinePoint(const FrontlinePoint &point, std::span<std::uint8_t, frontlinePointSize> record,
                          const Place &place) {
    PutPosition(Axis::X, point.x, record.subspan<pointX, gamePositionSize>(), place.Plus(pointX));
    PutPosition(Axis::Y, point.y, record.subspan<pointY, gamePositionSize>(), place.Plus(pointY));
    std::ranges::fill(record.subspan<filling, flagByte - filling>(), std::uint8_t{255});
    record[flagByte] = point.on_map == flagSet ? 1 : 0;
}

void DecodeFrontlines(ConstByteSpan bytes, const std::string &path, Campaign &campaign,
                      LoadListener &listener) {
    listener.HaveRead(path, bytes);
    ByteReader reader(bytes);
    for (std::size_t slot = 0; slot < frontlineTotal; ++slot) {
        const std::string item = ItemOfPointsOf(slot);
        for (std::size_t p = 0; p < frontlinePointTotal; ++p) {
            const Place place = PointPlace(path, reader.Position(), item, p);
            DecodeFrontlinePoint(reader.Take<frontlinePointSize>(), campaign.FrontlineTable[slot].points[p],
                                 place);
            listener.AddProgress(8.0 / (frontlineTotal * frontlinePointTotal));
        }
    }
    if (reader.RanPastEnd())
        listener.FoundShortFile({path, bytes.size(), reader.Position()});
}

void ReadFrontlines(const std::string &path, Campaign &campaign, LoadListener &listener) {
    if (!path.empty())
        DecodeFrontlines(ReadStartOfFile(path, frontlineTotal * slotSize), path, campaign, listener);
}

Bytes EncodeFrontlines(const Campaign &campaign, const std::string &path) {
    Bytes file;
    file.reserve(frontlineTotal * (slotSize + endMarkerSize));
    for (std::size_t slot = 0; slot < frontlineTotal; ++slot) {
        const Frontline &frontline = campaign.FrontlineTable[slot];
        const auto count = static_cast<std::size_t>(frontline.point_count());
        const std::size_t slotStart = file.size();
        const std::size_t marker = slotStart + count * frontlinePointSize;
        // The game ends a slot of 30 points with a marker too: it takes 16 bytes more and shifts what
        // follows.
        const std::size_t slotEnd = std::max(slotStart + slotSize, marker + endMarkerSize);
        file.resize(slotEnd);
        if (count == 0)
            continue;
        const std::string item = ItemOfPointsOf(slot);
        for (std::size_t p = 0; p < count; ++p) {
            const std::size_t offset = slotStart + p * frontlinePointSize;
            EncodeFrontlinePoint(frontline.points[p],
                                 ByteSpan(file).subspan(offset).first<frontlinePointSize>(),
                                 PointPlace(path, offset, item, p));
        }
        std::ranges::fill(ByteSpan(file).subspan(marker, endMarkerSize), std::uint8_t{255});
    }
    return file;
}

void WriteFrontlines(const std::string &path, const Campaign &campaign, const FileWrite &write) {
    if (!path.empty())
        write(path, EncodeFrontlines(campaign, path));
}

}  // namespace vtr
