// qcs_review.h: the interactive review of pseudosections: paging, zoom, skip flags by click, polarity, noise floor,
// exports, and the way to the decay curve of a point.
//
//   N, Down, Right     next section; also the wheel towards the user
//   P, Up, Left        previous one; also the wheel away from the user
//   left, right click  set, clear the skip flag of the nearest point
//   Shift with a click  the same of the point's window at all stations of the section
//   Ctrl with a click  the same of the point's window and all later ones of the sounding
//   Shift with a drag  the same of all points in the box
//   Ctrl and arrows    the ring to another window (up, down) or sounding; Space skips or clears, also with Shift
//   Ctrl+H, Ctrl+T, ?  skipped points hidden, tool window rolled up, list of keys
//   Ctrl+Z, Ctrl+Y     take the last edit back, do it again; the section where it was is shown
//
// Everything else is in the menu bar, most of it also in the tool window 118.
#pragma once

#include "base/types.h"
#include "review/review_flag.h"

namespace quillan {

/// Shows sections, beginning with that of transient iTrn, until the user leaves. iFlag: iFlagCurve, iFlagSave or
/// iFlagExit. iError: 0; 1 there is nothing to show; 3 the close request. iTrn: the transient that a curve review would
/// begin with.
[[nodiscard]] ReviewEnd QCS_Review(I4 iTrn);

}  // namespace quillan
