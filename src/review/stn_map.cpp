#include "review/stn_map.h"

#include <algorithm>
#include <cmath>

#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "metadata/enm_data.h"
#include "model/stn_data.h"
#include "model/tmd_data.h"
#include "review/plot/colour_table.h"
#include "review/plot/plot_title.h"
#include "stations/line_stats.h"
#include "toolkit/draw/draw.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/draw/plot_axes.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

constexpr std::string_view sMapTitle = "Station data check, press any key to continue.";
constexpr std::string_view sPrompt = "Press any key to continue.";
constexpr std::string_view sElevation = "Elevation";

constexpr R4 fScreenPart = 0.9f;  // of the screen
constexpr R4 fMapShape = 0.7f;    // height over width of the window
constexpr I4 NHeightLeast = 10;   // pixels

// The page in centimetres, at least this large.
constexpr R4 fXPage = 24.0f, fYPage = 18.0f;
constexpr R4 fLeft = 1.5f, fRight = 2.0f, fBottom = 1.5f, fTop = 1.0f;  // margins of the plot
constexpr R4 fBarOffset = 0.25f, fBarWidth = 0.5f;                      // the colour bar beside the plot
constexpr R4 fPoint = 0.03528f;                                         // height of a point
constexpr R4 fCharShape = 0.445f;                                       // width over height of a character
constexpr R4 fRowsAbove = 2.2f;  // character heights above the plot, at least: the titles
constexpr R4 fBarTitle = 1.2f;   // its size over that of the labels
constexpr R8 dWiden = 1.1;
constexpr R4 fReach = 0.5f;  // centimetres in which the pointer is near a station

constexpr I4 MStep = 50;            // steps of the colour scale
constexpr I4 MLabel = 10;           // labels beside it
constexpr I4 MRectangle = 200;      // of the bar, whatever its steps are
constexpr R4 fNoHeading = -360.1f;  // degrees; from here down a station has none

struct Page {
  R4 fXCMT, fYCMT;

  TextSize Font(R4 fPoints) const {
    const R4 fHeight = fPoints * fPoint / fYCMT;
    return {fYCMT / fXCMT * fHeight * fCharShape, fHeight};
  }
  MapFonts Fonts() const { return {Font(10.0f), Font(12.0f), Font(10.0f)}; }
};

/// The page of the window, which has its shape.
Page Window_Page() {
  const R4 fYXWindow = static_cast<R4>(WInfoWindow(iWindowHeight)) / static_cast<R4>(WInfoWindow(iWindowWidth));
  return {std::max(fYPage / fYXWindow, fXPage), std::max(fXPage * fYXWindow, fYPage)};
}

/// Calls Visit for each station that was kept, line by line.
template <class Visitor>
void Visit_Stations(Visitor Visit) {
  for (I4 iLine = 1; iLine <= hStn.NStnLine; ++iLine)
    for (I4 I = hStn.iStnBeg(iLine); I >= 1 && I <= hStn.iStnEnd(iLine); ++I) Visit(iLine, I);
}

MapPoint Position(I4 I) {
  return {R8{hStn.fStnX(I)} + hStn.iStnX0, R8{hStn.fStnY(I)} + hStn.iStnY0};
}

std::vector<MapPoint> Positions() {
  std::vector<MapPoint> hPoint;
  Visit_Stations([&](I4, I4 I) { hPoint.push_back(Position(I)); });
  return hPoint;
}

R4 Percent(R4 fValue, const ColorScale& h) {
  return h.fCFmax > h.fCFmin ? 100.0f * (fValue - h.fCFmin) / (h.fCFmax - h.fCFmin) : 0.0f;
}

void Use_Percent_Colour(R4 fPercent) {
  const Colour h = CFT_Get(fPercent);
  IGrColourN(h.iRed + 256 * h.iGreen + 65536 * h.iBlue);
}

}  // namespace

// ---- what is written

namespace {

std::string Figure(R4 fValue) {
  return Str_Write_R4(fValue, "(F12.3)").str();
}

std::string Tenths(R8 dValue) {
  constexpr R8 dTenth = 0.05;
  return Str_Write_R8(std::abs(dValue) < dTenth ? 0.0 : dValue, "(F0.1)").str();  // never "-0"
}

std::string Range_Text(std::string_view sWhat, R4 fMin, R4 fMax, I4 iOrigin) {
  return std::string(sWhat) + Tenths(R8{fMin} + iOrigin) + " to " + Tenths(R8{fMax} + iOrigin);
}

}  // namespace

std::vector<std::string> Stn_Annotation(R8 dLineNumber) {
  const I4 iLine = Stn_Line_Match(dLineNumber);
  if (iLine < 1) return {};
  const LineStat& h = hStn.hLineStat(iLine);
  constexpr std::string_view sLineType[] = {"Straight", "Meander", "Points"};
  std::vector<std::string> sLine;
  sLine.push_back("Median station interval " + Figure(h.fDSmed) + ", median length/stn scale " + Figure(h.fdUdSmed) +
                  " +/- " + Figure(h.fdUdSdev));
  sLine.push_back("Average across-line |deviation| " + Figure(h.fVdev) + " => NSR " + Figure(h.fVnsr) + " %");
  sLine.push_back(std::string(sLineType[std::clamp(h.iLineType, iLineStraight, iLinePoints) - 1]) + " line trending " +
                  Tenths(R8{h.fStnUazm}) + " deg E of N");
  if (hStn.lDepth > 0) sLine.push_back(Range_Text("Depth range ", hStn.fSDmin, hStn.fSDmax, 0));
  sLine.push_back(Range_Text("Elevation range ", hStn.fSZmin, hStn.fSZmax, 0));
  sLine.push_back(Range_Text("Northing  range ", hStn.fSYmin, hStn.fSYmax, hStn.iStnY0));
  sLine.push_back(Range_Text("Easting   range ", hStn.fSXmin, hStn.fSXmax, hStn.iStnX0));
  sLine.push_back(Range_Text("Station   range ", hStn.fSSmin, hStn.fSSmax, hStn.iStnS0));
  sLine.push_back(Str_Write_I4(hStn.NStn).str() + " points for line " + Str_Write_R8(dLineNumber, "(F12.2)").str());
  return sLine;
}

std::vector<ColorLabel> Stn_Color_Labels(const ColorScale& h) {
  const R8 dMin = R8{h.fCFmin}, dMax = R8{h.fCFmax};
  if (!(dMax > dMin) || !std::isfinite(dMax - dMin) || !(h.fCFinc > 0.0f)) return {};
  R8 dStep = R8{h.fCFinc};
  while (std::round(dMax / dStep) - std::round(dMin / dStep) + 1.0 > MLabel) dStep *= 2.0;
  const R8 dBeg = std::round(dMin / dStep);
  const I4 NLabel = static_cast<I4>(std::round(dMax / dStep) - dBeg) + 1;
  std::vector<ColorLabel> hLabel;
  for (I4 I = 0; I < NLabel; ++I) {
    const R8 dValue = (dBeg + I) * dStep;
    if (dValue < dMin || dValue > dMax) continue;
    hLabel.push_back({static_cast<R4>((dValue - dMin) / (dMax - dMin)), Str_Write_R8(dValue, "(F14.2)").str()});
  }
  return hLabel;
}

namespace {

struct NearStation {
  I4 iLine = 0, I = 0;  // 0: there are no stations
};

NearStation Nearest_Station(const MapPoint& hPointer) {
  NearStation hNear;
  R8 dNearest = 0.0;
  Visit_Stations([&](I4 iLine, I4 I) {
    const MapPoint h = Position(I);
    const R8 dAway = std::hypot(h.dX - hPointer.dX, h.dY - hPointer.dY);
    if (hNear.I != 0 && dAway >= dNearest) return;
    hNear = {iLine, I};
    dNearest = dAway;
  });
  return hNear;
}

}  // namespace

std::string Stn_Pointer_Text(const MapPoint& hPointer) {
  const std::string sText = Tenths(hPointer.dX) + " E, " + Tenths(hPointer.dY) + " N";
  const auto [iLineOf, iNearest] = Nearest_Station(hPointer);
  if (iNearest == 0) return sText;
  const MapPoint h = Position(iNearest);
  const std::string sLine = hStn.NStnLine > 1 ? " of line " + Str_Write_XYZR8(hStn.dStnLine(iLineOf)).str() : "";
  return sText + "     Nearest: station " + Str_Write_XYZR8(R8{hStn.fStnS(iNearest)} + hStn.iStnS0).str() + sLine +
         " at " + Tenths(h.dX) + " E, " + Tenths(h.dY) + " N, elevation " + Tenths(R8{hStn.fStnZ(iNearest)});
}

// ---- drawing

namespace {

/// What one picture of the map is made of.
struct MapPicture {
  Page hPage{};
  MapFonts hFonts{};
  ColorScale hScale{};
  std::vector<ColorLabel> hLabel{};
  std::vector<std::string> sNotes{};  // from the top down
  std::string_view sUnit{};
  GrBox hPlot{};
  MapLayout hLayout{};
};

/// How far the title of the colour bar reaches out on either side of it, with the font of the numbers in force.
R4 Bar_Title_Overhang() {
  return std::max(0.5f * (fBarTitle * WGrTextLength(sElevation) - fBarWidth), 0.0f);
}

/// The margin to the right of the plot: room for the colour bar and its labels.
R4 Right_Margin(const MapPicture& h) {
  Use_Font(h.hFonts.hNumbers);
  R4 fWidest = 0.0f;
  for (const ColorLabel& hLabel : h.hLabel) fWidest = std::max(fWidest, WGrTextLength(hLabel.sLabel));
  const R4 fLabels = fWidest + 2.0f * InfoGraphics(iCharWidth);
  const R4 fTitle = Bar_Title_Overhang() + InfoGraphics(iCharWidth);
  return std::max(fRight, fBarOffset + fBarWidth + std::max(fLabels, fTitle));
}

void Lay_Out(MapPicture& h, std::span<const MapPoint> hPoint) {
  Use_Font(h.hFonts.hNumbers);
  const R4 fAbove = std::max(fTop, fRowsAbove * InfoGraphics(iCharHeight));
  const GrBox hPlace{fLeft, fBottom, h.hPage.fXCMT - Right_Margin(h), h.hPage.fYCMT - fAbove};
  h.hPlot = With_Room_for_Axes(hPlace, hPoint, dWiden, h.hFonts);
  h.hLayout = Map_Layout(Map_Range(hPoint, Shape_of(h.hPlot), dWiden), hPoint, Notes_Block(h.hPlot, h.hFonts, h.sNotes),
                         Scale_Block(h.hPlot, h.hFonts));
}

/// The headings first: discs of stations close by are not hidden by an arrow.
void Draw_Headings(const MapPicture& h) {
  Use_Font(h.hFonts.hNumbers);
  IGrColour("BLACK");
  const R4 fHalf = 0.5f * InfoGraphics(iCharHeight);
  Visit_Stations([&](I4, I4 I) {
    if (!(hStn.fStnH(I) > fNoHeading)) return;
    const MapPoint hAt = Position(I);
    const GrPoint hGr = IPgNumbersToGrUnits(hAt.dX, hAt.dY);
    constexpr R4 fRadian = 0.0174532924f;
    const R4 fDX = fHalf * std::sin(hStn.fStnH(I) * fRadian), fDY = fHalf * std::cos(hStn.fStnH(I) * fRadian);
    IGrArrowJoin(hGr.fX - fDX, hGr.fY - fDY, hGr.fX + fDX, hGr.fY + fDY, ArrowHeads::Both);
  });
}

void Draw_Points(const MapPicture& h) {
  Use_Font(h.hFonts.hNumbers);
  Visit_Stations([&](I4, I4 I) {
    const MapPoint hAt = Position(I);
    const GrPoint hGr = IPgNumbersToGrUnits(hAt.dX, hAt.dY);
    Use_Percent_Colour(Percent(hStn.fStnZ(I), h.hScale));
    IGrMarker(hGr.fX, hGr.fY, iMarkerDisc);
  });
}

/// The scale of colours beside the plot.
void Stn_Plot_Map_Color_Bar(const MapPicture& h) {
  const R4 fX1 = h.hPlot.fX2 + fBarOffset, fX2 = fX1 + fBarWidth;
  const R4 fY1 = h.hPlot.fY1, fHeight = h.hPlot.fY2 - fY1;
  const R4 fStep = (h.hScale.fCFmax - h.hScale.fCFmin) / h.hScale.fCFinc;
  const I4 NCF = static_cast<I4>(std::clamp(std::round(fStep), 0.0f, R4{MRectangle}));
  const R4 fEach = fHeight / static_cast<R4>(NCF + 1);
  for (I4 I = 0; I <= NCF; ++I) {
    Use_Percent_Colour(Percent(h.hScale.fCFmin + static_cast<R4>(I) * h.hScale.fCFinc, h.hScale));
    IGrFilledRectangle(fX1, fY1 + static_cast<R4>(I) * fEach, fX2, fY1 + static_cast<R4>(I + 1) * fEach);
  }
  IGrColour("BLACK");
  IGrRectangle(fX1, fY1, fX2, fY1 + fHeight);
  Use_Font(h.hFonts.hNumbers);
  WGrTextOrientation(Justify::Left, 0.0f);
  for (const ColorLabel& hLabel : h.hLabel) {
    const R4 fY = fY1 + hLabel.fPlace * fHeight;
    IGrSegment(fX2, fY, fX2 + 0.5f * InfoGraphics(iCharWidth), fY);
    WGrTextString(fX2 + InfoGraphics(iCharWidth), fY, hLabel.sLabel);
  }
  Use_Font({fBarTitle * h.hFonts.hNumbers.fWidth, fBarTitle * h.hFonts.hNumbers.fHeight});
  WGrTextOrientation(Justify::Centre, 0.0f);
  WGrTextString(0.5f * (fX1 + fX2), fY1 + fHeight + InfoGraphics(iCharHeight), sElevation);
}

/// The statistics of the survey's line, where there is room for them.
void Stn_Plot_Annotation(const MapPicture& h) {
  if (h.hLayout.hNotes) Draw_Notes(h.hPlot, h.hFonts, *h.hLayout.hNotes, h.sNotes);
}

/// Title and prompt, clear of the scale of colours and of the label of the axis.
void Draw_Titles(const MapPicture& h, std::string_view sFileName) {
  const R4 fMiddle = 0.5f * (h.hPlot.fX1 + h.hPlot.fX2);
  const TextSize hSize[] = {h.hPage.Font(14.0f), h.hPage.Font(12.0f), h.hPage.Font(10.0f)};
  const R4 fY = 0.5f * (h.hPlot.fY2 + h.hPage.fYCMT);
  Use_Font(hSize[2]);
  const R4 fEnd = h.hPlot.fX2 + fBarOffset - Bar_Title_Overhang() - InfoGraphics(iCharWidth);
  const std::string sTitle =
      Cut_to_Room("Station Location Map, data from " + std::string(sFileName), fEnd - h.hPlot.fX1);
  Draw_Plot_Title(sTitle,
                  {
                      fMiddle, fY, h.hPlot.fX1, {0.0f, fEnd / h.hPage.fXCMT}
  },
                  hSize);
  Use_Font(h.hFonts.hNumbers);
  WGrTextOrientation(Justify::Right, 0.0f);
  WGrTextString(h.hPage.fXCMT - 3.0f * InfoGraphics(iCharWidth), 1.2f * InfoGraphics(iCharHeight), sPrompt);
}

ColorScale Elevation_Scale() {
  return Stn_CF_Increment(MStep, hStn.fSZmin, hStn.fSZmax, 1.0f);
}

void Draw_Map(std::string_view sFileName, R8 dLineNumber) {
  if (WInfoWindow(iWindowHeight) < NHeightLeast) return;
  WindowClear();
  MapPicture h{.hPage = Window_Page(), .hScale = Elevation_Scale(), .sNotes = Stn_Annotation(dLineNumber)};
  IGrArea(0.0f, 0.0f, 1.0f, 1.0f);
  IGrUnits(0.0f, 0.0f, h.hPage.fXCMT, h.hPage.fYCMT);
  std::ranges::reverse(h.sNotes);
  h.hFonts = h.hPage.Fonts();
  h.hLabel = Stn_Color_Labels(h.hScale);
  h.sUnit = Held_Entry(sLengthUnit, hTemSurvey.iLengthUnit);
  const std::vector<MapPoint> hPoint = Positions();
  Lay_Out(h, hPoint);
  Set_Map_Units(h.hPlot, h.hLayout.hRange);
  Draw_Map_Axes(h.hFonts, "");
  Draw_Headings(h);
  Draw_Points(h);
  Stn_Plot_Map_Color_Bar(h);
  Stn_Plot_Annotation(h);
  Draw_Scale_Bar(h.hPlot, h.hFonts, h.hLayout, h.sUnit);
  Draw_Titles(h, sFileName);
  IGrFlush();
}

// ---- the window

struct PixelSize {
  I4 NXP, NYP;
};

PixelSize Map_Size() {
  const I4 NXP = Nint(fScreenPart * static_cast<R4>(WInfoScreen(iScreenWidth)));
  const I4 NYP = Nint(fScreenPart * static_cast<R4>(WInfoScreen(iScreenHeight)));
  const I4 MXP = Nint(static_cast<R4>(NYP) / fMapShape), MYP = Nint(fMapShape * static_cast<R4>(NXP));
  return MXP < NXP ? PixelSize{MXP, NYP} : PixelSize{NXP, MYP};
}

/// Whether a message ends the map. A close request of the program is for the loop that called.
bool Ends_Map(const Message& h) {
  switch (h.iType) {
    case MessageType::Key: return true;
    case MessageType::MouseDown: return h.VALUE2 != iByWheel;
    case MessageType::Timer: return h.VALUE1 == iTimerMap;
    case MessageType::Close:
      if (h.VALUE3 != iInChild) WMessagePutBack(h);
      return true;
    default: return false;
  }
}

/// The station that is named has a ring while the pointer is near.
void Put_Ring(const MapPoint& hPointer, const Message& h) {
  IGrRingOff();
  const I4 I = Nearest_Station(hPointer).I;
  if (I == 0) return;
  const GrPoint hAt = IPgNumbersToGrUnits(Position(I).dX, Position(I).dY);
  if (std::hypot(hAt.fX - h.GX, hAt.fY - h.GY) <= fReach) IGrRing(hAt.fX, hAt.fY);
}

void Show_Pointer(const Message& h) {
  const AxisNumbers hNumbers = IPgNumbersFromGrUnits(h.GX, h.GY);
  const MapPoint hPointer{hNumbers.dX, hNumbers.dY};
  WindowOutStatusBar(iStatusProgress, Stn_Pointer_Text(hPointer));
  Put_Ring(hPointer, h);
}

/// The window of the map, with its timer, for as long as it lives: also a lack of memory closes it.
class MapWindow {
 public:
  MapWindow() {
    const PixelSize hSize = Map_Size();
    WindowOpenChild2(hSize.NXP, hSize.NYP, sMapTitle);
    WindowOutStatusBar(iStatusProgress, sMapTitle);
    WMessageEnable(MessageType::MouseMove, true);
    WMessageTimer(NMsecMap, iTimerMap);
  }
  ~MapWindow() {
    WMessageTimer(0, iTimerMap);
    WMessageEnable(MessageType::MouseMove, false);
    IGrRingOff();
    WindowCloseChild();
    IPgForget();
  }
  MapWindow(const MapWindow&) = delete;
  MapWindow& operator=(const MapWindow&) = delete;
};

void Run_Map(std::string_view sFileName, R8 dLineNumber) {
  const MapWindow window;
  Draw_Map(sFileName, dLineNumber);
  for (Message h = WMessage(); !Ends_Map(h); h = WMessage()) {
    if (h.iType == MessageType::MouseMove) Show_Pointer(h);
    if (h.iType == MessageType::Resize || h.iType == MessageType::Expose) Draw_Map(sFileName, dLineNumber);
  }
}

}  // namespace

I4 Stn_Plot_Map(std::string_view sFileName, R8 dLineNumber) {
  if (hStn.NStn < 1) return 0;
  if (WInfoWindow(iWindowDrawable) == 0) return 1;
  for (const std::string& sLine : Stn_Annotation(dLineNumber)) LogText_File(sLine);
  Run_Map(sFileName, dLineNumber);
  InqWintError("Stn_Plot_Map");
  LogText_Reset();
  return 0;
}

}  // namespace quillan
