#include <gmock/gmock.h>

#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QProgressBar>

#include "BoundaryModule.h"
#include "EditorWindow.h"
#include "ProjectCommands.h"
#include "frm_save.h"

namespace vtr {
namespace {

class ProjectCommandsTest : public EditorWindow {
  protected:
    /// Types path into the file chooser that opens next, nothing cancels it; then does what is to be done
    /// before it closes.
    void ChooseNextFile(
        const QString &path, const std::function<void()> &then = [] {}) {
        WhenModalOpens([this, path, then](QWidget &opened) {
            auto *chooser = qobject_cast<QFileDialog *>(&opened);
            ASSERT_NE(chooser, nullptr);
            chooserTitle = chooser->windowTitle();
            chooserFilter = chooser->selectedNameFilter();
            then();
            if (path.isEmpty())
                return chooser->reject();
            auto *const name = chooser->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
            chooserName = name->text();
            name->setText(path);
            static_cast<QDialog *>(chooser)->accept();
        });
    }
    frm_save *SaveDialog() { return window().findChild<frm_save *>(); }
    QString Path(const char *name) const { return QString::fromStdString(folder.Path() + name); }
    void ExpectTarget100At(int x) { EXPECT_EQ(module->campaign.TargetTable[100].x, x); }

    QString chooserTitle;
    QString chooserFilter;
    QString chooserName;
};

TEST_F(ProjectCommandsTest, WithoutAProjectTheWindowSaysSoAndDisablesWhatNeedsOne) {
    window().Start(QString());
    EXPECT_EQ(window().windowTitle(), "VTR Target Editor");
    EXPECT_EQ(window().frameGeometry().size(), QSize(888, 742));
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(PanelText("project"), "  NO PROJECT LOADED");
    EXPECT_EQ(PanelText("curredit"), "  TARGETS  ");
    EXPECT_EQ(PanelText("zoom"), "100%");
    EXPECT_EQ(PanelText("xypos"), "(0, 0)");
    EXPECT_EQ(PanelText("version"), "VTR Target Editor v0.5");
    EXPECT_FALSE(Entry("mnu_p_export").isEnabled());
    EXPECT_FALSE(Find<QMenu>(window(), QStringLiteral("mnu_m_zoom")).isEnabled());
    EXPECT_FALSE(Find<QMenu>(window(), QStringLiteral("mnu_view")).isEnabled());
    EXPECT_FALSE(Find<QWidget>(window(), QStringLiteral("fra_control")).isEnabled());
    EXPECT_FALSE(Find<QWidget>(window(), QStringLiteral("fra_target")).isEnabled());
}

TEST_F(ProjectCommandsTest, TheStatusPanelsHaveTheirToolTips) {
    EXPECT_EQ(Find<QToolButton>(window(), QStringLiteral("project")).toolTip(), "Project Name");
    EXPECT_EQ(Find<QToolButton>(window(), QStringLiteral("curredit")).toolTip(),
              "Currently Editing.  Click to toggle modes.");
    EXPECT_EQ(Find<QToolButton>(window(), QStringLiteral("zoom")).toolTip(), "Map Zoom");
    EXPECT_EQ(Find<QToolButton>(window(), QStringLiteral("xypos")).toolTip(), "Current X,Y Position");
}

TEST_F(ProjectCommandsTest, ACommandLineWithoutQuotesIsThePathAsItStandsBlanksIncluded) {
    WriteSample();
    std::filesystem::rename(SamplePath(), folder.Path() + "my campaign.prj");
    window().Start(Path("my campaign.prj"));
    EXPECT_EQ(module->campaign.paths.ProjectFile, "my campaign.prj");
    EXPECT_TRUE(module->campaign.ProjectLoaded);
}

TEST_F(ProjectCommandsTest, ACommandLineInDoubleQuotesIsThePathWithoutThem) {
    WriteSample();
    window().Start(QLatin1Char('"') + QString::fromStdString(SamplePath()) + QLatin1Char('"'));
    EXPECT_EQ(module->campaign.paths.ProjectFile, "sample.prj");
}

TEST_F(ProjectCommandsTest, ALoadedProjectIsNamedAndEnablesTheMenusAndFrames) {
    StartWithSample();
    EXPECT_EQ(PanelText("project"), "  " + QString::fromStdString(module->campaign.paths.Name) + "  ");
    EXPECT_TRUE(Entry("mnu_p_export").isEnabled());
    EXPECT_TRUE(Find<QMenu>(window(), QStringLiteral("mnu_m_zoom")).isEnabled());
    EXPECT_TRUE(Find<QMenu>(window(), QStringLiteral("mnu_view")).isEnabled());
    EXPECT_TRUE(Find<QWidget>(window(), QStringLiteral("fra_control")).isEnabled());
    EXPECT_TRUE(Find<QWidget>(window(), QStringLiteral("fra_target")).isEnabled());
    EXPECT_FALSE(Find<QWidget>(window(), QStringLiteral("frm_progress")).isVisible());
    EXPECT_EQ(module->view.MapZoom, 1);
    EXPECT_EQ(module->view.MapCenterX, 320);
    EXPECT_EQ(Number("upd_tar_code").value(), 0);
    EXPECT_EQ(Number("upd_view_railway").text(), "ALL");
    EXPECT_EQ(Number("upd_viewfrontline").text(), "0");
}

TEST_F(ProjectCommandsTest, LoadingAsksForAnExportOnlyWhenAProjectIsOpen) {
    WriteSample();
    window().Start(QString());
    ChooseNextFile(QString::fromStdString(SamplePath()));
    Entry("mnu_p_load").trigger();
    EXPECT_EQ(chooserTitle, "Load Project");
    EXPECT_EQ(chooserFilter, "Target Editor Projects (*.prj)");
    EXPECT_TRUE(module->campaign.ProjectLoaded);

    ShownBox question;
    AnswerNextBox(question, QMessageBox::Cancel);
    Entry("mnu_p_load").trigger();
    EXPECT_EQ(question.text, "Do you wish to export this project?");
    EXPECT_EQ(question.title, "VTR Target Editor");
    EXPECT_EQ(question.icon, QMessageBox::Question);
    EXPECT_EQ(question.buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    EXPECT_EQ(SaveDialog(), nullptr);
}

TEST_F(ProjectCommandsTest, TheChooserStillNamesTheFileThatWasLoadedWithItLast) {
    WriteSample();
    window().Start(QString());
    ChooseNextFile(QString::fromStdString(SamplePath()));
    Entry("mnu_p_load").trigger();
    EXPECT_EQ(chooserName, "");
    ShownBox question;
    AnswerNextBox(question, QMessageBox::No);
    WhenModalOpens([&](QWidget &) { ChooseNextFile(QString::fromStdString(SamplePath())); });
    Entry("mnu_p_load").trigger();
    EXPECT_EQ(chooserName, "sample.prj");
}

TEST_F(ProjectCommandsTest, CancelBeforeARecentProjectLoadsNothing) {
    StartWithSample();
    module->campaign.TargetTable[100].x = 7;
    ShownBox question;
    AnswerNextBox(question, QMessageBox::Cancel);
    Entry("mnu_p_last1").trigger();
    EXPECT_EQ(question.count, 1);
    ExpectTarget100At(7);
}

TEST_F(ProjectCommandsTest, ALoadFillsItsProgressBarAndSelectsTheFirstItemOfEveryKind) {
    StartWithSample();
    auto &bar = Find<QProgressBar>(window(), QStringLiteral("prg_load"));
    bar.setValue(7);
    const std::array<const char *, 8> selectors{"upd_tar_code",     "upd_frnt_num",  "upd_frnt_pointnum",
                                                "upd_rail_linenum", "upd_roi_num",   "upd_roi_wptnum",
                                                "upd_rai_num",      "upd_rai_wptnum"};
    for (const char *selector : selectors)
        Number(selector).SetNumber(5);
    window().Start(QString::fromStdString(SamplePath()));
    EXPECT_EQ(bar.value(), 100);
    EXPECT_EQ(bar.window()->windowTitle(), "Load Project...");
    for (const char *selector : selectors)
        EXPECT_EQ(Number(selector).value(), 0) << selector;
    EXPECT_EQ(Number("upd_tar_x").value(), module->campaign.TargetTable[0].x);
    EXPECT_EQ(Number("upd_frnt_x").value(), module->campaign.FrontlineTable[0].points[0].x);
    EXPECT_EQ(Number("upd_rail_x2").value(), module->campaign.RailwayTable[0].x2);
    EXPECT_EQ(Number("upd_roi_x").value(), module->campaign.RoadWaypointTable[0].waypoints[0].x);
    EXPECT_EQ(Number("upd_rai_x").value(), module->campaign.RailWaypointTable[0].waypoints[0].x);
}

TEST_F(ProjectCommandsTest, NoLineIsDisabledAfterALoadAlsoWhenTheRailwaysAreHidden) {
    StartWithSample();
    auto &disabled = Find<QLabel>(window(), QStringLiteral("lbl_disabled"));
    module->campaign.firstDisabledRailwayLine = 850;
    window().Redraw();
    ASSERT_EQ(disabled.text(), "Lines 850+ Disabled");
    Entry("mnu_v_railways").trigger();
    window().Start(QString::fromStdString(SamplePath()));
    EXPECT_EQ(module->campaign.firstDisabledRailwayLine, 0);
    EXPECT_EQ(disabled.text(), "No Lines disabled");
}

TEST_F(ProjectCommandsTest, YesBeforeLoadingShowsTheSaveDialogWithoutWaitingForIt) {
    StartWithSample();
    ShownBox question;
    WhenModalOpens([&](QWidget &box) {
        ChooseNextFile(QString());
        static_cast<QMessageBox &>(box).button(QMessageBox::Yes)->click();
    });
    Entry("mnu_p_load").trigger();
    EXPECT_EQ(chooserTitle, "Load Project") << "the chooser came although the save dialog is still open";
    ASSERT_NE(SaveDialog(), nullptr);
    EXPECT_TRUE(SaveDialog()->isVisible());
    EXPECT_FALSE(SaveDialog()->isModal());
}

TEST_F(ProjectCommandsTest, YesBeforeARecentProjectWaitsForTheSaveDialog) {
    StartWithSample();
    module->campaign.TargetTable[100].x = 7;
    bool wasModal = false;
    WhenModalOpens([&](QWidget &box) {
        WhenModalOpens([&](QWidget &dialog) {
            wasModal = dialog.objectName() == "frm_save";
            ExpectTarget100At(7);
            dialog.close();
        });
        static_cast<QMessageBox &>(box).button(QMessageBox::Yes)->click();
    });
    Entry("mnu_p_last1").trigger();
    EXPECT_TRUE(wasModal);
    EXPECT_NE(module->campaign.TargetTable[100].x, 7) << "loaded again after the dialog closed";
}

TEST_F(ProjectCommandsTest, AFolderAsProjectIsRefusedAndNothingChanges) {
    StartWithSample();
    const std::string name = module->campaign.paths.Name;
    ShownBox warning;
    AcceptNextBox(warning);
    window().Start(Path(""));
    EXPECT_EQ(warning.icon, QMessageBox::Warning);
    EXPECT_EQ(warning.title, "VTR Target Editor");
    EXPECT_THAT(warning.text.toStdString(), ::testing::HasSubstr("Loading the project failed."));
    EXPECT_THAT(warning.text.toStdString(), ::testing::HasSubstr("File: " + folder.Path()));
    EXPECT_THAT(warning.text.toStdString(),
                ::testing::HasSubstr("Expected: the path of a project file (*.prj)"));
    EXPECT_THAT(warning.text.toStdString(), ::testing::HasSubstr("Found: a folder"));
    EXPECT_EQ(module->campaign.paths.Name, name);
}

TEST_F(ProjectCommandsTest, AnEmptyPathInQuotesIsRefusedAndNothingChanges) {
    StartWithSample();
    const ProjectPaths &paths = module->campaign.paths;
    const std::string name = paths.Name;
    const std::string project = paths.ProjectDir + paths.ProjectFile;
    const auto recent = module->preferences.RecentProjectFiles;
    module->campaign.TargetTable[100].x = 7;
    for (const char *commandLine : {"\"\"", "\""}) {
        const ShownBox warning = BoxShownBy([&] { window().Start(QLatin1String(commandLine)); });
        EXPECT_EQ(warning.icon, QMessageBox::Warning);
        EXPECT_EQ(warning.title, "VTR Target Editor");
        EXPECT_EQ(warning.text,
                  "Loading the project failed.\n\nFile access failed.\n"
                  "Expected: the path of a project file (*.prj)\nFound: no path at all\n\n"
                  "Nothing was changed.");
        EXPECT_EQ(paths.Name, name);
        EXPECT_EQ(paths.ProjectDir + paths.ProjectFile, project);
        ExpectTarget100At(7);
        EXPECT_TRUE(window().isVisible());
        EXPECT_FALSE(Find<QWidget>(window(), QStringLiteral("frm_progress")).isVisible());
    }
}

TEST_F(ProjectCommandsTest, ARelativePathOnTheCommandLineIsRememberedWhole) {
    WriteSample();
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(Path("program")));
    window().Start(QStringLiteral("../sample.prj"));
    ASSERT_TRUE(QDir::setCurrent(before));
    EXPECT_TRUE(module->campaign.ProjectLoaded);
    const std::string &remembered = module->preferences.RecentProjectFiles[0];
    EXPECT_TRUE(QDir::isAbsolutePath(QString::fromStdString(remembered))) << remembered;
    EXPECT_TRUE(std::filesystem::equivalent(remembered, SamplePath())) << remembered;
}

TEST_F(ProjectCommandsTest, AMapOfNoneIsToldAndKeepsTheProjectBefore) {
    StartWithSample();
    const auto targets = module->campaign.TargetTable[5].x;
    folder.Make("none.prj", "Name=Nothing\r\nMap=NONE\r\n");
    ShownBox message;
    AcceptNextBox(message);
    window().Start(Path("none.prj"));
    EXPECT_EQ(message.text, "No Map specified. Cannot load project.");
    EXPECT_EQ(message.buttons, QMessageBox::Ok);
    EXPECT_EQ(PanelText("project"), "  Nothing  ");
    EXPECT_EQ(module->campaign.TargetTable[5].x, targets);
    EXPECT_FALSE(Find<QWidget>(window(), QStringLiteral("frm_progress")).isVisible());
}

TEST_F(ProjectCommandsTest, ShortFilesAreListedInOneMessage) {
    WriteSample();
    std::filesystem::resize_file(folder.Path() + "AIRFIELD.DAT", 100);
    ShownBox warning;
    AcceptNextBox(warning);
    window().Start(QString::fromStdString(SamplePath()));
    EXPECT_EQ(warning.count, 1);
    EXPECT_THAT(warning.text.toStdString(), ::testing::HasSubstr("AIRFIELD.DAT"));
    EXPECT_THAT(warning.text.toStdString(), ::testing::HasSubstr("found 100 bytes, expected 7132 bytes"));
    EXPECT_TRUE(module->campaign.ProjectLoaded);
}

class SaveTest : public ProjectCommandsTest {
  protected:
    void OpenSaveDialog() { Entry("mnu_p_export").trigger(); }
    void PressSave() { Press<QPushButton>(*SaveDialog(), QStringLiteral("cmd_save")); }
    bool DialogIsOpen() { return SaveDialog() != nullptr && SaveDialog()->isVisible(); }
};

TEST_F(SaveTest, ChosenTwiceTheCommandShowsOneDialog) {
    StartWithSample();
    OpenSaveDialog();
    const frm_save *const first = SaveDialog();
    OpenSaveDialog();
    EXPECT_EQ(window().findChildren<frm_save *>().size(), 1);
    EXPECT_EQ(SaveDialog(), first);
    EXPECT_TRUE(DialogIsOpen());
}

TEST_F(SaveTest, AMovedTargetIsInTheFileAfterASave) {
    StartWithSample();
    Number("upd_tar_code").SetNumber(100);
    Number("upd_tar_x").SetNumber(321);
    OpenSaveDialog();
    EXPECT_FALSE(SaveDialog()->isModal());
    Find<QCheckBox>(*SaveDialog(), QStringLiteral("chk_save(0)")).click();
    PressSave();
    EXPECT_FALSE(DialogIsOpen());
    const std::string bytes = folder.Content("TARGET.DAT");
    const auto byte = [&bytes](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
    // 4 * 321 - 640 = 644 = 2 * 256 + 132; the offset within the tile may add up to 3 quarters to the low
    // byte.
    EXPECT_EQ(byte(4 + 32 * 100 + 3), 2);
    EXPECT_EQ(byte(4 + 32 * 100 + 2) & ~3, 132);
}

TEST_F(SaveTest, AFailedSaveSaysWhatWasWrittenAndWhatNotAndStaysOpenWithAllEdits) {
    StartWithSample();
    Number("upd_tar_code").SetNumber(100);
    Number("upd_tar_x").SetNumber(321);
    std::filesystem::remove(folder.Path() + "TARNAMES.STR");
    std::filesystem::create_directory(folder.Path() + "TARNAMES.STR");
    OpenSaveDialog();
    Find<QCheckBox>(*SaveDialog(), QStringLiteral("chk_saveall")).click();
    ShownBox warning;
    AcceptNextBox(warning);
    PressSave();
    const std::string text = warning.text.toStdString();
    EXPECT_THAT(text, ::testing::HasSubstr("Saving the files failed."));
    EXPECT_THAT(text, ::testing::HasSubstr(folder.Path() + "TARNAMES.STR"));
    EXPECT_THAT(text, ::testing::HasSubstr("Written before it: TARGET.DAT."));
    EXPECT_THAT(text,
                ::testing::HasSubstr(
                    "Not written: TARNAMES.STR, GRIDDATA.DAT, FRNTLINE.DAT, AIRFIELD.DAT, VTR_RRD.DAT."));
    EXPECT_TRUE(DialogIsOpen());
    ExpectTarget100At(321);
}

TEST_F(SaveTest, ATargetThatFitsNoCellIsNamedAndTheDialogStays) {
    StartWithSample();
    module->campaign.TargetTable[7].y = 1759;
    const std::string before = folder.Content("GRIDDATA.DAT");
    OpenSaveDialog();
    Find<QCheckBox>(*SaveDialog(), QStringLiteral("chk_save(2)")).click();
    ShownBox message;
    AcceptNextBox(message);
    PressSave();
    EXPECT_EQ(
        message.text,
        "Failed to create GRIDDATA.DAT.  Target #7 did not fit.  Please try a different arrangement and try "
        "again.");
    EXPECT_EQ(message.title, "VTR Target Editor");
    EXPECT_EQ(folder.Content("GRIDDATA.DAT"), before);
    EXPECT_TRUE(DialogIsOpen());
}

TEST_F(SaveTest, ATargetThatFitsNoCellKeepsTheDialogOpenAlsoWhereTheProjectHasNoGridFile) {
    StartWithSample();
    module->campaign.TargetTable[7].y = 1759;
    module->campaign.paths.GridData.clear();
    OpenSaveDialog();
    Find<QCheckBox>(*SaveDialog(), QStringLiteral("chk_save(2)")).click();
    ShownBox message;
    AcceptNextBox(message);
    PressSave();
    EXPECT_THAT(message.text.toStdString(), ::testing::HasSubstr("Target #7 did not fit."));
    EXPECT_TRUE(DialogIsOpen());
}

TEST_F(SaveTest, CancelUnloadsTheDialogWithoutWriting) {
    StartWithSample();
    module->campaign.TargetTable[7].x = 1;
    const std::string before = folder.Content("TARGET.DAT");
    OpenSaveDialog();
    Find<QCheckBox>(*SaveDialog(), QStringLiteral("chk_saveall")).click();
    Press<QPushButton>(*SaveDialog(), QStringLiteral("cmd_close"));
    EXPECT_FALSE(DialogIsOpen());
    EXPECT_EQ(folder.Content("TARGET.DAT"), before);
}

/// A window over the module that the event boundary reports of, run as the program runs it.
class FatalLoadTest : public ProjectCommandsTest {
  protected:
    void SetUp() override {
        // In place: it is too large to go over the stack by value.
        std::destroy_at(&BoundaryModule());
        std::construct_at(&BoundaryModule());
        BoundaryModule().programFolder = module->programFolder;
        WriteSample();
    }
    void TearDown() override {
        std::destroy_at(&BoundaryModule());
        std::construct_at(&BoundaryModule());
    }

    /// Does action to a new window in the event loop until the program ends.
    static int ExitStatusAfter(const std::function<void(frm_main &)> &action) {
        frm_main doomed(BoundaryModule());
        QTimer::singleShot(0, qApp, [&] { action(doomed); });
        return QCoreApplication::exec();
    }

    /// Starts with path as the command line and accepts the one box that follows.
    int ExitStatusOfStarting(const std::string &path) {
        AcceptNextBox(box);
        return ExitStatusAfter([&path](frm_main &doomed) { doomed.Start(QString::fromStdString(path)); });
    }

    /// Loads path with "&Load Project..." and accepts the one box that follows.
    int ExitStatusOfLoading(const std::string &path) {
        ChooseNextFile(QString::fromStdString(path), [this] { AcceptNextBox(box); });
        return ExitStatusAfter([](frm_main &doomed) {
            doomed.Start(QString());
            // Not by trigger(): an error that flies through Qt's own code there leaves 16 bytes of it behind.
            Q_EMIT doomed.findChild<QAction *>(QStringLiteral("mnu_p_load"))->triggered();
        });
    }

    void ExpectOneFatalBoxThatSays(const std::string &text) {
        EXPECT_EQ(box.count, 1);
        EXPECT_EQ(box.icon, QMessageBox::Critical);
        EXPECT_EQ(box.title, "VTR Target Editor");
        EXPECT_EQ(box.text.toStdString(), text);
        EXPECT_FALSE(std::filesystem::exists(folder.Path() + "program/prefs.cfg"));
    }

    ShownBox box;
};

TEST_F(FatalLoadTest, AMissingFileOfTheGameEndsTheProgramWithOneBoxThatSaysAll) {
    std::filesystem::remove(folder.Path() + "AIRFIELD.DAT");
    EXPECT_EQ(ExitStatusOfLoading(SamplePath()), 1);
    ExpectOneFatalBoxThatSays("Loading the project failed.\n\nFile not found.\nFile: " + folder.Path() +
                              "AIRFIELD.DAT\nExpected: opening the file\nFound: No such file or directory\n\n"
                              "The program ends now. Edits that you had not saved, if any, are lost; the "
                              "files that you saved are as you saved them.");
}

TEST_F(FatalLoadTest, ALineOfTheProjectFileIsToldInItsOwnLetters) {
    folder.Make("line.prj",
                "Name=North\r\nGr\xF6\xDF"
                "e\r\n");
    EXPECT_EQ(ExitStatusOfLoading(folder.Path() + "line.prj"), 1);
    EXPECT_TRUE(box.text.contains(QStringLiteral("Gr\u00F6\u00DFe"))) << box.text.toStdString();
}

TEST_F(FatalLoadTest, AMissingMapPictureDoesSoToo) {
    folder.Make("nomap.prj", "Name=No map\r\nMap=nowhere.bmp\r\n");
    EXPECT_EQ(ExitStatusOfLoading(folder.Path() + "nomap.prj"), 1);
    ExpectOneFatalBoxThatSays("Loading the project failed.\n\nFile not found.\nFile: " + folder.Path() +
                              "nowhere.bmp\nExpected: opening the file\nFound: No such file or directory\n\n"
                              "The program ends now. No project was loaded, so no edits are lost.");
}

TEST_F(FatalLoadTest, AMapPictureThatIsNoneDoesSoToo) {
    folder.Make("broken.bmp", "BM is how one begins, but this is none");
    folder.Make("broken.prj", "Name=Broken\r\nMap=broken.bmp\r\n");
    EXPECT_EQ(ExitStatusOfLoading(folder.Path() + "broken.prj"), 1);
    const std::string text = box.text.toStdString();
    EXPECT_THAT(text, ::testing::StartsWith(
                          "Loading the project failed.\n\nFile access failed.\nFile: " + folder.Path() +
                          "broken.bmp\nExpected: a picture (a bitmap file, *.bmp)\nFound: "));
    EXPECT_THAT(
        text, ::testing::EndsWith("\n\nThe program ends now. No project was loaded, so no edits are lost."));
    ExpectOneFatalBoxThatSays(text);
}

TEST_F(FatalLoadTest, AProjectThatDoesNotExistIsMadeEmptyAndDoesSoForItHasNoMap) {
    EXPECT_EQ(ExitStatusOfStarting(folder.Path() + "new.prj"), 1);
    EXPECT_EQ(folder.Content("new.prj"), "");
    ExpectOneFatalBoxThatSays("Loading the project failed.\n\nFile access failed.\nFile: " + folder.Path() +
                              "\nExpected: a file\nFound: a folder\n\n"
                              "The program ends now. No project was loaded, so no edits are lost.");
}

TEST_F(FatalLoadTest, APathOf300CharactersDoesSoToo) {
    const std::string name = std::string(300, 'n') + ".prj";
    EXPECT_EQ(ExitStatusOfStarting(folder.Path() + name), 1);
    const std::string text = box.text.toStdString();
    EXPECT_THAT(text, ::testing::StartsWith("Loading the project failed.\n\nFile access failed.\nFile: " +
                                            folder.Path() + name + "\nExpected: "));
    ExpectOneFatalBoxThatSays(text);
}

}  // namespace
}  // namespace vtr
