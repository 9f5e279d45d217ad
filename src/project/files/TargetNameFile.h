#pragma once

#include "AtomicWrite.h"
#include "Campaign.h"
#include "LoadListener.h"

namespace vtr {

/// The most bytes that the 308 names may have together: beyond, the file's 16-bit sizes overflow.
constexpr std::size_t targetNamesMaxLength = 31227;

/// Fills TargetNameTable from a whole file's bytes; path is for messages. A file of fewer names leaves the
/// rest of the table as it is.
void DecodeTargetNames(ConstByteSpan bytes, const std::string &path, Campaign &campaign,
                       LoadListener &listener);
/// Fills TargetNameTable from the file at path; an empty path leaves it alone. Throws file-access Errors, a
/// file-too-large Error above 1 MiB, and an index Error when the file holds more than 308 names.
void ReadTargetNames(const std::string &path, Campaign &campaign, LoadListener &listener);

/// The whole target-name file; path is for messages. Throws an overflow Error when the names are longer than
/// targetNamesMaxLength together.
Bytes EncodeTargetNames(const Campaign &campaign, const std::string &path = {});

/// Writes the target-name file; an empty path writes nothing.
void WriteTargetNames(const std::string &path, const Campaign &campaign,
                      const FileWrite &write = AtomicWrite);

}  // namespace vtr
