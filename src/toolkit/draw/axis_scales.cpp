// The scales of plot_axes.h: which ticks have room for their texts, and how both are drawn.
#include <charconv>

#include "base/text.h"
#include "toolkit/draw/private_plot.h"

namespace quillan {

using namespace toolkit;

namespace {

// Distances around a plot, in heights of a character of the font in force.
constexpr R4 fTickLength = 0.6f;
constexpr R4 fMinorTick = 0.5f;    // of a major one
constexpr R4 fTextGap = 0.3f;      // between ticks and their texts
constexpr R4 fLineSpacing = 1.1f;  // texts one above the other keep this from middle to middle

constexpr R4 fTickPixels = 2.0f;  // minor ticks closer than this are a grey bar: they are left out
constexpr I4 MMajorTick = 10;     // more numbers than these are no help
constexpr I4 NTickWanted = 3;

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
std::string Tick_Text(R8 dValue) {
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

/// Decimals that tell multiples of a step apart.
I4 Decimals_of(R8 dStep) {
  constexpr R8 dRounding = 1.0E-9;
  return std::max(static_cast<I4>(std::ceil(-std::log10(dStep) - dRounding)), 0);
}

/// A coordinate in full: "5176420", "482310.5".
std::string Coordinate_Text(R8 dValue, I4 NDecimal) {
  char sOut[512];
  const R8 dNoMinusZero = dValue + 0.0;
  const auto hEnd = std::to_chars(sOut, sOut + sizeof sOut, dNoMinusZero, std::chars_format::fixed, NDecimal);
  return {sOut, hEnd.ptr};
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

/// One direction of the plot: what ticks and texts along it need.
struct Direction {
  bool bAlongX;
  const Axis& hAxis;
  R4 fLow, fHigh;  // the graphics area along it
  FontSize hFont;

  R4 Length(const std::string& sText) const { return bAlongX ? WGrTextLength(sText) : hFont.fHeightY; }
  R4 Gap() const { return bAlongX ? InfoGraphics(iCharWidth) : (fLineSpacing - 1.0f) * hFont.fHeightY; }
  R4 Pixel() const { return bAlongX ? hFont.hPixel.fX : hFont.hPixel.fY; }

  /// How far ticks of a style reach outward; inward is below 0, none at all is 0.
  R4 Reach(std::string_view sStyle) const {
    const R4 fLength = fTickLength * (bAlongX ? hFont.fHeightY : hFont.fHeightX);
    return Has(sStyle, 'I') ? -fLength : Has(sStyle, 'T') ? fLength : 0.0f;
  }
};

Direction Along_X() {
  return {true, hPlot.X, InfoGraphics(iUnitXMin), InfoGraphics(iUnitXMax), {}};
}

Direction Along_Y() {
  return {false, hPlot.Y, InfoGraphics(iUnitYMin), InfoGraphics(iUnitYMax), {}};
}

/// Gives room to the texts of hTick that bTake asks for, where none of those that have it already is in the way.
template <class Take>
void Give_Room(std::vector<DrawnTick>& hTick, const Direction& hAlong, Take bTake) {
  const R4 fGap = hAlong.Gap();
  for (DrawnTick& h : hTick) {
    if (h.sText.empty() || h.bRoom || !bTake(h)) continue;
    h.fLength = hAlong.Length(h.sText);
    h.fText = Moved_Inside(h.fAt, 0.5f * h.fLength, hAlong.fLow, hAlong.fHigh);
    h.bRoom = std::none_of(hTick.begin(), hTick.end(), [&](const DrawnTick& hOther) {
      return hOther.bRoom && std::abs(hOther.fText - h.fText) < 0.5f * (h.fLength + hOther.fLength) + fGap;
    });
  }
}

/// The ticks of an axis with their texts, at their places along it.
std::vector<DrawnTick> Ticks_of(const Axis& hAxis, I4 MMajor) {
  const bool bLog = hAxis.iScaling == Scaling::Logarithmic;
  const R8 dLow = hAxis.hRange.dLow + hAxis.dOrigin, dHigh = hAxis.hRange.dHigh + hAxis.dOrigin;
  const std::vector<Tick> hTick = bLog ? Logarithmic_Ticks(dLow, dHigh, MMajor) : Linear_Ticks(dLow, dHigh, MMajor);
  std::vector<R8> dMajor;
  for (const Tick& h : hTick) {
    if (h.bMajor) dMajor.push_back(h.dValue);
  }
  const I4 NDecimal = hAxis.bCoordinates && dMajor.size() > 1 ? Decimals_of(dMajor[1] - dMajor[0]) : 0;
  std::vector<DrawnTick> hDrawn;
  for (const Tick& h : hTick) {
    const std::string sText = !h.bMajor            ? ""
                              : hAxis.bCoordinates ? Coordinate_Text(h.dValue, NDecimal)
                                                   : Tick_Text(h.dValue);
    hDrawn.push_back({hAxis.To_Gr(h.dValue - hAxis.dOrigin), h.bMajor, sText, bLog && Is_Decade(h.dValue)});
  }
  return hDrawn;
}

std::vector<DrawnTick> Laid_Out(const Direction& hAlong, I4 MMajor) {
  std::vector<DrawnTick> hDrawn = Ticks_of(hAlong.hAxis, MMajor);
  Give_Room(hDrawn, hAlong, [](const DrawnTick& hTick) { return hTick.bFirst; });
  Give_Room(hDrawn, hAlong, [](const DrawnTick&) { return true; });
  return hDrawn;
}

/// The ticks of an axis: as many major ones as have room for their texts, but three of them where that is possible.
std::vector<DrawnTick> Axis_Ticks(const Direction& hAlong) {
  const auto Count = [](const std::vector<DrawnTick>& hTick, bool DrawnTick::*bWhich) {
    return static_cast<I4>(std::ranges::count(hTick, true, bWhich));
  };
  std::vector<DrawnTick> hBest;
  for (I4 MMajor = MMajorTick; MMajor >= NTickWanted; --MMajor) {
    std::vector<DrawnTick> hTick = Laid_Out(hAlong, MMajor);
    const I4 NRoom = Count(hTick, &DrawnTick::bRoom);
    if (NRoom == Count(hTick, &DrawnTick::bMajor) && NRoom >= NTickWanted) return hTick;
    if (hBest.empty() || NRoom >= std::min(Count(hBest, &DrawnTick::bRoom), NTickWanted)) hBest = std::move(hTick);
  }
  return hBest;
}

void Drop_Crowded_Minor_Ticks(std::vector<DrawnTick>& hTick, R4 fPixel) {
  const auto bCrowded = [&](const DrawnTick& h1, const DrawnTick& h2) {
    return std::abs(h2.fAt - h1.fAt) < fTickPixels * fPixel;
  };
  if (std::ranges::adjacent_find(hTick, bCrowded) != hTick.end())
    std::erase_if(hTick, [](const DrawnTick& h) { return !h.bMajor; });
}

/// Ticks from an edge of the plot, fReach long: upward or to the right where it is above 0.
void Draw_Ticks(const std::vector<DrawnTick>& hTick, const Direction& hAlong, R4 fEdge, R4 fReach) {
  if (fReach == 0.0f) return;
  for (const DrawnTick& h : hTick) {
    const R4 fEnd = fEdge + (h.bMajor ? fReach : fMinorTick * fReach);
    if (hAlong.bAlongX)
      IGrSegment(h.fAt, fEdge, h.fAt, fEnd);
    else
      IGrSegment(fEdge, h.fAt, fEnd, h.fAt);
  }
}

/// Texts below the plot, or to the left of it and right-aligned; fReach: how far the ticks go outward.
void Draw_Texts(const std::vector<DrawnTick>& hTick, const Direction& hAlong, R4 fReach) {
  const GraphicsKeeper hKeep;
  const FontSize& hFont = hAlong.hFont;
  const R4 fOutward = std::max(fReach, 0.0f);
  WGrTextOrientation(hAlong.bAlongX ? Justify::Centre : Justify::Right, 0.0f);
  const R4 fBelow = hPlot.Y.fGrLow - fOutward - (fTextGap + 0.5f) * hFont.fHeightY;
  const R4 fY = Moved_Inside(fBelow, 0.5f * hFont.fHeightY, InfoGraphics(iUnitYMin), InfoGraphics(iUnitYMax));
  const R4 fLeft = hPlot.X.fGrLow - fOutward - fTextGap * hFont.fHeightX;
  for (const DrawnTick& h : hTick) {
    if (!h.bRoom) continue;
    if (hAlong.bAlongX)
      WGrTextString(h.fText, fY, h.sText);
    else
      WGrTextString(std::max(fLeft, InfoGraphics(iUnitXMin) + WGrTextLength(h.sText)), h.fText, h.sText);
  }
}

void Draw_Scale(const Direction& hAlong, R4 fEdge, std::string_view sStyle) {
  std::vector<DrawnTick> hTick = Axis_Ticks(hAlong);
  const R4 fReach = hAlong.Reach(sStyle);
  if (Has(sStyle, 'N')) Draw_Texts(hTick, hAlong, fReach);
  Drop_Crowded_Minor_Ticks(hTick, hAlong.Pixel());
  Draw_Ticks(hTick, hAlong, fEdge, -fReach);
}

void Draw_Far_Ticks(const Direction& hAlong, R4 fEdge, std::string_view sStyle) {
  std::vector<DrawnTick> hTick = Axis_Ticks(hAlong);
  Drop_Crowded_Minor_Ticks(hTick, hAlong.Pixel());
  Draw_Ticks(hTick, hAlong, fEdge, hAlong.Reach(sStyle));
}

}  // namespace

void IPgXScale(std::string_view sStyle) {
  Draw_Scale(Along_X(), hPlot.Y.fGrLow, sStyle);
}

void IPgYScaleLeft(std::string_view sStyle) {
  Draw_Scale(Along_Y(), hPlot.X.fGrLow, sStyle);
}

void IPgXScaleTop(std::string_view sStyle) {
  Draw_Far_Ticks(Along_X(), hPlot.Y.fGrHigh, sStyle);
}

void IPgYScaleRight(std::string_view sStyle) {
  Draw_Far_Ticks(Along_Y(), hPlot.X.fGrHigh, sStyle);
}

R4 IPgYScaleWidth() {
  R4 fWidest = 0.0f;
  for (const DrawnTick& h : Axis_Ticks(Along_Y())) {
    if (h.bRoom) fWidest = std::max(fWidest, WGrTextLength(h.sText));
  }
  return fWidest;
}

void IPgYUserScale(std::span<const R4> fYTick, std::span<const std::string> sYTick, std::string_view sStyle) {
  const Direction hAlong = Along_Y();
  std::vector<DrawnTick> hTick;
  for (std::size_t I = 0; I < fYTick.size(); ++I) {
    const std::string_view sText = I < sYTick.size() ? Left_Adjusted(Trimmed(sYTick[I])) : std::string_view{};
    hTick.push_back({hPlot.Y.To_Gr(R8{fYTick[I]}), true, std::string(sText)});
  }
  Give_Room(hTick, hAlong, [](const DrawnTick&) { return true; });
  const R4 fReach = hAlong.Reach(sStyle);
  Draw_Texts(hTick, hAlong, fReach);
  Draw_Ticks(hTick, hAlong, hPlot.X.fGrLow, -fReach);
}

}  // namespace quillan
