#include <signal.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QGenericPlugin>
#include <QMainWindow>
#include <QMessageBox>
#include <QSessionManager>
#include <QSpinBox>
#include <QTimer>
#include <cstdio>
#include <functional>
#include <stdexcept>

namespace {

[[noreturn]] void Fail(int status, const char *what) {
    std::fprintf(stderr, "%s\n", what);
    std::_Exit(status);
}

/// Does act as soon as it says that it could.
void Soon(const std::function<bool()> &act, int triesLeft = 400) {
    if (triesLeft == 0)
        Fail(3, "what was waited for did not come");
    QTimer::singleShot(50, qApp, [act, triesLeft] {
        if (!act())
            Soon(act, triesLeft - 1);
    });
}

QMainWindow *MainWindow() {
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window->objectName() == QStringLiteral("frm_main") && window->isVisible())
            return qobject_cast<QMainWindow *>(window);
    return nullptr;
}

/// How the program is to end, as the environment says.
void End() {
    const QByteArray how = qgetenv("VTR_TEST_END");
    if (how == "TERM" || how == "HUP" || how == "INT" || how == "KILL") {
        raise(how == "TERM" ? SIGTERM : how == "HUP" ? SIGHUP : how == "INT" ? SIGINT : SIGKILL);
    } else if (how == "session") {
        alignas(QSessionManager) static char noManager[sizeof(QSessionManager)];
        Q_EMIT qGuiApp->commitDataRequest(*reinterpret_cast<QSessionManager *>(noManager));
    } else if (how == "error") {
        Soon([] {
            const auto *const box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (box == nullptr)
                return false;
            if (!box->text().contains(QStringLiteral("Your unsaved edits are kept")))
                Fail(7, qPrintable(box->text()));
            box->button(QMessageBox::Ok)->click();
            return true;
        });
        throw std::runtime_error("thrown by the test");
    } else {
        MainWindow()->close();
    }
}

/// Edits, opens a message when there is to be one, and ends the program after the time that the environment
/// says.
bool Edit() {
    QMainWindow *const window = MainWindow();
    auto *const column =
        window == nullptr ? nullptr : window->findChild<QSpinBox *>(QStringLiteral("upd_tar_x"));
    if (column == nullptr || !column->isEnabled() || QApplication::activeModalWidget() != nullptr)
        return false;
    if (const QByteArray expected = qgetenv("VTR_TEST_EXPECTED");
        !expected.isEmpty() && column->value() != expected.toInt())
        Fail(4, "the column is not the expected one");
    if (const QByteArray value = qgetenv("VTR_TEST_EDIT"); !value.isEmpty())
        column->setValue(value.toInt());
    if (qEnvironmentVariableIsSet("VTR_TEST_MESSAGE"))
        QMetaObject::invokeMethod(
            window, [window] { window->findChild<QAction *>(QStringLiteral("mnu_p_load"))->trigger(); },
            Qt::QueuedConnection);
    QTimer::singleShot(qEnvironmentVariableIntValue("VTR_TEST_WAIT"), qApp, [] {
        if (qEnvironmentVariableIsSet("VTR_TEST_MESSAGE") && QApplication::activeModalWidget() == nullptr)
            Fail(5, "no message is open");
        End();
    });
    return true;
}

/// Presses the button that the environment names in the message that comes, and goes on.
bool Answer() {
    const auto *const box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (box == nullptr)
        return false;
    for (QAbstractButton *button : box->buttons())
        if (button->text().remove(QLatin1Char('&')) == qEnvironmentVariable("VTR_TEST_ANSWER")) {
            Soon(Edit);
            button->click();
            return true;
        }
    Fail(6, qPrintable(box->text()));
}

}  // namespace

/// Is loaded into the program as it is shipped, by Qt, when the environment asks for it.
class EditSoon : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "EditSoon.json")

  public:
    QObject *create(const QString &, const QString &) override {
        Soon(qEnvironmentVariableIsSet("VTR_TEST_ANSWER") ? Answer : Edit);
        return new QObject;
    }
};

#include "EditSoon.moc"
