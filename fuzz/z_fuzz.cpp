// z_fuzz.cpp: the reader of contour files, with all that it calls, on any bytes.
#include <cmath>

#include "fuzz/z_store.h"

namespace {

using namespace quillan;

void Check_Transient(const Transient& h) {
  Require(h.NTW >= 1 && h.NTW <= MTW && h.iRxCmp >= 1 && h.iRxCmp <= 8);
  Require(std::isfinite(h.dRxKvrStn) && std::isfinite(h.dRxStn) && h.fRxArea > 0.0f && h.fTxFreq > 0.0f);
  for (I4 I = 1; I <= h.NTW; ++I) {
    Require(std::isfinite(h.fuVmag(I)) && std::isfinite(h.fTWCen(I)));
    Require(I == 1 || h.fTWCen(I) >= h.fTWCen(I - 1));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* hData, std::size_t NData) {
  Begin_Fuzzing();
  const I4 iError = Read_Contours(Fuzz_File(hData, NData));
  Require(NTrn >= 0 && NTrn <= MTrn && (NTrn >= 1) == (iError == 0));
  for (I4 j = 1; j <= NTrn; ++j) Check_Transient(hTrn(j));
  return 0;
}
