#include <gmock/gmock.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <memory>

#include "ErrorThrownBy.h"
#include "KeptWork.h"
#include "SystemCalls.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class KeptWorkTest : public ::testing::Test {
  protected:
    KeptWorkTest() { fs::create_directory(folder.Path() + "campaign"); }

    std::vector<std::string> Abandoned() const { return AbandonedWork(dataFolder, project); }
    /// A file of work of the project that nobody owns, so old.
    std::string MakeAbandoned(std::chrono::minutes age = {}, const std::string &of = {}) const {
        std::string path;
        {
            const KeptWork work(dataFolder, of.empty() ? project : of);
            path = work.Path();
        }
        std::ofstream(path) << "work";
        fs::last_write_time(path, fs::file_time_type::clock::now() - age);
        return path;
    }

    const TemporaryFolder folder;
    const std::string dataFolder = folder.Path() + "data/";
    const std::string project = folder.Make("campaign.prj", "");
};

TEST_F(KeptWorkTest, LiesInTheDataFolderUnderANameOfItsOwn) {
    const KeptWork one(dataFolder, project);
    const KeptWork other(dataFolder, project);
    EXPECT_EQ(one.Path().rfind(dataFolder + "unsaved/", 0), 0U);
    EXPECT_NE(one.Path(), other.Path());
    EXPECT_FALSE(fs::exists(one.Path()));
}

TEST_F(KeptWorkTest, IsAbandonedWhenItsOwnerIsDoneWithIt) {
    EXPECT_THAT(Abandoned(), IsEmpty());
    auto work = std::make_unique<KeptWork>(dataFolder, project);
    const std::string path = work->Path();
    std::ofstream(path) << "work";
    EXPECT_THAT(Abandoned(), IsEmpty());
    work.reset();
    EXPECT_THAT(Abandoned(), ElementsAre(path));
}

TEST_F(KeptWorkTest, IsAbandonedWhenItsProcessIsKilled) {
    const pid_t owner = fork();
    if (owner == 0) {
        const KeptWork work(dataFolder, project);
        std::ofstream(work.Path()) << "work";
        pause();
        _exit(1);
    }
    const auto filesThere = [this] {
        std::error_code none;
        const fs::directory_iterator files(dataFolder + "unsaved", none);
        return std::distance(begin(files), end(files));
    };
    for (int tries = 0; tries < 5000 && filesThere() < 2; ++tries)
        usleep(1000);
    EXPECT_THAT(Abandoned(), IsEmpty());
    EXPECT_EQ(filesThere(), 2);
    kill(owner, SIGKILL);
    waitpid(owner, nullptr, 0);
    EXPECT_THAT(Abandoned(), testing::SizeIs(1));
    EXPECT_EQ(filesThere(), 1) << "the mark of the dead stays";
}

TEST_F(KeptWorkTest, OfOtherProjectsIsNotListed) {
    MakeAbandoned({}, folder.Path() + "other.prj");
    const std::string path = MakeAbandoned();
    EXPECT_THAT(Abandoned(), ElementsAre(path));
}

TEST_F(KeptWorkTest, IsListedTheNewestFirst) {
    const std::string second = MakeAbandoned(std::chrono::minutes(5));
    const std::string first = MakeAbandoned(std::chrono::minutes(2));
    const std::string third = MakeAbandoned(std::chrono::minutes(9));
    EXPECT_THAT(Abandoned(), ElementsAre(first, second, third));
}

TEST_F(KeptWorkTest, IsFoundWhicheverWayLeadsToTheProject) {
    const std::string path = MakeAbandoned();
    fs::create_symlink(folder.Path(), folder.Path() + "campaign/link");
    for (const char *way : {"./campaign.prj", "campaign/../campaign.prj", "CAMPAIGN.PRJ",
                            "campaign\\..\\campaign.prj", "campaign/link/campaign.prj"})
        EXPECT_THAT(AbandonedWork(dataFolder, folder.Path() + way), ElementsAre(path)) << way;
}

TEST_F(KeptWorkTest, OfTwoCampaignsWhoseProjectFilesAreLinksToOneIsNotShared) {
    fs::create_directory(folder.Path() + "other");
    const std::string one = folder.Path() + "campaign/linked.prj";
    const std::string other = folder.Path() + "other/linked.prj";
    for (const std::string &link : {one, other})
        fs::create_symlink(project, link);
    const std::string path = MakeAbandoned({}, one);
    EXPECT_THAT(AbandonedWork(dataFolder, one), ElementsAre(path));
    EXPECT_THAT(AbandonedWork(dataFolder, other), IsEmpty());
    EXPECT_THAT(Abandoned(), IsEmpty());
}

TEST_F(KeptWorkTest, IsMarkedAgainWhenItsFolderWasRemoved) {
    KeptWork work(dataFolder, project);
    fs::remove_all(dataFolder);
    work.Mark();
    std::ofstream(work.Path()) << "work";
    EXPECT_TRUE(fs::exists(work.Path()));
    EXPECT_THAT(Abandoned(), IsEmpty());
}

TEST_F(KeptWorkTest, WhatIsSetAsideIsListedNoMore) {
    const std::string path = MakeAbandoned();
    const std::string aside = SetAside(path);
    EXPECT_TRUE(fs::exists(aside));
    EXPECT_THAT(Abandoned(), IsEmpty());
    EXPECT_EQ(SetAside(path), path) << "is not there";
}

TEST_F(KeptWorkTest, HalfWrittenFilesOfKilledProcessesGoAway) {
    MakeAbandoned();
    const std::string half = dataFolder + "unsaved/.vtr-4711-0.tmp";
    std::ofstream(half) << "half of a fi";
    fs::last_write_time(half, fs::file_time_type::clock::now() - std::chrono::hours(2));
    EXPECT_THAT(Abandoned(), testing::SizeIs(1));
    EXPECT_FALSE(fs::exists(half));
}

TEST_F(KeptWorkTest, CannotBeMadeWhereTheDataFolderIsReadOnly) {
    fs::permissions(folder.Path(), fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_exec);
    const OrdinaryUser user;
    const Error error = ErrorThrownBy([this] { const KeptWork work(dataFolder, project); });
    EXPECT_EQ(error.Step(), "making the folder");
    EXPECT_EQ(error.Reason(), "Permission denied");
    EXPECT_THAT(Abandoned(), IsEmpty());
}

}  // namespace
}  // namespace vtr
