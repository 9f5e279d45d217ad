#pragma once

#include "AtomicWrite.h"
#include "Campaign.h"
#include "LoadListener.h"

namespace vtr {

constexpr std::size_t airfieldRecordSize = 44;

/// Fills airfield from a record of the file, which lies at place. Throws an overflow Error for a model index
/// above 255.
void DecodeAirfield(std::span<const std::uint8_t, airfieldRecordSize> record, AirfieldRecord &airfield,
                    const Place &place = {});
/// Puts airfield into a record of the file; the bytes without a meaning stay as they are. Throws an overflow
/// Error for an aircraft above 255.
void EncodeAirfield(const AirfieldRecord &airfield, std::span<std::uint8_t, airfieldRecordSize> record,
                    const Place &place = {});

/// Fills AirfieldTable from a whole file's bytes; path is for messages.
void DecodeAirfields(ConstByteSpan bytes, const std::string &path, Campaign &campaign,
                     LoadListener &listener);
/// Fills AirfieldTable from the file at path; an empty path leaves it alone. Throws file-access and overflow
/// Errors.
void ReadAirfields(const std::string &path, Campaign &campaign, LoadListener &listener);

/// The whole airfield file; path is for messages.
Bytes EncodeAirfields(const Campaign &campaign, const std::string &path = {});
/// Writes the airfield file; an empty path writes nothing.
void WriteAirfields(const std::string &path, const Campaign &campaign, const FileWrite &write = AtomicWrite);

}  // namespace vtr
