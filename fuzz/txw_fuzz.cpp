// txw_fuzz.cpp: the reader of wire files on any bytes, and the geometry of the loops that it made of them.
#include <algorithm>
#include <cmath>

#include "files/txw_file.h"
#include "fuzz/fuzz_file.h"
#include "model/txw_data.h"

namespace {

using namespace quillan;

constexpr R8 dLimit = 1.0E12;  // of every value that is taken from a file

void Check_Corners(const WireLoop& h) {
  Require(h.NTxUTMV >= 1 && h.NTxUTMV <= MTxUTMV);
  Require(std::abs(h.dTxStn) <= dLimit);
  for (I4 J = 1; J <= h.NTxUTMV; ++J) {
    for (I4 I = 1; I <= 3; ++I) Require(std::abs(h.dTxUTMV(I, J)) <= dLimit);
    Require(h.fTxDepth(J) < 0.0f || (h.fTxDepth(J) == 0.0f && !std::signbit(h.fTxDepth(J))));
  }
}

/// The centre lies within the corners, and the rectangle has the area of the loop.
void Check_Geometry(const WireLoop& h) {
  Array1<R4, 2> fTxLength{};
  const I4 iError = Txw_Get_Length(h, 45.0f, fTxLength);
  Require(fTxLength(1) > 0.0f && fTxLength(2) > 0.0f);
  if (h.NTxUTMV < 3) {
    Require(!Is_Present(h.fTxArea) && iError == 1);
    return;
  }
  Require(h.fTxArea >= 0.0f && std::isfinite(h.fTxArea));
  if (iError == 0) Require(std::abs(fTxLength(1) * fTxLength(2) / h.fTxArea - 1.0f) < 1.0E-3f);
  for (I4 I = 1; I <= 3; ++I) {
    R8 dMin = dLimit, dMax = -dLimit;
    for (I4 J = 1; J <= h.NTxUTMV; ++J) {
      dMin = std::min(dMin, h.dTxUTMV(I, J));
      dMax = std::max(dMax, h.dTxUTMV(I, J));
    }
    const R8 dRounding = 1.0E-12 * (std::abs(dMin) + std::abs(dMax));
    Require(h.dTxUTMC(I) >= dMin - dRounding && h.dTxUTMC(I) <= dMax + dRounding);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* hData, std::size_t NData) {
  Begin_Fuzzing();
  std::string sTxwFile = Fuzz_File(hData, NData);
  const I4 iError = Txw_Read(sTxwFile, NData % 2 == 0);
  Require((iError == 0) == (NTxw >= 1) && NTxw <= MTxwLoop);
  for (I4 K = 1; K <= NTxw; ++K) {
    Check_Corners(hTxw(K));
    Check_Geometry(hTxw(K));
    Require(K == 1 || hTxw(K).dTxStn >= hTxw(K - 1).dTxStn);
    const LoopFound hFound = Txw_Get_iTxw(hTxw(K).dTxStn);
    Require(hFound.iError == 0 && hFound.iTxw >= 1 && hFound.iTxw <= K);
  }
  return 0;
}
