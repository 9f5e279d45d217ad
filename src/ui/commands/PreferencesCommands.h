#pragma once

#include <QObject>

#include "MainWidgets.h"
#include "Preferences.h"

namespace vtr {

/// Reads prefs.cfg when the program starts, edits the preferences, and writes them when it ends.
class PreferencesCommands : public QObject {
    Q_OBJECT

  public:
    PreferencesCommands(Session &session, MainWidgets &widgets, QMainWindow *window);

    void Read();
    /// Lists the lines that Read passed over, if there were any.
    void TellBadLines();
    /// A failure is shown, if it is to be told, and then let be: the program is ending.
    void Write(bool tellsFailure);

  private:
    Session &session_;
    MainWidgets &widgets_;
    QMainWindow *window_;
    PreferencesPaths paths_;
    PreferencesRead read_;
};

}  // namespace vtr
