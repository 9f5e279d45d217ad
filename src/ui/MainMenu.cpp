#include "MainMenu.h"

#include <QPainter>

#include "GameText.h"
#include "MapPen.h"

namespace vtr {

namespace {

QMenu *AddMenu(QMenuBar *bar, const char *name, const char *caption) {
    QMenu *menu = bar->addMenu(QMenuBar::tr(caption));
    menu->setObjectName(QLatin1String(name));
    return menu;
}

QAction *AddEntry(QMenu *menu, const char *name, const char *caption, const QKeySequence &key = {}) {
    QAction *entry = menu->addAction(QMenuBar::tr(caption));
    entry->setObjectName(QLatin1String(name));
    entry->setShortcut(key);
    return entry;
}

QAction *AddCheck(QMenu *menu, const char *name, const char *caption, const QKeySequence &key = {}) {
    QAction *entry = AddEntry(menu, name, caption, key);
    entry->setCheckable(true);
    return entry;
}

QAction *AddSeparator(QMenu *menu, const char *name) {
    QAction *separator = menu->addSeparator();
    separator->setObjectName(QLatin1String(name));
    return separator;
}

/// A swatch of one colour, or of two side by side, ticked or not: some styles draw no tick beside an icon.
QPixmap SwatchOf(std::int32_t left, std::int32_t right, bool ticked) {
    constexpr int size = 16;
    constexpr int margin = 2;
    QPixmap swatch(size, size);
    swatch.fill(Qt::transparent);
    QPainter painter(&swatch);
    const QRect inside = swatch.rect().adjusted(margin, margin, -margin, -margin);
    painter.fillRect(inside, QColor::fromRgb(CanvasColour(left)));
    painter.fillRect(inside.adjusted(inside.width() / 2, 0, 0, 0), QColor::fromRgb(CanvasColour(right)));
    painter.setPen(Qt::gray);
    painter.drawRect(inside.adjusted(-1, -1, 0, 0));
    if (!ticked)
        return swatch;
    painter.setRenderHint(QPainter::Antialiasing);
    const QPolygonF tick({{4.5, 8.5}, {7, 11}, {11.5, 4.5}});
    for (const auto &[colour, width] : {std::pair(Qt::black, 3.5), {Qt::white, 1.75}}) {
        painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(tick);
    }
    return swatch;
}

QIcon IconOf(std::int32_t left, std::int32_t right) {
    QIcon icon(SwatchOf(left, right, false));
    icon.addPixmap(SwatchOf(left, right, true), QIcon::Normal, QIcon::On);
    return icon;
}

}  // namespace

MainMenu::MainMenu(QMenuBar *bar) {
    mnu_project = AddMenu(bar, "mnu_project", "&Project");
    mnu_p_new = AddEntry(mnu_project, "mnu_p_new", "&New Project...", QKeySequence::New);
    mnu_p_load = AddEntry(mnu_project, "mnu_p_load", "&Load Project...", QKeySequence::Open);
    AddSeparator(mnu_project, "mnu_p_div1");
    mnu_p_export = AddEntry(mnu_project, "mnu_p_export", "&Save Files...", QKeySequence::Save);
    mnu_p_copy = AddEntry(mnu_project, "mnu_p_copy", "Save &Copy of Project...");
    mnu_p_versions = AddEntry(mnu_project, "mnu_p_versions", "&Earlier Versions...");
    AddSeparator(mnu_project, "mnu_p_div5");
    mnu_p_mirror = AddEntry(mnu_project, "mnu_p_mirror", "&Mirror Map Picture");
    mnu_p_tiles = AddEntry(mnu_project, "mnu_p_tiles", "&Tiles Folder...");
    AddSeparator(mnu_project, "mnu_p_div2");
    mnu_p_prefs = AddEntry(mnu_project, "mnu_p_prefs", "&Preferences...");
    AddSeparator(mnu_project, "mnu_p_div4");
    mnu_p_last = {AddEntry(mnu_project, "mnu_p_last1", ""), AddEntry(mnu_project, "mnu_p_last2", ""),
                  AddEntry(mnu_project, "mnu_p_last3", ""), AddEntry(mnu_project, "mnu_p_last4", "")};
    mnu_p_div3 = AddSeparator(mnu_project, "mnu_p_div3");
    mnu_p_exit = AddEntry(mnu_project, "mnu_p_exit", "E&xit");

    mnu_edit = AddMenu(bar, "mnu_edit", "&Edit");
    mnu_e_target = AddCheck(mnu_edit, "mnu_e_target", "&Targets", Qt::Key_F2);
    mnu_e_frontline = AddCheck(mnu_edit, "mnu_e_frontline", "&Frontlines", Qt::Key_F3);
    mnu_e_railway = AddCheck(mnu_edit, "mnu_e_railway", "&Railways", Qt::Key_F4);
    mnu_e_roadint = AddCheck(mnu_edit, "mnu_e_roadint", "Roa&d Interdiction", Qt::Key_F5);
    mnu_e_railint = AddCheck(mnu_edit, "mnu_e_railint", "Ra&il Interdiction", Qt::Key_F6);
    AddSeparator(mnu_edit, "mnu_e_div1");
    mnu_e_undo = AddEntry(mnu_edit, "mnu_e_undo", "&Undo", Qt::CTRL | Qt::Key_Z);
    mnu_e_redo = AddEntry(mnu_edit, "mnu_e_redo", "R&edo");
    mnu_e_redo->setShortcuts({Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y});
    AddSeparator(mnu_edit, "mnu_e_div2");
    mnu_e_list = AddEntry(mnu_edit, "mnu_e_list", "&List of Items...", Qt::CTRL | Qt::Key_L);

    mnu_view = AddMenu(bar, "mnu_view", "&View");
    mnu_v_targets = AddCheck(mnu_view, "mnu_v_targets", "&Targets");
    mnu_v_frontlines = AddCheck(mnu_view, "mnu_v_frontlines", "&Frontlines");
    mnu_v_railways = AddCheck(mnu_view, "mnu_v_railways", "&Railways");
    mnu_v_roadint = AddCheck(mnu_view, "mnu_v_roadint", "Roa&d Interdiction");
    mnu_v_railint = AddCheck(mnu_view, "mnu_v_railint", "Ra&il Interdiction");
    AddSeparator(mnu_view, "mnu_v_div1");
    mnu_v_goto = AddEntry(mnu_view, "mnu_v_goto", "&Go to Selected Item", Qt::Key_Home);

    mnu_m_zoom = AddMenu(bar, "mnu_m_zoom", "&Zoom");
    mnu_m_z_100 = AddCheck(mnu_m_zoom, "mnu_m_z_100", "&100%", Qt::CTRL | Qt::Key_0);
    mnu_m_z_200 = AddCheck(mnu_m_zoom, "mnu_m_z_200", "&200%");
    mnu_m_z_400 = AddCheck(mnu_m_zoom, "mnu_m_z_400", "&400%");
    AddSeparator(mnu_m_zoom, "mnu_m_z_div1");
    mnu_m_z_in = AddEntry(mnu_m_zoom, "mnu_m_z_in", "Zoom &In");
    mnu_m_z_in->setShortcuts({QKeySequence::ZoomIn, Qt::CTRL | Qt::Key_Equal});
    mnu_m_z_out = AddEntry(mnu_m_zoom, "mnu_m_z_out", "Zoom &Out", QKeySequence::ZoomOut);

    mnu_help = AddMenu(bar, "mnu_help", "&Help");
    mnu_h_tutorial = AddEntry(mnu_help, "mnu_h_tutorial", "&Tutorial...");
    mnu_h_about = AddEntry(mnu_help, "mnu_h_about", "&About...");

    ShowRecentProjects({});
}

void MainMenu::ShowColours(const Preferences &preferences) const {
    mnu_v_targets->setIcon(IconOf(preferences.TargetColour, preferences.AirfieldColour));
    mnu_v_frontlines->setIcon(IconOf(preferences.FrontlineColour, preferences.FrontlineColour));
    mnu_v_railways->setIcon(IconOf(preferences.RailwayColour, preferences.RailwayColour));
    mnu_v_roadint->setIcon(IconOf(preferences.RoadIntColour, preferences.RoadIntColour));
    mnu_v_railint->setIcon(IconOf(preferences.RailIntColour, preferences.RailIntColour));
}

void MainMenu::ShowRecentProjects(const std::array<std::string, 4> &names) const {
    mnu_p_div3->setVisible(false);
    for (std::size_t i = 0; i < names.size(); ++i) {
        mnu_p_last[i]->setVisible(!names[i].empty());
        if (names[i].empty())
            continue;
        mnu_p_last[i]->setText(QStringLiteral("&%1 ").arg(i + 1) + ProjectCaption(names[i]));
        mnu_p_div3->setVisible(true);
    }
}

}  // namespace vtr
