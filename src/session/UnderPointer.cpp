#include "UnderPointer.h"

#include <vector>

#include "Arithmetic.h"
#include "GamePosition.h"
#include "ItemNotes.h"
#include "ItemsUnder.h"
#include "MapCoordinates.h"
#include "Text.h"
#include "TileTypes.h"

namespace vtr {

namespace {

constexpr std::size_t mostNamed = 5;

std::string TargetText(const Campaign &campaign, int target) {
    const TargetRecord &record = campaign.TargetTable[static_cast<std::size_t>(target)];
    const std::string name = ShownName(record.name);
    return "Target " + std::to_string(target) + (name.empty() ? "" : " " + name) + ", " +
           std::to_string(record.count) + (record.count == 1 ? " object, " : " objects, ") +
           std::to_string(RoundToInt32(record.fineOffsets[0])) + " m / " +
           std::to_string(RoundToInt32(record.fineOffsets[1])) + " m";
}

/// Adds the points of a course or, when none is there, the course itself.
void AddCourse(std::vector<std::string> &lines, const std::optional<ItemsUnderPixel::Course> &course,
               const std::string &point, const std::string &kind) {
    if (!course)
        return;
    const std::string which = kind + ' ' + std::to_string(course->number);
    for (const int number : course->points) {
        lines.push_back(point + ' ' + std::to_string(number));
        lines.back() += " of " + which;
    }
    if (course->points.empty()) {
        lines.push_back(which);
        lines.back().front() = UpperAscii(kind).front();
    }
}

std::vector<std::string> LinesOf(const ItemsUnderPixel &items, const Campaign &campaign) {
    std::vector<std::string> lines;
    for (const int target : items.targets)
        lines.push_back(TargetText(campaign, target));
    AddCourse(lines, items.frontline, "Point", "frontline");
    if (items.railwayLine)
        lines.push_back("Railway line " + std::to_string(*items.railwayLine));
    AddCourse(lines, items.roadPath, "Waypoint", "road path");
    AddCourse(lines, items.railPath, "Waypoint", "rail path");
    if (lines.size() > mostNamed) {
        const std::size_t more = lines.size() - mostNamed;
        lines.resize(mostNamed);
        lines.push_back("and " + std::to_string(more) + " more");
    }
    return lines;
}

/// "09 Field4"
std::string TileText(const TerrainMap &terrain, const MapPixel &pixel) {
    const int type = TileTypeOf(TerrainByte(terrain, pixel.x, pixel.y));
    if (type >= tileTypeCount)
        return "tile type " + std::to_string(type);
    std::string text = TileListText(type);
    return text.replace(text.find(" - "), 3, " ");
}

/// A tile's left or top edge: "1279.2 km".
std::string Kilometres(int pixel) {
    const int hundredMetres = pixel * (tileMetres / 100);
    return std::to_string(hundredMetres / 10) + '.' + std::to_string(hundredMetres % 10) + " km";
}

}  // namespace

UnderPointer WhatIsUnder(const Session &session, int x, int y) {
    if (!session.campaign.ProjectLoaded)
        return {};
    const MapPoint at = ScreenToMap(session.view, static_cast<float>(x), static_cast<float>(y));
    const MapPixel pixel{static_cast<int>(at.x), static_cast<int>(at.y)};
    if (pixel.x < 0 || pixel.x >= mapWidth || pixel.y < 0 || pixel.y >= mapHeight)
        return {};
    const ItemsUnderPixel items = ItemsUnder(session.campaign, session.view, DisplayOf(session), x, y);
    std::string text;
    for (const std::string &line : LinesOf(items, session.campaign))
        text += (text.empty() ? "" : "\n") + line;
    const std::string tile = TileText(session.campaign.terrain, pixel);
    text += text.empty() ? "On " + tile : ", on " + tile;
    text += '\n' + Kilometres(pixel.x) + " / " + Kilometres(pixel.y);
    return {text, session.mode == EditMode::Target && !items.targets.empty()};
}

}  // namespace vtr
