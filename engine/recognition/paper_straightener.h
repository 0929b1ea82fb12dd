#pragma once

#include "engine/recognition/grey_picture.h"

namespace fennick::engine {

// `picture` (dark on white) with what is dark along its edges painted white - the scanner's lid, the table,
// the shadow of a fold - and turned so that its lines run level. Slants up to 12 degrees are found.
[[nodiscard]] DerivedPicture straightened(GreyPicture picture);

} // namespace fennick::engine
