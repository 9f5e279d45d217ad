#pragma once

#include <QAction>
#include <QMenuBar>
#include <array>
#include <string>

#include "Preferences.h"

namespace vtr {

/// The menus of the main window and their entries, each under its object name.
struct MainMenu {
    explicit MainMenu(QMenuBar *bar);

    QMenu *mnu_project;
    QAction *mnu_p_new;
    QAction *mnu_p_load;
    QAction *mnu_p_export;
    QAction *mnu_p_copy;
    QAction *mnu_p_versions;
    QAction *mnu_p_mirror;
    QAction *mnu_p_tiles;
    QAction *mnu_p_prefs;
    std::array<QAction *, 4> mnu_p_last;
    QAction *mnu_p_div3;
    QAction *mnu_p_exit;

    QMenu *mnu_edit;
    QAction *mnu_e_target;
    QAction *mnu_e_frontline;
    QAction *mnu_e_railway;
    QAction *mnu_e_roadint;
    QAction *mnu_e_railint;
    QAction *mnu_e_undo;
    QAction *mnu_e_redo;
    QAction *mnu_e_list;

    QMenu *mnu_view;
    QAction *mnu_v_targets;
    QAction *mnu_v_frontlines;
    QAction *mnu_v_railways;
    QAction *mnu_v_roadint;
    QAction *mnu_v_railint;
    QAction *mnu_v_goto;

    QMenu *mnu_m_zoom;
    QAction *mnu_m_z_100;
    QAction *mnu_m_z_200;
    QAction *mnu_m_z_400;
    QAction *mnu_m_z_in;
    QAction *mnu_m_z_out;

    QMenu *mnu_help;
    QAction *mnu_h_tutorial;
    QAction *mnu_h_about;

    /// Shows the recent projects that have a name, newest first, and the separator below them when there are
    /// any.
    /// Shows beside each view entry in which colours its layer is drawn.
    void ShowColours(const Preferences &preferences) const;
    void ShowRecentProjects(const std::array<std::string, 4> &names) const;
};

}  // namespace vtr
