// review_data.h: the command Review Data: the reviews, and the save that the user may want after them.
#pragma once

#include "base/types.h"

namespace quillan {

/// Saves when the user leaves a review by its Save; a review that is left by Exit has nothing to save.
/// Returns 0; 1 without anything to review; else the status of TEM_Write_Data.
[[nodiscard]] I4 Review_Data();

}  // namespace quillan
