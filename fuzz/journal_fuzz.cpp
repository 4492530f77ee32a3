// journal_fuzz.cpp: the records of a journal with any content. Their sums are put right, so that what they hold is
// looked at, and not only refused.
#include <cstring>

#include "files/journal.h"
#include "foundations/bytes.h"
#include "fuzz/fuzz_file.h"
#include "metadata/mdp_data.h"
#include "model/sound_data.h"
#include "model/txw_data.h"

namespace {

using namespace quillan;

/// A small survey, as it is when its file was opened.
void Open() {
  TMD_Initialize();
  MDP_Initialize();
  Txw_Initialize();
  sAvgFile = "line.avg";
  while (NTrn < 3) {
    Transient& h = TMD_Add_Transient();
    h.dRxStn = h.dRxKvrStn = NTrn;
    for (h.NTW = 1; h.NTW <= 4; ++h.NTW) h.fuVmag(h.NTW) = h.fTWCen(h.NTW) = static_cast<R4>(h.NTW);
    h.NTW = 4;
  }
  History_Begin();
}

/// All of the data, field by field.
std::string State() {
  std::string sState(Bytes_of(NTrn));
  for (I4 j = 1; j <= NTrn; ++j) Append(sState, Fingerprint(hTrn(j)));
  for (const HistoryPart& h : History_Parts()) Append(sState, h.Bytes());
  return sState;
}

/// Gives each record in sBytes that is long enough its sum.
void Mend(std::string& sBytes) {
  constexpr std::size_t NHead = sizeof(I8) + sizeof(std::uint64_t);
  for (std::size_t K = 0; K + NHead < sBytes.size();) {
    I8 NByte = 0;
    std::memcpy(&NByte, sBytes.data() + K, sizeof NByte);
    const std::size_t NLeft = sBytes.size() - K - NHead;
    if (NByte <= 0 || static_cast<std::uint64_t>(NByte) > NLeft) return;
    const auto NContent = static_cast<std::size_t>(NByte);
    const std::uint64_t iSum = Mixed(NContent + 1, std::string_view(sBytes).substr(K + NHead, NContent));
    std::memcpy(sBytes.data() + K + sizeof NByte, &iSum, sizeof iSum);
    K += NHead + NContent;
  }
}

void Require_Sound() {
  Require(NTrn >= 0 && NTrn <= MTrn && NTxw >= 0 && NTxw <= hTxw.MLoop());
  Require(Is_Sound(hTemSurvey) && Is_Sound(hAvgKept) && Is_Sound(MdRx) && Is_Sound(MdTx) && Is_Sound(MdChn));
  for (I4 j = 1; j <= NTrn; ++j) Require(Is_Sound(hTrn(j)));
  for (I4 K = 1; K <= hTxw.MLoop(); ++K) Require(Is_Sound(hTxw(K)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* hData, std::size_t NData) {
  Begin_Fuzzing();
  std::string sEntries(reinterpret_cast<const char*>(hData), NData);
  static_cast<void>(Journal_Read(sEntries));  // no journal, or the head of one that is damaged
  Open();
  const std::string sBegin = Journal_Begin({"line.avg", {}, {}}), sState = State();
  Mend(sEntries);
  const Journal h = Journal_Read(sBegin + sEntries);
  Require(Journal_Count(h) >= 0 && Journal_Replay(h) <= h.hRecord.size());
  Require_Sound();
  while (History_Undo() != nullptr) {
  }
  Require(State() == sState);
  return 0;
}
