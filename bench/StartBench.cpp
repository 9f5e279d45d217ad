// From the start of the program to its first window with the sample loaded, off-screen, compared with a bare
// Qt main window with a menu bar. Each start is a process of its own: this program, called with an argument.

#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "Comparison.h"
#include "EventBoundary.h"
#include "Paths.h"
#include "SampleCampaign.h"
#include "frm_main.h"

namespace {

using namespace vtr;

/// Ends the process when the window it watches has been painted.
class EndAtFirstPaint : public QObject {
  protected:
    bool eventFilter(QObject *watched, QEvent *event) override {
        if (event->type() != QEvent::Paint)
            return false;
        watched->removeEventFilter(this);
        watched->event(event);
        _exit(0);
    }
};

int StartBareWindow(int argc, char **argv) {
    QApplication application(argc, argv);
    EndAtFirstPaint end;
    QMainWindow window;
    window.menuBar()->addMenu(QStringLiteral("&Project"));
    window.resize(888, 742);
    window.installEventFilter(&end);
    window.show();
    return QCoreApplication::exec();
}

/// Ends when the main window is first painted, or when the sample's map is painted in it.
int StartEditor(int argc, char **argv, const std::string &project, bool untilMapIsShown) {
    const auto session = std::make_unique<Session>();
    session->programFolder = ProgramFolder();
    EventBoundary application(argc, argv, *session);
    EndAtFirstPaint end;
    frm_main window(*session);
    if (!untilMapIsShown)
        window.installEventFilter(&end);
    window.Start(QString::fromStdString(project));
    auto *map = window.findChild<QWidget *>(QStringLiteral("Img_Map"));
    map->installEventFilter(&end);
    map->update();
    return QCoreApplication::exec();
}

void RunSelf(const char *program, const char *what, const std::string &project) {
    const pid_t child = fork();
    if (child == 0) {
        execl(program, program, what, project.c_str(), nullptr);
        _exit(127);
    }
    int status = 0;
    if (waitpid(child, &status, 0) != child || status != 0)
        std::abort();
}

}  // namespace

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc == 3) {
        const std::string_view what = argv[1];
        return what == "bare" ? StartBareWindow(argc, argv) : StartEditor(argc, argv, argv[2], what == "map");
    }
    const std::string folder = std::filesystem::temp_directory_path().string() + "/vtr-start-bench/";
    WriteSampleCampaign(folder, false);
    const char *self = "/proc/self/exe";
    const auto start = [&](const char *what) { return [=] { RunSelf(self, what, folder + "sample.prj"); }; };
    ReportAtMost("start to the first shown window", Compare(40, start("window"), start("bare")),
                 "a bare window", 1.3);
    const Comparison untilMap = Compare(40, start("map"), start("bare"));
    std::printf("and on to the sample's map on screen: %.1f us, %.2f times as long\n", untilMap.ours * 1e6,
                untilMap.ours / untilMap.baseline);
    std::filesystem::remove_all(folder);
}
