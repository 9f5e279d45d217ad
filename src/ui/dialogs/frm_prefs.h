#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QSlider>
#include <array>

#include "Preferences.h"
#include "PreferencesPreview.h"

class QGridLayout;

namespace vtr {

class ColourSwatch;
class PictureWidget;

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
    /// Shows the colour in its swatch and in the preview.
    void Show(std::size_t index, std::int32_t colour);
    void ShowPreview();
    /// Sets the sliders to exactly this colour.
    void SetColour(std::size_t index, std::int32_t colour);
    void ChooseColour(std::size_t index);
    void SetDefaults();

    Preferences &preferences_;
    Preferences shown_;  ///< the colours that the swatches and the preview show
    PreferencesPreview preview_;
    std::array<std::array<QSlider *, 3>, colourTotal> sliders_{};
    std::array<ColourSwatch *, colourTotal> swatches_{};
    QCheckBox *flash_;
    PictureWidget *picture_;
};

}  // namespace vtr
