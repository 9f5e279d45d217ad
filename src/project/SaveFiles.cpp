#include "SaveFiles.h"

#include <optional>

#include "AirfieldFile.h"
#include "Errors.h"
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
};

constexpr std::array<SaveStep, 6> saveSteps{{
    {0, &ProjectPaths::Targets},
    {1, &ProjectPaths::TarNames},
    {2, &ProjectPaths::GridData},
    {4, &ProjectPaths::Frontline},
    {5, &ProjectPaths::Airfield},
    {6, &ProjectPaths::Railway},
}};

/// Writes the file of a box. The target that the grid data has no cell for, if there is one.
std::optional<int> WriteFileOfBox(std::size_t box, const std::string &path, const Campaign &campaign,
                                  const std::string &programFolder) {
    switch (box) {
        case 0:
            WriteTargets(path, campaign, programFolder);
            break;
        case 1:
            WriteTargetNames(path, campaign);
            break;
        case 2:
            return WriteGridData(path, campaign);
        case 4:
            WriteFrontlines(path, campaign);
            break;
        case 5:
            WriteAirfields(path, campaign);
            break;
        case 6:
            WriteRailway(path, campaign);
            break;
        default:
            break;
    }
    return std::nullopt;
}

}  // namespace

void SaveFiles(const Campaign &campaign, const SaveBoxes &ticked, const std::string &programFolder,
               SaveProgress &progress, const std::function<void(int target)> &tellMisfit) {
    progress = {};
    const auto isNamed = [&campaign](const SaveStep &step) { return !(campaign.paths.*step.file).empty(); };
    for (const SaveStep &step : saveSteps)
        if (ticked[step.box] && isNamed(step))
            progress.notWritten.push_back(saveBoxCaptions[step.box]);
    for (const SaveStep &step : saveSteps) {
        if (!ticked[step.box])
            continue;
        // Without a file too: the grid data is checked all the same.
        const std::string path = campaign.paths.PathOf(campaign.paths.*step.file);
        const auto noteWritten = [&] {
            std::erase(progress.notWritten, saveBoxCaptions[step.box]);
            if (isNamed(step))
                progress.written.push_back(saveBoxCaptions[step.box]);
        };
        try {
            if (const auto misfit = WriteFileOfBox(step.box, path, campaign, programFolder))
                tellMisfit(*misfit);
            else
                noteWritten();
        } catch (const Error &error) {
            if (error.FileReplaced())
                noteWritten();
            throw;
        }
    }
}

}  // namespace vtr
