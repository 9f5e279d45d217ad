#include <gmock/gmock.h>
#include <signal.h>

#include <new>
#include <stdexcept>

#include "BoundarySession.h"
#include "DialogDriver.h"
#include "EventBoundary.h"

namespace vtr {
namespace {

using ::testing::HasSubstr;

/// Lets error fly out of an event and runs the event loop until the program ends; the message box is
/// accepted.
int ExitStatusAfter(const Error &error, ShownBox &shown) {
    QTimer::singleShot(0, qApp, [error] { throw error; });
    AcceptNextBox(shown);
    return QCoreApplication::exec();
}

class EventBoundaryTest : public ::testing::Test {
  protected:
    void SetUp() override { SetTo(false, QStringLiteral("Loading the project")); }
    void TearDown() override {
        SetTo(false, QStringLiteral("Your last action"));
        dynamic_cast<EventBoundary &>(*qApp).KeepWorkFirst([] { return Kept::NothingUnsaved; });
    }
    static void SetTo(bool projectLoaded, const QString &operation) {
        BoundarySession().campaign.ProjectLoaded = projectLoaded;
        BoundarySession().operation = operation.toStdString();
    }
};

TEST_F(EventBoundaryTest, AnErrorEndsTheProgramWithOneCriticalMessageThatSaysAll) {
    ShownBox shown;
    const Error error(ErrorKind::IndexOutOfRange,
                      {.file = "/c/TARGET.DAT", .offset = 20, .item = "target", .index = 5},
                      "an index from 0 to 307", "308");
    EXPECT_EQ(ExitStatusAfter(error, shown), 1);
    EXPECT_EQ(shown.count, 1);
    EXPECT_EQ(shown.icon, QMessageBox::Critical);
    EXPECT_EQ(shown.title, "VTR Target Editor");
    EXPECT_EQ(shown.text,
              "Loading the project failed.\n\nA number stands for something that does not exist.\n"
              "File: /c/TARGET.DAT\nPlace: offset 20, target 5\n"
              "Expected: an index from 0 to 307\nFound: 308\n\n"
              "The program ends now. Put right what is said above, if you can, and start it again.");
}

TEST_F(EventBoundaryTest, ASecondErrorShowsNoSecondMessage) {
    QTimer::singleShot(0, qApp, [] { throw Error(ErrorKind::Overflow, {.file = "/first"}, "a", "b"); });
    ShownBox shown;
    EXPECT_EQ(ExitStatusAfter(Error(ErrorKind::Overflow, {.file = "/second"}, "a", "b"), shown), 1);
    EXPECT_EQ(shown.count, 1);
    EXPECT_THAT(shown.text.toStdString(), HasSubstr("File: /first\n"));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(EventBoundaryTest, AnErrorOfTheLibrariesEndsTheProgramTheSameWay) {
    QTimer::singleShot(0, qApp, [] { throw std::runtime_error("in the library's words"); });
    ShownBox shown;
    AcceptNextBox(shown);
    EXPECT_EQ(QCoreApplication::exec(), 1);
    EXPECT_EQ(shown.icon, QMessageBox::Critical);
    EXPECT_EQ(shown.text,
              "Loading the project failed.\n\nin the library's words\n\n"
              "The program ends now. Put right what is said above, if you can, and start it again.");
}

TEST_F(EventBoundaryTest, ALackOfMemoryIsToldInAPlayersWords) {
    QTimer::singleShot(0, qApp, [] { throw std::bad_alloc(); });
    ShownBox shown;
    AcceptNextBox(shown);
    EXPECT_EQ(QCoreApplication::exec(), 1);
    EXPECT_TRUE(shown.text.startsWith("Loading the project failed.\n\nThere is not enough memory.\n\n"))
        << shown.text.toStdString();
}

TEST_F(EventBoundaryTest, WhenKeepingTheEditsFailsWithAnErrorOfItsOwnTheFirstErrorIsReported) {
    SetTo(true, QStringLiteral("Drawing the map"));
    dynamic_cast<EventBoundary &>(*qApp).KeepWorkFirst([]() -> Kept { throw std::bad_alloc(); });
    ShownBox shown;
    EXPECT_EQ(ExitStatusAfter(Error(ErrorKind::Overflow, {}, "a", "b"), shown), 1);
    EXPECT_THAT(shown.text.toStdString(), ::testing::StartsWith("Drawing the map failed."));
    EXPECT_THAT(shown.text.toStdString(), ::testing::HasSubstr("could not be kept and are lost"));
}

TEST_F(EventBoundaryTest, TheMessageSaysWhatBecameOfUnsavedEdits) {
    SetTo(true, QStringLiteral("Drawing the map"));
    auto &application = dynamic_cast<EventBoundary &>(*qApp);
    const auto textWith = [&application](Kept edits) {
        bool isKept = false;
        application.KeepWorkFirst([&] {
            EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
            isKept = true;
            return edits;
        });
        ShownBox shown;
        EXPECT_EQ(ExitStatusAfter(Error(ErrorKind::Overflow, {}, "a", "b"), shown), 1);
        EXPECT_TRUE(isKept);
        return shown.text.section(QStringLiteral("\n\n"), -1).toStdString();
    };
    EXPECT_EQ(textWith(Kept::Kept),
              "The program ends now. Your unsaved edits are kept; the editor offers them when you load the "
              "project again. Put right what is said above, if you can, and start it again.");
    EXPECT_EQ(textWith(Kept::Failed),
              "The program ends now. Your unsaved edits could not be kept and are lost; the files that you "
              "saved are as you saved them. Put right what is said above, if you can, and start it again.");
    EXPECT_EQ(textWith(Kept::NothingUnsaved),
              "The program ends now. Put right what is said above, if you can, and start it again.");
}

TEST_F(EventBoundaryTest, AWriteBeyondTheSizeLimitDoesNotEndTheProgramWithoutAWord) {
    struct sigaction action {};
    ASSERT_EQ(sigaction(SIGXFSZ, nullptr, &action), 0);
    EXPECT_EQ(action.sa_handler, SIG_IGN);
}

}  // namespace
}  // namespace vtr
