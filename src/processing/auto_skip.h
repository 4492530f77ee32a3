// auto_skip.h: skip flags by rule, over the whole survey.
//
// The rules look at each transient from its first window on. A window outside the range, or with a value that is not
// positive, is skipped alone. An error above the floor, or a step upward with an error above 1 %, skips its window and
// every later one: once a decay curve is lost in noise, a good value after it is luck.
#pragma once

#include "base/types.h"
#include "model/tmd_data.h"

namespace quillan {

/// The rules' limits. They keep the last accepted choice while the program runs.
struct AutoSkipLimits {
  I4 ITWBEG = 1;                 // first window of the range to use
  I4 ITWEND = MTW;               // last window
  L4 bApplyErrorFloor = true;    // skip from the first error above ErrorFloor on
  L4 bDropNegativeData = true;   // skip windows with a value not above 0
  L4 bDropPositiveSlope = true;  // skip from the first upward step with an error above 1 % on
  R4 ErrorFloor = 50.0f;         // percent, on fuVpct
};

inline AutoSkipLimits hAutoSkip;  // module state: the command fills it

/// Sets bSkip(1..NTW) of every transient from the data alone; no flag of before is kept.
void AutoSkip_Apply(const AutoSkipLimits& hLimits);

/// What the limits would do to the data.
struct AutoSkipCount {
  I4 NWindow = 0;  // in all soundings
  I4 NSkip = 0;    // of which skipped
  I4 NEmpty = 0;   // soundings that keep no window
};

/// Counts what AutoSkip_Apply would do, and changes nothing.
[[nodiscard]] AutoSkipCount AutoSkip_Count(const AutoSkipLimits& hLimits);

}  // namespace quillan
