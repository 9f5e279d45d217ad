#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <array>
#include <functional>

#include "SaveFiles.h"

namespace vtr {

/// Asks which of the game's files to write. It writes nothing itself. It outlives every message that is shown
/// over it: closing hides it.
class frm_save : public QDialog {
    Q_OBJECT

  public:
    /// Writes the files of the ticked boxes; false when the dialog is to stay open.
    using Save = std::function<bool(const SaveBoxes &)>;

    explicit frm_save(Save save, QWidget *parent = nullptr);

    /// Says which project's files these are and beside each box what a save does with its file.
    void ShowProject(const ProjectPaths &paths);
    /// Marks the boxes of these files (usual names) as edited since they were saved, and no others.
    void MarkEdited(const std::vector<std::string_view> &files);
    /// Says text in the dialog's own line.
    void Say(const QString &text);
    void Untick();

  protected:
    void keyPressEvent(QKeyEvent *event) override;

  private:
    void SaveTicked();

    Save save_;
    QLabel *project_;
    QLabel *folder_;
    QLabel *message_;
    std::array<QCheckBox *, saveBoxTotal> boxes_{};
    std::array<QLabel *, saveBoxTotal> marks_{};
    std::array<QLabel *, saveBoxTotal> notes_{};
    std::array<QString, saveBoxTotal> projectNotes_;  ///< what a save does with the file
    QCheckBox *all_;
};

}  // namespace vtr
