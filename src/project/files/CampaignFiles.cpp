#include "CampaignFiles.h"

#include <algorithm>

#include "AirfieldFile.h"
#include "FrontlineFile.h"
#include "GridData.h"
#include "RailwayFile.h"
#include "TargetFile.h"
#include "TargetNameFile.h"
#include "WaypointFile.h"

namespace vtr {

namespace {

void ReadTerrain(const std::string &path, Campaign &campaign, LoadListener &listener) {
    const std::size_t found = ReadTerrainMap(path, campaign.terrain);
    if (found < terrainSize)
        listener.FoundShortFile({path, found, terrainSize});
}

std::optional<int> WriteTargetFile(const std::string &path, const Campaign &campaign,
                                   const std::string &programFolder, const FileWrite &write) {
    WriteTargets(path, campaign, programFolder, write);
    return std::nullopt;
}

std::optional<int> WriteGridFile(const std::string &path, const Campaign &campaign, const std::string &,
                                 const FileWrite &write) {
    return WriteGridData(path, campaign, write);
}

/// A writer that needs nothing but the tables and always finds room.
template <void (*Write)(const std::string &path, const Campaign &campaign, const FileWrite &write)>
std::optional<int> WriteTables(const std::string &path, const Campaign &campaign, const std::string &,
                               const FileWrite &write) {
    Write(path, campaign, write);
    return std::nullopt;
}

}  // namespace

// The bar of a load drops back after the railway.
const std::array<CampaignFile, 12> campaignFiles{{
    {"Map", "", &ProjectPaths::Map},
    {"MapTM", "VTR.TM", &ProjectPaths::MapTM, -1, ReadTerrain, 50},
    {"TARGETS", "TARGET.DAT", &ProjectPaths::Targets, 0, ReadTargets, 68, WriteTargetFile},
    {"TARNAMES", "TARNAMES.STR", &ProjectPaths::TarNames, 1, ReadTargetNames, 60,
     WriteTables<WriteTargetNames>},
    {"GridData", "GRIDDATA.DAT", &ProjectPaths::GridData, 2, nullptr, 0, WriteGridFile},
    {"Frontline", "FRNTLINE.DAT", &ProjectPaths::Frontline, 4, ReadFrontlines, 36,
     WriteTables<WriteFrontlines>},
    {"Airfield", "AIRFIELD.DAT", &ProjectPaths::Airfield, 5, ReadAirfields, 76, WriteTables<WriteAirfields>},
    {"Railway", "VTR_RRD.DAT", &ProjectPaths::Railway, 6, ReadRailway, 28, WriteTables<WriteRailway>},
    {"ROADWPT", "ROADWPT.DAT", &ProjectPaths::RoadWpt, 8, ReadRoadWaypoints, 44},
    {"RoadList", "ROADLIST.DAT", &ProjectPaths::RoadList, 7},
    {"RAILWPT", "RAILWPT.DAT", &ProjectPaths::RailWpt, 10, ReadRailWaypoints, 52},
    {"RailList", "RAILLIST.DAT", &ProjectPaths::RailList, 9},
}};

const CampaignFile &FileOf(std::string ProjectPaths::*name) {
    return *std::ranges::find(campaignFiles, name, &CampaignFile::name);
}

const std::array<const CampaignFile *, 8> filesInReadingOrder{
    &FileOf(&ProjectPaths::MapTM),   &FileOf(&ProjectPaths::TarNames),  &FileOf(&ProjectPaths::Targets),
    &FileOf(&ProjectPaths::Railway), &FileOf(&ProjectPaths::Frontline), &FileOf(&ProjectPaths::RoadWpt),
    &FileOf(&ProjectPaths::RailWpt), &FileOf(&ProjectPaths::Airfield)};

}  // namespace vtr
