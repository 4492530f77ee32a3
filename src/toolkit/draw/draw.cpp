#include "toolkit/draw/draw.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "toolkit/draw/last_error.h"
#include "toolkit/draw/private_state.h"

namespace quillan {

using namespace toolkit;

namespace {

constexpr R8 dDiscRadius = 0.25;  // of the em
constexpr R4 fMaxWidth = 16.0f;   // pixels of line width
constexpr R4 fMaxDisc = 128.0f;   // pixels of diameter
constexpr QRgb iWhite = 0xFFFFFFFF;
constexpr R8 dSlack = 0.01;  // pixels: what 32-bit units lose at the edge of a clip
constexpr QRectF hNowhere(-1.0e9, -1.0e9, 0.0, 0.0);
constexpr R8 dDash = 5.0;  // pixels of line width
constexpr R8 dGap = 4.0;
constexpr R8 dHeadPart = 0.25;    // of an arrow's length
constexpr R8 dLongestHead = 9.0;  // pixels of line width
constexpr R8 dHeadTurn = 25.0;    // degrees between an arrow and the strokes of its head

struct NamedColour {
  std::string_view sName;
  QRgb iColour;
};
constexpr NamedColour hNamedColour[] = {
    {"BLACK",   0xFF000000},
    {"RED",     0xFFFF0000},
    {"MAGENTA", 0xFFFF00FF},
    {"GREY",    0xFF808080},
    {"GREEN",   0xFF00C000},
};

}  // namespace

QRectF toolkit::Whole_Picture() {
  return {QPointF(0.0, 0.0), hDraw.hCanvas.hSize};
}

void toolkit::Place_Area() {
  const GraphicsState& h = hDraw.hState;
  const QRectF hPicture = Whole_Picture();
  const R8 dHeight = hPicture.height() - hDraw.hCanvas.dFoot;
  AreaPlace& hPlace = hDraw.hPlace;
  hPlace.hArea = {h.hArea.dXLow * hPicture.width(), (1.0 - h.hArea.dYHigh) * dHeight,
                  h.hArea.dXSpan() * hPicture.width(), h.hArea.dYSpan() * dHeight};
  hPlace.dPixelX = hPlace.hArea.width() / h.hUnit.dXSpan();
  hPlace.dPixelY = hPlace.hArea.height() / h.hUnit.dYSpan();
  hPlace.hVisible = hPlace.hArea.normalized().intersected(hPicture);
  if (h.hClip) {
    const QPointF hLow(h.hClip->dXLow, h.hClip->dYLow), hHigh(h.hClip->dXHigh, h.hClip->dYHigh);
    hPlace.hVisible = hPlace.hVisible.intersected(QRectF(To_Picture(hLow), To_Picture(hHigh)).normalized());
  }
  hPlace.hVisible = hPlace.hVisible.isEmpty() ? hNowhere : hPlace.hVisible.adjusted(-dSlack, -dSlack, dSlack, dSlack);
  const R8 dSmallest = hDraw.hCanvas.dMinEm;
  hPlace.dEm =
      std::clamp(std::abs(h.dCharHeight * hPlace.hArea.height()), dSmallest, std::max(hPicture.height(), dSmallest));
}

void toolkit::Draw_Collected() {
  Collected& h = hDraw.hCollected;
  if (h.hLine.empty()) return;
  const R8 dPixel = hDraw.hCanvas.dPixel;
  if (h.iType == LineType::Dashed) h.hLine = Dashes_of(h.hLine, dDash * dPixel, dGap * dPixel);
  hDraw.hCanvas.hBackEnd->Lines(h.hLine, h.hPen);
  h.hLine.clear();
}

void IGrFlush() {
  Draw_Collected();
  if (hDraw.hCanvas.hBackEnd) hDraw.hCanvas.hBackEnd->Flush();
}

namespace {

/// Limits that span something; others are refused.
std::optional<Limits> Good_Limits(R4 fXMin, R4 fYMin, R4 fXMax, R4 fYMax) {
  const Limits h{R8{fXMin}, R8{fYMin}, R8{fXMax}, R8{fYMax}};
  const bool bFinite = std::isfinite(h.dXSpan()) && std::isfinite(h.dYSpan());
  if (bFinite && h.dXSpan() != 0.0 && h.dYSpan() != 0.0) return h;
  Set_Error(iErrBadArgument);
  return {};
}

}  // namespace

void IGrArea(R4 fXMin, R4 fYMin, R4 fXMax, R4 fYMax) {
  if (const auto hArea = Good_Limits(fXMin, fYMin, fXMax, fYMax)) hDraw.hState.hArea = *hArea;
  IGrClipOff();
}

void IGrUnits(R4 fXMin, R4 fYMin, R4 fXMax, R4 fYMax) {
  if (const auto hUnit = Good_Limits(fXMin, fYMin, fXMax, fYMax)) hDraw.hState.hUnit = *hUnit;
  IGrClipOff();
}

void IGrClip(R4 fXMin, R4 fYMin, R4 fXMax, R4 fYMax) {
  if (const auto hClip = Good_Limits(fXMin, fYMin, fXMax, fYMax)) hDraw.hState.hClip = hClip;
  Place_Area();
}

void IGrClipOff() {
  hDraw.hState.hClip.reset();
  Place_Area();
}

GraphicsKeeper::GraphicsKeeper() : hKept(std::make_unique<GraphicsState>(hDraw.hState)) {}

GraphicsKeeper::~GraphicsKeeper() {
  hDraw.hState = *hKept;
  Place_Area();
}

void WindowClear() {
  if (!Drawable()) return;
  hDraw.hCollected.hLine.clear();
  hDraw.hCanvas.hBackEnd->Fill(Whole_Picture(), iWhite);
  if (hDraw.hCanvas.bScreen) Clear_Overlay();
  Mark_Changed();
}

void IGrColour(std::string_view sName) {
  const auto* hRow = std::ranges::find(hNamedColour, sName, &NamedColour::sName);
  if (hRow == std::end(hNamedColour)) return Set_Error(iErrBadArgument);
  hDraw.hState.iColour = hRow->iColour;
}

void IGrColourN(I4 iColour) {
  hDraw.hState.iColour = qRgb(iColour & 0xFF, (iColour >> 8) & 0xFF, (iColour >> 16) & 0xFF);
}

void IGrLineType(LineType iType) {
  hDraw.hState.iType = iType;
}

void IGrLineWidth(R4 fPixels) {
  if (!(fPixels > 0.0f && fPixels <= fMaxWidth)) return Set_Error(iErrBadArgument);
  hDraw.hState.dWidth = R8{fPixels};
}

namespace {

/// A rubber band between two points of the picture. One that reaches out of it ends at its edge.
void Overlay(bool bRectangle, QLineF hEnds) {
  const QRectF hPicture = Whole_Picture();
  if (!hDraw.hCanvas.bScreen) return;
  if (bRectangle) {
    const auto dInX = [&](R8 d) { return std::clamp(d, 0.0, hPicture.width()); };
    const auto dInY = [&](R8 d) { return std::clamp(d, 0.0, hPicture.height()); };
    hEnds = {dInX(hEnds.x1()), dInY(hEnds.y1()), dInX(hEnds.x2()), dInY(hEnds.y2())};
  }
  if (Clip_Line(hEnds, hPicture)) Toggle_Overlay({bRectangle, hEnds.p1(), hEnds.p2()});
}

/// Collects a line of the picture.
void Collect(QLineF hLine) {
  if (hDraw.hState.bOverlay) return Overlay(false, hLine);
  if (!Clip_Line(hLine, hDraw.hPlace.hVisible)) return;
  Collected& h = hDraw.hCollected;
  const Pen hPen{hDraw.hState.iColour, hDraw.hState.dWidth * hDraw.hCanvas.dPixel};
  if (h.hPen != hPen || h.iType != hDraw.hState.iType) Draw_Collected();
  h.hPen = hPen;
  h.iType = hDraw.hState.iType;
  h.hLine.push_back(hLine);
  Mark_Changed();
}

/// Collects a segment between two points in units.
void Segment(QPointF hFrom, QPointF hTo) {
  if (Drawable()) Collect({To_Picture(hFrom), To_Picture(hTo)});
}

}  // namespace

void IGrMoveTo(R4 fX, R4 fY) {
  hDraw.hState.hPosition = {R8{fX}, R8{fY}};
}

void IGrLineTo(R4 fX, R4 fY) {
  const QPointF hTo(R8{fX}, R8{fY});
  Segment(std::exchange(hDraw.hState.hPosition, hTo), hTo);
}

void IGrSegment(R4 fX1, R4 fY1, R4 fX2, R4 fY2) {
  Segment({R8{fX1}, R8{fY1}}, {R8{fX2}, R8{fY2}});
}

void IGrRectangle(R4 fX1, R4 fY1, R4 fX2, R4 fY2) {
  if (!Drawable()) return;
  const QPointF hCorner[] = {
      {R8{fX1}, R8{fY1}},
      {R8{fX2}, R8{fY1}},
      {R8{fX2}, R8{fY2}},
      {R8{fX1}, R8{fY2}}
  };
  if (hDraw.hState.bOverlay) return Overlay(true, {To_Picture(hCorner[0]), To_Picture(hCorner[2])});
  for (int I = 0; I < 4; ++I) Segment(hCorner[I], hCorner[(I + 1) % 4]);
}

void IGrFilledRectangle(R4 fX1, R4 fY1, R4 fX2, R4 fY2) {
  BackEnd* hBackEnd = Drawable();
  const QRectF hBox = QRectF(To_Picture({R8{fX1}, R8{fY1}}), To_Picture({R8{fX2}, R8{fY2}})).normalized();
  const QRectF hSeen = hBox.intersected(hDraw.hPlace.hVisible);
  if (!hBackEnd || !std::isfinite(hBox.width() + hBox.height()) || hSeen.isEmpty()) return;
  Draw_Collected();
  hBackEnd->Fill(hSeen, hDraw.hState.iColour);
  Mark_Changed();
}

namespace {

/// The head at the first end of a line of the picture.
void Collect_Head(const QLineF& hShaft) {
  const R8 dLength = std::min(dHeadPart * hShaft.length(), dLongestHead * hDraw.hCanvas.dPixel);
  if (!(dLength > 0.0)) return;
  for (const R8 dTurn : {-dHeadTurn, dHeadTurn}) {
    QLineF hStroke = hShaft;
    hStroke.setAngle(hShaft.angle() + dTurn);
    hStroke.setLength(dLength);
    Collect(hStroke);
  }
}

}  // namespace

void IGrArrowJoin(R4 fX1, R4 fY1, R4 fX2, R4 fY2, ArrowHeads iHeads) {
  if (!Drawable()) return;
  const QLineF hShaft(To_Picture({R8{fX1}, R8{fY1}}), To_Picture({R8{fX2}, R8{fY2}}));
  if (!std::isfinite(hShaft.length())) return;
  Collect(hShaft);
  Collect_Head({hShaft.p2(), hShaft.p1()});
  if (iHeads == ArrowHeads::Both) Collect_Head(hShaft);
}

namespace {

/// dRadius: pixels of the picture.
void Disc(QPointF hUnit, R8 dRadius) {
  BackEnd* hBackEnd = Drawable();
  const QPointF hCentre = To_Picture(hUnit);
  if (!hBackEnd || !Holds(hDraw.hPlace.hVisible, hCentre)) return;
  if (hDraw.hCollected.hPen.iColour != hDraw.hState.iColour) Draw_Collected();
  hBackEnd->Disc(hCentre, dRadius, hDraw.hState.iColour);
  Mark_Changed();
}

}  // namespace

void IGrMarker(R4 fX, R4 fY, I4 iMarker) {
  if (iMarker != iMarkerDisc) return Set_Error(iErrBadArgument);
  Disc({R8{fX}, R8{fY}}, dDiscRadius * hDraw.hPlace.dEm);
}

void IGrDisc(R4 fX, R4 fY, R4 fPixels) {
  if (!(fPixels > 0.0f && fPixels <= fMaxDisc)) return Set_Error(iErrBadArgument);
  Disc({R8{fX}, R8{fY}}, 0.5 * R8{fPixels} * hDraw.hCanvas.dPixel);
}

void IGrPlotMode1(std::string_view sMode) {
  if (sMode != "N" && sMode != "E") return Set_Error(iErrBadArgument);
  hDraw.hState.bOverlay = sMode == "E";
}

GrPoint IGrPixelSize() {
  return {static_cast<R4>(std::abs(hDraw.hCanvas.dPixel / hDraw.hPlace.dPixelX)),
          static_cast<R4>(std::abs(hDraw.hCanvas.dPixel / hDraw.hPlace.dPixelY))};
}

}  // namespace quillan
