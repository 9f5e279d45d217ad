#include "SavedTables.h"

#include <algorithm>

#include "CampaignFiles.h"
#include "DifferenceSentences.h"

namespace vtr {

namespace {

constexpr std::string_view gridFile = "GRIDDATA.DAT";

std::pair<std::int16_t, std::int16_t> PositionOf(const TargetRecord &target) {
    return {target.x, target.y};
}

}  // namespace

void SavedTables::Load(const Campaign &campaign) {
    saved_ = campaign;
    std::ranges::transform(campaign.TargetTable, gridPositions_.begin(), PositionOf);
    differing_.clear();
}

void SavedTables::Save(const Campaign &campaign, const std::vector<std::string_view> &usualNames) {
    const auto isSaved = [&](std::string_view file) {
        return std::ranges::find(usualNames, file) != usualNames.end();
    };
    Differences differences = DifferencesOf(saved_, campaign);
    std::erase_if(differences, [&](const Difference &difference) { return !isSaved(FileWith(difference)); });
    Apply(differences, Direction::Forwards, saved_);
    if (isSaved(gridFile))
        std::ranges::transform(campaign.TargetTable, gridPositions_.begin(), PositionOf);
    std::erase_if(differing_, [&](const auto &counted) { return isSaved(counted.first); });
}

void SavedTables::Change(const Differences &differences, Direction direction) {
    for (const Difference &difference : differences) {
        const bool forwards = direction == Direction::Forwards;
        Count(difference.row, forwards ? difference.before : difference.after, -1);
        Count(difference.row, forwards ? difference.after : difference.before, 1);
    }
}

void SavedTables::Count(std::size_t row, const TableRow &value, int by) {
    const Difference difference{row, RowAt(saved_, static_cast<Table>(value.index()), row), value};
    if (const std::string_view file = FileWith(difference); difference.before != value && !file.empty())
        differing_[file] += by;
    if (const auto *target = std::get_if<TargetRecord>(&value);
        target != nullptr && PositionOf(*target) != gridPositions_[row])
        differing_[gridFile] += by;
}

std::vector<std::string_view> SavedTables::EditedFiles() const {
    std::vector<std::string_view> files;
    for (const CampaignFile &file : campaignFiles) {
        const auto found = differing_.find(file.usualName);
        if (found != differing_.end() && found->second > 0)
            files.push_back(file.usualName);
    }
    return files;
}

}  // namespace vtr
