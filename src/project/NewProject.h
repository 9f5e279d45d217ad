#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace vtr {

constexpr std::size_t newProjectRowTotal = 13;
constexpr std::size_t tilesRow = 2;
constexpr std::size_t terrainRow = 11;
constexpr std::size_t mapRow = 12;

/// A file row of the new-project dialog.
struct NewProjectRow {
    std::size_t index;           ///< of its controls, its text and its chosen file name
    std::string_view caption;    ///< of its label
    std::string_view pattern;    ///< of the files to choose from
    std::string_view usualName;  ///< of its file in a folder of game files
};

/// The rows from top to bottom.
extern const std::array<NewProjectRow, newProjectRowTotal> newProjectRows;

/// The row of an index. Throws an index Error.
const NewProjectRow &NewProjectRowOf(std::size_t index);

/// A row's caption without its last character, which is meant to be the colon.
std::string FieldCaption(std::size_t index);
/// The title and the filter of the file chooser that browses for a row.
std::string BrowseTitle(std::size_t index);
std::string BrowseFilter(std::size_t index);

/// What the user has entered for a new project. Paths are UTF-8.
struct NewProject {
    std::string name;                                       ///< as the project file is to hold it
    std::array<std::string, newProjectRowTotal> filenames;  ///< the texts of the rows' fields
    std::array<std::string, newProjectRowTotal>
        ChosenFileNames;  ///< of the files picked last, without folder

    /// Takes the file at path for a row; for the tiles its folder. An empty path changes nothing.
    void Pick(std::size_t index, std::string_view path);
    /// Takes for every row the file of its usual name in folder, in any letter case, where there is one.
    void PickFromFolder(const std::string &folder);
    /// The first row by index, the map's aside, that has no text.
    std::optional<std::size_t> FirstEmptyRow() const;
};

/// Makes the project at projectPath: copies the files beside it, generates the map picture from the map.dat
/// in programFolder when none is named, and writes the project file of thirteen lines. Throws the Error of a
/// project file that cannot be written and of a failed copy; the project file is then as it was. From a
/// generation on nothing is thrown: what fails then is missed when the project is loaded.
void CreateProject(NewProject &project, const std::string &projectPath, const std::string &programFolder);

}  // namespace vtr
