#include <gmock/gmock.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <map>
#include <memory>
#include <random>

#include "BackgroundWriter.h"
#include "CampaignFiles.h"
#include "KeptWork.h"
#include "Paths.h"
#include "RandomCampaign.h"
#include "ReaderTesting.h"
#include "SampleCampaign.h"
#include "SaveFiles.h"
#include "SilentWindow.h"
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

/// A process that edits, keeps its unsaved work and saves, until it is killed.
class KilledProcessTest : public ::testing::Test {
  protected:
    KilledProcessTest() {
        WriteSampleCampaign(folder.Path(), false);
        SilentWindow window;
        LoadProject(project, *campaign, window);
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
        const KeptWork own(dataFolder, project);
        BackgroundWriter writer([](const std::optional<Error> &) {});
        for (int edit = 1;; ++edit) {
            SetAll(*campaign, edit % 256);
            writer.Write(own.Path(), EncodeUnsavedWork({project, edit, {}}, *campaign));
            usleep(700);
            if (edit % 8 == 0) {
                SaveFiles(*campaign, allBoxes, folder.Path());
                writer.Remove(own.Path());
            }
        }
    }

    void KillOneAfter(unsigned microseconds) {
        const pid_t editor = fork();
        if (editor == 0)
            EditAndSaveForEver();
        usleep(microseconds);
        kill(editor, SIGKILL);
        waitpid(editor, nullptr, 0);
    }

    void ExpectWholeFiles() {
        const auto read = std::make_unique<Campaign>(*campaign);
        RecordingListener listener;
        for (const CampaignFile &file : campaignFiles) {
            if (file.write == nullptr)
                continue;
            EXPECT_EQ(fs::file_size(PathOf(file)), sizes[file.usualName]) << file.usualName;
            if (file.read != nullptr)
                file.read(PathOf(file), *read, listener);
        }
        EXPECT_TRUE(listener.shortFiles.empty());
        ExpectEachTableOfOneEdit(*read);
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

    static constexpr SaveBoxes allBoxes{true, true, true, true, true, true, true, true, true, true, true};
    const TemporaryFolder folder;
    const std::string dataFolder = folder.Path() + "data/";
    const std::string project = folder.Path() + "sample.prj";
    std::unique_ptr<Campaign> campaign = std::make_unique<Campaign>();
    std::map<std::string_view, std::uintmax_t>
        sizes;  ///< of the files that are written, by their usual names
};

TEST_F(KilledProcessTest, LeavesWholeFilesAndUnsavedWorkThatLoadsAt200RandomMoments) {
    std::mt19937 random(1944);
    int kept = 0;
    for (int kill = 0; kill < 200; ++kill) {
        KillOneAfter(static_cast<unsigned>(random() % 40000));
        ExpectWholeFiles();
        kept += KeptWorkLoads() ? 1 : 0;
        ASSERT_FALSE(HasFailure()) << "kill " << kill;
    }
    // Else it was never at work.
    EXPECT_GT(kept, 100);
}

}  // namespace
}  // namespace vtr
