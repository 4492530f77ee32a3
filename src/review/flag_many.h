// flag_many.h: skip flags of many time windows, set or cleared by one gesture of a review.
//
// A window counts whether the plot shows it or not: what a gesture flags does not depend on the quantity that is looked
// at. A box takes the points that are seen in it.
#pragma once

#include "base/types.h"
#include "review/plot/plot_range.h"

namespace quillan {

// All return how many windows they are.

/// Window I of transient j and all later ones.
I4 Flag_Later_Windows(L4 bSkip, I4 j, I4 I);
/// Window I of every transient of a section that has it.
I4 QCS_Flag_Window(L4 bSkip, I4 iSection, I4 I);
/// The visible points of the section that is ready, in or on a box of graphics units on the screen.
I4 QCS_Flag_Box(L4 bSkip, const GrBox& hBox, const PlotRange& hRange);

/// In the status bar: what became of NWindow windows, or that there were none.
void Say_Flagged(L4 bSkip, I4 NWindow);

}  // namespace quillan
