#include "SaveCampaign.h"

namespace vtr {

namespace {

/// The usual names of the files that another program has changed since expected says, which then has them
/// as they are now.
std::vector<std::string_view> TakeNoticeOfChanges(const std::vector<const CampaignFile *> &files,
                                                  const ProjectPaths &paths, FileStamps &expected) {
    std::vector<std::string_view> changed;
    for (const CampaignFile *file : files) {
        const std::string path = paths.PathOf(paths.*file->name);
        KnownFile &known = expected[file->SaveBox()];
        if (!HasChanged(known, path))
            continue;
        known = KnownFileNow(path);
        changed.push_back(file->usualName);
    }
    return changed;
}

}  // namespace

std::optional<SaveOutcome> SaveCampaign(Session &session, const SaveBoxes &ticked, SaveQuestions &questions) {
    const ProjectPaths &paths = session.campaign.paths;
    const std::vector<const CampaignFile *> files = FilesToSave(paths, ticked);
    FileStamps expected = session.fileStamps;
    for (;;) {
        const auto changed = TakeNoticeOfChanges(files, paths, expected);
        if (changed.empty())
            break;
        if (!questions.MayOverwrite(changed))
            return std::nullopt;
    }
    SaveOutcome outcome = SaveFiles(session.campaign, ticked, session.programFolder, &expected);
    for (const CampaignFile *file : files)
        if (const KnownFile &now = outcome.stamps[file->SaveBox()]; !now.path.empty())
            session.fileStamps[file->SaveBox()] = now;
    return outcome;
}

}  // namespace vtr
