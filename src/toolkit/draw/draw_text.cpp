// Text of draw.h: the font in force, and where the letters stand.
#include <QTransform>
#include <algorithm>
#include <cmath>

#include "toolkit/draw/last_error.h"
#include "toolkit/draw/private_state.h"

namespace quillan {

using namespace toolkit;

namespace {

constexpr R8 dMinStretch = 0.7;  // narrower letters cannot be read
constexpr R8 dMaxStretch = 10.0;

const Typeface& Sans() {
  if (hDraw.hTypeface) return *hDraw.hTypeface;
  QFont hFont(QStringList{"Liberation Sans", "Sans Serif"});
  hFont.setStyleHint(QFont::SansSerif, QFont::PreferAntialias);
  hFont.setHintingPreference(QFont::PreferNoHinting);
  hFont.setPixelSize(NFontPixels);
  return hDraw.hTypeface.emplace(Typeface{hFont, QFontMetricsF(hFont)});
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

QString toolkit::To_QString(std::string_view sBytes) {
  const QUtf8StringView sText(sBytes.data(), static_cast<qsizetype>(sBytes.size()));
  return sText.isValidUtf8() ? sText.toString() : QString::fromLatin1(QByteArrayView(sBytes.data(), sText.size()));
}

std::string toolkit::To_Bytes(const QString& sText) {
  return sText.toStdString();
}

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
  hBackEnd->Write({sShown, Sans().hFont, hTurn.map(QPointF(dLeft, dBaseline)), hState.iJustify,
                   hTurn.map(QPointF(0.0, dBaseline)), hState.dAngle, hLetters.dXScale, hLetters.dYScale,
                   hState.iColour, hDraw.hPlace.hArea.normalized()});
  Mark_Changed();
}

R4 WGrTextLength(std::string_view sText) {
  if (!Drawable()) return 0.0f;
  const Lettering hLetters;
  const R8 dPixels = hLetters.hMetrics.horizontalAdvance(To_QString(sText)) * hLetters.dXScale;
  return static_cast<R4>(std::abs(dPixels / hDraw.hPlace.dPixelX));
}

R4 InfoGraphics(I4 iSelect) {
  const Limits& h = hDraw.hState.hUnit;
  switch (iSelect) {
    case iUnitXMin: return static_cast<R4>(h.dXLow);
    case iUnitYMin: return static_cast<R4>(h.dYLow);
    case iUnitXMax: return static_cast<R4>(h.dXHigh);
    case iUnitYMax: return static_cast<R4>(h.dYHigh);
    case iCharWidth:
    case iCharHeight: break;
    default: Set_Error(iErrBadArgument); return 0.0f;
  }
  if (!Drawable()) return 0.0f;
  const Lettering hLetters;
  const R8 dUnits = iSelect == iCharWidth ? hLetters.Digit() * hLetters.dXScale / hDraw.hPlace.dPixelX
                                          : hDraw.hPlace.dEm / hDraw.hPlace.dPixelY;
  return static_cast<R4>(std::abs(dUnits));
}

}  // namespace quillan
