#include "review/average_curves.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "foundations/str_write.h"
#include "metadata/enm_data.h"
#include "review/plot/signed_log.h"

namespace quillan {
namespace {

constexpr R4 fTimeLeast = 0.001f;  // msec; an earlier window is not plotted

// Where the search for the first and the last time begins.
constexpr R4 fXPgMin0 = 1.0E12f;
constexpr R4 fXPgMax0 = 1.0E-12f;

/// Window I of the average at a time of its own or of a repeat.
void Add_Point(AverageCurve& hCurve, PlotRange& r, const Transient& hAvg, R4 fTime, I4 I) {
  const I4 K = ++hCurve.NTW;
  hCurve.ITWofIPlt(K) = I;
  hCurve.fXPg(K) = fTime;
  hCurve.fYPg(K) = fAsinh10(hAvg.fuVmag(I), fYDscl);
  Join_Range(hCurve.fXPg(K), hCurve.fXPg(K), r.fXPmin, r.fXPmax);
  Join_Range(hCurve.fYPg(K), hCurve.fYPg(K), r.fYPmin, r.fYPmax);
}

/// The error bar of window I of the average, as bar K of a curve.
void Put_Error_Bar(AverageCurve& hCurve, I4 K, const Transient& hAvg, I4 I) {
  const R4 fHalf = hAvg.fuVerr(I) / 2.0f;
  hCurve.fYPgErr1(K) = fAsinh10(hAvg.fuVmag(I) - fHalf, fYDscl);
  hCurve.fYPgErr2(K) = fAsinh10(hAvg.fuVmag(I) + fHalf, fYDscl);
}

bool Is_Plotted(R4 fTime, const Transient& hAvg, I4 I) {
  return fTime > fTimeLeast && Is_Present(hAvg.fuVmag(I));
}

AverageCurve Average_Curve(const Transient& hAvg, PlotRange& r) {
  AverageCurve hCurve;
  for (I4 I = 1; I <= hAvg.NTW; ++I) {
    if (!Is_Plotted(hAvg.fTWCen(I), hAvg, I)) continue;
    Add_Point(hCurve, r, hAvg, hAvg.fTWCen(I), I);
    Put_Error_Bar(hCurve, hCurve.NTW, hAvg, I);
  }
  return hCurve;
}

AverageCurve Repeat_Curve(const Transient& hAvg, const Transient& h, PlotRange& r) {
  AverageCurve hCurve;
  for (I4 I = 1; I <= h.NTW; ++I) {
    if (!Is_Plotted(h.fTWCen(I), hAvg, I)) continue;
    Add_Point(hCurve, r, hAvg, h.fTWCen(I), I);
    Put_Error_Bar(hCurve, I, hAvg, I);
    hCurve.bSkip(hCurve.NTW) = h.bSkip(I);
  }
  return hCurve;
}

void Round_Times(PlotRange& r) {
  r.fXPmin = std::pow(10.0f, std::floor(std::log10(r.fXPmin)));
  r.fXPmax = std::max(std::pow(10.0f, std::ceil(std::log10(r.fXPmax))), 10.0f * r.fXPmin);
}

std::string One_Decimal(R8 dValue) {
  char sOut[MFormText];
  const std::string_view sText = Is_Present(dValue) ? Write_Form(dValue, "(F16.1)", sOut) : "";
  return sText.empty() ? "*" : std::string(sText.substr(sText.find_first_not_of(' ')));
}

std::string Title(const Transient& h) {
  return "TxFreq=" + One_Decimal(R8{h.fTxFreq}) + ", TxStn=" + One_Decimal(h.dTxStn) +
         ", RxStn=" + One_Decimal(h.dRxStn) + ", RxCmp=" + std::string(Held_Entry(sChnCmp, h.iRxCmp));
}

bool Collide(const GrPoint& h1, const GrPoint& h2, const GrPoint& hSize) {
  return std::abs(h1.fX - h2.fX) < hSize.fX && std::abs(h1.fY - h2.fY) < hSize.fY;
}

}  // namespace

I4 TMD_Avg_Plot_Setup(const RepeatGroup& hGroup) {
  AveragePlot& h = hAveragePlot;
  h = AveragePlot{};
  const auto hAvg = TMD_Avg_hTrnRptK(hGroup);
  const auto Is_in_Store = [](I4 j) { return j >= 1 && j <= NTrn; };
  if (!hAvg || !std::all_of(hGroup.iTrn.begin(), hGroup.iTrn.begin() + hGroup.NRepeat, Is_in_Store)) return 1;
  h.hRange = {fXPgMin0, fXPgMax0, 0.0f, fAsinh10(fYAlways, fYDscl)};
  h.hCurve(0) = Average_Curve(*hAvg, h.hRange);
  for (I4 K = 1; K <= hGroup.NRepeat; ++K) h.hCurve(K) = Repeat_Curve(*hAvg, hTrn(hGroup.iTrn(K)), h.hRange);
  Round_Times(h.hRange);
  h.NRepeat = hGroup.NRepeat;
  h.bSkipTrn = hGroup.bSkipTrn;
  h.iTrn = hGroup.iTrn;
  h.sTitle = Title(hTrn(hGroup.iTrn(hGroup.NRepeat)));
  h.hYTick = Asinh10_Ticks(h.hRange.fYPmin, h.hRange.fYPmax, fYDscl, MDecayTick);
  return 0;
}

std::vector<RepeatLabel> Labels_with_Room(std::span<const RepeatLabel> hLabel, GrPoint hSize) {
  std::vector<RepeatLabel> hShown;
  std::vector<RepeatLabel> hLeft(hLabel.begin(), hLabel.end());
  Array1<I4, MRepeat> NLabel{};
  while (!hLeft.empty()) {
    const auto Comes_First = [&](const RepeatLabel& h1, const RepeatLabel& h2) {
      return std::tuple(h1.I, NLabel(h1.K), h1.K) < std::tuple(h2.I, NLabel(h2.K), h2.K);
    };
    const RepeatLabel h = *std::ranges::min_element(hLeft, Comes_First);
    hShown.push_back(h);
    ++NLabel(h.K);
    std::erase_if(hLeft, [&](const RepeatLabel& hOther) {
      return (hOther.K == h.K && hOther.I == h.I) || Collide(hOther.h, h.h, hSize);
    });
  }
  return hShown;
}

namespace {

PickedPoint Picked(const RepeatLabel& h) {
  return {hAveragePlot.iTrn(h.K), hAveragePlot.hCurve(h.K).ITWofIPlt(h.I)};
}

}  // namespace

PickedPoint Average_Nearest(const GrPoint& hClick, R4 fRGrMax) {
  PickedPoint hPicked;
  for (const RepeatLabel& h : hAveragePlot.hLabel) {
    const R4 fDistance = std::hypot(h.h.fX - hClick.fX, h.h.fY - hClick.fY);
    if (fDistance > fRGrMax || (fDistance == fRGrMax && hPicked.iTrn != 0)) continue;
    fRGrMax = fDistance;
    hPicked = Picked(h);
  }
  return hPicked;
}

std::optional<GrPoint> Average_Place(const PickedPoint& hPoint) {
  for (const RepeatLabel& h : hAveragePlot.hLabel) {
    if (Picked(h) == hPoint) return h.h;
  }
  return std::nullopt;
}

std::string Average_Words(const PickedPoint& hPoint) {
  constexpr I4 iTypeDecay = 1;
  I4 K = 1;
  while (K < hAveragePlot.NRepeat && hAveragePlot.iTrn(K) != hPoint.iTrn) ++K;
  Transient h = hTrn(hPoint.iTrn);
  h.bSkipTrn = hAveragePlot.bSkipTrn(K);  // as the user has just set it
  return "Repeat " + Str_Write_I4(K).str() + ": " + Point_Words(h, hPoint.iTwc, iTypeDecay);
}

}  // namespace quillan
