#pragma once

#include <QLabel>
#include <string_view>
#include <vector>

namespace vtr {

/// lbl_edited: which files have unsaved edits. It takes only the space that other widgets leave.
class EditedFilesLabel : public QLabel {
    Q_OBJECT

  public:
    explicit EditedFilesLabel(QWidget *parent);

    /// files are usual names. Without any the label is empty.
    void ShowFiles(const std::vector<std::string_view> &files);

    QSize minimumSizeHint() const override { return {0, 0}; }

  protected:
    void resizeEvent(QResizeEvent *event) override;

  private:
    void ShowAsFits();

    QStringList files_;
};

}  // namespace vtr
