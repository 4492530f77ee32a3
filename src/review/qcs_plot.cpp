#include "review/qcs_plot.h"

#include <algorithm>
#include <cmath>

#include "foundations/str_write.h"
#include "metadata/enm_data.h"
#include "model/tmd_data.h"
#include "review/plot/text_size.h"
#include "review/plot/ticks.h"
#include "toolkit/draw/draw.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/draw/plot_axes.h"

namespace quillan {
namespace {

// Part of the drawing area that the plot has.
constexpr R4 fPlotXMin = 0.08f, fPlotXMax = 0.95f;
// A little room below: a marker on the lower edge is whole.
constexpr R4 fPlotYMin = 0.006f, fPlotYMax = 0.87f;
constexpr R4 fPlotYMaxLeast = 0.5f;          // where long station labels take what is above
constexpr R4 fPlotLeft = fPlotXMin * fXCMU;  // graphics units
constexpr R4 fPlotMiddle = 0.5f * (fPlotXMin + fPlotXMax) * fXCMU;
constexpr R4 fTypeOffset = 1.2f;   // graphics units from the plot to the name of what is plotted
constexpr R4 fYUM = 0.5f;          // character heights between the plot and a station label
constexpr R4 fLabelClear = 1.15f;  // character heights between the middles of two station labels
constexpr R4 fTitleLine1 = 0.6f;   // character heights from the upper edge to the middles of the lines of title
constexpr R4 fTitleLine2 = 1.6f;
constexpr R4 fTitleEnd = 2.1f;  // and to the lower edge of the second
constexpr I4 MSectionTick = 45;

constexpr TextSize hSize6{0.0039249f, 0.0118921f};
constexpr TextSize hSize8{0.0052332f, 0.0158562f};
constexpr TextSize hSize10{0.0065415f, 0.0198202f};
constexpr TextSize hSize12{0.0078498f, 0.0237843f};
constexpr TextSize hTitleSize[] = {hSize12, hSize10, hSize8};

constexpr I4 iColourLive = 0;
constexpr I4 iColourSkipped = 200 + 256 * 200 + 65536 * 200;
constexpr I4 iColourRim = 96 + 256 * 96 + 65536 * 96;

constexpr R4 fCrowded = 3.0f;      // pixels between soundings; closer ones have small markers
constexpr R4 fSmallMarker = 0.5f;  // of the distance between them
constexpr R4 fLeastMarker = 1.0f;  // pixels: a line's width
constexpr R4 fRim = 0.75f;         // pixels, of the marker of a skipped point
constexpr R4 fLeastRimmed = 3.0f;  // pixels: a smaller marker has no room for a rim

const Transient& First_of(I4 iSection) {
  return hTrn(hSection(iSection).iTrnBeg);
}

// ---- axes

/// Width of a line of upright text that is turned to read upward, in plot units of X.
R4 Turned_Line_Width(const PlotRange& hRange) {
  const GrPoint hPixel = IGrPixelSize();
  const R4 fUnits = InfoGraphics(iCharHeight) / hPixel.fY * hPixel.fX;
  return fUnits * (hRange.fXPmax - hRange.fXPmin) / ((fPlotXMax - fPlotXMin) * fXCMU);
}

/// The labels of the stations in view, with the font in force.
std::vector<StationLabel> Labels_in_View(I4 iSection, const PlotRange& hRange) {
  return QCS_Station_Labels(iSection, hRange, fLabelClear * Turned_Line_Width(hRange));
}

R4 Label_Rise() {
  return fYUM * InfoGraphics(iCharHeight);
}

/// The upper edge of the plot as part of the area: lower than usual where station labels would reach the title lines,
/// as they do in a small window, whose letters are not as small as the window.
R4 Plot_Top(I4 iSection, const PlotRange& hRange) {
  Use_Font(hSize12);
  const R4 fRoomEnd = fYCMU - fTitleEnd * InfoGraphics(iCharHeight);
  Use_Font(hSize10);
  R4 fLongest = 0.0f;
  for (const StationLabel& h : Labels_in_View(iSection, hRange)) {
    if (!h.sLabel.empty()) fLongest = std::max(fLongest, WGrTextLength(h.sLabel));
  }
  const GrPoint hPixel = IGrPixelSize();
  const R4 fUpright = fLongest / hPixel.fX * hPixel.fY;
  return std::clamp((fRoomEnd - Label_Rise() - fUpright) / fYCMU, fPlotYMaxLeast, fPlotYMax);
}

/// Diameters in pixels, one a column of the section, as far as its stations have room.
std::vector<R4> Marker_Sizes(const PlotRange& hRange) {
  Use_Font(hSize6);
  const GrPoint hPixel = IGrPixelSize();
  const R4 fXPixels = (fPlotXMax - fPlotXMin) * fXCMU / hPixel.fX;
  return QCS_Marker_Sizes(fXPixels / (hRange.fXPmax - hRange.fXPmin), 0.5f * InfoGraphics(iCharHeight) / hPixel.fY);
}

void Draw_Stations(I4 iSection, const PlotRange& hRange) {
  Use_Font(hSize10);
  WGrTextOrientation(Justify::Left, -90.0f);
  const std::vector<StationLabel> hLabel = Labels_in_View(iSection, hRange);
  const auto Place = [&hRange](const StationLabel& h) { return IPgUnitsToGrUnits(h.fX, hRange.fYPmax); };
  for (const StationLabel& h : hLabel) {
    if (!h.sLabel.empty()) WGrTextString(Place(h).fX, Place(h).fY + Label_Rise(), h.sLabel);
  }
  const std::vector<R4> fSize = Marker_Sizes(hRange);
  for (std::size_t J = 0; J < fSize.size(); ++J) {
    const R4 fX = hScaled.hColumn[J].fX;
    if (hRange.Has_X(fX)) IPgDisc(fX, hRange.fYPmax, fSize[J]);
  }
}

void Draw_Scale(const PlotRange& hRange) {
  const Ticks h = Zero_First(Asinh10_Ticks(hRange.fYPmin, hRange.fYPmax, fYPScale, MSectionTick));
  Use_Font(hSize8);
  IPgYUserScale(h.fYTick, h.sYTick, "I");
}

/// The plot type upward beside the scale, and two lines of title at the upper edge of the area, clear of the station
/// labels and of the tool window.
void Draw_Titles(I4 iSection, std::string_view sPlotType, const TitleRoom& hRoom) {
  Use_Font(hSize10);
  WGrTextOrientation(Justify::Centre, -90.0f);
  WGrTextString(fPlotLeft - fTypeOffset, 0.5f * (fPlotYMin + fPlotYMax) * fYCMU, sPlotType);
  Use_Font(hSize12);
  const R4 fLine = InfoGraphics(iCharHeight);
  const auto Draw_Line = [&](std::string_view sLine, R4 fDown) {
    Draw_Plot_Title(sLine, {fPlotMiddle, fYCMU - fDown * fLine, 0.0f, hRoom}, hTitleSize);
  };
  Draw_Line(QCS_Section_Title(iSection), fTitleLine1);
  Draw_Line(sPlotType, fTitleLine2);
}

void Set_Plot_Units(I4 iSection, const PlotRange& hRange) {
  WindowClear();
  IGrArea(0.0f, 0.0f, 1.0f, 1.0f);
  IGrUnits(0.0f, 0.0f, fXCMU, fYCMU);
  IPgArea(fPlotXMin, fPlotYMin, fPlotXMax, Plot_Top(iSection, hRange));
  IPgScaling(Scaling::Linear, Scaling::Linear);
  IPgUnits(hRange.fXPmin, hRange.fYPmin, hRange.fXPmax, hRange.fYPmax);
}

void Draw_Axes(I4 iSection, I4 iPlotType, const PlotRange& hRange, const TitleRoom& hRoom) {
  IGrColour("BLACK");
  IPgBorder();
  Draw_Stations(iSection, hRange);
  Draw_Scale(hRange);
  Draw_Titles(iSection, Section_Type(First_of(iSection).iRxCmp, iPlotType), hRoom);
}

/// Where profiles change their sign.
void Draw_Zero_Line(const PlotRange& hRange) {
  if (!hRange.Has_Y(0.0f)) return;
  IGrColour("GREY");
  IPgJoin2(hRange.fXPmin, 0.0f, hRange.fXPmax, 0.0f);
}

/// The markers of one colour.
struct Layer {
  L4 bSkip;
  I4 iColour;
  R4 fInward;  // pixels from the edge of the marker
};
// Skipped points first: where they crowd, the live ones stay in sight. The rim of a skipped one is seen among lines.
constexpr Layer hLayer[] = {
    {true,  iColourRim,     0.0f},
    {true,  iColourSkipped, fRim},
    {false, iColourLive,    0.0f},
};

void Draw_Markers(const PlotRange& hRange) {
  const std::vector<R4> fSize = Marker_Sizes(hRange);
  const bool bRims = std::ranges::any_of(fSize, [](R4 f) { return f >= fLeastRimmed; });
  for (const Layer& hOf : hLayer) {
    if (hOf.iColour == iColourRim && !bRims) continue;
    IGrColourN(hOf.iColour);
    QCS_Visit_Points(hRange, [&](const SectionPoint& h) {
      if (h.bSkip != hOf.bSkip) return;
      const R4 f = fSize[static_cast<std::size_t>(h.iTrn - hScaled.iTrnBeg)];
      if (f >= fLeastRimmed || hOf.iColour != iColourRim)
        IPgDisc(h.fX, h.fY, f >= fLeastRimmed ? f - 2.0f * hOf.fInward : f);
    });
  }
}

/// Lines first: a marker over them shows its own colour.
void Draw_Profiles(const PlotRange& hRange) {
  IPgClipRectangle("P");
  IGrLineType(LineType::Solid);
  IGrLineWidth(1.0f);
  Draw_Zero_Line(hRange);
  IGrColourN(iColourLive);
  QCS_Visit_Joins(hRange, IPgJoin2);
  Draw_Markers(hRange);
  IPgClipRectangle("G");
}

void Draw_Section(I4 iSection, I4 iPlotType, const PlotRange& hRange, const TitleRoom& hRoom) {
  Set_Plot_Units(iSection, hRange);
  Draw_Profiles(hRange);
  Draw_Axes(iSection, iPlotType, hRange, hRoom);
}

}  // namespace

I4 QCS_Section_Plot(I4 iSection, I4 iPlotType, const PlotRange& hRange, const TitleRoom& hTitleRoom) {
  if (QCS_Check_Section("QCS_Section_Plot", iSection, iPlotType) != 0) return 1;
  Draw_Section(iSection, iPlotType, hRange, hTitleRoom);
  InqWintError("QCS_Section_Plot");
  return 0;
}

I4 QCS_Section_Plot_File(std::string_view sFile, const PictureKind& hKind, const SectionPlot& h,
                         std::string_view sSmallPrint) {
  if (QCS_Check_Section("QCS_Section_Plot", h.iSection, h.iPlotType) != 0) return 1;
  return Plot_into_File(
      hKind, sFile, [&h] { Draw_Section(h.iSection, h.iPlotType, h.hRange, {}); }, sSmallPrint);
}

I4 QCS_Section_Plot_PNG(std::string_view sPltFile, I4 iSection, I4 iPlotType, const PlotRange& hRange) {
  return QCS_Section_Plot_File(sPltFile, hPngKind, {iSection, iPlotType, hRange});
}

I4 QCS_Section_Plot_WMF(std::string_view sPltFile, I4 iSection, I4 iPlotType, const PlotRange& hRange) {
  return QCS_Section_Plot_File(sPltFile, hWmfKind, {iSection, iPlotType, hRange});
}

std::string QCS_Section_Title(I4 iSection) {
  const Transient& h = First_of(iSection);
  std::string sTitle(Held_Entry(sTemArray, hTemSurvey.iTemArray));
  if (!hTemSurvey.sLineName.Is_Blank()) sTitle += " Line " + hTemSurvey.sLineName.str();
  if (hTemSurvey.iTemArray == iArrayMVL) {
    sTitle += ",  Rx.Stn-Tx.Stn=" + Str_Write_R4(static_cast<R4>(h.dRxKvrStn - h.dTxKvrStn), "(F14.1)").str();
  }
  return sTitle + ",  Tx.Freq=" + Str_Write_R4(h.fTxFreq, "(1P,G14.4E1)").str();
}

std::vector<StationLabel> QCS_Station_Labels(I4 iSection, const PlotRange& hRange, R4 fClear) {
  std::vector<StationLabel> hLabel;
  R4 fXLast = fDummy;
  for (I4 j = hSection(iSection).iTrnBeg; j <= hSection(iSection).iTrnEnd; ++j) {
    const R4 fX = static_cast<R4>(hTrn(j).dRxKvrStn);
    if (fX > hRange.fXPmax) break;
    if (fX < hRange.fXPmin) continue;
    StationLabel h{fX, {}};
    if (std::abs(fX - fXLast) >= fClear) {
      h.sLabel = Str_Write_R4(fX, "(F14.1)").str();
      fXLast = fX;
    }
    hLabel.push_back(h);
  }
  return hLabel;
}

std::vector<R4> QCS_Marker_Sizes(R4 fPixelsAUnit, R4 fFull) {
  std::vector<R4> fStn;           // different stations in a row
  std::vector<std::size_t> KStn;  // of which a column has which
  for (const ScaledSection::Column& h : hScaled.hColumn) {
    if (fStn.empty() || fStn.back() != h.fX) fStn.push_back(h.fX);
    KStn.push_back(fStn.size() - 1);
  }
  std::vector<R4> fSize;
  for (const std::size_t K : KStn) {
    const std::size_t K1 = K > 0 ? K - 1 : K, K2 = std::min(K + 1, fStn.size() - 1);
    const R4 fApart = K2 == K1 ? fCrowded : std::abs(fStn[K2] - fStn[K1]) / static_cast<R4>(K2 - K1) * fPixelsAUnit;
    fSize.push_back(fApart >= fCrowded ? fFull : std::max(fSmallMarker * fApart, fLeastMarker));
  }
  return fSize;
}

}  // namespace quillan
