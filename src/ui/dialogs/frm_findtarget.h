#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <functional>
#include <span>

#include "Campaign.h"

namespace vtr {

/// Finds a target by its whole name in any letter case.
class frm_findtarget : public QDialog {
    Q_OBJECT

  public:
    /// Calls found with the lowest index of a target of that name. targets must outlive the dialog.
    frm_findtarget(std::span<const TargetRecord> targets, std::function<void(int)> found,
                   QWidget *parent = nullptr);

  private:
    void FindTarget();

    std::span<const TargetRecord> targets_;
    std::function<void(int)> found_;
    QLineEdit *name_;
    QLabel *number_;
};

}  // namespace vtr
