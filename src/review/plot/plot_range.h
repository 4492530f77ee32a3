// plot_range.h: what a plot shows, and everything that widens or shifts it.
//
// Plot units are those of the data as they are drawn (plot_axes.h); graphics units are those of the window (draw.h).
#pragma once

#include "base/types.h"
#include "toolkit/draw/draw.h"

namespace quillan {

/// What a plot shows, in plot units.
struct PlotRange {
  R4 fXPmin = 0.0f, fXPmax = 1.0f;
  R4 fYPmin = 0.0f, fYPmax = 1.0f;

  bool Has_X(R4 fX) const { return fX >= fXPmin && fX <= fXPmax; }
  bool Has_Y(R4 fY) const { return fY >= fYPmin && fY <= fYPmax; }
  bool Has(R4 fX, R4 fY) const { return Has_X(fX) && Has_Y(fY); }
  bool operator==(const PlotRange&) const = default;
};

/// Plot units to graphics units on two linear axes: fXGr = fXGr0 + fXGrPerUnit * (fX - fX0), and so for Y.
struct PlotMap {
  R4 fX0 = 0.0f, fXGr0 = 0.0f, fXGrPerUnit = 1.0f;
  R4 fY0 = 0.0f, fYGr0 = 0.0f, fYGrPerUnit = 1.0f;

  GrPoint Gr_Point(R4 fX, R4 fY) const { return {fXGr0 + fXGrPerUnit * (fX - fX0), fYGr0 + fYGrPerUnit * (fY - fY0)}; }
};

/// Of the plot that is on the screen.
PlotMap Map_of_Screen(const PlotRange& hRange);
/// What a box of graphics units holds of the plot that is on the screen.
PlotRange Range_of_Box(const GrBox& hBox);

/// Takes a second range into a range.
void Join_Range(R4 fMin1, R4 fMax1, R4& fMin, R4& fMax);

/// A zoom box, in graphics units, made at least 2 wide and 1.4 high about its middle, for a range of nothing shows
/// nothing.
GrBox Zoom_Box(GrBox hBox);
/// The same, its shorter side enlarged to the shape of the area. fYXArea: height of the area over its width.
GrBox Shaped_Zoom_Box(R4 fYXArea, GrBox hBox);
/// A range shifted back inside the full one where it leaves it.
PlotRange Shift_Inside(PlotRange h, const PlotRange& hFull);

}  // namespace quillan
