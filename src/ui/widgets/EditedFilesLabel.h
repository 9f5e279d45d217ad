#pragma once

#include <QLabel>
#include <string_view>
#include <vector>

namespace vtr {

/// lbl_edited: which files hold less than the editor does. It takes what room there is, and pushes nobody.
class EditedFilesLabel : public QLabel {
    Q_OBJECT

  public:
    explicit EditedFilesLabel(QWidget *parent);

    /// The usual names of the files; none: the label is empty.
    void ShowFiles(const std::vector<std::string_view> &files);

    QSize minimumSizeHint() const override { return {0, 0}; }

  protected:
    void resizeEvent(QResizeEvent *event) override;

  private:
    void ShowAsFits();

    QStringList files_;
};

}  // namespace vtr
