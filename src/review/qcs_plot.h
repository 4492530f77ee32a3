// qcs_plot.h: a pseudosection drawn: stations along X, one profile a time window, on the signed logarithmic scale.
//
// The plot leaves room above it for the station labels and two lines of title, and to its left for the scale and the
// name of what is plotted. Skipped points are light grey. What is shown where is in qcs_sections.h.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/types.h"
#include "review/qcs_sections.h"

namespace quillan {

/// Draws a section in hRange into the window, or into the hardcopy that is open: window, axes, profiles. Returns 0; 1
/// there is no such section or plot type, which is reported; nothing is drawn then.
[[nodiscard]] I4 QCS_Section_Plot(I4 iSection, I4 iPlotType, const PlotRange& hRange);

/// The same picture in a file, 3780 by 2803 pixels or 2880 by 2136 units. Returns 0; 1 nothing was drawn or the file
/// could not be written, which is reported.
[[nodiscard]] I4 QCS_Section_Plot_PNG(std::string_view sPltFile, I4 iSection, I4 iPlotType, const PlotRange& hRange);
[[nodiscard]] I4 QCS_Section_Plot_WMF(std::string_view sPltFile, I4 iSection, I4 iPlotType, const PlotRange& hRange);

// What is written on it, apart from drawing.

/// First line of the title: array, line, separation of a moving loop, base frequency.
std::string QCS_Section_Title(I4 iSection);

struct StationLabel {
  R4 fX;               // plot units
  std::string sLabel;  // blank where it would touch the last one
};
/// The stations of a section within the range, in order, up to the first beyond it. fClear: plot units between labels.
std::vector<StationLabel> QCS_Station_Labels(I4 iSection, const PlotRange& hRange, R4 fClear);

}  // namespace quillan
