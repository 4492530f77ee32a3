// color_scale.h: a range of values becomes a scale of tidy steps, for the colours of the station map.
#pragma once

#include "base/types.h"

namespace quillan {

struct ColorScale {
  R4 fCFmin, fCFmax;  // ends of the scale, fCFmax above fCFmin
  R4 fCFinc;          // step
  I4 NCFinc = 0;      // steps of the range that was given; 0 where no limit was
};

/// The step grows from fCFinc (0.001 at least) by the pattern 1, 2, 5, 10 until there are fewer than MCFinc of them,
/// where MCFinc is positive; the ends go out to multiples of the step. A range of one value gets one step.
[[nodiscard]] ColorScale Stn_CF_Increment(I4 MCFinc, R4 fCFmin, R4 fCFmax, R4 fCFinc);

}  // namespace quillan
