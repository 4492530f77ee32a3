#include <QPainter>
#include <QRegion>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "toolkit/draw/private_draw.h"

namespace quillan {

using namespace toolkit;

namespace {

// What lies over the image, in parts of its width and height: a band keeps its place over the plot when the window
// changes its size. Toggle_Overlay fills it, Clear_Overlay empties it.
std::vector<OverlayShape> hOverlay;

constexpr R8 dSamePart = 1.0E-6;  // far less than a pixel

QPointF Part_of(QPointF hPixel) {
  const QSizeF hSize = Drawing_Area()->size().expandedTo(QSize(1, 1));
  return {hPixel.x() / hSize.width(), hPixel.y() / hSize.height()};
}

bool Is_Same(const OverlayShape& h1, const OverlayShape& h2) {
  const auto Is_Near = [](QPointF h) { return std::abs(h.x()) < dSamePart && std::abs(h.y()) < dSamePart; };
  return h1.bRectangle == h2.bRectangle && Is_Near(h1.hPoint1 - h2.hPoint1) && Is_Near(h1.hPoint2 - h2.hPoint2);
}

/// The middle of the pixel that a position lies in; the lower and right edges of the area belong to its last pixel.
QPointF Pixel_Middle(QPointF hPart) {
  const QSize hSize = Drawing_Area()->size();
  return {std::min(std::floor(hPart.x() * hSize.width()), hSize.width() - 1.0) + 0.5,
          std::min(std::floor(hPart.y() * hSize.height()), hSize.height() - 1.0) + 0.5};
}

QRectF Box_of(const OverlayShape& hShape) {
  return QRectF(Pixel_Middle(hShape.hPoint1), Pixel_Middle(hShape.hPoint2)).normalized();
}

/// Repaints where a shape is or was. Of a rectangle the edges alone: its inside may be a full section.
void Repaint(const OverlayShape& hShape) {
  const QRect hBox = Box_of(hShape).toAlignedRect();
  QRegion hRegion(hBox.adjusted(-2, -2, 2, 2));
  if (hShape.bRectangle) hRegion -= QRegion(hBox.adjusted(2, 2, -2, -2));
  Drawing_Area()->update(hRegion);
}

// The ring around a point, in the same parts. IGrRing places it.
std::optional<QPointF> hRing;

constexpr R8 dRingRadius = 9.0;  // pixels: around the largest marker and around a letter

QPointF Ring_Middle() {
  const QSize hSize = Drawing_Area()->size();
  return {hRing->x() * hSize.width(), hRing->y() * hSize.height()};
}

void Repaint_Ring() {
  if (!hRing || !Drawing_Area()) return;
  constexpr R8 dReach = dRingRadius + 3.0;
  Drawing_Area()->update(QRectF(Ring_Middle() - QPointF(dReach, dReach), QSizeF(2.0 * dReach, 2.0 * dReach)).toRect());
}

/// On a light rim, so that it is seen where points crowd.
void Paint_Ring(QPainter& hPainter) {
  if (!hRing) return;
  hPainter.setRenderHint(QPainter::Antialiasing, true);
  for (const auto& [hColour, dWidth] : {std::pair(QColor(Qt::white), 3.5), std::pair(QColor(Qt::red), 1.5)}) {
    hPainter.setPen(QPen(hColour, dWidth));
    hPainter.drawEllipse(Ring_Middle(), dRingRadius, dRingRadius);
  }
}

}  // namespace

void toolkit::Toggle_Overlay(const OverlayShape& hInPixels) {
  if (!Drawing_Area()) return;
  const OverlayShape hShape{hInPixels.bRectangle, Part_of(hInPixels.hPoint1), Part_of(hInPixels.hPoint2)};
  const auto hFound = std::ranges::find_if(hOverlay, [&](const OverlayShape& h) { return Is_Same(h, hShape); });
  if (hFound == hOverlay.end())
    hOverlay.push_back(hShape);
  else
    hOverlay.erase(hFound);
  Repaint(hShape);
}

void toolkit::Clear_Overlay() {
  IGrRingOff();
  if (hOverlay.empty()) return;
  hOverlay.clear();
  if (Drawing_Area()) Drawing_Area()->update();
}

void toolkit::Paint_Overlay(QPainter& hPainter) {
  hPainter.setPen(QPen(Qt::red, 1.0));
  hPainter.setBrush(Qt::NoBrush);
  for (const OverlayShape& h : hOverlay) {
    hPainter.setRenderHint(QPainter::Antialiasing, !h.bRectangle);
    if (h.bRectangle)
      hPainter.drawRect(Box_of(h));
    else
      hPainter.drawLine(Pixel_Middle(h.hPoint1), Pixel_Middle(h.hPoint2));
  }
  Paint_Ring(hPainter);
}

void IGrRing(R4 fX, R4 fY) {
  if (!Drawing_Area()) return;
  Repaint_Ring();
  hRing = Part_of(Units_to_Pixels(QPointF(R8{fX}, R8{fY})));
  Repaint_Ring();
}

std::optional<QPointF> toolkit::Ring_Place() {
  return hRing;
}

void IGrRingOff() {
  Repaint_Ring();
  hRing.reset();
}

}  // namespace quillan
