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
    // The longest of the messages that come while a name is typed.
    const int message = window().fontMetrics().horizontalAdvance(
        QStringLiteral("The names file is full: shorten another name."));
    EXPECT_GT(Find<QToolButton>(window(), "project").x(), message + 10);
}

}  // namespace
}  // namespace vtr
