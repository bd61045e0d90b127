#pragma once

// The search walks subsets as the program's check does.

#include "wheel/wheeldesign.h"

namespace wheelsearch {

using wheel::forSubsets;

} // namespace wheelsearch
