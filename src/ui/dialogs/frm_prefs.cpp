#include "frm_prefs.h"

#include <QColorDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include "Buttons.h"
#include "ColourSliders.h"
#include "ColourSwatch.h"
#include "PictureWidget.h"

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

/// The red, green and blue of the colour.
std::array<int, 3> ComponentsOf(std::int32_t colour) {
    return {colour & 255, colour >> 8 & 255, colour >> 16 & 255};
}

QColor ShownColour(std::int32_t colour) {
    const auto [red, green, blue] = ComponentsOf(colour);
    return {red, green, blue};
}

}  // namespace

frm_prefs::frm_prefs(Preferences &preferences, QWidget *parent)
    : QDialog(parent),
      preferences_(preferences),
      shown_(preferences),
      flash_(new QCheckBox),
      picture_(new PictureWidget(QStringLiteral("pic_preview"))) {
    setObjectName(QStringLiteral("frm_prefs"));
    setWindowTitle(QStringLiteral("Preferences"));

    auto *const colours = new QGroupBox(QStringLiteral("Colours"));
    colours->setObjectName(QStringLiteral("fra_colours"));
    auto *const grid = new QGridLayout(colours);
    grid->setHorizontalSpacing(12);
    for (int component = 0; component < 3; ++component)
        grid->addWidget(new QLabel(Components().at(static_cast<std::size_t>(component))), 0,
                        2 * component + 1);
    for (std::size_t index = 0; index < Layers().size(); ++index)
        AddColour(*grid, index);
    picture_->setAccessibleName(tr("Preview of the colours on a piece of map"));
    grid->addWidget(picture_, static_cast<int>(colourTotal) + 1, 0, 1, 8, Qt::AlignHCenter);
    ShowPreview();

    flash_->setText(QStringLiteral("&Flash the selected target"));
    flash_->setObjectName(QStringLiteral("chk_targetflash"));
    flash_->setChecked(preferences_.FlashTarget != 0);

    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(colours);
    layout->addWidget(flash_);
    layout->addStretch();
    QPushButton *const defaults = MakeButton(QStringLiteral("cmd_defaults"), tr("&Defaults"));
    defaults->setToolTip(tr("Set everything here as the program was shipped; OK keeps it"));
    defaults->setAutoDefault(false);
    connect(defaults, &QPushButton::clicked, this, &frm_prefs::SetDefaults);
    auto *const buttons = new QHBoxLayout;
    buttons->addWidget(defaults);
    buttons->addLayout(OkCancelRow(*this), 1);
    layout->addLayout(buttons);
}

void frm_prefs::AddColour(QGridLayout &grid, std::size_t index) {
    const Layer &layer = Layers().at(index);
    const std::int32_t colour = preferences_.*layer.colour;
    const int row = static_cast<int>(index) + 1;
    auto *const swatch = new ColourSwatch(QStringLiteral("pic_") + layer.name);
    swatch->setAccessibleName(layer.caption + QStringLiteral(" colour"));
    swatch->setToolTip(tr("Click to choose the colour"));
    swatch->ShowColour(ShownColour(colour));
    swatches_.at(index) = swatch;
    connect(swatch, &ColourSwatch::Clicked, this, [this, index] { ChooseColour(index); });

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
        const int column = 2 * static_cast<int>(component) + 1;
        grid.addWidget(slider, row, column);
        auto *const number = new QLabel(QString::number(slider->value()));
        number->setObjectName(QStringLiteral("lbl_%1(%2)").arg(layer.name).arg(component));
        number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        number->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("255")));
        grid.addWidget(number, row, column + 1);
        connect(slider, &QSlider::valueChanged, this, [this, number, index](int value) {
            number->setNum(value);
            Show(index, ColourOf(index));
        });
    }
    grid.addWidget(swatch, row, 7);
}

std::int32_t frm_prefs::ColourOf(std::size_t index) const {
    const auto &sliders = sliders_.at(index);
    return ColourOfSliders({sliders[0]->value(), sliders[1]->value(), sliders[2]->value()});
}

void frm_prefs::Show(std::size_t index, std::int32_t colour) {
    swatches_.at(index)->ShowColour(ShownColour(colour));
    shown_.*Layers().at(index).colour = colour;
    ShowPreview();
}

void frm_prefs::ShowPreview() {
    picture_->SetPicture(preview_.Draw(shown_));
}

void frm_prefs::SetColour(std::size_t index, std::int32_t colour) {
    const auto components = ComponentsOf(colour);
    for (std::size_t component = 0; component < components.size(); ++component)
        sliders_.at(index).at(component)->setValue(components.at(component));
    // Also when no slider moved: the swatch may show a colour that the sliders were rounded from.
    Show(index, colour);
}

void frm_prefs::ChooseColour(std::size_t index) {
    const Layer &layer = Layers().at(index);
    const QColor chosen =
        QColorDialog::getColor(ShownColour(shown_.*layer.colour), this, tr("%1 Colour").arg(layer.caption));
    if (chosen.isValid())
        SetColour(index, ColourOfSliders({chosen.red(), chosen.green(), chosen.blue()}));
}

void frm_prefs::SetDefaults() {
    const Preferences shipped = ShippedPreferences();
    for (std::size_t index = 0; index < Layers().size(); ++index)
        SetColour(index, shipped.*Layers()[index].colour);
    flash_->setChecked(shipped.FlashTarget != 0);
}

void frm_prefs::accept() {
    for (std::size_t index = 0; index < Layers().size(); ++index)
        preferences_.*Layers()[index].colour = ColourOf(index);
    preferences_.FlashTarget = flash_->isChecked() ? 1 : 0;
    QDialog::accept();
}

}  // namespace vtr
