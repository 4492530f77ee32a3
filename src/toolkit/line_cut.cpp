#include <algorithm>
#include <cmath>

#include "toolkit/private_draw.h"

namespace quillan {

using namespace toolkit;

namespace {

/// Narrows the part of a line between the fractions dBeg and dEnd to where dPlace + t dStep stays within the limits.
bool Narrow(R8 dPlace, R8 dStep, R8 dLow, R8 dHigh, R8& dBeg, R8& dEnd) {
  if (dStep == 0.0) return dPlace >= dLow && dPlace <= dHigh;
  const R8 d1 = (dLow - dPlace) / dStep;
  const R8 d2 = (dHigh - dPlace) / dStep;
  dBeg = std::max(dBeg, std::min(d1, d2));
  dEnd = std::min(dEnd, std::max(d1, d2));
  return dBeg <= dEnd;
}

/// The point at a fraction of the line. Far ends cost digits: what is clipped must lie in the rectangle all the same.
QPointF Point_Inside(const QLineF& hLine, R8 dFraction, const QRectF& hClip) {
  return {std::clamp(hLine.x1() + dFraction * hLine.dx(), hClip.left(), hClip.right()),
          std::clamp(hLine.y1() + dFraction * hLine.dy(), hClip.top(), hClip.bottom())};
}

}  // namespace

bool toolkit::Holds(const QRectF& hClip, QPointF hPoint) {
  return hPoint.x() >= hClip.left() && hPoint.x() <= hClip.right() && hPoint.y() >= hClip.top() &&
         hPoint.y() <= hClip.bottom();
}

bool toolkit::Clip_Line(QLineF& hLine, const QRectF& hClip) {
  const bool b1 = Holds(hClip, hLine.p1());
  const bool b2 = Holds(hClip, hLine.p2());
  if (b1 && b2) return true;
  if (!std::isfinite(hLine.x1() + hLine.y1()) || !std::isfinite(hLine.x2() + hLine.y2())) return false;
  R8 dBeg = 0.0, dEnd = 1.0;
  if (!Narrow(hLine.x1(), hLine.dx(), hClip.left(), hClip.right(), dBeg, dEnd)) return false;
  if (!Narrow(hLine.y1(), hLine.dy(), hClip.top(), hClip.bottom(), dBeg, dEnd)) return false;
  hLine = {b1 ? hLine.p1() : Point_Inside(hLine, dBeg, hClip), b2 ? hLine.p2() : Point_Inside(hLine, dEnd, hClip)};
  return true;
}

void toolkit::Cut_Dashes(std::span<const QLineF> hLine, R8 dDash, R8 dGap, std::vector<QLineF>& hDash) {
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
}

}  // namespace quillan
