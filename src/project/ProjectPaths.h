#pragma once

#include <string>

namespace vtr {

/// The values of the project file's keys, unchanged, and the project's folder and file (UTF-8). A load never
/// clears them: a key that is missing in a project file keeps the value of the project before.
struct ProjectPaths {
    std::string Name;
    std::string Map;
    std::string MapTM;
    std::string Targets;
    std::string TarNames;
    std::string Airfield;
    std::string Railway;
    std::string RailWpt;
    std::string RailList;
    std::string RoadWpt;
    std::string RoadList;
    std::string GridData;
    std::string Frontline;
    std::string TilesDir;
    std::string ProjectDir;   ///< ends in a separator
    std::string ProjectFile;  ///< without its folder

    bool operator==(const ProjectPaths &) const = default;

    /// The full path of a file of the project. An empty value gives an empty path, which means "not
    /// configured".
    std::string PathOf(const std::string &value) const;
};

}  // namespace vtr
