#include <gmock/gmock.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <map>
#include <memory>
#include <random>

#include "BackgroundWriter.h"
#include "CampaignFiles.h"
#include "KeptWork.h"
#include "LoadedProject.h"
#include "Paths.h"
#include "RandomCampaign.h"
#include "ReaderTesting.h"
#include "SampleCampaign.h"
#include "SaveCampaign.h"
#include "SilentWindow.h"
#include "StoppedSave.h"
#include "TemporaryFolder.h"
#include "UnsavedWork.h"
#include "WholeFile.h"

namespace vtr {
namespace {

namespace fs = std::filesystem;

/// Gives every row of every table that can be edited the same number, 0 to 255: tables or files that are
/// mixed of two edits can be told.
void SetAll(Campaign &campaign, int number) {
    const auto byte = static_cast<std::uint8_t>(number);
    for (std::string &name : campaign.TargetNameTable)
        name = std::to_string(1000 + number);  // always as long, and so is the file
    for (TargetRecord &target : campaign.TargetTable) {
        target.count = byte;
        target.name = campaign.TargetNameTable[target.code];
    }
    for (AirfieldRecord &airfield : campaign.AirfieldTable)
        airfield.index_byte = byte;
    for (RailwayLine &line : campaign.RailwayTable)
        line.x1 = byte;
    for (Frontline &frontline : campaign.FrontlineTable) {
        frontline.points.fill({byte, 0, 0});
        EndFrontline(frontline, 29);  // a full one would shift what follows it in the file
    }
}

/// Whether all of rows hold the same number, the one in the first of them.
template <typename Rows, typename NumberOf>
bool AllAlike(const Rows &rows, NumberOf numberOf) {
    return std::ranges::all_of(rows, [&](const auto &row) { return numberOf(row) == numberOf(rows[0]); });
}

void ExpectEachTableOfOneEdit(const Campaign &campaign) {
    EXPECT_TRUE(AllAlike(campaign.TargetNameTable, [](const std::string &name) { return name; }));
    EXPECT_TRUE(AllAlike(campaign.TargetTable, [](const TargetRecord &target) { return target.count; }));
    EXPECT_TRUE(
        AllAlike(campaign.AirfieldTable, [](const AirfieldRecord &field) { return field.index_byte; }));
    EXPECT_TRUE(AllAlike(campaign.RailwayTable, [](const RailwayLine &line) { return line.x1; }));
    EXPECT_TRUE(AllAlike(campaign.FrontlineTable, [](const Frontline &line) { return line.points[5].x; }));
}

/// Whether the tables are all of the same edit.
bool AllOfOneEdit(const Campaign &campaign) {
    const int number = campaign.TargetTable[0].count;
    return campaign.TargetNameTable[0] == std::to_string(1000 + number) &&
           campaign.AirfieldTable[0].index_byte == number && campaign.RailwayTable[0].x1 == number &&
           campaign.FrontlineTable[0].points[5].x == number;
}

/// A process that edits, keeps its unsaved work and saves, until it is killed.
class KilledProcessTest : public ::testing::Test {
  protected:
    KilledProcessTest() {
        WriteSampleCampaign(folder.Path(), false);
        SilentWindow window;
        LoadProject(project, *campaign, window);
        session->programFolder = folder.Path();
        session->dataFolder = dataFolder;
        versionsFolder = VersionsFolderOf(dataFolder, campaign->paths);
        SetAll(*campaign, 0);
        SaveFiles(*campaign, allBoxes, folder.Path());
        for (const CampaignFile &file : campaignFiles)
            if (file.write != nullptr)
                sizes[file.usualName] = fs::file_size(PathOf(file));
    }

    std::string PathOf(const CampaignFile &file) const {
        return campaign->paths.PathOf(campaign->paths.*file.name);
    }

    [[noreturn]] void EditAndSaveForEver() {
        Answers answers;
        const KeptWork own(dataFolder, project);
        BackgroundWriter writer([](const std::optional<Error> &) {});
        // Never the number that is in the files: a mixture could not be told.
        const int first = session->campaign.TargetTable[0].count + 1;
        for (int edit = first;; ++edit) {
            SetAll(session->campaign, edit % 256);
            writer.Write(own.Path(), EncodeUnsavedWork({project, edit, {}}, session->campaign));
            usleep(700);
            if ((edit - first) % 2 == 1) {
                SaveCampaign(*session, allBoxes, answers);
                writer.Remove(own.Path());
            }
        }
    }

    void KillOneAfter(unsigned microseconds) {
        SilentWindow window;
        LoadProject(project, session->campaign, window, &session->fileStamps);
        session->CampaignLoaded();
        const pid_t editor = fork();
        if (editor == 0)
            EditAndSaveForEver();
        usleep(microseconds);
        kill(editor, SIGKILL);
        waitpid(editor, nullptr, 0);
    }

    /// Expects whole files, each of one edit, and a note when they are of two. True when they are.
    bool FilesAreMixed() {
        const std::unique_ptr<Campaign> read =
            ExpectWholeFiles([this](const CampaignFile &file) { return PathOf(file); });
        const bool isMixed = !AllOfOneEdit(*read);
        EXPECT_TRUE(!isMixed || FilesOfStoppedSave(versionsFolder));
        return isMixed;
    }

    /// Expects each file of the newest set to be whole; whether it has all six. One that was killed while it
    /// copied them has not yet overwritten any.
    bool NewestSetIsWhole() {
        const std::vector<VersionSet> sets = VersionSetsIn(versionsFolder);
        if (sets.empty())
            return false;
        ExpectWholeFiles([&](const CampaignFile &file) {
            const bool isKept = std::ranges::find(sets[0].files, &file) != sets[0].files.end();
            return isKept ? sets[0].folder + std::string(file.usualName) : PathOf(file);
        });
        return sets[0].files.size() == 6;
    }

    /// Reads the files that pathOf tells, each of which must be whole and of one edit.
    std::unique_ptr<Campaign> ExpectWholeFiles(
        const std::function<std::string(const CampaignFile &)> &pathOf) {
        auto read = std::make_unique<Campaign>(*campaign);
        RecordingListener listener;
        for (const CampaignFile &file : campaignFiles) {
            if (file.write == nullptr)
                continue;
            EXPECT_EQ(fs::file_size(pathOf(file)), sizes[file.usualName]) << file.usualName;
            if (file.read != nullptr)
                file.read(pathOf(file), *read, listener);
        }
        EXPECT_TRUE(listener.shortFiles.empty());
        ExpectEachTableOfOneEdit(*read);
        return read;
    }

    /// Reads what the killed process kept, and removes it; false when it kept nothing.
    bool KeptWorkLoads() {
        const std::vector<std::string> kept = AbandonedWork(dataFolder, project);
        EXPECT_LE(kept.size(), 1U);
        for (const std::string &path : kept) {
            const auto read = std::make_unique<Campaign>(*campaign);
            const UnsavedWork work = DecodeUnsavedWork(ReadWholeFile(path), path, *read);
            EXPECT_EQ(work.project, project);
            EXPECT_EQ(work.keptAt % 256, read->TargetTable[0].count);
            ExpectEachTableOfOneEdit(*read);
            fs::remove(path);
        }
        return !kept.empty();
    }

    const TemporaryFolder folder;
    const std::string dataFolder = folder.Path() + "data/";
    const std::string project = folder.Path() + "sample.prj";
    std::unique_ptr<Campaign> campaign = std::make_unique<Campaign>();
    std::unique_ptr<Session> session = std::make_unique<Session>();
    std::string versionsFolder;
    std::map<std::string_view, std::uintmax_t>
        sizes;  ///< of the files that are written, by their usual names
};

TEST_F(KilledProcessTest, LeavesWholeFilesAndUnsavedWorkThatLoadsAt200RandomMoments) {
    std::mt19937 random(1944);
    int kept = 0;
    int mixed = 0;
    int withSet = 0;
    const auto wereAtWork = [&] { return kept > 100 && mixed > 0 && withSet > 50; };
    // A busy machine kills many of them before they begin.
    for (int kill = 0; kill < 200 || (kill < 2000 && !wereAtWork()); ++kill) {
        KillOneAfter(static_cast<unsigned>(random() % 40000));
        mixed += FilesAreMixed() ? 1 : 0;
        withSet += NewestSetIsWhole() ? 1 : 0;
        kept += KeptWorkLoads() ? 1 : 0;
        ASSERT_FALSE(HasFailure()) << "kill " << kill;
    }
    EXPECT_TRUE(wereAtWork()) << kept << ' ' << mixed << ' ' << withSet;
}

}  // namespace
}  // namespace vtr
