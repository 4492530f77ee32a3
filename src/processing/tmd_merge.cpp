#include "processing/tmd_merge.h"

#include <algorithm>
#include <cmath>

#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "model/derived.h"
#include "model/edits.h"

namespace quillan {
namespace {

constexpr R8 dStnTolerance = 0.001;  // stations that differ by less are one
constexpr R4 fPi = 3.14159274f;

/// The transients that have been merged into another one.
using DropFlags = Array1<L4, MTrn>;

/// The transients of one component in the order of the store. Their stations stand side by side: each of them is
/// compared with each.
struct ComponentList {
  I4 N = 0;
  Array1<I4, MTrn> jTrn{};    // transient
  Array1<R8, MTrn> dRxStn{};  // its station
};

void List_Component(I4 iRxCmp, ComponentList& hList) {
  hList.N = 0;
  for (I4 j = 1; j <= NTrn; ++j) {
    if (hTrn(j).iRxCmp != iRxCmp) continue;
    ++hList.N;
    hList.jTrn(hList.N) = j;
    hList.dRxStn(hList.N) = hTrn(j).dRxStn;
  }
}

I4 Tenths_Digit(R8 dRxStn) {
  return std::abs(Nint(10.0 * (dRxStn - std::trunc(dRxStn))));
}

/// Station -5.1 belongs to -5.0: the tenths have the sign of the station.
R8 Partner_Station(R8 dRxStn, I4 iMask) {
  return std::trunc(dRxStn) + std::copysign(0.1 * iMask, dRxStn);
}

/// The transient that the K-th one of the list is to be merged with; 0: there is none.
I4 Find_Partner(const ComponentList& hList, I4 K, const MergeSettings& hSettings, const DropFlags& bDropTrns) {
  const R8 dRxStn1 = hList.dRxStn(K);
  if (!Is_Present(dRxStn1) || Tenths_Digit(dRxStn1) != hSettings.iMergeMask1) return 0;
  const R8 dRxStn2 = Partner_Station(dRxStn1, hSettings.iMergeMask2);
  for (I4 K2 = 1; K2 <= hList.N; ++K2) {
    const bool bNear = std::abs(dRxStn2 - hList.dRxStn(K2)) < dStnTolerance;
    if (bNear && K2 != K && !bDropTrns(hList.jTrn(K2))) return hList.jTrn(K2);
  }
  return 0;
}

/// The weighted mean of two percent errors, of which one stands for a missing other.
R4 Merged_Percent(R4 fuVpct1, R4 fuVpct2, R4 fWgt1, R4 fWgt2) {
  if (fuVpct1 >= fDummyLimit && fuVpct2 < fDummyLimit) fuVpct2 = fuVpct1;
  if (fuVpct1 < fDummyLimit) fuVpct1 = fuVpct2;
  const bool bBoth = Is_Present(fuVpct1) && Is_Present(fuVpct2);
  return bBoth ? fWgt1 * fuVpct1 + fWgt2 * fuVpct2 : fuVpct1;
}

/// Window ITW of the early-time record h1 becomes the merged one. The sum is taken also where h1 has no such window and
/// no weight: whatever is there, a mark or no number, shows.
void Merge_Window(Transient& h1, const Transient& h2, I4 ITW, R4 fWgt1) {
  const R4 fWgt2 = 1.0f - fWgt1;
  h1.fuVmag(ITW) = fWgt1 * h1.fuVmag(ITW) + fWgt2 * h2.fuVmag(ITW);
  h1.fuVpct(ITW) = Merged_Percent(h1.fuVpct(ITW), h2.fuVpct(ITW), fWgt1, fWgt2);
  if (!(h1.fARes(ITW) > fNoValueLimit && h2.fARes(ITW) > fNoValueLimit)) return;
  h1.fARes(ITW) = std::exp(fWgt1 * std::log(h1.fARes(ITW)) + fWgt2 * std::log(h2.fARes(ITW)));
  h1.fDepth(ITW) = Image_Depth(h1.fTWCen(ITW), h1.fARes(ITW));
}

Transient Merged(const Transient& hEarly, const Transient& hLate, const MergeSettings& hSettings) {
  Transient h = hEarly;
  h.fTxFreq = std::max(hEarly.fTxFreq, hLate.fTxFreq);
  for (I4 ITW = 1; ITW <= hLate.NTW; ++ITW) {
    R4 fWgt1 = fMergeFilter(ITW, hSettings.iMergeFltCenter, hSettings.iMergeFltWidth);
    if (ITW > hEarly.NTW) {
      h.fTWCen(ITW) = hLate.fTWCen(ITW);
      h.NTW = ITW;
      fWgt1 = 0.0f;
    }
    Merge_Window(h, hLate, ITW, fWgt1);
  }
  return h;
}

void Merge_Component(const ComponentList& hList, const MergeSettings& hSettings, DropFlags& bDropTrns) {
  for (I4 K = 1; K <= hList.N; ++K) {
    const I4 J1 = hList.jTrn(K);
    const I4 J2 = bDropTrns(J1) ? 0 : Find_Partner(hList, K, hSettings, bDropTrns);
    if (J2 == 0) continue;
    Edit_Transient(J1, Merged(hTrn(J1), hTrn(J2), hSettings));
    bDropTrns(J2) = true;
  }
}

void Pack_Store(const DropFlags& bDropTrns) {
  I4 N = 0;
  for (I4 j = 1; j <= NTrn; ++j) {
    if (bDropTrns(j)) continue;
    if (++N != j) Edit_Transient(N, hTrn(j));
  }
  Edit_Count(N);
}

}  // namespace

R4 fMergeFilter(I4 ITW, I4 iMergeFltCenter, I4 iMergeFltWidth) {
  const R4 FltArg = static_cast<R4>(ITW - iMergeFltCenter) / static_cast<R4>(iMergeFltWidth);
  if (FltArg <= -0.5f) return 1.0f;
  if (FltArg >= 0.5f) return 0.0f;
  return 0.5f - 0.5f * std::sin(FltArg * fPi);
}

void TMD_Merge(const MergeSettings& hSettings) {
  LogText("");
  LogText("Merging transients from related stations.");
  const I4 NTrns0 = NTrn;
  DropFlags bDropTrns{};
  ComponentList hList;
  for (I4 iCmp = 1; iCmp <= hSettings.NMergeCmp; ++iCmp) {
    List_Component(hSettings.iMergeCmp(iCmp), hList);
    Merge_Component(hList, hSettings, bDropTrns);
  }
  Pack_Store(bDropTrns);
  LogText("Merging of KVRB channel dB/dt is finished.");
  LogText("Have merged " + Str_Write_I4(NTrns0).str() + " transients to " + Str_Write_I4(NTrn).str() + " transients.");
}

}  // namespace quillan
