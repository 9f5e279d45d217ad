#include "Preferences.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <limits>
#include <optional>
#include <string_view>
#include <system_error>

#include "Arithmetic.h"
#include "AtomicWrite.h"
#include "ColourSliders.h"
#include "KeyValueLines.h"
#include "Paths.h"
#include "WholeFile.h"

namespace vtr {

namespace {

struct ColourKey {
    std::string_view key;
    std::int32_t Preferences::*colour;
};

/// In the order of their lines in the file.
constexpr std::array<ColourKey, 6> colourKeys{{{"FRONTLINECOLOUR", &Preferences::FrontlineColour},
                                               {"RAILWAYCOLOUR", &Preferences::RailwayColour},
                                               {"ROADINTCOLOUR", &Preferences::RoadIntColour},
                                               {"RAILINTCOLOUR", &Preferences::RailIntColour},
                                               {"TARGETCOLOUR", &Preferences::TargetColour},
                                               {"AIRFIELDCOLOUR", &Preferences::AirfieldColour}}};
constexpr std::array<std::string_view, 4> projectKeys{"LASTPROJECT1", "LASTPROJECT2", "LASTPROJECT3",
                                                      "LASTPROJECT4"};
constexpr std::array<std::string_view, 4> fileKeys{"LASTFILE1", "LASTFILE2", "LASTFILE3", "LASTFILE4"};
constexpr std::string_view flashKey = "FLASHTARGET";

/// The value of a text key; null for other keys.
std::string *TextOf(Preferences &preferences, std::string_view key) {
    for (std::size_t i = 0; i < projectKeys.size(); ++i) {
        if (key == projectKeys[i])
            return &preferences.RecentProjectNames[i];
        if (key == fileKeys[i])
            return &preferences.RecentProjectFiles[i];
    }
    return nullptr;
}

/// The value of a number key; null for other keys.
std::int32_t *NumberOf(Preferences &preferences, std::string_view key) {
    const auto found = std::ranges::find(colourKeys, key, &ColourKey::key);
    if (found != colourKeys.end())
        return &(preferences.*found->colour);
    return key == flashKey ? &preferences.FlashTarget : nullptr;
}

/// The whole number of a value: rounded down for a colour, to the nearest for the switch.
std::optional<std::int32_t> WholeNumber(std::string_view key, std::string_view value) {
    const std::optional<double> number = FindNumber(value);
    if (!number)
        return std::nullopt;
    const double whole = key == flashKey ? RoundHalfEven(*number) : std::floor(*number);
    if (whole < std::numeric_limits<std::int32_t>::min() || whole > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return RoundToInt32(whole);
}

void NoteTopEntryName(Preferences &preferences) {
    if (!preferences.RecentProjectNames[0].empty())
        preferences.TopEntryName = preferences.RecentProjectNames[0];
}

void MakeFolderOf(const std::string &path) {
    // When this fails, writing the file fails too and gives the reason.
    std::error_code error;
    std::filesystem::create_directories(FilesystemPath(FolderOf(path)), error);
}

}  // namespace

Preferences ShippedPreferences() {
    Preferences preferences;
    // data/ColourFigures.cpp shows why these.
    preferences.FrontlineColour = ColourOfSliders({255, 32, 0});   // red
    preferences.RailwayColour = ColourOfSliders({0, 0, 64});       // nearly black
    preferences.RoadIntColour = ColourOfSliders({0, 0, 224});      // blue
    preferences.RailIntColour = ColourOfSliders({144, 255, 128});  // light green
    preferences.TargetColour = ColourOfSliders({255, 112, 255});   // pink
    preferences.AirfieldColour = ColourOfSliders({64, 16, 0});     // dark brown
    preferences.FlashTarget = 1;
    return preferences;
}

PreferencesRead DecodePreferences(ConstByteSpan bytes) {
    PreferencesRead read;
    const auto passOver = [&read](const KeyValueLine &line, const char *expected, std::string found) {
        read.badLines.push_back({line.number, line.text, expected, std::move(found)});
    };
    for (const KeyValueLine &line : SplitKeyValueLines(bytes)) {
        if (!line.hasEquals) {
            passOver(line, "a key, \"=\" and a value", "no \"=\"");
        } else if (std::string *text = TextOf(read.preferences, line.key)) {
            *text = line.value;
        } else if (std::int32_t *number = NumberOf(read.preferences, line.key)) {
            if (const auto value = WholeNumber(line.key, line.value))
                *number = *value;
            else
                passOver(line, "a decimal number of 32 bits", "\"" + line.value + "\"");
        }
    }
    NoteTopEntryName(read.preferences);
    return read;
}

Bytes EncodePreferences(const Preferences &preferences) {
    Bytes bytes;
    const auto addLine = [&bytes](std::string_view key, std::string_view value) {
        for (const std::string_view part : {key, std::string_view("="), value, std::string_view("\r\n")})
            bytes.insert(bytes.end(), part.begin(), part.end());
    };
    for (const auto &[key, colour] : colourKeys) {
        const std::int32_t value = preferences.*colour;
        addLine(key, (value < 0 ? "" : " ") + std::to_string(value));
    }
    for (std::size_t i = 0; i < projectKeys.size(); ++i) {
        addLine(projectKeys[i], preferences.RecentProjectNames[i]);
        addLine(fileKeys[i], preferences.RecentProjectFiles[i]);
    }
    addLine(flashKey, std::to_string(preferences.FlashTarget));
    return bytes;
}

PreferencesPaths FindPreferences(const std::string &programFolder, const std::string &userFolder) {
    const std::string name = "prefs.cfg";
    if (FolderIsWritable(programFolder))
        return {programFolder + name, programFolder + name};
    return {(FileExists(userFolder + name) ? userFolder : programFolder) + name, userFolder + name};
}

PreferencesRead ReadPreferences(const PreferencesPaths &paths) {
    if (!FileExists(paths.readFrom))
        return {ShippedPreferences(), {}, {}};
    PreferencesRead read = DecodePreferences(ReadSmallFile(paths.readFrom));
    if (!read.badLines.empty()) {
        const std::string copy = paths.writeTo + ".bad";
        MakeFolderOf(copy);
        std::error_code error;
        std::filesystem::copy_file(FilesystemPath(PathOnDisk(paths.readFrom)), FilesystemPath(copy),
                                   std::filesystem::copy_options::overwrite_existing, error);
        if (!error)
            read.keptAs = copy;
    }
    return read;
}

std::string KeepUnreadPreferences(const PreferencesPaths &paths) {
    std::string kept = paths.writeTo + ".bad";
    std::error_code error;
    if (paths.readFrom != paths.writeTo)
        return {};
    std::filesystem::rename(FilesystemPath(PathOnDisk(paths.readFrom)), FilesystemPath(kept), error);
    return error ? std::string() : kept;
}

void WritePreferences(const PreferencesPaths &paths, const Preferences &preferences) {
    MakeFolderOf(paths.writeTo);
    AtomicWrite(paths.writeTo, EncodePreferences(preferences));
}

void UpdateRecentProjects(Preferences &preferences, const std::string &name, const std::string &file) {
    if (!name.empty() && name == preferences.TopEntryName)
        return;
    auto &names = preferences.RecentProjectNames;
    auto &files = preferences.RecentProjectFiles;
    std::shift_right(names.begin(), names.end(), 1);
    std::shift_right(files.begin(), files.end(), 1);
    names[0] = name;
    files[0] = file;
    NoteTopEntryName(preferences);
}

}  // namespace vtr
