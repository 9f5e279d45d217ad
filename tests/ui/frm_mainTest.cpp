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

}  // namespace
}  // namespace vtr
