#include "review/plan_view.h"

#include <algorithm>
#include <cmath>

#include "foundations/file_util.h"
#include "foundations/str_write.h"
#include "metadata/enm_data.h"
#include "model/derived.h"
#include "model/tmd_data.h"
#include "review/plot/read_out.h"
#include "toolkit/draw/draw.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/draw/plot_axes.h"
#include "toolkit/window/log_text.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

constexpr R4 fXCMU = 24.0f, fYCMU = 18.0f;             // graphics units of the drawing area
constexpr GrBox hPlotPlace{2.5f, 1.5f, 23.5f, 17.5f};  // graphics units
constexpr MapFonts hFonts{
    {0.008722f,  0.0196f },
    {0.0104664f, 0.02352f},
    {0.0104664f, 0.02352f}
};
constexpr TextSize hMarkerSize{0.0069776f, 0.01568f};
constexpr R8 dWiden = 1.05;
constexpr I4 NHeightLeast = 10;  // pixels
constexpr R4 fLoopWidth = 1.5f;  // pixels
constexpr R4 fRadian = 0.0174532924f;
constexpr I4 NPartOfLine = 32;  // points of a line that texts keep clear of

bool Is_Position(const Array1<R8, 3>& d) {
  return Is_Present(d(1)) && Is_Present(d(2)) && std::isfinite(d(1)) && std::isfinite(d(2));
}

/// An offset along and across an azimuth, in degrees, as east and north.
MapPoint Turned(R4 fAzimuth, R8 dAlong, R8 dAcross) {
  const R8 dS = R8{std::sin(fAzimuth * fRadian)}, dC = R8{std::cos(fAzimuth * fRadian)};
  return {dS * dAlong - dC * dAcross, dC * dAlong + dS * dAcross};
}

MapPoint Sum(const MapPoint& h1, const MapPoint& h2) {
  return {h1.dX + h2.dX, h1.dY + h2.dY};
}

R8 Distance(const MapPoint& h1, const MapPoint& h2) {
  return std::hypot(h1.dX - h2.dX, h1.dY - h2.dY);
}

void Take_Receivers(PlanView& h) {
  for (I4 j = 1; j <= NTrn; ++j) {
    if (!Is_Position(hTrn(j).dRxXYZ)) continue;
    if (h.jFirst == 0) h.jFirst = j;
    h.hReceiver.push_back({hTrn(j).dRxXYZ(1), hTrn(j).dRxXYZ(2)});
  }
}

/// A code that is no array counts as a fixed loop.
bool Moves_with_Receiver(const Survey& h) {
  return h.iTemArray >= iArrayMVL && h.iTemArray <= sTemArray.iHigh && !Has_Fixed_Transmitter(h);
}

MapPoint Loop_Centre(const PlanView& h) {
  const Survey& s = hTemSurvey;
  const MapPoint hFirst = h.jFirst == 0 ? MapPoint{} : h.hReceiver.front();
  if (!Is_Position(s.dTxXYZC)) return hFirst;
  const MapPoint hGiven{s.dTxXYZC(1), s.dTxXYZC(2)};
  if (h.jFirst == 0 || !Moves_with_Receiver(s)) return hGiven;
  if (s.iTemArray != iArrayMVL) return hFirst;
  return Sum(hFirst, Turned(Is_Present(s.fLineAzimuth) ? s.fLineAzimuth : 0.0f, hGiven.dX, hGiven.dY));
}

void Take_Loop(PlanView& h) {
  const Survey& s = hTemSurvey;
  const Array1<R4, 2> fSide{std::max(s.fTxLength(1), 0.0f), std::max(s.fTxLength(2), 0.0f)};
  const Array2<R4, 2, 4> fTxXYV = TMD_Get_fTxXYV(fSide, s.fTxHPR(1), s.iLengthUnit);
  for (I4 J = 1; J <= 4; ++J) h.hVertex(J) = Sum(h.hCentre, {R8{fTxXYV(1, J)}, R8{fTxXYV(2, J)}});
  h.hVertex(5) = h.hVertex(1);
  // The second and third corners are the ends of the side that the direction points to.
  h.hArrow = {0.5 * (h.hVertex(2).dX + h.hVertex(3).dX), 0.5 * (h.hVertex(2).dY + h.hVertex(3).dY)};
}

void Take_Distances(PlanView& h) {
  if (h.jFirst == 0) return;
  h.dFirst = h.dNearest = h.dFarthest = Distance(h.hCentre, h.hReceiver.front());
  for (const MapPoint& hRx : h.hReceiver) {
    h.dNearest = std::min(h.dNearest, Distance(h.hCentre, hRx));
    h.dFarthest = std::max(h.dFarthest, Distance(h.hCentre, hRx));
  }
}

}  // namespace

PlanView Plan_View() {
  PlanView h;
  Take_Receivers(h);
  h.hCentre = Loop_Centre(h);
  Take_Loop(h);
  Take_Distances(h);
  return h;
}

namespace {

std::string Length_Text(R8 dLength) {
  return Str_Write_R8(dLength, "(F0.1)").str() + " " + std::string(Held_Entry(sLengthUnit, hTemSurvey.iLengthUnit));
}

std::string Survey_Line() {
  const std::string sLine = hTemSurvey.sLineName.str(), sJob = hTemSurvey.sJobName.str();
  if (hTemSurvey.sLineName.Is_Blank()) return "";
  return (hTemSurvey.sJobName.Is_Blank() ? "" : sJob + " ") + "Line " + sLine;
}

std::string Loop_Note() {
  const R4 fUnit = Held_Entry(fLengthUnit, hTemSurvey.iLengthUnit);
  return "Transmitter loop " + Str_Write_R8(R8{hTemSurvey.fTxLength(1)} / R8{fUnit}, "(F0.1)").str() + " x " +
         Length_Text(R8{hTemSurvey.fTxLength(2)} / R8{fUnit}) + ", along " +
         Str_Write_R4(hTemSurvey.fTxHPR(1), "(F0.1)").str() + " deg E of N";
}

std::string Distance_Note(const PlanView& h) {
  if (h.jFirst == 0) return "No receiver has a position";
  std::string s = "Receiver " + Str_Write_XYZR8(hTrn(h.jFirst).dRxStn).str() + " is " + Length_Text(h.dFirst) +
                  " from the loop's centre";
  if (Has_Fixed_Transmitter(hTemSurvey) && h.hReceiver.size() > 1)
    s += ", all are " + Str_Write_R8(h.dNearest, "(F0.1)").str() + " to " + Length_Text(h.dFarthest);
  return s;
}

}  // namespace

std::vector<std::string> Plan_Notes(const PlanView& h, std::string_view sFileName) {
  std::vector<std::string> sLine{"Plan View of Survey Configuration"};
  if (const std::string sSurvey = Survey_Line(); !sSurvey.empty()) sLine.push_back(sSurvey);
  sLine.push_back("Data from " + std::string(File_Name(sFileName)));
  sLine.push_back(Loop_Note());
  sLine.push_back(Distance_Note(h));
  return sLine;
}

namespace {

/// Points along a line, for texts to keep clear of.
void Add_Line(std::vector<MapPoint>& hPoint, const MapPoint& h1, const MapPoint& h2) {
  for (I4 I = 0; I <= NPartOfLine; ++I) {
    const R8 dPart = R8{1.0} * I / NPartOfLine;
    hPoint.push_back({h1.dX + dPart * (h2.dX - h1.dX), h1.dY + dPart * (h2.dY - h1.dY)});
  }
}

std::vector<MapPoint> Drawn_Points(const PlanView& h) {
  std::vector<MapPoint> hPoint = h.hReceiver;
  for (I4 J = 1; J <= 4; ++J) Add_Line(hPoint, h.hVertex(J), h.hVertex(J + 1));
  if (h.jFirst != 0) Add_Line(hPoint, h.hCentre, h.hReceiver.front());
  return hPoint;
}

GrPoint Gr_Point(const MapPoint& h) {
  return IPgNumbersToGrUnits(h.dX, h.dY);
}

void Draw_Loop(const PlanView& h) {
  IGrColour("RED");
  IGrLineWidth(fLoopWidth);
  IGrMoveTo(Gr_Point(h.hVertex(1)).fX, Gr_Point(h.hVertex(1)).fY);
  for (I4 J = 2; J <= 5; ++J) IGrLineTo(Gr_Point(h.hVertex(J)).fX, Gr_Point(h.hVertex(J)).fY);
  const GrPoint h1 = Gr_Point(h.hCentre), h2 = Gr_Point(h.hArrow);
  IGrArrowJoin(h1.fX, h1.fY, h2.fX, h2.fY, ArrowHeads::End);
  IGrLineWidth(1.0f);
}

void Draw_Distance(const PlanView& h) {
  if (h.jFirst == 0) return;
  const GrPoint h1 = Gr_Point(h.hCentre), h2 = Gr_Point(h.hReceiver.front());
  IGrColour("GREY");
  IGrLineType(LineType::Dashed);
  IGrSegment(h1.fX, h1.fY, h2.fX, h2.fY);
  IGrLineType(LineType::Solid);
}

void Draw_Receivers(const PlanView& h) {
  IGrColour("BLACK");
  Use_Font(hMarkerSize);
  for (const MapPoint& hRx : h.hReceiver) IGrMarker(Gr_Point(hRx).fX, Gr_Point(hRx).fY, iMarkerDisc);
}

void Draw_View() {
  const PlanView h = Plan_View();
  const std::vector<MapPoint> hPoint = Drawn_Points(h);
  const std::string_view sUnit = Held_Entry(sLengthUnit, hTemSurvey.iLengthUnit);
  const GrBox hPlot = With_Room_for_Axes(hPlotPlace, hPoint, dWiden, hFonts);
  const std::vector<std::string> sNotes = Notes_with_Room(hPlot, hFonts, Plan_Notes(h, sPlanStnFile));
  const MapLayout hLayout = Map_Layout(Map_Range(hPoint, Shape_of(hPlot), dWiden), hPoint,
                                       Notes_Block(hPlot, hFonts, sNotes), Scale_Block(hPlot, hFonts));
  Set_Map_Units(hPlot, hLayout.hRange);
  Draw_Distance(h);
  Draw_Loop(h);
  Draw_Receivers(h);
  if (hLayout.hNotes) Draw_Notes(hPlot, hFonts, *hLayout.hNotes, sNotes);
  Draw_Scale_Bar(hPlot, hFonts, hLayout, sUnit);
  Draw_Map_Axes(hFonts, sUnit);
}

bool Has_Room() {
  return NTrn >= 1 && WInfoWindow(iWindowHeight) >= NHeightLeast;
}

void Show_View() {
  if (!Has_Room()) return LogText_Update();
  WindowClear();
  IGrArea(0.0f, 0.0f, 1.0f, 1.0f);
  IGrUnits(0.0f, 0.0f, fXCMU, fYCMU);
  IGrPlotMode1("N");
  IGrColour("BLACK");
  IGrLineType(LineType::Solid);
  IGrLineWidth(1.0f);
  Draw_View();
  IGrFlush();
  InqWintError("TEM_Map_View_Plot");
}

}  // namespace

I4 TEM_Map_View_Plot(std::string_view sStnFile) {
  if (!Has_Room()) return 1;
  sPlanStnFile = sStnFile;
  LogText_Show_Picture(Show_View);
  return 0;
}

std::string Plan_Words(I4 j, const PlanView& h) {
  const MapPoint hRx{hTrn(j).dRxXYZ(1), hTrn(j).dRxXYZ(2)};
  const auto Tenths = [](R8 dValue) { return Str_Write_R8(dValue, "(F0.1)").str(); };
  const std::string s = Sounding_Words(hTrn(j)) + " at " + Tenths(hRx.dX) + " E, " + Tenths(hRx.dY) + " N";
  if (!Has_Fixed_Transmitter(hTemSurvey)) return s;  // its loop is not the one that is drawn
  return s + ", " + Length_Text(Distance(h.hCentre, hRx)) + " from the loop's centre";
}

namespace {

constexpr R4 fReach = 0.5f;  // graphics units in which the pointer is near a receiver

/// The transient of the receiver nearest to a place; of several at one place the first. 0: none is within reach.
I4 Nearest_Receiver(const GrPoint& hPointer) {
  I4 jNearest = 0;
  R4 fNearest = fReach;
  for (I4 j = 1; j <= NTrn; ++j) {
    if (!Is_Position(hTrn(j).dRxXYZ)) continue;
    const GrPoint h = Gr_Point({hTrn(j).dRxXYZ(1), hTrn(j).dRxXYZ(2)});
    const R4 fAway = std::hypot(h.fX - hPointer.fX, h.fY - hPointer.fY);
    if (fAway > fNearest || (fAway == fNearest && jNearest != 0)) continue;
    fNearest = fAway;
    jNearest = j;
  }
  return jNearest;
}

}  // namespace

void TEM_Map_View_Follow(const Message& hMove) {
  const I4 j = Nearest_Receiver({hMove.GX, hMove.GY});
  if (j == 0 && !bReceiverNamed) return;  // what the last command had to say stays
  bReceiverNamed = j != 0;
  IGrRingOff();
  WindowOutStatusBar(iStatusProgress, j == 0 ? "" : Plan_Words(j, Plan_View()));
  if (j == 0) return;
  const GrPoint h = Gr_Point({hTrn(j).dRxXYZ(1), hTrn(j).dRxXYZ(2)});
  IGrRing(h.fX, h.fY);
}

}  // namespace quillan
