// Uses the editor off-screen as a player would: loads the sample campaign, moves a target in its panel,
// saves, loads again, and leaves pictures of what it saw.

#include <QAbstractButton>
#include <QDialog>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>

#include "EventBoundary.h"
#include "MapFrame.h"
#include "NumberField.h"
#include "Paths.h"
#include "SampleCampaign.h"
#include "frm_main.h"

namespace {

class TourFailed : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

void Require(bool held, const std::string &what) {
    if (!held)
        throw TourFailed(what);
    std::cout << "  " << what << '\n';
}

template <typename Widget>
Widget &Find(QObject &parent, const char *name) {
    auto *widget = parent.findChild<Widget *>(QLatin1String(name));
    if (widget == nullptr)
        throw TourFailed(std::string("there is no ") + name);
    return *widget;
}

/// Ends the tour when a message is shown, which nobody would answer.
class NoMessages : public QTimer {
  public:
    NoMessages() {
        callOnTimeout([] {
            const auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (box == nullptr)
                return;
            std::cerr << "The tour failed: " << box->text().toStdString() << std::endl;
            std::_Exit(1);
        });
        start(50);
    }
};

void Type(vtr::NumberField &field, int number) {
    field.selectAll();
    QTest::keyClicks(&field, QString::number(number));
}

void SaveTargets(vtr::frm_main &window) {
    Find<QAction>(window, "mnu_p_export").trigger();
    QDialog &dialog = Find<QDialog>(window, "frm_save");
    Find<QAbstractButton>(dialog, "chk_save(0)").setChecked(true);
    QTest::mouseClick(&Find<QAbstractButton>(dialog, "cmd_save"), Qt::LeftButton);
    Require(!dialog.isVisible(), "the targets file was saved");
}

void SavePicture(QWidget &widget, const QString &path) {
    QTest::qWait(50);  // until the layouts have followed the texts
    Require(widget.grab().save(path),
            "a picture of " + widget.objectName().toStdString() + ": " + path.toStdString());
}

void Tour(const std::string &folder) {
    const NoMessages noMessages;
    vtr::WriteSampleCampaign(folder);
    const QString project = QString::fromStdString(folder + "sample.prj");
    const int newX = 321;
    const int newY = 123;
    {
        auto session = std::make_unique<vtr::Session>();
        session->programFolder = vtr::ProgramFolder();
        vtr::frm_main window(*session);
        window.Start(project);
        Require(session->campaign.ProjectLoaded, "the sample campaign is loaded");
        Type(Find<vtr::NumberField>(window, "upd_tar_code"), 100);
        Type(Find<vtr::NumberField>(window, "upd_tar_x"), newX);
        Type(Find<vtr::NumberField>(window, "upd_tar_y"), newY);
        Require(session->campaign.TargetTable[100].x == newX && session->campaign.TargetTable[100].y == newY,
                "target 100 was moved in its panel");
        SaveTargets(window);
    }
    auto session = std::make_unique<vtr::Session>();
    session->programFolder = vtr::ProgramFolder();
    vtr::frm_main window(*session);
    window.Start(project);
    Require(session->campaign.TargetTable[100].x == newX && session->campaign.TargetTable[100].y == newY,
            "loaded again, the target is where it was moved to");

    Type(Find<vtr::NumberField>(window, "upd_tar_code"), 100);
    QTest::qWait(50);
    SavePicture(window, QString::fromStdString(folder + "window.png"));
    SavePicture(Find<vtr::MapSurface>(window, "Img_Map"), QString::fromStdString(folder + "map.png"));
    for (const char *mode : {"railint", "roadint", "railway", "frontline", "target"}) {
        Find<QAction>(window, (std::string("mnu_e_") + mode).c_str()).trigger();
        SavePicture(window, QString::fromStdString(folder + "window-" + mode + ".png"));
    }
    Find<QAction>(window, "mnu_m_z_400").trigger();
    SavePicture(window, QString::fromStdString(folder + "window-400.png"));
}

}  // namespace

int main(int argc, char **argv) {
    if (argc != 2) {
        std::cerr << "usage: editor_tour FOLDER\n";
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const std::string folder = std::filesystem::absolute(argv[1]).string() + "/";
    const auto session = std::make_unique<vtr::Session>();
    vtr::EventBoundary application(argc, argv, *session);
    try {
        Tour(folder);
    } catch (const std::exception &error) {
        std::cerr << "The tour failed: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
