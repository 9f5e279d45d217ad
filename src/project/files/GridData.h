#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "AtomicWrite.h"
#include "Bytes.h"
#include "Campaign.h"

namespace vtr {

/// The targets of one 16 x 16 pixel cell of the map: a run of consecutive target indices.
struct GridCell {
    std::int16_t first = 0;
    std::uint8_t count = 0;

    bool operator==(const GridCell &) const = default;
};

constexpr int gridColumns = 40;
constexpr int gridRows = 20;
/// Row by row, row 1 first, column 1 first within a row.
using Grid = std::array<GridCell, std::size_t{gridColumns} * gridRows>;

struct GridResult {
    Grid grid;
    std::optional<int> misfit;  ///< the first target that found no cell; the grid is then incomplete
};

/// Files every target in a cell, in table order. Throws an overflow Error for a 256th target in one cell,
/// which names file as the one being made.
GridResult BuildGrid(const std::array<TargetRecord, targetTotal> &targets, std::string_view file = {});

/// The 6400 bytes of GRIDDATA.DAT.
Bytes EncodeGrid(const Grid &grid);

/// Builds the grid and writes it, keeping what an existing file has beyond its 6400 bytes; an empty path only
/// builds. Returns the target that did not fit, in which case nothing is written.
std::optional<int> WriteGridData(const std::string &path, const Campaign &campaign,
                                 const FileWrite &write = AtomicWrite);

/// Whether the targets can be filed, in a few words for the user.
std::string NoteOfGrid(const std::optional<int> &misfit);

/// The same where the build ends in an error, because of more targets in one cell than it can count.
constexpr const char *noteOfFullCell = "Grid: too many targets in one place";

/// What the user is told about the target that did not fit.
std::string MessageOfMisfit(int target);

}  // namespace vtr
