#include "full_store.h"

#include <stdlib.h>  // mkdtemp

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>

#include "metadata/mdp_data.h"
#include "model/derived.h"
#include "processing/b_field.h"

namespace quillan {
namespace {

constexpr I4 iArrayINL = 3;           // central loop
constexpr R4 fTimeFirst = 0.0107f;    // msec
constexpr R4 fTimeStep = 1.135f;      // from window to window
constexpr R4 fNoise = 3.0E-3f;        // uV/A
constexpr R4 fPercentOfNoise = 0.5f;  // error of a strong signal
constexpr R4 fPartSkipped = 0.1f;

using Random = std::mt19937;

R4 Uniform(Random& hRandom, R4 fLow, R4 fHigh) {
  return std::uniform_real_distribution<R4>(fLow, fHigh)(hRandom);
}

void Set_Survey() {
  hTemSurvey.sJobName = "Full store";
  hTemSurvey.iTemArray = iArrayINL;
  hTemSurvey.fLineAzimuth = 90.0f;
  hTemSurvey.dStnKvrBeg = hTemSurvey.dStnBeg = 0.0;
  hTemSurvey.dStnKvrInc = 1.0;
  hTemSurvey.dStnInc = 25.0;
}

void Set_Header(I4 j, Transient& h) {
  const R8 dStation = (j - 1) / 2;
  h.dRxKvrStn = h.dTxKvrStn = dStation;
  h.dRxXYZ = {
      {482310.125 + 25.0 * dStation, 5176420.5, 312.4}
  };
  h.fRxHPR = {
      {90.0f, 0.0f, 0.0f}
  };
  h.fRxArea = 10000.0f;
  h.iRxCmp = j % 2 == 0 ? iCmpHx : iCmpHz;
  h.fTxFreq = 4.0f;
  h.fTxAmp = 9.6f;
  h.fTxRamp = 38.5f;
  h.NCycle = 1024;
  h.fAntDelay = 2.6f;
  h.dKvrBlk = {
      {dStation + 1.0, dStation + 1.0}
  };
  h.sKvrDate = "03/09/2020";
  h.sKvrTime = "08:04:00";
}

void Set_Window(I4 I, R4 fStrength, Random& hRandom, Transient& h) {
  const R4 fEdge = std::sqrt(fTimeStep);
  const R4 fTime = fTimeFirst * std::pow(fTimeStep, static_cast<R4>(I - 1));
  const R4 fSignal = fStrength * std::pow(fTime, -2.5f);
  h.fTWCen(I) = fTime;
  h.fTWBeg(I) = fTime / fEdge;
  h.fTWEnd(I) = fTime * fEdge;
  h.fuVerr(I) = fSignal * Uniform(hRandom, 0.5f, 1.5f) * fPercentOfNoise / 100.0f + fNoise / std::sqrt(fTime);
  h.fuVmag(I) = fSignal + h.fuVerr(I) * Uniform(hRandom, -2.0f, 2.0f);
  h.fuVpct(I) = std::min(9999.0f, 100.0f * h.fuVerr(I) / std::abs(h.fuVmag(I)));
  h.fARes(I) = 60.0f * Uniform(hRandom, 0.5f, 2.0f);
}

void Set_Windows(R4 fStrength, Random& hRandom, Transient& h) {
  h.NTW = MTW;
  for (I4 I = 1; I <= MTW; ++I) Set_Window(I, fStrength, hRandom, h);
}

void Begin_Store() {
  TMD_Initialize();
  MDP_Initialize();
  Set_Survey();
}

}  // namespace

void Make_Full_Store() {
  Begin_Store();
  Random hRandom(12);
  while (NTrn < MTrn) {
    Transient& h = TMD_Add_Transient();
    Set_Header(NTrn, h);
    Set_Windows(Uniform(hRandom, 0.05f, 0.5f), hRandom, h);
  }
  static_cast<void>(dBdt_2_B());  // the store holds data
}

void Make_Full_Section() {
  Begin_Store();
  Random hRandom(12);
  while (NTrn < MTrn) {
    Transient& h = TMD_Add_Transient();
    Set_Header(2 * NTrn - 1, h);
    const R4 fPlace = static_cast<R4>(NTrn);
    Set_Windows(0.2f * (1.2f + std::sin(fPlace / 90.0f)) * Uniform(hRandom, 0.95f, 1.05f), hRandom, h);
    for (I4 I = 1; I <= MTW; ++I) h.bSkip(I) = Uniform(hRandom, 0.0f, 1.0f) < fPartSkipped;
  }
  static_cast<void>(dBdt_2_B());  // the store holds data
  TEM_Trn_Data_Range();
}

KeptStore Keep_Store() {
  return {std::vector<Transient>(hTrn.begin(), hTrn.begin() + NTrn), hTemSurvey};
}

void Put_Store(const KeptStore& hStore) {
  NTrn = static_cast<I4>(hStore.hTransient.size());
  std::copy(hStore.hTransient.begin(), hStore.hTransient.end(), hTrn.begin());
  hTemSurvey = hStore.hSurvey;
}

OwnFolder::OwnFolder(const std::string& sParent) : sFolder(sParent + "/quillan_bench.XXXXXX") {
  if (::mkdtemp(sFolder.data()) != nullptr) return;
  std::perror(sFolder.c_str());
  std::exit(1);
}

OwnFolder::~OwnFolder() {
  std::filesystem::remove_all(sFolder);
}

}  // namespace quillan
