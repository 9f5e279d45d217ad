#include "EditorWindow.h"
#include "frm_main.h"

namespace vtr {
namespace {

using frm_mainTest = EditorWindow;

TEST_F(frm_mainTest, TheEntriesOfTheHelpMenuOpenTheirDialogsAlsoWithoutAProject) {
    window().Start(QString());
    for (const auto &[entry, dialog] :
         {std::pair("mnu_h_tutorial", "frm_tutorial"), {"mnu_h_about", "frm_about"}}) {
        const auto choose = [this, name = entry] { Entry(name).trigger(); };
        EXPECT_TRUE(InDialog(dialog, choose, [](QWidget &shown) { shown.close(); })) << entry;
    }
}

TEST_F(frm_mainTest, AMaximisedWindowStaysSoAndGetsItsSizeWithTheFrameOnceItIsNormal) {
    window().setWindowState(Qt::WindowMaximized);
    window().Start(QString());
    EXPECT_TRUE(window().isMaximized());
    window().showNormal();
    window().move(40, 50);
    QCoreApplication::processEvents();
    EXPECT_EQ(window().frameGeometry().size(), QSize(888, 742));
}

}  // namespace
}  // namespace vtr
