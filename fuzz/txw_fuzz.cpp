// txw_fuzz.cpp: the reader of wire files on any bytes, and the geometry of the loops that it made of them.
#include <cstdlib>

#include "files/txw_file.h"
#include "fuzz/fuzz_file.h"
#include "model/txw_data.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* hData, std::size_t NData) {
  using namespace quillan;
  Begin_Fuzzing();
  std::string sTxwFile = Fuzz_File(hData, NData);
  I4 iError = 0;
  Txw_Read(sTxwFile, NData % 2 == 0, iError);
  if ((iError == 0) != (NTxw >= 1) || NTxw > MTxwLoop) std::abort();
  for (I4 K = 1; K <= NTxw; ++K) {
    if (hTxw(K).NTxUTMV < 1 || hTxw(K).NTxUTMV > MTxUTMV) std::abort();
    Array1<R4, 2> fTxLength{};
    Txw_Get_Length(hTxw(K), 45.0f, fTxLength, iError);
    I4 iTxw = 0;
    Txw_Get_iTxw(hTxw(K).dTxStn, iTxw, iError);
    if (iTxw < 1 || iTxw > K) std::abort();
  }
  return 0;
}
