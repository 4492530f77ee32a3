#include "model/tmd_data.h"

#include <cmath>

namespace quillan {

namespace {

constexpr R4 fTWTolerance = 0.01f;  // msec, at any window centre

/// The configuration of transient j if an earlier one has the same windows, else 0. The windows are compared only
/// where the number changes from one transient to the next, so a long run of one configuration costs one comparison.
I4 Find_TWCfg(I4 j) {
  I4 iTWCfg0 = -1;
  for (I4 jEarlier = j - 1; jEarlier >= 1; --jEarlier) {
    if (hTrn(jEarlier).iTWCfg == iTWCfg0) continue;
    iTWCfg0 = hTrn(jEarlier).iTWCfg;
    L4 bTWMatch = false;
    TMD_Trns_TW_Compare(hTrn(j), hTrn(jEarlier), bTWMatch);
    if (bTWMatch) return iTWCfg0;
  }
  return 0;
}

}  // namespace

Array1<Transient, MTrn> hTrn;

// Defined here and not in the class: the store is then filled at the start of the run and takes no room in the program
// file.
Transient::Transient() = default;

void TMD_Initialize(I4& iError) {
  iError = 0;
  NTrn = 0;
  NAvgCmt = 0;
  sAvgCmt.fill({});
  NAvgMde = 0;
  sAvgMde.fill({});
  hTemSurvey = Survey{};
  hTrn.fill(Transient{});
}

void TMD_Trns_TW_Compare(const Transient& hTrns1, const Transient& hTrns2, L4& bTWMatch) {
  bTWMatch = hTrns1.NTW == hTrns2.NTW;
  for (I4 I = 1; bTWMatch && I <= hTrns1.NTW; ++I) {
    bTWMatch = !(std::abs(hTrns1.fTWCen(I) - hTrns2.fTWCen(I)) > fTWTolerance);
  }
}

void TMD_Trns_Set_iTWCfg(I4& iError) {
  iError = NTrn < 1 ? 1 : 0;
  I4 NTWCfg = 0;
  for (I4 j = 1; j <= NTrn; ++j) {
    const I4 iTWCfg = Find_TWCfg(j);
    hTrn(j).iTWCfg = iTWCfg > 0 ? iTWCfg : ++NTWCfg;
  }
}

}  // namespace quillan
