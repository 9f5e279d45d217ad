// Setting a value in a field of the main window until the map surface is finished, compared with setting a
// bare spin box and one full redraw, and with the same field without undo. Undoing compared with one redraw.

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QSpinBox>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <vector>

#include "Comparison.h"
#include "EditCampaign.h"
#include "MapRedraw.h"
#include "NumberField.h"
#include "SampleCampaign.h"
#include "frm_main.h"

namespace {

using namespace vtr;

int Run(int argc, char **argv, const std::string &folder) {
    const QApplication application(argc, argv);
    WriteSampleCampaign(folder, false);
    const auto session = std::make_unique<Session>();
    session->programFolder = folder;
    frm_main window(*session);
    window.Start(QString::fromStdString(folder + "sample.prj"));
    auto &field = *window.findChild<NumberField *>(QStringLiteral("upd_tar_x"));

    QMainWindow bareWindow;
    auto *bareField = new QSpinBox;
    bareField->setMaximum(639);
    bareWindow.setCentralWidget(bareField);
    bareWindow.show();
    QCoreApplication::processEvents();

    Picture surface{mapWidth, mapHeight, std::vector<std::uint32_t>(std::size_t{mapWidth} * mapHeight)};
    MapView view = session->view;
    int x = 0;
    const auto setField = [&] {
        x = 1 - x;
        const bool phase = session->view.TargetFlashPhase;
        field.SetNumber(100 + x);
        // The phase of the selected target's ring changes with every redraw.
        if (session->campaign.TargetTable[0].x != 100 + x || session->view.TargetFlashPhase == phase)
            std::abort();
    };
    int bareX = 0;
    const auto setBareField = [&] {
        bareX = 1 - bareX;
        bareField->setValue(100 + bareX);
        Redraw(surface, session->map, session->campaign, session->preferences, MapDisplay{}, view);
    };
    ReportAtMost("a value set in a field", Compare(2000, setField, setBareField), "QSpinBox and one redraw",
                 1.5);

    NumberField forgetfulField(QStringLiteral("forgetful"), mapWidth - 1);
    QObject::connect(&forgetfulField, &NumberField::NumberChanged, &window, [&](int column) {
        SetTargetPixel(session->campaign, 1, Axis::X, column);
        window.Redraw();
    });
    int forgetfulX = 0;
    const auto setForgetfulField = [&] {
        forgetfulX = 1 - forgetfulX;
        forgetfulField.SetNumber(100 + forgetfulX);
    };
    // Each value is an edit of its own, as a player's edits are.
    const auto setAndEnd = [&] {
        session->history.EndMerging();
        setField();
    };
    ReportAtMost("a value set in a field", CompareMedians(2000, setAndEnd, setForgetfulField),
                 "the same without the history", 1.15);

    QAction &undo = *window.findChild<QAction *>(QStringLiteral("mnu_e_undo"));
    const auto undoOne = [&] {
        if (!undo.isEnabled())
            std::abort();
        undo.trigger();
    };
    ReportAtMost("an edit undone", CompareMedians(1000, undoOne, [&] { window.Redraw(); }), "one redraw",
                 1.2);
    return 0;
}

}  // namespace

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const std::string folder = std::filesystem::temp_directory_path().string() + "/vtr-edit-bench/";
    const int status = Run(argc, argv, folder);
    std::filesystem::remove_all(folder);
    return status;
}
