#pragma once

#include <span>

#include "AtomicWrite.h"
#include "Campaign.h"
#include "LoadListener.h"

namespace vtr {

constexpr std::size_t frontlinePointSize = 20;

/// Fills a point from its record of the file, which lies at place; a flag byte other than 0 and 1 leaves
/// on_map as it is. Throws an overflow Error for a position that leaves 16 bits.
void DecodeFrontlinePoint(std::span<const std::uint8_t, frontlinePointSize> record, FrontlinePoint &point,
                          const Place &place = {});
/// Puts a point into its record of the file; the bytes behind the flag stay as they are. Throws overflow
/// Errors.
void EncodeFrontlinePoint(const FrontlinePoint &point, std::span<std::uint8_t, frontlinePointSize> record,
                          const Place &place = {});

/// Fills FrontlineTable from a whole file's bytes; path is for messages.
void DecodeFrontlines(ConstByteSpan bytes, const std::string &path, Campaign &campaign,
                      LoadListener &listener);
/// Fills FrontlineTable from the file at path; an empty path leaves it alone. Throws file-access and overflow
/// Errors.
void ReadFrontlines(const std::string &path, Campaign &campaign, LoadListener &listener);

/// The whole frontline file; path is for messages. Throws overflow Errors.
Bytes EncodeFrontlines(const Campaign &campaign, const std::string &path = {});
/// Writes the frontline file; an empty path writes nothing.
void WriteFrontlines(const std::string &path, const Campaign &campaign, const FileWrite &write = AtomicWrite);

}  // namespace vtr
