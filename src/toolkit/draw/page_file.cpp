// Pages of true lines and letters in files that the window system's own writers make: SVG and PDF.
#include <QPageSize>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>
#include <QSvgGenerator>

#include "base/program.h"
#include "toolkit/draw/private_draw.h"
#include "toolkit/draw/private_watched.h"

namespace quillan {

using namespace toolkit;

namespace {

constexpr R8 dMillimetresAnInch = 25.4;

using NewDevice = std::unique_ptr<QPaintDevice>(const PageSize& hSize, QIODevice& hBytes);

/// Paints with the lines, shapes and letters of the window system.
class Page : public PageFile {
 public:
  Page(const PageSize& hSize, NewDevice& New_Device);

  void Lines(std::span<const QLineF> hLine, const Pen& hPen) override;
  void Fill(const QRectF& hRectangle, QRgb iColour) override;
  void Disc(QPointF hCentre, R8 dRadius, QRgb iColour) override;
  void Write(const Letters& hLetters) override;
  std::string Bytes() override;

 private:
  void Use_Fill(QRgb iColour);

  // Each needs the ones before it to the end.
  WatchedBytes hBytes;
  std::unique_ptr<QPaintDevice> hDevice;
  QPainter hPainter;
  QRectF hWhole;
  std::string sTitle;
};

/// The picture fills the device, whatever that makes of its size.
Page::Page(const PageSize& h, NewDevice& New_Device) : hWhole({0.0, 0.0}, h.hUnits), sTitle(h.sTitle) {
  if (!hBytes.open(QIODevice::WriteOnly)) return;
  hDevice = New_Device(h, hBytes);
  if (!hPainter.begin(hDevice.get())) return;
  hPainter.setRenderHint(QPainter::Antialiasing);
  hPainter.scale(hDevice->width() / h.hUnits.width(), hDevice->height() / h.hUnits.height());
}

/// One path, so that a curve is one piece to whoever edits the picture.
void Page::Lines(std::span<const QLineF> hLine, const Pen& hPen) {
  QPainterPath hPath;
  for (const QLineF& h : hLine) {
    if (hPath.elementCount() == 0 || hPath.currentPosition() != h.p1()) hPath.moveTo(h.p1());
    hPath.lineTo(h.p2());
  }
  hPainter.setPen(QPen(QColor(hPen.iColour), hPen.dWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  hPainter.setBrush(Qt::NoBrush);
  hPainter.drawPath(hPath);
}

/// Filled shapes have no outline. Only what changes is set: each setting takes more of the file than a disc.
void Page::Use_Fill(QRgb iColour) {
  const QBrush hBrush{QColor(iColour)};
  if (hPainter.pen().style() != Qt::NoPen) hPainter.setPen(Qt::NoPen);
  if (hPainter.brush() != hBrush) hPainter.setBrush(hBrush);
}

void Page::Fill(const QRectF& hRectangle, QRgb iColour) {
  Use_Fill(iColour);
  hPainter.drawRect(hRectangle);
}

void Page::Disc(QPointF hCentre, R8 dRadius, QRgb iColour) {
  Use_Fill(iColour);
  hPainter.drawEllipse(hCentre, dRadius, dRadius);
}

void Page::Write(const Letters& h) {
  hPainter.save();
  hPainter.setFont(h.hFont);
  hPainter.setPen(QColor(h.iColour));
  if (!h.hClip.contains(hWhole)) hPainter.setClipRect(h.hClip);
  hPainter.translate(h.hStart);
  hPainter.rotate(h.dAngle);
  hPainter.scale(h.dXScale, h.dYScale);
  hPainter.drawText(QPointF(0.0, 0.0), h.sText);
  hPainter.restore();
}

std::string Page::Bytes() {
  hBytes.Watch(sTitle);
  if (!hPainter.end()) return {};  // it did not begin, either
  return hBytes.data().toStdString();
}

std::unique_ptr<QPaintDevice> New_Svg(const PageSize& h, QIODevice& hBytes) {
  auto hSvg = std::make_unique<QSvgGenerator>();
  hSvg->setOutputDevice(&hBytes);
  hSvg->setSize(h.hUnits.toSize());
  hSvg->setViewBox(QRectF({0.0, 0.0}, h.hUnits));
  hSvg->setResolution(h.NUnitsAnInch);
  hSvg->setTitle(To_QString(h.sTitle));
  hSvg->setDescription(To_QString(CPrgName));
  return hSvg;
}

std::unique_ptr<QPaintDevice> New_Pdf(const PageSize& h, QIODevice& hBytes) {
  auto hPdf = std::make_unique<QPdfWriter>(&hBytes);
  const QSizeF hMillimetres = h.hUnits * dMillimetresAnInch / h.NUnitsAnInch;
  hPdf->setResolution(h.NUnitsAnInch);
  hPdf->setPageSize(QPageSize(hMillimetres, QPageSize::Millimeter, {}, QPageSize::ExactMatch));
  hPdf->setPageMargins(QMarginsF());
  hPdf->setTitle(To_QString(h.sTitle));
  hPdf->setCreator(To_QString(CPrgName));
  return hPdf;
}

}  // namespace

std::unique_ptr<PageFile> toolkit::New_Svg_Page(const PageSize& hSize) {
  return std::make_unique<Page>(hSize, New_Svg);
}

std::unique_ptr<PageFile> toolkit::New_Pdf_Page(const PageSize& hSize) {
  return std::make_unique<Page>(hSize, New_Pdf);
}

}  // namespace quillan
