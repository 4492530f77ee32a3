// avg_store.h: what the targets of averaged data files share: a fresh store from a file, and what holds in any store.
#pragma once

#include <cmath>
#include <vector>

#include "files/avg_reader.h"
#include "files/mde_file.h"
#include "fuzz/fuzz_file.h"
#include "metadata/mdp_data.h"
#include "model/derived.h"

namespace quillan {

/// Reads a file as the program does that has just started, without a metadata file.
inline I4 Read_First(std::string_view sFile) {
  MDP_Initialize_MD(true);
  MdJob = JobGroup{};  // the job's number and date outlive the initialiser
  hTemSurvey = Survey{};
  hAvgRead = AvgReadState{};
  std::string sNoMde = Fuzz_Path("none.mde");
  static_cast<void>(MDE_Read(sNoMde));  // there is none, but the station scaling gets its fallbacks
  return AVG_Read(sFile);
}

inline void Check_Transient(const Transient& h) {
  Require(h.NTW >= 1 && h.NTW <= MTW);
  Require(h.iRxCmp >= 1 && h.iRxCmp <= 9);
  Require(h.iAcqMethod >= 1 && h.iAcqMethod <= 5);
  Require(h.dRxKvrStn >= dDummyLimit && std::isfinite(h.dRxStn) && std::isfinite(h.dTxStn));
  Require(h.fRxArea > 0.0f && h.fTxFreq > 0.0f && h.fTxAmp > 0.0f);
  for (I4 I = 1; I <= h.NTW; ++I) {
    Require(h.fTWCen(I) >= fDummyLimit && (I == 1 || h.fTWCen(I) >= h.fTWCen(I - 1)));
    for (const auto* hValue : {&h.fTWBeg, &h.fTWEnd, &h.fuVmag, &h.fuVerr, &h.fuVpct, &h.fARes, &h.fDepth, &h.fBmag})
      Require(std::isfinite((*hValue)(I)));
  }
}

inline void Check_Store(I4 iError) {
  Require(NTrn >= 0 && NTrn <= MTrn && (NTrn >= 1 || iError == 1));
  const AvgKeptLines& h = hAvgKept;
  Require(h.NAvgCmt >= 0 && h.NAvgCmt <= MAvgCmt && h.NAvgMde >= 0 && h.NAvgMde <= MAvgMde);
  for (I4 I = 1; I <= h.NAvgCmt; ++I) Require(h.sAvgCmt(I).trimmed().find("QUILLAN") == std::string_view::npos);
  for (I4 I = 1; I <= h.NAvgMde; ++I) Require(h.sAvgMde(I).trimmed().substr(0, 2).find('$') != std::string_view::npos);
  for (I4 j = 1; j <= NTrn; ++j) Check_Transient(hTrn(j));
}

inline std::vector<Transient> Copy_of_Store() {
  return {hTrn.begin(), hTrn.begin() + NTrn};
}

}  // namespace quillan
