#include "GridData.h"

#include <algorithm>
#include <bit>

#include "Arithmetic.h"
#include "CampaignFiles.h"
#include "Paths.h"
#include "WholeFile.h"

namespace vtr {

namespace {

constexpr int cellSize = 16;
constexpr int candidateLimit = 3;

constexpr std::size_t countAt = 0;
constexpr std::size_t firstAt = 4;
constexpr std::size_t recordSize = 8;
static_assert(firstAt + 2 + 2 == recordSize);
constexpr std::size_t gridFileSize = std::tuple_size_v<Grid> * recordSize;
static_assert(gridFileSize == 6400);

/// Neighbouring cells on one axis, counted from 0; none when high is below low.
struct CellRange {
    int low = 1;
    int high = 0;

    bool Holds(int cell) const { return cell >= low && cell <= high; }
    std::uint64_t Bits() const { return ((std::uint64_t{2} << high) - 1) >> low << low; }
};

struct CellPosition {
    int row;
    int column;

    std::size_t Index() const {
        return static_cast<std::size_t>(row) * gridColumns + static_cast<std::size_t>(column);
    }
};

/// For each pixel of an axis the cells that may hold it: those that it lies in when they are grown by a
/// cell's size on both sides, bounds inclusive. Of the four that meet at a border the highest is left out.
template <std::size_t Cells>
constexpr std::array<CellRange, Cells * cellSize + 1> MakeCandidates() {
    std::array<CellRange, Cells * cellSize + 1> candidates;
    for (int pixel = 0; pixel <= static_cast<int>(Cells) * cellSize; ++pixel) {
        const int low = std::max(0, (pixel - cellSize - 1) / cellSize);
        const int high =
            std::min({pixel / cellSize + 1, low + candidateLimit - 1, static_cast<int>(Cells) - 1});
        candidates[static_cast<std::size_t>(pixel)] = {low, high};
    }
    return candidates;
}

constexpr auto columnCandidates = MakeCandidates<gridColumns>();
constexpr auto rowCandidates = MakeCandidates<gridRows>();

template <std::size_t Pixels>
CellRange CandidatesOf(int pixel, const std::array<CellRange, Pixels> &candidates) {
    return pixel < 0 || pixel >= static_cast<int>(Pixels) ? CellRange{}
                                                          : candidates[static_cast<std::size_t>(pixel)];
}

/// Which cells hold a target, as one bit a column in each row.
class OccupiedCells {
  public:
    /// The first cell of the candidates that holds none, in the order of rows and within them of columns.
    std::optional<CellPosition> FirstFree(const CellRange &rows, const CellRange &columns) const {
        const std::uint64_t wanted = columns.Bits();
        for (int row = rows.low; row <= rows.high; ++row)
            if (const std::uint64_t free = wanted & ~columnBits_[static_cast<std::size_t>(row)]; free != 0)
                return CellPosition{row, std::countr_zero(free)};
        return std::nullopt;
    }

    void Add(const CellPosition &cell) {
        columnBits_[static_cast<std::size_t>(cell.row)] |= std::uint64_t{1} << cell.column;
    }

  private:
    std::array<std::uint64_t, gridRows> columnBits_{};
};

}  // namespace

GridResult BuildGrid(const std::array<TargetRecord, targetTotal> &targets, std::string_view file) {
    GridResult result;
    OccupiedCells occupied;
    // A target can only lengthen the run that the target before it ended, and that lies in one cell.
    std::optional<CellPosition> previous;
    for (std::int16_t t = 0; t < std::int16_t{targetTotal}; ++t) {
        const TargetRecord &target = targets[static_cast<std::size_t>(t)];
        const CellRange columns = CandidatesOf(target.x, columnCandidates);
        const CellRange rows = CandidatesOf(target.y, rowCandidates);
        if (previous && rows.Holds(previous->row) && columns.Holds(previous->column)) {
            GridCell &cell = result.grid[previous->Index()];
            cell.count =
                ToByte(cell.count + 1, {.file = file,
                                        .offset = static_cast<std::int64_t>(previous->Index() * recordSize),
                                        .item = "target",
                                        .index = t});
            continue;
        }
        previous = occupied.FirstFree(rows, columns);
        if (!previous) {
            result.misfit = t;
            return result;
        }
        occupied.Add(*previous);
        result.grid[previous->Index()] = {t, 1};
    }
    return result;
}

Bytes EncodeGrid(const Grid &grid) {
    Bytes bytes(gridFileSize);
    for (std::size_t i = 0; i < grid.size(); ++i) {
        const ByteSpan record = ByteSpan(bytes).subspan(i * recordSize, recordSize);
        record[countAt] = grid[i].count;
        PutUint16(record, firstAt, static_cast<std::uint16_t>(grid[i].first));
    }
    return bytes;
}

std::optional<int> WriteGridData(const std::string &path, const Campaign &campaign, const FileWrite &write) {
    const GridResult result = BuildGrid(campaign.TargetTable, path);
    if (path.empty() || result.misfit)
        return result.misfit;
    Bytes bytes = EncodeGrid(result.grid);
    const Bytes old = FileExists(path) ? ReadFileOfAtMost(mostGameFileMebibytes, path) : Bytes();
    if (old.size() > bytes.size())
        bytes.insert(bytes.end(), old.begin() + static_cast<std::ptrdiff_t>(bytes.size()), old.end());
    write(path, bytes);
    return std::nullopt;
}

std::string NoteOfGrid(const std::optional<int> &misfit) {
    return misfit ? "Grid: target " + std::to_string(*misfit) + " does not fit" : "Grid: every target fits";
}

std::string MessageOfMisfit(int target) {
    return "Failed to create GRIDDATA.DAT.  Target #" + std::to_string(target) +
           " did not fit.  Please try a different arrangement and try again.";
}

}  // namespace vtr
