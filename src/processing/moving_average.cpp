#include "processing/moving_average.h"

#include <algorithm>
#include <cmath>

#include "foundations/log_file.h"
#include "model/derived.h"
#include "model/edits.h"
#include "processing/b_field.h"

namespace quillan {
namespace {

constexpr I4 NReach = 2;  // windows on either side
constexpr Array1<R4, -NReach, NReach> fWFlt{
    {0.1353f, 0.6065f, 1.0f, 0.6065f, 0.1353f}
};  // exp(-K*K/2)
constexpr I4 IFirstFiltered = 3;                  // the steep first windows stay as they are
constexpr R4 fAResLimit = 1.0E-10f;               // ohm-m, at or below it there is no resistivity
constexpr R4 fTinySquare = 1.0E-12f;              // msec**2, below it a geometric mean means nothing
constexpr I4 NAResNeeded = 2;

R4 Time_Scale(R4 fTWCen) {
  return std::pow(fTWCen, 2.5f);
}

/// Inverse hyperbolic sine; the sign is taken out first, which keeps the precision of large negative arguments.
R4 ASINH(R4 X) {
  if (X < 0.0f) return -std::log(-X + std::sqrt(X * X + 1.0f));
  return std::log(X + std::sqrt(X * X + 1.0f));
}

/// Weighted mean of fDwrk over the unskipped windows in reach of I that have a value; missing where there is none.
R4 Smoothed(const Transient& h, const WindowValues& fDwrk, I4 I) {
  R4 fDSum = 0.0f;
  R4 fWSum = 0.0f;
  for (I4 K = -NReach; K <= NReach; ++K) {
    const I4 J = I + K;
    if (J < 1 || J > h.NTW || h.bSkip(J) || fDwrk(J) < fDummyLimit) continue;
    fDSum = fDSum + fWFlt(K) * fDwrk(J);
    fWSum = fWSum + fWFlt(K);
  }
  return fWSum <= 0.0f ? fDummy : fDSum / fWSum;
}

/// Counts a value that is lost because no window in reach gives an average. fValue: as it was.
void Count_Lost(R4 fValue, R4 fMean) {
  if (fValue >= fDummyLimit && fMean == fDummy) ++hSmoothCount.NLost;
}

void Smooth_dBdt(I4 j) {
  const Transient& h = hTrn(j);
  WindowValues fDwrk;
  for (I4 I = 1; I <= h.NTW; ++I) {
    const bool bMissing = h.fuVmag(I) <= fDummyLimit;
    fDwrk(I) = bMissing ? fDummy : ASINH(Time_Scale(h.fTWCen(I)) * h.fuVmag(I));
    if (bMissing) Edit_Window_Flag(j, I, true);
  }
  for (I4 I = IFirstFiltered; I <= h.NTW; ++I) {
    const R4 fMean = Smoothed(h, fDwrk, I);
    Count_Lost(fDwrk(I), fMean);
    Edit_Value(j, I, &Transient::fuVmag, fMean == fDummy ? fDummy : std::sinh(fMean) / Time_Scale(h.fTWCen(I)));
  }
}

/// False, with nothing changed, when the transient has too few resistivities.
bool Smooth_ARes(I4 j) {
  const Transient& h = hTrn(j);
  WindowValues fDwrk;
  I4 NARes = 0;
  for (I4 I = 1; I <= h.NTW; ++I) {
    const bool bHave = h.fARes(I) > fAResLimit;
    fDwrk(I) = bHave ? std::log(h.fARes(I)) : fDummy;
    if (bHave) ++NARes;
  }
  if (NARes < NAResNeeded) return false;

  for (I4 I = IFirstFiltered; I <= h.NTW; ++I) {
    const R4 fMean = Smoothed(h, fDwrk, I);
    Count_Lost(fDwrk(I), fMean);
    Edit_Value(j, I, &Transient::fARes, fMean == fDummy ? fDummy : std::exp(fMean));
    if (fMean != fDummy) Edit_Value(j, I, &Transient::fDepth, Image_Depth(h.fTWCen(I), h.fARes(I)));
  }
  return true;
}

bool Smooth_All() {
  for (I4 j = 1; j <= NTrn; ++j) {
    Smooth_dBdt(j);
    if (!Smooth_ARes(j)) {
      hSmoothCount.jStop = j;
      return false;
    }
    ++hSmoothCount.NSmoothed;
  }
  return true;
}

/// Begin of window I from the centres of I - 1 and I.
R4 Edge_Between(const Transient& h, I4 I) {
  const R4 TWC2 = h.fTWCen(I - 1) * h.fTWCen(I);
  if (h.fTWCen(I - 1) <= 0.0f || TWC2 <= fTinySquare) return 0.5f * (h.fTWCen(I - 1) + h.fTWCen(I));
  return std::sqrt(TWC2);
}

R4 First_Begin(const Transient& h) {
  const R4 fCen = h.fTWCen(1);
  if (fCen <= 0.0f) return fCen - 0.5f * (h.fTWEnd(1) - fCen);
  return std::max(fCen * fCen / h.fTWEnd(1), 0.5f * fCen);
}

void Set_Edges(Transient& h) {
  if (h.NTW < 2) {
    h.fTWBeg(1) = h.fTWCen(1);
    h.fTWEnd(1) = h.fTWCen(1);
    return;
  }
  for (I4 I = 2; I <= h.NTW; ++I) {
    if (h.fTWBeg(I) < fDummyLimit) h.fTWBeg(I) = Edge_Between(h, I);
    if (h.fTWEnd(I - 1) < fDummyLimit) h.fTWEnd(I - 1) = h.fTWBeg(I);
  }
  if (h.fTWBeg(1) < fDummyLimit) h.fTWBeg(1) = First_Begin(h);
  if (h.fTWEnd(h.NTW) < fDummyLimit) h.fTWEnd(h.NTW) = h.fTWCen(h.NTW) * h.fTWCen(h.NTW) / h.fTWBeg(h.NTW);
}

}  // namespace

I4 GMA_Time() {
  hSmoothCount = {};
  if (NTrn < 1) {
    LogErr({"GMA_Time.ERROR: No valid data are loaded."});
    return 1;
  }
  LogText_Reset();
  LogText("");
  LogText("Applying moving average filter to dB/dt and apparent resistivity transients.");
  if (Smooth_All()) LogText("Moving average filtering is finished.");
  return dBdt_2_B();
}

void Get_TWWidth() {
  for (I4 j = 1; j <= NTrn; ++j) Set_Edges(hTrn(j));
}

}  // namespace quillan
