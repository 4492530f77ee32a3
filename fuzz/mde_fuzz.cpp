// mde_fuzz.cpp: any bytes as a metadata file: read, then brought up to date twice. A second update of the same survey
// must not make the file grow.
#include <cstdlib>
#include <filesystem>

#include "files/mde_file.h"
#include "fuzz/fuzz_file.h"
#include "metadata/mdp_data.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* hData, std::size_t NData) {
  using namespace quillan;
  Begin_Fuzzing();
  std::string sMdeFile = Fuzz_File(hData, NData);
  I4 iError = 0;
  MDP_Initialize_MD(iError, true);
  MDE_Read(sMdeFile, iError);
  if (iError != 0) std::abort();
  MDE_Rewrite(sMdeFile, iError);
  if (iError != 0) std::abort();
  const auto NByte = std::filesystem::file_size(sMdeFile);
  MDE_Rewrite(sMdeFile, iError);
  if (iError != 0 || std::filesystem::file_size(sMdeFile) > NByte) std::abort();
  return 0;
}
