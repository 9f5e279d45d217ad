#include <gmock/gmock.h>

#include <QImage>
#include <QLabel>
#include <QStatusBar>
#include <cerrno>
#include <new>

#include "EditorWindow.h"
#include "MapFrame.h"
#include "Overview.h"
#include "SystemCalls.h"

namespace vtr {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class ProjectFileCommandsTest : public EditorWindow {
  protected:
    QLabel &Line() { return Find<QLabel>(window(), "lbl_upside_down"); }
    QString Status() { return Find<QStatusBar>(window(), "sb_status").currentMessage(); }
    QImage Overview() { return Find<QWidget>(window(), "Img_SmallMap").grab().toImage(); }
    const Picture &Map() { return Find<MapSurface>(window(), "Img_Map").Surface(); }
    /// Of a file that is written: the first flush is that of the temporary file, the second the folder's.
    static Fault TheSecondFlushFails() { return {.call = "fsync", .nth = 2, .error = EIO}; }
    void Settle() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        QCoreApplication::processEvents();
    }
    /// Chooses path in the folder chooser that entry opens.
    ShownChooser ChooseFor(const char *entry, const std::string &path) {
        ShownChooser chooser;
        ChooseNextFile(chooser, path);
        Entry(entry).trigger();
        EXPECT_EQ(chooser.count, 1);
        return chooser;
    }
};

TEST_F(ProjectFileCommandsTest, TheMapPictureIsTurnedOverOnDiskAndInTheWindowAndTwiceIsAsBefore) {
    StartWithSample();
    Number("upd_tar_x").SetNumber(7);
    const std::string before = folder.Content("map.bmp");
    const Picture shown = session->map;
    const QImage overview = Overview();
    const Picture map = Map();
    const std::string targets = folder.Content("TARGET.DAT");
    const bool phase = session->view.TargetFlashPhase;
    Entry("mnu_p_mirror").trigger();
    EXPECT_NE(session->view.TargetFlashPhase, phase) << "drawn once";
    EXPECT_TRUE(folder.Content("map.bmp") != before);
    ASSERT_EQ(session->map.width, shown.width);
    ASSERT_EQ(session->map.height, shown.height);
    for (const auto &[x, y] : {std::pair(0, 0), {100, 3}, {320, 160}, {639, 319}})
        EXPECT_EQ(session->map.pixels[static_cast<std::size_t>(y * 640 + x)],
                  shown.pixels[static_cast<std::size_t>((319 - y) * 640 + x)]);
    EXPECT_NE(Overview(), overview);
    EXPECT_TRUE(Map().pixels != map.pixels);
    EXPECT_EQ(session->campaign.TargetTable[0].x, 7);
    EXPECT_TRUE(folder.Content("TARGET.DAT") == targets);
    EXPECT_EQ(Status(), "map.bmp was mirrored.");
    Entry("mnu_p_mirror").trigger();
    EXPECT_TRUE(folder.Content("map.bmp") == before);
    EXPECT_TRUE(session->map.pixels == shown.pixels);
    EXPECT_EQ(Overview(), overview);
    EXPECT_TRUE(Map().pixels == map.pixels);
}

TEST_F(ProjectFileCommandsTest, AMapPictureOfAnotherKindIsShownButNotMirrored) {
    WriteSample();
    QImage(640, 320, QImage::Format_RGB32).save(QString::fromStdString(folder.Path() + "map.bmp"), "png");
    window().Start(QString::fromStdString(SamplePath()));
    const std::string before = folder.Content("map.bmp");
    const Picture shown = session->map;
    const ShownBox box = BoxShownBy([this] { Entry("mnu_p_mirror").trigger(); });
    EXPECT_EQ(box.icon, QMessageBox::Warning);
    EXPECT_THAT(box.text.toStdString(), HasSubstr("Mirroring the map picture failed."));
    EXPECT_THAT(box.text.toStdString(), HasSubstr(folder.Path() + "map.bmp"));
    EXPECT_THAT(box.text.toStdString(), HasSubstr("save it there as a bitmap without compression"));
    EXPECT_TRUE(folder.Content("map.bmp") == before);
    EXPECT_TRUE(session->map.pixels == shown.pixels);
}

TEST_F(ProjectFileCommandsTest, AMapPictureThatIsGoneIsToldAndTheProgramGoesOn) {
    StartWithSample();
    std::filesystem::remove(folder.Path() + "map.bmp");
    const ShownBox box = BoxShownBy([this] { Entry("mnu_p_mirror").trigger(); });
    EXPECT_THAT(box.text.toStdString(), HasSubstr("choose \"Mirror Map Picture\" again."));
    EXPECT_FALSE(session->map.Empty());
}

TEST_F(ProjectFileCommandsTest, AMirroredMapPictureThatIsNotSafelyOnTheDiskIsShownAndNotMirroredTwice) {
    StartWithSample();
    session->mapIsUpsideDown = true;
    const std::string before = folder.Content("map.bmp");
    const Picture shown = session->map;
    const QImage overview = Overview();
    const ShownBox box = BoxShownBy([this] {
        const SystemCalls calls({TheSecondFlushFails()});
        Entry("mnu_p_mirror").trigger();
    });
    EXPECT_THAT(box.text.toStdString(), HasSubstr("Flushing the folder to disk failed"));
    EXPECT_THAT(box.text.toStdString(),
                HasSubstr("The map picture is mirrored, on the disk and in the window."));
    EXPECT_TRUE(folder.Content("map.bmp") != before);
    EXPECT_EQ(session->map.pixels.front(), shown.pixels[319 * 640]);
    EXPECT_NE(Overview(), overview);
    EXPECT_FALSE(session->mapIsUpsideDown);
    EXPECT_FALSE(Line().isVisible());
}

TEST_F(ProjectFileCommandsTest, AMapPictureThatCouldNotBeShownAfterwardsIsNotMirrored) {
    StartWithSample();
    std::string map = folder.Content("map.bmp");
    map[28] = 2;  // as many bits a pixel as no reader takes
    folder.Make("map.bmp", map);
    const ShownBox box = BoxShownBy([this] { Entry("mnu_p_mirror").trigger(); });
    EXPECT_THAT(box.text.toStdString(), HasSubstr("The map that is shown is the old one."));
    EXPECT_TRUE(folder.Content("map.bmp") == map);
}

TEST_F(ProjectFileCommandsTest, WithoutMemoryACommandIsNotDoneAndTheProgramGoesOn) {
    StartWithSample();
    const auto names = folder.Names();
    std::filesystem::create_directory(folder.Path() + "copy");
    const auto expectToldBy = [this](const std::function<void()> &command) {
        const ShownBox box = BoxShownBy([&command] {
            const SystemCalls calls({{.call = "open", .lookOn = [] { throw std::bad_alloc(); }}});
            command();
        });
        EXPECT_EQ(box.icon, QMessageBox::Warning);
        EXPECT_THAT(box.text.toStdString(), HasSubstr("no memory left"));
    };
    expectToldBy([this] { Entry("mnu_p_mirror").trigger(); });
    expectToldBy([this] { ChooseFor("mnu_p_tiles", folder.Path() + "copy"); });
    expectToldBy([this] { ChooseFor("mnu_p_copy", folder.Path() + "copy"); });
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path() + "copy"));
}

TEST_F(ProjectFileCommandsTest, TheLineBesideTheMapMovesNothingAndIsShownWhole) {
    StartWithSample();
    EXPECT_FALSE(Line().isVisible());
    Settle();
    std::vector<QRect> before;
    const QList<QWidget *> widgets = window().findChildren<QWidget *>();
    for (const QWidget *widget : widgets)
        if (widget != &Line())
            before.push_back(widget->geometry());
    const QSize size = window().size();
    Line().show();
    Settle();
    std::size_t i = 0;
    for (const QWidget *widget : widgets)
        if (widget != &Line()) {
            QRect expected = before[i];
            if (widget->objectName() == "lbl_under")  // the room comes from its lower end
                expected.setBottom(widget->geometry().bottom());
            EXPECT_EQ(widget->geometry(), expected) << widget->objectName().toStdString();
            ++i;
        }
    EXPECT_EQ(window().size(), size);
    EXPECT_LE(Line().heightForWidth(Line().width()), Line().height());
    const QWidget &map = *Find<QWidget>(window(), "Img_Map").parentWidget();
    EXPECT_GT(Line().mapTo(&window(), QPoint()).x(), map.mapTo(&window(), map.rect().topRight()).x());
    EXPECT_LE(Line().mapTo(&window(), Line().rect().bottomRight()).x(), window().width());
}

TEST_F(ProjectFileCommandsTest, TheLinesLinkMirrorsTheMapByMouseAndByKeyAndThenItGoes) {
    StartWithSample();
    const std::string before = folder.Content("map.bmp");
    Line().show();
    Settle();
    Line().setFocus();
    QTest::keyClick(&Line(), Qt::Key_Tab);
    QTest::keyClick(&Line(), Qt::Key_Return);
    EXPECT_TRUE(folder.Content("map.bmp") != before);
    EXPECT_FALSE(Line().isVisible());
    Line().show();
    Settle();
    // The link ends in the last row of the text.
    QTest::mouseClick(&Line(), Qt::LeftButton, {}, QPoint(Line().width() / 2, Line().height() - 8));
    EXPECT_TRUE(folder.Content("map.bmp") == before);
    EXPECT_FALSE(Line().isVisible());
}

TEST_F(ProjectFileCommandsTest, TheLineGoesWhenAnotherProjectIsLoaded) {
    StartWithSample();
    session->mapIsUpsideDown = true;
    Entry("mnu_e_railway").trigger();
    EXPECT_TRUE(Line().isVisible());
    ShownBox question;
    AnswerNextBox(question, QMessageBox::No);
    Entry("mnu_p_last1").trigger();
    ASSERT_EQ(question.count, 1);
    EXPECT_FALSE(Line().isVisible());
}

TEST_F(ProjectFileCommandsTest, TheTilesFolderCountsAtOnceAndIsWrittenIntoTheProjectFileAlone) {
    StartWithSample();
    Number("upd_tar_x").SetNumber(7);
    for (const char *name : {"art", "tiles"})
        std::filesystem::create_directory(folder.Path() + name);
    const std::string old = session->campaign.paths.TilesDir;
    const auto files = folder.Names();
    const std::string before = folder.Content("sample.prj");
    const ShownChooser chooser = ChooseFor("mnu_p_tiles", folder.Path() + "art");
    EXPECT_EQ(chooser.title, "Tiles Folder");
    EXPECT_EQ(chooser.files, QFileDialog::Directory);
    EXPECT_EQ(chooser.folder.toStdString(), old);
    EXPECT_EQ(session->campaign.paths.TilesDir, folder.Path() + "art");
    std::string expected = before;
    const std::size_t line = expected.find("TILESDIR=");
    ASSERT_NE(line, std::string::npos);
    expected.replace(line, expected.find('\r', line) - line, "TILESDIR=art");
    EXPECT_EQ(folder.Content("sample.prj"), expected);
    EXPECT_EQ(folder.Names(), files);
    EXPECT_EQ(session->campaign.TargetTable[0].x, 7);
    EXPECT_EQ(Status().toStdString(), "The tiles are taken from " + folder.Path() + "art");
}

TEST_F(ProjectFileCommandsTest, ATilesFolderThatIsNotChosenChangesNothing) {
    StartWithSample();
    const std::string before = folder.Content("sample.prj");
    const std::string tiles = session->campaign.paths.TilesDir;
    ChooseFor("mnu_p_tiles", "");
    EXPECT_EQ(folder.Content("sample.prj"), before);
    EXPECT_EQ(session->campaign.paths.TilesDir, tiles);
}

TEST_F(ProjectFileCommandsTest, ATilesFolderThatCannotBeWrittenDownStillCounts) {
    StartWithSample();
    std::filesystem::remove(SamplePath());
    std::filesystem::create_directory(folder.Path() + "art");
    const ShownBox box = BoxShownBy([this] { ChooseFor("mnu_p_tiles", folder.Path() + "art"); });
    EXPECT_EQ(box.icon, QMessageBox::Warning);
    EXPECT_THAT(box.text.toStdString(), HasSubstr("File: " + SamplePath()));
    EXPECT_THAT(box.text.toStdString(), HasSubstr("The tiles are taken from " + folder.Path() + "art until"));
    EXPECT_EQ(session->campaign.paths.TilesDir, folder.Path() + "art");
}

TEST_F(ProjectFileCommandsTest, ATilesFolderThatIsWrittenButNotSafelyOnTheDiskIsNotToldAsLost) {
    StartWithSample();
    std::filesystem::create_directory(folder.Path() + "art");
    const ShownBox box = BoxShownBy([this] {
        const SystemCalls calls({TheSecondFlushFails()});
        ChooseFor("mnu_p_tiles", folder.Path() + "art");
    });
    EXPECT_THAT(box.text.toStdString(),
                HasSubstr("The tiles are taken from " + folder.Path() + "art, and the"));
    EXPECT_THAT(box.text.toStdString(), Not(HasSubstr("until")));
    EXPECT_THAT(folder.Content("sample.prj"), HasSubstr("TILESDIR=art\r\n"));
}

TEST_F(ProjectFileCommandsTest, ACopyOfTheProjectHoldsTheEditsAndTheOpenProjectStaysTheOpenOne) {
    WriteSample();
    for (const char *name : {"ROADLIST.DAT", "RAILLIST.DAT"})
        folder.Make(name, "");
    window().Start(QString::fromStdString(SamplePath()));
    Number("upd_tar_x").SetNumber(7);
    const std::string targets = folder.Content("TARGET.DAT");
    const auto recent = session->preferences.RecentProjectFiles;
    std::filesystem::create_directory(folder.Path() + "copy");
    const ShownChooser chooser = ChooseFor("mnu_p_copy", folder.Path() + "copy");
    EXPECT_EQ(chooser.title, "Save Copy of Project");
    EXPECT_EQ(chooser.files, QFileDialog::Directory);
    EXPECT_EQ(Status().toStdString(), "The project was copied to " + folder.Path() + "copy");
    EXPECT_TRUE(std::filesystem::exists(folder.Path() + "copy/sample.prj"));
    EXPECT_TRUE(folder.Content("copy/TARGET.DAT") != targets);
    EXPECT_TRUE(folder.Content("TARGET.DAT") == targets);
    EXPECT_EQ(session->campaign.paths.ProjectDir, folder.Path());
    EXPECT_EQ(session->preferences.RecentProjectFiles, recent);
}

TEST_F(ProjectFileCommandsTest, OfAVeryDeepFolderOnlyTheBeginningIsShown) {
    StartWithSample();
    const std::string deep = folder.MakeDeep();
    ChooseFor("mnu_p_tiles", deep);
    EXPECT_EQ(session->campaign.paths.TilesDir + '/', deep);
    EXPECT_THAT(Status().toStdString(), ::testing::StartsWith("The tiles are taken from /"));
    EXPECT_THAT(Status().toStdString(), ::testing::EndsWith("mmm..."));
    EXPECT_LT(Status().size(), 700);
    for (const char *name : {"ROADLIST.DAT", "RAILLIST.DAT"})
        folder.Make(name, "");
    ChooseFor("mnu_p_copy", deep);
    EXPECT_THAT(Status().toStdString(), ::testing::StartsWith("The project was copied to /"));
    EXPECT_THAT(Status().toStdString(), ::testing::EndsWith("mmm..."));
    EXPECT_LT(Status().size(), 700);
    ProjectPaths &paths = session->campaign.paths;
    paths.Map = "NONE";
    paths.ProjectDir = deep;
    const ShownBox box = BoxShownBy([this] { Entry("mnu_p_copy").trigger(); });
    EXPECT_THAT(box.text.toStdString(), HasSubstr("mmm... says Map=NONE"));
}

TEST_F(ProjectFileCommandsTest, ACopyTellsWhatItLacks) {
    StartWithSample();
    for (const char *name : {"GRIDDATA.DAT", "ROADLIST.DAT"})
        std::filesystem::remove(folder.Path() + name);
    session->campaign.TargetTable[7].y = 1759;
    std::filesystem::create_directory(folder.Path() + "copy");
    const ShownBox box = BoxShownBy([this] { ChooseFor("mnu_p_copy", folder.Path() + "copy"); });
    EXPECT_EQ(box.icon, QMessageBox::Warning);
    EXPECT_THAT(box.text.toStdString(), HasSubstr("The project was copied to " + folder.Path() + "copy."));
    EXPECT_THAT(box.text.toStdString(),
                HasSubstr("The project names these files, but they do not exist, so the copy lacks them: "
                          "GRIDDATA.DAT, ROADLIST.DAT."));
    EXPECT_THAT(box.text.toStdString(), HasSubstr("Target #7 did not fit."));
}

TEST_F(ProjectFileCommandsTest, ACopyIntoAFolderThatIsNotEmptyIsRefused) {
    StartWithSample();
    std::filesystem::create_directory(folder.Path() + "copy");
    folder.Make("copy/letter.txt", "mine");
    const ShownBox box = BoxShownBy([this] { ChooseFor("mnu_p_copy", folder.Path() + "copy"); });
    EXPECT_EQ(box.icon, QMessageBox::Warning);
    EXPECT_THAT(box.text.toStdString(), HasSubstr("Expected: an empty folder"));
    EXPECT_THAT(box.text.toStdString(), HasSubstr("No copy was made."));
    EXPECT_FALSE(std::filesystem::exists(folder.Path() + "copy/TARGET.DAT"));
}

TEST_F(ProjectFileCommandsTest, ACopyThatIsTakenAwayAgainIsNotToldAsWritten) {
    StartWithSample();
    std::filesystem::create_directory(folder.Path() + "copy");
    const ShownBox box = BoxShownBy([this] {
        const SystemCalls calls({TheSecondFlushFails()});
        ChooseFor("mnu_p_copy", folder.Path() + "copy");
    });
    EXPECT_THAT(box.text.toStdString(), HasSubstr("No copy was made."));
    EXPECT_THAT(box.text.toStdString(), Not(HasSubstr("written")));
}

TEST_F(ProjectFileCommandsTest, AProjectWithoutAMapPictureIsNotCopiedAndSaysWhy) {
    StartWithSample();
    session->campaign.paths.Map = "NONE";
    const ShownBox box = BoxShownBy([this] { Entry("mnu_p_copy").trigger(); });
    EXPECT_EQ(box.icon, QMessageBox::Warning);
    EXPECT_EQ(box.text.toStdString(),
              "No copy was made.\n\nThe project file " + SamplePath() +
                  " says Map=NONE, so the project's files were not loaded. Name its map picture there, load "
                  "the project, and copy it then.");
}

}  // namespace
}  // namespace vtr
