#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ProjectPaths.h"

namespace vtr {

constexpr std::size_t newProjectRowTotal = 13;
constexpr std::size_t tilesRow = 2;
constexpr std::size_t terrainRow = 11;
constexpr std::size_t mapRow = 12;

/// A file row of the new-project dialog.
struct NewProjectRow {
    std::size_t index;                ///< of its controls, its text and its chosen file name
    std::string_view caption;         ///< of its label
    std::string_view pattern;         ///< of the files to choose from
    std::string_view usualName;       ///< of its file in a folder of game files
    std::string ProjectPaths::*name;  ///< what the project file calls it; nullptr: it does not
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

/// Why the text of a row can be no path.
struct RowRefusal {
    std::size_t index;
    std::string message;
};

/// What the user has entered for a new project. Paths are UTF-8.
struct NewProject {
    std::string name;
    std::array<std::string, newProjectRowTotal> filenames;  ///< the texts of the rows' fields
    std::array<std::string, newProjectRowTotal>
        ChosenFileNames;  ///< of the files picked last, without folder

    /// Takes the file at path for a row; for the tiles its folder. An empty path changes nothing.
    void Pick(std::size_t index, std::string_view path);
    /// Takes for every row the file of its usual name in folder, in any letter case, where there is one. The
    /// tiles may also lie in a folder directly below it.
    void PickFromFolder(const std::string &folder);
    /// Takes for the tiles folder, or the one directly below it that holds them when folder does not.
    void PickTilesFolder(const std::string &folder);
    /// The first row by index, the map's aside, that has no text.
    std::optional<std::size_t> FirstEmptyRow() const;
    /// Of the first row by index that holds nothing but blanks or a path in quotation marks.
    std::optional<RowRefusal> FirstRefusal() const;
};

/// True when the file at path is of the kind that belongs into a row: of its suffix, and not of the name that
/// another row's file has.
bool RowTakes(std::size_t index, std::string_view path);

/// What there is to know of the rows before the project is made; indexes of rows from top to bottom.
struct RowHints {
    std::vector<std::size_t> missing;                ///< what they name does not exist
    std::vector<std::vector<std::size_t>> sameName;  ///< together, their copies would overwrite each other
    std::vector<std::size_t> typed;   ///< never picked: copied, but not entered in the project file
    std::vector<std::size_t> edited;  ///< after they were picked: copied under the name of the file picked
};
RowHints HintsOf(const NewProject &project);
/// The same in sentences, one a line; a line names at most three rows, of two file names four, and counts the
/// rest.
std::string TextOf(const RowHints &hints);

/// Makes the project at projectPath: copies the files beside it, generates the map picture from the map.dat
/// in programFolder when none is named, and writes the project file of thirteen lines. Throws the Error of a
/// project file that cannot be written and of a failed copy; the project file is then as it was. From a
/// generation on nothing is thrown: what fails then is missed when the project is loaded.
void CreateProject(NewProject &project, const std::string &projectPath, const std::string &programFolder);

}  // namespace vtr
