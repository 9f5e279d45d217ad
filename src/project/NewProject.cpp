#include "NewProject.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

#include "AtomicWrite.h"
#include "CampaignFiles.h"
#include "Errors.h"
#include "MapGeneration.h"
#include "MirrorMapPicture.h"
#include "Paths.h"
#include "ProjectFile.h"
#include "Text.h"
#include "WholeFile.h"

namespace vtr {

// ROADLIST.DAT has no colon, so FieldCaption cuts off its T.
const std::array<NewProjectRow, newProjectRowTotal> newProjectRows = {{
    {12, "BMP MAP:", "*.bmp", generatedMapName, &ProjectPaths::Map},
    {11, "VTR.TM:", "*.tm", "VTR.TM", &ProjectPaths::MapTM},
    {2, "TILES DIR.:", "*.pcx", "BNGrass.pcx", nullptr},
    {0, "TARGET.DAT:", "*.dat", "TARGET.DAT", &ProjectPaths::Targets},
    {10, "TARNAMES.STR:", "*.str", "TARNAMES.STR", &ProjectPaths::TarNames},
    {1, "GRIDDATA.DAT:", "*.dat", "GRIDDATA.DAT", &ProjectPaths::GridData},
    {3, "FRNTLINE.DAT:", "*.dat", "FRNTLINE.DAT", &ProjectPaths::Frontline},
    {4, "AIRFIELD.DAT:", "*.dat", "AIRFIELD.DAT", &ProjectPaths::Airfield},
    {5, "VTR_RRD.DAT:", "*.dat", "VTR_RRD.DAT", &ProjectPaths::Railway},
    {6, "ROADLIST.DAT", "*.dat", "ROADLIST.DAT", &ProjectPaths::RoadList},
    {7, "ROADWPT.DAT:", "*.dat", "ROADWPT.DAT", &ProjectPaths::RoadWpt},
    {8, "RAILLIST.DAT:", "*.dat", "RAILLIST.DAT", &ProjectPaths::RailList},
    {9, "RAILWPT.DAT:", "*.dat", "RAILWPT.DAT", &ProjectPaths::RailWpt},
}};

namespace {

/// The name of a row's file in the project's folder: that of the file picked last, or else its own.
std::string_view CopiedName(const NewProject &project, std::size_t index) {
    const std::string &chosen = project.ChosenFileNames[index];
    return chosen.empty() ? FileNameOf(project.filenames[index]) : chosen;
}

bool AreTheSameFile(const std::string &one, const std::string &other) {
    const std::filesystem::path file = FilesystemPath(PathOnDisk(one));
    std::error_code error;
    return std::filesystem::is_regular_file(file, error) &&
           std::filesystem::equivalent(file, FilesystemPath(PathOnDisk(other)), error);
}

/// The path of a row's usual file in folder, which ends in a separator; empty when it is not there.
std::string UsualFileIn(const std::string &folder, const NewProjectRow &row) {
    std::string path = PathOnDisk(folder + std::string(row.usualName));
    std::error_code error;
    return std::filesystem::is_regular_file(FilesystemPath(path), error) ? path : std::string();
}

/// The same for the tiles, which may also be in a folder directly below.
std::string TilePictureIn(const std::string &folder) {
    const NewProjectRow &row = NewProjectRowOf(tilesRow);
    std::string path = UsualFileIn(folder, row);
    std::set<std::string> below;  // sorted, because the disk's order may differ
    std::error_code error;
    using Entries = std::filesystem::directory_iterator;
    for (Entries entry(FilesystemPath(PathOnDisk(folder)), error), end; !error && entry != end;
         entry.increment(error))
        below.insert(folder + PathText(entry->path().filename()) + SeparatorOf(folder));
    for (auto name = below.begin(); path.empty() && name != below.end(); ++name)
        path = UsualFileIn(*name, row);
    return path;
}

std::string WithSeparator(const std::string &folder) {
    return FileNameOf(folder).empty() ? folder : folder + SeparatorOf(folder);
}

std::string RowName(std::size_t index) {
    const std::string_view caption = NewProjectRowOf(index).caption;
    return std::string(caption.substr(0, caption.find_last_not_of(".:") + 1));
}

bool Exists(const NewProject &project, std::size_t index) {
    const std::filesystem::path path = FilesystemPath(PathOnDisk(project.filenames[index]));
    std::error_code error;
    return index == tilesRow ? std::filesystem::is_directory(path, error)
                             : std::filesystem::is_regular_file(path, error);
}

/// Each of groups holds rows that belong together.
void AddHint(std::string &text, const char *sentence, const std::vector<std::vector<std::size_t>> &groups,
             bool namesAll) {
    const std::size_t mostNamed = namesAll ? newProjectRowTotal : groups.size() > 1 ? 4 : 3;
    std::string names;
    std::size_t rows = 0;
    for (const auto &group : groups)
        for (std::size_t i = 0; i < group.size(); ++i)
            if (++rows <= mostNamed)
                names += (rows == 1 ? "" : i == 0 ? "; " : ", ") + RowName(group[i]);
    if (rows == 0)
        return;
    if (!text.empty())
        text += "\n";
    text += std::string(sentence) + ": " + names;
    text += rows > mostNamed ? " and " + std::to_string(rows - mostNamed) + " more." : ".";
}

std::string TextOf(const RowHints &hints, bool namesAll) {
    std::string text;
    AddHint(text, "Not found", {hints.missing}, namesAll);
    AddHint(text, "Of one file name, so that one overwrites the other", hints.sameName, namesAll);
    AddHint(text, "Typed by hand, so copied but not entered in the project file", {hints.typed}, namesAll);
    AddHint(text, "Edited by hand, so copied under the name browsed before", {hints.edited}, namesAll);
    return text;
}

void CopyRow(const NewProject &project, std::size_t index, const std::string &folder) {
    const std::string &source = project.filenames[index];
    const std::string copy = folder + std::string(CopiedName(project, index));
    if (!AreTheSameFile(source, copy))
        AtomicWrite(copy,
                    ReadFileOfAtMost(index == mapRow ? mostMapMebibytes : mostGameFileMebibytes, source));
}

/// Throws an Error when the project file cannot be written. Leaves an existing file as it is.
void CheckProjectFile(const std::string &path) {
    // Removes the file itself, not a link to it.
    const std::filesystem::path file = FilesystemPath(FollowLinks(PathOnDisk(path)));
    const bool isNew = !FileExists(path);
    AtomicWrite(path, isNew ? Bytes() : ReadSmallFile(path));
    std::error_code error;
    if (isNew)
        std::filesystem::remove(file, error);
}

Bytes ProjectFileOf(const NewProject &project) {
    ProjectPaths paths;
    paths.Name = project.name;
    for (const NewProjectRow &row : newProjectRows)
        if (row.name != nullptr)
            paths.*row.name = project.ChosenFileNames[row.index];
    return EncodeProjectFile(paths);
}

/// Does a step that may fail, because the new project can do without it.
template <typename Step>
void Try(Step step) {
    try {
        step();
    } catch (const Error &) {
    }
}

}  // namespace

const NewProjectRow &NewProjectRowOf(std::size_t index) {
    const auto *const row = std::ranges::find(newProjectRows, index, &NewProjectRow::index);
    if (row == newProjectRows.end())
        throw Error(ErrorKind::IndexOutOfRange, {.item = "new-project row"}, "0 to 12",
                    std::to_string(index));
    return *row;
}

std::string FieldCaption(std::size_t index) {
    const std::string_view caption = NewProjectRowOf(index).caption;
    return std::string(caption.substr(0, caption.size() - 1));
}

std::string BrowseTitle(std::size_t index) {
    return index == tilesRow ? "DIRECTORY CONTAINING TILES" : "Browse for " + FieldCaption(index);
}

std::string BrowseFilter(std::size_t index) {
    const std::string pattern(NewProjectRowOf(index).pattern);
    return (index == tilesRow ? pattern : FieldCaption(index)) + "|" + pattern;
}

void NewProject::Pick(std::size_t index, std::string_view path) {
    if (path.empty())
        return;
    if (index == tilesRow) {
        const std::string_view folder = FolderOf(path);
        filenames[index] = folder.substr(0, std::max<std::size_t>(folder.size(), 1) - 1);
    } else {
        filenames[index] = path;
        ChosenFileNames[index] = FileNameOf(path);
    }
}

void NewProject::PickFromFolder(const std::string &folder) {
    const std::string start = WithSeparator(folder);
    for (const NewProjectRow &row : newProjectRows)
        Pick(row.index, row.index == tilesRow ? TilePictureIn(start) : UsualFileIn(start, row));
}

void NewProject::PickTilesFolder(const std::string &folder) {
    const std::string start = WithSeparator(folder);
    const std::string picture = TilePictureIn(start);
    Pick(tilesRow, picture.empty() ? start : picture);
}

std::optional<std::size_t> NewProject::FirstEmptyRow() const {
    for (std::size_t index = 0; index < mapRow; ++index)
        if (filenames[index].empty())
            return index;
    return std::nullopt;
}

std::optional<RowRefusal> NewProject::FirstRefusal() const {
    for (std::size_t index = 0; index < filenames.size(); ++index) {
        const std::string &text = filenames[index];
        if (text.empty())
            continue;
        if (text.find_first_not_of(" \t") == std::string::npos)
            return RowRefusal{index, "The field " + RowName(index) + " holds nothing but blanks. " +
                                         (index == mapRow ? "Clear it, or choose a file for it."
                                                          : "Choose a file for it.")};
        if (text.size() > 1 && text.front() == text.back() && (text.front() == '"' || text.front() == '\''))
            return RowRefusal{index, "The path in the field " + RowName(index) +
                                         " stands in quotation marks. Take them away."};
    }
    return std::nullopt;
}

bool RowTakes(std::size_t index, std::string_view path) {
    const std::string name = UpperAscii(FileNameOf(path));
    if (!name.ends_with(UpperAscii(NewProjectRowOf(index).pattern.substr(1))))
        return false;
    return std::none_of(newProjectRows.begin(), newProjectRows.end(), [&](const NewProjectRow &row) {
        return row.index != index && name == UpperAscii(row.usualName);
    });
}

RowHints HintsOf(const NewProject &project) {
    RowHints hints;
    std::vector<std::pair<std::string, std::vector<std::size_t>>> copies;  // rows by name, in their order
    for (const NewProjectRow &row : newProjectRows) {
        const std::size_t index = row.index;
        const std::string &text = project.filenames[index];
        if (text.empty())
            continue;
        if (!Exists(project, index))
            hints.missing.push_back(index);
        if (index == tilesRow)
            continue;
        const std::string name = UpperAscii(CopiedName(project, index));
        auto copy = std::ranges::find(copies, name, &decltype(copies)::value_type::first);
        if (copy == copies.end())
            copy = copies.insert(copy, {name, {}});
        copy->second.push_back(index);
        if (project.ChosenFileNames[index].empty())
            hints.typed.push_back(index);
        else if (UpperAscii(FileNameOf(text)) != name)
            hints.edited.push_back(index);
    }
    for (auto &[name, rows] : copies)
        if (rows.size() > 1)
            hints.sameName.push_back(std::move(rows));
    return hints;
}

std::string TextOf(const RowHints &hints) {
    return TextOf(hints, false);
}

std::string WholeTextOf(const RowHints &hints) {
    return TextOf(hints, true);
}

void CreateProject(NewProject &project, const std::string &projectPath, const std::string &programFolder) {
    const std::string folder(FolderOf(projectPath));
    CheckProjectFile(projectPath);
    for (std::size_t index = 0; index < mapRow; ++index)
        if (index != tilesRow)
            CopyRow(project, index, folder);
    const auto writeProjectFile = [&] { AtomicWrite(projectPath, ProjectFileOf(project)); };
    if (!project.filenames[mapRow].empty()) {
        CopyRow(project, mapRow, folder);
        writeProjectFile();
        return;
    }
    project.ChosenFileNames[mapRow] = generatedMapName;
    Try([&] {
        GenerateMap(programFolder + "map.dat", folder, std::string(CopiedName(project, terrainRow)));
    });
    Try(writeProjectFile);
}

}  // namespace vtr
