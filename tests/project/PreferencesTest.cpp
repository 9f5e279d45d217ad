#include <gmock/gmock.h>

#include <string_view>

#include "BytesOf.h"
#include "ErrorThrownBy.h"
#include "Errors.h"
#include "Preferences.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

PreferencesRead Decode(std::string_view text) {
    return DecodePreferences(BytesOf(text));
}

std::string Encode(const Preferences &preferences) {
    const Bytes bytes = EncodePreferences(preferences);
    return {bytes.begin(), bytes.end()};
}

constexpr std::string_view wholeFile =
    "FRONTLINECOLOUR= 255\r\n"
    "RAILWAYCOLOUR= 0\r\n"
    "ROADINTCOLOUR=-5\r\n"
    "RAILINTCOLOUR= 16777215\r\n"
    "TARGETCOLOUR= 65535\r\n"
    "AIRFIELDCOLOUR= 1\r\n"
    "LASTPROJECT1=North front\r\n"
    "LASTFILE1=C:\\maps\\north.prj\r\n"
    "LASTPROJECT2= a=b \r\n"
    "LASTFILE2=/maps/a=b.prj\r\n"
    "LASTPROJECT3=\r\n"
    "LASTFILE3=\r\n"
    "LASTPROJECT4=M\xFCnchen\r\n"
    "LASTFILE4=x\r\n"
    "FLASHTARGET=1\r\n";

TEST(Preferences, AFileWhoseOnlyLineIsFlashTarget1LeavesEveryColourBlackAndTheRecentListEmpty) {
    Preferences expected;
    expected.FlashTarget = 1;
    const PreferencesRead read = Decode("FLASHTARGET=1\r\n");
    EXPECT_EQ(read.preferences, expected);
    EXPECT_TRUE(read.badLines.empty());
}

TEST(Preferences, EveryLineGoesIntoItsValue) {
    const Preferences read = Decode(wholeFile).preferences;
    EXPECT_EQ(read.FrontlineColour, 255);
    EXPECT_EQ(read.RailwayColour, 0);
    EXPECT_EQ(read.RoadIntColour, -5);
    EXPECT_EQ(read.RailIntColour, 16777215);
    EXPECT_EQ(read.TargetColour, 65535);
    EXPECT_EQ(read.AirfieldColour, 1);
    EXPECT_EQ(read.FlashTarget, 1);
    EXPECT_THAT(read.RecentProjectNames, ElementsAre("North front", " a=b ", "", "M\xFCnchen"));
    EXPECT_THAT(read.RecentProjectFiles, ElementsAre("C:\\maps\\north.prj", "/maps/a=b.prj", "", "x"));
    EXPECT_EQ(read.TopEntryName, "North front");
}

TEST(Preferences, WritingAfterNoChangeReproducesTheFixedOrderWhateverOrderAndCaseWereRead) {
    EXPECT_EQ(Encode(Decode(wholeFile).preferences), wholeFile);
    const PreferencesRead shuffled = Decode(
        "flashTarget= 1\n"
        "LastFile4=x\n"
        "lastproject4=M\xFCnchen\n"
        "AirfieldColour=1\n"
        "something=else\n"
        "lastfile2=/maps/a=b.prj\n"
        "LASTPROJECT2= a=b \n"
        "LastProject1=North front\n"
        "lastFILE1=C:\\maps\\north.prj\n"
        "targetcolour=   65535\n"
        "RAILINTCOLOUR=16777215\n"
        "ROADINTCOLOUR= -5\n"
        "FRONTLINECOLOUR=255");
    EXPECT_TRUE(shuffled.badLines.empty());
    EXPECT_EQ(Encode(shuffled.preferences), wholeFile);
}

TEST(Preferences, LaterLinesWinAndUnknownKeysAndKeysWithBlanksCountForNothing) {
    const PreferencesRead read = Decode(
        "TARGETCOLOUR= 1\r\ntargetcolour= 2\r\nTARGETCOLOUR =3\r\n TARGETCOLOUR=4\r\nNOSUCHKEY=5\r\n=6\r\n");
    EXPECT_EQ(read.preferences.TargetColour, 2);
    EXPECT_TRUE(read.badLines.empty());
}

TEST(Preferences, ColoursAreRoundedDownAndTheFlashSwitchToTheNearestEvenOne) {
    const auto colour = [](const std::string &value) {
        return Decode("RAILWAYCOLOUR=" + value).preferences.RailwayColour;
    };
    EXPECT_EQ(colour("  12.99"), 12);
    EXPECT_EQ(colour("-0.5"), -1);
    EXPECT_EQ(colour("2147483647.9"), 2147483647);
    const auto flash = [](const std::string &value) {
        return Decode("FLASHTARGET=" + value).preferences.FlashTarget;
    };
    EXPECT_EQ(flash("0.5"), 0);
    EXPECT_EQ(flash("1.5"), 2);
    EXPECT_EQ(flash(" 0.75"), 1);
    EXPECT_EQ(flash("-1"), -1);
}

TEST(Preferences, BadLinesArePassedOverAndListedWhileTheGoodOnesHold) {
    const PreferencesRead read = Decode(
        "TARGETCOLOUR= 7\r\n"
        "no equals sign\r\n"
        "\r\n"
        "TARGETCOLOUR=red\r\n"
        "AIRFIELDCOLOUR=\r\n"
        "RAILWAYCOLOUR= 2147483648\r\n"
        "FLASHTARGET=yes\r\n"
        "RAILINTCOLOUR= 8\r\n");
    Preferences expected;
    expected.TargetColour = 7;
    expected.RailIntColour = 8;
    EXPECT_EQ(read.preferences, expected);
    const std::string pair = "a key, \"=\" and a value";
    const std::string number = "a decimal number of 32 bits";
    EXPECT_THAT(read.badLines,
                ElementsAre(BadPreferencesLine{2, "no equals sign", pair, "no \"=\""},
                            BadPreferencesLine{3, "", pair, "no \"=\""},
                            BadPreferencesLine{4, "TARGETCOLOUR=red", number, "\"red\""},
                            BadPreferencesLine{5, "AIRFIELDCOLOUR=", number, "\"\""},
                            BadPreferencesLine{6, "RAILWAYCOLOUR= 2147483648", number, "\" 2147483648\""},
                            BadPreferencesLine{7, "FLASHTARGET=yes", number, "\"yes\""}));
}

/// A program's folder and a user's folder, both ending in a separator; the user's does not exist yet.
struct Folders {
    Folders() {
        fs::create_directory(folder.Path() + "program");
        program = folder.Path() + "program/";
        user = folder.Path() + "user/vtr/";
    }
    TemporaryFolder folder;
    std::string program;
    std::string user;
};

TEST(Preferences, LieInTheProgramsFolder) {
    const Folders folders;
    const PreferencesPaths paths = FindPreferences(folders.program, folders.user);
    EXPECT_EQ(paths.readFrom, folders.program + "prefs.cfg");
    EXPECT_EQ(paths.writeTo, folders.program + "prefs.cfg");
}

// A folder that does not exist cannot be written to either, by an administrator least of all.
TEST(Preferences, LieInTheUsersFolderWhereTheProgramsCannotBeWrittenTo) {
    const Folders folders;
    const std::string locked = folders.folder.Path() + "none/";
    PreferencesPaths paths = FindPreferences(locked, folders.user);
    EXPECT_EQ(paths.readFrom, locked + "prefs.cfg");
    EXPECT_EQ(paths.writeTo, folders.user + "prefs.cfg");

    Preferences changed = ReadPreferences(paths).preferences;
    EXPECT_EQ(changed, ShippedPreferences());
    changed.TargetColour = 5;
    WritePreferences(paths, changed);
    EXPECT_EQ(folders.folder.Content("user/vtr/prefs.cfg"), Encode(changed));

    paths = FindPreferences(locked, folders.user);
    EXPECT_EQ(paths.readFrom, folders.user + "prefs.cfg");
    EXPECT_EQ(ReadPreferences(paths).preferences, changed);
}

TEST(Preferences, AreTheShippedOnesWithoutAFileAndAreWrittenAtClose) {
    const Folders folders;
    const PreferencesPaths paths = FindPreferences(folders.program, folders.user);
    const PreferencesRead read = ReadPreferences(paths);
    EXPECT_EQ(read.preferences, ShippedPreferences());
    EXPECT_TRUE(read.badLines.empty());
    EXPECT_EQ(read.keptAs, "");
    WritePreferences(paths, read.preferences);
    EXPECT_EQ(folders.folder.Content("program/prefs.cfg"), Encode(ShippedPreferences()));
}

TEST(Preferences, AFileWithBadLinesIsKeptAsPrefsCfgBad) {
    const Folders folders;
    const std::string bad = "TARGETCOLOUR=red\r\nAIRFIELDCOLOUR= 9\r\n";
    folders.folder.Make("program/PREFS.CFG", bad);
    folders.folder.Make("program/prefs.cfg.bad", "an older one, and longer than the one that comes now");
    const PreferencesPaths paths = FindPreferences(folders.program, folders.user);
    const PreferencesRead read = ReadPreferences(paths);
    EXPECT_EQ(read.preferences.AirfieldColour, 9);
    EXPECT_EQ(read.badLines.size(), 1U);
    EXPECT_EQ(read.keptAs, folders.program + "prefs.cfg.bad");
    EXPECT_EQ(folders.folder.Content("program/prefs.cfg.bad"), bad);
    EXPECT_EQ(folders.folder.Content("program/PREFS.CFG"), bad);
}

TEST(Preferences, ThatCannotBeKeptSayNotThatTheyWere) {
    const Folders folders;
    folders.folder.Make("program/prefs.cfg", "bad");
    fs::create_directory(folders.program + "prefs.cfg.bad");
    const PreferencesRead read = ReadPreferences(FindPreferences(folders.program, folders.user));
    EXPECT_EQ(read.badLines.size(), 1U);
    EXPECT_EQ(read.keptAs, "");
}

TEST(Preferences, AFailureToReadOrWriteThemIsThrown) {
    const Folders folders;
    fs::create_directory(folders.program + "prefs.cfg");
    const PreferencesPaths paths = FindPreferences(folders.program, folders.user);
    EXPECT_THROW(ReadPreferences(paths), Error);
    EXPECT_THROW(WritePreferences(paths, {}), Error);
    folders.folder.Make("file", "");
    const std::string inFile = folders.folder.Path() + "file/sub/prefs.cfg";
    EXPECT_THROW(WritePreferences({inFile, inFile}, {}), Error);
}

TEST(Preferences, AboveOneMiBAreAnErrorOfTheFile) {
    const TemporaryFolder folder;
    const std::string path = folder.Make("prefs.cfg", wholeFile);
    fs::resize_file(path, (1 << 20) + 1);
    EXPECT_EQ(KindThrownBy([&path] { ReadPreferences({path, path}); }), ErrorKind::FileTooLarge);
}

TEST(Preferences, ThatAreNotReadAreMovedOutOfTheWayOfTheNewOnes) {
    const Folders folders;
    folders.folder.Make("program/PREFS.CFG", wholeFile);
    folders.folder.Make("program/prefs.cfg.bad", "an older one");
    EXPECT_EQ(KeepUnreadPreferences(FindPreferences(folders.program, folders.user)),
              folders.program + "prefs.cfg.bad");
    EXPECT_EQ(folders.folder.Content("program/prefs.cfg.bad"), wholeFile);
    EXPECT_FALSE(fs::exists(folders.program + "PREFS.CFG"));
    // Nothing is there any more.
    EXPECT_EQ(KeepUnreadPreferences(FindPreferences(folders.program, folders.user)), "");
    // What is not written over stays where it is.
    folders.folder.Make("program/prefs.cfg", wholeFile);
    EXPECT_EQ(KeepUnreadPreferences({folders.program + "prefs.cfg", folders.user + "prefs.cfg"}), "");
    EXPECT_EQ(folders.folder.Content("program/prefs.cfg"), wholeFile);
}

TEST(RecentProjects, ProjectsAThenBThenAGiveABA) {
    Preferences preferences;
    UpdateRecentProjects(preferences, "A", "/a.prj");
    UpdateRecentProjects(preferences, "B", "/b.prj");
    UpdateRecentProjects(preferences, "A", "/a.prj");
    EXPECT_THAT(preferences.RecentProjectNames, ElementsAre("A", "B", "A", ""));
    EXPECT_THAT(preferences.RecentProjectFiles, ElementsAre("/a.prj", "/b.prj", "/a.prj", ""));
    EXPECT_EQ(preferences.TopEntryName, "A");
}

TEST(RecentProjects, TheSameProjectTwiceInARowLeavesTheList) {
    Preferences preferences = Decode(wholeFile).preferences;
    const Preferences before = preferences;
    UpdateRecentProjects(preferences, "North front", "C:\\maps\\north.prj");
    EXPECT_EQ(preferences, before);
}

TEST(RecentProjects, AnotherProjectOfTheSameNameAsTheFirstEntryLeavesItsOldFile) {
    Preferences preferences;
    UpdateRecentProjects(preferences, "A", "/old.prj");
    UpdateRecentProjects(preferences, "A", "/new.prj");
    EXPECT_THAT(preferences.RecentProjectFiles, ElementsAre("/old.prj", "", "", ""));
}

TEST(RecentProjects, TheFifthDropsTheOldest) {
    Preferences preferences;
    for (const char *name : {"A", "B", "C", "D", "E"})
        UpdateRecentProjects(preferences, name, std::string("/") + name);
    EXPECT_THAT(preferences.RecentProjectNames, ElementsAre("E", "D", "C", "B"));
    EXPECT_THAT(preferences.RecentProjectFiles, ElementsAre("/E", "/D", "/C", "/B"));
}

// The first entry was never shown before it has had a name, so a project without a name is no duplicate of
// it: its file is recorded, but no entry shows it.
TEST(RecentProjects, AProjectWithoutANameIsRecordedUnderAHiddenEntry) {
    Preferences preferences;
    UpdateRecentProjects(preferences, "", "/nameless.prj");
    EXPECT_THAT(preferences.RecentProjectNames, ElementsAre("", "", "", ""));
    EXPECT_THAT(preferences.RecentProjectFiles, ElementsAre("/nameless.prj", "", "", ""));
    EXPECT_EQ(preferences.TopEntryName, "");
}

// The name last shown decides, and a hidden entry still has its old one.
TEST(RecentProjects, AfterANamelessProjectTheOneBeforeItIsStillTakenForTheFirstEntry) {
    Preferences preferences;
    UpdateRecentProjects(preferences, "A", "/a.prj");
    UpdateRecentProjects(preferences, "", "/nameless.prj");
    UpdateRecentProjects(preferences, "A", "/a.prj");
    EXPECT_THAT(preferences.RecentProjectFiles, ElementsAre("/nameless.prj", "/a.prj", "", ""));
    EXPECT_EQ(preferences.TopEntryName, "A");
}

}  // namespace
}  // namespace vtr
