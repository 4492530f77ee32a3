#include "processing/sort_data.h"

#include <utility>
#include <vector>

#include "foundations/log_file.h"
#include "foundations/sort_util.h"
#include "metadata/mdp_data.h"
#include "model/tmd_data.h"

namespace quillan {
namespace {

constexpr I4 MKey = 5;

std::vector<R4> Sort_Keys() {
  const bool bMovingLoop = MdSurvey.iTemArray == iArrayMVL;
  std::vector<R4> fSortKey;
  fSortKey.reserve(std::size_t{MKey} * static_cast<std::size_t>(NTrn));
  for (I4 j = 1; j <= NTrn; ++j) {
    const Transient& h = hTrn(j);
    const R8 dTxKey = bMovingLoop ? h.dRxStn - h.dTxStn : h.dTxStn;
    fSortKey.insert(fSortKey.end(), {static_cast<R4>(h.iRxCmp), h.fTxFreq, static_cast<R4>(dTxKey),
                                     static_cast<R4>(h.dRxStn), static_cast<R4>(j)});
  }
  return fSortKey;
}

/// Brings transient JSort(i) to place i by swaps, without a second store.
void Permute_Store(std::vector<I4>& JSort) {
  const auto at = [](std::vector<I4>& jTable, I4 i) -> I4& { return jTable[static_cast<std::size_t>(i - 1)]; };
  std::vector<I4> iRank(JSort.size());  // the inverse: the rank that waits for the record at a place
  for (I4 i = 1; i <= NTrn; ++i) at(iRank, at(JSort, i)) = i;
  for (I4 i = 1; i < NTrn; ++i) {
    const I4 j = at(JSort, i);
    if (i != j) std::swap(hTrn(i), hTrn(j));
    // The record that stood at i is now at j: redirect the rank that waits for it.
    at(JSort, at(iRank, i)) = j;
    at(iRank, j) = at(iRank, i);
  }
}

}  // namespace

I4 Sort_TEM_Data() {
  LogText_Reset();
  LogText("");
  LogText("Sorting TEM data low-to-high by RxCmp,TxFreq,RxStn-TxStn,RxStn.");
  if (NTrn < 2) return 1;
  const std::vector<R4> fSortKey = Sort_Keys();
  std::vector<I4> JSort(static_cast<std::size_t>(NTrn));
  Sort_MKey_R4(MKey, NTrn, fSortKey, JSort);
  Permute_Store(JSort);
  LogText("Sorting complete.");
  return 0;
}

}  // namespace quillan
