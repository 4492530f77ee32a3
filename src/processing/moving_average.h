// moving_average.h: operations along the time axis of the transients: smoothing, and window edges that a file left out.
#pragma once

#include "base/types.h"

namespace quillan {

/// What a run of the filter did.
struct SmoothCount {
  I4 NSmoothed = 0;  // soundings smoothed to their end
  I4 NLost = 0;      // values of dB/dt and resistivity that no window in reach could replace
  I4 jStop = 0;      // the sounding with fewer than two resistivities at which the filter ended; 0: none
};

inline SmoothCount hSmoothCount;  // module state: GMA_Time fills it

/// Smooths dB/dt and apparent resistivity over five windows with weights of a Gaussian, from the third window on.
///
/// dB/dt is averaged as asinh(t**2.5 * dB/dt), which flattens the late decay and takes negative values; resistivity as
/// its logarithm. Skipped windows give nothing but are given the average of their neighbours; a window without an
/// unskipped neighbour in reach loses its value. A missing dB/dt becomes a skipped window. At the first transient with
/// fewer than two resistivities the filter ends for good. B(t) is integrated again.
/// Returns 0; 1 without data, which is reported.
[[nodiscard]] I4 GMA_Time();

/// Gives every window without a begin or an end (-1.0E32) one: the geometric mean of neighbouring centres, the mirror
/// of the other edge at either end of the transient.
void Get_TWWidth();

}  // namespace quillan
