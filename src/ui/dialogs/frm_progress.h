#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QProgressBar>

namespace vtr {

/// Shows how far a load is. Not modal: the work runs on the thread that shows it. Only the program puts it
/// away, with hide(); the user cannot close it.
class frm_progress : public QDialog {
    Q_OBJECT

  public:
    explicit frm_progress(QWidget *parent = nullptr);

    /// Shows value in percent, held within 0 to 100, as a whole number. Paints at once when that number
    /// differs from the one shown, but no more often than every 25 milliseconds.
    void SetProgress(double value);

    void reject() override;

  protected:
    void closeEvent(QCloseEvent *event) override;

  private:
    QProgressBar *bar_;
    QElapsedTimer sincePainted_;
};

}  // namespace vtr
