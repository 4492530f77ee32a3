#include "processing/auto_skip.h"

#include "model/edits.h"

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

void Skip_by_Rule(I4 j, const AutoSkipLimits& hLimits) {
  const Transient& h = hTrn(j);
  bool bEnded = false;
  for (I4 I = 1; I <= h.NTW; ++I) {
    const bool bOutside = I < hLimits.ITWBEG || I > hLimits.ITWEND;
    bEnded = bEnded || (!bOutside && Ends_Decay(h, I, hLimits));
    Edit_Window_Flag(j, I, bOutside || bEnded || (hLimits.bDropNegativeData && h.fuVmag(I) <= 0.0f));
  }
}

}  // namespace

void AutoSkip_Apply(const AutoSkipLimits& hLimits) {
  for (I4 j = 1; j <= NTrn; ++j) Skip_by_Rule(j, hLimits);
}

}  // namespace quillan
