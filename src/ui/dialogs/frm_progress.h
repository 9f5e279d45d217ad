#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QProgressBar>

namespace vtr {

/// Shows the progress of a load. Not modal, because the work runs on the same thread. The user cannot close
/// it; the program calls hide().
class frm_progress : public QDialog {
    Q_OBJECT

  public:
    explicit frm_progress(QWidget *parent = nullptr);

    /// Shows value in percent as a whole number from 0 to 100. Paints a changed number at once, but not more
    /// often than every 25 milliseconds.
    void SetProgress(double value);

    void reject() override;

  protected:
    void closeEvent(QCloseEvent *event) override;

  private:
    QProgressBar *bar_;
    QElapsedTimer sincePainted_;
};

}  // namespace vtr
