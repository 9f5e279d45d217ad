#include "SampleCampaign.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>

#include "AirfieldFile.h"
#include "FrontlineFile.h"
#include "FrontlineMaker.h"
#include "GridData.h"
#include "MapPicture.h"
#include "ProjectFile.h"
#include "RailwayFile.h"
#include "RouteTables.h"
#include "TargetFile.h"
#include "TargetMaker.h"
#include "TargetNameFile.h"
#include "TerrainPainter.h"
#include "TilePainter.h"
#include "WaypointEncoder.h"

namespace vtr {

namespace {

constexpr std::string_view tilesFolder = "tiles";

// Made once, for the campaign and for its map picture.
const Theatre &SampleTheatre() {
    static const Theatre theatre = MakeTheatre();
    return theatre;
}

ProjectPaths SamplePaths() {
    ProjectPaths paths;
    paths.Name = "Yaxel Sound";
    paths.Map = "map.bmp";
    paths.MapTM = "VTR.TM";
    paths.Targets = "TARGET.DAT";
    paths.TarNames = "TARNAMES.STR";
    paths.GridData = "GRIDDATA.DAT";
    paths.Frontline = "FRNTLINE.DAT";
    paths.Airfield = "AIRFIELD.DAT";
    paths.Railway = "VTR_RRD.DAT";
    paths.RoadWpt = "ROADWPT.DAT";
    paths.RoadList = "ROADLIST.DAT";
    paths.RailWpt = "RAILWPT.DAT";
    paths.RailList = "RAILLIST.DAT";
    paths.TilesDir = tilesFolder;
    paths.ProjectFile = "sample.prj";
    return paths;
}

// An interdiction list: the number of paths and the number of each. The editor never reads it.
Bytes EncodeList(std::size_t paths) {
    Bytes bytes(4 + 4 * paths);
    PutUint32(bytes, 0, static_cast<std::uint32_t>(paths));
    for (std::size_t path = 0; path < paths; ++path)
        PutUint32(bytes, 4 + 4 * path, static_cast<std::uint32_t>(path));
    return bytes;
}

Bytes EncodeBuiltGrid(const Campaign &campaign) {
    const GridResult result = BuildGrid(campaign.TargetTable);
    if (result.misfit)
        throw Error(ErrorKind::Overflow,
                    {.file = campaign.paths.GridData, .item = "target", .index = *result.misfit},
                    "a target order for which the grid builds", "a target that fits no cell");
    return EncodeGrid(result.grid);
}

}  // namespace

std::unique_ptr<Campaign> MakeSampleCampaign() {
    const Theatre &theatre = SampleTheatre();
    auto campaign = std::make_unique<Campaign>();
    campaign->paths = SamplePaths();
    campaign->terrain = PaintTerrain(theatre);
    FillTargets(theatre, *campaign);
    FillRailways(theatre, *campaign);
    FillFrontlines(theatre, *campaign);
    FillInterdictionPaths(theatre, *campaign);
    return campaign;
}

std::vector<SampleFile> EncodeCampaignFiles(const Campaign &campaign) {
    const ProjectPaths &paths = campaign.paths;
    Bytes projectFile = EncodeProjectFile(paths);
    for (const char character : "TILESDIR=" + paths.TilesDir + "\r\n")
        projectFile.push_back(static_cast<std::uint8_t>(character));
    std::vector<SampleFile> files{{paths.ProjectFile, projectFile},
                                  {paths.MapTM, campaign.terrain},
                                  {paths.Targets, EncodeTargets(campaign, {}, {})},
                                  {paths.TarNames, EncodeTargetNames(campaign)},
                                  {paths.GridData, EncodeBuiltGrid(campaign)},
                                  {paths.Frontline, EncodeFrontlines(campaign)},
                                  {paths.Airfield, EncodeAirfields(campaign)},
                                  {paths.Railway, EncodeRailway(campaign)},
                                  {paths.RoadWpt, EncodeWaypoints(campaign.RoadWaypointTable)},
                                  {paths.RoadList, EncodeList(campaign.RoadWaypointTable.size())},
                                  {paths.RailWpt, EncodeWaypoints(campaign.RailWaypointTable)},
                                  {paths.RailList, EncodeList(campaign.RailWaypointTable.size())}};
    std::erase_if(files, [](const SampleFile &file) { return file.name.empty(); });
    return files;
}

SampleFile SampleMapPicture() {
    return {SamplePaths().Map, EncodeBmp(PaintMap(SampleTheatre()))};
}

std::vector<SampleFile> SampleTilePictures() {
    const Palette palette = TilePalette();
    std::vector<SampleFile> files;
    files.reserve(tileDesigns.size());
    for (const TileDesign &design : tileDesigns)
        files.push_back({std::string(tilesFolder) + "/" + TilePictureFile(static_cast<int>(files.size())),
                         EncodePcx(tileEdge, tileEdge, PaintTile(design), palette)});
    return files;
}

void WriteSampleFiles(const std::string &folder, const std::vector<SampleFile> &files) {
    for (const SampleFile &file : files) {
        const std::filesystem::path path = std::filesystem::path(folder) / file.name;
        std::filesystem::create_directories(path.parent_path());
        // No flush to disk, because this replaces none of the user's files.
        std::ofstream stream(path, std::ios::binary);
        std::ranges::copy(file.bytes, std::ostreambuf_iterator<char>(stream));
        stream.close();
        if (!stream)
            throw Error(ErrorKind::FileAccess, {.file = path.string()}, "a file to write to", "none");
    }
}

void WriteSampleCampaign(const std::string &folder, bool withTilePictures) {
    WriteSampleFiles(folder, EncodeCampaignFiles(*MakeSampleCampaign()));
    WriteSampleFiles(folder, {SampleMapPicture()});
    if (withTilePictures)
        WriteSampleFiles(folder, SampleTilePictures());
}

}  // namespace vtr
