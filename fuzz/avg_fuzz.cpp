// avg_fuzz.cpp: the reader of averaged data files, with all that it calls, on any bytes.
#include <cstdlib>

#include "files/avg_reader.h"
#include "fuzz/fuzz_file.h"
#include "metadata/mdp_data.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* hData, std::size_t NData) {
  using namespace quillan;
  Begin_Fuzzing();
  I4 iError = 0;
  MDP_Initialize_MD(iError, true);
  AVG_Read(Fuzz_File(hData, NData), iError);
  if (NTrn < 0 || NTrn > MTrn) std::abort();
  for (I4 j = 1; j <= NTrn; ++j) {
    const Transient& h = hTrn(j);
    if (h.NTW < 1 || h.NTW > MTW || h.iRxCmp < 1 || h.iRxCmp > 9) std::abort();
  }
  return 0;
}
