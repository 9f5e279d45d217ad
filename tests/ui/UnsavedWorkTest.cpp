#include <gmock/gmock.h>

#include <QElapsedTimer>
#include <QStatusBar>

#include "BytesOf.h"
#include "EditorWindow.h"
#include "KeptWork.h"
#include "RedrawCounter.h"
#include "StoppedSave.h"
#include "SystemCalls.h"
#include "UnsavedWork.h"
#include "WholeFile.h"

namespace vtr {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

/// Waits until what happens soon has happened; false when it does not.
bool Soon(const std::function<bool()> &happened, int milliseconds = 1000) {
    return QTest::qWaitFor(happened, milliseconds);
}

class UnsavedWorkTest : public EditorWindow {
  protected:
    void MoveTarget(int target, int x) {
        auto after = std::make_unique<Campaign>(session->campaign);
        after->TargetTable[static_cast<std::size_t>(target)].x = static_cast<std::int16_t>(x);
        session->TakeOver("Move", DifferencesOf(session->campaign, *after));
    }
    int XOf(int target) const { return session->campaign.TargetTable[static_cast<std::size_t>(target)].x; }

    /// The files of unsaved work there are, in the order of their names.
    std::vector<std::string> WorkFiles() const {
        std::vector<std::string> paths;
        std::error_code none;
        for (const auto &entry : fs::directory_iterator(folder.Path() + "data/unsaved", none))
            if (entry.path().extension() == ".unsaved")
                paths.push_back(entry.path());
        std::ranges::sort(paths);
        return paths;
    }
    /// The column of a target in the only file of unsaved work.
    int KeptXOf(int target) const {
        const auto tables = std::make_unique<Campaign>();
        const std::vector<std::string> files = WorkFiles();
        EXPECT_THAT(files, SizeIs(1));
        DecodeUnsavedWork(ReadWholeFile(files.at(0)), "", *tables);
        return tables->TargetTable[static_cast<std::size_t>(target)].x;
    }

    /// Leaves work of the sample in which target 5 stands at x, so many minutes old, and gives its path.
    std::string LeaveWork(int x, int minutesAgo = 0) {
        const auto tables = std::make_unique<Campaign>(session->campaign);
        tables->TargetTable[5].x = static_cast<std::int16_t>(x);
        const KeptWork work(session->dataFolder, SamplePath());
        const auto when = QDateTime(QDate(2026, 11, 21), QTime(14, 3)).addSecs(-60 * minutesAgo);
        const Bytes bytes = EncodeUnsavedWork(
            {work.Project(), when.toSecsSinceEpoch(), StampedFilesOf(session->fileStamps)}, *tables);
        std::ofstream(work.Path(), std::ios::binary)
            .write(reinterpret_cast<const char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        fs::last_write_time(work.Path(), fs::file_time_type::clock::now() - std::chrono::minutes(minutesAgo));
        return work.Path();
    }

    /// Starts with the sample and presses those buttons in the boxes that come, one each; gives their texts.
    std::vector<std::string> TextsAtLoad(const std::vector<QString> &buttons) {
        std::vector<std::string> texts;
        std::function<void(QMessageBox &)> answer = [&](QMessageBox &box) {
            EXPECT_EQ(box.windowTitle(), "VTR Target Editor");
            const QString &wanted = buttons.at(texts.size());
            texts.push_back(box.text().toStdString());
            if (texts.size() < buttons.size())
                WhenModalOpens<QMessageBox>(answer);
            if (wanted == QStringLiteral("Escape"))
                return QTest::keyClick(&box, Qt::Key_Escape);
            for (QAbstractButton *button : box.buttons())
                if (button->text().remove(QLatin1Char('&')) == wanted)
                    return button->click();
            ADD_FAILURE() << "no button " << wanted.toStdString();
            box.reject();
        };
        if (!buttons.empty())
            WhenModalOpens<QMessageBox>(answer);
        window().Start(QString::fromStdString(SamplePath()));
        Find<QTimer>(window(), QStringLiteral("tmr_TargetFlash")).stop();
        EXPECT_EQ(texts.size(), buttons.size());
        return texts;
    }
};

TEST_F(UnsavedWorkTest, IsKeptTwoSecondsAfterTheLastEdit) {
    StartWithSample();
    MoveTarget(5, 100);
    QTest::qWait(1500);
    MoveTarget(5, 101);
    QTest::qWait(1500);
    EXPECT_THAT(WorkFiles(), IsEmpty());
    EXPECT_TRUE(Soon([this] { return !WorkFiles().empty(); }));
    EXPECT_EQ(KeptXOf(5), 101);
}

TEST_F(UnsavedWorkTest, IsKeptFourSecondsAfterTheFirstEditThoughOthersFollow) {
    StartWithSample();
    QElapsedTimer clock;
    clock.start();
    for (int x = 100; WorkFiles().empty() && clock.elapsed() < 6000; ++x) {
        MoveTarget(5, x);
        QTest::qWait(100);
    }
    EXPECT_GE(clock.elapsed(), 3500);
    EXPECT_LT(clock.elapsed(), 5000);
}

TEST_F(UnsavedWorkTest, WithoutEditsNothingIsEverWritten) {
    StartWithSample();
    window().close();
    EXPECT_FALSE(fs::exists(folder.Path() + "data"));
}

TEST_F(UnsavedWorkTest, IsKeptWhenTheWindowIsClosed) {
    StartWithSample();
    MoveTarget(5, 100);
    window().close();
    EXPECT_EQ(KeptXOf(5), 100);
}

TEST_F(UnsavedWorkTest, IsRemovedWhenNothingIsUnsaved) {
    StartWithSample();
    MoveTarget(5, 100);
    window().KeepWork();
    EXPECT_THAT(WorkFiles(), SizeIs(1));
    session->FilesSaved({"GRIDDATA.DAT"});
    EXPECT_FALSE(Soon([this] { return WorkFiles().empty(); }, 200));
    session->FilesSaved({"TARGET.DAT"});
    EXPECT_TRUE(Soon([this] { return WorkFiles().empty(); }));
}

TEST_F(UnsavedWorkTest, EditsThatNoSaveCanWriteSurvive) {
    StartWithSample();
    auto after = std::make_unique<Campaign>(session->campaign);
    for (TargetRecord &target : after->TargetTable) {  // no grid holds all of them in one place
        target.x = 639;
        target.fineOffsets = {4100, 4100};
    }
    session->TakeOver("Move", DifferencesOf(session->campaign, *after));
    window().close();
    EndAndMakeAnew();
    TextsAtLoad({QStringLiteral("Take Back")});
    EXPECT_TRUE(session->campaign == *after);
}

class OfferedWorkTest : public UnsavedWorkTest {
  protected:
    OfferedWorkTest() {
        StartWithSample();
        EXPECT_NE(XOf(5), 100);
        EXPECT_NE(XOf(5), 101);
    }

    /// Takes the work at left back in a new process that cannot write it anew.
    void TakeBackOnAFullDisk(const std::string &left) {
        EndAndMakeAnew();
        const SystemCalls full({{.call = "write", .nth = 1, .error = ENOSPC}});
        TextsAtLoad({QStringLiteral("Take Back")});
        QTest::qWait(200);
        EXPECT_THAT(WorkFiles(), ElementsAre(left));
    }
};

TEST_F(OfferedWorkTest, IsTakenBackAsOneEditThatIsKeptAtOnce) {
    const std::string left = LeaveWork(100);
    EndAndMakeAnew();
    EXPECT_THAT(
        TextsAtLoad({QStringLiteral("Take Back")}),
        ElementsAre("There is unsaved work of 21 November 2026, 14:03: 1 difference in TARGET.DAT. Take it "
                    "back?"));
    EXPECT_EQ(XOf(5), 100);
    EXPECT_TRUE(session->HasUnsavedEdits());
    EXPECT_TRUE(Soon([&] { return !fs::exists(left) && !WorkFiles().empty(); }));
    EXPECT_EQ(KeptXOf(5), 100);

    ASSERT_NE(session->history.ToUndo(), nullptr);
    EXPECT_EQ(session->history.ToUndo()->name, "Take Back Unsaved Work");
    session->Undo();
    EXPECT_EQ(session->history.ToUndo(), nullptr);
    EXPECT_FALSE(session->HasUnsavedEdits());
    EXPECT_TRUE(Soon([this] { return WorkFiles().empty(); }));
}

TEST_F(OfferedWorkTest, ThatIsTakenBackIsShownWithOneRedraw) {
    session->campaign.TargetTable[0].x = 77;
    LeaveWork(100);
    EndAndMakeAnew();
    int countAtQuestion = 0;
    RedrawCounter redraws;
    const auto noteCount = [&](QMessageBox &) { countAtQuestion = redraws.count; };
    WhenModalOpens<QMessageBox>(noteCount);
    TextsAtLoad({QStringLiteral("Take Back")});
    EXPECT_GT(countAtQuestion, 0);
    EXPECT_EQ(redraws.count, countAtQuestion + 1);
    EXPECT_EQ(Number("upd_tar_x").value(), 77);
}

TEST_F(OfferedWorkTest, StaysUntilWhatWasTakenBackIsKeptAnew) {
    const std::string left = LeaveWork(100);
    EndAndMakeAnew();
    {
        const SystemCalls full({{.call = "write", .nth = 1, .error = ENOSPC}});
        TextsAtLoad({QStringLiteral("Take Back")});
        EXPECT_EQ(XOf(5), 100);
        QTest::qWait(200);
        EXPECT_THAT(full.Made(), ::testing::Contains("write"));
    }
    EXPECT_THAT(WorkFiles(), ElementsAre(left));
}

TEST_F(OfferedWorkTest, ThatCouldNotBeKeptAnewGoesWithALaterKeepThatSucceeds) {
    TakeBackOnAFullDisk(LeaveWork(100));
    EXPECT_EQ(window().KeepWork(), Kept::Kept);
    EXPECT_EQ(KeptXOf(5), 100);
}

TEST_F(OfferedWorkTest, ThatCouldNotBeKeptAnewGoesWhenAllIsSaved) {
    TakeBackOnAFullDisk(LeaveWork(100));
    session->FilesSaved({"TARGET.DAT", "GRIDDATA.DAT"});
    EXPECT_TRUE(Soon([this] { return WorkFiles().empty(); }));
}

TEST_F(OfferedWorkTest, GoesWhenAllIsSavedThoughNoFileForItCouldBeMade) {
    LeaveWork(100);
    EndAndMakeAnew();
    {
        const SystemCalls full({{.call = "openat", .nth = 1, .error = ENOSPC}});
        TextsAtLoad({QStringLiteral("Take Back")});
        EXPECT_THAT(full.Made(), ::testing::Contains("openat"));
    }
    EXPECT_THAT(WorkFiles(), SizeIs(1));
    session->FilesSaved({"TARGET.DAT", "GRIDDATA.DAT"});
    EXPECT_TRUE(Soon([this] { return WorkFiles().empty(); }));
}

TEST_F(OfferedWorkTest, ThatCouldNotBeKeptAnewIsOfferedAgainWhenItsProjectIsLoadedAgain) {
    const std::string left = LeaveWork(100);
    TakeBackOnAFullDisk(left);
    {
        const SystemCalls full({{.call = "write", .nth = 1, .error = ENOSPC}});
        EXPECT_THAT(TextsAtLoad({QStringLiteral("OK"), QStringLiteral("Keep for Later")}),
                    ElementsAre(StartsWith("Keeping your unsaved edits failed.\n\nWriting the temporary file "
                                           "failed: No space left on device\nFile: "),
                                HasSubstr("14:03")));
    }
    MoveTarget(7, 200);
    EXPECT_EQ(window().KeepWork(), Kept::Kept);
    EXPECT_TRUE(fs::exists(left));
}

TEST_F(OfferedWorkTest, ComesBeforeTheMessageOfASaveThatStoppedHalfWay) {
    LeaveWork(100);
    folder.Make("TARNAMES.STR", folder.Content("TARNAMES.STR") + "x");
    MakeVersionsFolder(session->dataFolder, session->campaign.paths);
    NoteSave(VersionsFolderOf(session->dataFolder, session->campaign.paths), {"TARGET.DAT"});
    EndAndMakeAnew();
    EXPECT_THAT(TextsAtLoad({QStringLiteral("Take Back"), QStringLiteral("OK")}),
                ElementsAre(StartsWith("The last save of this project stopped half way. The project's files "
                                       "have been changed since: TARNAMES.STR. There is unsaved work of "),
                            StartsWith("The last save of this project stopped half way, so the")));
    EXPECT_EQ(XOf(5), 100);
}

TEST_F(OfferedWorkTest, OfTwoIsTakenBackOnceAndTheOtherStaysForLater) {
    const std::string other = LeaveWork(101, 30);
    LeaveWork(100);
    EndAndMakeAnew();
    EXPECT_THAT(TextsAtLoad({QStringLiteral("Take Back")}), ElementsAre(HasSubstr("14:03")));
    EXPECT_EQ(XOf(5), 100);
    EXPECT_EQ(window().KeepWork(), Kept::Kept);
    EXPECT_THAT(WorkFiles(), ::testing::AllOf(SizeIs(2), ::testing::Contains(other)));
}

TEST_F(OfferedWorkTest, ThatIsKeptForLaterIsNotOverwrittenByNewEdits) {
    const std::string left = LeaveWork(100);
    const Bytes bytes = ReadWholeFile(left);
    EndAndMakeAnew();
    TextsAtLoad({QStringLiteral("Keep for Later")});
    EXPECT_FALSE(session->HasUnsavedEdits());
    MoveTarget(7, 200);
    window().close();
    EXPECT_THAT(WorkFiles(), SizeIs(2));
    EXPECT_EQ(ReadWholeFile(left), bytes);
}

TEST_F(OfferedWorkTest, IsKeptForLaterByTheEscapeKey) {
    const std::string left = LeaveWork(100);
    EndAndMakeAnew();
    TextsAtLoad({QStringLiteral("Escape")});
    EXPECT_THAT(WorkFiles(), ElementsAre(left));
    EXPECT_FALSE(session->HasUnsavedEdits());
}

TEST_F(OfferedWorkTest, ThatIsThrownAwayIsGone) {
    LeaveWork(100);
    EndAndMakeAnew();
    TextsAtLoad({QStringLiteral("Throw Away")});
    EXPECT_THAT(WorkFiles(), IsEmpty());
    EXPECT_FALSE(session->HasUnsavedEdits());
}

TEST_F(OfferedWorkTest, IsAskedAboutOneAfterTheOtherTheNewestFirst) {
    LeaveWork(100, 30);
    LeaveWork(101, 0);
    EndAndMakeAnew();
    EXPECT_THAT(TextsAtLoad({QStringLiteral("Throw Away"), QStringLiteral("Take Back")}),
                ElementsAre(HasSubstr("14:03"), HasSubstr("13:33")));
    EXPECT_EQ(XOf(5), 100);
}

TEST_F(OfferedWorkTest, SaysFirstWhichFilesHaveChangedSince) {
    LeaveWork(100);
    std::string file = folder.Content("FRNTLINE.DAT");
    file[16] = file[16] == 1 ? 0 : 1;
    folder.Make("FRNTLINE.DAT", file);
    folder.Make("GRIDDATA.DAT", "no edit rests on it");
    EndAndMakeAnew();
    EXPECT_THAT(TextsAtLoad({QStringLiteral("Take Back")}),
                ElementsAre(StartsWith("The project's files have been changed since: FRNTLINE.DAT. There is "
                                       "unsaved work of 21 November 2026, 14:03: ")));
}

TEST_F(OfferedWorkTest, ThatMakesNoDifferenceIsRemovedInSilence) {
    LeaveWork(XOf(5));
    EndAndMakeAnew();
    TextsAtLoad({});
    EXPECT_THAT(WorkFiles(), IsEmpty());
}

TEST_F(OfferedWorkTest, ThatIsDamagedIsToldOnceAndSetAside) {
    const std::string left = LeaveWork(100);
    fs::resize_file(left, 5000);
    EndAndMakeAnew();
    const std::vector<std::string> texts = TextsAtLoad({QStringLiteral("OK")});
    EXPECT_THAT(texts.at(0),
                StartsWith("Reading the unsaved work failed.\n\nFile too short.\nFile: " + left));
    EXPECT_THAT(texts.at(0), HasSubstr("The project is loaded, and nothing else is affected."));
    EXPECT_THAT(texts.at(0), HasSubstr("It is now kept as " + left + ".damaged"));
    EXPECT_TRUE(session->campaign.ProjectLoaded);
    EXPECT_TRUE(fs::exists(left + ".damaged"));
    EndAndMakeAnew();
    TextsAtLoad({});
}

TEST_F(OfferedWorkTest, OfAnotherVersionIsToldAndStays) {
    const std::string left = LeaveWork(100);
    std::fstream(left, std::ios::in | std::ios::out | std::ios::binary).seekp(8).put(2);
    EndAndMakeAnew();
    const std::vector<std::string> texts = TextsAtLoad({QStringLiteral("OK")});
    EXPECT_THAT(texts.at(0), HasSubstr("Found: format 2, which another version of the editor wrote"));
    EXPECT_THAT(texts.at(0), HasSubstr("load the project in the version of the editor that wrote them."));
    EXPECT_THAT(WorkFiles(), ElementsAre(left));
}

TEST_F(OfferedWorkTest, OfAProgramThatRunsIsNotOffered) {
    const KeptWork others(session->dataFolder, SamplePath());
    fs::rename(LeaveWork(100), others.Path());
    EndAndMakeAnew();
    TextsAtLoad({});
    EXPECT_THAT(WorkFiles(), ElementsAre(others.Path()));
}

TEST_F(OfferedWorkTest, IsKeptBeforeAProjectIsLoadedAndOfferedWhenItsOwnIsLoadedAgain) {
    MoveTarget(5, 100);
    EXPECT_THAT(TextsAtLoad({QStringLiteral("Keep for Later")}),
                ElementsAre(HasSubstr("1 difference in TARGET.DAT")));
    EXPECT_NE(XOf(5), 100);
    // Edits that follow are others.
    MoveTarget(7, 200);
    EXPECT_THAT(TextsAtLoad({QStringLiteral("Throw Away"), QStringLiteral("Take Back")}), SizeIs(2));
    EXPECT_EQ(XOf(5), 100);
    EXPECT_NE(XOf(7), 200);
}

TEST_F(UnsavedWorkTest, AFullDiskIsToldOnceAndDisturbsNoEdit) {
    StartWithSample();
    MoveTarget(5, 100);
    auto &status = Find<QStatusBar>(window(), QStringLiteral("sb_status"));
    {
        const SystemCalls full(
            {{.call = "write", .nth = 1, .error = ENOSPC}, {.call = "write", .nth = 2, .error = ENOSPC}});
        EXPECT_EQ(window().KeepWork(), Kept::Failed);
        QCoreApplication::processEvents();
        EXPECT_EQ(status.currentMessage().toStdString(),
                  "Your unsaved edits cannot be kept in " + session->dataFolder +
                      ": No space left on device. Save the files, or they are lost when the editor fails.");
        status.clearMessage();
        MoveTarget(5, 101);
        EXPECT_EQ(window().KeepWork(), Kept::Failed);
        QCoreApplication::processEvents();
        EXPECT_EQ(status.currentMessage(), QString());
    }
    EXPECT_EQ(XOf(5), 101);
    EXPECT_EQ(window().KeepWork(), Kept::Kept);
    EXPECT_EQ(KeptXOf(5), 101);
}

TEST_F(UnsavedWorkTest, ThatCannotBeKeptWhenTheWindowIsClosedIsTold) {
    StartWithSample();
    MoveTarget(5, 100);
    const SystemCalls full({{.call = "write", .nth = 1, .error = ENOSPC}});
    const ShownBox box = BoxShownBy([this] { window().close(); });
    EXPECT_EQ(box.icon, QMessageBox::Warning);
    EXPECT_THAT(box.text.toStdString(),
                StartsWith("Keeping your unsaved edits failed.\n\nWriting the temporary "
                           "file failed: No space left on device\nFile: "));
    EXPECT_THAT(box.text.toStdString(),
                HasSubstr("The editor closes now. The edits that you have not saved are lost;"));
    EXPECT_FALSE(window().isVisible());
}

TEST_F(UnsavedWorkTest, ThatCannotBeKeptIsTriedAgainWithoutAnotherEdit) {
    StartWithSample();
    MoveTarget(5, 100);
    {
        const SystemCalls full({{.call = "write", .nth = 1, .error = ENOSPC}});
        EXPECT_EQ(window().KeepWork(), Kept::Failed);
    }
    EXPECT_TRUE(Soon([this] { return !WorkFiles().empty(); }, 5000));
    EXPECT_EQ(KeptXOf(5), 100);
}

TEST_F(UnsavedWorkTest, IsKeptAgainAfterTheDataFolderWasRemoved) {
    StartWithSample();
    MoveTarget(5, 100);
    EXPECT_EQ(window().KeepWork(), Kept::Kept);
    fs::remove_all(folder.Path() + "data");
    MoveTarget(5, 101);
    EXPECT_EQ(window().KeepWork(), Kept::Kept);
    EXPECT_EQ(KeptXOf(5), 101);
    EXPECT_THAT(AbandonedWork(session->dataFolder, SamplePath()), IsEmpty());
}

TEST_F(UnsavedWorkTest, AReadOnlyDataFolderIsToldTheSameWay) {
    StartWithSample();
    MoveTarget(5, 100);
    fs::permissions(folder.Path(), fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_exec);
    {
        const OrdinaryUser user;
        EXPECT_EQ(window().KeepWork(), Kept::Failed);
    }
    fs::permissions(folder.Path(), fs::perms::owner_all);
    EXPECT_THAT(Find<QStatusBar>(window(), QStringLiteral("sb_status")).currentMessage().toStdString(),
                HasSubstr(": Permission denied. Save the files"));
}

TEST_F(UnsavedWorkTest, WhereNothingIsToBeKeptNothingIs) {
    session->dataFolder.clear();
    StartWithSample();
    MoveTarget(5, 100);
    EXPECT_EQ(window().KeepWork(), Kept::Failed);
    EXPECT_FALSE(fs::exists(folder.Path() + "data"));
}

TEST_F(UnsavedWorkTest, AWindowThatIsClosedInSilenceShowsNothingUnderAnOpenMessage) {
    StartWithSample();
    MoveTarget(5, 100);
    fs::remove_all(folder.Path() + "program");  // the preferences cannot be written
    WhenModalOpens<QMessageBox>([this](QMessageBox &box) {
        window().CloseInSilence();
        EXPECT_EQ(QApplication::activeModalWidget(), &box);
        box.reject();
    });
    QMessageBox(QMessageBox::Information, QString(), QStringLiteral("open"), QMessageBox::Ok, &window())
        .exec();
    EXPECT_FALSE(window().isVisible());
    EXPECT_EQ(KeptXOf(5), 100);
}

}  // namespace
}  // namespace vtr
