#include "review/qcc_plot.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "foundations/str_parse.h"
#include "foundations/str_write.h"
#include "metadata/enm_data.h"
#include "model/edits.h"
#include "review/plot/plot_types.h"
#include "review/plot/signed_log.h"
#include "review/plot/text_size.h"
#include "toolkit/draw/draw.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/draw/plot_axes.h"

namespace quillan {
namespace {

// ---- what is plotted

bool Is_Usable(const Transient& h, I4 iType, I4 I) {
  const R4 fValue = Plot_Values(h, iType)(I);
  return std::isfinite(fValue) && fValue >= Plot_Type(iType).fCurveLeast;
}

/// The highest plot type of which the transient has a value; 0 when it has none.
I4 Highest_Type(const Transient& h) {
  for (I4 iType = Is_Magnetic(hCurve.iPltCmp) ? MPlotType : 1; iType > 0; --iType) {
    for (I4 I = 1; I <= h.NTW; ++I) {
      if (Is_Usable(h, iType, I)) return iType;
    }
  }
  return 0;
}

void Add_Point(const Transient& h, I4 I) {
  const I4 N = ++hCurve.NPobs;
  hCurve.fXPobs(N) = h.fTWCen(I);
  hCurve.fYPobs(N) = fAsinh10(Plot_Values(h, hCurve.iPlotType)(I), fYDscl);
  hCurve.fYPerr(N) = std::max(0.0f, h.fuVpct(I));
  hCurve.ITWofIPlt(N) = I;
}

/// The range of all points, or of those that are not hidden while there are some.
PlotRange Range_of_Curve() {
  bool bAll = true;
  for (I4 I = 1; I <= hCurve.NPobs; ++I) bAll = bAll && hCurve.Is_Hidden(I);
  PlotRange r{fRangeMin0, fRangeMax0, 0.0f, fAsinh10(fYAlways, fYDscl)};
  for (I4 I = 1; I <= hCurve.NPobs; ++I) {
    if (hCurve.Is_Hidden(I) && !bAll) continue;
    Join_Range(hCurve.fXPobs(I), hCurve.fXPobs(I), r.fXPmin, r.fXPmax);
    Join_Range(hCurve.fYPobs(I), hCurve.fYPobs(I), r.fYPmin, r.fYPmax);
  }
  return r;
}

void Add_Points(const Transient& h) {
  for (I4 I = 1; I <= h.NTW; ++I) {
    // A time at or below 0 has no place on a logarithmic axis.
    const bool bTime = h.fTWCen(I) > 0.0f && std::isfinite(h.fTWCen(I));
    if (bTime && Is_Usable(h, hCurve.iPlotType, I)) Add_Point(h, I);
  }
  hCurve.hRange0 = Range_of_Curve();
}

std::string Separation(const Transient& h) {
  const bool bBoth = Is_Present(h.dRxStn) && Is_Present(h.dTxStn);
  return Str_Write_XYZR8(bBoth ? h.dRxStn - h.dTxStn : dDummy).str();
}

std::string Title(const Transient& h) {
  std::string s = "TxFreq=" + Str_Write_R4(h.fTxFreq, "(1P,G14.4E1)").str();
  s += ", TxStn=" + Str_Write_XYZR8(h.dTxStn).str();
  if (hTemSurvey.iTemArray == iArrayMVL) s += ", RxStn-TxStn=" + Separation(h);
  s += ", RxStn=" + Str_Write_XYZR8(h.dRxStn).str();
  s += ", RxCmp=" + std::string(sChnCmp(hCurve.iPltCmp));
  if (Is_Present(h.dKvrBlk(1)) && Is_Present(h.dKvrBlk(2))) {
    s += ", KvrBlk=" + Str_Write_R8(h.dKvrBlk(1), "(F0.2)").str() + ":" + Str_Write_R8(h.dKvrBlk(2), "(F0.2)").str();
  }
  return s;
}

void Set_Range(const PlotRange& hRange) {
  hCurve.hRange = hRange;
  hCurve.hYTick = Asinh10_Ticks(hRange.fYPmin, hRange.fYPmax, fYDscl, MDecayTick);
}

// ---- drawing

GrPoint Gr_Point(I4 I) {
  return IPgUnitsToGrUnits(hCurve.fXPobs(I), hCurve.fYPobs(I));
}

bool In_View(I4 I) {
  return !hCurve.Is_Hidden(I) && hCurve.hRange.Has(hCurve.fXPobs(I), hCurve.fYPobs(I));
}

// Live points, then skipped ones: lines of one colour and type are drawn in one call.

void Set_Colour(L4 bSkip) {
  IGrColour(bSkip ? "MAGENTA" : "BLACK");
}

void Draw_Curve(const Array1<GrPoint, MTW>& hPoint, L4 bSkip) {
  IGrLineWidth(fDecayWidth);
  IGrLineType(bSkip ? LineType::Dashed : LineType::Solid);
  for (I4 I = 1; I <= hCurve.NPobs; ++I) {
    if (hCurve.Is_Skipped(I) == bSkip) Decay_Stroke(hPoint, hCurve.NPobs, I);
  }
  IGrLineType(LineType::Solid);
  IGrLineWidth(fDecayAxisWidth);
}

void Draw_Error_Bars(L4 bSkip) {
  constexpr R4 fPercent = 100.0f;
  for (I4 I = 1; I <= hCurve.NPobs; ++I) {
    if (hCurve.Is_Skipped(I) != bSkip || hCurve.Is_Hidden(I) || hCurve.fYPobs(I) <= fYErrorBars) continue;
    const R4 fHalf = std::log10(1.0f + hCurve.fYPerr(I) / fPercent);
    IPgJoin2(hCurve.fXPobs(I), hCurve.fYPobs(I) - fHalf, hCurve.fXPobs(I), hCurve.fYPobs(I) + fHalf);
  }
}

void Draw_Symbols(const Array1<GrPoint, MTW>& hPoint, L4 bSkip, std::string_view sSymbol) {
  Set_Colour(bSkip);
  for (I4 I = 1; I <= hCurve.NPobs; ++I) {
    if (hCurve.Is_Skipped(I) == bSkip && In_View(I)) WGrTextString(hPoint(I).fX, hPoint(I).fY, sSymbol);
  }
}

void Draw_Data() {
  Array1<GrPoint, MTW> hPoint;
  constexpr R4 fNowhere = std::numeric_limits<R4>::quiet_NaN();  // a line there is not drawn
  for (I4 I = 1; I <= hCurve.NPobs; ++I) hPoint(I) = hCurve.Is_Hidden(I) ? GrPoint{fNowhere, fNowhere} : Gr_Point(I);
  IPgClipRectangle("P");
  for (const L4 bSkip : {false, true}) {
    Set_Colour(bSkip);
    Draw_Curve(hPoint, bSkip);
    Draw_Error_Bars(bSkip);
  }
  IPgClipRectangle("G");  // a letter on the edge of the plot is shown whole
  WGrTextOrientation(Justify::Centre, 0.0f);
  const std::string sSymbol = Str_UpCase(Component_Letter(hCurve.iPltCmp));
  for (const L4 bSkip : {false, true}) Draw_Symbols(hPoint, bSkip, sSymbol);
  IGrColour("BLACK");
}

void Draw_Plot(const TitleRoom& hTitleRoom) {
  Decay_Clear();
  if (hCurve.NPobs < 1) return IPgForget();  // no units of an earlier curve
  Decay_Frame({hCurve.hRange, hCurve.sTitle.trimmed(), hCurve.sYLabel, hCurve.hYTick}, hTitleRoom);
  Draw_Data();
  IGrFlush();
}

// ---- gestures

/// The point in view nearest to a click, of those that Is_Meant; 0 where none lies within fRGrMax.
template <class Question>
I4 Nearest_Point(const GrPoint& hClick, R4 fRGrMax, Question Is_Meant) {
  I4 INearest = 0;
  for (I4 I = 1; I <= hCurve.NPobs; ++I) {
    if (!In_View(I) || !Is_Meant(I)) continue;
    const GrPoint h = Gr_Point(I);
    const R4 fDistance = std::hypot(h.fX - hClick.fX, h.fY - hClick.fY);
    if (fDistance > fRGrMax || (fDistance == fRGrMax && INearest != 0)) continue;
    fRGrMax = fDistance;
    INearest = I;
  }
  return INearest;
}

}  // namespace

void QCC_Plot_Initialize(I4 j, I4 iPlotType) {
  const Transient& h = hTrn(j);
  hCurve = CurvePlot{};
  hCurve.iTrn = j;
  hCurve.iPltCmp = h.iRxCmp >= 1 && h.iRxCmp <= iCmpOff ? h.iRxCmp : iCmpRef;
  hCurve.iPlotType = iPlotType;
  const I4 NPlotType = Highest_Type(h);
  if (NPlotType < 1) {
    hCurve.sPlotType = {"none"};
    return;
  }
  hCurve.iPlotType = std::clamp(iPlotType, 1, NPlotType);
  for (I4 iType = 1; iType <= NPlotType; ++iType) hCurve.sPlotType.push_back(Curve_Type(hCurve.iPltCmp, iType));
  Add_Points(h);
  hCurve.sTitle = Title(h);
  hCurve.sYLabel = Curve_Label(hCurve.iPltCmp, hCurve.iPlotType);
  Set_Range(hCurve.hRange0);
}

void QCC_Plot_Trns(const TitleRoom& hTitleRoom) {
  Draw_Plot(hTitleRoom);
  InqWintError("QCC_Plot_Trns");
}

I4 QCC_Plot_File(std::string_view sFile, const PictureKind& hKind, std::string_view sSmallPrint) {
  return Plot_into_File(
      hKind, sFile, [] { Draw_Plot({}); }, sSmallPrint);
}

namespace {

I4 Nearest_of_All(const GrPoint& hClick, R4 fRGrMax) {
  return Nearest_Point(hClick, fRGrMax, [](I4) { return true; });
}

I4 Nearest_to_Change(L4 bSetSkip, const GrPoint& hClick, R4 fRGrMax) {
  return Nearest_Point(hClick, fRGrMax, [bSetSkip](I4 I) { return hCurve.Is_Skipped(I) != bSetSkip; });
}

PickedPoint Picked(I4 I) {
  return I == 0 ? PickedPoint{} : PickedPoint{hCurve.iTrn, hCurve.ITWofIPlt(I)};
}

}  // namespace

L4 QCC_SkipPoint(L4 bSetSkip, const GrPoint& hClick, R4 fRGrMax) {
  const L4 bFound = Nearest_of_All(hClick, fRGrMax) != 0;
  const I4 I = Nearest_to_Change(bSetSkip, hClick, fRGrMax);
  if (I != 0) Edit_Window_Flag(hCurve.iTrn, hCurve.ITWofIPlt(I), bSetSkip);
  return bFound;
}

PickedPoint QCC_Nearest_Point(const GrPoint& hClick, R4 fRGrMax) {
  return Picked(Nearest_of_All(hClick, fRGrMax));
}

PickedPoint QCC_Clicked_Point(L4 bSetSkip, const GrPoint& hClick, R4 fRGrMax) {
  const I4 I = Nearest_to_Change(bSetSkip, hClick, fRGrMax);
  return I != 0 ? Picked(I) : QCC_Nearest_Point(hClick, fRGrMax);
}

std::optional<GrPoint> QCC_Place(const PickedPoint& hPoint) {
  for (I4 I = 1; I <= hCurve.NPobs && hPoint.iTrn == hCurve.iTrn; ++I) {
    const bool bThis = hCurve.ITWofIPlt(I) == hPoint.iTwc;
    if (bThis && hCurve.hRange.Has(hCurve.fXPobs(I), hCurve.fYPobs(I))) return Gr_Point(I);
  }
  return std::nullopt;
}

PickedPoint QCC_Step(I4 iTwc, I4 NWindow) {
  I4 IFound = 0;
  for (I4 I = 1; I <= hCurve.NPobs; ++I) {
    const I4 iThis = hCurve.ITWofIPlt(I);
    if (!In_View(I)) continue;
    if (NWindow < 0 && iTwc > 0 && iThis < iTwc) IFound = I;  // the last one before it
    if ((NWindow > 0 || iTwc == 0) && iThis > iTwc && IFound == 0) IFound = I;
  }
  return IFound != 0 ? Picked(IFound) : PickedPoint{hCurve.iTrn, iTwc};
}

PickedPoint QCC_Point_of_Window(I4 iTwc) {
  I4 INearest = 0;
  for (I4 I = 1; I <= hCurve.NPobs; ++I) {
    const auto Away = [iTwc](I4 IAt) { return std::abs(hCurve.ITWofIPlt(IAt) - iTwc); };
    if (In_View(I) && (INearest == 0 || Away(I) < Away(INearest))) INearest = I;
  }
  return Picked(INearest);
}

void QCC_Follow_Range() {
  if (hCurve.NPobs < 1) return;
  const PlotRange hWhole = Range_of_Curve();
  if (hCurve.hRange == hCurve.hRange0) Set_Range(hWhole);
  hCurve.hRange0 = hWhole;
}

L4 QCC_SkipBox(L4 bSetSkip, const GrBox& hBox) {
  if (hCurve.NPobs < 1) return false;
  const PlotRange r = Range_of_Box(hBox);
  L4 bFound = false;
  for (I4 I = 1; I <= hCurve.NPobs; ++I) {
    if (hCurve.Is_Hidden(I) || !r.Has(hCurve.fXPobs(I), hCurve.fYPobs(I))) continue;
    bFound = true;
    Edit_Window_Flag(hCurve.iTrn, hCurve.ITWofIPlt(I), bSetSkip);
  }
  return bFound;
}

void QCC_Zoom_Box(const GrBox& hBox) {
  if (hCurve.NPobs < 1) return;
  const PlotRange r = Range_of_Box(Zoom_Box(hBox));
  const bool bGood = r.fXPmin > 0.0f && std::isfinite(r.fXPmax) && std::isfinite(r.fYPmax - r.fYPmin);
  if (bGood) Set_Range(r);  // times at the ends of what a float holds leave no room for a wider axis
}

void QCC_Zoom_All() {
  if (hCurve.NPobs >= 1) Set_Range(hCurve.hRange0);
}

}  // namespace quillan
