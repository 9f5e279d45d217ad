#include <gtest/gtest.h>

#include <QDropEvent>
#include <QMenu>
#include <QMimeData>

#include "Dropping.h"
#include "EditorWindow.h"
#include "MainMenu.h"

namespace vtr {
namespace {

class MainMenuTest : public EditorWindow {
  protected:
    /// A project file beside the sample's that differs from it in its name only.
    std::string MakeProject(const std::string &file, const std::string &name) {
        std::string text = folder.Content("sample.prj");
        text.replace(0, text.find('\r'), "Name=" + name);
        return folder.Make(file, text);
    }
    /// Drops the file on the window and declines to export the project that is open.
    void Load(const std::string &path) {
        question = {};
        AnswerNextBox(question, QMessageBox::No);
        QMimeData file;
        file.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
        ASSERT_TRUE(DropOn(window(), file));
        QCoreApplication::processEvents();
        ASSERT_EQ(question.count, 1);
        ASSERT_EQ(session->campaign.paths.ProjectDir + session->campaign.paths.ProjectFile, path);
    }
    /// Starts with a list of recent projects whose files are path, those without a name left out.
    void StartWithRecent(const std::array<std::string, 4> &names, const std::array<std::string, 4> &files) {
        std::string lines;
        for (std::size_t i = 0; i < 4; ++i)
            lines += "LASTPROJECT" + std::to_string(i + 1) + "=" + names[i] + "\r\nLASTFILE" +
                     std::to_string(i + 1) + "=" + files[i] + "\r\n";
        folder.Make("program/prefs.cfg", lines);
        window().Start(QString());
    }
    QAction &Last(int number) {
        return *window().findChild<QAction *>(QStringLiteral("mnu_p_last%1").arg(number));
    }
    /// The captions of the recent entries that are visible, and "-" for the separator below them.
    QStringList Recent() {
        QStringList shown;
        for (int number = 1; number <= 4; ++number)
            if (Last(number).isVisible())
                shown << Last(number).text();
        if (Entry("mnu_p_div3").isVisible())
            shown << QStringLiteral("-");
        return shown;
    }

  private:
    ShownBox question;
};

enum class Mark { None, Checked, Unchecked };

struct ExpectedEntry {
    const char *name;
    const char *caption = "";  ///< none: a separator
    const char *keys = "";
    Mark mark = Mark::None;
};

struct ExpectedMenu {
    const char *name;
    const char *caption;
    std::vector<ExpectedEntry> entries;
};

const std::vector<ExpectedMenu> expectedMenus{
    {"mnu_project",
     "&Project",
     {{"mnu_p_new", "&New Project...", "Ctrl+N"},
      {"mnu_p_load", "&Load Project...", "Ctrl+O"},
      {"mnu_p_div1"},
      {"mnu_p_export", "&Save Files...", "Ctrl+S"},
      {"mnu_p_copy", "Save &Copy of Project..."},
      {"mnu_p_versions", "&Earlier Versions..."},
      {"mnu_p_div5"},
      {"mnu_p_mirror", "&Mirror Map Picture"},
      {"mnu_p_tiles", "&Tiles Folder..."},
      {"mnu_p_div2"},
      {"mnu_p_prefs", "&Preferences..."},
      {"mnu_p_div4"},
      {"mnu_p_last1"},
      {"mnu_p_last2"},
      {"mnu_p_last3"},
      {"mnu_p_last4"},
      {"mnu_p_div3"},
      {"mnu_p_exit", "E&xit"}}},
    {"mnu_edit",
     "&Edit",
     {{"mnu_e_target", "&Targets", "F2", Mark::Checked},
      {"mnu_e_frontline", "&Frontlines", "F3", Mark::Unchecked},
      {"mnu_e_railway", "&Railways", "F4", Mark::Unchecked},
      {"mnu_e_roadint", "Roa&d Interdiction", "F5", Mark::Unchecked},
      {"mnu_e_railint", "Ra&il Interdiction", "F6", Mark::Unchecked},
      {"mnu_e_div1"},
      {"mnu_e_undo", "&Undo", "Ctrl+Z"},
      {"mnu_e_redo", "R&edo", "Ctrl+Shift+Z"},
      {"mnu_e_div2"},
      {"mnu_e_list", "&List of Items...", "Ctrl+L"}}},
    {"mnu_view",
     "&View",
     {{"mnu_v_targets", "&Targets", "", Mark::Checked},
      {"mnu_v_frontlines", "&Frontlines", "", Mark::Checked},
      {"mnu_v_railways", "&Railways", "", Mark::Checked},
      {"mnu_v_roadint", "Roa&d Interdiction", "", Mark::Unchecked},
      {"mnu_v_railint", "Ra&il Interdiction", "", Mark::Unchecked},
      {"mnu_v_div1"},
      {"mnu_v_goto", "&Go to Selected Item", "Home"}}},
    {"mnu_m_zoom",
     "&Zoom",
     {{"mnu_m_z_100", "&100%", "Ctrl+0", Mark::Checked},
      {"mnu_m_z_200", "&200%", "", Mark::Unchecked},
      {"mnu_m_z_400", "&400%", "", Mark::Unchecked},
      {"mnu_m_z_div1"},
      {"mnu_m_z_in", "Zoom &In", "Ctrl++"},
      {"mnu_m_z_out", "Zoom &Out", "Ctrl+-"}}},
    {"mnu_help", "&Help", {{"mnu_h_tutorial", "&Tutorial..."}, {"mnu_h_about", "&About..."}}},
};

void ExpectEntry(const QAction &entry, const ExpectedEntry &expected) {
    SCOPED_TRACE(expected.name);
    EXPECT_EQ(entry.objectName(), expected.name);
    EXPECT_EQ(entry.text(), expected.caption);
    EXPECT_EQ(entry.isSeparator(), QByteArrayView(expected.name).contains("div"));
    EXPECT_EQ(entry.shortcut(), QKeySequence(QLatin1String(expected.keys)));
    EXPECT_EQ(entry.isCheckable(), expected.mark != Mark::None);
    EXPECT_EQ(entry.isChecked(), expected.mark == Mark::Checked);
}

TEST_F(MainMenuTest, EveryMenuAndEntryHasItsNameCaptionKeyAndFirstMark) {
    const QList<QAction *> menus = window().menuBar()->actions();
    ASSERT_EQ(static_cast<std::size_t>(menus.size()), expectedMenus.size());
    for (std::size_t i = 0; i < expectedMenus.size(); ++i) {
        const QMenu *menu = menus[static_cast<int>(i)]->menu();
        ASSERT_NE(menu, nullptr);
        EXPECT_EQ(menu->objectName(), expectedMenus[i].name);
        EXPECT_EQ(menu->title(), expectedMenus[i].caption);
        const QList<QAction *> entries = menu->actions();
        ASSERT_EQ(static_cast<std::size_t>(entries.size()), expectedMenus[i].entries.size());
        for (std::size_t k = 0; k < expectedMenus[i].entries.size(); ++k)
            ExpectEntry(*entries[static_cast<int>(k)], expectedMenus[i].entries[k]);
    }
}

TEST_F(MainMenuTest, NoKeyStandsForTwoEntriesOfAMenuAlsoWhenTheRecentProjectsAreShown) {
    StartWithRecent({"North", "South", "East", "West"}, {});
    for (const QAction *bar : window().menuBar()->actions()) {
        QSet<QKeySequence> keys;
        for (const QAction *entry : bar->menu()->actions()) {
            if (entry->isSeparator())
                continue;
            const QKeySequence key = QKeySequence::mnemonic(entry->text());
            EXPECT_FALSE(key.isEmpty()) << entry->text().toStdString();
            EXPECT_FALSE(keys.contains(key)) << entry->text().toStdString();
            keys.insert(key);
        }
    }
}

TEST_F(MainMenuTest, WhatWorksOnTheFilesOfAProjectNeedsOne) {
    window().Start(QString());
    for (const char *name : {"mnu_p_export", "mnu_p_copy", "mnu_p_versions", "mnu_p_mirror", "mnu_p_tiles"})
        EXPECT_FALSE(Entry(name).isEnabled()) << name;
    ASSERT_FALSE(session->campaign.ProjectLoaded);
    WriteSample();
    QMimeData file;
    file.setUrls({QUrl::fromLocalFile(QString::fromStdString(SamplePath()))});
    ASSERT_TRUE(DropOn(window(), file));
    QCoreApplication::processEvents();
    ASSERT_TRUE(session->campaign.ProjectLoaded);
    for (const char *name : {"mnu_p_export", "mnu_p_copy", "mnu_p_versions", "mnu_p_mirror", "mnu_p_tiles"})
        EXPECT_TRUE(Entry(name).isEnabled()) << name;
}

TEST_F(MainMenuTest, NoRecentProjectIsShownWhileNoneIsKnown) {
    window().Start(QString());
    EXPECT_EQ(Recent(), QStringList());
}

TEST_F(MainMenuTest, ARecentProjectsNameIsUTF8OrElse1252) {
    StartWithRecent({"\xD0\xA4\xD1\x80", "N\xF6rd", "", ""}, {});
    EXPECT_EQ(Recent(),
              (QStringList{QStringLiteral("&1 \u0424\u0440"), QStringLiteral("&2 N\u00F6rd"), "-"}));
}

TEST_F(MainMenuTest, TheRecentProjectsAreShownWithTheirNumbersAndASeparator) {
    StartWithRecent({"North", "South", "East", "West"}, {});
    EXPECT_EQ(Recent(), (QStringList{"&1 North", "&2 South", "&3 East", "&4 West", "-"}));
}

TEST_F(MainMenuTest, AnEntryWithoutANameStaysHiddenAmongOthers) {
    StartWithRecent({"", "South", "", "West"}, {"a.prj", "b.prj", "c.prj", "d.prj"});
    EXPECT_EQ(Recent(), (QStringList{"&2 South", "&4 West", "-"}));
    EXPECT_EQ(Last(1).text(), "");
}

TEST_F(MainMenuTest, AnAmpersandInANameIsShownAndUnderlinesNothing) {
    StartWithRecent({"Land & Sea", "", "", ""}, {});
    EXPECT_EQ(Recent(), (QStringList{"&1 Land && Sea", "-"}));
}

TEST_F(MainMenuTest, EntriesOneToFourLoadTheirOwnFiles) {
    WriteSample();
    const std::array<std::string, 4> files{MakeProject("a.prj", "A"), MakeProject("b.prj", "B"),
                                           MakeProject("c.prj", "C"), MakeProject("d.prj", "D")};
    for (std::size_t i = 0; i < files.size(); ++i) {
        Session own;
        own.programFolder = session->programFolder;
        std::string lines;
        for (std::size_t k = 0; k < 4; ++k) {
            const std::string number = std::to_string(k + 1);
            lines +=
                "LASTPROJECT" + number + "=P" + number + "\r\nLASTFILE" + number + "=" + files[k] + "\r\n";
        }
        folder.Make("program/prefs.cfg", lines);
        frm_main editor(own);
        editor.Start(QString());
        editor.findChild<QAction *>(QStringLiteral("mnu_p_last%1").arg(i + 1))->trigger();
        EXPECT_EQ(own.campaign.paths.Name, std::string(1, "ABCD"[i]));
        EXPECT_EQ(own.preferences.RecentProjectFiles[0], files[i]);
        EXPECT_EQ(own.preferences.RecentProjectFiles[1], files[0]);
    }
}

TEST_F(MainMenuTest, LoadingAThenBThenAGivesABA) {
    StartWithSample();
    EXPECT_EQ(Recent(), (QStringList{"&1 Yaxel Sound", "-"}));
    const std::string a = MakeProject("a.prj", "A");
    const std::string b = MakeProject("b.prj", "B");
    Load(a);
    Load(b);
    Load(a);
    EXPECT_EQ(Recent(), (QStringList{"&1 A", "&2 B", "&3 A", "&4 Yaxel Sound", "-"}));
    EXPECT_EQ(session->preferences.RecentProjectFiles, (std::array<std::string, 4>{a, b, a, SamplePath()}));
    Load(b);
    EXPECT_EQ(Recent(), (QStringList{"&1 B", "&2 A", "&3 B", "&4 A", "-"}));
}

TEST_F(MainMenuTest, AProjectWithoutANameHidesItsEntryWhichKeepsItsCaption) {
    StartWithSample();
    Load(MakeProject("nameless.prj", ""));
    EXPECT_EQ(Recent(), (QStringList{"&2 Yaxel Sound", "-"}));
    EXPECT_EQ(Last(1).text(), "&1 Yaxel Sound");
    // That caption still stands for the newest entry.
    Load(SamplePath());
    EXPECT_EQ(Recent(), (QStringList{"&2 Yaxel Sound", "-"}));
}

}  // namespace
}  // namespace vtr
