#include "review/decay_frame.h"

#include "toolkit/draw/draw.h"
#include "toolkit/draw/plot_axes.h"

namespace quillan {
namespace {

constexpr R4 fPlotLeft = 5.0f;     // graphics units, X of the left edge of the plot
constexpr R4 fPlotMiddle = 13.8f;  // X of its middle
constexpr R4 fTitleY = 18.11f;     // Y of the middle of the title
constexpr R4 fYLabelPlace = 0.9f;  // of the way from the plot to the edge of the window

constexpr TextSize hTitleSize[] = {
    {0.01255968f, 0.028224f},
    hDecaySize10, hDecaySize8
};

void Set_Plot_Units(const PlotRange& r) {
  IPgArea(0.1f, 0.1f, 0.98f, 0.95f);
  IPgScaling(Scaling::Logarithmic, Scaling::Linear);
  IPgUnits(r.fXPmin, r.fYPmin, r.fXPmax, r.fYPmax);
}

/// Texts come before lines as far as may be: lines between two texts are drawn in one call.
void Draw_Axes(const DecayPlot& h, const TitleRoom& hRoom) {
  Draw_Plot_Title(h.sTitle, {fPlotMiddle, fTitleY, fPlotLeft, hRoom}, hTitleSize);
  Use_Font(hDecaySize10);
  IPgXLabel("Window Time (msec)");
  IPgYLabelLeft(h.sYLabel, fYLabelPlace);
  Use_Font(hDecaySize8);
  IPgXScale("TN");
  const Ticks hTick = Zero_First(h.hYTick);
  IPgYUserScale(hTick.fYTick, hTick.sYTick, "T");
  IPgBorder();
}

void Draw_Zero_Line(const PlotRange& r) {
  if (r.Has_Y(0.0f)) IPgJoin2(InfoPgReal(iPlotXMin), 0.0f, InfoPgReal(iPlotXMax), 0.0f);
}

GrPoint Middle(const GrPoint& h1, const GrPoint& h2) {
  return {0.5f * (h1.fX + h2.fX), 0.5f * (h1.fY + h2.fY)};
}

/// A line to the right.
void Draw_Forward(const GrPoint& h1, const GrPoint& h2) {
  if (h2.fX <= h1.fX) return;
  IGrMoveTo(h1.fX, h1.fY);
  IGrLineTo(h2.fX, h2.fY);
}

}  // namespace

void Decay_Clear() {
  WindowClear();
  IGrClipOff();
  IGrArea(0.0f, 0.0f, 1.0f, 1.0f);
  IGrUnits(fCurveGrXMin, fCurveGrYMin, fCurveGrXMax, fCurveGrYMax);
}

void Decay_Frame(const DecayPlot& h, const TitleRoom& hTitleRoom) {
  IGrColour("BLACK");
  IGrLineType(LineType::Solid);
  IGrLineWidth(fDecayAxisWidth);
  Set_Plot_Units(h.hRange);
  Draw_Axes(h, hTitleRoom);
  Draw_Zero_Line(h.hRange);
}

void Decay_Stroke(const Array1<GrPoint, MTW>& hPoint, I4 N, I4 I) {
  if (I > 1) Draw_Forward(Middle(hPoint(I - 1), hPoint(I)), hPoint(I));
  if (I < N) Draw_Forward(hPoint(I), Middle(hPoint(I), hPoint(I + 1)));
}

}  // namespace quillan
