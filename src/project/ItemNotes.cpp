#include "ItemNotes.h"

#include <algorithm>
#include <vector>

#include "Text.h"

namespace vtr {

namespace {

constexpr std::size_t mostNamed = 4;

/// "target 5", "targets 5, 299", "targets 5, 6, 7, 8 and 3 more"
std::string TextOf(const std::vector<std::size_t> &targets) {
    std::string text = targets.size() == 1 ? "target " : "targets ";
    const std::size_t named = std::min(targets.size(), mostNamed);
    for (std::size_t i = 0; i < named; ++i)
        text += (i == 0 ? "" : ", ") + std::to_string(targets[i]);
    if (named < targets.size())
        text += " and " + std::to_string(targets.size() - named) + " more";
    return text;
}

/// The targets other than target that are so.
template <typename Condition>
std::vector<std::size_t> OtherTargets(const Campaign &campaign, int target, Condition isSo) {
    std::vector<std::size_t> others;
    for (std::size_t i = 0; i < targetTotal; ++i)
        if (i != static_cast<std::size_t>(target) && isSo(campaign.TargetTable[i]))
            others.push_back(i);
    return others;
}

}  // namespace

bool IsUsed(const RailwayLine &line) {
    return !line.IsUnused() && !(IsMarkerRow(line.y1) && IsMarkerRow(line.y2));
}

std::string NoteOfTarget(const Campaign &campaign, int target) {
    const TargetRecord &record = campaign.TargetTable[static_cast<std::size_t>(target)];
    if (IsMarkerRow(record.y))
        return "This target is unused";
    const auto sharing =
        OtherTargets(campaign, target, [&](const TargetRecord &other) { return other.code == record.code; });
    return sharing.empty() ? "" : "Name shared with " + TextOf(sharing);
}

std::string NoteOfAirfield(const Campaign &campaign, int target) {
    const std::uint16_t airfield = campaign.TargetTable[static_cast<std::size_t>(target)].airfield_ref;
    if (airfield >= airfieldTotal)
        return "There is no airfield record " + std::to_string(airfield);
    const auto users = OtherTargets(campaign, target, [&](const TargetRecord &other) {
        return other.airfield_mark != 0 && other.airfield_ref == airfield;
    });
    return "Airfield record " + std::to_string(airfield) +
           (users.empty() ? "" : ", also used by " + TextOf(users));
}

std::string NoteOfFrontlinePoint(const Frontline &frontline, int point) {
    if (IsMarkerRow(frontline.points[static_cast<std::size_t>(point)].y))
        return "This point is unused";
    return "Point " + std::to_string(point) + " of " + std::to_string(frontline.point_count()) + " in use";
}

std::string NoteOfRailwayLine(const Campaign &campaign, int line) {
    if (!IsUsed(campaign.RailwayTable[static_cast<std::size_t>(line)]))
        return "This line is unused";
    return "Line " + std::to_string(line) + " of " +
           std::to_string(std::ranges::count_if(campaign.RailwayTable, IsUsed)) + " in use";
}

std::string NoteOfPath(const WaypointPath &path) {
    return "Path has " + std::to_string(path.count) + (path.count == 1 ? " waypoint" : " waypoints") +
           "; interdiction paths are shown, not edited";
}

std::optional<int> FirstFreePoint(const Frontline &frontline) {
    const auto *const free = std::ranges::find_if(
        frontline.points, [](const FrontlinePoint &point) { return IsMarkerRow(point.y); });
    if (free == frontline.points.end())
        return std::nullopt;
    return static_cast<int>(free - frontline.points.begin());
}

std::string ShownName(const std::string &name) {
    constexpr std::size_t longest = 60;
    std::string line = name;
    std::ranges::replace_if(
        line, [](char character) { return (character >= 0 && character < ' ') || character == 127; }, ' ');
    return Shortened(Utf8OfWindows1252(line), longest);
}

}  // namespace vtr
