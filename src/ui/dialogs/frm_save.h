#pragma once

#include <QCheckBox>
#include <QDialog>
#include <array>
#include <functional>

#include "SaveFiles.h"

namespace vtr {

/// Asks which of the game's files to write. It writes nothing itself.
class frm_save : public QDialog {
    Q_OBJECT

  public:
    /// Writes the files of the ticked boxes; false when something failed: the dialog stays open then.
    using Save = std::function<bool(const SaveBoxes &)>;

    explicit frm_save(Save save, QWidget *parent = nullptr);

  private:
    void SaveTicked();

    Save save_;
    std::array<QCheckBox *, saveBoxTotal> boxes_{};
};

}  // namespace vtr
