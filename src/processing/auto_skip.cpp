#include "processing/auto_skip.h"

#include <algorithm>

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

/// What the rules say of the windows 1..NTW of a transient.
Array1<L4, MTW> Flags_by_Rule(const Transient& h, const AutoSkipLimits& hLimits) {
  Array1<L4, MTW> bSkip{};
  bool bEnded = false;
  for (I4 I = 1; I <= h.NTW; ++I) {
    const bool bOutside = I < hLimits.ITWBEG || I > hLimits.ITWEND;
    bEnded = bEnded || (!bOutside && Ends_Decay(h, I, hLimits));
    bSkip(I) = bOutside || bEnded || (hLimits.bDropNegativeData && h.fuVmag(I) <= 0.0f);
  }
  return bSkip;
}

}  // namespace

void AutoSkip_Apply(const AutoSkipLimits& hLimits) {
  for (I4 j = 1; j <= NTrn; ++j) {
    const Array1<L4, MTW> bSkip = Flags_by_Rule(hTrn(j), hLimits);
    for (I4 I = 1; I <= hTrn(j).NTW; ++I) Edit_Window_Flag(j, I, bSkip(I));
  }
}

AutoSkipCount AutoSkip_Count(const AutoSkipLimits& hLimits) {
  AutoSkipCount hCount;
  for (I4 j = 1; j <= NTrn; ++j) {
    const Array1<L4, MTW> bSkip = Flags_by_Rule(hTrn(j), hLimits);
    const I4 NTW = hTrn(j).NTW;
    const I4 NSkip = static_cast<I4>(std::count(bSkip.begin(), bSkip.begin() + NTW, true));
    hCount.NWindow += NTW;
    hCount.NSkip += NSkip;
    if (NSkip == NTW) ++hCount.NEmpty;
  }
  return hCount;
}

}  // namespace quillan
