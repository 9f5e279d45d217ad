#pragma once

#include <array>
#include <optional>

#include "GridData.h"

// The grid step by step, without a thought for time: what the tests hold the editor's own against, and what
// the benchmarks measure it by.

namespace vtr {

struct PlainGrid {
    std::array<std::array<int, gridColumns + 1>, gridRows + 1> first{};  ///< rows and columns from 1
    std::array<std::array<int, gridColumns + 1>, gridRows + 1> count{};
    std::optional<int> misfit;
    std::optional<int> overflow;  ///< the target that would have been a cell's 256th
};

struct Window {
    int low;
    int high;
};

/// The numbers, from 1 upwards, of the first three windows that hold value; 1000 for those that are not
/// there.
template <std::size_t Size>
std::array<int, 3> PlainCandidates(const std::array<Window, Size> &windows, int value) {
    std::array<int, 3> slots{1000, 1000, 1000};
    std::size_t used = 0;
    for (std::size_t i = 1; i < Size; ++i)
        if (used < slots.size() && value >= windows[i].low && value <= windows[i].high)
            slots[used++] = static_cast<int>(i);
    return slots;
}

template <std::size_t Size>
void FillWindows(std::array<Window, Size> &windows, Window last) {
    windows[1] = {0, 32};
    windows[2] = {0, 48};
    for (std::size_t i = 3; i + 1 < Size; ++i)
        windows[i] = {16 * static_cast<int>(i) - 32, 16 * static_cast<int>(i) + 16};
    windows[Size - 1] = last;
}

inline PlainGrid PlainBuildGrid(const std::array<TargetRecord, targetTotal> &targets) {
    PlainGrid grid;
    std::array<Window, gridColumns + 1> columnWindows{};
    std::array<Window, gridRows + 1> rowWindows{};
    FillWindows(columnWindows, {608, 640});
    FillWindows(rowWindows, {288, 320});

    for (int t = 0; t < static_cast<int>(targetTotal); ++t) {
        const TargetRecord &target = targets[static_cast<std::size_t>(t)];
        const std::array<int, 3> columns = PlainCandidates(columnWindows, target.x);
        const std::array<int, 3> rows = PlainCandidates(rowWindows, target.y);
        bool placed = false;
        for (const bool extend : {true, false})
            for (const int row : rows)
                for (const int column : columns) {
                    if (placed || row == 1000 || column == 1000)
                        continue;
                    int &first = grid.first[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
                    int &count = grid.count[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
                    if (extend && count != 0 && first + count == t) {
                        if (count == 255) {
                            grid.overflow = t;
                            return grid;
                        }
                        count += 1;
                        placed = true;
                    } else if (!extend && count == 0) {
                        first = t;
                        count = 1;
                        placed = true;
                    }
                }
        if (!placed) {
            grid.misfit = t;
            return grid;
        }
    }
    return grid;
}

}  // namespace vtr
