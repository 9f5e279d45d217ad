#pragma once

#include <QDialog>
#include <QLineEdit>
#include <array>
#include <string>

#include "NewProject.h"

class QDropEvent;
class QGridLayout;
class QLabel;

namespace vtr {

/// Collects the files of a new project and makes it. The Error of a failed step reaches the caller.
class frm_newproject : public QDialog {
    Q_OBJECT

  public:
    /// programFolder holds map.dat and ends in a separator.
    explicit frm_newproject(std::string programFolder, QWidget *parent = nullptr);

    /// After the dialog was accepted: the project to load; empty when the user chose no place for it.
    const std::string &ProjectPath() const { return projectPath_; }
    /// After the dialog was accepted: whether the map picture was generated.
    bool MapWasGenerated() const { return !projectPath_.empty() && project_.filenames[mapRow].empty(); }

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

  private:
    void AddRow(QGridLayout &grid, int line, const NewProjectRow &row);
    void Browse(std::size_t index);
    void Pick(std::size_t index, const std::string &path);
    void PickFromFolder(const QString &path);
    void ShowFields();
    void ShowHint();
    /// Tells why the project is not made and puts the cursor into the field to correct.
    void Refuse(std::size_t index, const QString &message);
    void CreateFromFields();

    std::string programFolder_;
    std::string projectPath_;
    std::string lastFolder_;  ///< of the file picked last, with its separator
    NewProject project_;
    QLineEdit *name_;
    QLabel *lbl_hint_;
    std::array<QLineEdit *, newProjectRowTotal> fields_{};
};

}  // namespace vtr
