#include <gmock/gmock.h>

#include <QStatusBar>
#include <QWindow>

#include "SaveCommandTesting.h"

namespace vtr {
namespace {

TEST_F(SaveCommand, ChosenTwiceTheCommandShowsOneDialog) {
    StartWithSample();
    OpenSaveDialog();
    const frm_save *const first = SaveDialog();
    OpenSaveDialog();
    EXPECT_EQ(window().findChildren<frm_save *>().size(), 1);
    EXPECT_EQ(SaveDialog(), first);
    EXPECT_TRUE(DialogIsOpen());
}

TEST_F(SaveCommand, ChosenAgainAfterTheDialogWasClosedItOpensAnewWithNothingTicked) {
    StartWithSample();
    OpenSaveDialog();
    Find<QCheckBox>(*SaveDialog(), QStringLiteral("chk_saveall")).click();
    Press<QPushButton>(*SaveDialog(), QStringLiteral("cmd_close"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    OpenSaveDialog();
    EXPECT_TRUE(DialogIsOpen());
    for (const QCheckBox *const box : SaveDialog()->findChildren<QCheckBox *>())
        EXPECT_FALSE(box->isChecked()) << box->objectName().toStdString();
}

TEST_F(SaveCommand, AMovedTargetIsInTheFileAfterASave) {
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

TEST_F(SaveCommand, AFailedSaveSaysWhatWasWrittenAndWhatNotAndStaysOpenWithAllEdits) {
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
    EXPECT_THAT(text, ::testing::HasSubstr("\nWritten: TARGET.DAT."));
    EXPECT_THAT(text,
                ::testing::HasSubstr(
                    "Not written: TARNAMES.STR, GRIDDATA.DAT, FRNTLINE.DAT, AIRFIELD.DAT, VTR_RRD.DAT."));
    EXPECT_TRUE(DialogIsOpen());
    EXPECT_EQ(session->campaign.TargetTable[100].x, 321);
}

TEST_F(SaveCommand, ATargetThatFitsNoCellIsNamedAndTheDialogStays) {
    StartWithSample();
    session->campaign.TargetTable[7].y = 1759;
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

TEST_F(SaveCommand, WithNothingTickedItStaysOpenAndSaysWhatToDo) {
    StartWithSample();
    OpenSaveDialog();
    EXPECT_FALSE(Line().isVisible());
    PressSave();
    EXPECT_TRUE(DialogIsOpen());
    EXPECT_TRUE(Line().isVisible());
    EXPECT_EQ(Line().text(), "Tick the files to be saved.");
}

TEST_F(SaveCommand, ShowsTheProjectsNameAndFolderAndBesideEachBoxWhatWillHappen) {
    StartWithSample();
    ProjectPaths &paths = session->campaign.paths;
    paths.Name = "North & South";
    paths.Railway.clear();
    paths.GridData = "../GRIDDATA.DAT";
    paths.Frontline = "north.dat";
    paths.Airfield = paths.Map;
    OpenSaveDialog();
    EXPECT_EQ(Find<QLabel>(*SaveDialog(), "lbl_project").text(), "North & South");
    EXPECT_EQ(Find<QLabel>(*SaveDialog(), "lbl_folder").text().toStdString(), folder.Path());
    EXPECT_EQ(Note(0), "");
    EXPECT_EQ(Note(2), "../GRIDDATA.DAT: never written, it leads out of the folder");
    EXPECT_EQ(Note(4), "north.dat");
    EXPECT_EQ(Note(5), QString::fromStdString(paths.Map) + ": never written, it is the file of MAP too");
    EXPECT_EQ(Note(6), "not part of this project");
    for (const int box : {7, 8, 9, 10})
        EXPECT_EQ(Note(box), "never written");
}

TEST_F(SaveCommand, ShowsTheBeginningOfAVeryLongFolder) {
    StartWithSample();
    session->campaign.paths.ProjectDir = "/" + std::string(3000, 'm') + "/";
    OpenSaveDialog();
    const QString shown = Find<QLabel>(*SaveDialog(), "lbl_folder").text();
    EXPECT_TRUE(shown.startsWith(QStringLiteral("/mmm")));
    EXPECT_TRUE(shown.endsWith(QStringLiteral("...")));
    EXPECT_LT(shown.size(), 300);
    EXPECT_LT(SaveDialog()->height(), 700);
}

TEST_F(SaveCommand, AfterASaveTheStatusBarNamesTheFiles) {
    StartWithSample();
    OpenSaveDialog();
    Tick(0);
    Tick(4);
    PressSave();
    EXPECT_EQ(window().statusBar()->currentMessage(), "Saved: TARGET.DAT, FRNTLINE.DAT");
    OpenSaveDialog();
    Tick(10);
    PressSave();
    EXPECT_FALSE(DialogIsOpen());
    EXPECT_THAT(window().statusBar()->currentMessage().toStdString(),
                ::testing::StartsWith("Nothing was written"));
}

TEST_F(SaveCommand, AfterATargetWithoutACellTheLineSaysHowToGoOn) {
    StartWithSample();
    session->campaign.TargetTable[7].y = 1759;
    OpenSaveDialog();
    Tick(0);
    Tick(2);
    ShownBox message;
    AcceptNextBox(message);
    PressSave();
    EXPECT_EQ(Line().text(),
              "Written: TARGET.DAT. GRIDDATA.DAT is still the old one: move target 7 or press \"Reorder "
              "Targets for "
              "GRIDDATA.DAT\", then save it again.");
    EXPECT_TRUE(Box(2).isChecked());
}

TEST_F(SaveCommand, ALinkOutOfTheFolderIsFollowedOnlyAfterAQuestion) {
    StartWithSample();
    TemporaryFolder elsewhere;
    const std::string outside = elsewhere.Make("real.dat", "mine");
    std::filesystem::remove(folder.Path() + "FRNTLINE.DAT");
    std::filesystem::create_symlink(outside, folder.Path() + "FRNTLINE.DAT");
    OpenSaveDialog();
    EXPECT_EQ(Note(4), "FRNTLINE.DAT leads out of the folder");
    Tick(0);
    Tick(4);
    const auto targetsTime = std::filesystem::last_write_time(folder.Path() + "TARGET.DAT");
    ShownBox question;
    AnswerNextBox(question, QMessageBox::No);
    PressSave();
    EXPECT_EQ(question.text.toStdString(),
              "FRNTLINE.DAT leads to " + std::filesystem::canonical(outside).string() + ". Write there?");
    EXPECT_EQ(question.title, "VTR Target Editor");
    EXPECT_EQ(question.buttons, QMessageBox::Yes | QMessageBox::No);
    EXPECT_EQ(elsewhere.Content("real.dat"), "mine");
    EXPECT_EQ(std::filesystem::last_write_time(folder.Path() + "TARGET.DAT"), targetsTime);
    EXPECT_TRUE(DialogIsOpen());

    AnswerNextBox(question, QMessageBox::Yes);
    PressSave();
    EXPECT_EQ(elsewhere.Content("real.dat").size(), 12000U);
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path() + "FRNTLINE.DAT"));
    EXPECT_FALSE(DialogIsOpen());
}

TEST_F(SaveCommand, OfWhereALinkLeadsOnlyTheBeginningIsShownWhenItIsVeryLong) {
    StartWithSample();
    const TemporaryFolder elsewhere;
    std::string deep = elsewhere.Path();
    for (int level = 0; level < 9; ++level) {
        deep += std::string(200, 'm') + '/';
        std::filesystem::create_directory(deep);
    }
    std::filesystem::remove(folder.Path() + "FRNTLINE.DAT");
    std::filesystem::create_symlink(deep + "real.dat", folder.Path() + "FRNTLINE.DAT");
    OpenSaveDialog();
    Tick(4);
    ShownBox question;
    AnswerNextBox(question, QMessageBox::No);
    PressSave();
    EXPECT_TRUE(question.text.startsWith(QStringLiteral("FRNTLINE.DAT leads to /")));
    EXPECT_TRUE(question.text.endsWith(QStringLiteral("mmm.... Write there?")))
        << question.text.toStdString();
    EXPECT_LT(question.text.size(), 700);
}

TEST_F(SaveCommand, EditedFilesAreMarkedWhileTheDialogIsOpenAndAfterASaveNoMore) {
    StartWithSample();
    OpenSaveDialog();
    const auto isMarked = [this](int index) {
        return !Find<QLabel>(*SaveDialog(), QStringLiteral("lbl_edited(%1)").arg(index)).pixmap().isNull();
    };
    EXPECT_FALSE(isMarked(0));
    Number("upd_tar_x").SetNumber(321);
    EXPECT_TRUE(isMarked(0));
    EXPECT_EQ(Note(0), "edited since it was saved");
    EXPECT_FALSE(isMarked(4));
    EXPECT_EQ(Note(4), "");
    Tick(0);
    PressSave();
    OpenSaveDialog();
    EXPECT_FALSE(isMarked(0));
    EXPECT_EQ(Note(0), "");
}

TEST_F(SaveCommand, AfterAProjectWithoutAMapTheLineWarnsThatTheTablesAreThoseOfAnother) {
    StartWithSample();
    TemporaryFolder other;
    OpenSaveDialog();
    ShownBox noMap;
    AcceptNextBox(noMap);
    window().Start(QString::fromStdString(other.Make("none.prj", "Name=Other\r\nMap=NONE\r\n")));
    const std::string warning = "The campaign in the editor was loaded from " + folder.Path() +
                                "sample.prj. A save writes it over the files of " + other.Path() +
                                "none.prj.";
    EXPECT_EQ(Line().text().toStdString(), "Another project is open now. " + warning);
    EXPECT_EQ(Find<QLabel>(*SaveDialog(), "lbl_project").text(), "Other");
    EXPECT_EQ(Find<QLabel>(*SaveDialog(), "lbl_folder").text().toStdString(), other.Path());
    SaveDialog()->close();
    OpenSaveDialog();
    EXPECT_EQ(Line().text().toStdString(), warning);
}

TEST_F(SaveCommand, WhenAnotherProjectHasBeenLoadedTheOpenDialogShowsItAndSaysSo) {
    StartWithSample();
    OpenSaveDialog();
    const TemporaryFolder other;
    WriteSampleCampaign(other.Path(), false);
    std::ofstream(other.Path() + "sample.prj", std::ios::app) << "NAME=Other\r\n";
    window().Start(QString::fromStdString(other.Path() + "sample.prj"));
    EXPECT_TRUE(DialogIsOpen());
    EXPECT_EQ(Line().text(), "Another project is open now.");
    EXPECT_EQ(Find<QLabel>(*SaveDialog(), "lbl_project").text(), "Other");
    EXPECT_EQ(Find<QLabel>(*SaveDialog(), "lbl_folder").text().toStdString(), other.Path());
}

TEST_F(SaveCommand, TheDialogOutlivesAMessageThatIsUpWhenItIsClosed) {
    StartWithSample();
    std::filesystem::remove(folder.Path() + "TARNAMES.STR");
    std::filesystem::create_directory(folder.Path() + "TARNAMES.STR");
    OpenSaveDialog();
    Tick(1);
    WhenModalOpens<QMessageBox>([this](QMessageBox &message) {
        SaveDialog()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        message.button(QMessageBox::Ok)->click();
    });
    PressSave();
    EXPECT_FALSE(DialogIsOpen());
    OpenSaveDialog();
    EXPECT_TRUE(DialogIsOpen());
}

TEST_F(SaveCommand, TheDialogCanBeUsedBesideTheChooserOfAProject) {
    StartWithSample();
    // Through the system's window, which is what another one blocks.
    const auto clicked = [](QWidget &over, QCheckBox &box) {
        const bool before = box.isChecked();
        QTest::mouseClick(over.windowHandle(), Qt::LeftButton, {},
                          box.mapTo(&over, QPoint(8, box.height() / 2)));
        return box.isChecked() != before;
    };
    auto &airfield = Find<QCheckBox>(window(), "chk_tar_airfield");
    ASSERT_TRUE(clicked(window(), airfield));
    ShownBox question;
    AnswerNextBox(question, QMessageBox::Yes);
    int choosers = 0;
    WhenModalOpens<QFileDialog>([&](QFileDialog &chooser) {
        ++choosers;
        EXPECT_EQ(chooser.windowModality(), Qt::WindowModal);
        EXPECT_TRUE(clicked(*SaveDialog(), Box(4)));
        EXPECT_FALSE(clicked(window(), airfield));
        chooser.reject();
    });
    Entry("mnu_p_load").trigger();
    EXPECT_EQ(choosers, 1);
    EXPECT_TRUE(DialogIsOpen());
    EXPECT_EQ(SaveDialog()->windowHandle()->transientParent(), window().windowHandle());
}

TEST_F(SaveCommand, TheChooserOfAProjectStandsBesideTheDialog) {
    StartWithSample();
    OpenSaveDialog();
    const QRect screen = window().screen()->availableGeometry();
    for (const QPoint &place : {screen.topLeft(), screen.center(), screen.bottomRight()}) {
        SaveDialog()->move(place);
        ShownBox question;
        AnswerNextBox(question, QMessageBox::No);
        QRect frame;
        WhenModalOpens<QFileDialog>([&](QFileDialog &chooser) {
            frame = chooser.frameGeometry();
            chooser.reject();
        });
        Entry("mnu_p_load").trigger();
        EXPECT_TRUE(frame.isValid());
        EXPECT_FALSE(frame.intersects(SaveDialog()->frameGeometry()));
        EXPECT_EQ(frame.left(), std::max(frame.left(), screen.left()));
        EXPECT_EQ(frame.right(), std::min(frame.right(), screen.right()));
    }
}

TEST_F(SaveCommand, TheBoxesAreReachedByTheArrowKeys) {
    StartWithSample();
    OpenSaveDialog();
    Box(0).setFocus();
    for (const int next : {1, 2, 4, 5, 6, 7, 8, 9, 10}) {
        QTest::keyClick(SaveDialog()->focusWidget(), Qt::Key_Down);
        EXPECT_EQ(SaveDialog()->focusWidget(), &Box(next)) << next;
    }
    QTest::keyClick(SaveDialog()->focusWidget(), Qt::Key_Up);
    EXPECT_EQ(SaveDialog()->focusWidget(), &Box(9));
}

TEST_F(SaveCommand, ALinkThatGoesRoundInACircleIsAFailedSave) {
    StartWithSample();
    std::filesystem::remove(folder.Path() + "GRIDDATA.DAT");
    std::filesystem::create_symlink("GRIDDATA.DAT", folder.Path() + "GRIDDATA.DAT");
    OpenSaveDialog();
    Tick(2);
    EXPECT_THAT(BoxShownBy([this] { PressSave(); }).text.toStdString(),
                ::testing::HasSubstr("Written: none.\nNot written: GRIDDATA.DAT."));
    EXPECT_TRUE(DialogIsOpen());
}

TEST_F(SaveCommand, TheSameProjectLoadedAgainIsNotCalledAnother) {
    StartWithSample();
    OpenSaveDialog();
    window().Start(QString::fromStdString(SamplePath()));
    EXPECT_FALSE(Line().isVisible());
}

TEST_F(SaveCommand, TheWarningStaysBehindWhatElseTheLineSays) {
    StartWithSample();
    ShownBox noMap;
    AcceptNextBox(noMap);
    window().Start(QString::fromStdString(folder.Make("none.prj", "Name=Other\r\nMap=NONE\r\n")));
    OpenSaveDialog();
    PressSave();
    EXPECT_EQ(Line().text().toStdString(),
              "Tick the files to be saved. The campaign in the editor was loaded from " + SamplePath() +
                  ". A save writes it over the files of " + folder.Path() + "none.prj.");
}

TEST_F(SaveCommand, TheToolTipsOfTheInterdictionFilesSayWhatIsTrueOfEach) {
    StartWithSample();
    OpenSaveDialog();
    for (const int list : {7, 9})
        EXPECT_EQ(Box(list).toolTip(), "The editor neither reads nor writes this file");
    for (const int paths : {8, 10})
        EXPECT_EQ(Box(paths).toolTip(), "The editor shows the paths of this file but never writes it");
}

}  // namespace
}  // namespace vtr
