#include "LoadProject.h"

#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#include "CampaignFiles.h"
#include "Paths.h"
#include "ProjectFile.h"
#include "TemporaryNames.h"
#include "Text.h"

namespace vtr {

namespace {

/// Holds the progress value and the short files of one load.
class LoadSteps : public LoadListener {
  public:
    explicit LoadSteps(LoadProjectWindow &window) : window_(window) {}

    void SetProgress(double value) {
        value_ = value;
        window_.SetProgress(value_);
    }
    void AddProgress(double step) override { SetProgress(value_ + step); }
    void FoundShortFile(const ShortFile &file) override { shortFiles_.push_back(file); }
    void HaveRead(const std::string &path, ConstByteSpan bytes) override {
        stamps_[box_] = KnownFileOf(path, bytes);
    }
    /// The file of that save box is the next that is read.
    void SetSaveBox(std::size_t box) { box_ = box; }
    FileStamps &Stamps() { return stamps_; }
    const std::vector<ShortFile> &ShortFiles() const { return shortFiles_; }

  private:
    LoadProjectWindow &window_;
    double value_ = 0;
    std::vector<ShortFile> shortFiles_;
    std::size_t box_ = 0;
    FileStamps stamps_;
};

void ReadCampaignFiles(Campaign &campaign, LoadSteps &steps) {
    campaign.RailwayLineCount = 0;
    campaign.firstDisabledRailwayLine = 0;  // it spoke of the lines of the project before
    for (const CampaignFile *file : filesInReadingOrder) {
        steps.SetSaveBox(file->SaveBox());
        file->read(campaign.paths.PathOf(campaign.paths.*file->name), campaign, steps);
        steps.SetProgress(file->progressAfter);
    }
    for (const CampaignFile &file : campaignFiles)
        if (file.write != nullptr && file.read == nullptr)
            steps.Stamps()[file.SaveBox()] =
                KnownFileBySizeAndTime(campaign.paths.PathOf(campaign.paths.*file.name));
}

std::vector<std::string> KeysWithoutFile(const ProjectPaths &paths) {
    std::vector<std::string> keys;
    for (const CampaignFile &file : campaignFiles)
        if ((paths.*file.name).empty())
            keys.push_back(UpperAscii(file.key));
    return keys;
}

}  // namespace

std::optional<Error> RefusalOfProjectPath(const std::string &path) {
    const char *expected = "the path of a project file (*.prj)";
    if (path.empty())
        return Error(ErrorKind::FileAccess, {}, expected, "no path at all");
    std::error_code ignored;
    if (std::filesystem::is_directory(FilesystemPath(PathOnDisk(path)), ignored))
        return Error(ErrorKind::FileAccess, {.file = path}, expected, "a folder");
    return std::nullopt;
}

void LoadProject(const std::string &path, Campaign &open, LoadProjectWindow &window, FileStamps *stamps) {
    LoadSteps steps(window);
    const auto loaded = std::make_unique<Campaign>(open);
    ProjectPaths &paths = loaded->paths;

    window.ShowProgress();
    steps.SetProgress(0);
    const ProjectFileFacts facts = ReadProjectFile(path, paths, [&steps] { steps.AddProgress(1); });
    steps.SetProgress(15);
    DeriveFolders(path, paths);
    RemoveAbandonedTemporaries(paths.ProjectDir);
    window.ShowProjectName(paths.Name);
    if (paths.Map == "NONE") {
        open.paths = paths;
        window.TellNoMap();
        window.CloseProgress();
        window.Tell({{}, {}, facts});
        return;
    }
    if (paths.Map.empty())
        throw Error(facts.wasMade ? ErrorKind::FileMissing : ErrorKind::TypeMismatch, {.file = path},
                    "a line \"Map=\" with the name of the map picture",
                    facts.wasMade       ? "no such file, so that an empty one was made"
                    : facts.hasUtf8Mark ? "none; a UTF-8 mark makes the first line count for nothing"
                                        : "none");

    try {
        window.LoadMapPicture(paths.PathOf(paths.Map), steps);
        steps.AddProgress(5);
        loaded->ProjectLoaded = true;
        ReadCampaignFiles(*loaded, steps);
    } catch (const Error &error) {
        if (!facts.wasMade)
            throw;
        throw Error(ErrorKind::FileMissing, {.file = path}, "a project file",
                    "no such file, so that an empty one was made; " +
                        std::string(error.File() == paths.PathOf(paths.Map) ? "the map picture" : "a file") +
                        " of the project before (\"" + std::string(FileNameOf(error.File())) + "\") " +
                        (error.Kind() == ErrorKind::FileMissing ? "is not there" : "cannot be read"));
    }
    open = std::move(*loaded);
    if (stamps != nullptr)
        *stamps = std::move(steps.Stamps());
    window.ShowCampaign();
    steps.SetProgress(100);
    window.CloseProgress();
    window.Tell({steps.ShortFiles(), KeysWithoutFile(open.paths), facts});
}

}  // namespace vtr
