#include "PreferencesCommands.h"

#include <algorithm>
#include <span>

#include "ErrorReport.h"
#include "GameText.h"
#include "Operation.h"
#include "Paths.h"
#include "ShowMessage.h"
#include "Text.h"
#include "frm_prefs.h"

namespace vtr {

namespace {

QString ShownFilePath(const std::string &path) {
    return QString::fromStdString(Shortened(path, longestShownPath));
}

QString NextStart(FileAfterwards file) {
    const QString advice = QStringLiteral(
        " Put right what is said above, then set the preferences again. The campaign's files are "
        "not touched by this.");
    switch (file) {
        case FileAfterwards::Replaced:
            return QStringLiteral("The next start has the preferences as you set them.");
        case FileAfterwards::MayBeDamaged:
            return QStringLiteral("The next start tells which of them it could not read.") + advice;
        case FileAfterwards::AsBefore:
            break;
    }
    return QStringLiteral("The next start has the preferences of the last time.") + advice;
}

}  // namespace

PreferencesCommands::PreferencesCommands(Session &session, MainWidgets &widgets, QMainWindow *window)
    : QObject(window), session_(session), widgets_(widgets), window_(window) {
    connect(widgets.menu.mnu_p_prefs, &QAction::triggered, this, [this] {
        frm_prefs(session_.preferences, window_).exec();
        widgets_.menu.ShowColours(session_.preferences);
    });
}

void PreferencesCommands::Read() {
    const Operation reading(session_.operation, tr("Reading the preferences"));
    paths_ = FindPreferences(session_.programFolder, UserConfigFolder());
    try {
        read_ = ReadPreferences(paths_);
    } catch (const Error &error) {
        // Nothing worth ending the program for: it starts as it was shipped.
        read_.preferences = ShippedPreferences();
        if (error.Kind() == ErrorKind::FileTooLarge)
            read_.keptAs = KeepUnreadPreferences(paths_);
        ShowMessage(
            nullptr, QMessageBox::Warning,
            ErrorReport(
                QString::fromStdString(session_.operation), error,
                read_.keptAs.empty()
                    ? tr("The program starts with its shipped preferences and writes them over the "
                         "file when it ends. To keep the file, copy it now.")
                    : tr("The program starts with its shipped preferences. The file is kept as \"%1\".")
                          .arg(ShownFilePath(read_.keptAs))));
    }
    session_.preferences = read_.preferences;
    widgets_.menu.ShowRecentProjects(session_.preferences.RecentProjectNames);
    widgets_.menu.ShowColours(session_.preferences);
}

void PreferencesCommands::TellBadLines() {
    if (read_.badLines.empty())
        return;
    QString text = tr("These lines of \"%1\" could not be read and were passed over:\n")
                       .arg(ShownFilePath(paths_.readFrom));
    constexpr std::size_t mostShown = 10;
    constexpr int longestShown = 60;
    const auto shortened = [](const std::string &bytes) {
        const QString shown = ShownText(bytes);
        return shown.size() > longestShown ? shown.left(longestShown) + QStringLiteral("...") : shown;
    };
    for (const BadPreferencesLine &line :
         std::span(read_.badLines).first(std::min(mostShown, read_.badLines.size())))
        text += tr("\nLine %1: %2\n    expected %3, found %4")
                    .arg(line.number)
                    .arg(shortened(line.text), shortened(line.expected), shortened(line.found));
    if (read_.badLines.size() > mostShown)
        text += tr("\n... and %1 more.").arg(read_.badLines.size() - mostShown);
    text += read_.keptAs.empty()
                ? tr("\n\nThe file could not be kept under another name: it is overwritten when the "
                     "program ends.")
                : tr("\n\nThe file is kept as \"%1\".").arg(ShownFilePath(read_.keptAs));
    ShowMessage(window_, QMessageBox::Warning, text);
}

void PreferencesCommands::Write(bool tellsFailure) {
    const QString operation = tr("Saving the preferences");
    try {
        WritePreferences(paths_, session_.preferences);
    } catch (const Error &error) {
        if (tellsFailure)
            ShowMessage(window_, QMessageBox::Warning,
                        ErrorReport(operation, error, NextStart(error.AfterTheFailure())));
    }
}

}  // namespace vtr
