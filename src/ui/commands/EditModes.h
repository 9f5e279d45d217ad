#pragma once

#include <QObject>

#include "MainWidgets.h"

namespace vtr {

class NumberField;

/// The five edit modes: each enables the frame of one layer and makes that layer visible.
class EditModes : public QObject {
    Q_OBJECT

  public:
    explicit EditModes(MainWidgets &widgets);

    /// Goes on to the mode that follows the one that the status bar names.
    void SwitchToNext();

  private:
    struct Mode {
        QAction *entry;
        QWidget *frame;
        NumberField *viewSelector;  ///< disabled while its layer is being edited; none for targets
        QString statusText;
        QAction *viewEntry;
    };

    void SwitchTo(const Mode &mode);

    MainWidgets &widgets_;
    std::vector<Mode> modes_;
};

}  // namespace vtr
