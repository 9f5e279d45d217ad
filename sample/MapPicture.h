#pragma once

#include "Bytes.h"
#include "Picture.h"
#include "Theatre.h"

namespace vtr {

/// The theatre as a map of 640 x 320 pixels, one a tile.
Picture PaintMap(const Theatre &theatre);

/// A 24-bit bitmap file that shows the picture.
Bytes EncodeBmp(const Picture &picture);

}  // namespace vtr
