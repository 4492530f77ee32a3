#include "toolkit/draw/plot_axes.h"

#include <cmath>

#include "toolkit/draw/last_error.h"
#include "toolkit/draw/private_plot.h"

namespace quillan {

using namespace toolkit;

namespace {

constexpr R4 fXLabelDrop = 2.7f;  // heights of a character from the plot to the X label's middle: clear of tick texts

void Place_Plot() {
  hPlot.X.Place(InfoGraphics(iUnitXMin), InfoGraphics(iUnitXMax));
  hPlot.Y.Place(InfoGraphics(iUnitYMin), InfoGraphics(iUnitYMax));
}

/// A font small enough that a text of fLength has room in fRoom.
void Fit_Font(R4 fLength, R4 fRoom) {
  if (!(fLength > fRoom)) return;
  const R4 fFactor = fRoom / fLength;
  WGrTextFont(fFactor * InfoGraphics(iCharWidth) / std::abs(InfoGraphics(iUnitXMax) - InfoGraphics(iUnitXMin)),
              fFactor * InfoGraphics(iCharHeight) / std::abs(InfoGraphics(iUnitYMax) - InfoGraphics(iUnitYMin)));
}

/// A centred text that stays inside the graphics area, level or (bTurned) reading upward.
void Draw_Inside(R4 fX, R4 fY, std::string_view sText, bool bTurned) {
  const GraphicsKeeper hKeep;
  const R4 fXMin = InfoGraphics(iUnitXMin), fXMax = InfoGraphics(iUnitXMax);
  const R4 fYMin = InfoGraphics(iUnitYMin), fYMax = InfoGraphics(iUnitYMax);
  const FontSize hFont;
  const R4 fTurn = bTurned ? hFont.hPixel.fY / hFont.hPixel.fX : 1.0f;
  Fit_Font(WGrTextLength(sText) * fTurn, std::abs(bTurned ? fYMax - fYMin : fXMax - fXMin));
  const R4 fHalf = 0.5f * WGrTextLength(sText) * fTurn;
  const R4 fHalfX = bTurned ? 0.5f * hFont.fHeightX : fHalf;
  const R4 fHalfY = bTurned ? fHalf : 0.5f * hFont.fHeightY;
  WGrTextOrientation(Justify::Centre, bTurned ? -90.0f : 0.0f);
  WGrTextString(Moved_Inside(fX, fHalfX, fXMin, fXMax), Moved_Inside(fY, fHalfY, fYMin, fYMax), sText);
}

}  // namespace

void IPgArea(R4 fXMin, R4 fYMin, R4 fXMax, R4 fYMax) {
  const bool bGood = std::isfinite(fXMax - fXMin) && std::isfinite(fYMax - fYMin) && fXMin != fXMax && fYMin != fYMax;
  if (!bGood) return Set_Error(iErrBadArgument);
  hPlot.X.fAreaLow = fXMin;
  hPlot.X.fAreaHigh = fXMax;
  hPlot.Y.fAreaLow = fYMin;
  hPlot.Y.fAreaHigh = fYMax;
  Place_Plot();
}

void IPgScaling(Scaling iX, Scaling iY) {
  hPlot.X.iScaling = iX;
  hPlot.Y.iScaling = iY;
  hPlot.X.bCoordinates = hPlot.Y.bCoordinates = false;
  hPlot.X.dOrigin = hPlot.Y.dOrigin = 0.0;
}

void IPgCoordinates(R8 dX0, R8 dY0) {
  if (!std::isfinite(dX0) || !std::isfinite(dY0)) return Set_Error(iErrBadArgument);
  hPlot.X.iScaling = hPlot.Y.iScaling = Scaling::Linear;
  hPlot.X.bCoordinates = hPlot.Y.bCoordinates = true;
  hPlot.X.dOrigin = dX0;
  hPlot.Y.dOrigin = dY0;
}

void IPgUnits(R4 fXMin, R4 fYMin, R4 fXMax, R4 fYMax) {
  hPlot.X.hRange = Plottable(hPlot.X.iScaling, R8{fXMin}, R8{fXMax});
  hPlot.Y.hRange = Plottable(hPlot.Y.iScaling, R8{fYMin}, R8{fYMax});
  hPlot.bUnits = true;
  Place_Plot();
}

void IPgClipRectangle(std::string_view sWhat) {
  if (sWhat == "P") return IGrClip(hPlot.X.fGrLow, hPlot.Y.fGrLow, hPlot.X.fGrHigh, hPlot.Y.fGrHigh);
  if (sWhat == "G") return IGrClipOff();
  Set_Error(iErrBadArgument);
}

void IPgBorder() {
  IGrRectangle(hPlot.X.fGrLow, hPlot.Y.fGrLow, hPlot.X.fGrHigh, hPlot.Y.fGrHigh);
}

void IPgTitle(std::string_view sTitle, R4 fRise) {
  Draw_Inside(hPlot.X.Middle(), hPlot.Y.fGrHigh + fRise, sTitle, false);
}

void IPgXLabel(std::string_view sLabel) {
  const R4 fDrop = fXLabelDrop * InfoGraphics(iCharHeight);
  Draw_Inside(hPlot.X.Middle(), hPlot.Y.fGrLow - fDrop, sLabel, false);
}

void IPgYLabelLeft(std::string_view sLabel, R4 fPlace) {
  const R4 fSpacing = hPlot.X.fGrLow - InfoGraphics(iUnitXMin);
  Draw_Inside(hPlot.X.fGrLow - fPlace * fSpacing, hPlot.Y.Middle(), sLabel, true);
}

void IPgJoin2(R4 fX1, R4 fY1, R4 fX2, R4 fY2) {
  IGrSegment(hPlot.X.To_Gr(R8{fX1}), hPlot.Y.To_Gr(R8{fY1}), hPlot.X.To_Gr(R8{fX2}), hPlot.Y.To_Gr(R8{fY2}));
}

void IPgMarker(R4 fX, R4 fY, I4 iMarker) {
  IGrMarker(hPlot.X.To_Gr(R8{fX}), hPlot.Y.To_Gr(R8{fY}), iMarker);
}

void IPgDisc(R4 fX, R4 fY, R4 fPixels) {
  IGrDisc(hPlot.X.To_Gr(R8{fX}), hPlot.Y.To_Gr(R8{fY}), fPixels);
}

GrPoint IPgUnitsToGrUnits(R4 fXPg, R4 fYPg) {
  return {hPlot.X.To_Gr(R8{fXPg}), hPlot.Y.To_Gr(R8{fYPg})};
}

GrPoint IPgUnitsFromGrUnits(R4 fXGr, R4 fYGr) {
  return {hPlot.X.From_Gr(fXGr), hPlot.Y.From_Gr(fYGr)};
}

GrPoint IPgNumbersToGrUnits(R8 dX, R8 dY) {
  return {hPlot.X.To_Gr(dX - hPlot.X.dOrigin), hPlot.Y.To_Gr(dY - hPlot.Y.dOrigin)};
}

AxisNumbers IPgNumbersFromGrUnits(R4 fXGr, R4 fYGr) {
  return {hPlot.X.dOrigin + R8{hPlot.X.From_Gr(fXGr)}, hPlot.Y.dOrigin + R8{hPlot.Y.From_Gr(fYGr)}};
}

R4 InfoPgReal(I4 iSelect) {
  switch (iSelect) {
    case iPlotXMin: return static_cast<R4>(hPlot.X.hRange.dLow);
    case iPlotYMin: return static_cast<R4>(hPlot.Y.hRange.dLow);
    case iPlotXMax: return static_cast<R4>(hPlot.X.hRange.dHigh);
    case iPlotYMax: return static_cast<R4>(hPlot.Y.hRange.dHigh);
    default: Set_Error(iErrBadArgument); return 0.0f;
  }
}

bool IPg_Is_Plotting() {
  return hPlot.bUnits;
}

void IPgForget() {
  hPlot = {};
}

}  // namespace quillan
