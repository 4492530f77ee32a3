// mde_fuzz.cpp: any bytes as a metadata file: read, then brought up to date, twice, and read again.
#include <cmath>

#include "files/mde_file.h"
#include "fuzz/fuzz_file.h"
#include "metadata/enm_data.h"
#include "metadata/mdp_data.h"
#include "model/survey_keywords.h"
#include "model/tmd_data.h"

namespace {

using namespace quillan;

/// Takes the survey from a metadata file as the program does that has just started.
void Read_First(std::string& sMdeFile) {
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

void Check_Survey(const Survey& h) {
  Require(Is_Code_of(sTemArray, h.iTemArray) && Is_Code_of(sLengthUnit, h.iLengthUnit));
  Require(Is_Code_of(sTimeUnit, h.iTimeUnit) && Is_Code_of(sdBdtUnit, h.idBdtUnit));
  Require(Is_Code_of(sBUnit, h.iBUnit) && Is_Code_of(sEUnit, h.iEUnit) && h.NTxTurn >= 1);
  for (const R8 dStation : {h.dStnBeg, h.dStnInc, h.dStnKvrBeg, h.dStnKvrInc}) Require(Is_Present(dStation));
  Require(h.dStnKvrInc != 0.0 && h.dStnInc != 0.0);
  for (I4 I = 1; I <= 2; ++I) Require(std::isfinite(h.fTxLength(I)));
  for (I4 I = 1; I <= 3; ++I) Require(std::isfinite(h.dTxXYZC(I)) && std::isfinite(h.fTxHPR(I)));
}

void Update(const std::string& sMdeFile) {
  Require(MDE_Rewrite(sMdeFile) == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* hData, std::size_t NData) {
  Begin_Fuzzing();
  std::string sMdeFile = Fuzz_File(hData, NData);
  Read_First(sMdeFile);
  Check_Survey(hTemSurvey);
  Update(sMdeFile);
  Update(sMdeFile);
  Read_First(sMdeFile);
  Check_Survey(hTemSurvey);
  return 0;
}
