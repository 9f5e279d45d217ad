#pragma once

#include <cstdint>

namespace vtr {

/// What a redraw reads of the window's controls, each under the control's name.
struct MapDisplay {
    bool mnu_v_targets = true;
    bool mnu_v_frontlines = true;
    bool mnu_v_railways = true;
    bool mnu_v_roadint = false;
    bool mnu_v_railint = false;

    bool mnu_e_frontline = false;
    bool mnu_e_railway = false;

    std::int16_t upd_frnt_num = 0;
    std::int16_t upd_frnt_pointnum = 0;
    std::int16_t upd_rail_linenum = 0;
    std::int16_t upd_tar_code = 0;

    std::int16_t upd_view_railway = 0;  ///< 0: all lines, else the line itself
    std::int16_t upd_view_roadint = 0;  ///< 0: all paths, else the path before it
    std::int16_t upd_view_railint = 0;  ///< likewise
};

}  // namespace vtr
