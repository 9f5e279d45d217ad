#pragma once

#include <QObject>

#include "MainWidgets.h"
#include "SaveCampaign.h"

namespace vtr {

class frm_save;

/// "&Save Files..." and whatever else lets the user save.
class SaveCommands : public QObject, private SaveQuestions {
    Q_OBJECT

  public:
    SaveCommands(Session &session, MainWidgets &widgets, QMainWindow *window);

    /// Shows the dialog beside the window.
    void Show();
    /// Shows it over the window until it is closed; true when it closed after a save.
    bool ShowAndWait();
    /// The dialog when it is open, else null.
    QWidget *OpenDialog() const;
    /// Whether an open dialog can be used while another window is modal to the main window.
    void SetUsableBesideMainWindow(bool usable);
    /// A project's paths are loaded: an open dialog shows them, and says so when the project is another.
    void ProjectChanged();
    /// Tells when the last save of the project that was just loaded stopped half way.
    void TellStoppedSave();
    /// The tables have changed, or what is saved of them: an open dialog marks the edited files.
    void EditsChanged();

  private:
    bool IsShown() const;
    /// Makes the dialog ready to be shown anew.
    void Prepare();
    void ShowProject();
    bool Save(const SaveBoxes &ticked);
    /// Says text in the dialog, and behind it what the user should know before saving.
    void Say(const QString &text);
    bool MayFollowLinks(const SaveBoxes &ticked);
    bool MayOverwrite(const std::vector<std::string_view> &changed) override;
    bool MaySaveWithoutEarlierVersion(const Error &failure) override;
    void TellFailure(const SaveOutcome &outcome);
    /// Shows a warning, beside whose OK stands the way to the earlier versions.
    void WarnOfMixture(QWidget *parent, const QString &text);
    /// Asks over the dialog; No is the default.
    bool AskYesNo(const QString &text);
    /// That sentence and a blank; empty when there are no unsaved edits.
    QString AllEditsAreKept() const;
    /// What the user should know before saving; empty: nothing.
    QString Warning() const;

    Session &session_;
    MainWidgets &widgets_;
    QMainWindow *window_;
    frm_save *frm_save_ = nullptr;  ///< made when it is first asked for, then kept
    std::string shownProject_;      ///< the project file of which the dialog speaks
};

}  // namespace vtr
