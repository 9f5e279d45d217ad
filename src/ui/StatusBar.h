#pragma once

#include <QStatusBar>
#include <QToolButton>

namespace vtr {

class EditedFilesLabel;

/// sb_status: five panels whose object names are their keys, and before them which files are edited. The
/// panels are flat buttons, so that the ones that do something can be reached by keyboard and by assistive
/// tools.
class StatusBar : public QStatusBar {
    Q_OBJECT

  public:
    explicit StatusBar(QWidget *parent);

    /// Tells for a few seconds why a field refused what was typed, at most until another field is entered.
    void ShowObjection(const QString &objection);

    EditedFilesLabel *lbl_edited;  ///< hidden while a message is shown in its place
    QToolButton *project;
    QToolButton *curredit;
    QToolButton *zoom;
    QToolButton *xypos;
    QToolButton *version;

  Q_SIGNALS:
    void VersionDoubleClicked();

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

  private:
    QToolButton *AddPanel(const char *key, const QString &text, const char *toolTip);

    QString objection_;
};

}  // namespace vtr
