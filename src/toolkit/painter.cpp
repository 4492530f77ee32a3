#include <QImage>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include "toolkit/private_draw.h"

namespace quillan {

using namespace toolkit;

namespace {

constexpr R4 fOpaque = 255.0f;
constexpr R4 fHalfRoot = 0.70710678f;

/// A colour, iCover parts of 255 of it, over what is there.
QRgb Blend(QRgb iBelow, QRgb iColour, std::uint32_t iCover) {
  const std::uint32_t iRest = 255 - iCover;
  const std::uint32_t iRedBlue = (iColour & 0xFF00FF) * iCover + (iBelow & 0xFF00FF) * iRest + 0x800080;
  const std::uint32_t iGreen = ((iColour >> 8) & 0xFF) * iCover + ((iBelow >> 8) & 0xFF) * iRest + 0x80;
  return 0xFF000000 | (((iRedBlue + ((iRedBlue >> 8) & 0xFF00FF)) >> 8) & 0xFF00FF) |
         ((iGreen + (iGreen >> 8)) & 0xFF00);
}

/// The pixels of an image, to be written.
struct Pixels {
  explicit Pixels(QImage& hImage)
      : iFirst(reinterpret_cast<QRgb*>(hImage.bits())),
        NRow(hImage.bytesPerLine() / 4),
        NWidth(hImage.width()),
        NHeight(hImage.height()) {}
  QRgb* Row(int iRow) const { return iFirst + iRow * NRow; }

  QRgb* iFirst;
  qsizetype NRow;
  int NWidth, NHeight;
};

/// How much of each pixel the lines of one call cover, 0 to 255. Where lines meet or overlap the greatest counts: the
/// joints of a curve are neither darker nor lighter than the rest of it. Painting empties it.
class Coverage {
 public:
  void Resize(QSize hSize) {
    if (NWidth == hSize.width() && NHeight == hSize.height()) return;
    NWidth = hSize.width();
    NHeight = hSize.height();
    NRow = static_cast<std::size_t>(NWidth + NFour);
    iCover.assign(NRow * static_cast<std::size_t>(NHeight), 0);
    hUsed = {NWidth, NHeight, 0, 0};
  }

  /// Adds a line with round ends. A pixel is covered by as much as its centre lies inside the edge.
  void Add(const QLineF& hLine, R4 fHalfWidth);
  void Paint(const Pixels& hPixels, QRgb iColour);

 private:
  static constexpr int NFour = 4;  // pixels that are worked out together

  /// Pixels from the first to before the end.
  struct Box {
    int iLeft, iTop, iRight, iBottom;
  };
  /// A line as its start, direction and length, and half its width and half a pixel.
  struct Stroke {
    R4 fX, fY, fDX, fDY, fLength, fReach;
  };

  Box Reached(const Stroke& h) const;
  static void Cover_Four(const Stroke& h, R4 fX, R4 fY, std::uint8_t* iPixel);
  void Paint_Row(const std::uint8_t* iRow, int NPixel, QRgb* iPixel, QRgb iColour) const;

  int NWidth = 0, NHeight = 0;
  std::size_t NRow = 0;  // bytes of a row: four pixels may reach out of it
  std::vector<std::uint8_t> iCover;
  Box hUsed{};
};

/// The pixels that a line can touch.
Coverage::Box Coverage::Reached(const Stroke& h) const {
  const R4 fXEnd = h.fX + h.fDX * h.fLength;
  const R4 fYEnd = h.fY + h.fDY * h.fLength;
  const auto iFirst = [&](R4 f1, R4 f2) { return static_cast<int>(std::max(std::min(f1, f2) - h.fReach, 0.0f)); };
  const auto iEnd = [&](R4 f1, R4 f2, int N) {
    return std::min(static_cast<int>(std::max(std::max(f1, f2) + h.fReach, -1.0f)) + 1, N);
  };
  return {iFirst(h.fX, fXEnd), iFirst(h.fY, fYEnd), iEnd(h.fX, fXEnd, NWidth), iEnd(h.fY, fYEnd, NHeight)};
}

/// Four pixels side by side, the centre of the first at fX, fY from the start of the line.
void Coverage::Cover_Four(const Stroke& h, R4 fX, R4 fY, std::uint8_t* iPixel) {
  std::array<std::uint8_t, NFour> iNew;
  for (int I = 0; I < NFour; ++I) {
    const R4 fXHere = fX + static_cast<R4>(I);
    const R4 fAlong = fXHere * h.fDX + fY * h.fDY;
    const R4 fAcross = std::abs(fXHere * h.fDY - fY * h.fDX);
    const R4 fBeyond = std::max(std::max(-fAlong, fAlong - h.fLength), 0.0f);
    // The ends are eight-sided: a root for every pixel would cost as much as all the rest.
    const R4 fDistance = std::max(std::max(fAcross, fBeyond), (fAcross + fBeyond) * fHalfRoot);
    const R4 fInside = h.fReach - fDistance;
    const R4 fPart = std::min(std::max(fInside, 0.0f), 1.0f) * fOpaque + 0.5f;
    iNew[static_cast<std::size_t>(I)] = static_cast<std::uint8_t>(static_cast<int>(fPart));
  }
  for (int I = 0; I < NFour; ++I) iPixel[I] = std::max(iPixel[I], iNew[static_cast<std::size_t>(I)]);
}

void Coverage::Add(const QLineF& hLine, R4 fHalfWidth) {
  constexpr R4 fShort = 1.0e-3f;  // pixels: a line without a direction
  const R4 fDX = static_cast<R4>(hLine.dx());
  const R4 fDY = static_cast<R4>(hLine.dy());
  const R4 fLength = std::sqrt(fDX * fDX + fDY * fDY);
  Stroke h{static_cast<R4>(hLine.x1()), static_cast<R4>(hLine.y1()), 1.0f, 0.0f, 0.0f, fHalfWidth + 0.5f};
  if (fLength > fShort) h = {h.fX, h.fY, fDX / fLength, fDY / fLength, fLength, h.fReach};
  const Box hBox = Reached(h);
  if (hBox.iLeft >= hBox.iRight || hBox.iTop >= hBox.iBottom) return;

  // Of each row, where it cuts the strip on both sides of the line.
  const bool bLevel = std::abs(h.fDY) < fShort;
  const R4 fSlope = bLevel ? 0.0f : h.fDX / h.fDY;
  const R4 fSide = bLevel ? static_cast<R4>(NWidth) : h.fReach / std::abs(h.fDY);
  R4 fY = static_cast<R4>(hBox.iTop) + 0.5f - h.fY;
  for (int iRow = hBox.iTop; iRow < hBox.iBottom; ++iRow, fY += 1.0f) {
    const R4 fMiddle = h.fX + fY * fSlope;
    const int iLeft = std::max(hBox.iLeft, static_cast<int>(std::max(fMiddle - fSide, 0.0f)));
    const int iRight = static_cast<int>(std::min(static_cast<R4>(hBox.iRight), fMiddle + fSide + 1.0f));
    std::uint8_t* iPixel = iCover.data() + static_cast<std::size_t>(iRow) * NRow;
    for (int I = iLeft; I < iRight; I += NFour) Cover_Four(h, static_cast<R4>(I) + 0.5f - h.fX, fY, iPixel + I);
  }
  hUsed = {std::min(hUsed.iLeft, hBox.iLeft), std::min(hUsed.iTop, hBox.iTop), std::max(hUsed.iRight, hBox.iRight),
           std::max(hUsed.iBottom, hBox.iBottom)};
}

void Coverage::Paint(const Pixels& hPixels, QRgb iColour) {
  const int NPixel = hUsed.iRight - hUsed.iLeft;
  for (int iRow = hUsed.iTop; iRow < hUsed.iBottom && NPixel > 0; ++iRow) {
    std::uint8_t* iFirst = iCover.data() + static_cast<std::size_t>(iRow) * NRow + hUsed.iLeft;
    Paint_Row(iFirst, NPixel, hPixels.Row(iRow) + hUsed.iLeft, iColour);
    std::fill_n(iFirst, NPixel + NFour, std::uint8_t{0});
  }
  hUsed = {NWidth, NHeight, 0, 0};
}

void Coverage::Paint_Row(const std::uint8_t* iRow, int NPixel, QRgb* iPixel, QRgb iColour) const {
  for (int I = 0; I < NPixel;) {
    std::uint64_t iEight = 1;  // most pixels are empty: they are passed over eight at a time
    if (I + 8 <= NPixel) std::memcpy(&iEight, iRow + I, 8);
    const int iEnd = std::min(I + 8, NPixel);
    for (; iEight != 0 && I < iEnd; ++I) {
      if (iRow[I] != 0) iPixel[I] = Blend(iPixel[I], iColour, iRow[I]);
    }
    I = iEnd;
  }
}

/// A disc as it covers pixels, for one radius; its centre is held to a quarter of a pixel.
class DiscStamp {
 public:
  void Stamp(const Pixels& hPixels, QPointF hCentre, R4 fSize, QRgb iColour);

 private:
  static constexpr int NPhase = 4;

  /// A row of the stamp: pixels that are covered in part, wholly, in part.
  struct Span {
    int iBeg, iWhole, iRest, iEnd;
  };
  struct Phase {
    std::vector<std::uint8_t> iCover;  // rows of NSide pixels; empty: not yet made
    std::vector<Span> hSpan;
  };
  void Make(Phase& h, int iX, int iY) const;
  Span Span_of(const std::uint8_t* iRow) const;

  R4 fRadius = -1.0f;
  int NSide = 0;
  int iCentre = 0;  // pixel of the stamp that the centre lies in
  std::array<Phase, NPhase * NPhase> hPhase;
};

DiscStamp::Span DiscStamp::Span_of(const std::uint8_t* iRow) const {
  const auto iPartly = [&](const std::uint8_t i) { return i != 0; };
  const auto iWholly = [&](const std::uint8_t i) { return i == 255; };
  const std::uint8_t* iEnd = iRow + NSide;
  const std::uint8_t* iFirst = std::find_if(iRow, iEnd, iPartly);
  const std::uint8_t* iWhole = std::find_if(iFirst, iEnd, iWholly);
  const std::uint8_t* iRest = std::find_if_not(iWhole, iEnd, iWholly);
  const std::uint8_t* iLast = std::find_if_not(iWhole == iEnd ? iFirst : iRest, iEnd, iPartly);
  if (iWhole == iEnd) iWhole = iRest = iLast;
  const auto iPlace = [&](const std::uint8_t* i) { return static_cast<int>(i - iRow); };
  return {iPlace(iFirst), iPlace(iWhole), iPlace(iRest), iPlace(iLast)};
}

void DiscStamp::Make(Phase& h, int iX, int iY) const {
  const auto fMiddle = [&](int iPart) { return static_cast<R4>(iCentre) + (static_cast<R4>(iPart) + 0.5f) / NPhase; };
  for (int iRow = 0; iRow < NSide; ++iRow) {
    for (int I = 0; I < NSide; ++I) {
      const R4 fX = static_cast<R4>(I) + 0.5f - fMiddle(iX);
      const R4 fY = static_cast<R4>(iRow) + 0.5f - fMiddle(iY);
      const R4 fInside = std::clamp(fRadius + 0.5f - std::hypot(fX, fY), 0.0f, 1.0f);
      h.iCover.push_back(static_cast<std::uint8_t>(fInside * fOpaque + 0.5f));
    }
    h.hSpan.push_back(Span_of(h.iCover.data() + iRow * NSide));
  }
}

void DiscStamp::Stamp(const Pixels& hPixels, QPointF hPoint, R4 fSize, QRgb iColour) {
  if (fSize != fRadius) {
    fRadius = fSize;
    iCentre = static_cast<int>(std::ceil(fRadius + 0.5f));
    NSide = 2 * iCentre + 1;
    hPhase = {};
  }
  const int iX = static_cast<int>(std::floor(hPoint.x() * NPhase));
  const int iY = static_cast<int>(std::floor(hPoint.y() * NPhase));
  const int iPhaseX = iX & (NPhase - 1);
  const int iPhaseY = iY & (NPhase - 1);
  Phase& h = hPhase[static_cast<std::size_t>(iPhaseY * NPhase + iPhaseX)];
  if (h.iCover.empty()) Make(h, iPhaseX, iPhaseY);

  const int iLeft = (iX - iPhaseX) / NPhase - iCentre;
  const int iTop = (iY - iPhaseY) / NPhase - iCentre;
  const auto iHeld = [&](int I) { return std::clamp(iLeft + I, 0, hPixels.NWidth); };
  const int iLast = std::min(NSide, hPixels.NHeight - iTop);
  for (int iRow = std::max(0, -iTop); iRow < iLast; ++iRow) {
    const Span hSpan = h.hSpan[static_cast<std::size_t>(iRow)];
    const std::uint8_t* iCover = h.iCover.data() + iRow * NSide;
    QRgb* iPixel = hPixels.Row(iTop + iRow);
    for (int I = iHeld(hSpan.iBeg); I < iHeld(hSpan.iWhole); ++I)
      iPixel[I] = Blend(iPixel[I], iColour, iCover[I - iLeft]);
    for (int I = iHeld(hSpan.iWhole); I < iHeld(hSpan.iRest); ++I) iPixel[I] = iColour;
    for (int I = iHeld(hSpan.iRest); I < iHeld(hSpan.iEnd); ++I)
      iPixel[I] = Blend(iPixel[I], iColour, iCover[I - iLeft]);
  }
}

class Painter : public BackEnd {
 public:
  Painter(QImage& hPicture, R8 dOnePixel) : hImage(hPicture), dPixel(dOnePixel) {}

  void Lines(std::span<const QLineF> hLine, const Pen& hPen) override;
  void Fill(const QRectF& hRectangle, QRgb iColour) override;
  void Disc(QPointF hCentre, R8 dRadius, QRgb iColour) override {
    const R8 dRatio = hImage.devicePixelRatio();
    hStamp.Stamp(Pixels(hImage), hCentre * dRatio, static_cast<R4>(dRadius * dRatio), iColour);
  }
  void Write(const Letters& hLetters) override;

 private:
  QLineF On_Pixels(const QLineF& hLine, R8 dWidth) const;

  QImage& hImage;
  R8 dPixel;
  Coverage hCoverage;
  DiscStamp hStamp;
};

/// A level or upright line where it covers whole pixels.
QLineF Painter::On_Pixels(const QLineF& hLine, R8 dWidth) const {
  constexpr R8 dStraight = 0.01;  // pixels: what rounding leaves of a line that is meant to be straight
  if (std::abs(hLine.dx()) > dStraight && std::abs(hLine.dy()) > dStraight) return hLine;
  const auto dSnapped = [&](R8 d, int N) {
    const R8 dMiddle = std::round(d - 0.5 * dWidth) + 0.5 * dWidth;
    return std::max(std::min(dMiddle, N - 0.5 * dWidth), 0.5 * dWidth);
  };
  return {dSnapped(hLine.x1(), hImage.width()), dSnapped(hLine.y1(), hImage.height()),
          dSnapped(hLine.x2(), hImage.width()), dSnapped(hLine.y2(), hImage.height())};
}

void Painter::Lines(std::span<const QLineF> hLine, const Pen& hPen) {
  const R8 dRatio = hImage.devicePixelRatio();
  const R8 dWidth = std::max(hPen.dWidth * dRatio, 1.0);
  const R8 dWhole = std::max(std::round(dWidth), 1.0);
  const bool bThin = hPen.dWidth <= dPixel;
  hCoverage.Resize(hImage.size());
  for (const QLineF& h : hLine) {
    const QLineF hPixels(h.p1() * dRatio, h.p2() * dRatio);
    const QLineF hPlaced = bThin ? On_Pixels(hPixels, dWhole) : hPixels;
    hCoverage.Add(hPlaced, static_cast<R4>(0.5 * dWidth));
  }
  hCoverage.Paint(Pixels(hImage), hPen.iColour);
}

void Painter::Fill(const QRectF& hRectangle, QRgb iColour) {
  const R8 dRatio = hImage.devicePixelRatio();
  const QRectF hPixels(hRectangle.topLeft() * dRatio, hRectangle.bottomRight() * dRatio);
  const QRect hBox = hPixels.toRect().intersected(hImage.rect());
  for (int iRow = hBox.top(); iRow <= hBox.bottom(); ++iRow)
    std::fill_n(Pixels(hImage).Row(iRow) + hBox.left(), hBox.width(), iColour);
}

void Painter::Write(const Letters& hLetters) {
  QPainter hPainter(&hImage);
  hPainter.setRenderHint(QPainter::TextAntialiasing);
  hPainter.setFont(hLetters.hFont);
  hPainter.setPen(QColor(hLetters.iColour));
  hPainter.setClipRect(hLetters.hClip);
  hPainter.translate(hLetters.hStart);
  hPainter.rotate(hLetters.dAngle);
  hPainter.scale(hLetters.dXScale, hLetters.dYScale);
  hPainter.drawText(QPointF(0.0, 0.0), hLetters.sText);
}

}  // namespace

std::unique_ptr<BackEnd> toolkit::New_Painter(QImage& hImage, R8 dPixel) {
  return std::make_unique<Painter>(hImage, dPixel);
}

}  // namespace quillan
