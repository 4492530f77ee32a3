#include "processing/auto_skip.h"

namespace quillan {
namespace {

constexpr R4 fSlopeErrorLimit = 1.0f;  // percent: below it an upward step is taken for real

/// Whether window I ends the usable part of its transient.
bool Ends_Decay(const Transient& h, I4 I, const AutoSkipLimits& hLimits) {
  if (hLimits.bApplyErrorFloor && h.fuVpct(I) > hLimits.ErrorFloor) return true;
  if (!hLimits.bDropPositiveSlope || I <= hLimits.ITWBEG) return false;
  const R4 fSlope = h.fuVmag(I) - h.fuVmag(I - 1);
  return fSlope >= 0.0f && h.fuVpct(I) > fSlopeErrorLimit;
}

void Skip_by_Rule(Transient& h, const AutoSkipLimits& hLimits) {
  bool bEnded = false;
  for (I4 I = 1; I <= h.NTW; ++I) {
    if (I < hLimits.ITWBEG || I > hLimits.ITWEND) {
      h.bSkip(I) = true;
      continue;
    }
    bEnded = bEnded || Ends_Decay(h, I, hLimits);
    h.bSkip(I) = bEnded || (hLimits.bDropNegativeData && h.fuVmag(I) <= 0.0f);
  }
}

}  // namespace

void AutoSkip_Initialize() {
  hAutoSkip = AutoSkipLimits{};
}

void AutoSkip_Apply(const AutoSkipLimits& hLimits) {
  for (I4 j = 1; j <= NTrn; ++j) Skip_by_Rule(hTrn(j), hLimits);
}

}  // namespace quillan
