// qcs_plot.h: a pseudosection drawn: stations along X, one profile a time window, on the signed logarithmic scale.
//
// The plot leaves room above it for the station labels and two lines of title, and to its left for the scale and the
// name of what is plotted. Markers lie over the lines; that of a skipped point is light grey with a darker rim. What is
// shown where is in qcs_sections.h.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/types.h"
#include "review/plot/plot_title.h"
#include "review/plot_file.h"
#include "review/qcs_sections.h"

namespace quillan {

/// Draws a section in hRange into the window, or into the hardcopy that is open: window, axes, profiles. Returns 0; 1
/// there is no such section or plot type, which is reported; nothing is drawn then.
[[nodiscard]] I4 QCS_Section_Plot(I4 iSection, I4 iPlotType, const PlotRange& hRange, const TitleRoom& hTitleRoom = {});

struct SectionPlot {
  I4 iSection, iPlotType;
  const PlotRange& hRange;
};
/// The same picture in a file (plot_file.h). Returns 0; 1 nothing was drawn or the file could not be written, which is
/// reported once, with the reason; an earlier file then stays.
[[nodiscard]] I4 QCS_Section_Plot_File(std::string_view sFile, const PictureKind& hKind, const SectionPlot& hPlot,
                                       std::string_view sSmallPrint = {});
/// The same without small print: 3780 by 2803 pixels or 2880 by 2136 units.
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

/// Diameters in pixels of the markers of the section that is ready, one a column of hScaled: fFull, but small where
/// stations stand closer than three pixels, so that the lines are still seen; a zoom brings them back. Of repeats at
/// one station and of two soundings side by side the stations around them decide.
std::vector<R4> QCS_Marker_Sizes(R4 fPixelsAUnit, R4 fFull);

}  // namespace quillan
