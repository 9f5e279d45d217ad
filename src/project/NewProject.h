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
    std::string ProjectPaths::*name;  ///< its value in the project file; nullptr: it has none
};

/// The rows from top to bottom.
extern const std::array<NewProjectRow, newProjectRowTotal> newProjectRows;

/// The row of an index. Throws an index Error.
const NewProjectRow &NewProjectRowOf(std::size_t index);

/// A row's caption without its last character, which should be the colon.
std::string FieldCaption(std::size_t index);
/// The title and the filter of the file chooser that browses for a row.
std::string BrowseTitle(std::size_t index);
std::string BrowseFilter(std::size_t index);

/// Why the text of a row cannot be a path.
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

    /// Takes the file at path for a row, or its folder for the tiles. An empty path changes nothing.
    void Pick(std::size_t index, std::string_view path);
    /// Takes for every row the file of its usual name in folder, in any letter case, if there is one. The
    /// tiles may also be in a folder directly below it.
    void PickFromFolder(const std::string &folder);
    /// Takes folder for the tiles, or a folder directly below it when only that holds them.
    void PickTilesFolder(const std::string &folder);
    /// The first row by index that has no text. The map's row does not count.
    std::optional<std::size_t> FirstEmptyRow() const;
    /// For the first row by index that holds only blanks or a path in quotation marks.
    std::optional<RowRefusal> FirstRefusal() const;
};

/// True when the file at path may belong to a row: it has the row's suffix and not another row's usual name.
bool RowTakes(std::size_t index, std::string_view path);

/// What the user should know of the rows before the project is made. Lists of indexes, rows from top to
/// bottom.
struct RowHints {
    std::vector<std::size_t> missing;                ///< their file or folder does not exist
    std::vector<std::vector<std::size_t>> sameName;  ///< groups whose copies would overwrite each other
    std::vector<std::size_t> typed;   ///< never picked: copied, but not entered in the project file
    std::vector<std::size_t> edited;  ///< after they were picked: copied under the picked file's name
};
RowHints HintsOf(const NewProject &project);
/// The hints as sentences, one per line. A line names at most three rows (four when they have two or more
/// file names) and counts the others.
std::string TextOf(const RowHints &hints);
/// The same with every row named.
std::string WholeTextOf(const RowHints &hints);

/// Makes the project at projectPath: copies the files into its folder, generates the map picture with the
/// map.dat of programFolder when the user has named none, and writes the project file of thirteen lines.
/// Throws an Error when the project file cannot be written or a copy fails; then the project file is as it
/// was. A failed generation, or a failure after it, throws nothing. It shows when the project is loaded.
void CreateProject(NewProject &project, const std::string &projectPath, const std::string &programFolder);

}  // namespace vtr
