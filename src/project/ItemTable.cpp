#include "ItemTable.h"

#include <algorithm>

#include "AirfieldLists.h"
#include "Arithmetic.h"
#include "EditCampaign.h"
#include "GamePosition.h"
#include "ItemNotes.h"
#include "Text.h"

namespace vtr {

namespace {

std::string YesOrNo(bool yes) {
    return yes ? "yes" : "no";
}

ItemCell Number(const Campaign & /*campaign*/, std::size_t row) {
    return static_cast<int>(row);
}

bool Always(const Campaign & /*campaign*/, std::size_t /*row*/) {
    return true;
}

template <auto Field>
ItemCell OfTarget(const Campaign &campaign, std::size_t row) {
    return static_cast<int>(campaign.TargetTable[row].*Field);
}

template <Axis Of>
ItemCell TargetMetres(const Campaign &campaign, std::size_t row) {
    return campaign.TargetTable[row].fineOffsets[static_cast<std::size_t>(Of)];
}

ItemCell TargetName(const Campaign &campaign, std::size_t row) {
    return Utf8OfWindows1252(campaign.TargetTable[row].name);
}

ItemCell AirfieldOfTarget(const Campaign &campaign, std::size_t row) {
    const TargetRecord &target = campaign.TargetTable[row];
    return target.airfield_mark == 0 ? ItemCell() : target.airfield_ref;
}

constexpr std::array<ItemColumn, 8> targetColumns{{{"Number", Number},
                                                   {"Name", TargetName},
                                                   {"X", OfTarget<&TargetRecord::x>},
                                                   {"Y", OfTarget<&TargetRecord::y>},
                                                   {"X m", TargetMetres<Axis::X>},
                                                   {"Y m", TargetMetres<Axis::Y>},
                                                   {"Objects", OfTarget<&TargetRecord::count>},
                                                   {"Airfield", AirfieldOfTarget}}};

/// The numbers of the targets that stand for the airfield: "44, 200".
ItemCell TargetsOfAirfield(const Campaign &campaign, std::size_t row) {
    std::string numbers;
    for (std::size_t target = 0; target < targetTotal; ++target)
        if (IsAirfieldOf(campaign.TargetTable[target], row))
            numbers += (numbers.empty() ? "" : ", ") + std::to_string(target);
    return numbers;
}

ItemCell AirfieldCountry(const Campaign &campaign, std::size_t row) {
    return CountryText(campaign.AirfieldTable[row].country);
}

ItemCell AirfieldOrientation(const Campaign &campaign, std::size_t row) {
    return campaign.AirfieldTable[row].airfield_extra_word;
}

template <std::size_t Year>
ItemCell AirfieldModel(const Campaign &campaign, std::size_t row) {
    return ModelText(campaign.AirfieldTable[row].*airfieldModels[Year]);
}

template <std::size_t Year>
ItemCell AirfieldAircraft(const Campaign &campaign, std::size_t row) {
    return AircraftText(campaign.AirfieldTable[row].yearSlots[Year]);
}

constexpr std::array<ItemColumn, 12> airfieldColumns{{{"Number", Number},
                                                      {"Targets", TargetsOfAirfield},
                                                      {"Country", AirfieldCountry},
                                                      {"Orientation", AirfieldOrientation},
                                                      {"Model 1940", AirfieldModel<0>},
                                                      {"Aircraft 1940", AirfieldAircraft<0>},
                                                      {"Model 1943", AirfieldModel<1>},
                                                      {"Aircraft 1943", AirfieldAircraft<1>},
                                                      {"Model 1944", AirfieldModel<2>},
                                                      {"Aircraft 1944", AirfieldAircraft<2>},
                                                      {"Model 1945", AirfieldModel<3>},
                                                      {"Aircraft 1945", AirfieldAircraft<3>}}};

const FrontlinePoint &PointAt(const Campaign &campaign, std::size_t row) {
    return campaign.FrontlineTable[row / frontlinePointTotal].points[row % frontlinePointTotal];
}

ItemCell FrontlineNumber(const Campaign & /*campaign*/, std::size_t row) {
    return static_cast<int>(row / frontlinePointTotal);
}

ItemCell PointNumber(const Campaign & /*campaign*/, std::size_t row) {
    return static_cast<int>(row % frontlinePointTotal);
}

template <auto Field>
ItemCell OfPoint(const Campaign &campaign, std::size_t row) {
    return static_cast<int>(PointAt(campaign, row).*Field);
}

ItemCell PointOnMap(const Campaign &campaign, std::size_t row) {
    return YesOrNo(PointAt(campaign, row).on_map == flagSet);
}

bool IsPointUsed(const Campaign &campaign, std::size_t row) {
    return !IsMarkerRow(PointAt(campaign, row).y);
}

constexpr std::array<ItemColumn, 5> pointColumns{{{"Frontline", FrontlineNumber},
                                                  {"Point", PointNumber},
                                                  {"X", OfPoint<&FrontlinePoint::x>},
                                                  {"Y", OfPoint<&FrontlinePoint::y>},
                                                  {"On Map", PointOnMap}}};

template <RailwayCoordinate Coordinate>
ItemCell LinePixel(const Campaign &campaign, std::size_t row) {
    return campaign.RailwayTable[row].*railwayPixels[Coordinate];
}

template <RailwayCoordinate Coordinate>
ItemCell LineMetres(const Campaign &campaign, std::size_t row) {
    return campaign.RailwayTable[row].fineOffsets[Coordinate];
}

/// A record of zero bytes has both its ends on a marker row.
bool IsLineUsed(const Campaign &campaign, std::size_t row) {
    return IsUsed(campaign.RailwayTable[row]);
}

constexpr std::array<ItemColumn, 9> lineColumns{{{"Line", Number},
                                                 {"X1", LinePixel<X1>},
                                                 {"X1 m", LineMetres<X1>},
                                                 {"Y1", LinePixel<Y1>},
                                                 {"Y1 m", LineMetres<Y1>},
                                                 {"X2", LinePixel<X2>},
                                                 {"X2 m", LineMetres<X2>},
                                                 {"Y2", LinePixel<Y2>},
                                                 {"Y2 m", LineMetres<Y2>}}};

template <auto Paths>
ItemCell WaypointCount(const Campaign &campaign, std::size_t row) {
    return (campaign.*Paths)[row].count;
}

template <auto Paths>
bool IsPathUsed(const Campaign &campaign, std::size_t row) {
    return (campaign.*Paths)[row].count > 0;
}

template <auto Paths, auto Field>
ItemCell OfFirstWaypoint(const Campaign &campaign, std::size_t row) {
    return (campaign.*Paths)[row].waypoints.front().*Field;
}

template <auto Paths, auto Field>
ItemCell OfLastWaypoint(const Campaign &campaign, std::size_t row) {
    const WaypointPath &path = (campaign.*Paths)[row];
    const int last = std::clamp(path.count - 1, 0, static_cast<int>(waypointTotal) - 1);
    return path.waypoints[static_cast<std::size_t>(last)].*Field;
}

template <auto Paths>
constexpr std::array<ItemColumn, 6> pathColumns{{{"Path", Number},
                                                 {"Waypoints", WaypointCount<Paths>},
                                                 {"First X", OfFirstWaypoint<Paths, &Waypoint::x>},
                                                 {"First Y", OfFirstWaypoint<Paths, &Waypoint::y>},
                                                 {"Last X", OfLastWaypoint<Paths, &Waypoint::x>},
                                                 {"Last Y", OfLastWaypoint<Paths, &Waypoint::y>}}};

constexpr auto roads = &Campaign::RoadWaypointTable;
constexpr auto rails = &Campaign::RailWaypointTable;

/// In the order of ItemKind.
constexpr std::array<ItemTable, itemKindTotal> tables{
    {{targetTotal, targetColumns, Always},
     {airfieldTotal, airfieldColumns, Always},
     {frontlineTotal * frontlinePointTotal, pointColumns, IsPointUsed},
     {railwayLineTotal, lineColumns, IsLineUsed},
     {roadPathTotal, pathColumns<roads>, IsPathUsed<roads>},
     {railPathTotal, pathColumns<rails>, IsPathUsed<rails>}}};

struct CellText {
    std::string operator()(std::monostate /*nothing*/) const { return {}; }
    std::string operator()(int number) const { return std::to_string(number); }
    std::string operator()(double metres) const { return ShortestText(metres); }
    std::string operator()(const std::string &text) const { return text; }
};

}  // namespace

std::string TextOf(const ItemCell &cell) {
    return std::visit(CellText(), cell);
}

const ItemTable &ItemTableOf(ItemKind kind) {
    return tables.at(static_cast<std::size_t>(kind));
}

}  // namespace vtr
