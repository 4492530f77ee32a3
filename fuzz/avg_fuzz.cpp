// avg_fuzz.cpp: the reader of averaged data files, with all that it calls, on any bytes; then the writer, whose file
// the reader must take back.
#include <algorithm>
#include <cmath>
#include <vector>

#include "files/avg_columns.h"
#include "files/avg_reader.h"
#include "files/avg_writer.h"
#include "files/mde_file.h"
#include "fuzz/fuzz_file.h"
#include "metadata/mdp_data.h"
#include "model/derived.h"

namespace {

using namespace quillan;

/// Reads a file as the program does that has just started, without a metadata file.
I4 Read_First(std::string_view sFile) {
  MDP_Initialize_MD(true);
  MdJob = JobGroup{};  // the job's number and date outlive the initialiser
  hTemSurvey = Survey{};
  hAvgRead = AvgReadState{};
  std::string sNoMde = Fuzz_Path("none.mde");
  static_cast<void>(MDE_Read(sNoMde));  // there is none, but the station scaling gets its fallbacks
  return AVG_Read(sFile);
}

void Check_Transient(const Transient& h) {
  Require(h.NTW >= 1 && h.NTW <= MTW);
  Require(h.iRxCmp >= 1 && h.iRxCmp <= 9);
  Require(h.iAcqMethod >= 1 && h.iAcqMethod <= 5);
  Require(h.dRxKvrStn >= dDummyLimit && std::isfinite(h.dRxStn) && std::isfinite(h.dTxStn));
  Require(h.fRxArea > 0.0f && h.fTxFreq > 0.0f && h.fTxAmp > 0.0f);
  for (I4 I = 1; I <= h.NTW; ++I) {
    Require(h.fTWCen(I) >= fDummyLimit && (I == 1 || h.fTWCen(I) >= h.fTWCen(I - 1)));
    for (const auto* hValue : {&h.fTWBeg, &h.fTWEnd, &h.fuVmag, &h.fuVerr, &h.fuVpct, &h.fARes, &h.fDepth, &h.fBmag})
      Require(std::isfinite((*hValue)(I)));
  }
}

void Check_Store(I4 iError) {
  Require(NTrn >= 0 && NTrn <= MTrn && (NTrn >= 1 || iError == 1));
  const AvgKeptLines& h = hAvgKept;
  Require(h.NAvgCmt >= 0 && h.NAvgCmt <= MAvgCmt && h.NAvgMde >= 0 && h.NAvgMde <= MAvgMde);
  for (I4 I = 1; I <= h.NAvgCmt; ++I) Require(h.sAvgCmt(I).trimmed().find("QUILLAN") == std::string_view::npos);
  for (I4 I = 1; I <= h.NAvgMde; ++I) Require(h.sAvgMde(I).trimmed().substr(0, 2).find('$') != std::string_view::npos);
  for (I4 j = 1; j <= NTrn; ++j) Check_Transient(hTrn(j));
}

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

std::vector<Transient> Copy_of_Store() {
  return {hTrn.begin(), hTrn.begin() + NTrn};
}

void Require_Same_Windows(const std::vector<Transient>& hBefore) {
  Require(NTrn == static_cast<I4>(hBefore.size()));
  for (I4 j = 1; j <= NTrn; ++j) Require(hTrn(j).NTW == hBefore[static_cast<std::size_t>(j - 1)].NTW);
}

/// sLine: left-adjusted, without trailing blanks.
bool Is_Row(std::string_view sLine) {
  constexpr std::string_view sHead = "0123456789+-.*,";
  return sLine.size() >= 3 && sHead.find(sLine[0]) != std::string_view::npos && sLine[1] != '$';
}

/// The file with a tab ahead of each row, which takes such a row off the short way.
std::string With_Tabs(std::string_view sFile) {
  std::string sTabs;
  while (!sFile.empty()) {
    const std::string_view sLine = sFile.substr(0, sFile.find('\n'));
    std::string_view sRow = Left_Adjusted(sLine);
    if (sRow.ends_with('\r')) sRow.remove_suffix(1);
    if (sLine.size() < MAvgRecord && Is_Row(Trimmed(sRow))) sTabs += '\t';
    sTabs += sLine;
    sFile.remove_prefix(sLine.size());
    if (sFile.empty()) break;
    sTabs += '\n';
    sFile.remove_prefix(1);
  }
  return sTabs;
}

void Require_Same_Rows(const Transient& h1, const Transient& h2) {
  Require(h1.NTW == h2.NTW && h1.dTxKvrStn == h2.dTxKvrStn && h1.dRxKvrStn == h2.dRxKvrStn);
  Require(h1.fTxFreq == h2.fTxFreq && h1.fTxAmp == h2.fTxAmp && h1.iRxCmp == h2.iRxCmp && h1.bSkip == h2.bSkip);
  for (I4 I = 1; I <= h1.NTW; ++I) {
    for (const AvgColumn& h : hAvgColumn) {
      if (h.hValue != nullptr) Require((h1.*h.hValue)(I) == (h2.*h.hValue)(I));
    }
  }
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
  const std::string_view sFile(reinterpret_cast<const char*>(hData), NData);
  static_cast<void>(Read_First(Fuzz_File(With_Tabs(sFile))));  // its status is that of the file as it stands
  const std::vector<Transient> hCut = Copy_of_Store();
  Check_Store(Read_First(Fuzz_File(sFile)));
  Require(NTrn == static_cast<I4>(hCut.size()));
  for (I4 j = 1; j <= NTrn; ++j) Require_Same_Rows(hTrn(j), hCut[static_cast<std::size_t>(j - 1)]);

  const bool bFits = Store_Fits();
  const std::vector<Transient> hRead = Copy_of_Store();
  const bool bReadBack = Write_and_Read();
  if (bFits) Require_Same_Windows(hRead);

  // What came from a file of ours is in the file's own steps: another round changes nothing.
  const std::vector<Transient> hFirst = Copy_of_Store();
  const bool bCut = std::any_of(hFirst.begin(), hFirst.end(), [](const Transient& h) { return h.NTW == MTW; });
  if (!bReadBack || bCut || !Write_and_Read()) return 0;
  Require_Same_Windows(hFirst);
  for (I4 j = 1; j <= NTrn; ++j) Require_Same_Values(hFirst[static_cast<std::size_t>(j - 1)], hTrn(j));
  return 0;
}
