// z_back_fuzz.cpp: contour files of any bytes, written by the program and read back.
#include <cmath>
#include <vector>

#include "fuzz/z_store.h"

namespace {

using namespace quillan;

/// A row of the file.
struct Window {
  R8 dStn;
  R4 fTWCen, fuVmag;
  bool bSkip;
};

std::vector<Window> All_Windows() {
  std::vector<Window> hAll;
  for (I4 j = 1; j <= NTrn; ++j) {
    const Transient& h = hTrn(j);
    for (I4 I = 1; I <= h.NTW; ++I) hAll.push_back({h.dRxStn, h.fTWCen(I), h.fuVmag(I), h.bSkip(I)});
  }
  return hAll;
}

/// What the columns of a file can show, short of the station that ends a block. Stations that are one in print can
/// make one transient, which has room for only so many windows.
bool Fits(const std::vector<Window>& hAll) {
  for (const Window& h : hAll) {
    if (!(h.dStn > -900.0 && h.dStn < 9000.0 && h.fTWCen > -9.0f && h.fTWCen < 9000.0f)) return false;
    if (h.fuVmag < fDummyLimit) return false;
  }
  return hAll.size() <= MTW;
}

void Require_Same_Row(const Window& h1, const Window& h2) {
  constexpr R8 dStnStep = 0.051, dTimeStep = 5.1E-4, dValueStep = 5.1E-5;
  constexpr R8 dValueLeast = 1.0E-37;  // below it a value has fewer digits than a row
  Require(h1.bSkip == h2.bSkip && std::abs(h1.dStn - h2.dStn) < dStnStep);
  Require(std::abs(R8{h1.fTWCen} - R8{h2.fTWCen}) < dTimeStep);
  Require(std::abs(R8{h1.fuVmag} - R8{h2.fuVmag}) <= dValueStep * std::abs(R8{h1.fuVmag}) + dValueLeast);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* hData, std::size_t NData) {
  Begin_Fuzzing();
  if (Read_Contours(Fuzz_File(hData, NData)) != 0) return 0;
  const std::vector<Window> hBefore = All_Windows();
  const std::string sWritten = Fuzz_Path("written.Z");
  Require(Z_Write(sWritten) == 0);
  const I4 iError = Read_Contours(sWritten);
  if (!Fits(hBefore)) return 0;
  const std::vector<Window> hAfter = All_Windows();
  Require(iError == 0 && hAfter.size() == hBefore.size());
  for (std::size_t K = 0; K < hAfter.size(); ++K) Require_Same_Row(hBefore[K], hAfter[K]);
  return 0;
}
