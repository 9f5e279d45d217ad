#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>

#include "LoadProject.h"
#include "SampleCampaign.h"
#include "SaveCampaign.h"
#include "SilentWindow.h"
#include "TemporaryFolder.h"

namespace vtr {

constexpr SaveBoxes allBoxes{true, true, true, false, true, true, true};

/// Answers the questions of a save and keeps them.
struct Answers : SaveQuestions {
    bool yes = true;
    std::vector<std::vector<std::string_view>> askedToOverwrite;
    std::vector<Error> notKept;
    std::function<void()> meanwhile = [] {};  ///< done while a question is asked

    bool MayOverwrite(const std::vector<std::string_view> &changed) override {
        askedToOverwrite.push_back(changed);
        meanwhile();
        return yes;
    }
    bool MaySaveWithoutEarlierVersion(const Error &failure) override {
        notKept.push_back(failure);
        return yes;
    }
};

/// The sample campaign on disk, loaded into a session whose data folder is a temporary one.
class LoadedProject : public ::testing::Test {
  protected:
    LoadedProject() {
        WriteSampleCampaign(folder.Path(), false);
        session->programFolder = program.Path();
        session->dataFolder = data.Path();
        Load(*session);
    }

    void Load(Session &loading) {
        LoadProject(folder.Path() + "sample.prj", loading.campaign, window, &loading.fileStamps);
        loading.CampaignLoaded();
    }
    /// Changes one byte of a file of the project, as another program would.
    void ChangeBehindOurBack(const std::string &name, std::size_t at = 20) {
        std::string content = folder.Content(name);
        content.at(at) = static_cast<char>(content.at(at) ^ 1);
        folder.Make(name, content);
    }
    std::optional<SaveOutcome> Save(const SaveBoxes &ticked) {
        return SaveCampaign(*session, ticked, answers);
    }

    std::string VersionsFolder() const {
        return VersionsFolderOf(session->dataFolder, session->campaign.paths);
    }
    std::vector<VersionSet> Sets() const { return VersionSetsIn(VersionsFolder()); }
    static std::vector<std::string_view> NamesOf(const VersionSet &set) {
        std::vector<std::string_view> names;
        for (const CampaignFile *file : set.files)
            names.push_back(file->usualName);
        return names;
    }
    static std::string ContentOf(const std::string &path) {
        std::ifstream file(path, std::ios::binary);
        EXPECT_TRUE(file.is_open()) << path;
        return {std::istreambuf_iterator<char>(file), {}};
    }

    TemporaryFolder folder;
    TemporaryFolder program;
    TemporaryFolder data;
    SilentWindow window;
    Answers answers;
    std::unique_ptr<Session> session = std::make_unique<Session>();
};

}  // namespace vtr
