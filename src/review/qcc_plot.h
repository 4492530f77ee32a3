// qcc_plot.h: one transient as a decay curve: what is plotted, how it is drawn, and which points a gesture flags.
//
// Time runs along a logarithmic X axis, the value along a Y axis on the signed logarithmic scale of igr_util.h, so that
// a decay through four decades and its reversed tail are both seen. A point is the letter of its axis, X, Y or Z (R for
// a reference or an off-time channel) with an error bar; a point that is skipped, and half of the curve on either side
// of it, is magenta and dashed.
//
// Y axis by plot type:  1 dB/dt   2 B(t)   3 apparent resistivity; components other than Hx, Hy, Hz have the first only
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/array.h"
#include "base/text.h"
#include "base/types.h"
#include "model/tmd_data.h"

namespace quillan {

inline constexpr I4 MCurveType = 3;
inline constexpr I4 MCurveTick = 32;
inline constexpr R4 fYDscl = 0.1f;  // knee of the Y scale, in the unit of the values
inline constexpr std::string_view sCurveXLabel = "Window Time (msec)";

using CurveTypeNames = Array1<Text<16>, MCurveType>;

// The graphics units of the curve plot, in which reaches, boxes and areas of gestures are measured.
inline constexpr R4 fCurveGrXMin = 3.0f, fCurveGrXMax = 23.0f;
inline constexpr R4 fCurveGrYMin = 3.5f, fCurveGrYMax = 18.5f;

/// A range in plot units: X in msec, Y on the scale of fAsinh10.
struct CurveRange {
  R4 fXPgMin = fRangeMin0, fXPgMax = fRangeMax0;
  R4 fYPgMin = 0.0f, fYPgMax = 0.0f;
};

/// What is plotted of a transient. I = 1..NPobs runs over the points, in the order of the time windows.
struct CurvePlot {
  I4 NPobs = 0;
  WindowValues fXPobs{};            // msec, time of the point
  WindowValues fYPobs{};            // value on the scale of fAsinh10
  WindowValues fYPerr{};            // percent, at least 0
  Array1<L4, MTW> bSkip{};          // drawn as skipped: its time window or the whole transient is
  Array1<I4, MTW> ITWofIPlt{};      // its time window
  CurveRange hRange;                // in force
  CurveRange hRange0;               // of the whole curve
  I4 iXYZ = 3;                      // axis of the component, a place in sXYZ
  Text<128> sTitle;                 // what the sounding is
  Text<64> sYLabel;                 // quantity and unit
  I4 NYTick = 0;                    // ticks of the Y axis
  std::vector<R4> fYTick;           // their places on the scale
  std::vector<std::string> sYTick;  // their texts
};

// Module state: the curve on show. QCC_Plot_Initialize fills it for each transient, the gestures below change its flags
// and its range.
inline CurvePlot hCurve;

// Module state: where the title has to end, in graphics units, for the tool window of the review lies to the right of
// it. The review fills it; without one it is the edge of the window.
inline R4 fCurveTitleEnd = fCurveGrXMax;

/// What is plotted of a transient, from its store record. iPlotType is held to the types that the transient has,
/// NPlotType of them with their names in sPlotType; a transient without any keeps iPlotType for the next one. iPltCmp:
/// its component, a place in sChnCmp. A time window gives a point when its value is usable and its time is above 0.
/// iError: 1 when nothing of the transient can be plotted.
void QCC_Plot_Initialize(const Transient& hTrnK, I4& iPlotType, I4& NPlotType, CurveTypeNames& sPlotType, I4& iPltCmp,
                         I4& iError);

/// Draws the curve and leaves its plot units in force. iError: 1 when there is no point; the window is then blank.
void QCC_Plot_Trns(I4 iPltCmp, I4& iError);

/// The flag of the point nearest to fXGr1, fYGr1, of those in view whose flag would change and that lie within
/// fRGrMax, all in graphics units: set or cleared, in the plot and in the time window of hTrnK. Of points equally near
/// the earliest. iError: 1 when nothing is plotted.
void QCC_SkipPoint(Transient& hTrnK, L4 bSetSkip, R4 fXGr1, R4 fYGr1, R4 fRGrMax, I4& iError);
/// The same for every point in or on the box with these corners, in view or not. iError: 1 when nothing is plotted.
void QCC_SkipBox(Transient& hTrnK, L4 bSetSkip, R4 fXGr1, R4 fYGr1, R4 fXGr2, R4 fYGr2, I4& iError);

/// The plot range becomes a box of graphics units, made at least 2 wide and 1.4 high about its middle, for a range of
/// nothing shows nothing.
void QCC_Zoom_Box(R4 fXGr1, R4 fYGr1, R4 fXGr2, R4 fYGr2);
/// The plot range becomes that of the whole curve.
void QCC_Zoom_All();

}  // namespace quillan
