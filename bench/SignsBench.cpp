// What the mark on the selected item, the line under the overview and the notes in the frames add to an edit
// and to a mouse move, each painted.

#include <QApplication>
#include <QMouseEvent>
#include <QToolButton>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "Comparison.h"
#include "MapFrame.h"
#include "NumberField.h"
#include "QuietLine.h"
#include "SampleCampaign.h"
#include "SelectionMark.h"
#include "TargetPanel.h"
#include "UnderPointer.h"
#include "frm_main.h"

namespace {

using namespace vtr;

void MoveMouse(QWidget &map, QPoint at) {
    QMouseEvent event(QEvent::MouseMove, at, map.mapTo(map.window(), QPointF(at)),
                      map.mapToGlobal(QPointF(at)), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&map, &event);
}

/// The work that an edit of a target causes for the signs, apart from painting.
void ReportEdit(Session &session, frm_main &window) {
    auto &field = *window.findChild<NumberField *>(QStringLiteral("upd_tar_x"));
    auto &target = *window.findChild<TargetPanel *>();
    const auto panels = window.findChildren<Panel *>();
    std::size_t told = 0;
    const auto signs = [&] {
        for (Panel *panel : panels)
            panel->ShowNote();
        target.TargetsChanged();
        told += WhatIsUnder(session, 300, 150).text.size();
        const auto item = PixelToMark(session);
        told += MarkOf(session.view, item->x, item->y).corners ? 1U : 0U;
    };
    int x = 0;
    const auto edit = [&] {
        session.history.EndMerging();
        field.SetNumber(100 + (x = 1 - x));
    };
    ReportAtMost("signs of an edit", CompareMedians(2000, signs, edit), "the edit with them", 0.1 / 1.1);
    if (told == 0)
        std::abort();
}

/// The mark lies over the map, which is painted with it.
void ReportPainting(frm_main &window) {
    auto &field = *window.findChild<NumberField *>(QStringLiteral("upd_tar_numtargets"));
    auto &mark = *window.findChild<QWidget *>(QStringLiteral("shp_mark"));
    int count = 0;
    const auto edit = [&] {
        field.SetNumber(10 + (count = 1 - count));
        QCoreApplication::processEvents();
    };
    // An edit that does not move the mark leaves it hidden.
    const auto editAs = [&](bool marked) {
        mark.setVisible(marked);
        QCoreApplication::processEvents();
        return SecondsOf(edit);
    };
    Comparison times;
    for (int run = 0; run < 1000; ++run) {
        times.ours = std::min(times.ours, editAs(true));
        times.baseline = std::min(times.baseline, editAs(false));
    }
    ReportAtMost("an edit painted with its mark", times, "without the mark", 1.1);
}

void ReportMouse(Session &session, frm_main &window) {
    auto &map = *window.findChild<MapSurface *>();
    auto &line = *window.findChild<QuietLine *>(QStringLiteral("lbl_under"));
    auto &position = *window.findChild<QToolButton *>(QStringLiteral("xypos"));
    session.layers = {.mnu_v_roadint = true, .mnu_v_railint = true};
    int at = 0;
    const auto next = [&at] {
        at = (at + 997) % (620 * 300);
        return QPoint(10 + at % 620, 10 + at / 620);
    };
    bool isPainted = false;
    const auto move = [&] {
        MoveMouse(map, next());
        if (isPainted)
            QCoreApplication::processEvents();
    };
    const auto moveWithPosition = [&] {
        const QPoint pixel = next();
        position.setText(QString::fromStdString(
            CursorText(session.view, static_cast<float>(pixel.x()), static_cast<float>(pixel.y()))));
        if (isPainted)
            QCoreApplication::processEvents();
    };
    for (const char *what : {"a mouse move", "the same, painted"}) {
        const Comparison times = CompareMedians(4000, move, moveWithPosition);
        std::printf("%s: %.1f us, its position alone %.1f us: %.1f us more (wanted: at most 50)\n", what,
                    times.ours * 1e6, times.baseline * 1e6, (times.ours - times.baseline) * 1e6);
        if (line.Text().isEmpty())
            std::abort();
        QCoreApplication::processEvents();
        isPainted = true;
    }
}

int Run(int argc, char **argv, const std::string &folder) {
    const QApplication application(argc, argv);
    WriteSampleCampaign(folder, false);
    const auto session = std::make_unique<Session>();
    session->programFolder = folder;
    session->preferences.FlashTarget = 0;
    frm_main window(*session);
    window.Start(QString::fromStdString(folder + "sample.prj"));
    QCoreApplication::processEvents();
    ReportEdit(*session, window);
    ReportPainting(window);
    ReportMouse(*session, window);
    return 0;
}

}  // namespace

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const std::string folder = std::filesystem::temp_directory_path().string() + "/vtr-signs-bench/";
    const int status = Run(argc, argv, folder);
    std::filesystem::remove_all(folder);
    return status;
}
