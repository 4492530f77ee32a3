// tool_window.h: what the tool windows of both reviews share: where they stand, their trackbar, their hint lines.
#pragma once

#include "base/types.h"

namespace quillan {

/// Loads a review's dialog, ranges its trackbar from 1 to the larger of 2 and NItem, and switches its messages on. The
/// step of the trackbar doubles while the NTrn transients of the store make more than 20 steps.
void Tool_Open(I4 iDialog, I4 iTrackbar, I4 NItem);
/// Shows it at the top of the main window, its right edge one pixel from the window's, or where the user put it.
void Tool_Show();
/// After the main window has changed its size: it goes along with the corner that it stands in, unless the user has put
/// it elsewhere.
void Tool_Follow();
/// Takes it away, with its messages, and clears the plot.
void Tool_Close();

/// Step of the trackbar: 1, doubled while NTrn / step is 21 or more.
I4 Tool_Trackbar_Step(I4 NTrn);

/// What the mouse does, in the two hint lines.
void Tool_Hint_Flags();  // clicks set and clear skip flags
void Tool_Hint_Box();    // clicks set the corners of a box

}  // namespace quillan
