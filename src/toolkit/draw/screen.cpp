// The backing image of the drawing area, and the change to another picture and back.
#include <QPainter>
#include <optional>
#include <utility>

#include "toolkit/draw/hardcopy.h"
#include "toolkit/draw/private_state.h"

namespace quillan {

using namespace toolkit;

namespace {

// The drawing of the main window while a child window has its place. Enter_Child_Area fills it, Leave_Child_Area
// empties it. Its painter is at work in hDraw alone, where its image then is again.
std::optional<Drawing> hBelow;

void Use_Canvas(const Canvas& hCanvas) {
  hDraw.hCanvas = hCanvas;
  Place_Area();
}

Canvas Screen_Canvas() {
  return {hDraw.hPainter.get(), hDraw.hScreenSize, 1.0, dMinScreenEm, true};
}

/// Size of the drawing area now, by the size it had when the image was made: while a mouse routine holds a resize back
/// the image is shown stretched.
QPointF Stretch() {
  const QSizeF hNow = hDraw.hScreen ? QSizeF(hDraw.hScreen->size()) : hDraw.hScreenSize;
  return {hNow.width() / hDraw.hScreenSize.width(), hNow.height() / hDraw.hScreenSize.height()};
}

}  // namespace

QWidget* toolkit::Drawing_Area() {
  return hDraw.hScreen;
}

void toolkit::Use_Drawing_Area(QWidget* hArea) {
  hDraw.hScreen = hArea;
}

void toolkit::Flush_Screen() {
  if (hDraw.hCanvas.bScreen) IGrFlush();
}

QImage& toolkit::Backing_Image() {
  Flush_Screen();
  hDraw.bChanged = false;
  return hDraw.hImage;
}

void toolkit::Resize_Backing_Image() {
  const QSizeF hArea(hDraw.hScreen->size());
  const R8 dRatio = hDraw.hScreen->devicePixelRatioF();
  const QSize hSize = (hArea * dRatio).toSize().expandedTo(QSize(1, 1));
  if (hDraw.hImage.size() == hSize && hDraw.hImage.devicePixelRatio() == dRatio) return;
  QImage hNew(hSize, QImage::Format_RGB32);
  hNew.setDevicePixelRatio(dRatio);
  hNew.fill(Qt::white);
  // Stretched until it is drawn again: in the middle of a mouse routine a click still hits what it is aimed at.
  if (!hDraw.hImage.isNull()) QPainter(&hNew).drawImage(QRectF(QPointF(0.0, 0.0), hArea), Backing_Image());
  hDraw.hImage = hNew;
  hDraw.hScreenSize = hArea.expandedTo(QSizeF(1.0, 1.0));
  if (!hDraw.hPainter) hDraw.hPainter = New_Painter(hDraw.hImage, 1.0);
  if (!hDraw.hScreenState) Use_Canvas(Screen_Canvas());
}

void toolkit::Drop_Backing_Image() {
  IGrHardCopyDrop();
  Clear_Overlay();
  hBelow.reset();
  hDraw = {};
}

void toolkit::Enter_Child_Area(QWidget* hArea) {
  IGrFlush();
  hBelow = std::move(hDraw);
  hDraw = {};
  Use_Drawing_Area(hArea);
}

void toolkit::Leave_Child_Area() {
  if (!hBelow) return;
  hDraw = std::move(*hBelow);
  hBelow.reset();
  if (hDraw.hScreen) Resize_Backing_Image();
}

const QImage& toolkit::Image_Below() {
  return hBelow ? hBelow->hImage : hDraw.hImage;
}

QPointF toolkit::Pixels_to_Units(QPointF hPixel) {
  const AreaPlace& h = hDraw.hPlace;
  const QPointF hStretch = Stretch();
  return {hDraw.hState.hUnit.dXLow + (hPixel.x() / hStretch.x() - h.hArea.left()) / h.dPixelX,
          hDraw.hState.hUnit.dYLow + (h.hArea.bottom() - hPixel.y() / hStretch.y()) / h.dPixelY};
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

}  // namespace quillan
