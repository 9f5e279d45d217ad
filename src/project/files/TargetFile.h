#pragma once

#include "AtomicWrite.h"
#include "Campaign.h"
#include "LoadListener.h"

namespace vtr {

constexpr std::size_t targetRecordSize = 32;

/// Fills target index of the tables from its record of the file, which lies at place; its name comes from
/// TargetNameTable. Throws an overflow Error for a position and an index Error for a code above 307.
void DecodeTarget(std::span<const std::uint8_t, targetRecordSize> record, std::size_t index,
                  Campaign &campaign, const Place &place = {});
/// Puts target index of the tables into its record of the file. Throws an overflow Error.
void EncodeTarget(const Campaign &campaign, std::size_t index,
                  std::span<std::uint8_t, targetRecordSize> record, const Place &place = {});

/// Fills TargetTable from a whole file's bytes; path is for messages.
void DecodeTargets(ConstByteSpan bytes, const std::string &path, Campaign &campaign, LoadListener &listener);
/// Fills TargetTable from the file at path; an empty path leaves it alone. The target names
/// must have been read before. Throws the errors of file access, overflow, and index for a code above 307.
void ReadTargets(const std::string &path, Campaign &campaign, LoadListener &listener);

/// The whole targets file. With a template (record i at 32 * i, no header) what the editor does not know of a
/// record comes from it; where it holds no whole record, from replaced, the targets file that stood there
/// before, and where that has none it is zero. An empty template is none. path is for messages.
Bytes EncodeTargets(const Campaign &campaign, ConstByteSpan templateBytes, ConstByteSpan replaced,
                    const std::string &path = {});

/// Writes the targets file with the template "targetbase.dat" of programFolder (ending in a separator), which
/// may be missing; an empty path writes nothing.
void WriteTargets(const std::string &path, const Campaign &campaign, const std::string &programFolder,
                  const FileWrite &write = AtomicWrite);

}  // namespace vtr
