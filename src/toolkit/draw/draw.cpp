#include "toolkit/draw/draw.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTransform>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <utility>

#include "toolkit/draw/last_error.h"
#include "toolkit/draw/private_draw.h"
#include "toolkit/window/private.h"

namespace quillan {

using namespace toolkit;

namespace {

constexpr R8 dMinEm = 9.0;       // pixels on the screen: smaller letters cannot be read
constexpr R8 dMinStretch = 0.7;  // narrower letters neither
constexpr R8 dMaxStretch = 10.0;
constexpr R8 dDiscRadius = 0.25;  // of the em
constexpr R4 fMaxWidth = 16.0f;   // pixels of line width
constexpr QRgb iWhite = 0xFFFFFFFF;
constexpr R8 dSlack = 0.01;  // pixels: what 32-bit units lose at the edge of a clip
constexpr QRectF hNowhere(-1.0e9, -1.0e9, 0.0, 0.0);
constexpr R8 dDash = 5.0;  // pixels of line width
constexpr R8 dGap = 4.0;

struct Range {
  R8 dLow = 0.0, dHigh = 1.0;
  R8 Span() const { return dHigh - dLow; }
};

struct Limits {
  Range hX, hY;
};

}  // namespace

struct GraphicsState {
  Limits hArea;  // fractions of the picture
  Limits hUnit;
  std::optional<Limits> hClip;  // in units
  QRgb iColour = 0xFF000000;
  LineType iType = LineType::Solid;
  R8 dWidth = 1.0;  // pixels of line width
  QPointF hPosition;
  bool bOverlay = false;
  R8 dCharWidth = 0.01, dCharHeight = 0.02;  // fractions of the area in use
  Justify iJustify = Justify::Left;
  R8 dAngle = 0.0;  // degrees clockwise: -90 reads upward
};

namespace {

/// From units to pixels of the picture, and what follows from the state for every line and marker. Place_Area fills it.
struct AreaPlace {
  QRectF hArea;                     // the area in use
  QRectF hVisible;                  // what is left of it by the clip
  R8 dPixelX = 1.0, dPixelY = 1.0;  // pixels a unit; negative where units fall
  R8 dEm = dMinEm;
};

/// Segments that are not drawn yet, clipped.
struct Collected {
  std::vector<QLineF> hLine;
  Pen hPen;
  LineType iType = LineType::Solid;
};

struct Typeface {
  QFont hFont;
  QFontMetricsF hMetrics;
};

// Module state. The procedures of draw.h fill it, Drop_Backing_Image restores it.
struct Drawing {
  GraphicsState hState;
  AreaPlace hPlace;
  Canvas hCanvas;
  Collected hCollected;
  std::optional<Typeface> hTypeface;

  QImage hImage;       // the backing image
  QSizeF hScreenSize;  // of the drawing area, as the image has it
  std::unique_ptr<BackEnd> hPainter;
  bool bChanged = false;  // the drawing area knows that it must be painted

  std::optional<GraphicsState> hScreenState;  // while another picture is drawn: what to come back to
};
Drawing hDraw;

struct NamedColour {
  std::string_view sName;
  QRgb iColour;
};
constexpr NamedColour hNamedColour[] = {
    {"BLACK",   0xFF000000},
    {"RED",     0xFFFF0000},
    {"MAGENTA", 0xFFFF00FF},
    {"BLUE",    0xFF0000FF},
    {"GREEN",   0xFF008000},
    {"GREY",    0xFF808080},
    {"WHITE",   0xFFFFFFFF},
};

/// A position in units in pixels of the picture.
QPointF To_Picture(QPointF hUnit) {
  const AreaPlace& h = hDraw.hPlace;
  return {h.hArea.left() + (hUnit.x() - hDraw.hState.hUnit.hX.dLow) * h.dPixelX,
          h.hArea.bottom() - (hUnit.y() - hDraw.hState.hUnit.hY.dLow) * h.dPixelY};
}

QRectF To_Picture(const Limits& h) {
  const QPointF hLow(h.hX.dLow, h.hY.dLow);
  const QPointF hHigh(h.hX.dHigh, h.hY.dHigh);
  return QRectF(To_Picture(hLow), To_Picture(hHigh)).normalized();
}

/// Works out hPlace: after a change of area, units, clip, font or picture.
void Place_Area() {
  const GraphicsState& h = hDraw.hState;
  const QRectF hPicture(QPointF(0.0, 0.0), hDraw.hCanvas.hSize);
  AreaPlace& hPlace = hDraw.hPlace;
  hPlace.hArea = {h.hArea.hX.dLow * hPicture.width(), (1.0 - h.hArea.hY.dHigh) * hPicture.height(),
                  h.hArea.hX.Span() * hPicture.width(), h.hArea.hY.Span() * hPicture.height()};
  hPlace.dPixelX = hPlace.hArea.width() / h.hUnit.hX.Span();
  hPlace.dPixelY = hPlace.hArea.height() / h.hUnit.hY.Span();
  hPlace.hVisible = hPlace.hArea.normalized().intersected(hPicture);
  if (h.hClip) hPlace.hVisible = hPlace.hVisible.intersected(To_Picture(*h.hClip));
  hPlace.hVisible = hPlace.hVisible.isEmpty() ? hNowhere : hPlace.hVisible.adjusted(-dSlack, -dSlack, dSlack, dSlack);
  const R8 dSmallest = hDraw.hCanvas.dMinEm;
  hPlace.dEm =
      std::clamp(std::abs(h.dCharHeight * hPlace.hArea.height()), dSmallest, std::max(hPicture.height(), dSmallest));
}

/// Limits that span something; others are refused.
std::optional<Limits> Good_Limits(R4 fXMin, R4 fYMin, R4 fXMax, R4 fYMax) {
  const Limits h{
      {R8{fXMin}, R8{fXMax}},
      {R8{fYMin}, R8{fYMax}}
  };
  const bool bFinite = std::isfinite(h.hX.Span()) && std::isfinite(h.hY.Span());
  if (bFinite && h.hX.Span() != 0.0 && h.hY.Span() != 0.0) return h;
  Set_Error(iErrBadArgument);
  return {};
}

/// Where drawing goes; null when there is nothing to draw on.
BackEnd* Drawable() {
  if (!hDraw.hCanvas.hBackEnd) Set_Error(iErrNoWindow);
  return hDraw.hCanvas.hBackEnd;
}

/// Tells the drawing area that it must be painted: once, not for every line.
void Mark_Changed() {
  if (!hDraw.hCanvas.bScreen || hDraw.bChanged || !Drawing_Area()) return;
  hDraw.bChanged = true;
  Drawing_Area()->update();
}

/// Hands the segments that are collected to the back end.
void Draw_Collected() {
  Collected& h = hDraw.hCollected;
  if (h.hLine.empty()) return;
  if (h.iType == LineType::Dashed) {
    std::vector<QLineF> hDash;
    Cut_Dashes(h.hLine, dDash * hDraw.hCanvas.dPixel, dGap * hDraw.hCanvas.dPixel, hDash);
    h.hLine.swap(hDash);
  }
  hDraw.hCanvas.hBackEnd->Lines(h.hLine, h.hPen);
  h.hLine.clear();
}

void Use_Canvas(const Canvas& hCanvas) {
  hDraw.hCanvas = hCanvas;
  Place_Area();
}

Canvas Screen_Canvas() {
  return {hDraw.hPainter.get(), hDraw.hScreenSize, 1.0, dMinEm, true};
}

/// Size of the drawing area now, by the size it had when the image was made: while a mouse routine holds a resize back
/// the image is shown stretched.
QPointF Stretch() {
  const QSizeF hNow = Drawing_Area() ? QSizeF(Drawing_Area()->size()) : hDraw.hScreenSize;
  return {hNow.width() / hDraw.hScreenSize.width(), hNow.height() / hDraw.hScreenSize.height()};
}

}  // namespace

QImage& toolkit::Backing_Image() {
  if (hDraw.hCanvas.bScreen) IGrFlush();
  hDraw.bChanged = false;
  return hDraw.hImage;
}

void toolkit::Resize_Backing_Image() {
  const R8 dRatio = Drawing_Area()->devicePixelRatioF();
  const QSize hSize = (QSizeF(Drawing_Area()->size()) * dRatio).toSize().expandedTo(QSize(1, 1));
  if (hDraw.hImage.size() == hSize && hDraw.hImage.devicePixelRatio() == dRatio) return;
  QImage hNew(hSize, QImage::Format_RGB32);
  hNew.setDevicePixelRatio(dRatio);
  hNew.fill(Qt::white);
  // Stretched until it is drawn anew: in the middle of a mouse routine a click still hits what it is aimed at.
  if (!hDraw.hImage.isNull()) {
    QPainter(&hNew).drawImage(QRectF(QPointF(0.0, 0.0), QSizeF(Drawing_Area()->size())), Backing_Image());
  }
  hDraw.hImage = hNew;
  hDraw.hScreenSize = QSizeF(Drawing_Area()->size()).expandedTo(QSizeF(1.0, 1.0));
  if (!hDraw.hPainter) hDraw.hPainter = New_Painter(hDraw.hImage, 1.0);
  if (!hDraw.hScreenState) Use_Canvas(Screen_Canvas());
}

void toolkit::Drop_Backing_Image() {
  Drop_Hardcopy();
  Clear_Overlay();
  hDraw = {};
}

QPointF toolkit::Pixels_to_Units(QPointF hPixel) {
  const AreaPlace& h = hDraw.hPlace;
  const QPointF hStretch = Stretch();
  return {hDraw.hState.hUnit.hX.dLow + (hPixel.x() / hStretch.x() - h.hArea.left()) / h.dPixelX,
          hDraw.hState.hUnit.hY.dLow + (h.hArea.bottom() - hPixel.y() / hStretch.y()) / h.dPixelY};
}

QPointF toolkit::Units_to_Pixels(QPointF hUnit) {
  const QPointF hPixel = To_Picture(hUnit);
  const QPointF hStretch = Stretch();
  return {hPixel.x() * hStretch.x(), hPixel.y() * hStretch.y()};
}

void toolkit::Enter_Picture(const Canvas& hPicture) {
  IGrFlush();
  hDraw.hScreenState = hDraw.hState;
  Use_Canvas(hPicture);
}

void toolkit::Leave_Picture() {
  IGrFlush();
  hDraw.hState = hDraw.hScreenState.value_or(GraphicsState{});
  hDraw.hScreenState.reset();
  Use_Canvas(Screen_Canvas());
}

void IGrArea(R4 fXMin, R4 fYMin, R4 fXMax, R4 fYMax) {
  const auto hArea = Good_Limits(fXMin, fYMin, fXMax, fYMax);
  if (hArea) hDraw.hState.hArea = *hArea;
  IGrClipOff();
}

void IGrUnits(R4 fXMin, R4 fYMin, R4 fXMax, R4 fYMax) {
  const auto hUnit = Good_Limits(fXMin, fYMin, fXMax, fYMax);
  if (hUnit) hDraw.hState.hUnit = *hUnit;
  IGrClipOff();
}

void IGrClip(R4 fXMin, R4 fYMin, R4 fXMax, R4 fYMax) {
  const auto hClip = Good_Limits(fXMin, fYMin, fXMax, fYMax);
  if (hClip) hDraw.hState.hClip = hClip;
  Place_Area();
}

void IGrClipOff() {
  hDraw.hState.hClip.reset();
  Place_Area();
}

GraphicsKeeper::GraphicsKeeper() : hKept(new GraphicsState(hDraw.hState)) {}

GraphicsKeeper::~GraphicsKeeper() {
  hDraw.hState = *hKept;
  Place_Area();
  delete hKept;
}

void WindowClear() {
  if (!Drawable()) return;
  hDraw.hCollected.hLine.clear();
  hDraw.hCanvas.hBackEnd->Fill({QPointF(0.0, 0.0), hDraw.hCanvas.hSize}, iWhite);
  if (hDraw.hCanvas.bScreen) Clear_Overlay();
  Mark_Changed();
}

void IGrAreaClear() {
  if (!Drawable()) return;
  Draw_Collected();
  const QRectF hPicture(QPointF(0.0, 0.0), hDraw.hCanvas.hSize);
  hDraw.hCanvas.hBackEnd->Fill(hDraw.hPlace.hArea.normalized().intersected(hPicture), iWhite);
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
  const QRectF hPicture(QPointF(0.0, 0.0), hDraw.hCanvas.hSize);
  if (!hDraw.hCanvas.bScreen) return;
  if (bRectangle) {
    const auto dInX = [&](R8 d) { return std::clamp(d, 0.0, hPicture.width()); };
    const auto dInY = [&](R8 d) { return std::clamp(d, 0.0, hPicture.height()); };
    hEnds = {dInX(hEnds.x1()), dInY(hEnds.y1()), dInX(hEnds.x2()), dInY(hEnds.y2())};
  }
  if (Clip_Line(hEnds, hPicture)) Toggle_Overlay({bRectangle, hEnds.p1(), hEnds.p2()});
}

/// Collects a segment between two points in units.
void Segment(QPointF hFrom, QPointF hTo) {
  if (!Drawable()) return;
  QLineF hLine(To_Picture(hFrom), To_Picture(hTo));
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

void Rectangle(const Limits& h) {
  const QPointF hCorner[] = {
      {h.hX.dLow,  h.hY.dLow },
      {h.hX.dHigh, h.hY.dLow },
      {h.hX.dHigh, h.hY.dHigh},
      {h.hX.dLow,  h.hY.dHigh}
  };
  if (hDraw.hState.bOverlay) return Overlay(true, {To_Picture(hCorner[0]), To_Picture(hCorner[2])});
  for (int I = 0; I < 4; ++I) Segment(hCorner[I], hCorner[(I + 1) % 4]);
}

}  // namespace

void IGrMoveTo(R4 fX, R4 fY) {
  hDraw.hState.hPosition = {R8{fX}, R8{fY}};
}

void IGrLineTo(R4 fX, R4 fY) {
  const QPointF hTo(R8{fX}, R8{fY});
  Segment(hDraw.hState.hPosition, hTo);
  hDraw.hState.hPosition = hTo;
}

void IGrSegment(R4 fX1, R4 fY1, R4 fX2, R4 fY2) {
  Segment({R8{fX1}, R8{fY1}}, {R8{fX2}, R8{fY2}});
}

void IGrRectangle(R4 fX1, R4 fY1, R4 fX2, R4 fY2) {
  if (!Drawable()) return;
  Rectangle({
      {R8{fX1}, R8{fX2}},
      {R8{fY1}, R8{fY2}}
  });
}

void IGrBorder() {
  if (Drawable()) Rectangle(hDraw.hState.hUnit);
}

void IGrMarker(R4 fX, R4 fY, I4 iMarker) {
  if (iMarker != iMarkerDisc) return Set_Error(iErrBadArgument);
  BackEnd* hBackEnd = Drawable();
  const QPointF hCentre = To_Picture(QPointF(R8{fX}, R8{fY}));
  if (!hBackEnd || !Holds(hDraw.hPlace.hVisible, hCentre)) return;
  if (hDraw.hCollected.hPen.iColour != hDraw.hState.iColour) Draw_Collected();
  hBackEnd->Disc(hCentre, dDiscRadius * hDraw.hPlace.dEm, hDraw.hState.iColour);
  Mark_Changed();
}

void IGrPlotMode1(std::string_view sMode) {
  if (sMode != "N" && sMode != "E") return Set_Error(iErrBadArgument);
  hDraw.hState.bOverlay = sMode == "E";
}

namespace {

QFont Sans_Font() {
  QFont hFont(QStringList{"Liberation Sans", "Sans Serif"});
  hFont.setStyleHint(QFont::SansSerif, QFont::PreferAntialias);
  hFont.setHintingPreference(QFont::PreferNoHinting);
  hFont.setPixelSize(NFontPixels);
  return hFont;
}

const Typeface& Sans() {
  if (!hDraw.hTypeface) hDraw.hTypeface = {Sans_Font(), QFontMetricsF(Sans_Font())};
  return *hDraw.hTypeface;
}

/// How the font of NFontPixels becomes the one in force.
struct Lettering {
  const QFontMetricsF& hMetrics = Sans().hMetrics;
  R8 dXScale, dYScale;

  Lettering() {
    dYScale = hDraw.hPlace.dEm / NFontPixels;
    const R8 dWanted = std::abs(hDraw.hState.dCharWidth * hDraw.hPlace.hArea.width());
    dXScale = dYScale * std::clamp(dWanted / (Digit() * dYScale), dMinStretch, dMaxStretch);
  }
  R8 Digit() const { return hMetrics.horizontalAdvance('0'); }
};

}  // namespace

void WGrTextFont(R4 fWidth, R4 fHeight) {
  if (!std::isfinite(fWidth) || !std::isfinite(fHeight)) return Set_Error(iErrBadArgument);
  hDraw.hState.dCharWidth = R8{fWidth};
  hDraw.hState.dCharHeight = R8{fHeight};
  Place_Area();
}

void WGrTextOrientation(Justify iJustify, R4 fAngle) {
  if (!std::isfinite(fAngle)) return Set_Error(iErrBadArgument);
  hDraw.hState.iJustify = iJustify;
  hDraw.hState.dAngle = std::fmod(R8{fAngle}, 360.0);
}

void WGrTextString(R4 fX, R4 fY, std::string_view sText) {
  BackEnd* hBackEnd = Drawable();
  if (!hBackEnd) return;
  const GraphicsState& hState = hDraw.hState;
  const QPointF hPlace = To_Picture(QPointF(R8{fX}, R8{fY}));
  const bool bLeftOut = hState.hClip && !Holds(hDraw.hPlace.hVisible, hPlace);
  if (bLeftOut || !std::isfinite(hPlace.x() + hPlace.y())) return;
  Draw_Collected();
  const Lettering hLetters;
  const QString sShown = To_QString(sText);
  const R8 dLeft = -0.5 * static_cast<I4>(hState.iJustify) * hLetters.hMetrics.horizontalAdvance(sShown);
  const R8 dBaseline = 0.5 * (hLetters.hMetrics.ascent() - hLetters.hMetrics.descent());
  QTransform hTurn = QTransform::fromTranslate(hPlace.x(), hPlace.y());
  hTurn.rotate(hState.dAngle).scale(hLetters.dXScale, hLetters.dYScale);
  hBackEnd->Write({sShown, Sans().hFont, hTurn.map(QPointF(dLeft, dBaseline)), hState.dAngle, hLetters.dXScale,
                   hLetters.dYScale, hState.iColour, hDraw.hPlace.hArea.normalized()});
  Mark_Changed();
}

R4 WGrTextLength(std::string_view sText) {
  if (!Drawable()) return 0.0f;
  const Lettering hLetters;
  const R8 dPixels = hLetters.hMetrics.horizontalAdvance(To_QString(sText)) * hLetters.dXScale;
  return static_cast<R4>(std::abs(dPixels / hDraw.hPlace.dPixelX));
}

void IGrFlush() {
  Draw_Collected();
  if (hDraw.hCanvas.hBackEnd) hDraw.hCanvas.hBackEnd->Flush();
}

namespace {

R4 Unit_Limit(I4 iSelect) {
  const Limits& h = hDraw.hState.hUnit;
  switch (iSelect) {
    case iUnitXMin: return static_cast<R4>(h.hX.dLow);
    case iUnitYMin: return static_cast<R4>(h.hY.dLow);
    case iUnitXMax: return static_cast<R4>(h.hX.dHigh);
    case iUnitYMax: return static_cast<R4>(h.hY.dHigh);
    default: Set_Error(iErrBadArgument); return 0.0f;
  }
}

}  // namespace

R4 InfoGraphics(I4 iSelect) {
  if (iSelect != iCharWidth && iSelect != iCharHeight) return Unit_Limit(iSelect);
  if (!Drawable()) return 0.0f;
  const Lettering hLetters;
  const R8 dUnits = iSelect == iCharWidth ? hLetters.Digit() * hLetters.dXScale / hDraw.hPlace.dPixelX
                                          : hDraw.hPlace.dEm / hDraw.hPlace.dPixelY;
  return static_cast<R4>(std::abs(dUnits));
}

R4 WInfoGrReal(I4 iSelect) {
  return Unit_Limit(iSelect);
}

void IGrUnitsToPixels(R4 fX, R4 fY, I4& iX, I4& iY) {
  const QPointF hPixel = To_Picture(QPointF(R8{fX}, R8{fY}));
  iX = Nint(std::floor(hPixel.x()));
  iY = Nint(std::floor(hPixel.y()));
}

void IGrPixelSize(R4& fDX, R4& fDY) {
  fDX = static_cast<R4>(std::abs(hDraw.hCanvas.dPixel / hDraw.hPlace.dPixelX));
  fDY = static_cast<R4>(std::abs(hDraw.hCanvas.dPixel / hDraw.hPlace.dPixelY));
}

GrPoint IGrPixelSize() {
  GrPoint h;
  IGrPixelSize(h.fX, h.fY);
  return h;
}

}  // namespace quillan
