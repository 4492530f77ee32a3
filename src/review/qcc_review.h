// qcc_review.h: one transient after the other as a decay curve, and its points flagged with the mouse.
//
// The main window shows the curve (qcc_plot.h), the tool window 115 the controls. What the user flags goes straight
// into the store; each click, box and button is an edit that can be taken back.
//
//   F, L                first, last transient
//   N, Down, Right      next one; also the forward button of the mouse and the wheel towards the user
//   P, Up, Left         previous one; also the back button and the wheel away from the user
//   X, Esc              leave
//   Ctrl+E              export
//   left, right click   set, clear the skip flag of the point nearest to it
//   left, right drag    set, clear the flags of all points in the box
//   Ctrl with a click   set, clear the flags of the point's window and all later ones
//   Ctrl and arrows     the ring to another window (up, down) or sounding; Space skips or clears, also with Shift
//   Ctrl+H, Ctrl+T, ?   skipped points hidden, tool window rolled up, list of keys
//   Ctrl+Z, Ctrl+Y      take the last edit back, do it again; the curve where it was is shown
#pragma once

#include "base/types.h"
#include "review/review_flag.h"

namespace quillan {

// Module state: the plot type (plot_types.h) last looked at, for all transients of the run. QCC_Review keeps it.
inline I4 iCurvePlotType = 1;

void QCC_Review_Initialize();

/// Shows transients, beginning with iTrn held to 1..NTrn, until the user leaves. iFlag: iFlagSection, iFlagSave or
/// iFlagExit. iTrn: the last one shown. A close request ends the run.
[[nodiscard]] ReviewEnd QCC_Review(I4 iTrn);

}  // namespace quillan
