// qcc_plot.h: one transient as a decay curve: what is plotted, how it is drawn, and which points a gesture flags.
//
// On the axes of decay_frame.h a point is the letter of its axis, X, Y or Z (R for a reference or an off-time channel),
// with an error bar; a point that is skipped, and half of the curve on either side of it, is magenta and dashed.
//
// Y axis by plot type:  1 dB/dt   2 B(t)   3 apparent resistivity; components other than Hx, Hy, Hz have the first only
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/array.h"
#include "base/text.h"
#include "base/types.h"
#include "model/tmd_data.h"
#include "review/decay_frame.h"
#include "review/plot/plot_range.h"
#include "review/plot/plot_title.h"
#include "review/plot/read_out.h"
#include "review/plot/ticks.h"
#include "review/plot_file.h"

namespace quillan {

/// What is plotted of a transient. I = 1..NPobs runs over the points, in the order of the time windows; their skip
/// flags are those of the store.
struct CurvePlot {
  I4 iTrn = 0;                         // transient; 0: none yet
  I4 iPltCmp = iCmpHz;                 // its component, a place in sChnCmp
  I4 iPlotType = 1;                    // plot type, plot_types.h
  std::vector<std::string> sPlotType;  // names of the plot types that the transient has, "none" where it has none
  I4 NPobs = 0;
  WindowValues fXPobs{};        // msec, time of the point
  WindowValues fYPobs{};        // value on the scale of fAsinh10
  WindowValues fYPerr{};        // percent, at least 0
  Array1<I4, MTW> ITWofIPlt{};  // its time window
  PlotRange hRange;             // in force: X in msec, Y on the scale of fAsinh10
  PlotRange hRange0;            // of the whole curve
  Text<128> sTitle;             // what the sounding is
  std::string sYLabel;          // quantity and unit
  Ticks hYTick;                 // of the Y axis

  I4 NPlotType() const { return static_cast<I4>(sPlotType.size()); }
  /// Drawn as skipped: its time window or the whole transient is.
  L4 Is_Skipped(I4 I) const { return hTrn(iTrn).bSkipTrn || hTrn(iTrn).bSkip(ITWofIPlt(I)); }
  L4 Is_Hidden(I4 I) const { return bHideSkipped && Is_Skipped(I); }
};

// Module state: the curve on show. QCC_Plot_Initialize fills it for each transient, a zoom changes its range.
inline CurvePlot hCurve;

/// What is plotted of transient j. iPlotType is held to the types that the transient has; a transient without any
/// keeps it for the next one. A time window gives a point when its value is usable and its time is above 0; a transient
/// may have no point.
void QCC_Plot_Initialize(I4 j, I4 iPlotType);

/// Draws the curve and leaves its plot units in force. Without a point the window is blank, and there are none.
void QCC_Plot_Trns(const TitleRoom& hTitleRoom = {});

/// The same picture in a file (plot_file.h). Returns 0; 1 the file could not be written, which is reported.
[[nodiscard]] I4 QCC_Plot_File(std::string_view sFile, const PictureKind& hKind, std::string_view sSmallPrint);

/// The flag of the point nearest to a click, of those in view whose flag would change and that lie within fRGrMax, all
/// in graphics units: set or cleared in its time window. Of points equally near the earliest. Returns whether there is
/// a point at all within reach, whatever its flag.
[[nodiscard]] L4 QCC_SkipPoint(L4 bSetSkip, const GrPoint& hClick, R4 fRGrMax);
/// The same for every point in or on a box of graphics units, in view or not, but none that is hidden. Returns whether
/// there is one.
[[nodiscard]] L4 QCC_SkipBox(L4 bSetSkip, const GrBox& hBox);

/// The point in view that is nearest to a click, within fRGrMax, all in graphics units; iTrn 0: none is.
[[nodiscard]] PickedPoint QCC_Nearest_Point(const GrPoint& hClick, R4 fRGrMax);
/// The point that a click there is about: the one whose flag it would change, else the nearest one.
[[nodiscard]] PickedPoint QCC_Clicked_Point(L4 bSetSkip, const GrPoint& hClick, R4 fRGrMax);
/// Where a point of the curve is drawn, hidden or not; nothing out of view, and where the point is of another curve.
[[nodiscard]] std::optional<GrPoint> QCC_Place(const PickedPoint& hPoint);
/// The visible point NWindow points (1 or -1) on from a time window, which need not be visible itself; the same one
/// where there is none. From window 0 the first.
[[nodiscard]] PickedPoint QCC_Step(I4 iTwc, I4 NWindow);
/// The visible point whose window is nearest to a time window.
[[nodiscard]] PickedPoint QCC_Point_of_Window(I4 iTwc);

/// The range of the whole curve becomes that of the points that are shown; so does the range in force, unless the user
/// has zoomed.
void QCC_Follow_Range();

/// The plot range becomes a box of graphics units, made at least as large as a zoom has to be (plot_range.h).
void QCC_Zoom_Box(const GrBox& hBox);
/// The plot range becomes that of the whole curve.
void QCC_Zoom_All();

}  // namespace quillan
