#pragma once

#include <QDialog>

namespace vtr {

/// The program's title, version and disclaimer, and the way to the system's information tool.
class frm_about : public QDialog {
    Q_OBJECT

  public:
    explicit frm_about(QWidget *parent = nullptr);
};

}  // namespace vtr
