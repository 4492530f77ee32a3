// mde_back_fuzz.cpp: metadata files of any bytes, brought up to date and read back.
#include "fuzz/mde_survey.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* hData, std::size_t NData) {
  using namespace quillan;
  Begin_Fuzzing();
  std::string sMdeFile = Fuzz_File(hData, NData);
  Read_First(sMdeFile);
  Require(MDE_Rewrite(sMdeFile) == 0);
  Read_First(sMdeFile);
  Check_Survey(hTemSurvey);
  return 0;
}
