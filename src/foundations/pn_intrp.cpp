#include "foundations/pn_intrp.h"

#include <algorithm>
#include <cmath>

#include "foundations/log_file.h"
#include "foundations/sort_util.h"

namespace quillan {
namespace {

constexpr R4 fSlopeLimit = 1.0E6f;  // a slope from here on is none
constexpr R4 fTinyStep = 1.0E-20f;  // a segment this short has no line
constexpr R4 fNearPoint = 0.01f;    // of a segment
constexpr R4 fNearUnits = 100.0f;   // units of the last place

/// A value and how it was found.
struct Found {
  R4 fYY;
  I4 iQ;
};

/// Along a slope through a point.
Found On_Slope(R4 fXPoint, R4 fYPoint, R4 fdYdX, R4 fXX) {
  const bool bBeyond = std::abs(fXX - fXPoint) >= fNearUnits * Spacing(fXX);
  return {(fXX - fXPoint) * fdYdX + fYPoint, bBeyond ? iBeyondTable : iOnPoint};
}

/// On the line of the segment from point k to the next one; k counts from 0 here.
Found On_Segment(std::span<const R4> fXP, std::span<const R4> fYP, std::size_t k, R4 fXX) {
  const R4 fHH = fXP[k + 1] - fXP[k];
  if (std::abs(fHH) <= fTinyStep) return {(fYP[k] + fYP[k + 1]) / 2.0f, iBetweenPoints};
  const R4 fF2 = (fXX - fXP[k]) / fHH;
  const R4 fF1 = 1.0f - fF2;
  const bool bNear = fF1 < fNearPoint || fF2 < fNearPoint;
  return {fF1 * fYP[k] + fF2 * fYP[k + 1], bNear ? iOnPoint : iBetweenPoints};
}

Found Linear(std::span<const R4> fXP, std::span<const R4> fYP, const EndSlopesR4& fdYdX, R4 fXX) {
  const I4 NP = static_cast<I4>(fXP.size());
  if (NP == 1) return {fYP[0], On_Slope(fXP[0], fYP[0], 0.0f, fXX).iQ};
  const auto bHas_Slope = [&](I4 iEnd) { return std::abs(fdYdX(iEnd)) < fSlopeLimit; };
  if (fXX <= fXP.front()) {
    if (bHas_Slope(1)) return On_Slope(fXP.front(), fYP.front(), fdYdX(1), fXX);
    return On_Segment(fXP, fYP, 0, fXX);
  }
  if (fXX >= fXP.back() && bHas_Slope(2)) return On_Slope(fXP.back(), fYP.back(), fdYdX(2), fXX);
  const I4 JLO = fXX >= fXP.back() ? NP - 1 : std::clamp(Hunt_Bracket_R4(NP, fXP, fXX), 1, NP - 1);
  return On_Segment(fXP, fYP, static_cast<std::size_t>(JLO - 1), fXX);
}

}  // namespace

R4 P1Intrp_R4(I4 NP, std::span<const R4> fXP, std::span<const R4> fYP, const EndSlopesR4& fdYdX, R4 fXX, I4* iQIntrp) {
  const std::size_t N = Held_Count(NP, fXP, fYP);
  Found hFound{0.0f, iNoTable};
  if (N < 1)
    LogErr({"P1Intrp_R4.ERROR: NP<1, no tabulated values to interpolate."});
  else
    hFound = Linear(fXP.first(N), fYP.first(N), fdYdX, fXX);
  if (iQIntrp != nullptr) *iQIntrp = hFound.iQ;
  return hFound.fYY;
}

}  // namespace quillan
