#include "review/plot/plot_range.h"

#include <algorithm>
#include <cmath>

#include "toolkit/draw/plot_axes.h"

namespace quillan {
namespace {

constexpr R4 fZoomHalfX = 1.0f;  // graphics units, least half sizes of a zoom
constexpr R4 fZoomHalfY = 0.7f;

/// Gives a side of a box at least its least half size about its middle.
void Widen_Side(R4 fHalf, R4& f1, R4& f2) {
  const R4 fMiddle = 0.5f * (f1 + f2);
  const R4 fReach = std::max(0.5f * std::abs(f2 - f1), fHalf);
  f1 = fMiddle - fReach;
  f2 = fMiddle + fReach;
}

/// Moves a pair of limits, width kept, to where the lower one is.
void Shift_to_Low(R4 fLow, R4& fMin, R4& fMax) {
  fMax += fLow - fMin;
  fMin = fLow;
}

void Shift_to_High(R4 fHigh, R4& fMin, R4& fMax) {
  fMin -= fMax - fHigh;
  fMax = fHigh;
}

}  // namespace

PlotMap Map_of_Screen(const PlotRange& hRange) {
  const GrPoint h0 = IPgUnitsToGrUnits(hRange.fXPmin, hRange.fYPmin);
  const GrPoint h1 = IPgUnitsToGrUnits(hRange.fXPmax, hRange.fYPmax);
  return {hRange.fXPmin, h0.fX, (h1.fX - h0.fX) / (hRange.fXPmax - hRange.fXPmin),
          hRange.fYPmin, h0.fY, (h1.fY - h0.fY) / (hRange.fYPmax - hRange.fYPmin)};
}

PlotRange Range_of_Box(const GrBox& hBox) {
  const GrPoint h1 = IPgUnitsFromGrUnits(hBox.fX1, hBox.fY1);
  const GrPoint h2 = IPgUnitsFromGrUnits(hBox.fX2, hBox.fY2);
  return {h1.fX, h2.fX, h1.fY, h2.fY};
}

void Join_Range(R4 fMin1, R4 fMax1, R4& fMin, R4& fMax) {
  fMin = std::min(fMin, fMin1);
  fMax = std::max(fMax, fMax1);
}

GrBox Zoom_Box(GrBox hBox) {
  Widen_Side(fZoomHalfX, hBox.fX1, hBox.fX2);
  Widen_Side(fZoomHalfY, hBox.fY1, hBox.fY2);
  return hBox;
}

GrBox Shaped_Zoom_Box(R4 fYXArea, GrBox hBox) {
  hBox = Zoom_Box(hBox);
  const R4 fHalfX = 0.5f * (hBox.fX2 - hBox.fX1);
  const R4 fHalfY = 0.5f * (hBox.fY2 - hBox.fY1);
  Widen_Side(fHalfY / fYXArea, hBox.fX1, hBox.fX2);
  Widen_Side(fHalfX * fYXArea, hBox.fY1, hBox.fY2);
  return hBox;
}

PlotRange Shift_Inside(PlotRange h, const PlotRange& hFull) {
  if (h.fXPmin < hFull.fXPmin) Shift_to_Low(hFull.fXPmin, h.fXPmin, h.fXPmax);
  if (h.fXPmax > hFull.fXPmax) Shift_to_High(hFull.fXPmax, h.fXPmin, h.fXPmax);
  h.fXPmin = std::max(h.fXPmin, hFull.fXPmin);  // a box wider than the section shows all of it

  if (h.fYPmin < hFull.fYPmin) {
    Shift_to_Low(hFull.fYPmin, h.fYPmin, h.fYPmax);
    h.fYPmax = std::min(h.fYPmax, hFull.fYPmax);
  } else if (h.fYPmax > hFull.fYPmax) {
    Shift_to_High(hFull.fYPmax, h.fYPmin, h.fYPmax);
  }
  return h;
}

}  // namespace quillan
