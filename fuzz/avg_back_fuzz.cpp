// avg_back_fuzz.cpp: averaged data files of any bytes, written by the program and read back.
#include <algorithm>
#include <cmath>
#include <vector>

#include "files/avg_writer.h"
#include "fuzz/avg_store.h"

namespace {

using namespace quillan;

// What the forms of a file can show: three decimals of a station and an amplitude, exponents of one digit.
bool Fits_Station(R8 dStn) {
  return std::abs(dStn) < 9.0E6;
}
bool Fits_Time(R4 fTime) {
  return fTime == 0.0f || (std::abs(fTime) > 1.1E-9f && std::abs(fTime) < 9.9E9f);
}
bool Fits(const Transient& h) {
  return h.NTW < MTW && Fits_Station(h.dTxKvrStn) && Fits_Station(h.dRxKvrStn) && h.fTxFreq > 1.1E-6f &&
         h.fTxFreq < 9.0E3f && h.fTxAmp > 0.001f && h.fTxAmp < 9.0E3f &&
         std::all_of(h.fTWCen.begin(), h.fTWCen.begin() + h.NTW, Fits_Time);
}

/// Whether a transient differs from the one before it by more than the rounding of the file.
bool Stands_Apart(const Transient& h0, const Transient& h) {
  constexpr R8 dStnSteps = 0.002;
  constexpr R4 fTimeSteps = 3.0E-4f;
  if (std::abs(h.dTxKvrStn - h0.dTxKvrStn) > dStnSteps || std::abs(h.dRxKvrStn - h0.dRxKvrStn) > dStnSteps) return true;
  const R4 fLast = h0.fTWCen(h0.NTW);
  return fLast - h.fTWCen(1) > fTimeSteps * std::max(std::abs(fLast), std::abs(h.fTWCen(1)));
}

bool Store_Fits() {
  for (I4 j = 1; j <= NTrn; ++j) {
    if (!Fits(hTrn(j)) || (j > 1 && !Stands_Apart(hTrn(j - 1), hTrn(j)))) return false;
  }
  return true;
}

void Require_Same_Windows(const std::vector<Transient>& hBefore) {
  Require(NTrn == static_cast<I4>(hBefore.size()));
  for (I4 j = 1; j <= NTrn; ++j) Require(hTrn(j).NTW == hBefore[static_cast<std::size_t>(j - 1)].NTW);
}

/// A resistivity or B(t) at or below the limit is written as none.
bool Same_or_None(R4 f1, R4 f2) {
  return f1 == f2 || (f1 <= fNoValueLimit && f2 <= fNoValueLimit);
}

void Require_Same_Values(const Transient& h1, const Transient& h2) {
  Require(h1.dTxKvrStn == h2.dTxKvrStn && h1.dRxKvrStn == h2.dRxKvrStn);
  Require(h1.fTxFreq == h2.fTxFreq && h1.fTxAmp == h2.fTxAmp && h1.iAcqMethod == h2.iAcqMethod);
  for (I4 I = 1; I <= h1.NTW; ++I) {
    for (const auto hValue : {&Transient::fTWCen, &Transient::fTWBeg, &Transient::fTWEnd, &Transient::fuVmag,
                              &Transient::fuVerr, &Transient::fuVpct})
      Require((h1.*hValue)(I) == (h2.*hValue)(I));
    Require(Same_or_None(h1.fARes(I), h2.fARes(I)) && Same_or_None(h1.fBmag(I), h2.fBmag(I)));
  }
}

/// Writes the store and reads it back. False when it is empty or nothing of it can be shown in a file.
bool Write_and_Read() {
  const std::string sWritten = Fuzz_Path("written.avg");
  if (NTrn < 1) return false;
  Prepare_Output(true);
  Require(AVG_Write(sWritten) == 0);
  const I4 iError = Read_First(sWritten);
  Check_Store(iError);
  return iError == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* hData, std::size_t NData) {
  Begin_Fuzzing();
  if (Read_First(Fuzz_File(hData, NData)) != 0) return 0;
  const bool bFits = Store_Fits();
  const std::vector<Transient> hRead = Copy_of_Store();
  const bool bReadBack = Write_and_Read();
  if (bFits) Require_Same_Windows(hRead);

  // What came from a file of ours is in the file's own steps: another round changes nothing. Every other input is
  // enough to show it; a round costs as much as the rest.
  if (NData % 2 == 1) return 0;
  const std::vector<Transient> hFirst = Copy_of_Store();
  const bool bCut = std::any_of(hFirst.begin(), hFirst.end(), [](const Transient& h) { return h.NTW == MTW; });
  if (!bReadBack || bCut || !Write_and_Read()) return 0;
  Require_Same_Windows(hFirst);
  for (I4 j = 1; j <= NTrn; ++j) Require_Same_Values(hFirst[static_cast<std::size_t>(j - 1)], hTrn(j));
  return 0;
}
