#include "review/qcc_plot.h"

#include <algorithm>
#include <cmath>

#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "metadata/enm_data.h"
#include "review/plot/igr_util.h"
#include "toolkit/draw/draw.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/draw/plot_axes.h"

namespace quillan {
namespace {

constexpr I4 iCmpRef = 7;  // from here on no axis; stands for a code that is no component
constexpr I4 iCmpOff = 8;
constexpr R4 fYAlways = 1000.0f;    // the Y axis reaches at least from 0 to this value
constexpr R4 fYErrorBars = -30.0f;  // on the scale; below it a point has no error bar
constexpr R4 fCurveWidth = 1.5f;    // pixels
constexpr R4 fAxisWidth = 1.0f;
constexpr R4 fPlotLeft = 5.0f;     // graphics units, X of the left edge of the plot
constexpr R4 fPlotMiddle = 13.8f;  // X of its middle
constexpr R4 fTitleY = 18.11f;     // Y of the middle of the title
constexpr R4 fTitleMargin = 0.1f;  // between the title and the tool window
constexpr R4 fYLabelPlace = 0.9f;  // of the way from the plot to the edge of the window
constexpr R4 fZoomHalfX = 1.0f;    // graphics units, least half width and half height of a zoom
constexpr R4 fZoomHalfY = 0.7f;

struct TextSize {
  R4 fWidth, fHeight;  // fractions of the window
};
constexpr TextSize hSize8{0.00837312f, 0.018816f};
constexpr TextSize hSize10{0.0104664f, 0.02352f};
constexpr TextSize hSize12{0.01255968f, 0.028224f};

// What a plot type shows. "#" stands for the letter of the axis. Hx, Hy and Hz have all three; the others show the
// values of the first under the component's name.
struct CurveType {
  WindowValues Transient::*fValue;
  R4 fLeast;  // a value at or above it is usable
  std::string_view sName, sYLabel;
};
constexpr Array1<CurveType, MCurveType> hCurveType{{{
    {&Transient::fuVmag, fDummyLimit, "dB#/dt", "dB#/dt (uV/amp)"},
    {&Transient::fBmag, fDummyLimit, "B#(t)", "B#(t) (pT/amp)"},
    {&Transient::fARes, 0.001f, "App.Res.", "Apparent Resistivity (ohm-m)"},
}}};

// ---- what is plotted

bool Is_Component(I4 iRxCmp) {
  return iRxCmp >= 1 && iRxCmp <= iCmpOff;
}

bool Is_Magnetic(I4 iPltCmp) {
  return iPltCmp >= iCmpHx && iPltCmp <= iCmpHz;
}

std::string With_Axis(std::string_view sPattern, I4 iXYZ) {
  std::string s(sPattern);
  if (const auto K = s.find('#'); K != std::string::npos) s.replace(K, 1, sXYZ(iXYZ));
  return s;
}

bool Is_Usable(const Transient& h, I4 iType, I4 I) {
  const R4 fValue = (h.*hCurveType(iType).fValue)(I);
  return std::isfinite(fValue) && fValue >= hCurveType(iType).fLeast;
}

bool Has_Type(const Transient& h, I4 iType) {
  for (I4 I = 1; I <= h.NTW; ++I) {
    if (Is_Usable(h, iType, I)) return true;
  }
  return false;
}

/// The highest plot type that the transient has; 0 when it has none.
I4 Highest_Type(const Transient& h, I4 iPltCmp) {
  I4 iType = Is_Magnetic(iPltCmp) ? MCurveType : 1;
  while (iType > 0 && !Has_Type(h, iType)) --iType;
  return iType;
}

void Name_Types(I4 iPltCmp, I4 iXYZ, CurveTypeNames& sPlotType) {
  if (!Is_Magnetic(iPltCmp)) {
    sPlotType(1) = sChnCmp(iPltCmp);
    return;
  }
  for (I4 iType = 1; iType <= MCurveType; ++iType) sPlotType(iType) = With_Axis(hCurveType(iType).sName, iXYZ);
}

void Add_Point(const Transient& h, I4 iType, I4 I) {
  const I4 N = ++hCurve.NPobs;
  hCurve.fXPobs(N) = h.fTWCen(I);
  hCurve.fYPobs(N) = fAsinh10((h.*hCurveType(iType).fValue)(I), fYDscl);
  hCurve.fYPerr(N) = std::max(0.0f, h.fuVpct(I));
  hCurve.bSkip(N) = h.bSkip(I) || h.bSkipTrn;
  hCurve.ITWofIPlt(N) = I;

  CurveRange& r = hCurve.hRange0;
  r.fXPgMin = std::min(r.fXPgMin, hCurve.fXPobs(N));
  r.fXPgMax = std::max(r.fXPgMax, hCurve.fXPobs(N));
  r.fYPgMin = std::min(r.fYPgMin, hCurve.fYPobs(N));
  r.fYPgMax = std::max(r.fYPgMax, hCurve.fYPobs(N));
}

void Add_Points(const Transient& h, I4 iType) {
  hCurve.hRange0 = {.fYPgMax = fAsinh10(fYAlways, fYDscl)};
  for (I4 I = 1; I <= h.NTW; ++I) {
    // A time at or below 0 has no place on a logarithmic axis.
    if (Is_Usable(h, iType, I) && h.fTWCen(I) > 0.0f && std::isfinite(h.fTWCen(I))) Add_Point(h, iType, I);
  }
}

std::string Separation(const Transient& h) {
  const bool bBoth = Is_Present(h.dRxStn) && Is_Present(h.dTxStn);
  return Str_Write_XYZR8(bBoth ? h.dRxStn - h.dTxStn : dDummy).str();
}

std::string Title(const Transient& h, I4 iPltCmp) {
  std::string s = "TxFreq=" + Str_Write_R4(h.fTxFreq, "(1P,G14.4E1)").str();
  s += ", TxStn=" + Str_Write_XYZR8(h.dTxStn).str();
  if (hTemSurvey.iTemArray == iArrayMVL) s += ", RxStn-TxStn=" + Separation(h);
  s += ", RxStn=" + Str_Write_XYZR8(h.dRxStn).str();
  s += ", RxCmp=" + std::string(sChnCmp(iPltCmp));
  if (Is_Present(h.dKvrBlk(1)) && Is_Present(h.dKvrBlk(2))) {
    s += ", KvrBlk=" + Str_Write_R8(h.dKvrBlk(1), "(F0.2)").str() + ":" + Str_Write_R8(h.dKvrBlk(2), "(F0.2)").str();
  }
  return s;
}

void Set_Labels(const Transient& h, I4 iPltCmp, I4 iType) {
  hCurve.sTitle = Title(h, iPltCmp);
  hCurve.sYLabel =
      Is_Magnetic(iPltCmp) ? With_Axis(hCurveType(iType).sYLabel, hCurve.iXYZ) : std::string(sChnCmp(iPltCmp));
}

void Set_Range(const CurveRange& hRange) {
  hCurve.hRange = hRange;
  Asinh10_Ticks(hRange.fYPgMin, hRange.fYPgMax, fYDscl, MCurveTick, hCurve.NYTick, hCurve.fYTick, hCurve.sYTick);
}

// ---- drawing

struct GrPoint {
  R4 fX = 0.0f, fY = 0.0f;  // graphics units
};

GrPoint Middle(const GrPoint& h1, const GrPoint& h2) {
  return {0.5f * (h1.fX + h2.fX), 0.5f * (h1.fY + h2.fY)};
}

GrPoint Gr_Point(I4 I) {
  GrPoint h;
  IPgUnitsToGrUnits(hCurve.fXPobs(I), hCurve.fYPobs(I), h.fX, h.fY);
  return h;
}

bool In_View(I4 I) {
  const CurveRange& r = hCurve.hRange;
  return hCurve.fXPobs(I) >= r.fXPgMin && hCurve.fXPobs(I) <= r.fXPgMax && hCurve.fYPobs(I) >= r.fYPgMin &&
         hCurve.fYPobs(I) <= r.fYPgMax;
}

void Set_Font(const TextSize& h) {
  WGrTextFont(h.fWidth, h.fHeight);
}

void Clear_Window() {
  WindowClear();
  IGrClipOff();
  IGrArea(0.0f, 0.0f, 1.0f, 1.0f);
  IGrUnits(fCurveGrXMin, fCurveGrYMin, fCurveGrXMax, fCurveGrYMax);
}

void Set_Plot_Units() {
  const CurveRange& r = hCurve.hRange;
  IPgArea(0.1f, 0.1f, 0.98f, 0.95f);
  IPgScaling(Scaling::Logarithmic, Scaling::Linear);
  IPgUnits(r.fXPgMin, r.fYPgMin, r.fXPgMax, r.fYPgMax);
}

/// The largest font in which a title has room; one that is too long for all is narrowed.
void Set_Title_Font(std::string_view sTitle, R4 fRoom) {
  for (const TextSize& h : {hSize12, hSize10, hSize8}) {
    Set_Font(h);
    if (WGrTextLength(sTitle) <= fRoom) return;
  }
  Set_Font({hSize8.fWidth * fRoom / WGrTextLength(sTitle), hSize8.fHeight});
}

/// Centred above the plot, but clear of the tool window and of the ticks' texts: a title that is partly hidden does not
/// name the sounding.
void Draw_Title() {
  const std::string_view sTitle = hCurve.sTitle.trimmed();
  const R4 fEnd = fCurveTitleEnd - fTitleMargin;
  Set_Title_Font(sTitle, fEnd - fPlotLeft);
  const R4 fHalf = 0.5f * WGrTextLength(sTitle);
  WGrTextOrientation(Justify::Centre, 0.0f);
  WGrTextString(std::max(std::min(fPlotMiddle, fEnd - fHalf), fPlotLeft + fHalf), fTitleY, sTitle);
}

/// The text of zero has room before those of the decades beside it, for it tells where the curve changes its sign.
void Draw_Y_Ticks() {
  std::vector<R4> fTick = hCurve.fYTick;
  std::vector<std::string> sTick = hCurve.sYTick;
  const auto KZero = std::find(fTick.begin(), fTick.end(), 0.0f) - fTick.begin();
  if (KZero < std::ssize(fTick)) {
    std::rotate(fTick.begin(), fTick.begin() + KZero, fTick.begin() + KZero + 1);
    std::rotate(sTick.begin(), sTick.begin() + KZero, sTick.begin() + KZero + 1);
  }
  IPgYUserScale(fTick, sTick, "T");
}

/// Texts come before lines as far as may be: lines between two texts are drawn in one call.
void Draw_Axes() {
  Draw_Title();
  Set_Font(hSize10);
  IPgXLabel(sCurveXLabel);
  IPgYLabelLeft(hCurve.sYLabel.trimmed(), fYLabelPlace);
  Set_Font(hSize8);
  IPgXScale("TN");
  Draw_Y_Ticks();
  IPgBorder();
}

void Draw_Zero_Line() {
  const CurveRange& r = hCurve.hRange;
  if (r.fYPgMin <= 0.0f && r.fYPgMax >= 0.0f) IPgJoin2(InfoPgReal(iPlotXMin), 0.0f, InfoPgReal(iPlotXMax), 0.0f);
}

// Live points, then skipped ones: lines of one colour and type are drawn in one call.

void Set_Colour(L4 bSkip) {
  IGrColour(bSkip ? "MAGENTA" : "BLACK");
}

/// A line to the right. Times that fall back or repeat are not joined.
void Draw_Forward(const GrPoint& h1, const GrPoint& h2) {
  if (h2.fX <= h1.fX) return;
  IGrMoveTo(h1.fX, h1.fY);
  IGrLineTo(h2.fX, h2.fY);
}

/// Each point owns the curve from the middle of the way before it to the middle of the way behind it. A curve of one
/// point is no line.
void Draw_Curve(const Array1<GrPoint, MTW>& hPoint, L4 bSkip) {
  IGrLineWidth(fCurveWidth);
  IGrLineType(bSkip ? LineType::Dashed : LineType::Solid);
  for (I4 I = 1; I <= hCurve.NPobs; ++I) {
    if (hCurve.bSkip(I) != bSkip) continue;
    if (I > 1) Draw_Forward(Middle(hPoint(I - 1), hPoint(I)), hPoint(I));
    if (I < hCurve.NPobs) Draw_Forward(hPoint(I), Middle(hPoint(I), hPoint(I + 1)));
  }
  IGrLineType(LineType::Solid);
  IGrLineWidth(fAxisWidth);
}

void Draw_Error_Bars(L4 bSkip) {
  constexpr R4 fPercent = 100.0f;
  for (I4 I = 1; I <= hCurve.NPobs; ++I) {
    if (hCurve.bSkip(I) != bSkip || hCurve.fYPobs(I) <= fYErrorBars) continue;
    const R4 fHalf = std::log10(1.0f + hCurve.fYPerr(I) / fPercent);
    IPgJoin2(hCurve.fXPobs(I), hCurve.fYPobs(I) - fHalf, hCurve.fXPobs(I), hCurve.fYPobs(I) + fHalf);
  }
}

void Draw_Symbols(const Array1<GrPoint, MTW>& hPoint, L4 bSkip, std::string_view sSymbol) {
  Set_Colour(bSkip);
  for (I4 I = 1; I <= hCurve.NPobs; ++I) {
    if (hCurve.bSkip(I) == bSkip && In_View(I)) WGrTextString(hPoint(I).fX, hPoint(I).fY, sSymbol);
  }
}

void Draw_Data(std::string_view sSymbol) {
  Array1<GrPoint, MTW> hPoint;
  for (I4 I = 1; I <= hCurve.NPobs; ++I) hPoint(I) = Gr_Point(I);
  IPgClipRectangle("P");
  for (const L4 bSkip : {false, true}) {
    Set_Colour(bSkip);
    Draw_Curve(hPoint, bSkip);
    Draw_Error_Bars(bSkip);
  }
  IPgClipRectangle("G");  // a letter on the edge of the plot is shown whole
  WGrTextOrientation(Justify::Centre, 0.0f);
  for (const L4 bSkip : {false, true}) Draw_Symbols(hPoint, bSkip, sSymbol);
  IGrColour("BLACK");
}

std::string_view Symbol(I4 iPltCmp) {
  constexpr auto sSymbol = Words("X", "Y", "Z");
  return iPltCmp >= iCmpRef ? std::string_view("R") : sSymbol(hCurve.iXYZ);
}

// ---- gestures

/// Flags a point, in the plot and in its time window.
void Put_Flag(Transient& hTrnK, I4 I, L4 bSetSkip) {
  hCurve.bSkip(I) = bSetSkip;
  const I4 ITW = hCurve.ITWofIPlt(I);
  if (ITW >= 1 && ITW <= hTrnK.NTW) hTrnK.bSkip(ITW) = bSetSkip;
}

/// The nearest point in view whose flag would change; 0: none in reach.
I4 Nearest_Point(L4 bSetSkip, const GrPoint& hClick, R4 fReach) {
  I4 INearest = 0;
  for (I4 I = 1; I <= hCurve.NPobs; ++I) {
    if (hCurve.bSkip(I) == bSetSkip || !In_View(I)) continue;
    const GrPoint h = Gr_Point(I);
    const R4 fDistance = std::hypot(h.fX - hClick.fX, h.fY - hClick.fY);
    if (fDistance > fReach || (fDistance == fReach && INearest != 0)) continue;
    fReach = fDistance;
    INearest = I;
  }
  return INearest;
}

/// Moves the ends of a span apart, about its middle, to at least twice fHalf.
void Widen(R4& f1, R4& f2, R4 fHalf) {
  const R4 fMiddle = 0.5f * (f1 + f2);
  fHalf = std::max(fHalf, 0.5f * std::abs(f2 - f1));
  f1 = fMiddle - fHalf;
  f2 = fMiddle + fHalf;
}

}  // namespace

void QCC_Plot_Initialize(const Transient& hTrnK, I4& iPlotType, I4& NPlotType, CurveTypeNames& sPlotType, I4& iPltCmp,
                         I4& iError) {
  iError = 1;
  NPlotType = 1;
  sPlotType.fill("none");
  hCurve = CurvePlot{};
  iPltCmp = Is_Component(hTrnK.iRxCmp) ? hTrnK.iRxCmp : iCmpRef;
  hCurve.iXYZ = (iPltCmp - 1) % 3 + 1;
  const I4 iHighest = Highest_Type(hTrnK, iPltCmp);
  if (iHighest < 1) return;

  NPlotType = iHighest;
  Name_Types(iPltCmp, hCurve.iXYZ, sPlotType);
  iPlotType = std::clamp(iPlotType, 1, NPlotType);
  Add_Points(hTrnK, iPlotType);
  Set_Labels(hTrnK, iPltCmp, iPlotType);
  Set_Range(hCurve.hRange0);
  iError = hCurve.NPobs < 1 ? 1 : 0;
}

void QCC_Plot_Trns(I4 iPltCmp, I4& iError) {
  iError = hCurve.NPobs < 1 ? 1 : 0;
  Clear_Window();
  if (iError != 0) return IPgForget();  // no units of an earlier curve

  IGrColour("BLACK");
  IGrLineType(LineType::Solid);
  IGrLineWidth(fAxisWidth);
  Set_Plot_Units();
  Draw_Axes();
  Draw_Zero_Line();
  Draw_Data(Symbol(iPltCmp));
  IGrFlush();
  InqWintError("QCC_Plot_Trns");
}

void QCC_SkipPoint(Transient& hTrnK, L4 bSetSkip, R4 fXGr1, R4 fYGr1, R4 fRGrMax, I4& iError) {
  iError = hCurve.NPobs < 1 ? 1 : 0;
  const I4 I = Nearest_Point(bSetSkip, {fXGr1, fYGr1}, fRGrMax);
  if (I != 0) Put_Flag(hTrnK, I, bSetSkip);
}

void QCC_SkipBox(Transient& hTrnK, L4 bSetSkip, R4 fXGr1, R4 fYGr1, R4 fXGr2, R4 fYGr2, I4& iError) {
  iError = hTrnK.NTW < 1 || hCurve.NPobs < 1 ? 1 : 0;
  if (iError != 0) return;
  R4 fX1 = 0.0f, fY1 = 0.0f, fX2 = 0.0f, fY2 = 0.0f;
  IPgUnitsFromGrUnits(std::min(fXGr1, fXGr2), std::min(fYGr1, fYGr2), fX1, fY1);
  IPgUnitsFromGrUnits(std::max(fXGr1, fXGr2), std::max(fYGr1, fYGr2), fX2, fY2);
  for (I4 I = 1; I <= hCurve.NPobs; ++I) {
    const R4 fX = hCurve.fXPobs(I);
    const R4 fY = hCurve.fYPobs(I);
    if (fX >= fX1 && fX <= fX2 && fY >= fY1 && fY <= fY2) Put_Flag(hTrnK, I, bSetSkip);
  }
}

void QCC_Zoom_Box(R4 fXGr1, R4 fYGr1, R4 fXGr2, R4 fYGr2) {
  if (hCurve.NPobs < 1) return;
  Widen(fXGr1, fXGr2, fZoomHalfX);
  Widen(fYGr1, fYGr2, fZoomHalfY);
  CurveRange r;
  IPgUnitsFromGrUnits(fXGr1, fYGr1, r.fXPgMin, r.fYPgMin);
  IPgUnitsFromGrUnits(fXGr2, fYGr2, r.fXPgMax, r.fYPgMax);
  const bool bGood = r.fXPgMin > 0.0f && std::isfinite(r.fXPgMax) && std::isfinite(r.fYPgMax - r.fYPgMin);
  if (bGood) Set_Range(r);  // times at the ends of what a float holds leave no room for a wider axis
}

void QCC_Zoom_All() {
  if (hCurve.NPobs >= 1) Set_Range(hCurve.hRange0);
}

}  // namespace quillan
