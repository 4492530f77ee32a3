// write_bench.cpp: writing the full store.
#include <charconv>
#include <vector>

#include "benches.h"
#include "files/amr_file.h"
#include "files/avg_writer.h"
#include "files/usf_file.h"
#include "files/z_file.h"
#include "model/derived.h"
#include "platform/safe_file.h"

namespace quillan {
namespace {

struct FloorColumn {
  WindowValues Transient::*hValue;
  std::chars_format iFormat;
  int NDecimal;
};

constexpr FloorColumn hFloorColumn[] = {
    {&Transient::fTWCen, std::chars_format::scientific, 4},
    {&Transient::fTWBeg, std::chars_format::scientific, 4},
    {&Transient::fTWEnd, std::chars_format::scientific, 4},
    {&Transient::fuVmag, std::chars_format::scientific, 5},
    {&Transient::fuVerr, std::chars_format::scientific, 2},
    {&Transient::fuVpct, std::chars_format::fixed,      1},
    {&Transient::fARes,  std::chars_format::scientific, 3},
    {&Transient::fDepth, std::chars_format::scientific, 3},
    {&Transient::fBmag,  std::chars_format::scientific, 5},
};

template <class Step>
void Run_Write(benchmark::State& state, Step Write, const KeptStore& hStore = hBench.hMade) {
  Put_Store(hStore);
  I4 iError = 0;
  for (auto _ : state) iError = Write();
  if (iError != 0) state.SkipWithError("the file was not written");
}

I4 Write_SafeFile(const std::string& sPath) {
  SafeFile out(sPath);
  out.Write(hBench.sBytes);
  out.Commit();
  return out.Has_Failed() ? 1 : 0;
}

}  // namespace

/// What any writer has to do: turn each number into its digits.
void Floor_Write(benchmark::State& state) {
  Put_Store(hBench.hMade);
  std::vector<char> sOut(hBench.sBytes.size());
  for (auto _ : state) {
    char* p = sOut.data();
    char* const pEnd = p + sOut.size();
    for (I4 j = 1; j <= NTrn; ++j) {
      const Transient& h = hTrn(j);
      for (I4 I = 1; I <= h.NTW; ++I) {
        p = std::to_chars(p, pEnd, I).ptr;
        for (const FloorColumn& hColumn : hFloorColumn) {
          p = std::to_chars(p, pEnd, (h.*hColumn.hValue)(I), hColumn.iFormat, hColumn.NDecimal).ptr;
        }
      }
    }
    benchmark::DoNotOptimize(p);
  }
}

/// On a memory file system, where to sync costs nothing.
void Bench_Write(benchmark::State& state) {
  Run_Write(state, [] {
    Prepare_Output(true);
    return AVG_Write(hBench.sOut);
  });
}

/// Three sections of the same windows, with fewer numbers a row.
void Bench_Write_Z(benchmark::State& state) {
  Run_Write(state, [] { return Z_Write(hBench.sOut); });
}

void Bench_Write_Disk(benchmark::State& state) {
  Run_Write(state, [] {
    Prepare_Output(true);
    return AVG_Write(hBench.sDiskFile);
  });
}

/// The same bytes to the disk without making them: write, sync, rename, sync the folder.
void Bench_Sync(benchmark::State& state) {
  Run_Write(state, [] { return Write_SafeFile(hBench.sDiskFile); });
}

// The exchange formats, also on a memory file system. The store of one section has nothing but soundings for them.

void Bench_Write_AMR(benchmark::State& state) {
  const auto As_It_Is = [](const std::string& sTrnFile) { return sTrnFile; };
  Run_Write(
      state, [&] { return AMR_Write(hBench.sOut, As_It_Is); }, hBench.hSection);
}

void Bench_Write_USF(benchmark::State& state) {
  Run_Write(
      state, [] { return USF_Write(hBench.sOut, UsfLayout::Soundings); }, hBench.hSection);
}

void Bench_Write_Sweeps(benchmark::State& state) {
  Run_Write(
      state, [] { return USF_Write(hBench.sOut, UsfLayout::Sweeps); }, hBench.hSection);
}

}  // namespace quillan
