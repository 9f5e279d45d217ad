#pragma once

#include <string>

namespace vtr {

/// The values of the project file's keys, as they stand there, and where the project lies (UTF-8). Never
/// cleared: a key that a project file lacks keeps the value of the project loaded before.
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

    /// The full path of a file of the project, empty when value is: an empty path means "not configured".
    std::string PathOf(const std::string &value) const;
};

}  // namespace vtr
