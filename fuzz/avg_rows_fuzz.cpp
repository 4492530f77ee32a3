// avg_rows_fuzz.cpp: averaged data files of any bytes, read in both ways that the reader has: a row must give the same
// values where it is read at once and where it is cut into fields.
#include "files/avg_columns.h"
#include "fuzz/avg_store.h"

namespace {

using namespace quillan;

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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* hData, std::size_t NData) {
  Begin_Fuzzing();
  const std::string_view sFile(reinterpret_cast<const char*>(hData), NData);
  static_cast<void>(Read_First(Fuzz_File(With_Tabs(sFile))));  // NTrn says whether any came
  const std::vector<Transient> hCut = Copy_of_Store();
  static_cast<void>(Read_First(Fuzz_File(sFile)));
  Require(NTrn == static_cast<I4>(hCut.size()));
  for (I4 j = 1; j <= NTrn; ++j) Require_Same_Rows(hTrn(j), hCut[static_cast<std::size_t>(j - 1)]);
  return 0;
}
