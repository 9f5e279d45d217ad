#include "LoadProject.h"

#include <filesystem>
#include <system_error>

#include "AirfieldFile.h"
#include "FrontlineFile.h"
#include "Paths.h"
#include "ProjectFile.h"
#include "RailwayFile.h"
#include "TargetFile.h"
#include "TargetNameFile.h"
#include "Text.h"
#include "WaypointFile.h"

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
    const std::vector<ShortFile> &ShortFiles() const { return shortFiles_; }

  private:
    LoadProjectWindow &window_;
    double value_ = 0;
    std::vector<ShortFile> shortFiles_;
};

void ReadTerrain(const std::string &path, Campaign &campaign, LoadListener &listener) {
    const std::size_t found = ReadTerrainMap(path, campaign.terrain);
    if (found < terrainSize)
        listener.FoundShortFile({path, found, terrainSize});
}

struct ReadStep {
    void (*read)(const std::string &path, Campaign &campaign, LoadListener &listener);
    std::string ProjectPaths::*file;
    double progressAfter;
};

/// Target names come before the targets, which copy them. The bar drops back after the railway.
constexpr std::array<ReadStep, 8> readSteps{{
    {ReadTerrain, &ProjectPaths::MapTM, 50},
    {ReadTargetNames, &ProjectPaths::TarNames, 60},
    {ReadTargets, &ProjectPaths::Targets, 68},
    {ReadRailway, &ProjectPaths::Railway, 28},
    {ReadFrontlines, &ProjectPaths::Frontline, 36},
    {ReadRoadWaypoints, &ProjectPaths::RoadWpt, 44},
    {ReadRailWaypoints, &ProjectPaths::RailWpt, 52},
    {ReadAirfields, &ProjectPaths::Airfield, 76},
}};

void ReadCampaignFiles(Campaign &campaign, LoadSteps &steps) {
    campaign.RailwayLineCount = 0;
    campaign.firstDisabledRailwayLine = 0;  // it spoke of the lines of the project before
    for (const ReadStep &step : readSteps) {
        step.read(campaign.paths.PathOf(campaign.paths.*step.file), campaign, steps);
        steps.SetProgress(step.progressAfter);
    }
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

void LoadProject(const std::string &path, Campaign &campaign, LoadProjectWindow &window) {
    LoadSteps steps(window);
    ProjectPaths &paths = campaign.paths;

    window.ShowProgress();
    steps.SetProgress(0);
    ReadProjectFile(path, paths, [&steps] { steps.AddProgress(1); });
    steps.SetProgress(15);
    DeriveFolders(path, paths);
    window.ShowProjectName(paths.Name);
    if (paths.Map == "NONE") {
        window.TellNoMap();
        window.CloseProgress();
        return;
    }

    window.LoadMapPicture(paths.ProjectDir + Utf8OfProjectText(paths.Map));
    steps.AddProgress(5);
    campaign.ProjectLoaded = true;
    window.EnableProjectControls();
    ReadCampaignFiles(campaign, steps);
    window.CopyMapPicture();
    window.DrawFrontlines();
    window.DrawRailways();
    window.ResetViewSelectors();
    window.ZoomTo100();
    window.UpdateRecentProjects();
    window.SelectFirstItems();
    steps.SetProgress(100);
    window.CloseProgress();
    if (!steps.ShortFiles().empty())
        window.TellShortFiles(steps.ShortFiles());
}

}  // namespace vtr
