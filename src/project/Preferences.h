#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "Bytes.h"

namespace vtr {

/// Colours as red + 256 * green + 65536 * blue, each 0 to 255.
struct Preferences {
    std::int32_t FrontlineColour = 0;
    std::int32_t RailwayColour = 0;
    std::int32_t RoadIntColour = 0;
    std::int32_t RailIntColour = 0;
    std::int32_t TargetColour = 0;
    std::int32_t AirfieldColour = 0;
    std::int32_t FlashTarget = 0;  ///< 0 off, 1 on
    std::array<std::string, 4> RecentProjectNames;
    std::array<std::string, 4> RecentProjectFiles;  ///< full paths
    /// The last name that the first recent entry was shown with, empty at first; not filed. An entry without
    /// a name is hidden and keeps it.
    std::string TopEntryName;

    bool operator==(const Preferences &) const = default;
};

/// What the program starts with when it has no prefs.cfg. data/prefs.cfg holds the same.
Preferences ShippedPreferences();

/// A line of prefs.cfg that was passed over.
struct BadPreferencesLine {
    int number;  ///< counted from 1
    std::string text;
    std::string expected;
    std::string found;

    bool operator==(const BadPreferencesLine &) const = default;
};

/// What a prefs.cfg holds: the values of its good lines, 0 and empty where it has none, and its bad lines.
struct PreferencesRead {
    Preferences preferences;
    std::vector<BadPreferencesLine> badLines;
    /// The copy of a file that has bad lines; empty when there are none or it could not be made.
    std::string keptAs;
};

PreferencesRead DecodePreferences(ConstByteSpan bytes);
/// The fifteen lines of prefs.cfg.
Bytes EncodePreferences(const Preferences &preferences);

/// Where prefs.cfg is read and written (UTF-8 paths).
struct PreferencesPaths {
    std::string readFrom;
    std::string writeTo;
};

/// The program's folder; where that cannot be written to, the user's folder, which then starts out with what
/// the program's folder holds. Both end in a separator.
PreferencesPaths FindPreferences(const std::string &programFolder, const std::string &userFolder);

/// The preferences on disk, or the shipped ones where there is no file. A file with bad lines is copied to
/// "prefs.cfg.bad" where it will be written. Throws file-access Errors when there is a file that cannot be
/// read, and a file-too-large Error above 1 MiB.
PreferencesRead ReadPreferences(const PreferencesPaths &paths);
/// Keeps a prefs.cfg that is too large to be read under the name "prefs.cfg.bad", which it gives. Nothing
/// when it cannot be moved, or need not because another one is written.
std::string KeepUnreadPreferences(const PreferencesPaths &paths);
/// Replaces prefs.cfg, makes its folder if need be. Throws the Errors of AtomicWrite.
void WritePreferences(const PreferencesPaths &paths, const Preferences &preferences);

/// Puts a project that has been loaded on top of the recent ones, unless its name is the one that the first
/// entry was last shown with. The file plays no part in that, nor do the other entries.
void UpdateRecentProjects(Preferences &preferences, const std::string &name, const std::string &file);

}  // namespace vtr
