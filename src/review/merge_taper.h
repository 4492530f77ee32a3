// merge_taper.h: the taper of a merge as a picture in its dialog.
#pragma once

#include "base/types.h"

namespace quillan {

inline constexpr I4 iPicTaper = 1015;  // in dialog 102

/// Draws the weight of the early-time record, from 1 at the top to 0, over the windows 1 to NTW, at least 2, by the
/// settings in hMerge; below it what they are.
void MergeFltPlot(I4 NTW);

}  // namespace quillan
