// private_plot.h: the plot in force, which plot_axes.cpp places and axis_scales.cpp puts scales on.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/types.h"
#include "toolkit/draw/plot_axes.h"

namespace quillan::toolkit {

/// A range in plot units; dLow may lie above dHigh, the axis then falls.
struct PlotRange {
  R8 dLow = 0.0, dHigh = 1.0;
};

/// The nearest range that an axis can have (plot_ticks.cpp). Ends of one value move apart, by a tenth of it, on a
/// logarithmic axis to a decade around it. Of a logarithmic axis an end at or below 0 moves to a millionth of the
/// other; with two of them it runs from 1 to 10. Both ends are finite.
PlotRange Plottable(Scaling iScaling, R8 dLow, R8 dHigh);

/// One axis of the plot in force: its range in plot units, and where that lies in graphics units.
struct Axis {
  static constexpr R8 dFarthest = 1.0E37;  // graphics units: what lies beyond is held to it

  Scaling iScaling = Scaling::Linear;
  bool bCoordinates = false;             // its numbers are map coordinates, written in full
  R8 dOrigin = 0.0;                      // number at plot unit 0
  R4 fAreaLow = 0.0f, fAreaHigh = 1.0f;  // part of the graphics area
  PlotRange hRange;                      // plot units
  R4 fGrLow = 0.0f, fGrHigh = 1.0f;      // graphics units of the ends of the range
  R8 dStart = 0.0;                       // the range's beginning on the axis: its logarithm on a logarithmic one
  R8 dScale = 1.0;                       // graphics units a unit of the axis

  R8 On_Axis(R8 dValue) const { return iScaling == Scaling::Linear ? dValue : std::log10(dValue); }
  R4 Middle() const { return 0.5f * (fGrLow + fGrHigh); }

  void Place(R4 fUnitLow, R4 fUnitHigh) {
    fGrLow = fUnitLow + fAreaLow * (fUnitHigh - fUnitLow);
    fGrHigh = fUnitLow + fAreaHigh * (fUnitHigh - fUnitLow);
    dStart = On_Axis(hRange.dLow);
    dScale = (R8{fGrHigh} - R8{fGrLow}) / (On_Axis(hRange.dHigh) - dStart);
  }
  R4 To_Gr(R8 dValue) const {
    if (iScaling == Scaling::Logarithmic && dValue <= 0.0) return std::numeric_limits<R4>::quiet_NaN();
    const R8 dGr = R8{fGrLow} + (On_Axis(dValue) - dStart) * dScale;
    return static_cast<R4>(std::clamp(dGr, -dFarthest, dFarthest));
  }
  R4 From_Gr(R4 fGr) const {
    const R8 dOnAxis = dStart + (R8{fGr} - R8{fGrLow}) / dScale;
    return static_cast<R4>(iScaling == Scaling::Linear ? dOnAxis : std::pow(10.0, dOnAxis));
  }
};

// The plot in force; the procedures up to IPgUnits fill it.
struct Plot {
  Axis X, Y;
  bool bUnits = false;
};
inline Plot hPlot;

/// The font in force, in graphics units along X and Y.
struct FontSize {
  GrPoint hPixel = IGrPixelSize();
  R4 fHeightY = InfoGraphics(iCharHeight);         // of a character as it stands
  R4 fHeightX = fHeightY * hPixel.fX / hPixel.fY;  // and turned
};

/// fMiddle, moved as little as it takes that fHalf on either side lie between the two limits.
inline R4 Moved_Inside(R4 fMiddle, R4 fHalf, R4 fLimit1, R4 fLimit2) {
  const R4 fLow = std::min(fLimit1, fLimit2) + fHalf;
  const R4 fHigh = std::max(fLimit1, fLimit2) - fHalf;
  return fLow < fHigh ? std::clamp(fMiddle, fLow, fHigh) : 0.5f * (fLow + fHigh);
}

}  // namespace quillan::toolkit
