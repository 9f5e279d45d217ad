#pragma once

#include <QCompleter>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <functional>
#include <span>

#include "Campaign.h"

namespace vtr {

/// Finds a target by its whole name in any letter case. While a name is typed, a list below it offers the
/// names that contain it.
class frm_findtarget : public QDialog {
    Q_OBJECT

  public:
    /// Calls found with the lowest index of a target of that name, or with the target chosen from the list.
    /// targets must outlive the dialog.
    frm_findtarget(std::span<const TargetRecord> targets, std::function<void(int)> found,
                   QWidget *parent = nullptr);

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

  private:
    /// Shows the list of the names that contain text. It never changes what stands in the field.
    void OfferNames(const QString &text);
    void MakeNames();
    /// Presses the button at that place of the screen, behind the list, which would keep the press to itself.
    /// True when there is one.
    bool PressBehindOffer(QPoint at);
    void FindTarget();
    void Select(int target);

    std::span<const TargetRecord> targets_;
    std::function<void(int)> found_;
    QLineEdit *name_;
    QLabel *number_;
    QPushButton *find_;
    QCompleter *names_ = nullptr;  ///< made when the first letter is typed
};

}  // namespace vtr
