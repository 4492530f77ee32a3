// private_watched.h: a picture on its way into a file, as the user watches it and may stop it (watched.cpp).
#pragma once

#include <QBuffer>
#include <optional>
#include <string_view>

#include "base/types.h"
#include "foundations/progress.h"
#include "toolkit/draw/private_draw.h"

namespace quillan::toolkit {

/// Draws nothing, and counts what would be drawn.
class StrokeCount : public BackEnd {
 public:
  I8 NStroke = 0;
  void Lines(std::span<const QLineF> hLine, const Pen&) override { NStroke += static_cast<I8>(hLine.size()); }
  void Fill(const QRectF&, QRgb) override { ++NStroke; }
  void Disc(QPointF, R8, QRgb) override { ++NStroke; }
  void Write(const Letters&) override { ++NStroke; }
};

/// Passes on what is drawn until the user stops the work; what comes then goes nowhere. The picture must outlive it.
class WatchedPicture : public BackEnd {
 public:
  /// sName: of the file; NStroke: how many strokes there will be, 0 where nobody knows.
  WatchedPicture(BackEnd& hPicture, std::string_view sName, I8 NStroke);
  void Lines(std::span<const QLineF> hLine, const Pen& hPen) override;
  void Fill(const QRectF& hRectangle, QRgb iColour) override;
  void Disc(QPointF hCentre, R8 dRadius, QRgb iColour) override;
  void Write(const Letters& hLetters) override;
  void Flush() override;

 private:
  bool Goes_On(std::size_t N);

  BackEnd& hTo;
  Progress hWork;
  I8 NDone = 0;
};

/// What an encoder makes of a picture. From Watch on the user sees how much there is; once the work is stopped, the
/// encoder is told that there is no room for more.
class WatchedBytes : public QBuffer {
 public:
  void Watch(std::string_view sName);

 protected:
  qint64 writeData(const char* sBytes, qint64 NByte) override;

 private:
  std::optional<Progress> hWork;
};

}  // namespace quillan::toolkit
