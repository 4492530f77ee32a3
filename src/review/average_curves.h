// average_curves.h: a group of repeats as decay curves, and which points get the number of their repeat.
//
// Every curve is drawn on the values of the average, so that a plot shows where in time each repeat has its windows,
// which of them are skipped, and what becomes of them. Curve 0 is the average, curve K repeat K.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/array.h"
#include "base/types.h"
#include "processing/tmd_avg.h"
#include "review/decay_frame.h"
#include "review/plot/read_out.h"

namespace quillan {

/// A curve of NTW points, K = 1..NTW.
struct AverageCurve {
  I4 NTW = 0;
  WindowValues fXPg{};                                   // msec
  WindowValues fYPg{};                                   // on the scale of fAsinh10
  WindowValues fYPgErr1 = Filled<WindowValues>(fDummy);  // the ends of its error bar, on that scale: half an error
  WindowValues fYPgErr2 = Filled<WindowValues>(fDummy);  // below and above; of a repeat by its time windows
  Array1<L4, MTW> bSkip{};                               // the window of the repeat is skipped
  Array1<I4, MTW> ITWofIPlt{};                           // the time window of the point
};

/// The number of repeat K at its point I.
struct RepeatLabel {
  I4 K, I;
  GrPoint h;  // where it stands
};
struct AveragePlot {
  I4 NRepeat = 0;  // 0: there is nothing to plot
  Array1<AverageCurve, 0, MRepeat> hCurve{};
  Array1<L4, MRepeat> bSkipTrn{};
  PlotRange hRange;  // X in msec, whole decades; Y on the scale of fAsinh10
  std::string sTitle;
  Ticks hYTick;
  Array1<I4, MRepeat> iTrn{};         // transients of the repeats
  std::vector<RepeatLabel> hLabel{};  // the numbers that are drawn

  L4 Is_Skipped(I4 K, I4 I) const { return bSkipTrn(K) || hCurve(K).bSkip(I); }
};

// Module state: the group on show. TMD_Avg_Plot_Setup fills it.
inline AveragePlot hAveragePlot;

/// Averages a group and lays out its curves. Points are windows after 0.001 msec in which the average has a value.
/// Returns 0; 1 the group has no average, and nothing is plotted.
[[nodiscard]] I4 TMD_Avg_Plot_Setup(const RepeatGroup& hGroup);

/// The labels that have room beside each other. hSize: width and height of one, in graphics units. Where several
/// repeats meet in a point, the one with the fewest labels so far has its number there: each repeat is found.
std::vector<RepeatLabel> Labels_with_Room(std::span<const RepeatLabel> hLabel, GrPoint hSize);

/// The point of a drawn number that is nearest to a click, within fRGrMax, all in graphics units: the repeat whose
/// number is seen there; iTrn 0: none is.
[[nodiscard]] PickedPoint Average_Nearest(const GrPoint& hClick, R4 fRGrMax);
/// Where the number of a point is drawn; nothing where it is not.
[[nodiscard]] std::optional<GrPoint> Average_Place(const PickedPoint& hPoint);
/// A point in words: the number of the repeat, and what was measured.
[[nodiscard]] std::string Average_Words(const PickedPoint& hPoint);

}  // namespace quillan
