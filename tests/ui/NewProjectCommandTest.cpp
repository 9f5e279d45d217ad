#include <gmock/gmock.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <array>

#include "EditorWindow.h"
#include "PanelTesting.h"
#include "frm_newproject.h"

namespace vtr {
namespace {

using ::testing::HasSubstr;

/// "&New Project..." on the main window, with the sample's files as those of the game.
class NewProjectCommand : public EditorWindow {
  protected:
    NewProjectCommand() {
        WriteSample();
        std::filesystem::copy_file(VTR_PROGRAM_FOLDER "/map.dat", folder.Path() + "program/map.dat");
        std::filesystem::create_directory(folder.Path() + "new");
    }

    std::string NewPath() const { return folder.Path() + "new/north.prj"; }

    /// Does "&New Project..."; fill is run on the dialog that opens.
    void MakeNewProject(const std::function<void(frm_newproject &)> &fill) {
        WhenModalOpens([this, fill](QWidget &opened) {
            ++dialogs;
            auto *const dialog = qobject_cast<frm_newproject *>(&opened);
            if (dialog == nullptr) {
                ADD_FAILURE() << "another window than the new-project dialog came";
                opened.close();
                return;
            }
            EXPECT_TRUE(dialog->isModal());
            fill(*dialog);
            if (dialog->isVisible())
                dialog->reject();
        });
        // Not by trigger(): an error that flies through Qt's own code there leaves 16 bytes of it behind.
        Q_EMIT Entry("mnu_p_new").triggered();
        EXPECT_EQ(dialogs, 1);
    }

    /// Browses for the sample's files in all rows; for the map's too when there is to be one.
    void BrowseAll(frm_newproject &dialog, bool withMap) {
        constexpr std::array<const char *, 13> files = {"TARGET.DAT",   "GRIDDATA.DAT", "tiles/BNGrass.pcx",
                                                        "FRNTLINE.DAT", "AIRFIELD.DAT", "VTR_RRD.DAT",
                                                        "ROADLIST.DAT", "ROADWPT.DAT",  "RAILLIST.DAT",
                                                        "RAILWPT.DAT",  "TARNAMES.STR", "VTR.TM",
                                                        "map.bmp"};
        std::filesystem::create_directory(folder.Path() + "tiles");
        for (const char *name : {"GRIDDATA.DAT", "ROADLIST.DAT", "RAILLIST.DAT", "tiles/BNGrass.pcx"})
            if (!std::filesystem::exists(folder.Path() + name))
                folder.Make(name, "");
        for (std::size_t i = 0; i < (withMap ? 13U : 12U); ++i) {
            ChooseNextFile(chooser, folder.Path() + files.at(i));
            Press<QPushButton>(dialog, QStringLiteral("cmd_browse(%1)").arg(i));
        }
    }

    void Create(frm_newproject &dialog, const std::string &path) {
        ChooseNextFile(chooser, path);
        Press<QPushButton>(dialog, "cmd_ok");
    }
    /// Makes a new project of the sample's files, which ends with a message.
    void MakeAndAccept(bool withMap, const std::string &path) {
        MakeNewProject([this, withMap, path](frm_newproject &dialog) {
            BrowseAll(dialog, withMap);
            AcceptNextBox(message);
            Create(dialog, path);
        });
    }
    std::string Message() const { return message.text.toStdString(); }

    int dialogs = 0;
    ShownChooser chooser;
    ShownBox message;
};

TEST_F(NewProjectCommand, OpensItsDialogModallyWithoutAskingAboutAnExport) {
    StartWithSample();
    MakeNewProject([this](frm_newproject &dialog) {
        EXPECT_EQ(dialog.parentWidget(), &window());
        EXPECT_EQ(session->operation, "Making the new project") << "a report of a failure begins with it";
        Press<QPushButton>(dialog, "cmd_cancel");
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(session->campaign.paths.ProjectFile, "sample.prj");
}

TEST_F(NewProjectCommand, LoadsTheProjectThatItMade) {
    window().Start(QString());
    MakeNewProject([this](frm_newproject &dialog) {
        BrowseAll(dialog, true);
        Find<QLineEdit>(dialog, "txt_prjname").setText("North front");
        Create(dialog, NewPath());
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_TRUE(session->campaign.ProjectLoaded);
    EXPECT_EQ(session->campaign.paths.ProjectDir, folder.Path() + "new/");
    EXPECT_EQ(session->campaign.paths.ProjectFile, "north.prj");
    EXPECT_EQ(PanelText("project"), "  North front  ");
    EXPECT_EQ(session->preferences.RecentProjectFiles[0], NewPath());
    EXPECT_FALSE(Find<QLabel>(window(), "lbl_upside_down").isVisible());
}

TEST_F(NewProjectCommand, LoadsAProjectWhoseMapItGenerated) {
    window().Start(QString());
    MakeNewProject([this](frm_newproject &dialog) {
        BrowseAll(dialog, false);
        Create(dialog, NewPath());
    });
    EXPECT_TRUE(session->campaign.ProjectLoaded);
    EXPECT_EQ(session->campaign.paths.Map, "worldmap.bmp");
    EXPECT_EQ(folder.Content("new/worldmap.bmp").size(), 205878U);
    EXPECT_EQ(session->map.width, 640);
    EXPECT_EQ(session->map.height, 320);
    EXPECT_EQ(Find<QStatusBar>(window(), "sb_status").currentMessage(), "");
    EXPECT_TRUE(Find<QLabel>(window(), "lbl_upside_down").isVisible());
}

TEST_F(NewProjectCommand, WithoutAPlaceToSaveItNothingMoreIsSaidAndTheProgramGoesOn) {
    StartWithSample();
    int boxes = 0;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&boxes] {
        if (auto *const box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            ++boxes;
            box->reject();
        }
    });
    watch.start(5);
    MakeNewProject([this](frm_newproject &dialog) {
        BrowseAll(dialog, true);
        Create(dialog, "");
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(boxes, 0);
    EXPECT_EQ(session->campaign.paths.ProjectFile, "sample.prj");
    EXPECT_TRUE(window().isVisible());
}

TEST_F(NewProjectCommand, ACopyThatFailsEndsTheProgramWithTheFileAndTheReason) {
    window().Start(QString());
    const std::string gone = folder.Path() + "gone.dat";
    QTimer::singleShot(0, qApp, [&] {
        MakeNewProject([&](frm_newproject &dialog) {
            BrowseAll(dialog, true);
            Find<QLineEdit>(dialog, "txt_filename(4)").setText(QString::fromStdString(gone));
            AcceptNextBox(message);
            ChooseNextFile(chooser, NewPath());
            // The signal alone: a click would leave the guards of the button's own code behind.
            Q_EMIT Find<QPushButton>(dialog, "cmd_ok").clicked();
        });
    });
    EXPECT_EQ(ExitStatus(), 1);
    EXPECT_EQ(message.icon, QMessageBox::Critical);
    EXPECT_THAT(Message(), HasSubstr("File: " + gone));
    EXPECT_THAT(Message(), HasSubstr("No such file or directory"));
    EXPECT_FALSE(std::filesystem::exists(NewPath()));
    EXPECT_FALSE(session->campaign.ProjectLoaded);
}

TEST_F(NewProjectCommand, ANamedMapThatCannotBeLoadedEndsTheProgram) {
    folder.Make("map.bmp", "no picture");
    window().Start(QString());
    QTimer::singleShot(0, qApp, [this] { MakeAndAccept(true, NewPath()); });
    EXPECT_EQ(ExitStatus(), 1);
    EXPECT_EQ(message.icon, QMessageBox::Critical);
    EXPECT_THAT(Message(), HasSubstr("File: " + folder.Path() + "new/map.bmp"));
}

TEST_F(NewProjectCommand, AfterAFailedLoadTheProjectThatWasOpenStaysSoWithItsEdits) {
    StartWithSample();
    std::filesystem::remove(folder.Path() + "program/map.dat");
    Number("upd_tar_code").SetNumber(100);
    Number("upd_tar_x").SetNumber(7);
    Entry("mnu_m_z_400").trigger();
    const QString name = PanelText("project");
    const auto before = std::make_unique<Session>(*session);
    MakeAndAccept(false, NewPath());
    EXPECT_EQ(message.icon, QMessageBox::Warning);
    EXPECT_TRUE(session->campaign == before->campaign);
    EXPECT_EQ(session->campaign.paths.ProjectDir, folder.Path());
    EXPECT_EQ(session->view.MapZoom, 4);
    EXPECT_EQ(session->preferences.RecentProjectNames, before->preferences.RecentProjectNames);
    EXPECT_EQ(PanelText("project"), name);
    EXPECT_TRUE(Find<QWidget>(window(), "fra_target").isEnabled());

    const std::string made = folder.Content("new/TARGET.DAT");
    Entry("mnu_p_export").trigger();
    Find<QCheckBox>(window(), "chk_save(0)").click();
    Press<QPushButton>(window(), "cmd_save");
    EXPECT_EQ(folder.Content("new/TARGET.DAT"), made) << "the save went to the project that is open";
    EXPECT_NE(folder.Content("TARGET.DAT"), made);
}

TEST_F(NewProjectCommand, AfterAFailedLoadWithoutAProjectBeforeThereStillIsNone) {
    // A model beyond its byte ends the last reader, long after the map picture is shown.
    folder.Make("AIRFIELD.DAT", std::string(7132, '\1'));
    window().Start(QString());
    const QImage smallMap = Find<QWidget>(window(), "Img_SmallMap").grab().toImage();
    MakeAndAccept(false, NewPath());
    EXPECT_THAT(Message(), HasSubstr("File: " + folder.Path() + "new/AIRFIELD.DAT"));
    EXPECT_FALSE(session->campaign.ProjectLoaded);
    EXPECT_EQ(session->view.MapZoom, 0);
    EXPECT_EQ(PanelText("project"), "  NO PROJECT LOADED");
    EXPECT_EQ(Find<QWidget>(window(), "Img_SmallMap").grab().toImage(), smallMap);
    EXPECT_FALSE(Entry("mnu_p_export").isEnabled());
    for (const char *control : {"mnu_m_zoom", "mnu_view", "fra_control", "fra_target"})
        EXPECT_FALSE(Find<QWidget>(window(), QLatin1String(control)).isEnabled()) << control;
}

TEST_F(NewProjectCommand, AfterAFailedLoadTheTargetPanelStaysOffInAnotherEditMode) {
    StartWithSample();
    folder.Make("AIRFIELD.DAT", std::string(7132, '\1'));
    Entry("mnu_e_frontline").trigger();
    ASSERT_FALSE(Find<QWidget>(window(), "fra_target").isEnabled());
    MakeAndAccept(false, NewPath());
    EXPECT_THAT(Message(), HasSubstr("File: " + folder.Path() + "new/AIRFIELD.DAT"));
    EXPECT_FALSE(Find<QWidget>(window(), "fra_target").isEnabled());
    EXPECT_TRUE(Find<QWidget>(window(), "fra_frontline").isEnabled());
}

TEST_F(NewProjectCommand, ANameIsShownAsItWasTypedAlsoWhereItsBytesWouldReadAsOthers) {
    window().Start(QString());
    MakeNewProject([this](frm_newproject &dialog) {
        BrowseAll(dialog, true);
        // As single bytes C3 A9, which is how UTF-8 writes another letter.
        Find<QLineEdit>(dialog, "txt_prjname").setText(QStringLiteral("\u00C3\u00A9"));
        Create(dialog, NewPath());
    });
    EXPECT_EQ(PanelText("project"), QStringLiteral("  \u00C3\u00A9  "));
}

TEST_F(NewProjectCommand, AfterAFailedGenerationTheFailedLoadIsAWarningAndTheProgramGoesOn) {
    std::filesystem::remove(folder.Path() + "program/map.dat");
    folder.Make("new/worldmap.bmp", "a map of another terrain");
    window().Start(QString());
    MakeAndAccept(false, NewPath());
    EXPECT_EQ(message.icon, QMessageBox::Warning);
    EXPECT_THAT(Message(), HasSubstr("Loading the new project failed."));
    EXPECT_THAT(Message(), HasSubstr("File: " + folder.Path() + "new/worldmap.bmp"));
    EXPECT_TRUE(std::filesystem::exists(NewPath()));
    EXPECT_FALSE(std::filesystem::exists(folder.Path() + "new/worldmap.bmp"));
    EXPECT_FALSE(session->campaign.ProjectLoaded);
    EXPECT_TRUE(window().isVisible());
    EXPECT_FALSE(Find<QWidget>(window(), "frm_progress").isVisible());
    EXPECT_EQ(Find<QStatusBar>(window(), "sb_status").currentMessage().toStdString(),
              "No map could be generated: map.dat is missing in " + folder.Path() + "program/");
    EXPECT_FALSE(Find<QLabel>(window(), "lbl_upside_down").isVisible());
}

}  // namespace
}  // namespace vtr
