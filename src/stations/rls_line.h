// rls_line.h: a straight line through the stations of a survey line, in spite of stations that are plain wrong.
//
// The line is found by damped Gauss-Newton least squares on the distances of the points from it. It begins from robust
// means of the directions between neighbouring points, so that it runs as the points follow each other: a line walked
// the other way has the opposite azimuth. Unless that fit is good at once it is repeated with weights that fall with
// the distance, by Huber's rule and then by Hampel's, which takes no notice of gross outliers.
//
// All is computed in R4, in a fixed order. Directions are clockwise from north: (sin, cos) of the azimuth runs along
// the line.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "base/array.h"
#include "base/types.h"

namespace quillan {

/// Stands in the working folder after a fit that needed weights: the steps of the last such fit.
inline constexpr std::string_view sLineFitFile = "LineFit.csv";

struct LineFit {
  R4 fXS0 = 0.0f, fYS0 = 0.0f;    // a point on the line
  R4 fUazm = 0.0f;                // degrees, 0 to 360
  R4 fUmin = 0.0f, fUmax = 0.0f;  // extent along the line from that point
  R4 fVdev = 0.0f;                // mean distance of the points from the line
  R4 fVnsr = 0.0f;                // percent: 0 for points on the line, near 100 when all offsets are sideways
  I4 iError = 0;                  // 0; 1 one point, or points without distance from each other; 2 no point
};

/// The line through NS points. With iError 1 the point is the mean of the points and the azimuth 90; points without a
/// finite position are left out. Never a not-a-number.
[[nodiscard]] LineFit LineFit_Get(I4 NS, std::span<const R4> fXS, std::span<const R4> fYS);

// Module state. LineFit_Get replaces it where it needs weights; LineFit_Write_Steps takes it away.
inline std::string sLineFitSteps;  // the lines of the file of steps

/// Writes the file of steps where there are any; a folder that cannot be written leaves a note in the error file.
void LineFit_Write_Steps();

/// A robust mean: of the middle half of the ordered values under a cosine; the median of three or fewer; 0 of none.
[[nodiscard]] R4 TaperedAlphaMean(I4 ND, std::span<const R4> fDV);

/// Points turned about (fXS0, fYS0), which becomes (fUS0, fVS0), so that U runs along fXY2UVdeg degrees anticlockwise
/// from X. fUS and fVS hold as many as are turned.
void XY2UV_Rotate(I4 NS, R4 fXY2UVdeg, R4 fXS0, R4 fYS0, std::span<const R4> fXS, std::span<const R4> fYS, R4 fUS0,
                  R4 fVS0, std::span<R4> fUS, std::span<R4> fVS);

/// Weights of a distance in units of the scatter: Huber falls off as 1/x, Hampel is 0 from 8 on.
[[nodiscard]] R4 fWgt_Huber(R4 fXS);
[[nodiscard]] R4 fWgt_Hampel(R4 fXS);

}  // namespace quillan
