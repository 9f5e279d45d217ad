#include <QApplication>
#include <QGenericPlugin>
#include <QTimer>
#include <QWidget>
#include <cstdio>

namespace {

/// Closes the main window two seconds after the program's start, when its start is done by then: exit status
/// 3 says that there was no window, 4 that a message or dialog was open.
void CloseMainWindow() {
    const auto fail = [](int status, const QString &what) {
        std::fprintf(stderr, "%s\n", qPrintable(what));
        std::_Exit(status);
    };
    if (const QWidget *modal = QApplication::activeModalWidget())
        fail(4, QStringLiteral("a dialog is open: ") + modal->windowTitle());
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window->objectName() == QStringLiteral("frm_main") && window->isVisible()) {
            window->close();
            return;
        }
    fail(3, QStringLiteral("the main window is not there"));
}

}  // namespace

/// Is loaded into the program as it is shipped, by Qt, when the environment asks for it.
class CloseSoon : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "CloseSoon.json")

  public:
    QObject *create(const QString &, const QString &) override {
        QTimer::singleShot(2000, QCoreApplication::instance(), CloseMainWindow);
        return new QObject;
    }
};

#include "CloseSoon.moc"
