// decay_frame.h: what the plots of decays share: the axes around the curves, and how a curve is stroked.
//
// Time runs along a logarithmic X axis, the value along a Y axis on the signed logarithmic scale (signed_log.h), so
// that a decay through four decades and its reversed tail are both seen.
#pragma once

#include <string_view>

#include "base/array.h"
#include "base/types.h"
#include "model/tmd_data.h"
#include "review/plot/plot_range.h"
#include "review/plot/plot_title.h"
#include "review/plot/text_size.h"
#include "review/plot/ticks.h"

namespace quillan {

inline constexpr R4 fYDscl = 0.1f;         // knee of the Y scale, in the unit of the values
inline constexpr R4 fYAlways = 1000.0f;    // the Y axis reaches at least from 0 to this value
inline constexpr R4 fYErrorBars = -30.0f;  // on the scale; at or below it a point has no error bar
inline constexpr I4 MDecayTick = 32;       // ticks of the Y axis
inline constexpr R4 fDecayWidth = 1.5f;    // pixels, of a curve
inline constexpr R4 fDecayAxisWidth = 1.0f;

inline constexpr TextSize hDecaySize8{0.00837312f, 0.018816f};
inline constexpr TextSize hDecaySize10{0.0104664f, 0.02352f};

// The graphics units of the plot, in which reaches, boxes and areas of gestures are measured.
inline constexpr R4 fCurveGrXMin = 3.0f, fCurveGrXMax = 23.0f;
inline constexpr R4 fCurveGrYMin = 3.5f, fCurveGrYMax = 18.5f;

struct DecayPlot {
  const PlotRange& hRange;   // X in msec, Y on the scale of fAsinh10
  std::string_view sTitle;   // what the sounding is
  std::string_view sYLabel;  // quantity and unit
  const Ticks& hYTick;
};

/// Clears the window and gives it the graphics units of the plot.
void Decay_Clear();
/// Puts the plot units in force and draws axes, title and zero line.
void Decay_Frame(const DecayPlot& hPlot, const TitleRoom& hTitleRoom);

/// Draws the part of a curve that belongs to point I of N, in graphics units: from the middle of the way before it to
/// the middle of the way after it. Times that fall back or repeat are not joined; a curve of one point is no line.
void Decay_Stroke(const Array1<GrPoint, MTW>& hPoint, I4 N, I4 I);

}  // namespace quillan
