#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <vector>

#include "Differences.h"
#include "EarlierVersions.h"

namespace vtr {

/// Shows the earlier versions of a project's files and what taking them back would change. It changes nothing
/// itself: it is accepted for what is to be taken back.
class frm_versions : public QDialog {
    Q_OBJECT

  public:
    frm_versions(std::vector<VersionSet> sets, const Campaign &now, QWidget *parent = nullptr);

    /// What taking back the chosen files changes.
    const Differences &Chosen() const { return chosen_; }
    /// Those files, "TARGET.DAT, VTR_RRD.DAT".
    QString ChosenFiles() const;

  private:
    /// Offers the files of the set that is selected.
    void ShowFiles();
    /// Reads the files that are chosen and tells what differs.
    void ShowDifferences();
    std::vector<const CampaignFile *> FilesChosen() const;
    const VersionSet *SelectedSet() const;

    const std::vector<VersionSet> sets_;
    const Campaign &now_;
    Differences chosen_;
    QListWidget *lst_versions_;
    QComboBox *cbo_files_;
    QPlainTextEdit *txt_differences_;
    QLabel *lbl_griddata_;
    QPushButton *cmd_takeback_;
};

}  // namespace vtr
