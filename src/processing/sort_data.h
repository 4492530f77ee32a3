// sort_data.h: the one order of the store, on which repeat averaging and the reviews lean.
#pragma once

#include "base/types.h"

namespace quillan {

/// Sorts the store in place, rising by component, base frequency, transmitter station (for a moving loop: receiver
/// less transmitter station), receiver station, and the order in which the transients were read. The keys are R4:
/// stations that R4 cannot tell apart are equal. Returns 0; 1 with fewer than two transients, which are in order.
[[nodiscard]] I4 Sort_TEM_Data();

}  // namespace quillan
