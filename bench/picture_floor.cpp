#include "picture_floor.h"

#include <QApplication>
#include <QFont>
#include <QImage>
#include <QLineF>
#include <QMainWindow>
#include <QPainter>
#include <array>
#include <cmath>
#include <vector>

namespace quillan {
namespace {

constexpr QRgb iGrey = 0xFFC8C8C8;
constexpr QRgb iBlack = 0xFF000000;

QMainWindow& Main_Window() {
  QMainWindow* hMain = nullptr;
  for (QWidget* h : QApplication::topLevelWidgets()) {
    if (auto* hFound = qobject_cast<QMainWindow*>(h)) hMain = hFound;
  }
  return *hMain;
}

QImage Disc_Image(R8 dRadius, QRgb iColour) {
  const int NSide = static_cast<int>(std::ceil(2.0 * dRadius)) + 2;
  QImage hDisc(NSide, NSide, QImage::Format_ARGB32_Premultiplied);
  hDisc.fill(Qt::transparent);
  QPainter hPainter(&hDisc);
  hPainter.setRenderHint(QPainter::Antialiasing);
  hPainter.setPen(Qt::NoPen);
  hPainter.setBrush(QColor(iColour));
  hPainter.drawEllipse(QPointF(0.5 * NSide, 0.5 * NSide), dRadius, dRadius);
  return hDisc;
}

}  // namespace

void Size_Drawing_Area(I4 NWidth, I4 NHeight) {
  QMainWindow& hMain = Main_Window();
  const QSize hWanted = QSize(NWidth, NHeight) / hMain.devicePixelRatioF();
  if (hMain.centralWidget()->size() == hWanted) return;
  hMain.resize(hMain.size() + hWanted - hMain.centralWidget()->size());
  QApplication::processEvents();
}

R8 dDrawing_Ratio() {
  return Main_Window().devicePixelRatioF();
}

struct PictureFloor::Kept {
  QImage hImage;
  QPen hPen;
  QFont hFont;
  std::vector<std::vector<QLineF>> hBatch;
  std::array<QImage, 2> hStamp;                 // black, grey
  std::array<std::vector<QPointF>, 2> hCorner;  // upper left ones of the stamps
  std::vector<QPointF> hLetter;
};

PictureFloor::PictureFloor(I4 NWidth, I4 NHeight, R8 dLineWidth, R8 dEm) : hKept(new Kept) {
  hKept->hImage = QImage(NWidth, NHeight, QImage::Format_RGB32);
  hKept->hPen = QPen(QColor(iBlack), dLineWidth);
  hKept->hStamp = {Disc_Image(0.25 * dEm, iBlack), Disc_Image(0.25 * dEm, iGrey)};
  hKept->hFont.setPixelSize(static_cast<int>(std::round(dEm)));
  Begin_Batch();
}

PictureFloor::~PictureFloor() = default;

void PictureFloor::Begin_Batch() {
  hKept->hBatch.emplace_back();
}

void PictureFloor::Add_Line(R8 dX1, R8 dY1, R8 dX2, R8 dY2) {
  hKept->hBatch.back().emplace_back(dX1, dY1, dX2, dY2);
}

void PictureFloor::Add_Disc(R8 dX, R8 dY, bool bGrey) {
  const R8 dHalf = 0.5 * hKept->hStamp[0].width();
  hKept->hCorner[bGrey ? 1 : 0].emplace_back(dX - dHalf, dY - dHalf);
}

void PictureFloor::Add_Letter(R8 dX, R8 dY) {
  hKept->hLetter.emplace_back(dX, dY);
}

void PictureFloor::Draw() {
  hKept->hImage.fill(Qt::white);
  QPainter hPainter(&hKept->hImage);
  hPainter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  hPainter.setPen(hKept->hPen);
  hPainter.setFont(hKept->hFont);
  for (const std::size_t K : {1U, 0U}) {
    for (const QPointF& h : hKept->hCorner[K]) hPainter.drawImage(h, hKept->hStamp[K]);
  }
  for (const auto& hLine : hKept->hBatch) hPainter.drawLines(hLine.data(), static_cast<int>(hLine.size()));
  for (const QPointF& h : hKept->hLetter) hPainter.drawText(h, QStringLiteral("Z"));
}

}  // namespace quillan
