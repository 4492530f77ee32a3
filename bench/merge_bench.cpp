// merge_bench.cpp: merging a full store, with all pairs and with none.
#include "benches.h"
#include "processing/tmd_merge.h"

namespace quillan {
namespace {

/// One component, the early-time records at whole stations; in the second half of the store the late-time records of
/// the same stations, dTenths further on.
void Put_Halves(R8 dTenths) {
  Put_Store(hBench.hMade);
  for (I4 j = 1; j <= NTrn; ++j) {
    const bool bLate = j > NTrn / 2;
    hTrn(j).iRxCmp = iCmpHz;
    hTrn(j).dRxStn = bLate ? j - NTrn / 2 + dTenths : j;
  }
}

void Merge_Halves(benchmark::State& state, R8 dTenths, I4 NLeft) {
  MergeSettings hSettings;
  hSettings.NMergeCmp = 1;
  hSettings.iMergeCmp(1) = iCmpHz;
  Put_Halves(dTenths);
  for (auto _ : state) TMD_Merge(hSettings);
  if (NTrn != NLeft) state.SkipWithError("the pairs were not merged");
}

}  // namespace

void Bench_Merge(benchmark::State& state) {
  Merge_Halves(state, 0.1, MTrn / 2);
}

/// Each transient looks through all the others.
void Bench_Merge_None(benchmark::State& state) {
  Merge_Halves(state, 0.0, MTrn);
}

}  // namespace quillan
