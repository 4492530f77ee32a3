#include "review/qcs_plot.h"

#include <cmath>

#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "metadata/enm_data.h"
#include "model/tmd_data.h"
#include "review/plot/text_size.h"
#include "review/plot/ticks.h"
#include "toolkit/draw/draw.h"
#include "toolkit/draw/hardcopy.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/draw/plot_axes.h"

namespace quillan {
namespace {

// Part of the drawing area that the plot has.
constexpr R4 fPlotXMin = 0.08f, fPlotXMax = 0.95f;
constexpr R4 fPlotYMin = 0.0f, fPlotYMax = 0.87f;
constexpr R4 fPlotTop = fPlotYMax * fYCMU;   // graphics units
constexpr R4 fPlotLeft = fPlotXMin * fXCMU;  // graphics units
constexpr R4 fPlotMiddle = 0.5f * (fPlotXMin + fPlotXMax) * fXCMU;
constexpr R4 fTypeOffset = 1.2f;   // graphics units from the plot to the name of what is plotted
constexpr R4 fYUM = 0.5f;          // character heights between the plot and a station label
constexpr R4 fLabelClear = 1.15f;  // character heights between the middles of two station labels
constexpr I4 MSectionTick = 45;

constexpr TextSize hSize6{0.0039249f, 0.0118921f};
constexpr TextSize hSize8{0.0052332f, 0.0158562f};
constexpr TextSize hSize10{0.0065415f, 0.0198202f};
constexpr TextSize hSize12{0.0078498f, 0.0237843f};

constexpr I4 iColourLive = 0;
constexpr I4 iColourSkipped = 200 + 256 * 200 + 65536 * 200;

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

void Draw_Stations(I4 iSection, const PlotRange& hRange) {
  Use_Font(hSize10);
  WGrTextOrientation(Justify::Left, -90.0f);
  const R4 fRise = fYUM * InfoGraphics(iCharHeight);
  const std::vector<StationLabel> hLabel =
      QCS_Station_Labels(iSection, hRange, fLabelClear * Turned_Line_Width(hRange));
  const auto fXGr = [&hRange](const StationLabel& h) { return IPgUnitsToGrUnits(h.fX, hRange.fYPmax).fX; };
  for (const StationLabel& h : hLabel) {
    if (!h.sLabel.empty()) WGrTextString(fXGr(h), fPlotTop + fRise, h.sLabel);
  }
  Use_Font(hSize6);
  for (const StationLabel& h : hLabel) IGrMarker(fXGr(h), fPlotTop, iMarkerDisc);
}

void Draw_Scale(const PlotRange& hRange) {
  const Ticks h = Asinh10_Ticks(hRange.fYPmin, hRange.fYPmax, fYPScale, MSectionTick);
  Use_Font(hSize8);
  IPgYUserScale(h.fYTick, h.sYTick, "I");
}

/// The plot type upward beside the scale, and two lines of title at the upper edge of the area, clear of the station
/// labels.
void Draw_Titles(I4 iSection, std::string_view sPlotType) {
  Use_Font(hSize10);
  WGrTextOrientation(Justify::Centre, -90.0f);
  WGrTextString(fPlotLeft - fTypeOffset, 0.5f * (fPlotYMin + fPlotYMax) * fYCMU, sPlotType);
  Use_Font(hSize12);
  WGrTextOrientation(Justify::Centre, 0.0f);
  const R4 fLine = InfoGraphics(iCharHeight);
  WGrTextString(fPlotMiddle, fYCMU - 0.6f * fLine, QCS_Section_Title(iSection));
  WGrTextString(fPlotMiddle, fYCMU - 1.6f * fLine, sPlotType);
}

void Set_Plot_Units(const PlotRange& hRange) {
  WindowClear();
  IGrArea(0.0f, 0.0f, 1.0f, 1.0f);
  IGrUnits(0.0f, 0.0f, fXCMU, fYCMU);
  IPgArea(fPlotXMin, fPlotYMin, fPlotXMax, fPlotYMax);
  IPgScaling(Scaling::Linear, Scaling::Linear);
  IPgUnits(hRange.fXPmin, hRange.fYPmin, hRange.fXPmax, hRange.fYPmax);
}

void Draw_Axes(I4 iSection, I4 iPlotType, const PlotRange& hRange) {
  IPgClipRectangle("G");
  IGrColour("BLACK");
  IGrLineType(LineType::Solid);
  IGrLineWidth(1.0f);
  IPgBorder();
  Draw_Stations(iSection, hRange);
  Draw_Scale(hRange);
  Draw_Titles(iSection, Section_Type(First_of(iSection).iRxCmp, iPlotType));
}

/// Where profiles change their sign.
void Draw_Zero_Line(const PlotRange& hRange) {
  if (!hRange.Has_Y(0.0f)) return;
  IGrColour("GREY");
  IPgJoin2(hRange.fXPmin, 0.0f, hRange.fXPmax, 0.0f);
}

void Draw_Profiles(const PlotRange& hRange) {
  IPgClipRectangle("P");
  IGrLineWidth(1.0f);
  Draw_Zero_Line(hRange);
  Use_Font(hSize6);
  // Skipped points first: where they crowd, the live ones stay in sight.
  for (const bool bSkip : {true, false}) {
    IGrColourN(bSkip ? iColourSkipped : iColourLive);
    QCS_Visit_Points(hRange, [&](const SectionPoint& h) {
      if (h.bSkip == bSkip) IPgMarker(h.fX, h.fY, iMarkerDisc);
    });
  }
  IGrColourN(iColourLive);
  QCS_Visit_Joins(hRange, IPgJoin2);
  IPgClipRectangle("G");
}

// ---- files

struct Picture {
  HardCopyDriver iDriver;
  I4 NWidth, NHeight;
};
constexpr Picture hPng{HardCopyDriver::Png, 3780, 2803};       // pixels, 24 by 17.8 cm at 400 dots an inch
constexpr Picture hWmf{HardCopyDriver::Metafile, 2880, 2136};  // at 120 units a centimetre

I4 Plot_into_File(const Picture& hPicture, std::string_view sFile, I4 iSection, I4 iPlotType, const PlotRange& hRange) {
  if (QCS_Check_Section("QCS_Section_Plot", iSection, iPlotType) != 0) return 1;
  const GraphicsKeeper keeper;
  IGrHardCopySelect(hPicture.iDriver);
  IGrHardCopySize(hPicture.NWidth, hPicture.NHeight);
  IGrHardCopy(sFile);
  const I4 iError = QCS_Section_Plot(iSection, iPlotType, hRange);
  if (IGrHardCopyEnd()) return iError;
  InqWintError("TS_Plot_Profile " + std::string(File_Name(sFile)));
  LogErr({"ERROR writing file " + std::string(sFile), "The plot is not exported."});
  return 1;
}

}  // namespace

I4 QCS_Section_Plot(I4 iSection, I4 iPlotType, const PlotRange& hRange) {
  if (QCS_Check_Section("QCS_Section_Plot", iSection, iPlotType) != 0) return 1;
  Set_Plot_Units(hRange);
  Draw_Axes(iSection, iPlotType, hRange);
  Draw_Profiles(hRange);
  InqWintError("QCS_Section_Plot");
  return 0;
}

I4 QCS_Section_Plot_PNG(std::string_view sPltFile, I4 iSection, I4 iPlotType, const PlotRange& hRange) {
  return Plot_into_File(hPng, sPltFile, iSection, iPlotType, hRange);
}

I4 QCS_Section_Plot_WMF(std::string_view sPltFile, I4 iSection, I4 iPlotType, const PlotRange& hRange) {
  return Plot_into_File(hWmf, sPltFile, iSection, iPlotType, hRange);
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

}  // namespace quillan
