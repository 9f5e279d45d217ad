#pragma once

#include <QDialog>

namespace vtr {

/// A page of help.
class frm_tutorial : public QDialog {
    Q_OBJECT

  public:
    explicit frm_tutorial(QWidget *parent = nullptr);
};

}  // namespace vtr
