#include "Session.h"

#include <utility>

#include "Arithmetic.h"

namespace vtr {

EditMode ModeOf(Table table) {
    switch (table) {
        case Table::FrontlinePoints:
            return EditMode::Frontline;
        case Table::RailwayLines:
        case Table::RailwayCounts:
            return EditMode::Railway;
        case Table::Targets:
        case Table::TargetNames:
        case Table::Airfields:
            break;
    }
    return EditMode::Target;
}

void Session::Do(std::string name, const std::vector<TableRows> &rows,
                 const std::function<void(Campaign &)> &edit, std::string field) {
    const Selection before = selection;
    KeptRows kept(campaign, rows);
    try {
        edit(campaign);
    } catch (...) {
        Apply(kept.DifferencesTo(campaign), Direction::Backwards, campaign);
        throw;
    }
    Differences differences = kept.DifferencesTo(campaign);
    if (differences.empty())
        return;
    savedTables.Change(differences, Direction::Forwards);
    history.Add({std::move(name), std::move(field), std::move(differences), before, selection}, now());
    tablesChanged();
}

void Session::TakeOver(std::string name, const Differences &differences) {
    if (differences.empty())
        return;
    Apply(differences, Direction::Forwards, campaign);
    savedTables.Change(differences, Direction::Forwards);
    history.Add({std::move(name), {}, differences, selection, selection}, now());
    tablesChanged();
}

const Edit &Session::Undo() {
    const Edit &edit = history.Undo();
    Apply(edit.differences, Direction::Backwards, campaign);
    savedTables.Change(edit.differences, Direction::Backwards);
    SelectItem(*this, ModeOf(edit.differences.front().In()), edit.before);
    tablesChanged();
    return edit;
}

const Edit &Session::Redo() {
    const Edit &edit = history.Redo();
    Apply(edit.differences, Direction::Forwards, campaign);
    savedTables.Change(edit.differences, Direction::Forwards);
    SelectItem(*this, ModeOf(edit.differences.front().In()), edit.after);
    tablesChanged();
    return edit;
}

void Session::CampaignLoaded() {
    keptVersions = {};
    history.Clear();
    savedTables.Load(campaign);
    tablesChanged();
}

void Session::FilesSaved(const std::vector<std::string_view> &usualNames) {
    history.EndMerging();
    savedTables.Save(campaign, usualNames);
    tablesChanged();
}

std::vector<std::string_view> Session::EditedFiles() const {
    std::vector<std::string_view> files = savedTables.EditedFiles();
    if (campaign.paths.GridData.empty())  // made of what TARGET.DAT holds, and this project makes none
        std::erase(files, "GRIDDATA.DAT");
    return files;
}

void SwitchMode(Session &session, EditMode mode) {
    session.mode = mode;
    session.targetFrameEnabled = mode == EditMode::Target;
    if (mode != EditMode::Target)
        session.airfieldFrameEnabled = false;
}

void SelectItem(Session &session, EditMode mode, const Selection &selected) {
    switch (mode) {
        case EditMode::Target:
            session.selection.target = selected.target;
            break;
        case EditMode::Frontline:
            session.selection.frontline = selected.frontline;
            session.selection.frontlinePoint = selected.frontlinePoint;
            break;
        case EditMode::Railway:
            session.selection.railwayLine = selected.railwayLine;
            break;
        case EditMode::RoadInt:
            session.selection.road = selected.road;
            break;
        case EditMode::RailInt:
            session.selection.rail = selected.rail;
            break;
    }
    if (mode != session.mode)
        SwitchMode(session, mode);
    session.layers.*layersOfModes[static_cast<std::size_t>(mode)] = true;
}

MapPixel SelectedPixel(const Session &session) {
    const Selection &selection = session.selection;
    const Campaign &campaign = session.campaign;
    const auto pixelOf = [](const auto &item) { return MapPixel{item.x, item.y}; };
    const auto at = [](const auto &table, int index) -> const auto & {
        return table.at(static_cast<std::size_t>(index));
    };
    const auto waypoint = [&](const auto &table, const Selection::PathWaypoint &selected) {
        return pixelOf(at(at(table, selected.path).waypoints, selected.waypoint));
    };
    switch (session.mode) {
        case EditMode::Target:
            break;
        case EditMode::Frontline:
            return pixelOf(
                at(at(campaign.FrontlineTable, selection.frontline).points, selection.frontlinePoint));
        case EditMode::Railway: {
            const RailwayLine &line = at(campaign.RailwayTable, selection.railwayLine);
            return {line.x1, line.y1};
        }
        case EditMode::RoadInt:
            return waypoint(campaign.RoadWaypointTable, selection.road);
        case EditMode::RailInt:
            return waypoint(campaign.RailWaypointTable, selection.rail);
    }
    return pixelOf(at(campaign.TargetTable, selection.target));
}

std::optional<MapPixel> PixelToMark(const Session &session) {
    const Selection &selection = session.selection;
    const Campaign &campaign = session.campaign;
    const auto isUsed = [](const auto &paths, const Selection::PathWaypoint &selected) {
        return selected.waypoint < paths.at(static_cast<std::size_t>(selected.path)).count;
    };
    bool used = campaign.ProjectLoaded;
    if (session.mode == EditMode::Railway)
        used &= !campaign.RailwayTable.at(static_cast<std::size_t>(selection.railwayLine)).IsUnused();
    else if (session.mode == EditMode::RoadInt)
        used &= isUsed(campaign.RoadWaypointTable, selection.road);
    else if (session.mode == EditMode::RailInt)
        used &= isUsed(campaign.RailWaypointTable, selection.rail);
    return used ? std::optional(SelectedPixel(session)) : std::nullopt;
}

MapDisplay DisplayOf(const Session &session) {
    const Selection &selection = session.selection;
    return {session.layers,
            session.mode == EditMode::Frontline,
            session.mode == EditMode::Railway,
            ToInt16(selection.frontline),
            ToInt16(selection.frontlinePoint),
            ToInt16(selection.railwayLine),
            ToInt16(selection.target)};
}

}  // namespace vtr
