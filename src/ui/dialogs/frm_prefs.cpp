#include "frm_prefs.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include "Buttons.h"
#include "ColourSliders.h"

namespace vtr {

namespace {

struct Layer {
    QString name;  ///< of its controls, without the prefix of their kind
    QString caption;
    std::int32_t Preferences::*colour;
};

const std::array<Layer, 6> &Layers() {
    static const std::array<Layer, 6> layers{{
        {QStringLiteral("frnt"), QStringLiteral("Frontlines"), &Preferences::FrontlineColour},
        {QStringLiteral("railway"), QStringLiteral("Railways"), &Preferences::RailwayColour},
        {QStringLiteral("roadint"), QStringLiteral("Road Interdiction"), &Preferences::RoadIntColour},
        {QStringLiteral("railint"), QStringLiteral("Rail Interdiction"), &Preferences::RailIntColour},
        {QStringLiteral("target"), QStringLiteral("Targets"), &Preferences::TargetColour},
        {QStringLiteral("airfield"), QStringLiteral("Airfields"), &Preferences::AirfieldColour},
    }};
    return layers;
}

const std::array<QString, 3> &Components() {
    static const std::array<QString, 3> components{QStringLiteral("Red"), QStringLiteral("Green"),
                                                   QStringLiteral("Blue")};
    return components;
}

void ShowColour(QFrame &swatch, std::int32_t colour) {
    QPalette palette = swatch.palette();
    palette.setColor(QPalette::Window, QColor(colour & 255, colour >> 8 & 255, colour >> 16 & 255));
    swatch.setPalette(palette);
}

}  // namespace

frm_prefs::frm_prefs(Preferences &preferences, QWidget *parent)
    : QDialog(parent), preferences_(preferences), flash_(new QCheckBox) {
    setObjectName(QStringLiteral("frm_prefs"));
    setWindowTitle(QStringLiteral("Preferences"));

    auto *const colours = new QGroupBox(QStringLiteral("Colours"));
    colours->setObjectName(QStringLiteral("fra_colours"));
    auto *const grid = new QGridLayout(colours);
    grid->setHorizontalSpacing(12);
    for (int component = 0; component < 3; ++component)
        grid->addWidget(new QLabel(Components().at(static_cast<std::size_t>(component))), 0, component + 1);
    for (std::size_t index = 0; index < Layers().size(); ++index)
        AddColour(*grid, index);

    flash_->setText(QStringLiteral("&Flash the selected target"));
    flash_->setObjectName(QStringLiteral("chk_targetflash"));
    flash_->setChecked(preferences_.FlashTarget != 0);

    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(colours);
    layout->addWidget(flash_);
    layout->addStretch();
    layout->addLayout(OkCancelRow(*this));
}

void frm_prefs::AddColour(QGridLayout &grid, std::size_t index) {
    const Layer &layer = Layers().at(index);
    const std::int32_t colour = preferences_.*layer.colour;
    const int row = static_cast<int>(index) + 1;
    auto *const swatch = new QFrame;
    swatch->setObjectName(QStringLiteral("pic_") + layer.name);
    swatch->setAccessibleName(layer.caption + QStringLiteral(" colour"));
    swatch->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    swatch->setAutoFillBackground(true);
    swatch->setMinimumSize(48, 20);
    ShowColour(*swatch, colour);

    grid.addWidget(new QLabel(layer.caption), row, 0);
    const auto values = SliderValues(colour);
    for (std::size_t component = 0; component < values.size(); ++component) {
        const QString name = Components().at(component);
        auto *const slider = new QSlider(Qt::Horizontal);
        slider->setObjectName(QStringLiteral("sld_%1(%2)").arg(layer.name).arg(component));
        slider->setAccessibleName(layer.caption + QStringLiteral(" ") + name.toLower());
        slider->setToolTip(QStringLiteral("%1, 0 to 255").arg(name));
        slider->setRange(0, 255);
        slider->setPageStep(16);
        slider->setMinimumWidth(100);
        slider->setValue(values.at(component));
        sliders_.at(index).at(component) = slider;
        grid.addWidget(slider, row, static_cast<int>(component) + 1);
        connect(slider, &QSlider::valueChanged, this,
                [this, swatch, index] { ShowColour(*swatch, ColourOf(index)); });
    }
    grid.addWidget(swatch, row, 4);
}

std::int32_t frm_prefs::ColourOf(std::size_t index) const {
    const auto &sliders = sliders_.at(index);
    return ColourOfSliders({sliders[0]->value(), sliders[1]->value(), sliders[2]->value()});
}

void frm_prefs::accept() {
    for (std::size_t index = 0; index < Layers().size(); ++index)
        preferences_.*Layers()[index].colour = ColourOf(index);
    preferences_.FlashTarget = flash_->isChecked() ? 1 : 0;
    QDialog::accept();
}

}  // namespace vtr
