#include <QSocketNotifier>
#include <cstdlib>
#include <memory>

#include "EventBoundary.h"
#include "Paths.h"
#include "ProgramIcon.h"
#include "ProgramVersion.h"
#include "TerminationSignals.h"
#include "frm_main.h"

int main(int argc, char **argv) {
    const auto session = std::make_unique<vtr::Session>();

    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::RoundPreferFloor);
    vtr::EventBoundary application(argc, argv, *session);
    QCoreApplication::setApplicationName(vtr::programTitle);
    QCoreApplication::setApplicationVersion(vtr::FullVersionText());

    QGuiApplication::setWindowIcon(vtr::ProgramIcon());

    vtr::frm_main window(*session);
    application.OfferSavingFirst([&window] { window.SaveFilesAndWait(); }, [&window] { window.close(); });
    application.KeepWorkFirst([&window] { return window.KeepWork(); });
    // No message that is open, and nothing that waits for its answer, goes on after this.
    const auto endAtOnce = [&window] {
        window.CloseInSilence();
        std::_Exit(EXIT_SUCCESS);
    };
    const QString commandLine = QCoreApplication::arguments().mid(1).join(QLatin1Char(' '));
    // In the event loop, where a failure meets the event boundary.
    const auto start = [&] {
        session->programFolder = vtr::ProgramFolder();
        session->dataFolder = vtr::UserDataFolder();
        if (const int signalled = vtr::CatchTerminationSignals(); signalled >= 0)
            QObject::connect(new QSocketNotifier(signalled, QSocketNotifier::Read, &window),
                             &QSocketNotifier::activated, &window, endAtOnce);
        QObject::connect(&application, &QGuiApplication::commitDataRequest, &window, endAtOnce);
        window.Start(commandLine);
    };
    QMetaObject::invokeMethod(&window, start, Qt::QueuedConnection);
    return QCoreApplication::exec();
}
