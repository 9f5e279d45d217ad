#include "SaveCampaign.h"

#include <algorithm>
#include <string>

#include "FolderLock.h"
#include "StoppedSave.h"

namespace vtr {

namespace {

class CampaignSave {
  public:
    CampaignSave(Session &session, const SaveBoxes &ticked, SaveQuestions &questions)
        : session_(session),
          paths_(session.campaign.paths),
          ticked_(ticked),
          questions_(questions),
          files_(FilesToSave(paths_, ticked)),
          expected_(session.fileStamps),
          keptBefore_(session.keptVersions),
          versionsFolder_(VersionsFolderOf(session.dataFolder, paths_)) {}

    std::optional<SaveOutcome> Run() {
        if (files_.empty())
            versionsFolder_.clear();
        for (;;) {
            FolderLock lock;
            try {
                if (!versionsFolder_.empty()) {
                    MakeVersionsFolder(session_.dataFolder, paths_);
                    lock = LockFolder(versionsFolder_);
                    if (lock == nullptr)
                        return RefusedSave();
                }
                const std::vector<std::string_view> changed = TakeNoticeOfChanges();
                if (changed.empty()) {
                    Keep();
                    return Write();
                }
                lock = nullptr;  // nobody waits for an answer
                if (!questions_.MayOverwrite(changed))
                    return std::nullopt;
            } catch (const Error &notKept) {
                lock = nullptr;
                bool &mayBeLost = session_.keptVersions.mayBeLost;
                mayBeLost = mayBeLost || questions_.MaySaveWithoutEarlierVersion(notKept);
                if (!mayBeLost) {
                    ForgetKept();
                    return std::nullopt;
                }
                versionsFolder_.clear();
            }
        }
    }

  private:
    SaveOutcome RefusedSave() const {
        SaveOutcome outcome;
        for (const CampaignFile *file : files_)
            outcome.notWritten.push_back(file->usualName);
        outcome.failure =
            Error(ErrorKind::FileAccess, {.file = paths_.ProjectDir + paths_.ProjectFile},
                  "a project that nobody else is saving", "another editor that is saving it at this moment");
        return outcome;
    }

    /// The usual names of the files that another program has changed since they were expected; from now on
    /// they are expected as they are.
    std::vector<std::string_view> TakeNoticeOfChanges() {
        std::vector<std::string_view> changed;
        for (const CampaignFile *file : files_) {
            const std::string path = paths_.PathOf(paths_.*file->name);
            KnownFile &known = expected_[file->SaveBox()];
            if (!HasChanged(known, path))
                continue;
            known = KnownFileNow(path);
            changedByOthers_[file->SaveBox()] = true;
            changed.push_back(file->usualName);
        }
        return changed;
    }

    /// Keeps what the save overwrites, and notes that it is under way.
    void Keep() {
        if (versionsFolder_.empty())
            return;
        KeptVersions &kept = session_.keptVersions;
        if (!kept.set.empty() &&
            !kept.set.starts_with(versionsFolder_))  // of another project, after a load that met "NONE"
            kept = {};
        std::vector<const CampaignFile *> files;
        std::ranges::copy_if(files_, std::back_inserter(files), [&](const CampaignFile *file) {
            const std::size_t box = file->SaveBox();
            return !kept.files[box] || changedByOthers_[box];
        });
        keptBefore_ = kept;
        KeepVersions(versionsFolder_, paths_, files, kept);
        stoppedBefore_ = FilesOfSaveBefore();
        FileNames noted = stoppedBefore_;
        for (const CampaignFile *file : files_)
            if (std::ranges::find(noted, file->usualName) == noted.end())
                noted.emplace_back(file->usualName);
        try {
            NoteSave(versionsFolder_, noted);
        } catch (const Error &) {
            // The versions are kept: that nobody would hear of a save that is killed is no reason not to
            // save.
        }
    }

    FileNames FilesOfSaveBefore() const {
        std::optional<FileNames> noted = NotedFiles(versionsFolder_);
        if (!noted)
            return {};
        if (noted->empty()) {  // its text was lost: it may have been any of them
            SaveBoxes all;
            all.fill(true);
            for (const CampaignFile *file : FilesToSave(paths_, all))
                noted->emplace_back(file->usualName);
        }
        return *noted;
    }

    SaveOutcome Write() {
        SaveOutcome outcome = SaveFiles(session_.campaign, ticked_, session_.programFolder, &expected_);
        for (const CampaignFile *file : files_)
            if (const KnownFile &now = outcome.stamps[file->SaveBox()]; !now.path.empty())
                session_.fileStamps[file->SaveBox()] = now;
        session_.FilesSaved(outcome.written);
        if (versionsFolder_.empty())
            return outcome;
        NoteRest(versionsFolder_, RestAfter(outcome));
        if (outcome.written.empty() && !outcome.LeavesMixture())
            ForgetKept();
        else if (session_.keptVersions.set != keptBefore_.set)
            RemoveOldSets(versionsFolder_, session_.keptVersions.set);
        return outcome;
    }

    /// Removes the set of a save that has written nothing.
    void ForgetKept() {
        KeptVersions &kept = session_.keptVersions;
        if (kept.set == keptBefore_.set)
            return;
        RemoveSet(kept.set);
        kept = keptBefore_;
    }

    /// What still has to be written, by this save or one before it, until all files belong together.
    FileNames RestAfter(const SaveOutcome &outcome) const {
        FileNames rest = stoppedBefore_;
        if (outcome.LeavesMixture())
            for (const CampaignFile *file : files_)
                rest.emplace_back(file->usualName);
        std::erase_if(rest, [&outcome](const std::string &name) {
            return std::ranges::find(outcome.written, name) != outcome.written.end();
        });
        return rest;
    }

    Session &session_;
    const ProjectPaths &paths_;
    const SaveBoxes &ticked_;
    SaveQuestions &questions_;
    const std::vector<const CampaignFile *> files_;
    FileStamps expected_;
    SaveBoxes changedByOthers_{};
    KeptVersions keptBefore_;     ///< before this save
    FileNames stoppedBefore_;     ///< not written by a save before, which stopped half way
    std::string versionsFolder_;  ///< empty: nothing is kept
};

}  // namespace

std::optional<SaveOutcome> SaveCampaign(Session &session, const SaveBoxes &ticked, SaveQuestions &questions) {
    return CampaignSave(session, ticked, questions).Run();
}

}  // namespace vtr
