#include "DifferenceSentences.h"

#include <algorithm>
#include <functional>

#include "AirfieldLists.h"
#include "Arithmetic.h"
#include "CampaignFiles.h"
#include "EditCampaign.h"
#include "ItemNotes.h"

namespace vtr {

namespace {

std::string TextOf(int number) {
    return std::to_string(number);
}

std::string TextOf(double metres) {
    return ShortestText(metres);
}

std::string TextOf(const std::string &name) {
    return '\'' + ShownName(name) + '\'';
}

std::string YesOrNo(std::uint16_t flag) {
    return flag == flagSet ? "yes" : "no";
}

std::string LineOrNone(std::int16_t line) {
    return line == 0 ? "none" : std::to_string(line);
}

std::string PositionText(int x, int y) {
    return '(' + std::to_string(x) + ", " + std::to_string(y) + ')';
}

/// "A to B".
std::string Change(const std::string &was, const std::string &is) {
    // Two aircraft may have the same caption, and two long names may begin alike.
    return was + (was == is ? " to another " : " to ") + is;
}

/// What differs between two states of a row, field by field.
template <typename Row>
class FieldChanges {
  public:
    FieldChanges(const Row &before, const Row &after) : before_(before), after_(after) {}

    void Say(std::string_view words) {
        text_ += text_.empty() ? "" : ", ";
        text_ += words;
    }

    /// Says "name A to B" if the field differs. field is a member or a function of the row.
    template <typename Field, typename ValueText>
    void Compare(std::string_view name, const Field &field, const ValueText &valueText) {
        const auto &was = std::invoke(field, before_);
        const auto &is = std::invoke(field, after_);
        if (was != is)
            Say(std::string(name) + ' ' + Change(valueText(was), valueText(is)));
    }
    template <typename Field>
    void Compare(std::string_view name, const Field &field) {
        Compare(name, field, [](const auto &value) { return TextOf(value); });
    }

    /// Says "other data" if any of these fields, which have no name for the user, differs.
    template <typename... Field>
    void CompareOtherData(Field... field) {
        if (((before_.*field != after_.*field) || ...))
            Say("other data");
    }

    const std::string &Text() const { return text_; }

  private:
    const Row &before_;
    const Row &after_;
    std::string text_;
};

/// A fine offset of a row.
template <std::size_t Index>
constexpr auto fineOffset = [](const auto &row) { return row.fineOffsets[Index]; };

// One function for each table, with the names of its rows and fields and the texts of its values.

std::string Sentence(std::size_t row, const TargetRecord &before, const TargetRecord &after) {
    FieldChanges changes(before, after);
    changes.Compare("column", &TargetRecord::x);
    changes.Compare("row", &TargetRecord::y);
    changes.Compare("metres from the tile's left edge", fineOffset<0>);
    changes.Compare("metres from the tile's top edge", fineOffset<1>);
    changes.Compare("objects", &TargetRecord::count);
    changes.Compare("name", &TargetRecord::name);
    changes.Compare("name number", &TargetRecord::code);
    changes.Compare("airfield", &TargetRecord::airfield_mark, YesOrNo);
    changes.Compare("airfield record", &TargetRecord::airfield_ref);
    changes.CompareOtherData(&TargetRecord::spare, &TargetRecord::extra_word, &TargetRecord::unknown);
    const std::string name = before.name.empty() ? "" : ' ' + TextOf(before.name);
    return "Target " + std::to_string(row) + name + ": " + changes.Text();
}

std::string Sentence(std::size_t row, const std::string &before, const std::string &after) {
    return "Name " + std::to_string(row) + ": " + Change(TextOf(before), TextOf(after));
}

std::string Sentence(std::size_t row, const AirfieldRecord &before, const AirfieldRecord &after) {
    FieldChanges changes(before, after);
    for (std::size_t year = 0; year < airfieldYears.size(); ++year) {
        const std::string number = std::to_string(airfieldYears[year]);
        changes.Compare("model of " + number, airfieldModels[year], ModelText);
        changes.Compare(
            "aircraft based here in " + number,
            [year](const AirfieldRecord &airfield) { return airfield.yearSlots[year]; }, AircraftText);
    }
    changes.Compare("orientation", &AirfieldRecord::airfield_extra_word);
    changes.Compare("country", &AirfieldRecord::country, CountryText);
    changes.CompareOtherData(&AirfieldRecord::index_byte, &AirfieldRecord::spare);
    return "Airfield " + std::to_string(row) + ": " + changes.Text();
}

std::string Sentence(std::size_t row, const RailwayLine &before, const RailwayLine &after) {
    FieldChanges changes(before, after);
    if (after.IsUnused() && !before.IsUnused()) {
        changes.Say("cleared");
    } else if (before.IsUnused() && !after.IsUnused()) {
        changes.Say("now from " + PositionText(after.x1, after.y1) + " to " +
                    PositionText(after.x2, after.y2));
    } else {
        changes.Compare("start column", &RailwayLine::x1);
        changes.Compare("start row", &RailwayLine::y1);
        changes.Compare("end column", &RailwayLine::x2);
        changes.Compare("end row", &RailwayLine::y2);
    }
    changes.Compare("start metres from the tile's left edge", fineOffset<X1>);
    changes.Compare("start metres from the tile's top edge", fineOffset<Y1>);
    changes.Compare("end metres from the tile's left edge", fineOffset<X2>);
    changes.Compare("end metres from the tile's top edge", fineOffset<Y2>);
    return "Railway line " + std::to_string(row) + ": " + changes.Text();
}

std::string Sentence(std::size_t /*row*/, const RailwayCounts &before, const RailwayCounts &after) {
    const std::string lines = Change(TextOf(before.lines), TextOf(after.lines));
    const std::string firstDisabled =
        Change(LineOrNone(before.firstDisabled), LineOrNone(after.firstDisabled));
    if (before.lines == after.lines)
        return "First disabled line: " + firstDisabled;
    return "Railway lines: " + lines +
           (before.firstDisabled == after.firstDisabled ? "" : ", first disabled line " + firstDisabled);
}

std::string Sentence(std::size_t row, const FrontlinePoint &before, const FrontlinePoint &after) {
    FieldChanges changes(before, after);
    const bool wasUnused = IsMarkerRow(before.y);
    const bool isUnused = IsMarkerRow(after.y);
    if (isUnused) {
        changes.Say(wasUnused ? "still unused" : "now unused");
    } else if (wasUnused) {
        changes.Say("now at " + PositionText(after.x, after.y));
    } else {
        changes.Compare("column", &FrontlinePoint::x);
        changes.Compare("row", &FrontlinePoint::y);
    }
    if (!isUnused)
        changes.Compare("on the briefing map", &FrontlinePoint::on_map, YesOrNo);
    return "Frontline " + std::to_string(row / frontlinePointTotal) + ", point " +
           std::to_string(row % frontlinePointTotal) + ": " + changes.Text();
}

/// Whether the file of a table holds what differs between two states of a row.
template <typename Row>
bool IsStored(const Row & /*before*/, const Row & /*after*/) {
    return true;
}

/// A load derives the name from the names file and the mark from the airfield record's number.
bool IsStored(const TargetRecord &before, TargetRecord after) {
    after.name = before.name;
    after.airfield_mark = before.airfield_mark;
    after.spare = before.spare;
    return after != before;
}

bool IsStored(const AirfieldRecord &before, AirfieldRecord after) {
    after.spare = before.spare;
    return after != before;
}

bool IsStored(const RailwayCounts &before, const RailwayCounts &after) {
    return before.lines != after.lines;
}

/// Calls a function with both rows, which are of the same table.
template <typename Function>
auto WithRows(const Difference &difference, const Function &function) {
    return std::visit(
        [&]<typename Row>(const Row &before) { return function(before, std::get<Row>(difference.after)); },
        difference.before);
}

/// The member with the file name of each table, in the order of Table.
constexpr std::array<std::string ProjectPaths::*, std::variant_size_v<TableRow>> fileOfRow{
    &ProjectPaths::Targets, &ProjectPaths::TarNames, &ProjectPaths::Airfield,
    &ProjectPaths::Railway, &ProjectPaths::Railway,  &ProjectPaths::Frontline};

}  // namespace

std::string_view FileWith(const Difference &difference) {
    const bool stored =
        WithRows(difference, [](const auto &before, const auto &after) { return IsStored(before, after); });
    return stored ? FileOf(fileOfRow[difference.before.index()]).usualName : std::string_view();
}

std::string SentenceOf(const Difference &difference) {
    return WithRows(difference, [&](const auto &before, const auto &after) {
        return Sentence(difference.row, before, after);
    });
}

std::string SummaryOf(const Differences &differences) {
    std::size_t total = 0;
    std::vector<std::string_view> names;
    for (const CampaignFile &file : campaignFiles) {
        if (file.write == nullptr)
            continue;
        const auto count = std::ranges::count(differences, file.usualName, FileWith);
        if (count > 0)
            names.push_back(file.usualName);
        total += static_cast<std::size_t>(count);
    }
    std::string summary = std::to_string(total) + (total == 1 ? " difference" : " differences");
    for (std::size_t i = 0; i < names.size(); ++i) {
        summary += i == 0 ? " in " : i + 1 < names.size() ? ", " : " and ";
        summary += names[i];
    }
    return names.empty() ? std::string() : summary;
}

}  // namespace vtr
