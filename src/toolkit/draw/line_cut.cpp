#include <algorithm>
#include <cmath>

#include "toolkit/draw/private_draw.h"

namespace quillan {

using namespace toolkit;

namespace {

/// A coordinate of both ends, and the one across it.
struct Ends {
  R8 d1, d2;
  R8 dAcross1, dAcross2;
};

/// Where the line is across at dEdge, reckoned from the nearer end: a far one has no digits left for pixels.
R8 Across_at(const Ends& h, R8 dEdge) {
  const R8 dSlope = h.d1 == h.d2 ? 0.0 : (h.dAcross2 - h.dAcross1) / (h.d2 - h.d1);
  const bool bFirst = std::abs(dEdge - h.d1) < std::abs(dEdge - h.d2);
  return bFirst ? h.dAcross1 + (dEdge - h.d1) * dSlope : h.dAcross2 + (dEdge - h.d2) * dSlope;
}

/// Cuts a line where a coordinate leaves its limits; false: all of it lies outside.
bool Cut(Ends& h, R8 dLow, R8 dHigh) {
  if (std::max(h.d1, h.d2) < dLow || std::min(h.d1, h.d2) > dHigh) return false;
  const Ends hWhole = h;
  h.d1 = std::clamp(h.d1, dLow, dHigh);
  h.d2 = std::clamp(h.d2, dLow, dHigh);
  if (h.d1 != hWhole.d1) h.dAcross1 = Across_at(hWhole, h.d1);
  if (h.d2 != hWhole.d2) h.dAcross2 = Across_at(hWhole, h.d2);
  return true;
}

}  // namespace

bool toolkit::Holds(const QRectF& hClip, QPointF hPoint) {
  return hPoint.x() >= hClip.left() && hPoint.x() <= hClip.right() && hPoint.y() >= hClip.top() &&
         hPoint.y() <= hClip.bottom();
}

bool toolkit::Clip_Line(QLineF& hLine, const QRectF& hClip) {
  if (Holds(hClip, hLine.p1()) && Holds(hClip, hLine.p2())) return true;
  if (!std::isfinite(hLine.x1() + hLine.y1()) || !std::isfinite(hLine.x2() + hLine.y2())) return false;
  Ends hX{hLine.x1(), hLine.x2(), hLine.y1(), hLine.y2()};
  if (!Cut(hX, hClip.left(), hClip.right())) return false;
  Ends hY{hX.dAcross1, hX.dAcross2, hX.d1, hX.d2};
  if (!Cut(hY, hClip.top(), hClip.bottom())) return false;
  const auto dInside = [&](R8 dX) { return std::clamp(dX, hClip.left(), hClip.right()); };
  hLine = {dInside(hY.dAcross1), hY.d1, dInside(hY.dAcross2), hY.d2};
  return true;
}

std::vector<QLineF> toolkit::Dashes_of(std::span<const QLineF> hLine, R8 dDash, R8 dGap) {
  std::vector<QLineF> hDash;
  const R8 dPeriod = dDash + dGap;
  R8 dPhase = 0.0;  // how far into the pattern the line begins
  QPointF hLast;
  for (const QLineF& h : hLine) {
    if (&h != hLine.data() && h.p1() != hLast) dPhase = 0.0;
    hLast = h.p2();
    const R8 dLength = h.length();
    for (R8 dBeg = -dPhase; dBeg < dLength; dBeg += dPeriod) {
      const R8 dFrom = std::max(dBeg, 0.0);
      const R8 dTo = std::min(dBeg + dDash, dLength);
      if (dTo > dFrom) hDash.emplace_back(h.pointAt(dFrom / dLength), h.pointAt(dTo / dLength));
    }
    dPhase = std::fmod(dPhase + dLength, dPeriod);
  }
  return hDash;
}

}  // namespace quillan
