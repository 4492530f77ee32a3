#include <algorithm>
#include <string>

#include "toolkit/draw/private_watched.h"

namespace quillan::toolkit {
namespace {

constexpr I8 NBetweenLooks = 256;      // strokes
constexpr std::size_t NAPiece = 4096;  // lines: some milliseconds of drawing
constexpr I8 NKilo = 1000;             // bytes

/// How many lines are drawn at once: a curve stays in one piece.
std::size_t Piece(std::span<const QLineF> hLine) {
  std::size_t N = std::min(hLine.size(), NAPiece);
  while (N < hLine.size() && hLine[N].p1() == hLine[N - 1].p2()) ++N;
  return N;
}

}  // namespace

WatchedPicture::WatchedPicture(BackEnd& hPicture, std::string_view sName, I8 NStroke)
    : hTo(hPicture), hWork("Drawing " + std::string(sName), "lines and points", NStroke, NBetweenLooks) {}

bool WatchedPicture::Goes_On(std::size_t N) {
  NDone += static_cast<I8>(N);
  return hWork.Goes_On(NDone);
}

void WatchedPicture::Lines(std::span<const QLineF> hLine, const Pen& hPen) {
  while (!hLine.empty()) {
    const std::size_t N = Piece(hLine);
    if (!Goes_On(N)) return;
    hTo.Lines(hLine.first(N), hPen);
    hLine = hLine.subspan(N);
  }
}

void WatchedPicture::Fill(const QRectF& hRectangle, QRgb iColour) {
  if (Goes_On(1)) hTo.Fill(hRectangle, iColour);
}

void WatchedPicture::Disc(QPointF hCentre, R8 dRadius, QRgb iColour) {
  if (Goes_On(1)) hTo.Disc(hCentre, dRadius, iColour);
}

void WatchedPicture::Write(const Letters& hLetters) {
  if (Goes_On(1)) hTo.Write(hLetters);
}

void WatchedPicture::Flush() {
  hTo.Flush();
}

void WatchedBytes::Watch(std::string_view sName) {
  hWork.emplace("Writing " + std::string(sName), "kB", 0);
}

qint64 WatchedBytes::writeData(const char* sBytes, qint64 NByte) {
  if (hWork && !hWork->Goes_On((pos() + NByte) / NKilo)) return -1;
  return QBuffer::writeData(sBytes, NByte);
}

}  // namespace quillan::toolkit
