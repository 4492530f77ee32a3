// average_bench.cpp: averaging a full store of pairs, and the save of what remains.
#include "benches.h"
#include "files/avg_writer.h"
#include "model/derived.h"
#include "processing/tmd_avg.h"

namespace quillan {
namespace {

/// The full store with one component: two repeats at each of 2048 stations.
void Put_Repeats() {
  Put_Store(hBench.hMade);
  for (I4 j = 1; j <= NTrn; ++j) {
    Transient& h = hTrn(j);
    h.iRxCmp = iCmpHz;
    h.dRxStn = h.dTxStn = h.dRxKvrStn;
  }
}

void Check_Count(benchmark::State& state) {
  if (NTrn != MTrn / 2) state.SkipWithError("the repeats were not averaged");
}

}  // namespace

void Bench_Average_Save(benchmark::State& state) {
  Put_Repeats();
  (void)TMD_Average();
  Check_Count(state);
  for (auto _ : state) {
    Prepare_Output(true);
    if (AVG_Write(hBench.sOut) != 0) state.SkipWithError("the file was not written");
  }
}

void Bench_Average(benchmark::State& state) {
  Put_Repeats();
  for (auto _ : state) (void)TMD_Average();
  Check_Count(state);
}

}  // namespace quillan
