#include <gmock/gmock.h>

#include "BoundarySession.h"
#include "EditorWindow.h"
#include "EventBoundary.h"
#include "frm_save.h"

namespace vtr {
namespace {

const std::string whatToDo = "Put right what is said above, if you can, and start it again.";

/// A window over the session that the event boundary reports of, run as the program runs it.
class FatalLoadTest : public EditorWindow {
  protected:
    void SetUp() override {
        // In place: it is too large to go over the stack by value.
        std::destroy_at(&BoundarySession());
        std::construct_at(&BoundarySession());
        BoundarySession().programFolder = session->programFolder;
        WriteSample();
    }
    void TearDown() override {
        std::destroy_at(&BoundarySession());
        std::construct_at(&BoundarySession());
    }

    /// Does action to a new window in the event loop until the program ends.
    static int ExitStatusAfter(const std::function<void(frm_main &)> &action) {
        frm_main doomed(BoundarySession());
        QTimer::singleShot(0, qApp, [&] { action(doomed); });
        return ExitStatus();
    }

    /// Starts with path as the command line and accepts the one box that follows.
    int ExitStatusOfStarting(const std::string &path) {
        AcceptNextBox(box);
        return ExitStatusAfter([&path](frm_main &doomed) { doomed.Start(QString::fromStdString(path)); });
    }

    /// Loads path with "&Load Project..." and accepts the one box that follows.
    int ExitStatusOfLoading(const std::string &path) {
        ChooseNextFile(chooser, path);
        AcceptNextBox(box);
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

    ShownChooser chooser;
    ShownBox box;
};

TEST_F(FatalLoadTest, AMissingFileOfTheGameEndsTheProgramWithOneBoxThatSaysAll) {
    std::filesystem::remove(folder.Path() + "AIRFIELD.DAT");
    EXPECT_EQ(ExitStatusOfLoading(SamplePath()), 1);
    ExpectOneFatalBoxThatSays(
        "Loading the project failed.\n\nFile not found: No such file or directory\nFile: " + folder.Path() +
        "AIRFIELD.DAT\n\n"
        "The program ends now. " +
        whatToDo);
}

TEST_F(FatalLoadTest, ALineOfTheProjectFileIsToldInItsOwnLetters) {
    folder.Make("line.prj",
                "Name=North\r\nGr\xF6\xDF"
                "e\r\n");
    EXPECT_EQ(ExitStatusOfLoading(folder.Path() + "line.prj"), 1);
    EXPECT_TRUE(box.text.contains(QStringLiteral("Gr\u00F6\u00DFe"))) << box.text.toStdString();
}

TEST_F(FatalLoadTest, AMapPictureThatIsNoneDoesSoToo) {
    folder.Make("broken.bmp", "BM is how one begins, but this is none");
    folder.Make("broken.prj", "Name=Broken\r\nMap=broken.bmp\r\n");
    EXPECT_EQ(ExitStatusOfLoading(folder.Path() + "broken.prj"), 1);
    const std::string text = box.text.toStdString();
    EXPECT_THAT(text, ::testing::StartsWith(
                          "Loading the project failed.\n\nFile access failed.\nFile: " + folder.Path() +
                          "broken.bmp\nExpected: a picture (a bitmap file, *.bmp)\nFound: "));
    EXPECT_THAT(text, ::testing::EndsWith("\n\nThe program ends now. " + whatToDo));
    ExpectOneFatalBoxThatSays(text);
}

TEST_F(FatalLoadTest, AProjectThatDoesNotExistIsMadeEmptyAndDoesSoForItHasNoMap) {
    EXPECT_EQ(ExitStatusOfStarting(folder.Path() + "new.prj"), 1);
    EXPECT_EQ(folder.Content("new.prj"), "");
    ExpectOneFatalBoxThatSays("Loading the project failed.\n\nFile not found.\nFile: " + folder.Path() +
                              "new.prj\nExpected: a line \"Map=\" with the name of the map picture\nFound: "
                              "no such file, so that an empty one was made\n\n"
                              "The program ends now. " +
                              whatToDo);
}

/// A load that fails while a campaign is open.
class FatalSecondLoadTest : public FatalLoadTest {
  protected:
    /// Moves a target of the sample, loads a project without a map picture over it and does answer to the
    /// report.
    int ExitStatusAfterAnswer(const std::function<void(QMessageBox &)> &answer) {
        const std::string broken = folder.Make("broken.prj", "Name=Broken\r\nMap=nowhere.bmp\r\n");
        return ExitStatusAfter([this, broken, answer](frm_main &window) {
            application().OfferSavingFirst([&window] { window.SaveFilesAndWait(); },
                                           [&window] { window.close(); });
            window.Start(QString::fromStdString(SamplePath()));
            nameBefore = Find<QToolButton>(window, QStringLiteral("project")).text();
            if (hasEdits)
                Find<NumberField>(window, QStringLiteral("upd_tar_x")).SetNumber(321);
            WhenModalOpens<QMessageBox>([this, &window, answer](QMessageBox &report) {
                text = report.text();
                nameInReport = Find<QToolButton>(window, QStringLiteral("project")).text();
                answer(report);
            });
            window.Start(QString::fromStdString(broken));
        });
    }
    static EventBoundary &application() { return dynamic_cast<EventBoundary &>(*qApp); }
    void TearDown() override {
        application().OfferSavingFirst({}, {});
        FatalLoadTest::TearDown();
    }

    bool hasEdits = true;  ///< whether a target is moved
    QString text;
    QString nameBefore;
    QString nameInReport;
};

TEST_F(FatalSecondLoadTest, SaysThatTheOpenCampaignIsWholeAndWritesThePreferencesAtTheEnd) {
    EXPECT_EQ(ExitStatusAfterAnswer([](QMessageBox &report) { report.button(QMessageBox::Ok)->click(); }), 1);
    EXPECT_TRUE(text.contains(QStringLiteral("still is, with all its edits"))) << text.toStdString();
    EXPECT_EQ(nameInReport, nameBefore);
    EXPECT_EQ(BoundarySession().campaign.TargetTable[0].x, 321);
    EXPECT_TRUE(std::filesystem::exists(folder.Path() + "program/prefs.cfg"));
}

TEST_F(FatalSecondLoadTest, WithoutUnsavedEditsSaysNothingOfThem) {
    hasEdits = false;
    EXPECT_EQ(ExitStatusAfterAnswer([](QMessageBox &report) { report.button(QMessageBox::Ok)->click(); }), 1);
    EXPECT_THAT(text.toStdString(), ::testing::EndsWith("\n\nThe program ends now. " + whatToDo));
    EXPECT_TRUE(std::filesystem::exists(folder.Path() + "program/prefs.cfg"));
}

TEST_F(FatalSecondLoadTest, LetsTheFilesBeSavedFirst) {
    const std::string before = folder.Content("TARGET.DAT");
    const int status = ExitStatusAfterAnswer([](QMessageBox &report) {
        WhenModalOpens<frm_save>([](frm_save &dialog) {
            Find<QCheckBox>(dialog, QStringLiteral("chk_save(0)")).setChecked(true);
            WhenModalOpens<QMessageBox>([](QMessageBox &again) { again.button(QMessageBox::Ok)->click(); });
            Press<QPushButton>(dialog, QStringLiteral("cmd_save"));
        });
        for (QAbstractButton *button : report.buttons())
            if (button->text() == QStringLiteral("Save Files First..."))
                button->click();
    });
    EXPECT_EQ(status, 1);
    EXPECT_NE(folder.Content("TARGET.DAT"), before);
}

TEST_F(FatalSecondLoadTest, ComesBackToTheReportAfterASaveThatFailed) {
    ShownBox failure;
    int reports = 1;
    const auto saveFirst = [](QMessageBox &report) {
        for (QAbstractButton *button : report.buttons())
            if (button->text() == QStringLiteral("Save Files First..."))
                button->click();
    };
    const int status = ExitStatusAfterAnswer([&](QMessageBox &report) {
        std::filesystem::remove(folder.Path() + "TARGET.DAT");
        std::filesystem::create_directory(folder.Path() + "TARGET.DAT");
        WhenModalOpens<frm_save>([&](frm_save &dialog) {
            Find<QCheckBox>(dialog, QStringLiteral("chk_save(0)")).setChecked(true);
            AcceptNextBox(failure);
            Press<QPushButton>(dialog, QStringLiteral("cmd_save"));
            EXPECT_TRUE(dialog.isVisible());
            WhenModalOpens<QMessageBox>([&](QMessageBox &again) {
                ++reports;
                EXPECT_EQ(again.text(), text);
                std::filesystem::remove(folder.Path() + "TARGET.DAT");
                WhenModalOpens<frm_save>([&](frm_save &second) {
                    EXPECT_TRUE(Find<QLabel>(second, QStringLiteral("lbl_message")).text().isEmpty());
                    Find<QCheckBox>(second, QStringLiteral("chk_save(0)")).setChecked(true);
                    WhenModalOpens<QMessageBox>(
                        [](QMessageBox &last) { last.button(QMessageBox::Ok)->click(); });
                    Press<QPushButton>(second, QStringLiteral("cmd_save"));
                });
                saveFirst(again);
            });
            Press<QPushButton>(dialog, QStringLiteral("cmd_close"));
        });
        saveFirst(report);
    });
    EXPECT_EQ(status, 1);
    EXPECT_TRUE(failure.text.startsWith(QStringLiteral("Saving the files failed.")));
    EXPECT_EQ(reports, 2);
    EXPECT_EQ(folder.Content("TARGET.DAT").size(), 9668U);
}

}  // namespace
}  // namespace vtr
