// average_plot.h: the plot of a group of repeats.
//
// A repeat is a black line with the number of the repeat at its points and an error bar at each; where it is skipped,
// as a whole or in a window, magenta and dashed. The average lies on top, thinner and green.
#pragma once

#include "base/types.h"
#include "review/plot/plot_title.h"

namespace quillan {

/// Draws what TMD_Avg_Plot_Setup has laid out and leaves its plot units in force. Returns 0; 1 without anything to
/// plot, and then the window is blank.
[[nodiscard]] I4 TMD_Avg_Plot_Update(const TitleRoom& hTitleRoom = {});

}  // namespace quillan
