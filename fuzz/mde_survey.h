// mde_survey.h: what the targets of metadata files share: a survey from a file, and what holds in any survey.
#pragma once

#include <cmath>

#include "files/mde_file.h"
#include "fuzz/fuzz_file.h"
#include "metadata/enm_data.h"
#include "metadata/mdp_data.h"
#include "model/survey_keywords.h"
#include "model/tmd_data.h"

namespace quillan {

/// Takes the survey from a metadata file as the program does that has just started.
inline void Read_First(std::string& sMdeFile) {
  MDP_Initialize_MD(true);
  MdJob = JobGroup{};  // the job's number and date outlive the initialiser
  hTemSurvey = Survey{};
  Require(MDE_Read(sMdeFile) == 0);
  TMD_Survey_from_MD();
}

template <class Table>
bool Is_Code_of(const Table&, I4 iCode) {
  return iCode >= Table::iLow && iCode <= Table::iHigh;
}

inline void Check_Survey(const Survey& h) {
  Require(Is_Code_of(sTemArray, h.iTemArray) && Is_Code_of(sLengthUnit, h.iLengthUnit));
  Require(Is_Code_of(sTimeUnit, h.iTimeUnit) && Is_Code_of(sdBdtUnit, h.idBdtUnit));
  Require(Is_Code_of(sBUnit, h.iBUnit) && Is_Code_of(sEUnit, h.iEUnit) && h.NTxTurn >= 1);
  for (const R8 dStation : {h.dStnBeg, h.dStnInc, h.dStnKvrBeg, h.dStnKvrInc}) Require(Is_Present(dStation));
  Require(h.dStnKvrInc != 0.0 && h.dStnInc != 0.0);
  for (I4 I = 1; I <= 2; ++I) Require(std::isfinite(h.fTxLength(I)));
  for (I4 I = 1; I <= 3; ++I) Require(std::isfinite(h.dTxXYZC(I)) && std::isfinite(h.fTxHPR(I)));
}

}  // namespace quillan
