#include "foundations/pn_intrp.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "foundations/log_file.h"
#include "foundations/sort_util.h"

namespace quillan {
namespace {

template <class Real>
constexpr Real fSlopeLimit = Real(1.0E6);  // a slope from here on is none
template <class Real>
constexpr Real fTinyLine = Real(1.0E-20);  // a segment this short has no straight line
template <class Real>
constexpr Real fTinyCubic = Real(1.0E-5);  // nor this short a cubic
template <class Real>
constexpr Real fNearPoint = Real(0.01);  // of a segment
template <class Real>
constexpr Real fNearUnits = Real(100);  // units of the last place

/// The points, counted from 1, and what is asked of them.
template <class Real>
struct Table {
  I4 NP;
  std::span<const Real> hX, hY;
  const Array1<Real, 2>& fSlope;
  Real fXX;

  Table(I4 NPoint, std::span<const Real> hXP, std::span<const Real> hYP, const Array1<Real, 2>& fdYdX, Real fAt)
      : NP(static_cast<I4>(std::min({static_cast<std::size_t>(std::max(NPoint, 0)), hXP.size(), hYP.size()}))),
        hX(hXP),
        hY(hYP),
        fSlope(fdYdX),
        fXX(fAt) {}
  Real fXP(I4 J) const { return hX[static_cast<std::size_t>(J - 1)]; }
  Real fYP(I4 J) const { return hY[static_cast<std::size_t>(J - 1)]; }
  Real Step(I4 J) const { return fXP(J + 1) - fXP(J); }
  Real Secant(I4 J) const { return (fYP(J + 1) - fYP(J)) / Step(J); }
  Real Mean(I4 J) const { return (fYP(J) + fYP(J + 1)) / Real{2}; }
  bool Has_Slope(I4 iEnd) const { return std::abs(fSlope(iEnd)) < fSlopeLimit<Real>; }
};

/// A value and how it was found.
template <class Real>
struct Found {
  Real fYY;
  I4 iQ;
};

template <class Real>
I4 Point_or_Beyond(Real fXX, Real fXPoint) {
  return std::abs(fXX - fXPoint) >= fNearUnits<Real> * Spacing(fXX) ? iBeyondTable : iOnPoint;
}

/// Along a slope through point J.
template <class Real>
Found<Real> On_Slope(const Table<Real>& h, I4 J, Real fdYdX) {
  return {(h.fXX - h.fXP(J)) * fdYdX + h.fYP(J), Point_or_Beyond(h.fXX, h.fXP(J))};
}

template <class Real>
Found<Real> At_Only_Point(const Table<Real>& h) {
  return {h.fYP(1), Point_or_Beyond(h.fXX, h.fXP(1))};
}

/// The first point of the segment that serves fXX, 1 to NP - 1.
template <class Real>
I4 Segment_of(const Table<Real>& h) {
  if (h.fXX <= h.fXP(1)) return 1;
  if (h.fXX >= h.fXP(h.NP)) return h.NP - 1;
  if constexpr (sizeof(Real) == sizeof(R4)) {
    Hunt_Bracket_R4(h.NP, h.hX, h.fXX, JLoIntrp);
  } else {
    Hunt_Bracket_R8(h.NP, h.hX, h.fXX, JLoIntrp);
  }
  return std::clamp(JLoIntrp, 1, h.NP - 1);  // not-a-number has no bracket
}

template <class Real>
Found<Real> On_Line(const Table<Real>& h, I4 JLO) {
  const Real fHH = h.Step(JLO);
  if (std::abs(fHH) <= fTinyLine<Real>) return {h.Mean(JLO), iBetweenPoints};
  const Real fF2 = (h.fXX - h.fXP(JLO)) / fHH;
  const Real fF1 = Real{1} - fF2;
  const bool bNear = fF1 < fNearPoint<Real> || fF2 < fNearPoint<Real>;
  return {fF1 * h.fYP(JLO) + fF2 * h.fYP(JLO + 1), bNear ? iOnPoint : iBetweenPoints};
}

template <class Real>
Found<Real> Linear(const Table<Real>& h) {
  if (h.NP == 1) return At_Only_Point(h);
  if (h.fXX <= h.fXP(1) && h.Has_Slope(1)) return On_Slope(h, 1, h.fSlope(1));
  if (h.fXX > h.fXP(1) && h.fXX >= h.fXP(h.NP) && h.Has_Slope(2)) return On_Slope(h, h.NP, h.fSlope(2));
  return On_Line(h, Segment_of(h));
}

/// Slope at the first of three points, fH1 and fH2 apart: that of the parabola through them.
template <class Real>
Real First_Slope(const Table<Real>& h, Real fH1, Real fH2) {
  return -(Real{2} * fH1 + fH2) / (fH1 * (fH1 + fH2)) * h.fYP(1) + (fH1 + fH2) / (fH1 * fH2) * h.fYP(2) -
         fH1 / (fH2 * (fH1 + fH2)) * h.fYP(3);
}

/// The same at the middle one, point J.
template <class Real>
Real Middle_Slope(const Table<Real>& h, I4 J, Real fH1, Real fH2) {
  return -fH2 / (fH1 * (fH1 + fH2)) * h.fYP(J - 1) + (fH2 - fH1) / (fH1 * fH2) * h.fYP(J) +
         fH1 / (fH2 * (fH1 + fH2)) * h.fYP(J + 1);
}

/// The same at the last one.
template <class Real>
Real Last_Slope(const Table<Real>& h, Real fH1, Real fH2) {
  return fH2 / (fH1 * (fH1 + fH2)) * h.fYP(h.NP - 2) - (fH1 + fH2) / (fH1 * fH2) * h.fYP(h.NP - 1) +
         (fH1 + Real{2} * fH2) / (fH2 * (fH1 + fH2)) * h.fYP(h.NP);
}

/// Slope at the beginning of segment JLO.
template <class Real>
Real Slope_Before(const Table<Real>& h, I4 JLO) {
  const Real fH2 = h.Step(JLO);
  if (JLO > 1) {
    const Real fH1 = h.Step(JLO - 1);
    return fH1 > fTinyCubic<Real> ? Middle_Slope(h, JLO, fH1, fH2) : h.Secant(JLO);
  }
  if (h.Has_Slope(1)) return h.fSlope(1);
  const Real fH3 = h.Step(2);
  return fH3 >= fTinyCubic<Real> ? First_Slope(h, fH2, fH3) : h.Secant(JLO);
}

/// Slope at the end of segment JLO.
template <class Real>
Real Slope_Behind(const Table<Real>& h, I4 JLO) {
  const Real fH2 = h.Step(JLO);
  if (JLO + 1 < h.NP) {
    const Real fH3 = h.Step(JLO + 1);
    return fH3 > fTinyCubic<Real> ? Middle_Slope(h, JLO + 1, fH2, fH3) : h.Secant(JLO);
  }
  if (h.Has_Slope(2)) return h.fSlope(2);
  const Real fH1 = h.Step(JLO - 1);
  return fH1 >= fTinyCubic<Real> ? Last_Slope(h, fH1, fH2) : h.Secant(JLO);
}

/// How a place within a segment counts, fT running from 0 to 1 along it.
template <class Real>
I4 Quality_in_Segment(Real fT) {
  if (std::abs(fT) < fNearPoint<Real> || std::abs(fT - Real{1}) < fNearPoint<Real>) return iOnPoint;
  return fT <= Real{0} || fT >= Real{1} ? iBeyondTable : iBetweenPoints;
}

/// Weights of the ordinates (fWY2, fWY3) and of the slopes (fWdY2, fWdY3) at the ends of a segment.
template <class Real>
struct HermiteWeights {
  Real fWY2, fWY3, fWdY2, fWdY3;
  explicit HermiteWeights(Real fT)
      : fWY2((Real{1} - fT) * (Real{1} - fT) * (Real{2} * fT + Real{1})),
        fWY3((Real{3} - Real{2} * fT) * fT * fT),
        fWdY2(fT * (Real{1} - fT) * (Real{1} - fT)),
        fWdY3((fT - Real{1}) * fT * fT) {}
};

template <class Real>
Found<Real> Cubic_of_Two(const Table<Real>& h) {
  const Real fdYdX2 = h.Step(1) <= fTinyCubic<Real> ? Real{0} : h.Secant(1);
  const Real fYY = (h.fXX - h.fXP(1)) * fdYdX2 + h.fYP(1);
  const bool bOnPoint = Point_or_Beyond(h.fXX, h.fXP(1)) == iOnPoint || Point_or_Beyond(h.fXX, h.fXP(2)) == iOnPoint;
  if (bOnPoint) return {fYY, iOnPoint};
  return {fYY, h.fXX > h.fXP(1) && h.fXX < h.fXP(2) ? iBetweenPoints : iBeyondTable};
}

template <class Real>
Found<Real> Cubic(const Table<Real>& h) {
  if (h.NP == 1) return At_Only_Point(h);
  if (h.NP == 2) return Cubic_of_Two(h);
  const I4 JLO = Segment_of(h);
  const Real fH2 = h.Step(JLO);
  if (fH2 <= fTinyCubic<Real>) return {h.Mean(JLO), iBetweenPoints};
  const Real fdYdX2 = Slope_Before(h, JLO);
  if (h.fXX <= h.fXP(1)) return On_Slope(h, 1, fdYdX2);
  const Real fdYdX3 = Slope_Behind(h, JLO);
  if (h.fXX >= h.fXP(h.NP)) return On_Slope(h, h.NP, fdYdX3);

  const Real fT = (h.fXX - h.fXP(JLO)) / fH2;
  const HermiteWeights<Real> w(fT);
  return {w.fWY2 * h.fYP(JLO) + w.fWY3 * h.fYP(JLO + 1) + fH2 * (fdYdX2 * w.fWdY2 + fdYdX3 * w.fWdY3),
          Quality_in_Segment(fT)};
}

template <class Real>
Found<Real> Cubic_on_Grid(I4 NP, Real fX0, Real fDX, std::span<const Real> fYP, Real fXX) {
  if (NP == 1) return {fYP[0], Point_or_Beyond(fXX, fX0)};
  const Real fJ = std::floor((fXX - fX0) / fDX);
  // Far outside the indices are all one end's; held before they become whole numbers, they cannot overflow.
  const I4 J = std::isnan(fJ) ? 0 : static_cast<I4>(std::clamp(fJ, Real{-3}, static_cast<Real>(NP)));
  const auto fY = [&](I4 JAt) { return fYP[static_cast<std::size_t>(std::clamp(JAt, 1, NP) - 1)]; };
  const Real fX1 = fX0 + (fJ - Real{1}) * fDX;
  const Real fX2 = fX1 + fDX;
  const Real fHdYdX2 = Real(0.5) * (fY(J + 2) - fY(J));
  const Real fHdYdX3 = Real(0.5) * (fY(J + 3) - fY(J + 1));
  const Real fT = (fXX - fX2) / fDX;
  const HermiteWeights<Real> w(fT);
  return {fHdYdX3 * w.fWdY3 + fHdYdX2 * w.fWdY2 + w.fWY3 * fY(J + 2) + w.fWY2 * fY(J + 1), Quality_in_Segment(fT)};
}

template <class Real>
Found<Real> No_Table(std::string_view sReport) {
  LogErr({std::string(sReport)});
  return {Real{0}, iNoTable};
}

template <class Real>
void Give(const Found<Real>& hFound, Real& fYY, I4* iQIntrp) {
  fYY = hFound.fYY;
  if (iQIntrp) *iQIntrp = hFound.iQ;
}

}  // namespace

void P1Intrp_R4(I4 NP, std::span<const R4> fXP, std::span<const R4> fYP, const EndSlopesR4& fdYdX, R4 fXX, R4& fYY,
                I4* iQIntrp) {
  const Table<R4> h(NP, fXP, fYP, fdYdX, fXX);
  Give(h.NP < 1 ? No_Table<R4>("P1Intrp_R4.ERROR: NP<1, no tabulated values to interpolate.") : Linear(h), fYY,
       iQIntrp);
}

void P1Intrp_R8(I4 NP, std::span<const R8> dXP, std::span<const R8> dYP, const EndSlopesR8& ddYdX, R8 dXX, R8& dYY,
                I4* iQIntrp) {
  const Table<R8> h(NP, dXP, dYP, ddYdX, dXX);
  Give(h.NP < 1 ? No_Table<R8>("P1Intrp_R8.ERROR: NP<1, no tabulated values to interpolate.") : Linear(h), dYY,
       iQIntrp);
}

void P2Intrp_R4(I4 NP, std::span<const R4> fXP, std::span<const R4> fYP, const EndSlopesR4& fdYdX, R4 fXX, R4& fYY,
                I4* iQIntrp) {
  const Table<R4> h(NP, fXP, fYP, fdYdX, fXX);
  Give(h.NP < 1 ? No_Table<R4>("P2Intrp_R4.ERROR: NP < 1") : Cubic(h), fYY, iQIntrp);
}

void P2Intrp_R8(I4 NP, std::span<const R8> dXP, std::span<const R8> dYP, const EndSlopesR8& ddYdX, R8 dXX, R8& dYY,
                I4* iQIntrp) {
  const Table<R8> h(NP, dXP, dYP, ddYdX, dXX);
  Give(h.NP < 1 ? No_Table<R8>("P2Intrp_R8.ERROR: NP < 1") : Cubic(h), dYY, iQIntrp);
}

void P2Intrp0_DX_R4(I4 NP, R4 fX0, R4 fDX, std::span<const R4> fYP, R4 fXX, R4& fYY, I4* iQIntrp) {
  const I4 NHeld = std::min(NP, static_cast<I4>(fYP.size()));
  Give(NHeld < 1 ? No_Table<R4>("P2Intrp0_DX_R4.ERROR: NP < 1") : Cubic_on_Grid(NHeld, fX0, fDX, fYP, fXX), fYY,
       iQIntrp);
}

void P2Intrp0_DX_R8(I4 NP, R8 dX0, R8 dDX, std::span<const R8> dYP, R8 dXX, R8& dYY, I4* iQIntrp) {
  const I4 NHeld = std::min(NP, static_cast<I4>(dYP.size()));
  Give(NHeld < 1 ? No_Table<R8>("P2Intrp0_DX_R8.ERROR: NP < 1") : Cubic_on_Grid(NHeld, dX0, dDX, dYP, dXX), dYY,
       iQIntrp);
}

}  // namespace quillan
