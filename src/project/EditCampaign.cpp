#include "EditCampaign.h"

#include <algorithm>

#include "Arithmetic.h"
#include "TargetNameFile.h"

namespace vtr {

namespace {

Place At(std::string_view item, int index) {
    return {.file = {}, .item = item, .index = index};
}

std::size_t IndexOf(std::string_view item, int index, std::size_t count) {
    return CheckIndex(index, count, At(item, index));
}

TargetRecord &TargetAt(Campaign &campaign, int target) {
    return campaign.TargetTable[IndexOf("target", target, targetTotal)];
}

AirfieldRecord &AirfieldAt(Campaign &campaign, int airfield) {
    return campaign.AirfieldTable[IndexOf("airfield", airfield, airfieldTotal)];
}

FrontlinePoint &PointAt(Campaign &campaign, int slot, int point) {
    Frontline &frontline = campaign.FrontlineTable[IndexOf("frontline", slot, frontlineTotal)];
    return frontline.points[IndexOf("frontline point", point, frontlinePointTotal)];
}

RailwayLine &LineAt(Campaign &campaign, int line) {
    return campaign.RailwayTable[IndexOf("railway line", line, railwayLineTotal)];
}

std::size_t NameEntryOf(const Campaign &campaign, int target) {
    const std::size_t index = IndexOf("target", target, targetTotal);
    return CheckIndex(campaign.TargetTable[index].code, targetNameTotal, At("target", target));
}

}  // namespace

void SetTargetPixel(Campaign &campaign, int target, Axis axis, int pixel) {
    TargetRecord &record = TargetAt(campaign, target);
    (axis == Axis::X ? record.x : record.y) = ToInt16(pixel, At("target", target));
}

void SetTargetFineOffset(Campaign &campaign, int target, Axis axis, int metres) {
    TargetAt(campaign, target).fineOffsets[axis == Axis::X ? 0 : 1] = metres;
}

void SetTargetCount(Campaign &campaign, int target, int count) {
    TargetAt(campaign, target).count = ToByte(count, At("target", target));
}

void SetTargetIsAirfield(Campaign &campaign, int target, bool isAirfield) {
    TargetAt(campaign, target).airfield_mark = isAirfield ? flagSet : 0;
}

bool TargetNameFits(const Campaign &campaign, int target, std::string_view name) {
    const std::size_t replaced = campaign.TargetNameTable[NameEntryOf(campaign, target)].size();
    std::size_t total = name.size();
    for (const std::string &entry : campaign.TargetNameTable)
        total += entry.size();
    return name.size() <= replaced || total - replaced <= targetNamesMaxLength;
}

void RenameTarget(Campaign &campaign, int target, const std::string &name) {
    const std::size_t entry = NameEntryOf(campaign, target);
    campaign.TargetNameTable[entry] = name;
    for (TargetRecord &record : campaign.TargetTable) {
        if (record.code == entry)
            record.name = name;
    }
}

std::vector<TableRows> RowsOfTargetName(const Campaign &campaign, int target) {
    const std::size_t entry = NameEntryOf(campaign, target);
    std::vector<TableRows> rows{{Table::TargetNames, entry, 1}};
    for (std::size_t t = 0; t < targetTotal; ++t)
        if (campaign.TargetTable[t].code == entry)
            rows.push_back({Table::Targets, t, 1});
    return rows;
}

void SetAirfieldModel(Campaign &campaign, int airfield, std::size_t year, int model) {
    AirfieldAt(campaign, airfield).*airfieldModels.at(year) = ToByte(model, At("airfield", airfield));
}

void SetAirfieldYearSlot(Campaign &campaign, int airfield, std::size_t year, const AirfieldYearSlot &slot) {
    AirfieldAt(campaign, airfield).yearSlots.at(year) = slot;
}

void SetAirfieldExtraWord(Campaign &campaign, int airfield, int word) {
    AirfieldAt(campaign, airfield).airfield_extra_word = ToUint16(word, At("airfield", airfield));
}

void SetAirfieldCountry(Campaign &campaign, int airfield, std::uint8_t country) {
    AirfieldAt(campaign, airfield).country = country;
}

void SetFrontlinePixel(Campaign &campaign, int slot, int point, Axis axis, int pixel) {
    FrontlinePoint &record = PointAt(campaign, slot, point);
    (axis == Axis::X ? record.x : record.y) = ToInt16(pixel, At("frontline", slot));
}

void SetFrontlinePointOnMap(Campaign &campaign, int slot, int point, bool onMap) {
    PointAt(campaign, slot, point).on_map = onMap ? flagSet : 0;
}

void CopyFrontlineIntoAllSlots(Campaign &campaign, int slot) {
    const Frontline copied = campaign.FrontlineTable[IndexOf("frontline", slot, frontlineTotal)];
    campaign.FrontlineTable.fill(copied);
}

void SetRailwayPixel(Campaign &campaign, int line, RailwayCoordinate coordinate, int pixel) {
    LineAt(campaign, line).*railwayPixels[coordinate] = ToInt16(pixel, At("railway line", line));
}

void SetRailwayFineOffset(Campaign &campaign, int line, RailwayCoordinate coordinate, int metres) {
    LineAt(campaign, line).fineOffsets[coordinate] = metres;
}

void DisableRailwayFrom(Campaign &campaign, int line) {
    IndexOf("railway line", line, railwayLineTotal);
    for (auto cleared = campaign.RailwayTable.begin() + line; cleared != campaign.RailwayTable.end();
         ++cleared)
        *cleared = {.fineOffsets = cleared->fineOffsets};
    campaign.firstDisabledRailwayLine = ToInt16(line);
}

void EnableRailway(Campaign &campaign) {
    campaign.firstDisabledRailwayLine = 0;
}

}  // namespace vtr
