#include "toolkit/draw.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "toolkit/private.h"

namespace quillan {

using namespace toolkit;

namespace {

constexpr R8 dMinEm = 9.0;        // pixels: smaller letters cannot be read
constexpr R8 dMinStretch = 0.7;   // narrower letters neither
constexpr int NFontPixels = 100;  // size of the font that all text is scaled from

struct Range {
  R8 dLow = 0.0, dHigh = 1.0;
  R8 Span() const { return dHigh - dLow; }
};

// What is in force. The procedures of draw.h fill it, Drop_Backing_Image restores it.
struct Graphics {
  Range hAreaX, hAreaY;  // fractions of the drawing area
  Range hUnitX, hUnitY;
  QColor iColour = Qt::black;
  R8 dCharWidth = 0.01, dCharHeight = 0.02;  // fractions of the area in use
  Justify iJustify = Justify::Left;
  R4 fAngle = 0.0f;  // degrees clockwise: -90 reads upward
  QImage hImage;
};
Graphics hGraphics;

constexpr struct {
  std::string_view sName;
  QRgb iColour;
} hNamedColour[] = {
    {"BLACK",   0xFF000000},
    {"RED",     0xFFFF0000},
    {"MAGENTA", 0xFFFF00FF},
    {"BLUE",    0xFF0000FF},
    {"GREEN",   0xFF008000},
    {"WHITE",   0xFFFFFFFF},
};

/// Takes the limits of an area or of units; limits that span nothing are refused.
void Take_Range(R4 fXMin, R4 fYMin, R4 fXMax, R4 fYMax, Range& hX, Range& hY) {
  const R8 dXSpan = R8{fXMax} - R8{fXMin};
  const R8 dYSpan = R8{fYMax} - R8{fYMin};
  const bool bGood = std::isfinite(dXSpan) && std::isfinite(dYSpan) && dXSpan != 0.0 && dYSpan != 0.0;
  if (!bGood) return Set_Error(iErrBadArgument);
  hX = {R8{fXMin}, R8{fXMax}};
  hY = {R8{fYMin}, R8{fYMax}};
}

/// The area in use in pixels, from the upper left corner of the drawing area.
QRectF Area_in_Pixels() {
  if (!Drawing_Area()) return {};
  const R8 dWidth = Drawing_Area()->width();
  const R8 dHeight = Drawing_Area()->height();
  return {hGraphics.hAreaX.dLow * dWidth, (1.0 - hGraphics.hAreaY.dHigh) * dHeight, hGraphics.hAreaX.Span() * dWidth,
          hGraphics.hAreaY.Span() * dHeight};
}

bool Has_Image() {
  if (hGraphics.hImage.isNull()) Set_Error(iErrNoWindow);
  return !hGraphics.hImage.isNull();
}

QFont Sans_Font() {
  QFont hFont(QStringList{"Liberation Sans", "Sans Serif"});
  hFont.setStyleHint(QFont::SansSerif, QFont::PreferAntialias);
  hFont.setHintingPreference(QFont::PreferNoHinting);
  hFont.setPixelSize(NFontPixels);
  return hFont;
}

/// How the font of NFontPixels becomes the one in force.
struct Lettering {
  QFont hFont = Sans_Font();
  QFontMetricsF hMetrics{hFont};
  R8 dXScale, dYScale;

  Lettering() {
    const QRectF hArea = Area_in_Pixels();
    const R8 dEm = std::max(std::abs(hGraphics.dCharHeight * hArea.height()), dMinEm);
    dYScale = dEm / NFontPixels;
    const R8 dNatural = Digit() * dYScale;
    dXScale = dYScale * std::max(std::abs(hGraphics.dCharWidth * hArea.width()) / dNatural, dMinStretch);
  }
  R8 Digit() const { return hMetrics.horizontalAdvance('0'); }
  R8 Em_in_Pixels() const { return dYScale * NFontPixels; }
};

R8 X_Units_a_Pixel() {
  return hGraphics.hUnitX.Span() / Area_in_Pixels().width();
}

R8 Y_Units_a_Pixel() {
  return hGraphics.hUnitY.Span() / Area_in_Pixels().height();
}

R4 Unit_Limit(I4 iSelect) {
  switch (iSelect) {
    case iUnitXMin: return static_cast<R4>(hGraphics.hUnitX.dLow);
    case iUnitYMin: return static_cast<R4>(hGraphics.hUnitY.dLow);
    case iUnitXMax: return static_cast<R4>(hGraphics.hUnitX.dHigh);
    case iUnitYMax: return static_cast<R4>(hGraphics.hUnitY.dHigh);
    default: Set_Error(iErrBadArgument); return 0.0f;
  }
}

}  // namespace

QImage& toolkit::Backing_Image() {
  return hGraphics.hImage;
}

void toolkit::Resize_Backing_Image() {
  const R8 dRatio = Drawing_Area()->devicePixelRatioF();
  const QSize hSize = (QSizeF(Drawing_Area()->size()) * dRatio).toSize().expandedTo(QSize(1, 1));
  if (hGraphics.hImage.size() == hSize && hGraphics.hImage.devicePixelRatio() == dRatio) return;
  QImage hNew(hSize, QImage::Format_RGB32);
  hNew.setDevicePixelRatio(dRatio);
  hNew.fill(Qt::white);
  if (!hGraphics.hImage.isNull()) QPainter(&hNew).drawImage(QPointF(0.0, 0.0), hGraphics.hImage);
  hGraphics.hImage = hNew;
}

void toolkit::Drop_Backing_Image() {
  hGraphics = {};
}

QPointF toolkit::Pixels_to_Units(QPointF hPixel) {
  const QRectF hArea = Area_in_Pixels();
  return {hGraphics.hUnitX.dLow + (hPixel.x() - hArea.left()) * X_Units_a_Pixel(),
          hGraphics.hUnitY.dLow + (hArea.bottom() - hPixel.y()) * Y_Units_a_Pixel()};
}

QPointF toolkit::Units_to_Pixels(QPointF hUnit) {
  const QRectF hArea = Area_in_Pixels();
  return {hArea.left() + (hUnit.x() - hGraphics.hUnitX.dLow) / X_Units_a_Pixel(),
          hArea.bottom() - (hUnit.y() - hGraphics.hUnitY.dLow) / Y_Units_a_Pixel()};
}

void IGrArea(R4 fXMin, R4 fYMin, R4 fXMax, R4 fYMax) {
  Take_Range(fXMin, fYMin, fXMax, fYMax, hGraphics.hAreaX, hGraphics.hAreaY);
}

void IGrUnits(R4 fXMin, R4 fYMin, R4 fXMax, R4 fYMax) {
  Take_Range(fXMin, fYMin, fXMax, fYMax, hGraphics.hUnitX, hGraphics.hUnitY);
}

void WindowClear() {
  if (!Has_Image()) return;
  hGraphics.hImage.fill(Qt::white);
  Drawing_Area()->update();
}

void IGrColour(std::string_view sName) {
  for (const auto& hRow : hNamedColour) {
    if (hRow.sName == sName) {
      hGraphics.iColour = QColor(hRow.iColour);
      return;
    }
  }
  Set_Error(iErrBadArgument);
}

void WGrTextFont(R4 fWidth, R4 fHeight) {
  hGraphics.dCharWidth = R8{fWidth};
  hGraphics.dCharHeight = R8{fHeight};
}

void WGrTextOrientation(Justify iJustify, R4 fAngle) {
  hGraphics.iJustify = iJustify;
  hGraphics.fAngle = fAngle;
}

void WGrTextString(R4 fX, R4 fY, std::string_view sText) {
  if (!Has_Image()) return;
  const Lettering hLetters;
  const QString sShown = To_QString(sText);
  const R8 dLeft = -0.5 * static_cast<I4>(hGraphics.iJustify) * hLetters.hMetrics.horizontalAdvance(sShown);
  const R8 dBaseline = 0.5 * (hLetters.hMetrics.ascent() - hLetters.hMetrics.descent());
  QPainter hPainter(&hGraphics.hImage);
  hPainter.setRenderHint(QPainter::TextAntialiasing);
  hPainter.setFont(hLetters.hFont);
  hPainter.setPen(hGraphics.iColour);
  hPainter.translate(Units_to_Pixels(QPointF(R8{fX}, R8{fY})));
  hPainter.rotate(R8{hGraphics.fAngle});
  hPainter.scale(hLetters.dXScale, hLetters.dYScale);
  hPainter.drawText(QPointF(dLeft, dBaseline), sShown);
  Drawing_Area()->update();
}

R4 WGrTextLength(std::string_view sText) {
  if (!Has_Image()) return 0.0f;
  const Lettering hLetters;
  const R8 dPixels = hLetters.hMetrics.horizontalAdvance(To_QString(sText)) * hLetters.dXScale;
  return static_cast<R4>(std::abs(dPixels * X_Units_a_Pixel()));
}

R4 InfoGraphics(I4 iSelect) {
  if (iSelect != iCharWidth && iSelect != iCharHeight) return Unit_Limit(iSelect);
  if (!Has_Image()) return 0.0f;
  const Lettering hLetters;
  const R8 dUnits = iSelect == iCharWidth ? hLetters.Digit() * hLetters.dXScale * X_Units_a_Pixel()
                                          : hLetters.Em_in_Pixels() * Y_Units_a_Pixel();
  return static_cast<R4>(std::abs(dUnits));
}

R4 WInfoGrReal(I4 iSelect) {
  return Unit_Limit(iSelect);
}

}  // namespace quillan
