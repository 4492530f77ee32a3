// export_survey.h: surveys for the exchange files: what the next program is to find in them.
#pragma once

#include <stdlib.h>

#include <cmath>
#include <vector>

#include "metadata/enm_data.h"
#include "model/derived.h"
#include "model/txw_data.h"
#include "support/survey_builder.h"

namespace quillan {

/// A transient with windows between the edges, in msec.
inline Transient Sounding(R8 dStn, const std::vector<R4>& fEdge, const std::vector<R4>& fuVmag) {
  Transient h = TransientBuilder().Station(dStn);
  for (const R4 fValue : fuVmag) {
    const I4 I = ++h.NTW;
    h.fTWBeg(I) = fEdge[static_cast<std::size_t>(I - 1)];
    h.fTWEnd(I) = fEdge[static_cast<std::size_t>(I)];
    h.fTWCen(I) = std::sqrt(h.fTWBeg(I) * h.fTWEnd(I));
    h.fuVmag(I) = fValue;
    h.fuVpct(I) = 0.5f;
  }
  h.fTxRamp = 5.0f;
  h.fTxAmp = 9.6f;
  return h;
}

inline void Load_Export(I4 iTemArray, const std::vector<Transient>& hTransient) {
  Load({});
  for (const Transient& h : hTransient) hTrn(++NTrn) = h;
  static_cast<void>(TMD_Trns_Set_iTWCfg());
  setenv("SOURCE_DATE_EPOCH", "1605225600", 1);
  LogText_Reset();
  hTemSurvey.sJobName = "Orrin basin";
  hTemSurvey.sJobFor = "Water, board";
  hTemSurvey.sJobDate = "13/11/2020";
  hTemSurvey.sLineName = "12 N";
  hTemSurvey.iTemArray = iTemArray;
  hTemSurvey.fLineAzimuth = 90.0f;
  hTemSurvey.fTxLength = {200.0f, 100.0f};
  hTemSurvey.fTxArea = 20000.0f;
  hTemSurvey.dTxXYZC = {1000.0, 2000.0, 10.5};
}

/// A fixed loop in feet. Of the windows one is skipped, one has no value, and one a value too small for its form; of
/// the transients one is skipped, one has no window in use, and one is horizontal.
inline void Load_Fixed_Loop() {
  const std::vector<R4> fEdge{0.01f, 0.03f, 0.05f, 0.1f};
  std::vector<Transient> h(6, Sounding(1200, fEdge, {1234.567f, -99.99996f, 1.0E-12f}));
  for (I4 j = 1; j <= 6; ++j) h[static_cast<std::size_t>(j - 1)].dRxStn = 1200 + 25 * j;
  h[0].dRxXYZ = {1050.25, -2000.0, fDummy};
  h[0].fuVpct = {
      {0.5f, fDummy, 1.0E6f}
  };
  h[1].bSkip(2) = true;
  h[1].fuVmag(1) = fDummy;
  h[1].fTxRamp = 0.0f;
  h[2].bSkipTrn = true;
  h[3].bSkip.fill(true);
  h[4].iRxCmp = iCmpHx;
  h[4].fTxFreq = 4.0f;
  h[5].dRxStn = 123456.789;
  h[5].dTxXYZC = {1000.0, 2000.0, 0.0};
  h[5].fTxFreq = 0.25f;
  Load_Export(iArrayFXL, h);
  hTemSurvey.iLengthUnit = iUnitFeet;
}

}  // namespace quillan
