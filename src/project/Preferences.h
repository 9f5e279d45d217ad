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
    /// The last name that the first recent entry has shown, empty at first. An entry without a name is hidden
    /// and does not change it. Not written to the file.
    std::string TopEntryName;

    bool operator==(const Preferences &) const = default;
};

/// The preferences of a program without prefs.cfg. data/prefs.cfg holds the same.
Preferences ShippedPreferences();

/// A line of prefs.cfg that could not be read.
struct BadPreferencesLine {
    int number;  ///< counted from 1
    std::string text;
    std::string expected;
    std::string found;

    bool operator==(const BadPreferencesLine &) const = default;
};

/// What a prefs.cfg holds: the values of its good lines (0 and empty for missing ones) and its bad lines.
struct PreferencesRead {
    Preferences preferences;
    std::vector<BadPreferencesLine> badLines;
    /// The path of the copy of a file with bad lines; empty when there is no copy.
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

/// Uses the program's folder, or the user's folder when the program's cannot be written to. Until the user's
/// folder has a prefs.cfg, reads that of the program's folder. Both folders end in a separator.
PreferencesPaths FindPreferences(const std::string &programFolder, const std::string &userFolder);

/// Reads the preferences, or returns the shipped ones when there is no file. Copies a file with bad lines to
/// "prefs.cfg.bad" beside the file to write. Throws a file-access Error when the file cannot be read, and a
/// file-too-large Error above 1 MiB.
PreferencesRead ReadPreferences(const PreferencesPaths &paths);
/// Renames a prefs.cfg that is too large to read to "prefs.cfg.bad" and returns the new path. Returns an
/// empty text when that fails, or when another file will be written anyway.
std::string KeepUnreadPreferences(const PreferencesPaths &paths);
/// Replaces prefs.cfg and makes its folder when it is missing. Throws the Errors of AtomicWrite.
void WritePreferences(const PreferencesPaths &paths, const Preferences &preferences);

/// Puts a loaded project on top of the recent ones, unless its name is TopEntryName. Compares neither the
/// file nor the other entries.
void UpdateRecentProjects(Preferences &preferences, const std::string &name, const std::string &file);

}  // namespace vtr
