#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "toolkit/draw/coverage.h"
#include "toolkit/draw/private_draw.h"

namespace quillan {

using namespace toolkit;

namespace {

class Painter : public BackEnd {
 public:
  Painter(QImage& hPicture, R8 dOnePixel) : hImage(hPicture), dThin(dOnePixel) {}

  void Lines(std::span<const QLineF> hLine, const Pen& hPen) override;
  void Fill(const QRectF& hRectangle, QRgb iColour) override;
  void Disc(QPointF hCentre, R8 dRadius, QRgb iColour) override;
  void Write(const Letters& hLetters) override;
  void Flush() override;

 private:
  void Use_Colour(QRgb iNew);
  QLineF On_Pixels(const QLineF& hLine, R8 dWidth) const;

  QImage& hImage;
  R8 dThin;
  Coverage hCoverage;  // not yet painted, in iColour
  QRgb iColour = 0;
};

void Painter::Use_Colour(QRgb iNew) {
  if (iNew != iColour) Flush();
  iColour = iNew;
  hCoverage.Resize(hImage.width(), hImage.height());
}

void Painter::Flush() {
  if (hCoverage.Is_Empty()) return;
  hCoverage.Resize(hImage.width(), hImage.height());
  hCoverage.Paint({reinterpret_cast<QRgb*>(hImage.bits()), hImage.bytesPerLine() / 4, hImage.width(), hImage.height()},
                  iColour);
}

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
  Use_Colour(hPen.iColour);
  const R8 dRatio = hImage.devicePixelRatio();
  const R8 dWidth = std::max(hPen.dWidth * dRatio, 1.0);
  for (const QLineF& h : hLine) {
    const QLineF hPixels(h.p1() * dRatio, h.p2() * dRatio);
    const QLineF hPlaced = hPen.dWidth <= dThin ? On_Pixels(hPixels, std::round(dWidth)) : hPixels;
    hCoverage.Add_Line(static_cast<R4>(hPlaced.x1()), static_cast<R4>(hPlaced.y1()), static_cast<R4>(hPlaced.x2()),
                       static_cast<R4>(hPlaced.y2()), static_cast<R4>(dWidth));
  }
}

void Painter::Disc(QPointF hCentre, R8 dRadius, QRgb iNew) {
  Use_Colour(iNew);
  const R8 dRatio = hImage.devicePixelRatio();
  const R4 fX = static_cast<R4>(hCentre.x() * dRatio);
  const R4 fY = static_cast<R4>(hCentre.y() * dRatio);
  const R4 fRadius = static_cast<R4>(dRadius * dRatio);
  if (hCoverage.Is_Far(fX, fY, fRadius)) Flush();
  hCoverage.Add_Disc(fX, fY, fRadius);
}

void Painter::Fill(const QRectF& hRectangle, QRgb iNew) {
  Flush();
  const R8 dRatio = hImage.devicePixelRatio();
  const QRectF hPixels(hRectangle.topLeft() * dRatio, hRectangle.bottomRight() * dRatio);
  // Each edge by itself: rectangles that share one leave no gap.
  const QRect hWhole(QPoint(qRound(hPixels.left()), qRound(hPixels.top())),
                     QPoint(qRound(hPixels.right()) - 1, qRound(hPixels.bottom()) - 1));
  const QRect hBox = hWhole.intersected(hImage.rect());
  for (int iRow = hBox.top(); iRow <= hBox.bottom(); ++iRow)
    std::fill_n(reinterpret_cast<QRgb*>(hImage.scanLine(iRow)) + hBox.left(), hBox.width(), iNew);
}

void Painter::Write(const Letters& hLetters) {
  Flush();
  if (hImage.isNull()) return;  // there was no memory for it
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
