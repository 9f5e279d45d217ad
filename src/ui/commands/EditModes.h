#pragma once

#include <QObject>

#include "MainWidgets.h"

namespace vtr {

/// The entries of the edit menu: each enables the frame of one layer and makes that layer visible.
class EditModes : public QObject {
    Q_OBJECT

  public:
    EditModes(Session &session, MainWidgets &widgets);

    /// Goes on to the mode after the current one, from the last to the first.
    void SwitchToNext();

  private:
    void SwitchTo(std::size_t mode);

    Session &session_;
    MainWidgets &widgets_;
};

}  // namespace vtr
