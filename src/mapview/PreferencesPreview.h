#pragma once

#include <memory>

#include "Campaign.h"
#include "MapView.h"
#include "Picture.h"
#include "Preferences.h"

namespace vtr {

/// A small piece of map with items of every layer on every kind of ground, drawn as the map is.
class PreferencesPreview {
  public:
    PreferencesPreview();

    /// The piece in the colours of preferences. The next call draws over it.
    const Picture &Draw(const Preferences &preferences);

  private:
    std::unique_ptr<Campaign> campaign_;
    Picture ground_;
    Picture surface_;
    MapView view_;
};

}  // namespace vtr
