#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <memory>

#include "CopyProject.h"
#include "ErrorThrownBy.h"
#include "LoadProject.h"
#include "SampleCampaign.h"
#include "SilentWindow.h"
#include "SystemCalls.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The sample campaign with all its twelve files, loaded and edited.
class CopyingAProject : public ::testing::Test {
  protected:
    CopyingAProject() {
        WriteSampleCampaign(folder.Path(), false);
        for (const char *name : {"ROADLIST.DAT", "RAILLIST.DAT"})
            folder.Make(name, std::string("content of ") + name);
        LoadProject(folder.Path() + "sample.prj", *campaign, window);
        campaign->TargetTable[100].x = 321;
        campaign->RailwayTable[3].y2 = 7;
    }

    ProjectCopy Copy() { return CopyProject(*campaign, copy.Path(), program.Path()); }
    std::unique_ptr<Campaign> LoadedCopy() {
        auto loaded = std::make_unique<Campaign>();
        LoadProject(copy.Path() + "sample.prj", *loaded, window);
        return loaded;
    }

    TemporaryFolder folder;
    TemporaryFolder copy;
    TemporaryFolder program;
    SilentWindow window;
    std::unique_ptr<Campaign> campaign = std::make_unique<Campaign>();
};

TEST_F(CopyingAProject, WritesEveryFileOfItWithTheUnsavedEditsAndLeavesTheOriginal) {
    const std::string targets = folder.Content("TARGET.DAT");
    const auto names = folder.Names();
    const std::string projectDir = campaign->paths.ProjectDir;
    const ProjectCopy result = Copy();
    EXPECT_THAT(result.missing, IsEmpty());
    EXPECT_EQ(result.misfit, std::nullopt);
    EXPECT_EQ(copy.Names(), names);
    EXPECT_EQ(copy.Names().size(), 13U);
    for (const char *name :
         {"map.bmp", "VTR.TM", "ROADLIST.DAT", "ROADWPT.DAT", "RAILLIST.DAT", "RAILWPT.DAT"})
        EXPECT_TRUE(copy.Content(name) == folder.Content(name)) << name;
    EXPECT_TRUE(copy.Content("TARGET.DAT") != targets);
    EXPECT_TRUE(folder.Content("TARGET.DAT") == targets);
    EXPECT_EQ(folder.Names(), names);
    EXPECT_EQ(campaign->paths.ProjectDir, projectDir);
    const auto loaded = LoadedCopy();
    EXPECT_TRUE(loaded->TargetTable == campaign->TargetTable);
    EXPECT_TRUE(loaded->RailwayTable == campaign->RailwayTable);
    EXPECT_EQ(loaded->paths.TilesDir, campaign->paths.TilesDir);
    EXPECT_EQ(loaded->paths.Name, campaign->paths.Name);
}

TEST_F(CopyingAProject, TellsWhichOfItsFilesAreNotThere) {
    std::filesystem::remove(folder.Path() + "ROADLIST.DAT");
    std::filesystem::remove(folder.Path() + "GRIDDATA.DAT");
    EXPECT_THAT(Copy().missing, ElementsAre("ROADLIST.DAT")) << "the grid data is made anew";
    EXPECT_EQ(copy.Names().count("GRIDDATA.DAT"), 1U);
}

TEST_F(CopyingAProject, OfWhichATargetHasNoCellKeepsTheOldGridData) {
    campaign->TargetTable[7].y = 1759;
    EXPECT_EQ(Copy().misfit, 7);
    EXPECT_TRUE(copy.Content("GRIDDATA.DAT") == folder.Content("GRIDDATA.DAT"));
    EXPECT_EQ(LoadedCopy()->TargetTable[7].y, 1759);
}

TEST_F(CopyingAProject, NeedsAnEmptyFolder) {
    copy.Make("letter.txt", "mine");
    EXPECT_EQ(ErrorThrownBy([this] { Copy(); }).Found(), "one that holds something");
    EXPECT_THAT(copy.Names(), ElementsAre("letter.txt"));
    EXPECT_THROW(CopyProject(*campaign, copy.Path() + "none/", program.Path()), Error);
    EXPECT_THROW(CopyProject(*campaign, folder.Path(), program.Path()), Error);
}

TEST_F(CopyingAProject, WhoseNamesLeadOutOfItsFolderOrToOneFileIsRefused) {
    for (const char *name : {"../elsewhere.dat", "..\\elsewhere.dat", "..", "target.dat", "sample.prj"}) {
        campaign->paths.GridData = name;
        EXPECT_EQ(ErrorThrownBy([this] { Copy(); }).Found(), std::string("\"") + name + "\"");
        EXPECT_THAT(copy.Names(), IsEmpty());
    }
    campaign->paths.GridData = "GRIDDATA.DAT";
    campaign->paths.Map = "NONE";
    EXPECT_THROW(Copy(), Error) << "the tables are another project's";
}

TEST_F(CopyingAProject, ThatFailsLeavesTheFolderEmpty) {
    std::filesystem::remove(folder.Path() + "RAILWPT.DAT");
    std::filesystem::create_directory(folder.Path() + "RAILWPT.DAT");
    EXPECT_EQ(ErrorThrownBy([this] { Copy(); }).File(), folder.Path() + "RAILWPT.DAT");
    EXPECT_THAT(copy.Names(), IsEmpty());
}

TEST_F(CopyingAProject, WritesTheProjectFileLast) {
    std::size_t filesThen = 0;
    bool hadProjectFile = true;
    // Twelve files are copied, then six written from the tables, the railways' last.
    const SystemCalls calls({{.call = "renameat", .nth = 18, .error = EIO, .lookOn = [&] {
                                  filesThen = copy.Names().size();
                                  hadProjectFile = copy.Names().contains("sample.prj");
                              }}});
    EXPECT_EQ(ErrorThrownBy([this] { Copy(); }).File(), copy.Path() + "VTR_RRD.DAT");
    EXPECT_FALSE(hadProjectFile);
    EXPECT_EQ(filesThen, 13U) << "the twelve and a temporary one";
    EXPECT_THAT(copy.Names(), IsEmpty());
}

TEST_F(CopyingAProject, ThatCannotBeFlushedIsTakenAwayAndSaysSo) {
    const SystemCalls calls({{.call = "fsync", .nth = 2, .error = EIO}});
    const Error error = ErrorThrownBy([this] { Copy(); });
    EXPECT_EQ(error.Step(), "flushing the folder to disk");
    EXPECT_EQ(error.AfterTheFailure(), FileAfterwards::AsBefore);
    EXPECT_THAT(copy.Names(), IsEmpty());
}

TEST_F(CopyingAProject, ReadsNoFileThatIsTooLargeForItsKind) {
    std::filesystem::resize_file(folder.Path() + "ROADLIST.DAT", (64U << 20) + 1);
    const Error error = ErrorThrownBy([this] { Copy(); });
    EXPECT_EQ(error.Kind(), ErrorKind::FileTooLarge);
    EXPECT_EQ(error.File(), folder.Path() + "ROADLIST.DAT");
    std::filesystem::resize_file(folder.Path() + "sample.prj", (1U << 20) + 1);
    EXPECT_EQ(ErrorThrownBy([this] { Copy(); }).Kind(), ErrorKind::FileTooLarge);
    EXPECT_THAT(copy.Names(), IsEmpty());
}

TEST_F(CopyingAProject, NamesTheFilesThatItHasFromTheProjectLoadedBefore) {
    std::string text = folder.Content("sample.prj");
    for (const std::string start : {"Name=", "RailList=", "TARGETS="}) {
        const std::size_t line = text.find(start);
        ASSERT_NE(line, std::string::npos) << start;
        text.erase(line, text.find('\n', line) + 1 - line);
    }
    folder.Make("sample.prj", text);
    LoadProject(folder.Path() + "sample.prj", *campaign, window);
    Copy();
    ProjectPaths expected = campaign->paths;
    expected.ProjectDir = copy.Path();
    EXPECT_TRUE(LoadedCopy()->paths == expected);
    EXPECT_TRUE(copy.Content("sample.prj").starts_with(text.substr(0, text.find("TILESDIR="))));
}

TEST_F(CopyingAProject, KeepsTheTilesFolderAndAllOtherBytesOfTheProjectFile) {
    const std::string before = folder.Content("sample.prj");
    campaign->paths.TilesDir = "/game/tiles";
    Copy();
    const std::string text = copy.Content("sample.prj");
    EXPECT_EQ(LoadedCopy()->paths.TilesDir, "/game/tiles");
    const std::size_t line = before.find("TILESDIR=");
    EXPECT_EQ(text.substr(0, line), before.substr(0, line));
    const TemporaryFolder absolute;
    folder.Make("sample.prj", before.substr(0, line) + "TILESDIR=/game/tiles/\r\n");
    CopyProject(*campaign, absolute.Path(), program.Path());
    EXPECT_EQ(absolute.Content("sample.prj"), folder.Content("sample.prj"));
}

}  // namespace
}  // namespace vtr
