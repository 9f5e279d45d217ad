#pragma once

#include <string>

#include "Campaign.h"
#include "MapView.h"
#include "Picture.h"
#include "Preferences.h"

namespace vtr {

/// All that the editor holds while it runs: made once by the program's start and handed down by reference.
struct Session {
    Campaign campaign;
    Preferences preferences;
    MapView view;
    Picture map;                                 ///< the project's map picture
    std::string programFolder;                   ///< ends in a separator
    std::string operation = "Your last action";  ///< what the program is at (UTF-8), see Operation
};

}  // namespace vtr
