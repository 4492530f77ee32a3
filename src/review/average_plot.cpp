#include "review/average_plot.h"

#include <cmath>
#include <vector>

#include "foundations/str_write.h"
#include "review/average_curves.h"
#include "toolkit/draw/draw.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/draw/plot_axes.h"

namespace quillan {
namespace {

constexpr I4 iWhite = 0xFFFFFF;
constexpr R4 fRepeatWidth = 3.0f;   // pixels: a repeat is seen on both sides of the average, which lies on it
constexpr R4 fDigitHeight = 0.75f;  // of the em
constexpr R4 fDiscMargin = 2.0f;    // pixels

void Set_Style(L4 bSkip) {
  IGrColour(bSkip ? "MAGENTA" : "BLACK");
  IGrLineType(bSkip ? LineType::Dashed : LineType::Solid);
}

Array1<GrPoint, MTW> Places(const AverageCurve& h) {
  Array1<GrPoint, MTW> hPoint;
  for (I4 I = 1; I <= h.NTW; ++I) hPoint(I) = IPgUnitsToGrUnits(h.fXPg(I), h.fYPg(I));
  return hPoint;
}

void Draw_Error_Bar(const AverageCurve& h, I4 I) {
  const bool bBar = Is_Present(h.fYPgErr1(I)) && Is_Present(h.fYPgErr2(I));
  if (bBar) IPgJoin2(h.fXPg(I), h.fYPgErr1(I), h.fXPg(I), h.fYPgErr2(I));
}

void Draw_Repeat(I4 K) {
  const AverageCurve& h = hAveragePlot.hCurve(K);
  const Array1<GrPoint, MTW> hPoint = Places(h);
  IGrLineWidth(fRepeatWidth);
  for (I4 I = 1; I <= h.NTW; ++I) {
    Set_Style(hAveragePlot.Is_Skipped(K, I));
    Decay_Stroke(hPoint, h.NTW, I);
  }
  IGrLineWidth(fDecayAxisWidth);
  for (I4 I = 1; I <= h.NTW; ++I) {
    Set_Style(hAveragePlot.Is_Skipped(K, I));
    if (h.fYPg(I) > fYErrorBars) Draw_Error_Bar(h, I);
  }
}

void Draw_Average() {
  const AverageCurve& h = hAveragePlot.hCurve(0);
  const Array1<GrPoint, MTW> hPoint = Places(h);
  IGrColour("GREEN");
  IGrLineType(LineType::Solid);
  IGrLineWidth(fDecayWidth);
  for (I4 I = 1; I <= h.NTW; ++I) Decay_Stroke(hPoint, h.NTW, I);
  IGrLineWidth(fDecayAxisWidth);
}

void Draw_Average_Errors() {
  const AverageCurve& h = hAveragePlot.hCurve(0);
  IGrColour("GREEN");
  IPgClipRectangle("P");
  for (I4 I = 1; I <= h.NTW; ++I) Draw_Error_Bar(h, I);
  IPgClipRectangle("G");  // a number on the edge of the plot is shown whole
}

/// Every number that a point may have.
std::vector<RepeatLabel> All_Labels() {
  std::vector<RepeatLabel> hLabel;
  for (I4 K = 1; K <= hAveragePlot.NRepeat; ++K) {
    const Array1<GrPoint, MTW> hPoint = Places(hAveragePlot.hCurve(K));
    for (I4 I = 1; I <= hAveragePlot.hCurve(K).NTW; ++I) hLabel.push_back({K, I, hPoint(I)});
  }
  return hLabel;
}

/// Numbers stand on the lines, each on a white disc, which hides no error bar of the average.
void Draw_Labels() {
  const GrPoint hPixel = IGrPixelSize();
  const std::string_view sWidest = hAveragePlot.NRepeat < 10 ? "0" : "00";
  const R4 fDisc = fDiscMargin +
                   std::hypot(WGrTextLength(sWidest) / hPixel.fX, fDigitHeight * InfoGraphics(iCharHeight) / hPixel.fY);
  auto& hLabel = hAveragePlot.hLabel;
  hLabel = Labels_with_Room(All_Labels(), {fDisc * hPixel.fX, fDisc * hPixel.fY});
  IPgClipRectangle("G");
  IGrColourN(iWhite);
  for (const RepeatLabel& h : hLabel) IGrDisc(h.h.fX, h.h.fY, fDisc);
  Draw_Average_Errors();
  WGrTextOrientation(Justify::Centre, 0.0f);
  for (const RepeatLabel& h : hLabel) {
    IGrColour(hAveragePlot.Is_Skipped(h.K, h.I) ? "MAGENTA" : "BLACK");
    WGrTextString(h.h.fX, h.h.fY, Str_Write_I4(h.K).trimmed());
  }
}

}  // namespace

I4 TMD_Avg_Plot_Update(const TitleRoom& hTitleRoom) {
  const AveragePlot& h = hAveragePlot;
  Decay_Clear();
  if (h.NRepeat < 1) {
    IPgForget();  // no units of an earlier group
    return 1;
  }
  Decay_Frame({h.hRange, h.sTitle, "dB/dt (uV/amp)", h.hYTick}, hTitleRoom);
  IPgClipRectangle("P");
  for (I4 K = 1; K <= h.NRepeat; ++K) Draw_Repeat(K);
  Draw_Average();
  Draw_Labels();
  IGrColour("BLACK");
  IGrFlush();
  InqWintError("TMD_Avg_Plot_Update");
  return 0;
}

}  // namespace quillan
