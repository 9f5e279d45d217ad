#include <set>

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

TEST_F(frm_mainTest, NoDialogIsDestroyedByBeingClosed) {
    StartWithSample();
    std::set<QString> seen;
    const auto look = [&seen](const QWidget &dialog) {
        seen.insert(dialog.objectName());
        EXPECT_FALSE(dialog.testAttribute(Qt::WA_DeleteOnClose)) << dialog.objectName().toStdString();
    };
    const auto closeNext = [&look] {
        WhenModalOpens<QDialog>([&look](QDialog &dialog) {
            look(dialog);
            dialog.reject();
        });
    };
    for (const char *entry : {"mnu_p_new", "mnu_p_versions", "mnu_p_prefs", "mnu_p_tiles", "mnu_p_copy",
                              "mnu_h_tutorial", "mnu_h_about"}) {
        closeNext();
        Entry(entry).trigger();
    }
    for (const char *button : {"cmd_target_search", "cmd_tar_tile", "cmd_tar_precise"}) {
        closeNext();
        Press<QPushButton>(window(), button);
    }
    Entry("mnu_p_export").trigger();
    for (const QDialog *const dialog : window().findChildren<QDialog *>())
        look(*dialog);
    for (const char *name : {"frm_newproject", "frm_versions", "frm_prefs", "cmdiag", "frm_tutorial",
                             "frm_about", "frm_findtarget", "frm_precise", "frm_save", "frm_progress"})
        EXPECT_TRUE(seen.contains(name)) << name;
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
