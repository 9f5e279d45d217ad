// From a value set in a field of the main window to the finished map surface, beside setting a bare spin box
// and one full redraw.

#include <QApplication>
#include <QMainWindow>
#include <QSpinBox>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <vector>

#include "Comparison.h"
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
        // The phase of the selected target's ring moves with every redraw.
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
