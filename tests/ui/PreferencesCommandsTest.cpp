#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QSlider>

#include "EditorWindow.h"
#include "MapSurface.h"
#include "PreferencesCommands.h"

namespace vtr {
namespace {

using testing::Contains;

const std::string shipped =
    "FRONTLINECOLOUR= 8447\r\n"
    "RAILWAYCOLOUR= 4194304\r\n"
    "ROADINTCOLOUR= 14680064\r\n"
    "RAILINTCOLOUR= 8454032\r\n"
    "TARGETCOLOUR= 16740607\r\n"
    "AIRFIELDCOLOUR= 4160\r\n"
    "LASTPROJECT1=\r\nLASTFILE1=\r\n"
    "LASTPROJECT2=\r\nLASTFILE2=\r\n"
    "LASTPROJECT3=\r\nLASTFILE3=\r\n"
    "LASTPROJECT4=\r\nLASTFILE4=\r\n"
    "FLASHTARGET=1\r\n";

const std::string allSet =
    "FRONTLINECOLOUR= 1\r\n"
    "RAILWAYCOLOUR= 515\r\n"
    "ROADINTCOLOUR= 0\r\n"
    "RAILINTCOLOUR=-7\r\n"
    "TARGETCOLOUR= 16777215\r\n"
    "AIRFIELDCOLOUR= 66051\r\n"
    "LASTPROJECT1=North front\r\nLASTFILE1=C:\\north\\n.prj\r\n"
    "LASTPROJECT2=b\r\nLASTFILE2=/b.prj\r\n"
    "LASTPROJECT3=c=d\r\nLASTFILE3=/c.prj\r\n"
    "LASTPROJECT4=e\r\nLASTFILE4=/e.prj\r\n"
    "FLASHTARGET=0\r\n";

class PreferencesCommandsTest : public EditorWindow {
  protected:
    std::string OnDisk() { return folder.Content("program/prefs.cfg"); }
    bool IsOnDisk(const char *name) { return std::filesystem::exists(folder.Path() + "program/" + name); }
    std::string FileName() { return folder.Path() + "program/prefs.cfg"; }
    /// A folder that stands where the file should be, and that nothing can replace.
    void PutAFolderInItsPlace() {
        std::filesystem::remove(FileName());
        std::filesystem::create_directory(FileName());
        folder.Make("program/prefs.cfg/keep", "");
    }
    void Start() { window().Start(QString()); }
    /// Changes a colour and the flash switch in the preferences dialog and presses its button.
    void EditPreferences(const char *button) {
        WhenModalOpens([button](QWidget &dialog) {
            Find<QSlider>(dialog, QStringLiteral("sld_frnt(0)")).setValue(9);
            Find<QSlider>(dialog, QStringLiteral("sld_frnt(1)")).setValue(8);
            Find<QSlider>(dialog, QStringLiteral("sld_frnt(2)")).setValue(7);
            Find<QCheckBox>(dialog, QStringLiteral("chk_targetflash")).setChecked(false);
            Press<QPushButton>(dialog, QLatin1String(button));
        });
        Entry("mnu_p_prefs").trigger();
    }
};

TEST_F(PreferencesCommandsTest, AStartWithoutTheFileWritesTheShippedValuesAtClose) {
    Start();
    EXPECT_EQ(session->preferences, ShippedPreferences());
    EXPECT_FALSE(IsOnDisk("prefs.cfg"));
    window().close();
    EXPECT_EQ(OnDisk(), shipped);
}

TEST_F(PreferencesCommandsTest, ExitWritesThem) {
    Start();
    Entry("mnu_p_exit").trigger();
    EXPECT_FALSE(window().isVisible());
    EXPECT_EQ(OnDisk(), shipped);
}

TEST_F(PreferencesCommandsTest, WhatWasReadIsWrittenAgainInItsOrder) {
    // The same values, the last line first and its key in small letters.
    const std::string shuffled = "flashtarget=0\r\n" + allSet.substr(0, allSet.find("FLASHTARGET"));
    folder.Make("program/prefs.cfg", shuffled);
    Start();
    EXPECT_EQ(session->preferences.RailIntColour, -7);
    window().close();
    EXPECT_EQ(OnDisk(), allSet);
}

TEST_F(PreferencesCommandsTest, BadLinesAreListedInOneMessageAndTheFileIsKept) {
    const std::string damaged =
        "RAILWAYCOLOUR= "
        "515\r\nnonsense\r\nTARGETCOLOUR=red\r\nROADINTCOLOUR=99999999999\r\nFLASHTARGET=1\r\n";
    folder.Make("program/prefs.cfg", damaged);
    const ShownBox box = BoxShownBy([this] { Start(); });
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(box.icon, QMessageBox::Warning);
    EXPECT_EQ(box.title, "VTR Target Editor");
    for (const char *line :
         {"Line 2: nonsense", "Line 3: TARGETCOLOUR=red", "Line 4: ROADINTCOLOUR=99999999999"})
        EXPECT_TRUE(box.text.contains(QLatin1String(line))) << box.text.toStdString();
    EXPECT_FALSE(box.text.contains(QLatin1String("Line 1:")));
    EXPECT_FALSE(box.text.contains(QLatin1String("Line 5:")));
    EXPECT_TRUE(box.text.contains(QString::fromStdString(FileName() + ".bad")));
    EXPECT_EQ(session->preferences.RailwayColour, 515);
    EXPECT_EQ(session->preferences.FlashTarget, 1);
    EXPECT_EQ(session->preferences.TargetColour, 0);
    EXPECT_EQ(folder.Content("program/prefs.cfg.bad"), damaged);
    window().close();
    EXPECT_EQ(folder.Content("program/prefs.cfg.bad"), damaged);
    EXPECT_EQ(OnDisk().find("nonsense"), std::string::npos);
}

TEST_F(PreferencesCommandsTest, OfAVeryDeepFolderOnlyTheBeginningIsShown) {
    session->programFolder = folder.MakeDeep();
    const std::string file = session->programFolder + "prefs.cfg";
    std::ofstream(file) << "nonsense\r\n";
    const ShownBox badLine = BoxShownBy([this] { Start(); });
    EXPECT_TRUE(badLine.text.contains("mmm...\" could not be read")) << badLine.text.toStdString();
    EXPECT_TRUE(badLine.text.endsWith("mmm...\"."));
    EXPECT_LT(badLine.text.size(), 1500);
    EndAndMakeAnew();
    std::filesystem::resize_file(file, 2U << 20);
    const ShownBox tooLarge = BoxShownBy([this] { Start(); });
    EXPECT_TRUE(tooLarge.text.endsWith("mmm...\".")) << tooLarge.text.toStdString();
    EXPECT_LT(tooLarge.text.size(), 1500);
}

TEST_F(PreferencesCommandsTest, GoodLinesGiveNoMessageAndNoCopy) {
    folder.Make("program/prefs.cfg", allSet);
    Start();
    EXPECT_FALSE(IsOnDisk("prefs.cfg.bad"));
}

TEST_F(PreferencesCommandsTest, AFileThatCannotBeReadStartsWithTheShippedValuesAndOneMessage) {
    PutAFolderInItsPlace();
    const ShownBox box = BoxShownBy([this] { Start(); });
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(box.icon, QMessageBox::Warning);
    EXPECT_TRUE(box.text.startsWith(QLatin1String("Reading the preferences failed.")))
        << box.text.toStdString();
    EXPECT_TRUE(box.text.contains(QString::fromStdString(FileName())));
    EXPECT_EQ(session->preferences, ShippedPreferences());
}

TEST_F(PreferencesCommandsTest, AFileThatIsTooLargeIsKeptAndTheProgramStartsWithTheShippedValues) {
    folder.Make("program/prefs.cfg", allSet);
    std::filesystem::resize_file(FileName(), std::uintmax_t{4} << 30);
    const ShownBox box = BoxShownBy([this] { Start(); });
    EXPECT_EQ(box.icon, QMessageBox::Warning);
    EXPECT_TRUE(box.text.startsWith(QLatin1String("Reading the preferences failed.")));
    EXPECT_TRUE(box.text.endsWith(
        QStringLiteral("The file is kept as \"%1.bad\".").arg(QString::fromStdString(FileName()))))
        << box.text.toStdString();
    EXPECT_EQ(session->preferences, ShippedPreferences());
    window().close();
    EXPECT_EQ(OnDisk(), shipped);
    EXPECT_EQ(std::filesystem::file_size(FileName() + ".bad"), std::uintmax_t{4} << 30);
}

TEST_F(PreferencesCommandsTest, AFailureToWriteThemIsShownAndTheWindowClosesAllTheSame) {
    Start();
    PutAFolderInItsPlace();
    const ShownBox box = BoxShownBy([this] { window().close(); });
    EXPECT_EQ(box.icon, QMessageBox::Warning);
    EXPECT_TRUE(box.text.startsWith(QLatin1String("Saving the preferences failed.")))
        << box.text.toStdString();
    EXPECT_TRUE(box.text.contains(QString::fromStdString(FileName())));
    EXPECT_FALSE(window().isVisible());
    EXPECT_TRUE(std::filesystem::exists(FileName() + "/keep"));
}

TEST_F(PreferencesCommandsTest, ColoursSwitchAndRecentProjectsAreThereAtTheNextStart) {
    folder.Make("program/prefs.cfg", allSet);
    StartWithSample();
    EditPreferences("cmd_OK");
    window().close();

    Session next;
    next.programFolder = session->programFolder;
    frm_main editor(next);
    editor.Start(QString());
    EXPECT_EQ(next.preferences.FrontlineColour, 9 + 256 * 8 + 65536 * 7);
    EXPECT_EQ(next.preferences.FlashTarget, 0);
    EXPECT_EQ(next.preferences.RecentProjectNames,
              (std::array<std::string, 4>{"Yaxel Sound", "North front", "b", "c=d"}));
    EXPECT_EQ(next.preferences.RecentProjectFiles,
              (std::array<std::string, 4>{SamplePath(), "C:\\north\\n.prj", "/b.prj", "/c.prj"}));
    const char *captions[] = {"&1 Yaxel Sound", "&2 North front", "&3 b", "&4 c=d"};
    for (int i = 0; i < 4; ++i) {
        const auto *entry = editor.findChild<QAction *>(QStringLiteral("mnu_p_last%1").arg(i + 1));
        EXPECT_EQ(entry->text(), captions[i]);
        EXPECT_TRUE(entry->isVisible());
    }
}

TEST_F(PreferencesCommandsTest, OKChangesTheValuesButNeitherTheMapNorTheFileUntilTheWindowCloses) {
    folder.Make("program/prefs.cfg", shipped);
    StartWithSample();
    auto &map = Find<MapSurface>(window(), QStringLiteral("Img_Map"));
    const auto pixels = map.Surface().pixels;
    const bool phase = session->view.TargetFlashPhase;
    EditPreferences("cmd_OK");
    QCoreApplication::processEvents();
    EXPECT_EQ(session->preferences.FrontlineColour, 9 + 256 * 8 + 65536 * 7);
    EXPECT_EQ(session->preferences.FlashTarget, 0);
    EXPECT_EQ(session->view.TargetFlashPhase, phase);
    EXPECT_EQ(map.Surface().pixels, pixels);
    EXPECT_EQ(OnDisk(), shipped);
    window().Redraw();
    EXPECT_THAT(map.Surface().pixels, Contains(0xFF090807U)) << "the next redraw has the new colour";
    window().close();
    EXPECT_THAT(OnDisk(), testing::StartsWith("FRONTLINECOLOUR= 460809\r\n"));
    EXPECT_THAT(OnDisk(), testing::EndsWith("FLASHTARGET=0\r\n"));
}

TEST_F(PreferencesCommandsTest, CancelChangesNothing) {
    folder.Make("program/prefs.cfg", allSet);
    Start();
    const Preferences before = session->preferences;
    EditPreferences("cmd_cancel");
    EXPECT_EQ(session->preferences, before);
    window().close();
    EXPECT_EQ(OnDisk(), allSet);
}

}  // namespace
}  // namespace vtr
