#pragma once

#include <cstdint>
#include <optional>

namespace vtr {

/// Which layers the map shows and how much of them, each under the name of the control that chooses it.
struct ShownLayers {
    bool mnu_v_targets = true;
    bool mnu_v_frontlines = true;
    bool mnu_v_railways = true;
    bool mnu_v_roadint = false;
    bool mnu_v_railint = false;

    std::int16_t upd_view_railway = 0;  ///< 0: all lines; n: line n
    std::int16_t upd_view_roadint = 0;  ///< 0: all paths; n: path n - 1
    std::int16_t upd_view_railint = 0;  ///< 0: all paths; n: path n - 1

    bool operator==(const ShownLayers &) const = default;
};

/// What a redraw shows of the campaign.
struct MapDisplay : ShownLayers {
    bool mnu_e_frontline = false;
    bool mnu_e_railway = false;

    std::int16_t upd_frnt_num = 0;
    std::int16_t upd_frnt_pointnum = 0;
    std::int16_t upd_rail_linenum = 0;
    std::int16_t upd_tar_code = 0;
};

/// The railway line whose neighbourhood alone is shown; nothing when all lines are.
inline std::optional<std::int16_t> LineWithNeighbours(const MapDisplay &display) {
    if (display.mnu_e_railway)
        return display.upd_rail_linenum;
    return display.upd_view_railway == 0 ? std::nullopt : std::optional(display.upd_view_railway);
}

}  // namespace vtr
