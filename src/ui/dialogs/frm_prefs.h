#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QFrame>
#include <QSlider>
#include <array>

#include "Preferences.h"

class QGridLayout;

namespace vtr {

/// Edits the colours of the layers and the flash switch. OK stores them in the preferences, but draws nothing
/// and writes no file.
class frm_prefs : public QDialog {
    Q_OBJECT

  public:
    explicit frm_prefs(Preferences &preferences, QWidget *parent = nullptr);

    void accept() override;

  private:
    static constexpr std::size_t colourTotal = 6;

    void AddColour(QGridLayout &grid, std::size_t index);
    std::int32_t ColourOf(std::size_t index) const;

    Preferences &preferences_;
    std::array<std::array<QSlider *, 3>, colourTotal> sliders_{};
    QCheckBox *flash_;
};

}  // namespace vtr
