#include "model/derived.h"

#include <algorithm>

#include "metadata/enm_data.h"
#include "model/station_scale.h"
#include "model/txw_data.h"

namespace quillan {
namespace {

constexpr R8 dStnIncLeast = 0.001;     // a recorded increment below it is taken for 1
constexpr R4 fHPRLeast = -360.0f;      // degrees, an attitude below it is not set
constexpr R8 dFixedLoopStn = 1.0;      // station of the one loop of a fixed-loop survey
constexpr R4 fTWTolerance = 0.01f;     // msec, at any window centre
constexpr R4 fAResLeast = 0.001f;      // ohm-m, least resistivity that counts in a range
constexpr I4 iTimeMsec = 2;            // code in sTimeUnit
constexpr R4 fRadian = 0.0174532924f;  // radians in a degree

/// Whether one of the three angles is not set.
bool Is_Unset(const Array1<R4, 3>& fHPR) {
  return *std::min_element(fHPR.begin(), fHPR.end()) < fHPRLeast;
}

void Complete_Transmitter(const StationScale& Rescaled, Transient& h) {
  const bool bPresent = h.dTxKvrStn >= dDummyLimit;
  if (hTemSurvey.iTemArray == iArrayFXL) {
    if (!bPresent) h.dTxKvrStn = h.dTxStn = dFixedLoopStn;
  } else if (bPresent) {
    h.dTxStn = Rescaled(h.dTxKvrStn);
  } else {  // the transmitter moves with the receiver
    h.dTxKvrStn = h.dRxKvrStn;
    h.dTxStn = h.dRxStn;
  }
}

/// The configuration of transient j if an earlier one has the same windows, else 0. The windows are compared only
/// where the number changes from one transient to the next, so a long run of one configuration costs one comparison.
I4 Find_TWCfg(I4 j) {
  I4 iTWCfg0 = -1;
  for (I4 jEarlier = j - 1; jEarlier >= 1; --jEarlier) {
    if (hTrn(jEarlier).iTWCfg == iTWCfg0) continue;
    iTWCfg0 = hTrn(jEarlier).iTWCfg;
    if (TMD_Trns_TW_Compare(hTrn(j), hTrn(jEarlier))) return iTWCfg0;
  }
  return 0;
}

void Widen(R4 fValue, R4& fMin, R4& fMax) {
  fMin = std::min(fMin, fValue);
  fMax = std::max(fMax, fValue);
}

void Set_Ranges(Transient& h) {
  h.fuVmin = h.fBmin = h.fARmin = fRangeMin0;
  h.fuVmax = h.fBmax = h.fARmax = fRangeMax0;
  for (I4 I = 1; I <= h.NTW; ++I) {
    if (Is_Present(h.fuVmag(I))) Widen(h.fuVmag(I), h.fuVmin, h.fuVmax);
    if (Is_Present(h.fBmag(I))) Widen(h.fBmag(I), h.fBmin, h.fBmax);
    if (h.fARes(I) > fAResLeast) Widen(h.fARes(I), h.fARmin, h.fARmax);
  }
  if (h.NTW < 1) return;
  h.fTWCmin = h.fTWCen(1);
  h.fTWCmax = h.fTWCen(h.NTW);
}

/// The first loop stands for the survey's transmitter. Returns the status of its sides.
I4 Take_First_Loop() {
  const I4 iError = Txw_Get_Length(hTxw(1), hTemSurvey.fLineAzimuth, hTemSurvey.fTxLength);
  hTemSurvey.fTxArea = hTxw(1).fTxArea;
  hTemSurvey.dTxXYZC = hTxw(1).dTxUTMC;
  hTemSurvey.fTxHPR = {
      {hTemSurvey.fLineAzimuth, 0.0f, 0.0f}
  };
  return iError;
}

}  // namespace

void TEM_Complete_Transients() {
  const StationScale Rescaled = Stn_Scale(dStnIncLeast);
  Array1<R4, 3> fRxHPR = hTemSurvey.fRxHPR;
  if (Is_Unset(fRxHPR))
    fRxHPR = {
        {hTemSurvey.fLineAzimuth, 0.0f, 0.0f}
    };
  for (I4 j = 1; j <= NTrn; ++j) {
    Transient& h = hTrn(j);
    h.dRxStn = Rescaled(h.dRxKvrStn);
    if (Is_Unset(h.fRxHPR)) h.fRxHPR = fRxHPR;
    Complete_Transmitter(Rescaled, h);
  }
}

bool TMD_Trns_TW_Compare(const Transient& hTrns1, const Transient& hTrns2) {
  bool bTWMatch = hTrns1.NTW == hTrns2.NTW;
  for (I4 I = 1; bTWMatch && I <= hTrns1.NTW; ++I) {
    bTWMatch = !(std::abs(hTrns1.fTWCen(I) - hTrns2.fTWCen(I)) > fTWTolerance);
  }
  return bTWMatch;
}

I4 TMD_Trns_Set_iTWCfg() {
  I4 NTWCfg = 0;
  for (I4 j = 1; j <= NTrn; ++j) {
    const I4 iTWCfg = Find_TWCfg(j);
    hTrn(j).iTWCfg = iTWCfg > 0 ? iTWCfg : ++NTWCfg;
  }
  return NTrn < 1 ? 1 : 0;
}

void TEM_Trn_Data_Range() {
  for (I4 j = 1; j <= NTrn; ++j) Set_Ranges(hTrn(j));
}

void Prepare_Output(bool bCurrentFormat) {
  if (bCurrentFormat) hTemSurvey.iTimeUnit = iTimeMsec;
  for (I4 j = 1; j <= NTrn; ++j) {
    Transient& h = hTrn(j);
    for (I4 I = 1; I <= h.NTW; ++I) {
      if (h.fARes(I) > fNoValueLimit) h.fDepth(I) = Image_Depth(h.fTWCen(I), h.fARes(I));
    }
  }
}

I4 TMD_TxUTMC_from_hTxw() {
  if (!hTemSurvey.bTxwFile) return 0;
  if (NTxw < 1) return 1;
  I4 iError = Take_First_Loop();

  LoopFound hFound{.iTxw = 1};
  R8 dTxStn = hTxw(1).dTxStn;
  for (I4 j = 1; j <= NTrn; ++j) {
    if (!Is_Same_Stn(dTxStn, hTrn(j).dTxStn)) {
      dTxStn = hTrn(j).dTxStn;
      hFound = Txw_Get_iTxw(dTxStn);
      iError = hFound.iError;  // of the last station alone
    }
    if (hFound.iTxw >= 1 && hFound.iTxw <= NTxw) hTrn(j).dTxXYZC = hTxw(hFound.iTxw).dTxUTMC;
  }
  return iError;
}

Array2<R4, 2, 4> TMD_Get_fTxXYV(const Array1<R4, 2>& fTxLength, R4 fTxAzm, I4 iLengthUnit) {
  constexpr R4 fCorner[4][2] = {
  // in sides of the loop
      {-0.5f, -0.5f},
      {0.5f,  -0.5f},
      {0.5f,  0.5f },
      {-0.5f, 0.5f }
  };
  const R4 fUnit = Held_Entry(fLengthUnit, iLengthUnit);
  const R4 fS = std::sin(fTxAzm * fRadian);
  const R4 fC = std::cos(fTxAzm * fRadian);
  Array2<R4, 2, 4> fTxXYV{};
  for (I4 J = 1; J <= 4; ++J) {
    const R4 fXX = fCorner[J - 1][0] * fTxLength(1) / fUnit;
    const R4 fYY = fCorner[J - 1][1] * fTxLength(2) / fUnit;
    fTxXYV(1, J) = fS * fXX - fC * fYY;
    fTxXYV(2, J) = fC * fXX + fS * fYY;
  }
  return fTxXYV;
}

}  // namespace quillan
