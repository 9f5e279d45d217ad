#include "SaveFiles.h"

#include <optional>

#include "AirfieldFile.h"
#include "FrontlineFile.h"
#include "GridData.h"
#include "RailwayFile.h"
#include "TargetFile.h"
#include "TargetNameFile.h"

namespace vtr {

const std::array<std::string_view, saveBoxTotal> saveBoxCaptions{
    "TARGET.DAT",   "TARNAMES.STR", "GRIDDATA.DAT", "",
    "FRNTLINE.DAT", "AIRFIELD.DAT", "VTR_RRD.DAT",  "ROADLIST.DAT",
    "ROADWPT.DAT",  "RAILLIST.DAT", "RAILWPT.DAT"};

namespace {

struct SaveStep {
    std::size_t box;
    std::string ProjectPaths::*file;
    void (*write)(const std::string &path, const Campaign &campaign);
};

/// The targets and the grid data, which take more than a path and the campaign, are written by name.
constexpr std::array<SaveStep, 6> saveSteps{{
    {0, &ProjectPaths::Targets, nullptr},
    {1, &ProjectPaths::TarNames, WriteTargetNames},
    {2, &ProjectPaths::GridData, nullptr},
    {4, &ProjectPaths::Frontline, WriteFrontlines},
    {5, &ProjectPaths::Airfield, WriteAirfields},
    {6, &ProjectPaths::Railway, WriteRailway},
}};

}  // namespace

void SaveFiles(const Campaign &campaign, const SaveBoxes &ticked, const std::string &programFolder,
               SaveProgress &progress, const std::function<void(int target)> &tellMisfit) {
    progress = {};
    for (const SaveStep &step : saveSteps)
        if (ticked[step.box])
            progress.notWritten.push_back(saveBoxCaptions[step.box]);
    for (const SaveStep &step : saveSteps) {
        if (!ticked[step.box])
            continue;
        const std::string path = campaign.paths.PathOf(campaign.paths.*step.file);
        const std::string_view caption = saveBoxCaptions[step.box];
        std::optional<int> misfit;
        if (step.file == &ProjectPaths::Targets)
            WriteTargets(path, campaign, programFolder);
        else if (step.file == &ProjectPaths::GridData)
            misfit = WriteGridData(path, campaign);
        else
            step.write(path, campaign);
        if (misfit) {
            tellMisfit(*misfit);
            continue;
        }
        std::erase(progress.notWritten, caption);
        if (!path.empty())
            progress.written.push_back(caption);
    }
}

}  // namespace vtr
