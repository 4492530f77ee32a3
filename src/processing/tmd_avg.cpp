#include "processing/tmd_avg.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "foundations/list_util.h"
#include "foundations/log_file.h"
#include "foundations/progress.h"
#include "foundations/str_write.h"
#include "model/derived.h"
#include "model/edits.h"

namespace quillan {
namespace {

constexpr R4 fFreqTolerance = 0.001f;  // hertz
constexpr R8 dStnTolerance = 0.001;
constexpr R4 fTimeTolerance = 100.0f;  // spacings of the time

// One skipped value alone is an average, but 16 of them are still a skipped window; any weight in use is well above.
constexpr R4 fWgtSkipped = 2.0E-6f;
constexpr R4 fWgtLeast = 1.0E-6f;  // at or below it there is no average
constexpr R4 fWgtInUse = 0.009f;   // below it the window is skipped
constexpr R4 fPercent = 100.0f;
constexpr R4 fPercentLeast = 0.1f;

// ---- groups

bool Is_Repeat_of(const Transient& hFirst, const Transient& h) {
  return std::abs(hFirst.fTxFreq - h.fTxFreq) <= fFreqTolerance &&
         std::abs(hFirst.dTxStn - h.dTxStn) <= dStnTolerance && std::abs(hFirst.dRxStn - h.dRxStn) <= dStnTolerance &&
         hFirst.iRxCmp == h.iRxCmp;
}

/// The group of each transient, from 1.
std::vector<I4> Group_Numbers() {
  std::vector<I4> iGroup{1};
  I4 jFirst = 1;
  for (I4 j = 2; j <= NTrn; ++j) {
    const bool bRepeat = Is_Repeat_of(hTrn(jFirst), hTrn(j));
    if (!bRepeat) jFirst = j;
    iGroup.push_back(iGroup.back() + (bRepeat ? 0 : 1));
  }
  return iGroup;
}

void Add_Repeat(RepeatGroup& h, I4 j) {
  if (h.NRepeat == MRepeat) {
    ++h.NLeftOut;
    return;
  }
  const I4 K = ++h.NRepeat;
  h.iTrn(K) = j;
  h.bSkipTrn(K) = hTrn(j).bSkipTrn;
  h.fWgtTrns(K) = hTrn(j).fWgtTrns;
}

bool Has_Groups() {
  return hRepeats.NTrnRpt >= 1 && NTrn >= 1;
}

// ---- the average of a group

bool Is_in_Store(I4 j) {
  return j >= 1 && j <= NTrn;
}

/// Where the average begins from.
struct Pattern {
  I4 iTrn0 = 0;  // the transient that it is a copy of at first; 0: none
  I4 NTW = 0;
  WindowValues fTWCen = Filled<WindowValues>(fDummy);  // msec
};

Pattern Choose_Pattern(const RepeatGroup& hGroup) {
  Pattern hPattern;
  for (I4 K = 1; K <= hGroup.NRepeat; ++K) {
    const I4 j = hGroup.iTrn(K);
    if (!Is_in_Store(j)) continue;
    const Transient& h = hTrn(j);
    if (h.NTW > hPattern.NTW) {
      hPattern.NTW = h.NTW;
      std::copy_n(h.fTWCen.begin(), h.NTW, hPattern.fTWCen.begin());
    }
    hPattern.iTrn0 = j;
    if (!hGroup.bSkipTrn(K) && !h.bSkipTrn) break;
  }
  return hPattern;
}

struct WeightedSum {
  R4 fSum = 0.0f, fWgt = 0.0f;

  void Add(R4 fW, R4 fValue) {
    fSum += fW * fValue;
    fWgt += fW;
  }
  R4 Average() const { return fWgt <= fWgtLeast ? fDummy : fSum / fWgt; }
};

/// What the repeats say of one window.
struct WindowSums {
  WeightedSum hV, hB, hAR;
  I4 NValue = 0;                         // repeats that have a value there
  Array1<R4, MRepeat> fuVmag{}, fWgt{};  // their values and weights
  bool bInUse = false;                   // one of them is not skipped
};

/// The window of a repeat at a time; 0 where it has none. The distance counts as it comes: a time before the first
/// window of a repeat is taken for that window.
I4 Window_at(const Transient& h, R4 fTime) {
  const NearestItem hNearest = List_Nearest_R4(fTime, h.NTW, h.fTWCen.hItem);
  return hNearest.fDVmin <= fTimeTolerance * Spacing(fTime) ? hNearest.iMatch : 0;
}

void Add_Repeat(WindowSums& hSums, const Transient& h, I4 JTW, bool bSkip) {
  const R4 fWgt = bSkip ? fWgtSkipped : h.fWgtTrns;
  const I4 K = ++hSums.NValue;
  hSums.fuVmag(K) = h.fuVmag(JTW);
  hSums.fWgt(K) = fWgt;
  hSums.bInUse = hSums.bInUse || !bSkip;
  hSums.hV.Add(fWgt, h.fuVmag(JTW));
  if (Is_Present(h.fBmag(JTW))) hSums.hB.Add(fWgt, h.fBmag(JTW));
  if (h.fARes(JTW) > fNoValueLimit) hSums.hAR.Add(fWgt, h.fARes(JTW));
}

/// Over the first NRepeat repeats of a group.
WindowSums Sum_Window(const RepeatGroup& hGroup, I4 NRepeat, R4 fTime) {
  WindowSums hSums;
  for (I4 K = 1; K <= NRepeat; ++K) {
    const I4 j = hGroup.iTrn(K);
    if (!Is_in_Store(j)) continue;
    const Transient& h = hTrn(j);
    const I4 JTW = Window_at(h, fTime);
    const bool bMissing = JTW < 1 || h.fuVmag(JTW) < fDummyLimit;
    if (!bMissing) Add_Repeat(hSums, h, JTW, hGroup.bSkipTrn(K) || Is_Skipped(h, JTW));
  }
  return hSums;
}

/// The spread of the values about their mean, and the sum of their weights, added up on its own.
WeightedSum Spread(const WindowSums& hSums, R4 fuVavg) {
  WeightedSum hSpread;
  for (I4 K = 1; K <= hSums.NValue; ++K) {
    const R4 fDV = hSums.fuVmag(K) - fuVavg;
    hSpread.fSum += hSums.fWgt(K) * fDV * fDV;
    hSpread.fWgt += hSums.fWgt(K);
  }
  return hSpread;
}

/// Puts the average of a window into a transient. A flag that it has already stays.
void Put_Window(Transient& h, I4 I, R4 fTime, const WindowSums& hSums) {
  const R4 fuVavg = hSums.hV.Average();
  const WeightedSum hSpread = Spread(hSums, fuVavg);
  R4 fuVerr = hSpread.fSum;
  if (hSpread.fWgt > fWgtLeast) fuVerr = std::sqrt(fuVerr) / hSpread.fWgt;
  if (hSpread.fWgt < fWgtInUse) h.bSkip(I) = true;
  h.fTWCen(I) = fTime;
  h.fuVmag(I) = fuVavg;
  h.fuVerr(I) = fuVerr;
  h.fuVpct(I) = std::fmax(fuVerr * fPercent / fuVavg, fPercentLeast);  // 0/0 is no number, and gives the least
  h.fBmag(I) = hSums.hB.Average();
  h.fARes(I) = hSums.hAR.Average();
}

}  // namespace

I4 TMD_Avg_Get_Groups() {
  LogText_Reset();
  LogText("");
  LogText("Locating groups of repeat transients before averaging.");
  if (NTrn < 2) return 1;
  const std::vector<I4> iGroup = Group_Numbers();
  hRepeats.NTrnRpt = iGroup.back();
  if (hRepeats.NTrnRpt >= NTrn) return 1;
  const auto NTrnRpt = static_cast<std::size_t>(hRepeats.NTrnRpt);
  if (hRepeats.hTrnRpt.size() < NTrnRpt) hRepeats.hTrnRpt.resize(NTrnRpt);
  std::fill_n(hRepeats.hTrnRpt.begin(), NTrnRpt, RepeatGroup{});
  for (I4 j = 1; j <= NTrn; ++j) Add_Repeat(hRepeats(iGroup[static_cast<std::size_t>(j - 1)]), j);
  LogText(Str_Write_I4(hRepeats.NTrnRpt).str() + " groups of repeat data gathered from " + Str_Write_I4(NTrn).str() +
          " transients.");
  return 0;
}

std::optional<Transient> TMD_Avg_hTrnRptK(const RepeatGroup& hGroup) {
  const Pattern hPattern = Choose_Pattern(hGroup);
  if (hPattern.iTrn0 < 1) return std::nullopt;
  Transient hTrnAvgK = hTrn(hPattern.iTrn0);
  hTrnAvgK.bSkipTrn = false;
  hTrnAvgK.fWgtTrns = 1.0f;
  hTrnAvgK.NTW = hPattern.NTW;

  bool bNoData = true;
  I4 NRepeat = hGroup.NRepeat;
  for (I4 I = 1; I <= hPattern.NTW; ++I) {
    const WindowSums hSums = Sum_Window(hGroup, NRepeat, hPattern.fTWCen(I));
    // Crews know their averages with this count, which goes on to the next window; it can only fall.
    NRepeat = hSums.NValue;
    bNoData = bNoData && !hSums.bInUse;
    Put_Window(hTrnAvgK, I, hPattern.fTWCen(I), hSums);
  }
  if (bNoData) return std::nullopt;
  return hTrnAvgK;
}

I4 TMD_Avg_Save_Skip() {
  if (!Has_Groups()) return 1;
  LogText("Saving transient skip flag pattern.");
  for (I4 iGroup = 1; iGroup <= hRepeats.NTrnRpt; ++iGroup) {
    const RepeatGroup& h = hRepeats(iGroup);
    for (I4 K = 1; K <= h.NRepeat; ++K) {
      if (h.bSkipTrn(K) && Is_in_Store(h.iTrn(K))) Edit_Transient_Flag(h.iTrn(K), true);
    }
  }
  return 0;
}

I4 TMD_Avg_Repeats() {
  if (!Has_Groups()) return 1;
  Progress work("Averaging", "groups", hRepeats.NTrnRpt);
  I4 NAverage = 0;
  I4 iError = 0;
  for (I4 iGroup = 1; iGroup <= hRepeats.NTrnRpt; ++iGroup) {
    if (!work.Goes_On(iGroup)) return 1;
    const auto hTrnAvgK = TMD_Avg_hTrnRptK(hRepeats(iGroup));
    iError = hTrnAvgK ? 0 : 1;
    // No later group has its repeats at or before this place.
    if (hTrnAvgK) Edit_Transient(++NAverage, *hTrnAvgK);
  }
  LogText("Averaging applied to groups of repeat transients,");
  LogText("reducing the number of transients from " + Str_Write_I4(NTrn).str() + " to " + Str_Write_I4(NAverage).str());
  Edit_Count(NAverage);
  return iError;
}

I4 TMD_Average() {
  const I4 iError = TMD_Avg_Get_Groups();
  return iError == 0 && hRepeats.NTrnRpt < NTrn ? TMD_Avg_Repeats() : iError;
}

}  // namespace quillan
