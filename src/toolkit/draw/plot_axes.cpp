#include "toolkit/draw/plot_axes.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "base/text.h"
#include "toolkit/draw/draw.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/draw/plot_range.h"
#include "toolkit/window/private.h"

namespace quillan {

using namespace toolkit;

namespace {

// Distances around a plot, in heights of a character of the font in force.
constexpr R4 fTickLength = 0.6f;
constexpr R4 fMinorTick = 0.5f;    // of a major one
constexpr R4 fTextGap = 0.3f;      // between ticks and their texts
constexpr R4 fXLabelDrop = 2.7f;   // the X label's middle below the plot: clear of ticks and their texts
constexpr R4 fLineSpacing = 1.1f;  // texts one above the other keep this from middle to middle

constexpr R4 fTickPixels = 2.0f;  // minor ticks closer than this are a grey bar: they are left out
constexpr I4 MMajorTick = 10;     // more numbers than these are no help
constexpr I4 NTickWanted = 3;

constexpr R8 dFarthest = 1.0E37;  // graphics units: what lies beyond is held to it

/// One axis of the plot in force: its range in plot units, and where that lies in graphics units.
struct Axis {
  Scaling iScaling = Scaling::Linear;
  R4 fAreaLow = 0.0f, fAreaHigh = 1.0f;  // part of the graphics area
  PlotRange hRange;                      // plot units
  R4 fGrLow = 0.0f, fGrHigh = 1.0f;      // graphics units of the ends of the range
  R8 dStart = 0.0;                       // the range's beginning on the axis: its logarithm on a logarithmic one
  R8 dScale = 1.0;                       // graphics units a unit of the axis

  R8 On_Axis(R8 dValue) const { return iScaling == Scaling::Linear ? dValue : std::log10(dValue); }

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
Plot hPlot;

void Place_Plot() {
  hPlot.X.Place(WInfoGrReal(iUnitXMin), WInfoGrReal(iUnitXMax));
  hPlot.Y.Place(WInfoGrReal(iUnitYMin), WInfoGrReal(iUnitYMax));
}

/// The font in force, in graphics units along X and Y.
struct Lettering {
  R4 fPixelX = 0.0f, fPixelY = 0.0f;  // size of a pixel
  R4 fHeightY, fHeightX;              // of a character, as it stands and turned

  Lettering() : fHeightY(InfoGraphics(iCharHeight)) {
    IGrPixelSize(fPixelX, fPixelY);
    fHeightX = fHeightY * fPixelX / fPixelY;
  }
};

/// fMiddle, moved as little as it takes that fHalf on either side lie between the two limits.
R4 Moved_Inside(R4 fMiddle, R4 fHalf, R4 fLimit1, R4 fLimit2) {
  const R4 fLow = std::min(fLimit1, fLimit2) + fHalf;
  const R4 fHigh = std::max(fLimit1, fLimit2) - fHalf;
  return fLow < fHigh ? std::clamp(fMiddle, fLow, fHigh) : 0.5f * (fLow + fHigh);
}

/// A font small enough that a text of fLength has room in fRoom.
void Fit_Font(R4 fLength, R4 fRoom) {
  if (!(fLength > fRoom)) return;
  const R4 fFactor = fRoom / fLength;
  WGrTextFont(fFactor * InfoGraphics(iCharWidth) / std::abs(WInfoGrReal(iUnitXMax) - WInfoGrReal(iUnitXMin)),
              fFactor * InfoGraphics(iCharHeight) / std::abs(WInfoGrReal(iUnitYMax) - WInfoGrReal(iUnitYMin)));
}

/// A centred text that stays inside the graphics area, level or (bTurned) reading upward.
void Draw_Inside(R4 fX, R4 fY, std::string_view sText, bool bTurned) {
  const GraphicsKeeper hKeep;
  const R4 fXMin = WInfoGrReal(iUnitXMin), fXMax = WInfoGrReal(iUnitXMax);
  const R4 fYMin = WInfoGrReal(iUnitYMin), fYMax = WInfoGrReal(iUnitYMax);
  const Lettering hLetters;
  const R4 fTurn = bTurned ? hLetters.fPixelY / hLetters.fPixelX : 1.0f;
  Fit_Font(WGrTextLength(sText) * fTurn, std::abs(bTurned ? fYMax - fYMin : fXMax - fXMin));
  const R4 fHalf = 0.5f * WGrTextLength(sText) * fTurn;
  const R4 fHalfX = bTurned ? 0.5f * hLetters.fHeightX : fHalf;
  const R4 fHalfY = bTurned ? fHalf : 0.5f * hLetters.fHeightY;
  WGrTextOrientation(Justify::Centre, bTurned ? -90.0f : 0.0f);
  WGrTextString(Moved_Inside(fX, fHalfX, fXMin, fXMax), Moved_Inside(fY, fHalfY, fYMin, fYMax), sText);
}

bool Has(std::string_view sStyle, char cLetter) {
  return sStyle.find(cLetter) != std::string_view::npos;
}

/// Without the zeros at the end of its decimals; NKeep decimals stay.
std::string_view Without_Zeros(std::string_view sDecimal, std::size_t NKeep) {
  const std::size_t iPoint = sDecimal.find('.');
  if (iPoint == std::string_view::npos) return sDecimal;
  const std::size_t iLast = std::max(sDecimal.find_last_not_of('0'), iPoint + NKeep);
  return sDecimal.substr(0, iLast == iPoint ? iPoint : iLast + 1);
}

/// A number with at most seven digits, all that a R4 has: "12.5", "1.0E+07".
std::string Number_Text(R8 dValue) {
  constexpr I4 MDigits = 7;
  constexpr R8 dPlainLow = 1.0E-4, dPlainHigh = 1.0E7;  // powers of ten from here on take fewer characters
  if (dValue == 0.0) return "0";
  const R8 dMagnitude = std::abs(dValue);
  const bool bPlain = dMagnitude >= dPlainLow && dMagnitude < dPlainHigh;
  const I4 iFirst = bPlain ? static_cast<I4>(std::floor(std::log10(dMagnitude))) : 0;
  char sOut[64];
  const auto hEnd =
      std::to_chars(sOut, sOut + sizeof sOut, dValue, bPlain ? std::chars_format::fixed : std::chars_format::scientific,
                    std::max(MDigits - 1 - iFirst, 0));
  const std::string_view sWritten(sOut, static_cast<std::size_t>(hEnd.ptr - sOut));
  if (bPlain) return std::string(Without_Zeros(sWritten, 0));
  const std::size_t iExponent = sWritten.find('e');
  return std::string(Without_Zeros(sWritten.substr(0, iExponent), 1)).append("E").append(sWritten, iExponent + 1);
}

bool Is_Decade(R8 dValue) {
  constexpr R8 dRounding = 1.0E-9;
  const R8 dLog = std::log10(dValue);
  return std::abs(dLog - std::round(dLog)) < dRounding;
}

/// A tick as it is drawn along its axis, in graphics units.
struct DrawnTick {
  R4 fAt;
  bool bMajor;
  std::string sText;
  bool bFirst = false;  // a decade of a logarithmic axis: it has room before others do
  R4 fLength = 0.0f;    // of the text along the axis
  R4 fText = 0.0f;      // the text's middle along the axis
  bool bRoom = false;   // the text is drawn
};

/// What the texts of one axis need: fLow to fHigh is the graphics area along it.
struct TextRoom {
  R4 fLow, fHigh;
  bool bAlongX;
  Lettering hLetters;

  R4 Length(const std::string& sText) const { return bAlongX ? WGrTextLength(sText) : hLetters.fHeightY; }
  R4 Gap() const { return bAlongX ? InfoGraphics(iCharWidth) : (fLineSpacing - 1.0f) * hLetters.fHeightY; }
};

/// Gives room to the texts of hTick that bTake asks for, where none of those that have it already is in the way.
template <class Take>
void Give_Room(std::vector<DrawnTick>& hTick, const TextRoom& hRoom, Take bTake) {
  const R4 fGap = hRoom.Gap();
  for (DrawnTick& h : hTick) {
    if (h.sText.empty() || h.bRoom || !bTake(h)) continue;
    h.fLength = hRoom.Length(h.sText);
    h.fText = Moved_Inside(h.fAt, 0.5f * h.fLength, hRoom.fLow, hRoom.fHigh);
    h.bRoom = std::none_of(hTick.begin(), hTick.end(), [&](const DrawnTick& hOther) {
      return hOther.bRoom && std::abs(hOther.fText - h.fText) < 0.5f * (h.fLength + hOther.fLength) + fGap;
    });
  }
}

I4 Count_Room(const std::vector<DrawnTick>& hTick) {
  return static_cast<I4>(std::count_if(hTick.begin(), hTick.end(), [](const DrawnTick& h) { return h.bRoom; }));
}

std::vector<DrawnTick> Laid_Out(const Axis& hAxis, const TextRoom& hRoom, I4 MMajor) {
  const bool bLog = hAxis.iScaling == Scaling::Logarithmic;
  const PlotRange& h = hAxis.hRange;
  std::vector<DrawnTick> hDrawn;
  for (const Tick& hTick : bLog ? Logarithmic_Ticks(h.dLow, h.dHigh, MMajor) : Linear_Ticks(h.dLow, h.dHigh, MMajor)) {
    const std::string sText = hTick.bMajor ? Number_Text(hTick.dValue) : "";
    hDrawn.push_back({hAxis.To_Gr(hTick.dValue), hTick.bMajor, sText, bLog && Is_Decade(hTick.dValue)});
  }
  Give_Room(hDrawn, hRoom, [](const DrawnTick& hTick) { return hTick.bFirst; });
  Give_Room(hDrawn, hRoom, [](const DrawnTick&) { return true; });
  return hDrawn;
}

/// The ticks of an axis: as many major ones as have room for their texts, but three of them where that is possible.
std::vector<DrawnTick> Axis_Ticks(const Axis& hAxis, const TextRoom& hRoom) {
  std::vector<DrawnTick> hBest;
  for (I4 MMajor = MMajorTick; MMajor >= NTickWanted; --MMajor) {
    std::vector<DrawnTick> hTick = Laid_Out(hAxis, hRoom, MMajor);
    const auto NMajor = std::count_if(hTick.begin(), hTick.end(), [](const DrawnTick& h) { return h.bMajor; });
    const I4 NRoom = Count_Room(hTick);
    if (NRoom == NMajor && NRoom >= NTickWanted) return hTick;
    if (hBest.empty() || NRoom >= std::min(Count_Room(hBest), NTickWanted)) hBest = std::move(hTick);
  }
  return hBest;
}

void Drop_Crowded_Minor_Ticks(std::vector<DrawnTick>& hTick, R4 fPixel) {
  for (std::size_t I = 1; I < hTick.size(); ++I) {
    if (std::abs(hTick[I].fAt - hTick[I - 1].fAt) >= fTickPixels * fPixel) continue;
    std::erase_if(hTick, [](const DrawnTick& h) { return !h.bMajor; });
    return;
  }
}

TextRoom Room_Along_X() {
  return {WInfoGrReal(iUnitXMin), WInfoGrReal(iUnitXMax), true, Lettering()};
}

TextRoom Room_Along_Y() {
  return {WInfoGrReal(iUnitYMin), WInfoGrReal(iUnitYMax), false, Lettering()};
}

/// How far ticks of a style reach outward; inward is below 0, none at all is 0.
R4 Reach(std::string_view sStyle, R4 fHeight) {
  return Has(sStyle, 'I') ? -fTickLength * fHeight : Has(sStyle, 'T') ? fTickLength * fHeight : 0.0f;
}

/// Ticks from a level edge of the plot, fReach long: upward where it is above 0.
void Draw_X_Ticks(const std::vector<DrawnTick>& hTick, R4 fEdge, R4 fReach) {
  if (fReach == 0.0f) return;
  for (const DrawnTick& h : hTick) {
    IGrSegment(h.fAt, fEdge, h.fAt, fEdge + (h.bMajor ? fReach : fMinorTick * fReach));
  }
}

/// The same from an upright edge, to the right where fReach is above 0.
void Draw_Y_Ticks(const std::vector<DrawnTick>& hTick, R4 fEdge, R4 fReach) {
  if (fReach == 0.0f) return;
  for (const DrawnTick& h : hTick) {
    IGrSegment(fEdge, h.fAt, fEdge + (h.bMajor ? fReach : fMinorTick * fReach), h.fAt);
  }
}

/// Texts below the plot; fReach: how far the ticks go down.
void Draw_X_Texts(const std::vector<DrawnTick>& hTick, const TextRoom& hRoom, R4 fReach) {
  const GraphicsKeeper hKeep;
  WGrTextOrientation(Justify::Centre, 0.0f);
  const R4 fHeight = hRoom.hLetters.fHeightY;
  const R4 fBelow = hPlot.Y.fGrLow - std::max(fReach, 0.0f) - (fTextGap + 0.5f) * fHeight;
  const R4 fY = Moved_Inside(fBelow, 0.5f * fHeight, WInfoGrReal(iUnitYMin), WInfoGrReal(iUnitYMax));
  for (const DrawnTick& h : hTick) {
    if (h.bRoom) WGrTextString(h.fText, fY, h.sText);
  }
}

/// Texts to the left of the plot, right-aligned.
void Draw_Y_Texts(const std::vector<DrawnTick>& hTick, const TextRoom& hRoom, R4 fReach) {
  const GraphicsKeeper hKeep;
  WGrTextOrientation(Justify::Right, 0.0f);
  const R4 fEdge = hPlot.X.fGrLow - std::max(fReach, 0.0f) - fTextGap * hRoom.hLetters.fHeightX;
  for (const DrawnTick& h : hTick) {
    if (h.bRoom) WGrTextString(std::max(fEdge, WInfoGrReal(iUnitXMin) + WGrTextLength(h.sText)), h.fText, h.sText);
  }
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
  Draw_Inside(0.5f * (hPlot.X.fGrLow + hPlot.X.fGrHigh), hPlot.Y.fGrHigh + fRise, sTitle, false);
}

void IPgXLabel(std::string_view sLabel) {
  const R4 fDrop = fXLabelDrop * InfoGraphics(iCharHeight);
  Draw_Inside(0.5f * (hPlot.X.fGrLow + hPlot.X.fGrHigh), hPlot.Y.fGrLow - fDrop, sLabel, false);
}

void IPgYLabelLeft(std::string_view sLabel, R4 fPlace) {
  const R4 fSpacing = hPlot.X.fGrLow - WInfoGrReal(iUnitXMin);
  Draw_Inside(hPlot.X.fGrLow - fPlace * fSpacing, 0.5f * (hPlot.Y.fGrLow + hPlot.Y.fGrHigh), sLabel, true);
}

void IPgXScale(std::string_view sStyle) {
  const TextRoom hRoom = Room_Along_X();
  std::vector<DrawnTick> hTick = Axis_Ticks(hPlot.X, hRoom);
  const R4 fReach = Reach(sStyle, hRoom.hLetters.fHeightY);
  if (Has(sStyle, 'N')) Draw_X_Texts(hTick, hRoom, fReach);
  Drop_Crowded_Minor_Ticks(hTick, hRoom.hLetters.fPixelX);
  Draw_X_Ticks(hTick, hPlot.Y.fGrLow, -fReach);
}

void IPgXScaleTop(std::string_view sStyle) {
  const TextRoom hRoom = Room_Along_X();
  std::vector<DrawnTick> hTick = Axis_Ticks(hPlot.X, hRoom);
  Drop_Crowded_Minor_Ticks(hTick, hRoom.hLetters.fPixelX);
  Draw_X_Ticks(hTick, hPlot.Y.fGrHigh, Reach(sStyle, hRoom.hLetters.fHeightY));
}

void IPgYScaleLeft(std::string_view sStyle) {
  const TextRoom hRoom = Room_Along_Y();
  std::vector<DrawnTick> hTick = Axis_Ticks(hPlot.Y, hRoom);
  const R4 fReach = Reach(sStyle, hRoom.hLetters.fHeightX);
  if (Has(sStyle, 'N')) Draw_Y_Texts(hTick, hRoom, fReach);
  Drop_Crowded_Minor_Ticks(hTick, hRoom.hLetters.fPixelY);
  Draw_Y_Ticks(hTick, hPlot.X.fGrLow, -fReach);
}

void IPgYScaleRight(std::string_view sStyle) {
  const TextRoom hRoom = Room_Along_Y();
  std::vector<DrawnTick> hTick = Axis_Ticks(hPlot.Y, hRoom);
  Drop_Crowded_Minor_Ticks(hTick, hRoom.hLetters.fPixelY);
  Draw_Y_Ticks(hTick, hPlot.X.fGrHigh, Reach(sStyle, hRoom.hLetters.fHeightX));
}

void IPgYUserScale(std::span<const R4> fYTick, std::span<const std::string> sYTick, std::string_view sStyle) {
  const TextRoom hRoom = Room_Along_Y();
  std::vector<DrawnTick> hTick;
  for (std::size_t I = 0; I < fYTick.size(); ++I) {
    const std::string_view sText = I < sYTick.size() ? Left_Adjusted(Trimmed(sYTick[I])) : std::string_view{};
    hTick.push_back({hPlot.Y.To_Gr(R8{fYTick[I]}), true, std::string(sText)});
  }
  Give_Room(hTick, hRoom, [](const DrawnTick&) { return true; });
  const R4 fReach = Reach(sStyle, hRoom.hLetters.fHeightX);
  Draw_Y_Texts(hTick, hRoom, fReach);
  Draw_Y_Ticks(hTick, hPlot.X.fGrLow, -fReach);
}

void IPgJoin2(R4 fX1, R4 fY1, R4 fX2, R4 fY2) {
  IGrSegment(hPlot.X.To_Gr(R8{fX1}), hPlot.Y.To_Gr(R8{fY1}), hPlot.X.To_Gr(R8{fX2}), hPlot.Y.To_Gr(R8{fY2}));
}

void IPgMarker(R4 fX, R4 fY, I4 iMarker) {
  IGrMarker(hPlot.X.To_Gr(R8{fX}), hPlot.Y.To_Gr(R8{fY}), iMarker);
}

void IPgUnitsToGrUnits(R4 fXPg, R4 fYPg, R4& fXGr, R4& fYGr) {
  fXGr = hPlot.X.To_Gr(R8{fXPg});
  fYGr = hPlot.Y.To_Gr(R8{fYPg});
}

void IPgUnitsFromGrUnits(R4 fXGr, R4 fYGr, R4& fXPg, R4& fYPg) {
  fXPg = hPlot.X.From_Gr(fXGr);
  fYPg = hPlot.Y.From_Gr(fYGr);
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

GrPoint IPgUnitsToGrUnits(R4 fXPg, R4 fYPg) {
  GrPoint h;
  IPgUnitsToGrUnits(fXPg, fYPg, h.fX, h.fY);
  return h;
}

GrPoint IPgUnitsFromGrUnits(R4 fXGr, R4 fYGr) {
  GrPoint h;
  IPgUnitsFromGrUnits(fXGr, fYGr, h.fX, h.fY);
  return h;
}

}  // namespace quillan
