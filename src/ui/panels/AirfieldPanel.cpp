#include "AirfieldPanel.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>
#include <utility>

#include "AirfieldLists.h"
#include "ChoiceField.h"
#include "EditCampaign.h"
#include "GameText.h"
#include "ItemNotes.h"
#include "NumberField.h"
#include "QuietLine.h"

namespace vtr {

namespace {

void AddLabel(QGridLayout &grid, const QString &caption, QWidget *field, int row, int column) {
    auto *label = new QLabel(caption, field->parentWidget());
    label->setBuddy(field);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grid.addWidget(label, row, column);
    grid.addWidget(field, row, column + 1);
}

int CountryEntryOfCode(std::uint8_t code) {
    const auto *entry = std::ranges::find(countryEntries, code, &CountryEntry::code);
    return entry == countryEntries.end() ? -1 : static_cast<int>(entry - countryEntries.begin());
}

}  // namespace

AirfieldPanel::AirfieldPanel(Session &session, QWidget *parent)
    : Panel(QStringLiteral("fra_airfield"), QStringLiteral("Airfield"), session, parent) {
    Build();
    Bind();
    for (QWidget *child : findChildren<QWidget *>())
        child->installEventFilter(this);
    Refresh();
}

void AirfieldPanel::Build() {
    TitleRow().addWidget(MakeNote("lbl_air_note", 1));
    code_ = new QLineEdit(this);
    code_->setObjectName(QStringLiteral("txt_air_code"));
    code_->setAccessibleName(QStringLiteral("Airfield record"));
    code_->setReadOnly(true);
    code_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    AddLabel(Grid(), QStringLiteral("Airfield:"), code_, 0, 0);
    orientation_ = AddField({"air_orientation", "O&rientation:", "Airfield orientation", "", 65535}, 1, 0);
    country_ = MakeList(QStringLiteral("cbo_air_country"), QStringLiteral("Country of the airfield"), 11);
    for (const CountryEntry &entry : countryEntries)
        country_->addItem(ShownText(entry.caption));
    auto *countryLabel = new QLabel(QStringLiteral("Co&untry:"), this);
    countryLabel->setBuddy(country_);
    Grid().addWidget(countryLabel, 2, 0, 1, 2);
    Grid().addWidget(country_, 3, 0, 1, 2);

    for (std::size_t year = 0; year < airfieldYears.size(); ++year) {
        const QString number = QString::number(airfieldYears[year]);
        models_[year] =
            MakeList(QStringLiteral("cbo_air_") + number, QStringLiteral("Airfield model of ") + number, 9);
        for (const std::string_view caption : airfieldModelCaptions)
            models_[year]->addItem(ShownText(caption));
        aircraft_[year] = MakeList(QStringLiteral("cbo_side_") + number,
                                   QStringLiteral("Aircraft based here in ") + number, 14);
        for (const std::string_view caption : aircraftCaptions)
            aircraft_[year]->addItem(ShownText(caption));
        const int row = static_cast<int>(year);
        AddLabel(Grid(), number + QLatin1Char(':'), models_[year], row, 2);
        Grid().addWidget(aircraft_[year], row, 4);
    }
}

ChoiceField *AirfieldPanel::MakeList(const QString &name, const QString &meaning, int letters) {
    auto *list = new ChoiceField(name, letters, this);
    list->setAccessibleName(meaning);
    list->setToolTip(meaning);
    return list;
}

void AirfieldPanel::Bind() {
    connect(orientation_, &NumberField::NumberChanged, this, [this](int word) {
        if (!airfield_)
            return;
        Store(
            "Orientation", [&](Campaign &campaign) { SetAirfieldExtraWord(campaign, *airfield_, word); },
            orientation_->objectName().toStdString());
    });
    BindList(country_, "Country", [this](Campaign &campaign, int entry) {
        SetAirfieldCountry(campaign, *airfield_, countryEntries.at(static_cast<std::size_t>(entry)).code);
    });
    for (std::size_t year = 0; year < airfieldYears.size(); ++year) {
        const std::string number = std::to_string(airfieldYears[year]);
        BindList(models_[year], number + " Model", [this, year](Campaign &campaign, int entry) {
            SetAirfieldModel(campaign, *airfield_, year, entry);
        });
        BindList(aircraft_[year], number + " Aircraft", [this, year](Campaign &campaign, int entry) {
            SetAirfieldYearSlot(campaign, *airfield_, year, YearSlotOfEntry(entry));
        });
    }
}

void AirfieldPanel::BindList(ChoiceField *list, const std::string &what,
                             std::function<void(Campaign &campaign, int entry)> set) {
    connect(list, &ChoiceField::currentIndexChanged, this, [this, what, set = std::move(set)](int entry) {
        if (airfield_ && entry >= 0)
            Store(what, [&](Campaign &campaign) { set(campaign, entry); });
    });
}

void AirfieldPanel::Store(const std::string &what, const std::function<void(Campaign &campaign)> &set,
                          const std::string &field) {
    session_.Do("Change " + what + " of Airfield " + std::to_string(*airfield_),
                {RowOf(Table::Airfields, *airfield_)}, set, field);
    Q_EMIT Changed();
}

void AirfieldPanel::ShowAirfield(std::optional<int> airfield) {
    if (!airfield && !airfield_ && !missing_)
        return ShowToolTip();  // the panel is empty already
    const bool exists = airfield && *airfield < static_cast<int>(airfieldTotal);
    missing_ = exists ? std::nullopt : airfield;
    airfield_ = exists ? airfield : std::nullopt;
    session_.airfieldFrameEnabled = exists;
    Refresh();
    ShowNote();
}

std::string AirfieldPanel::Note() const {
    return airfield_ || missing_ ? NoteOfAirfield(campaign_, session_.selection.target) : std::string();
}

void AirfieldPanel::ShowToolTip() {
    const bool isLoaded = campaign_.ProjectLoaded;
    const ToolTipState state{airfield_, missing_, isLoaded, session_.targetFrameEnabled, isEnabled()};
    if (std::exchange(shownToolTip_, state) == state)
        return;
    constexpr int last = airfieldTotal - 1;
    const QString whyMissing = QStringLiteral(
                                   "The target refers to airfield %1, but the last one is %2: there is no "
                                   "record to show or edit")
                                   .arg(missing_.value_or(0))
                                   .arg(last);
    code_->setToolTip(missing_ ? whyMissing
                               : QStringLiteral("Index of the airfield's record, 0 to %1").arg(last));
    if (missing_)
        setToolTip(whyMissing);
    else if (!airfield_ && !session_.targetFrameEnabled)
        setToolTip(isLoaded ? QStringLiteral("The selected target is no airfield")
                            : QStringLiteral("No project is loaded"));
    else if (!airfield_)
        setToolTip(QStringLiteral("The selected target is no airfield; its box \"Airfield\" makes it one"));
    else if (!isEnabled())
        setToolTip(QStringLiteral(
            "Airfields are edited in the target mode (F2), once their target is selected there"));
    else
        setToolTip(QStringLiteral("The airfield of the selected target"));
}

void AirfieldPanel::changeEvent(QEvent *event) {
    Panel::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        ShowToolTip();
}

bool AirfieldPanel::event(QEvent *event) {
    if (event->type() == QEvent::ToolTip)
        ShowToolTip();  // the target's frame may have been enabled or disabled
    return Panel::event(event);
}

bool AirfieldPanel::eventFilter(QObject *watched, QEvent *event) {
    if (isEnabled() || event->type() != QEvent::ToolTip)
        return Panel::eventFilter(watched, event);
    event->ignore();  // then the frame gets it
    return true;
}

void AirfieldPanel::ShowNoRecord() {
    code_->setText(missing_ ? QString::number(*missing_) : QString());
    orientation_->ShowNothing();
    for (ChoiceField *list : findChildren<ChoiceField *>())
        list->ShowEntry(-1);
}

void AirfieldPanel::Refresh() {
    ShowToolTip();
    if (!airfield_)
        return ShowNoRecord();
    const AirfieldRecord &airfield = campaign_.AirfieldTable[static_cast<std::size_t>(*airfield_)];
    code_->setText(QString::number(*airfield_));
    orientation_->ShowRecordValue(airfield.airfield_extra_word);
    country_->ShowEntry(CountryEntryOfCode(airfield.country));
    for (std::size_t year = 0; year < airfieldYears.size(); ++year) {
        models_[year]->ShowEntry(airfield.*airfieldModels[year]);
        aircraft_[year]->ShowEntry(EntryOfYearSlot(airfield.yearSlots[year]).value_or(-1));
    }
}

}  // namespace vtr
