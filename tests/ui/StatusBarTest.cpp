#include <gtest/gtest.h>

#include "EditorWindow.h"
#include "StatusBar.h"

namespace vtr {
namespace {

class StatusBarTest : public EditorWindow {
  protected:
    /// Opens the sample campaign under another name.
    void StartWithName(const std::string &name) {
        WriteSample();
        std::string project = folder.Content("sample.prj");
        project.replace(0, project.find('\r'), "Name=" + name);
        folder.Make("sample.prj", project);
        window().Start(QString::fromStdString(SamplePath()));
    }
    /// Opens the sample campaign and gives the focus to the target's column.
    void StartInColumnField() {
        StartWithSample();
        Entry("mnu_e_target").trigger();
        QApplication::setActiveWindow(&window());
        Number("upd_tar_x").setFocus();
        ASSERT_TRUE(Number("upd_tar_x").hasFocus());
    }
};

TEST_F(StatusBarTest, AnAmpersandInTheProjectsNameIsShownAndIsNoKey) {
    StartWithName("Land & Sea");
    EXPECT_EQ(PanelText("project"), "  Land && Sea  ");
    EXPECT_TRUE(Find<QToolButton>(window(), "project").shortcut().isEmpty());
}

TEST_F(StatusBarTest, ALongProjectNameLeavesTheWindowItsSizeAndTheMessagesTheirRoom) {
    StartWithName(std::string(150, 'W'));
    const QSize size = window().size();
    for (const char *mode :
         {"mnu_e_frontline", "mnu_e_railway", "mnu_e_roadint", "mnu_e_railint", "mnu_e_target"}) {
        Entry(mode).trigger();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        QCoreApplication::processEvents();
        EXPECT_EQ(window().size(), size) << mode;
    }
    // The longest of the messages that come while something is typed.
    const int message = window().fontMetrics().horizontalAdvance(
        QStringLiteral("The names file is full: shorten another name."));
    EXPECT_GT(Find<QToolButton>(window(), "project").x(), message + 10);
}

TEST_F(StatusBarTest, NothingMovesWhileThePositionChanges) {
    StartWithSample();
    auto &position = Find<QToolButton>(window(), "xypos");
    const QRect place = position.geometry();
    const int zoom = Find<QToolButton>(window(), "zoom").x();
    for (const char *text : {"(0, 0)", "( 639,  319)", "(-640, -320)"}) {
        position.setText(text);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        QCoreApplication::processEvents();
        EXPECT_EQ(position.geometry(), place) << text;
        EXPECT_EQ(Find<QToolButton>(window(), "zoom").x(), zoom) << text;
        EXPECT_LE(position.sizeHint().width(), place.width()) << text << " is cut off";
    }
}

TEST_F(StatusBarTest, WhyANumericFieldRefusedAKeyStandsThereUntilAnotherFieldIsEntered) {
    StartInColumnField();
    const auto message = [this] { return Find<QStatusBar>(window(), "sb_status").currentMessage(); };
    QTest::keyClicks(&Number("upd_tar_x"), "e");
    EXPECT_EQ(message(), "Only a number from 0 to 639 fits here.");
    QTest::keyClicks(&Number("upd_tar_x"), ",");
    EXPECT_EQ(message(), "Write a fraction with a point, not a comma.");
    Number("upd_tar_y").setFocus();
    EXPECT_EQ(message(), "");
    QTest::keyClicks(&Number("upd_view_roadint"), "e");
    EXPECT_EQ(message(), "Only a number from 0 to 297 fits here.");
}

TEST_F(StatusBarTest, AnotherMessageStaysWhenAFieldIsEntered) {
    StartInColumnField();
    QTest::keyClicks(&Number("upd_tar_x"), "e");
    auto &bar = Find<QStatusBar>(window(), "sb_status");
    bar.showMessage("Something else");
    Number("upd_tar_y").setFocus();
    EXPECT_EQ(bar.currentMessage(), "Something else");
}

}  // namespace
}  // namespace vtr
