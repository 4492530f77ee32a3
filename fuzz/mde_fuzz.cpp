// mde_fuzz.cpp: the reader of metadata files on any bytes.
#include "fuzz/mde_survey.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* hData, std::size_t NData) {
  using namespace quillan;
  Begin_Fuzzing();
  std::string sMdeFile = Fuzz_File(hData, NData);
  Read_First(sMdeFile);
  Check_Survey(hTemSurvey);
  return 0;
}
