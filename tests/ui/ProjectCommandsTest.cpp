#include <gmock/gmock.h>

#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QProgressBar>
#include <QStatusBar>

#include "EditorWindow.h"
#include "MapSurface.h"
#include "frm_save.h"

namespace vtr {
namespace {

class ProjectCommandsTest : public EditorWindow {
  protected:
    frm_save *SaveDialog() { return window().findChild<frm_save *>(); }
    QString Path(const char *name) const { return QString::fromStdString(folder.Path() + name); }
    void ExpectTarget100At(int x) { EXPECT_EQ(session->campaign.TargetTable[100].x, x); }

    ShownChooser chooser;
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
    EXPECT_EQ(session->campaign.paths.ProjectFile, "my campaign.prj");
    EXPECT_TRUE(session->campaign.ProjectLoaded);
}

TEST_F(ProjectCommandsTest, ACommandLineInDoubleQuotesIsThePathWithoutThem) {
    WriteSample();
    window().Start(QLatin1Char('"') + QString::fromStdString(SamplePath()) + QLatin1Char('"'));
    EXPECT_EQ(session->campaign.paths.ProjectFile, "sample.prj");
}

TEST_F(ProjectCommandsTest, ALoadedProjectIsNamedAndEnablesTheMenusAndFrames) {
    StartWithSample();
    EXPECT_EQ(PanelText("project"), "  " + QString::fromStdString(session->campaign.paths.Name) + "  ");
    EXPECT_TRUE(Entry("mnu_p_export").isEnabled());
    EXPECT_TRUE(Find<QMenu>(window(), QStringLiteral("mnu_m_zoom")).isEnabled());
    EXPECT_TRUE(Find<QMenu>(window(), QStringLiteral("mnu_view")).isEnabled());
    EXPECT_TRUE(Find<QWidget>(window(), QStringLiteral("fra_control")).isEnabled());
    EXPECT_TRUE(Find<QWidget>(window(), QStringLiteral("fra_target")).isEnabled());
    EXPECT_FALSE(Find<QWidget>(window(), QStringLiteral("frm_progress")).isVisible());
    EXPECT_EQ(session->view.MapZoom, 1);
    EXPECT_EQ(session->view.MapCenterX, 320);
    EXPECT_EQ(Number("upd_tar_code").value(), 0);
    EXPECT_EQ(Number("upd_view_railway").text(), "ALL");
    EXPECT_EQ(Number("upd_viewfrontline").text(), "0");
}

TEST_F(ProjectCommandsTest, LoadingAsksForAnExportOnlyWhenAProjectIsOpen) {
    WriteSample();
    window().Start(QString());
    ChooseNextFile(chooser, SamplePath());
    Entry("mnu_p_load").trigger();
    EXPECT_EQ(chooser.title, "Load Project");
    EXPECT_EQ(chooser.filters, QStringList{"Target Editor Projects (*.prj)"});
    EXPECT_TRUE(session->campaign.ProjectLoaded);

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
    ChooseNextFile(chooser, SamplePath());
    Entry("mnu_p_load").trigger();
    EXPECT_EQ(chooser.file, "");
    ShownBox question;
    AnswerNextBox(question, QMessageBox::No);
    ChooseNextFile(chooser, SamplePath());
    Entry("mnu_p_load").trigger();
    EXPECT_EQ(chooser.file, "sample.prj");
}

TEST_F(ProjectCommandsTest, CancelBeforeARecentProjectLoadsNothing) {
    StartWithSample();
    session->campaign.TargetTable[100].x = 7;
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
    EXPECT_EQ(Number("upd_tar_x").value(), session->campaign.TargetTable[0].x);
    EXPECT_EQ(Number("upd_frnt_x").value(), session->campaign.FrontlineTable[0].points[0].x);
    EXPECT_EQ(Number("upd_rail_x2").value(), session->campaign.RailwayTable[0].x2);
    EXPECT_EQ(Number("upd_roi_x").value(), session->campaign.RoadWaypointTable[0].waypoints[0].x);
    EXPECT_EQ(Number("upd_rai_x").value(), session->campaign.RailWaypointTable[0].waypoints[0].x);
}

TEST_F(ProjectCommandsTest, AnotherProjectsMapIsShownLargeAndSmall) {
    StartWithSample();
    QImage plainMap(640, 320, QImage::Format_RGB32);
    plainMap.fill(QColor(18, 52, 86));
    ASSERT_TRUE(plainMap.save(Path("plain.bmp")));
    folder.Make("plain.prj", "Name=Plain\r\nMap=plain.bmp\r\n");
    for (const char *layer : {"mnu_v_targets", "mnu_v_frontlines", "mnu_v_railways", "mnu_v_roadint"})
        if (Entry(layer).isChecked())
            Entry(layer).trigger();
    window().Start(Path("plain.prj"));
    EXPECT_EQ(Find<MapSurface>(window(), "Img_Map").Surface().pixels.at(640 * 160 + 320), 0xFF123456U);
    const QImage small = Find<QWidget>(window(), "Img_SmallMap").grab().toImage();
    EXPECT_EQ(small.pixelColor(small.rect().center()), QColor(18, 52, 86));
}

TEST_F(ProjectCommandsTest, NoLineIsDisabledAfterALoadAlsoWhenTheRailwaysAreHidden) {
    StartWithSample();
    auto &disabled = Find<QLabel>(window(), QStringLiteral("lbl_disabled"));
    session->campaign.firstDisabledRailwayLine = 850;
    window().Redraw();
    ASSERT_EQ(disabled.text(), "Lines 850+ Disabled");
    Entry("mnu_v_railways").trigger();
    window().Start(QString::fromStdString(SamplePath()));
    EXPECT_EQ(session->campaign.firstDisabledRailwayLine, 0);
    EXPECT_EQ(disabled.text(), "No Lines disabled");
}

TEST_F(ProjectCommandsTest, YesBeforeLoadingShowsTheSaveDialogWithoutWaitingForIt) {
    StartWithSample();
    ShownBox question;
    AnswerNextBox(question, QMessageBox::Yes);
    ChooseNextFile(chooser, "");
    Entry("mnu_p_load").trigger();
    EXPECT_EQ(chooser.title, "Load Project") << "the chooser came although the save dialog is still open";
    ASSERT_NE(SaveDialog(), nullptr);
    EXPECT_TRUE(SaveDialog()->isVisible());
    EXPECT_FALSE(SaveDialog()->isModal());
}

TEST_F(ProjectCommandsTest, YesBeforeARecentProjectWaitsForTheSaveDialog) {
    StartWithSample();
    session->campaign.TargetTable[100].x = 7;
    bool wasModal = false;
    ShownBox question;
    AnswerNextBox(question, QMessageBox::Yes);
    WhenModalOpens<frm_save>([&](frm_save &dialog) {
        wasModal = true;
        ExpectTarget100At(7);
        dialog.close();
    });
    Entry("mnu_p_last1").trigger();
    EXPECT_TRUE(wasModal);
    EXPECT_NE(session->campaign.TargetTable[100].x, 7) << "loaded again after the dialog closed";
}

TEST_F(ProjectCommandsTest, AnEmptyPathInQuotesIsRefusedAndNothingChanges) {
    StartWithSample();
    const ProjectPaths &paths = session->campaign.paths;
    const std::string name = paths.Name;
    const std::string project = paths.ProjectDir + paths.ProjectFile;
    const auto recent = session->preferences.RecentProjectFiles;
    session->campaign.TargetTable[100].x = 7;
    for (const char *commandLine : {"\"\"", "\""}) {
        const ShownBox warning = BoxShownBy([&] { window().Start(QLatin1String(commandLine)); });
        EXPECT_EQ(warning.icon, QMessageBox::Warning);
        EXPECT_EQ(warning.title, "VTR Target Editor");
        EXPECT_EQ(warning.text,
                  "Loading the project failed.\n\nFile access failed.\n"
                  "Expected: the path of a project file (*.prj)\nFound: no path at all\n\n"
                  "Nothing was changed. Choose a project file (*.prj).");
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
    EXPECT_TRUE(session->campaign.ProjectLoaded);
    const std::string &remembered = session->preferences.RecentProjectFiles[0];
    EXPECT_TRUE(QDir::isAbsolutePath(QString::fromStdString(remembered))) << remembered;
    EXPECT_TRUE(std::filesystem::equivalent(remembered, SamplePath())) << remembered;
}

TEST_F(ProjectCommandsTest, APathOnTheCommandLineIsRememberedWithoutItsDetours) {
    WriteSample();
    window().Start(QString::fromStdString(folder.Path() + "program/..//./sample.prj"));
    EXPECT_EQ(session->preferences.RecentProjectFiles[0], SamplePath());
}

TEST_F(ProjectCommandsTest, APathOnTheCommandLineThatBeginsWithABackslashIsAbsolute) {
    WriteSample();
    std::string path = SamplePath();
    std::ranges::replace(path, '/', '\\');
    window().Start(QString::fromStdString(path));
    EXPECT_TRUE(session->campaign.ProjectLoaded);
    EXPECT_EQ(session->preferences.RecentProjectFiles[0], path);
}

TEST_F(ProjectCommandsTest, AMapOfNoneIsToldAndKeepsTheProjectBefore) {
    StartWithSample();
    const auto targets = session->campaign.TargetTable[5].x;
    folder.Make("none.prj", "Name=Nothing\r\nMap=NONE\r\n");
    ShownBox message;
    AcceptNextBox(message);
    window().Start(Path("none.prj"));
    EXPECT_EQ(message.text, "No Map specified. Cannot load project.");
    EXPECT_EQ(message.buttons, QMessageBox::Ok);
    EXPECT_EQ(PanelText("project"), "  Nothing  ");
    EXPECT_EQ(session->campaign.TargetTable[5].x, targets);
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
    EXPECT_THAT(
        warning.text.toStdString(),
        ::testing::EndsWith(
            "\n\nA save writes what is missing as zeros into the files that it saves. Before you save, "
            "put whole files in their place and load the project again."));
    EXPECT_TRUE(session->campaign.ProjectLoaded);
}

TEST_F(ProjectCommandsTest, OfAShortFileInAVeryDeepFolderOnlyTheBeginningIsShown) {
    const std::string deep = folder.MakeDeep();
    WriteSampleCampaign(deep, false);
    std::filesystem::resize_file(deep + "AIRFIELD.DAT", 100);
    const ShownBox box = BoxShownBy([&] { window().Start(QString::fromStdString(deep + "sample.prj")); });
    EXPECT_THAT(box.text.toStdString(), ::testing::HasSubstr("mmm...\n    found 100 bytes"));
    EXPECT_LT(box.text.size(), 1200);
}

TEST_F(ProjectCommandsTest, AMapPictureThatEndsTooEarlyIsListedAmongTheShortFiles) {
    WriteSample();
    const std::string picture = folder.Path() + "map.bmp";
    const auto whole = std::filesystem::file_size(picture);
    std::filesystem::resize_file(picture, whole - 100);
    const ShownBox warning = BoxShownBy([this] { window().Start(QString::fromStdString(SamplePath())); });
    EXPECT_THAT(warning.text.toStdString(),
                ::testing::HasSubstr(picture + "\n    found " + std::to_string(whole - 100) +
                                     " bytes, expected " + std::to_string(whole) + " bytes"));
    EXPECT_TRUE(session->campaign.ProjectLoaded);
}

TEST_F(ProjectCommandsTest, AMapPictureOfAnUnknownLengthIsListedWithWhatItHas) {
    WriteSample();
    const QString picture = QString::fromStdString(folder.Path() + "map.bmp");
    ASSERT_TRUE(QImage(picture).save(picture, "JPG"));
    std::filesystem::resize_file(picture.toStdString(), 5000);
    const ShownBox warning = BoxShownBy([this] { window().Start(QString::fromStdString(SamplePath())); });
    EXPECT_THAT(warning.text.toStdString(),
                ::testing::HasSubstr(picture.toStdString() + "\n    found 5000 bytes, expected more"));
}

TEST_F(ProjectCommandsTest, AfterALoadTheStatusBarTellsOfAProjectFileThatWasMade) {
    StartWithSample();
    window().Start(Path("new.prj"));
    EXPECT_EQ(folder.Content("new.prj"), "");
    EXPECT_EQ(window().statusBar()->currentMessage(),
              "The project file did not exist: an empty one was made, and the names of the project before "
              "count.");
}

TEST_F(ProjectCommandsTest, AfterALoadTheStatusBarTellsWhichKeysHaveNoFileAndOfAMark) {
    WriteSample();
    window().Start(QString());
    folder.Make("short.prj", "\xEF\xBB\xBFName=x\r\nMap=map.bmp\r\nTARNAMES=TARNAMES.STR\r\n");
    window().Start(QString::fromStdString(folder.Path() + "short.prj"));
    const QString said = window().statusBar()->currentMessage();
    EXPECT_EQ(
        said,
        "The project names no file for MAPTM, TARGETS, GRIDDATA, FRONTLINE, AIRFIELD, RAILWAY, ROADWPT, "
        "ROADLIST, RAILWPT, RAILLIST. The project file begins with a UTF-8 mark, so that its first line "
        "counts "
        "for nothing.");
    EXPECT_EQ(window().statusBar()->toolTip(), said);
}

}  // namespace
}  // namespace vtr
