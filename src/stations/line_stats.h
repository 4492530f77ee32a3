// line_stats.h: the lines of the station table: their fitted direction, their scale, and the lines around a number.
#pragma once

#include <span>

#include "base/types.h"
#include "model/stn_data.h"

namespace quillan {

/// Fits each line and fills its hLineStat. Nothing is done for a table of fewer than two points.
void Stn_Line_Stats();

/// The steps between neighbouring stations; 1 each where they say nothing.
struct StepStats {
  R4 fDSmed = 1.0f;    // a middling step of the station numbers: rank (NSD + 1) / 2 of the NSD - 1 steps
  R4 fdUdSmed = 1.0f;  // median distance on the ground for one station
  R4 fdUdSdev = 1.0f;  // mean deviation from that median
};
/// fSD, fXD, fYD: station, easting and northing of NSD points. Station steps below 0.001 give no distance.
[[nodiscard]] StepStats Stn_Inc_Stats(I4 NSD, std::span<const R4> fSD, std::span<const R4> fXD,
                                      std::span<const R4> fYD);

/// The two lines around a line number and what each contributes; beyond the lines the weights extrapolate.
struct LineWeights {
  I4 iLine1 = 0;  // 0 there are no lines
  I4 iLine2 = 0;  // 0 there is one line at most
  R4 fWgtL1 = 1.0f;
  R4 fWgtL2 = 0.0f;
  I4 iQLine = 0;  // iBeyondTable, iBetweenPoints or iOnPoint; 0 there are no lines
  I4 iError = 0;  // 1 there are no lines
};
[[nodiscard]] LineWeights Stn_Line_Wgt(R8 dLineK);

/// The first line whose number is within 0.001 of dLineK; 0 there is none.
[[nodiscard]] I4 Stn_Line_Match(R8 dLineK);

/// Every point of each straight line takes the line's azimuth as its heading; the other lines keep what they have.
void Stn_Heading_Update();

}  // namespace quillan
