#pragma once

#include <array>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "Differences.h"

namespace vtr {

/// The tables as the files on disk hold them, and which files a save would change. GRIDDATA.DAT, which is
/// made from the targets' positions in their order, counts as made at the load.
class SavedTables {
  public:
    /// campaign has just been loaded.
    void Load(const Campaign &campaign);
    /// The files of those usual names have been written.
    void Save(const Campaign &campaign, const std::vector<std::string_view> &usualNames);
    /// The tables have changed, from before to after or the other way round.
    void Change(const Differences &differences, Direction direction);

    /// The usual names of the files that differ, in the order in which they are saved.
    std::vector<std::string_view> EditedFiles() const;

  private:
    /// Adds by to the counts of the files in which the row's value differs from the saved one.
    void Count(std::size_t row, const TableRow &value, int by);

    Campaign saved_;
    std::array<std::pair<std::int16_t, std::int16_t>, targetTotal> gridPositions_{};
    std::map<std::string_view, int> differing_;  ///< how many rows of each file's tables differ
};

}  // namespace vtr
