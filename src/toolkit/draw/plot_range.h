// plot_range.h: the range of an axis that can be plotted; shared by the axes and their ticks, inside the toolkit.
#pragma once

#include "base/types.h"
#include "toolkit/draw/plot_axes.h"

namespace quillan::toolkit {

/// A range in plot units; dLow may lie above dHigh, the axis then falls.
struct PlotRange {
  R8 dLow = 0.0, dHigh = 1.0;
};

/// The nearest range that an axis can have. Ends of one value move apart, by a tenth of it, on a logarithmic axis to a
/// decade around it. Of a logarithmic axis an end at or below 0 moves to a millionth of the other; with two of them it
/// runs from 1 to 10. Both ends are finite.
PlotRange Plottable(Scaling iScaling, R8 dLow, R8 dHigh);

}  // namespace quillan::toolkit
