#pragma once

#include <span>

#include "AtomicWrite.h"
#include "Campaign.h"
#include "LoadListener.h"

namespace vtr {

constexpr std::size_t railwayRecordSize = 24;

/// Fills a line from its record of the file, which lies at place. Throws an
/// overflow Error for a position that leaves 16 bits.
void DecodeRailwayLine(std::span<const std::uint8_t, railwayRecordSize> record, RailwayLine &line,
                       const Place &place = {});
/// Puts the positions of a line's ends into its record of the file; the bytes without a meaning stay as they
/// are. Throws an overflow Error.
void EncodeRailwayLine(const RailwayLine &line, std::span<std::uint8_t, railwayRecordSize> record,
                       const Place &place = {});

/// Fills RailwayTable and RailwayLineCount from a whole file's bytes; path is for messages.
void DecodeRailway(ConstByteSpan bytes, const std::string &path, Campaign &campaign, LoadListener &listener);
/// Fills RailwayTable and RailwayLineCount from the file at path; an empty path leaves them alone.
/// RailwayLineCount is only set while it is 0. Throws file-access and overflow Errors.
void ReadRailway(const std::string &path, Campaign &campaign, LoadListener &listener);

/// The whole railway file; path is for messages. Throws an overflow Error.
Bytes EncodeRailway(const Campaign &campaign, const std::string &path = {});
/// Writes the railway file; an empty path writes nothing.
void WriteRailway(const std::string &path, const Campaign &campaign, const FileWrite &write = AtomicWrite);

}  // namespace vtr
