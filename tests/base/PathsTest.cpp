#include <gmock/gmock.h>
#include <unistd.h>

#include <cstdlib>

#include "Paths.h"
#include "SystemCalls.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

namespace fs = std::filesystem;

TEST(Paths, AreSplitBehindTheLastSeparatorOfEitherKind) {
    EXPECT_EQ(FileNameOf("C:\\maps\\map.bmp"), "map.bmp");
    EXPECT_EQ(FolderOf("C:\\maps\\map.bmp"), "C:\\maps\\");
    EXPECT_EQ(FileNameOf("/maps/map.bmp"), "map.bmp");
    EXPECT_EQ(FolderOf("C:\\maps/map.bmp"), "C:\\maps/");
    EXPECT_EQ(FileNameOf("C:/maps\\map.bmp"), "map.bmp");
    EXPECT_EQ(FolderOf("map.bmp"), "");
    EXPECT_EQ(FileNameOf("map.bmp"), "map.bmp");
    EXPECT_EQ(FileNameOf("/maps/"), "");
    EXPECT_EQ(FolderOf(""), "");
}

TEST(Paths, KeepTheSeparatorTheyCameWith) {
    EXPECT_EQ(SeparatorOf("C:\\maps\\map.bmp"), '\\');
    EXPECT_EQ(SeparatorOf("/maps/map.bmp"), '/');
    EXPECT_EQ(SeparatorOf("C:\\maps/map.bmp"), '/');
    EXPECT_EQ(SeparatorOf("map.bmp"), static_cast<char>(fs::path::preferred_separator));
}

TEST(Paths, AreTakenAsTheyStandWhenTheyExistExactly) {
    const TemporaryFolder folder;
    folder.Make("a.dat", "");
    folder.Make("A.DAT", "");
    EXPECT_EQ(PathOnDisk(folder.Path() + "a.dat"), folder.Path() + "a.dat");
    EXPECT_EQ(PathOnDisk(folder.Path() + "A.DAT"), folder.Path() + "A.DAT");
    EXPECT_EQ(PathOnDisk(folder.Path()), folder.Path());
}

TEST(Paths, FindEachFolderAndTheFileInTheLetterCaseTheyHaveOnDisk) {
    const TemporaryFolder folder;
    fs::create_directories(folder.Path() + "Game/DATA");
    folder.Make("Game/DATA/Vtr.tm", "");
    const std::string real = folder.Path() + "Game/DATA/Vtr.tm";
    EXPECT_EQ(PathOnDisk(folder.Path() + "gAME/data/VTR.TM"), real);
    EXPECT_EQ(PathOnDisk(folder.Path() + "GAME\\data\\vtr.TM"), real);
    EXPECT_EQ(PathOnDisk(folder.Path() + "Game\\DATA\\Vtr.tm"), real);
    EXPECT_EQ(PathOnDisk(folder.Path() + "game/../GAME/./data/vtr.tm"),
              folder.Path() + "Game/../Game/./DATA/Vtr.tm");
    EXPECT_EQ(PathOnDisk(folder.Path() + "game\\data\\"), folder.Path() + "Game/DATA/");
}

TEST(Paths, OfSeveralNamesThatDifferInCaseOnlyTakeTheFirstByItsBytes) {
    const TemporaryFolder folder;
    for (const char *name : {"a.dat", "A.dat", "A.DAt"})
        folder.Make(name, "");
    EXPECT_EQ(PathOnDisk(folder.Path() + "A.DAT"), folder.Path() + "A.DAt");
}

TEST(Paths, KeepTheNameAskedForOfWhatDoesNotExist) {
    const TemporaryFolder folder;
    fs::create_directory(folder.Path() + "Maps");
    EXPECT_EQ(PathOnDisk(folder.Path() + "maps\\New.bmp"), folder.Path() + "Maps/New.bmp");
    EXPECT_EQ(PathOnDisk(folder.Path() + "none\\sub\\New.bmp"), folder.Path() + "none/sub/New.bmp");
    EXPECT_EQ(PathOnDisk(""), "");
}

TEST(Paths, FindALinkThatPointsNowhere) {
    const TemporaryFolder folder;
    fs::create_symlink("gone", folder.Path() + "Link.dat");
    EXPECT_EQ(PathOnDisk(folder.Path() + "link.DAT"), folder.Path() + "Link.dat");
}

TEST(Paths, WithoutAFolderAreSoughtInTheCurrentOne) {
    const TemporaryFolder folder;
    folder.Make("Map.BMP", "");
    const fs::path before = fs::current_path();
    fs::current_path(folder.Path());
    EXPECT_EQ(PathOnDisk("map.bmp"), "Map.BMP");
    fs::current_path(before);
}

TEST(Paths, HoldNamesBeyondAscii) {
    const TemporaryFolder folder;
    folder.Make("Müller.prj", "");
    EXPECT_EQ(PathOnDisk(folder.Path() + "mÜLLER.PRJ"), folder.Path() + "mÜLLER.PRJ");
    EXPECT_EQ(PathOnDisk(folder.Path() + "MüLLER.PRJ"), folder.Path() + "Müller.prj");
    EXPECT_EQ(PathText(FilesystemPath("Müller/ä.prj")), "Müller/ä.prj");
}

TEST(Paths, FollowLinksToTheirEndFromTheFolderEachLiesIn) {
    const TemporaryFolder folder;
    fs::create_directory(folder.Path() + "sub");
    fs::create_symlink("sub/second", folder.Path() + "first");
    fs::create_symlink("third", folder.Path() + "sub/second");
    EXPECT_EQ(FollowLinks(folder.Path() + "first"), folder.Path() + "sub/third");
    EXPECT_EQ(FollowLinks(folder.Path() + "none"), folder.Path() + "none");
}

TEST(Paths, TheProgramsFolderHoldsTheProgram) {
    const std::string folder = ProgramFolder();
    EXPECT_EQ(folder.back(), '/');
    EXPECT_TRUE(fs::exists(folder + "base_tests")) << folder;
}

/// A variable of the environment that has its old value back in the end.
class Variable {
  public:
    Variable(const char *name, const char *value) : name_(name) {
        if (const char *old = std::getenv(name))
            before_ = old;
        Set(value);
    }
    Variable(const Variable &) = delete;
    Variable &operator=(const Variable &) = delete;
    ~Variable() { Set(before_.empty() ? nullptr : before_.c_str()); }

  private:
    void Set(const char *value) const {
        if (value != nullptr)
            setenv(name_, value, 1);
        else
            unsetenv(name_);
    }

    const char *name_;
    std::string before_;
};

// The rules of the XDG Base Directory document: a relative path in the variable counts for nothing.
TEST(Paths, TheUsersConfigurationFolderFollowsTheEnvironment) {
    const Variable home("HOME", "/home/ann");
    {
        const Variable config("XDG_CONFIG_HOME", "/conf");
        EXPECT_EQ(UserConfigFolder(), "/conf/vtr-target-editor/");
    }
    for (const char *unusable : {"", "relative", static_cast<const char *>(nullptr)}) {
        const Variable config("XDG_CONFIG_HOME", unusable);
        EXPECT_EQ(UserConfigFolder(), "/home/ann/.config/vtr-target-editor/");
    }
}

TEST(Paths, SoDoesTheUsersDataFolder) {
    const Variable home("HOME", "/home/ann");
    {
        const Variable data("XDG_DATA_HOME", "/data");
        EXPECT_EQ(UserDataFolder(), "/data/vtr-target-editor/");
    }
    for (const char *unusable : {"", "relative", static_cast<const char *>(nullptr)}) {
        const Variable data("XDG_DATA_HOME", unusable);
        EXPECT_EQ(UserDataFolder(), "/home/ann/.local/share/vtr-target-editor/");
    }
}

TEST(Paths, AFileExistsInAnyLetterCaseAndWhereItsLinkLeadsToSomething) {
    const TemporaryFolder folder;
    folder.Make("TARGET.DAT", "");
    fs::create_symlink("TARGET.DAT", folder.Path() + "link");
    fs::create_symlink("nowhere", folder.Path() + "broken");
    EXPECT_TRUE(FileExists(folder.Path() + "TARGET.DAT"));
    EXPECT_TRUE(FileExists(folder.Path() + "target.dat"));
    EXPECT_TRUE(FileExists(folder.Path()));
    EXPECT_TRUE(FileExists(folder.Path() + "link"));
    EXPECT_FALSE(FileExists(folder.Path() + "broken"));
    EXPECT_FALSE(FileExists(folder.Path() + "other.dat"));
    EXPECT_FALSE(FileExists(folder.Path() + "TARGET.DAT/inside"));
    EXPECT_FALSE(FileExists(""));
}

TEST(Paths, AFileThatMayNotBeLookedAtCountsAsThereAndNothingIsThrown) {
    const TemporaryFolder folder;
    fs::permissions(folder.Path(), fs::perms(0755));
    fs::create_directory(folder.Path() + "closed");
    folder.Make("closed/a.dat", "");
    fs::permissions(folder.Path() + "closed", fs::perms(0));
    const OrdinaryUser user;
    EXPECT_TRUE(FileExists(folder.Path() + "closed/a.dat"));
}

TEST(Paths, AreCleanedOfDotsAndDoubledSeparators) {
    const TemporaryFolder folder;
    fs::create_directories(folder.Path() + "Maps/North");
    const std::string &start = folder.Path();
    EXPECT_EQ(CleanAbsolutePath(start + "Maps/../x.prj"), start + "x.prj");
    EXPECT_EQ(CleanAbsolutePath(start + "Maps/North/../../x.prj"), start + "x.prj");
    EXPECT_EQ(CleanAbsolutePath(start + "./Maps//North/.//x.prj"), start + "Maps/North/x.prj");
    EXPECT_EQ(CleanAbsolutePath(start + "mAPS\\..\\x.prj"), start + "x.prj");
    EXPECT_EQ(CleanAbsolutePath("//.././x.prj"), "/x.prj");
    EXPECT_EQ(CleanAbsolutePath(start + "Maps//"), start + "Maps/");
    EXPECT_EQ(CleanAbsolutePath(start + "Maps/.."), start + "Maps/..") << "the last part is the file's name";
}

TEST(Paths, KeepTheWayBackWhereTheFormsNeedNotNameTheSameFile) {
    const TemporaryFolder folder;
    const TemporaryFolder elsewhere;
    fs::create_directory(elsewhere.Path() + "real");
    fs::create_directory_symlink(elsewhere.Path() + "real", folder.Path() + "link");
    folder.Make("file", "");
    for (const char *const path : {"link/../x.prj", "link/../../x.prj", "none/../x.prj", "file/../x.prj"})
        EXPECT_EQ(CleanAbsolutePath(folder.Path() + path), folder.Path() + path);
}

TEST(Paths, AreAbsoluteWithALeadingSeparatorOfEitherKind) {
    EXPECT_EQ(CleanAbsolutePath("/tmp/x.prj"), "/tmp/x.prj");
    EXPECT_EQ(CleanAbsolutePath("\\tmp\\x.prj"), "\\tmp\\x.prj");
    EXPECT_EQ(CleanAbsolutePath("maps\\x.prj"), (fs::current_path() / "maps\\x.prj").string());
    EXPECT_EQ(CleanAbsolutePath("../x.prj"), (fs::current_path().parent_path() / "x.prj").string());
}

TEST(Paths, AFolderIsWritableWhenTheUserMayMakeFilesInIt) {
    const TemporaryFolder folder;
    fs::permissions(folder.Path(), fs::perms(0755));
    fs::create_directory(folder.Path() + "sub");
    OrdinaryUser::Give(folder.Path() + "sub");
    folder.Make("file", "");
    const OrdinaryUser user;
    EXPECT_TRUE(FolderIsWritable(folder.Path() + "sub/"));
    fs::permissions(folder.Path() + "sub", fs::perms(0555));
    EXPECT_FALSE(FolderIsWritable(folder.Path() + "sub/"));
    fs::permissions(folder.Path() + "sub", fs::perms(0755));
    EXPECT_FALSE(FolderIsWritable(folder.Path() + "file"));
    EXPECT_FALSE(FolderIsWritable(folder.Path() + "none/"));
}

}  // namespace
}  // namespace vtr
